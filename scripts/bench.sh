#!/usr/bin/env bash
# Builds the project and runs every benchmark; each prints its own figures. Not part of the tests:
# the figures depend on the machine.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
bash scripts/build.sh >/dev/null
for bench in build/bench/agents/bench_session_reload build/bench/agents/bench_hook \
             build/bench/base/bench_tier_wakeups build/bench/media/bench_mpris_refresh \
             build/bench/secrets/bench_secrets build/bench/agents/bench_terminal_focus; do
  echo "== ${bench##*/}"
  "$bench"
done
source scripts/xvfb.sh
(unset DISPLAY; vaxo_start_xvfb wm 2>/dev/null; echo "== bench_rename_to_frame"; build/bench/island/bench_rename_to_frame)
echo "== cpu-and-memory"
bash bench/island/cpu-and-memory.sh build

#!/usr/bin/env bash
# Builds the project and runs every benchmark; each prints its own figures. Not part of the tests:
# the figures depend on the machine.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
bash scripts/build.sh >/dev/null
for bench in build/bench/agents/bench_session_reload build/bench/agents/bench_hook \
             build/bench/app/bench_tier_wakeups build/bench/media/bench_mpris_refresh \
             build/bench/secrets/bench_secrets; do
  echo "== ${bench##*/}"
  "$bench"
done
echo "== cpu-at-rest"
bash bench/app/cpu-at-rest.sh build

#!/usr/bin/env bash
# Sets up a Debian 12 machine, builds the island and runs it. Without a display it runs on Xvfb.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
bash scripts/build.sh
source scripts/xvfb.sh
vaxo_start_xvfb wm
./build/src/app/vaxo-island "$@"

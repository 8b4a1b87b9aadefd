#!/usr/bin/env bash
# Sets up a Debian 12 machine, builds everything and runs every test: the fuzz targets for a
# bounded time, then the test suite on a private Xvfb with a window manager.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
bash scripts/build.sh

cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
  -DVAXO_FUZZ=ON -DVAXO_WERROR=ON >/dev/null
cmake --build build-fuzz
ctest --test-dir build-fuzz --output-on-failure

source scripts/xvfb.sh
vaxo_start_xvfb wm
ctest --test-dir build --output-on-failure -j2

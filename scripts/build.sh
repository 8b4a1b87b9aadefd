#!/usr/bin/env bash
# Configures and builds the program and its tests into build/ (warnings are errors).
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVAXO_WERROR=ON >/dev/null
cmake --build build

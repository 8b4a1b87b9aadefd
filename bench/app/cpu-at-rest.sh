#!/usr/bin/env bash
# The program's processor time and wake-ups over a minute at rest (no agents, nobody at the keyboard),
# on a private Xvfb with openbox, once with VAXO_NO_ANIM and once without. Wake-ups are the voluntary
# context switches of all its threads. Usage: bench/app/cpu-at-rest.sh [BUILD_DIR] (SECONDS=60)
set -euo pipefail
cd "$(dirname "$0")/../.."
build=${1:-build}
seconds=${SECONDS_AT_REST:-60}
program="$build/src/app/vaxo-island"
[ -x "$program" ] || { echo "no program at $program: build it first" >&2; exit 1; }

unset DISPLAY
source scripts/xvfb.sh
vaxo_start_xvfb wm 2>/dev/null
home=$(mktemp -d)
trap 'kill $VAXO_XVFB_PID ${VAXO_WM_PID:-} 2>/dev/null; rm -rf "$home"' EXIT

ticks=$(getconf CLK_TCK)
# utime + stime of the process, in clock ticks
cpu_ticks() { awk '{print $14 + $15}' "/proc/$1/stat"; }
wakeups() { cat /proc/"$1"/task/*/status | awk '/^voluntary_ctxt_switches/ {n += $2} END {print n}'; }

measure() {
  local label=$1; shift
  env "$@" HOME="$home" XDG_DATA_HOME="$home/data" XDG_CONFIG_HOME="$home/config" XDG_CACHE_HOME="$home/cache" \
    "$program" >/dev/null 2>&1 &
  local pid=$!
  sleep 5 # start-up is not rest
  local cpu0 wake0 cpu1 wake1
  cpu0=$(cpu_ticks $pid); wake0=$(wakeups $pid)
  sleep "$seconds"
  cpu1=$(cpu_ticks $pid); wake1=$(wakeups $pid)
  kill $pid; wait $pid 2>/dev/null || true
  awk -v l="$label" -v c=$((cpu1 - cpu0)) -v w=$((wake1 - wake0)) -v t="$ticks" -v s="$seconds" \
    'BEGIN {printf "%-16s cpu %.2f s over %d s = %.2f %%   wake-ups %.1f/min\n", l, c / t, s, 100 * c / t / s, w * 60 / s}'
}

measure "animations on" VAXO_ACTIVITY_DEBUG=1
measure "VAXO_NO_ANIM" VAXO_NO_ANIM=1 VAXO_ACTIVITY_DEBUG=1

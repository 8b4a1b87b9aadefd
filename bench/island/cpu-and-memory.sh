#!/usr/bin/env bash
# The program's processor time, wake-ups and peak resident memory over a minute on a private Xvfb with
# openbox: at rest (no agents, nobody at the keyboard, Vaxo's face shown), with one working session (her
# face and the working mark animating), with two working sessions (the working marks animating), and
# with two working sessions under VAXO_NO_ANIM. Wake-ups are the voluntary context
# switches of all its threads. Usage: bench/island/cpu-and-memory.sh [BUILD_DIR] (SECONDS_AT_REST=60)
# Targets: at rest under 0.1 % of one core and 60 MB resident; one or two working sessions under 1.5 %.
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
sessions="$home/data/VAXO Island/sessions"

ticks=$(getconf CLK_TCK)
# utime + stime of the process, in clock ticks
cpu_ticks() { awk '{print $14 + $15}' "/proc/$1/stat"; }
wakeups() { cat /proc/"$1"/task/*/status | awk '/^voluntary_ctxt_switches/ {n += $2} END {print n}'; }
peak_mb() { awk '/^VmHWM/ {printf "%.1f", $2 / 1024}' "/proc/$1/status"; }

# working N: N sessions at work, as the hook writes them
working() {
  rm -rf "$sessions" && mkdir -p "$sessions"
  for i in $(seq 1 "$1"); do
    printf '{"id":"w%s","agent":"claude","label":"project-%s","status":"working","updated":%s}' \
      "$i" "$i" "$(date +%s)" >"$sessions/w$i.json"
  done
}

measure() {
  local label=$1 agents=$2; shift 2
  working "$agents"
  env "$@" HOME="$home" XDG_DATA_HOME="$home/data" XDG_CONFIG_HOME="$home/config" XDG_CACHE_HOME="$home/cache" \
    "$program" >/dev/null 2>&1 &
  local pid=$!
  sleep 5 # start-up is not rest
  local cpu0 wake0 cpu1 wake1
  cpu0=$(cpu_ticks $pid); wake0=$(wakeups $pid)
  sleep "$seconds"
  cpu1=$(cpu_ticks $pid); wake1=$(wakeups $pid)
  local peak
  peak=$(peak_mb $pid)
  kill $pid; wait $pid 2>/dev/null || true
  awk -v l="$label" -v c=$((cpu1 - cpu0)) -v w=$((wake1 - wake0)) -v t="$ticks" -v s="$seconds" -v m="$peak" \
    'BEGIN {printf "%-26s cpu %.2f s over %d s = %.2f %%   wake-ups %.1f/min   peak resident %s MB\n",
            l, c / t, s, 100 * c / t / s, w * 60 / s, m}'
}

measure "at rest" 0
measure "one working session" 1
measure "two working sessions" 2
measure "two working, VAXO_NO_ANIM" 2 VAXO_NO_ANIM=1

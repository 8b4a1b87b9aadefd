# Sourced by run.sh and test.sh: when there is no display, start a private Xvfb (and, with "wm", openbox
# on it) and export DISPLAY. The screen is 1920x1080 unless VAXO_XVFB_SCREEN says otherwise (WxH). The
# servers end with the calling script.
vaxo_start_xvfb() {
  [ -n "${DISPLAY:-}" ] && return 0
  local n
  for n in $(seq 90 140); do
    [ -e "/tmp/.X11-unix/X$n" ] || [ -e "/tmp/.X$n-lock" ] || break
  done
  Xvfb ":$n" -screen 0 "${VAXO_XVFB_SCREEN:-1920x1080}x24" -noreset -nolisten tcp >/dev/null 2>&1 &
  VAXO_XVFB_PID=$!
  trap 'kill $VAXO_XVFB_PID ${VAXO_WM_PID:-} 2>/dev/null' EXIT
  export DISPLAY=":$n"
  for _ in $(seq 1 100); do
    xdpyinfo >/dev/null 2>&1 && break
    sleep 0.1
  done
  if [ "${1:-}" = wm ]; then
    openbox >/dev/null 2>&1 &
    VAXO_WM_PID=$!
    trap 'kill $VAXO_XVFB_PID $VAXO_WM_PID 2>/dev/null' EXIT
  fi
  echo "No display found: started Xvfb on $DISPLAY${1:+ with openbox}." >&2
}

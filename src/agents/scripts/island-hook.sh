#!/bin/bash
# Reports a Claude Code session to VAXO Island, the island at the top of the screen.
# Claude Code runs it on each hooked event with the event's JSON payload on standard input.
# The reporter it starts keeps one JSON file per session in the sessions folder.
# It uses no network and prints nothing but a permission decision for Claude Code.
set -e
DIR="@SESSIONS_DIR@"
SUPPORT="@SUPPORT_DIR@"
EVENT="${1:-unknown}"

# Claude Code runs hooks without a controlling terminal, so the terminal is taken from the nearest
# ancestor that has one, and Claude Code's process is the nearest ancestor that is not a shell (its
# id with its start time, so that a reused id is never taken for it). Both are read from /proc
# without starting a process: this runs on every tool call.
TTY=""
if [ -t 0 ]; then
  TTY=$(tty 2>/dev/null) || TTY=""
fi
PROCESS=""
pid=$$
while [ -z "$TTY" ] || [ -z "$PROCESS" ]; do
  [ "$pid" -gt 1 ] 2>/dev/null || break
  stat=""
  { read -r stat <"/proc/$pid/stat"; } 2>/dev/null || break
  name=${stat#*(}
  name=${name%)*}
  # After the command name: state, parent, group, session, terminal device number, ... start time.
  set -- ${stat##*) }
  [ $# -ge 20 ] || break
  if [ -z "$TTY" ]; then
    major=$((($5 >> 8) & 0xfff))
    minor=$((($5 & 0xff) | (($5 >> 12) & 0xfff00)))
    if [ "$major" -ge 136 ] && [ "$major" -le 143 ]; then
      TTY="/dev/pts/$(((major - 136) * 256 + minor))"
    fi
  fi
  if [ -z "$PROCESS" ] && [ "$pid" != $$ ]; then
    case "$name" in
      sh | bash | dash | zsh | ksh | mksh | fish | busybox) ;;
      *) PROCESS="$pid ${20}" ;;
    esac
  fi
  pid=$2
done

# The payload stays on standard input for the reporter, which also derives the session's file
# from it; only the reporter's decision may reach standard output, which Claude Code reads.
unset VAXO_OUT VAXO_TMP
export VAXO_EVENT="$EVENT" VAXO_SESSIONS="$DIR" VAXO_CWD="$PWD" VAXO_DECISIONS="$DIR/../decisions" \
  VAXO_BUNDLE="${__CFBundleIdentifier:-}" VAXO_TERM="${TERM_PROGRAM:-}" \
  VAXO_TERMSESSION="${ITERM_SESSION_ID:-}${TERM_SESSION_ID:-}" VAXO_TTY="$TTY" VAXO_PROCESS="$PROCESS"
# Whatever becomes of the reporter (even a missing interpreter or file), the hook ends quietly
# with status 0: Claude Code would take another status as the hook's own verdict.
/usr/bin/python3 -I -S "$SUPPORT/island-report.py" 2>/dev/null || true
exit 0

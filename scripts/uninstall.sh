#!/usr/bin/env bash
# Removes VAXO Island from this account: its hook entries from Claude Code's settings (every other
# key and hook stays, and the day's backup is made first), then, after asking (or at once with
# --yes), its support folder, its settings and its caches. Quit the island first.
set -euo pipefail

usage() {
  echo "Usage: $0 [--yes]"
  echo "  --yes  remove the island's folders without asking"
}
yes=0
for arg in "$@"; do
  case "$arg" in
    -y | --yes) yes=1 ;;
    -h | --help) usage; exit 0 ;;
    *) usage >&2; exit 2 ;;
  esac
done

settings="$HOME/.claude/settings.json"
if [ -e "$settings" ]; then
  /usr/bin/python3 -I - "$settings" <<'PY'
import datetime, json, os, shutil, sys, tempfile

OURS = "VAXO Island/island-hook.sh"


class Pairs(list):
    """An object as its members stand, in order, duplicates and all."""


class Raw(str):
    """A number exactly as it is written."""


def is_ours(hook):
    return isinstance(hook, Pairs) and any(k == "command" and isinstance(v, str) and OURS in v for k, v in hook)


def without_ours(entries):
    kept, changed = [], False
    for entry in entries:
        hooks = [v for k, v in entry if k == "hooks"] if isinstance(entry, Pairs) else []
        if hooks and isinstance(hooks[-1], list) and any(is_ours(h) for h in hooks[-1]):
            hooks[-1][:] = [h for h in hooks[-1] if not is_ours(h)]
            changed = True
            if not hooks[-1]:
                continue  # the entry held only our hook
        kept.append(entry)
    return kept, changed


def remove_hooks(root):
    changed, emptied = False, []
    for name, hooks in root:
        if name != "hooks" or not isinstance(hooks, Pairs):
            continue
        members = []
        for event, entries in hooks:
            if isinstance(entries, list):
                kept, dropped = without_ours(entries)
                changed |= dropped
                if dropped and not kept:
                    continue  # an event left empty goes
                entries = kept
            members.append((event, entries))
        if members != hooks and not members:
            emptied.append(hooks)
        hooks[:] = members
    root[:] = [(k, v) for k, v in root if not any(v is e for e in emptied)]
    return changed


def text(value):
    written = json.dumps(value, ensure_ascii=False)
    try:
        written.encode("utf-8")
    except UnicodeEncodeError:
        return json.dumps(value)  # a lone surrogate: kept as its escape
    return written


def dump(value, indent=""):
    inner = indent + "  "
    if isinstance(value, Raw):
        return str(value)
    if isinstance(value, str):
        return text(value)
    if isinstance(value, Pairs):
        if not value:
            return "{}"
        members = (inner + text(k) + ": " + dump(v, inner) for k, v in value)
        return "{\n" + ",\n".join(members) + "\n" + indent + "}"
    if isinstance(value, list):
        if not value:
            return "[]"
        return "[\n" + ",\n".join(inner + dump(v, inner) for v in value) + "\n" + indent + "]"
    return json.dumps(value)


path = sys.argv[1]
target = os.path.realpath(path)  # a link stays a link: its file is rewritten
try:
    with open(target, encoding="utf-8") as f:
        root = json.load(f, object_pairs_hook=Pairs, parse_int=Raw, parse_float=Raw, parse_constant=Raw)
except (OSError, ValueError) as error:
    sys.exit("~/.claude/settings.json could not be read (%s); left as it is." % error)
if not isinstance(root, Pairs):
    sys.exit("~/.claude/settings.json is not a JSON object; left as it is.")
if not remove_hooks(root):
    print("No hooks of VAXO Island in ~/.claude/settings.json.")
    sys.exit(0)

day = datetime.datetime.now(datetime.timezone.utc).strftime("%Y-%m-%d")
backup = os.path.join(os.path.dirname(path), "settings.json.bak-vaxo-island-" + day)
if not os.path.exists(backup):
    shutil.copy2(target, backup)
fd, temporary = tempfile.mkstemp(prefix=".settings.json.", dir=os.path.dirname(target))
try:
    with os.fdopen(fd, "w", encoding="utf-8") as f:
        f.write(dump(root) + "\n")
    shutil.copymode(target, temporary)
    os.replace(temporary, target)
except BaseException:
    os.unlink(temporary)
    raise
print("Removed the hooks of VAXO Island from ~/.claude/settings.json (backup: %s)." % backup)
PY
fi

folders=(
  "${XDG_DATA_HOME:-$HOME/.local/share}/VAXO Island"
  "${XDG_CONFIG_HOME:-$HOME/.config}/VAXO Island"
  "${XDG_CACHE_HOME:-$HOME/.cache}/VAXO Island"
)
present=()
for folder in "${folders[@]}"; do
  [ -e "$folder" ] && present+=("$folder")
done
[ ${#present[@]} -gt 0 ] || exit 0
if [ "$yes" -ne 1 ]; then
  printf 'Remove these folders (sessions, settings, clipboard history, artwork)?\n'
  printf '  %s\n' "${present[@]}"
  read -r -p "[y/N] " answer || answer=""
  case "$answer" in
    y | Y | yes | Yes) ;;
    *) echo "Folders kept."; exit 0 ;;
  esac
fi
rm -rf -- "${present[@]}"
echo "Removed the island's folders."

# Merges one Claude Code hook event into the session's file for VAXO Island, and for a permission
# request waits for the island's answer. Run by island-hook.sh as `/usr/bin/python3 -I -S`.
# Standard library only. It prints nothing but an accepted permission decision and always exits 0.
#
# Claude Code runs the hook in line on every tool call, so start-up cost matters: only modules the
# interpreter has already loaded, plus the C JSON scanner (the json package pulls in re and enum).
import sys
import time
import posix

try:
    import _json
except ImportError:
    _json = None

EVENTS_THAT_ASK = ("Notification", "PermissionRequest")
# Notifications that ask the person something; others (an idle reminder a minute after each turn,
# for one) leave the session as it is. Older versions send no type at all.
ASKING_NOTIFICATIONS = ("permission_prompt", "elicitation_dialog")
DECISION_MAX_AGE = 600.0
ANSWERS = ("allow", "deny", "always")
POLL = 0.2
WATCH_EVERY = 5  # polls


class _ScanContext:
    strict = True
    object_hook = None
    object_pairs_hook = None
    parse_float = float
    parse_int = int
    parse_constant = float


def parse(data):
    """The JSON value in bytes or text; raises ValueError when there is none."""
    text = data.decode("utf-8") if isinstance(data, bytes) else data
    if _json is None:
        import json
        return json.loads(text)
    start = len(text) - len(text.lstrip(" \t\n\r"))
    try:
        value, end = _json.make_scanner(_ScanContext())(text, start)
    except (StopIteration, RecursionError):
        raise ValueError("no JSON value")
    if text[end:].strip(" \t\n\r"):
        raise ValueError("extra data")
    return value


def quoted(text):
    if _json is None:
        import json
        return json.dumps(text)
    return _json.encode_basestring_ascii(text)


def dump(value):
    """Compact ASCII JSON; values JSON cannot hold become null."""
    if value is None or value is True or value is False:
        return {None: "null", True: "true", False: "false"}[value]
    if isinstance(value, str):
        return quoted(value)
    if isinstance(value, int):
        return int.__repr__(value)
    if isinstance(value, float):
        return float.__repr__(value) if value - value == 0 else "null"
    if isinstance(value, list):
        return "[" + ",".join(dump(v) for v in value) + "]"
    if isinstance(value, dict):
        return "{" + ",".join(quoted(str(k)) + ":" + dump(v) for k, v in value.items()) + "}"
    return "null"


def env(name):
    value = posix.environ.get(name.encode())
    return value.decode("utf-8", "surrogateescape") if value else ""


def text(value):
    """A string value, or None for anything else and for the empty string."""
    return value if isinstance(value, str) and value else None


def as_text(value):
    if value is None or value == "":
        return ""
    return value if isinstance(value, str) else dump(value)


def first_of(obj, keys):
    if not isinstance(obj, dict):
        return ""
    for key in keys:
        value = as_text(obj.get(key))
        if value:
            return value
    return ""


def read_file(path):
    fd = posix.open(path, posix.O_RDONLY)
    try:
        chunks = []
        while True:
            chunk = posix.read(fd, 1 << 16)
            if not chunk:
                return b"".join(chunks)
            chunks.append(chunk)
    finally:
        posix.close(fd)


def write_file(path, data, mode=0o644):
    fd = posix.open(path, posix.O_WRONLY | posix.O_CREAT | posix.O_TRUNC, mode)
    try:
        while data:
            data = data[posix.write(fd, data):]
    finally:
        posix.close(fd)


def make_folder(path):
    try:
        posix.mkdir(path, 0o700)
    except FileNotFoundError:
        make_folder(path.rsplit("/", 1)[0] or "/")
        posix.mkdir(path, 0o700)
    except FileExistsError:
        pass


def load_object(path):
    try:
        value = parse(read_file(path))
    except (OSError, ValueError):
        return {}
    return value if isinstance(value, dict) else {}


def session_id(payload):
    sid = text(payload.get("session_id"))
    # The id names a file in the sessions folder; one that is not a plain file name cannot.
    if sid is None or "/" in sid or "\0" in sid or sid in (".", ".."):
        return "unknown"
    return sid


def made_up_ask_id(sid, payload, now):
    """Claude Code's permission requests carry no tool-call id; derive one that names the request."""
    import hashlib
    tool_input = payload.get("tool_input")
    canonical = dump(canonical_order(tool_input))
    seed = "\n".join((sid, as_text(payload.get("tool_name")), canonical, repr(now)))
    return "perm_" + hashlib.sha256(seed.encode("utf-8", "surrogatepass")).hexdigest()[:24]


def canonical_order(value):
    if isinstance(value, dict):
        return {str(k): canonical_order(value[k]) for k in sorted(value, key=str)}
    if isinstance(value, list):
        return [canonical_order(v) for v in value]
    return value


def question(event, payload, prev, sid, now):
    """What a waiting session waits for: waiting_for, ask_tool, ask_target and ask_id."""
    fallback = "permission" if event == "PermissionRequest" else "needs your answer"
    waiting_for = (as_text(payload.get("message")) or fallback)[:400]
    tool_info = any(payload.get(k) is not None for k in ("tool_name", "tool_input", "tool_use_id"))
    if event == "Notification" and not tool_info and prev.get("status") == "waiting":
        # A bare notification follows a permission request a few seconds later: the question stands.
        return waiting_for, text(prev.get("ask_tool")), text(prev.get("ask_target")), text(prev.get("ask_id"))
    ask_tool = text(as_text(payload.get("tool_name")))
    ask_target = text(first_of(payload.get("tool_input"), ("command", "file_path", "path", "url"))[:300])
    ask_id = text(as_text(payload.get("tool_use_id")))
    if event == "PermissionRequest" and ask_id is None:
        ask_id = made_up_ask_id(sid, payload, now)
    return waiting_for, ask_tool, ask_target, ask_id


def changes_nothing(event, payload):
    kind = payload.get("notification_type")
    return event == "Notification" and kind is not None and kind not in ASKING_NOTIFICATIONS


def suggestions(payload):
    """What Claude Code offers to remember with an allow, when there is something."""
    offered = payload.get("permission_suggestions")
    if not isinstance(offered, list) or not offered or len(dump(offered)) > 16384:
        return None
    return offered


def offered(event, payload, prev, ask_id):
    if not ask_id:
        return None
    if event == "PermissionRequest":
        return suggestions(payload)
    # A bare notification that follows the request keeps its question, offer included.
    return prev.get("ask_suggestions") if ask_id == prev.get("ask_id") else None


def claude_process(prev):
    """The Claude Code process the hook runs under: its id and start time, from the hook."""
    fields = env("VAXO_PROCESS").split()
    if len(fields) == 2 and all(f.isdigit() for f in fields):
        return {"pid": int(fields[0]), "start": fields[1]}
    process = prev.get("process")
    return process if isinstance(process, dict) else None


def merge(event, payload, prev, now):
    """The session record after this event, or None when the session ended."""
    sid = session_id(payload)
    cwd = text(payload.get("cwd")) or env("VAXO_CWD") or text(prev.get("cwd")) or ""
    label = cwd.rstrip("/").rsplit("/", 1)[-1] or "session"
    status = text(prev.get("status")) or "working"
    waiting_for = text(prev.get("waiting_for"))
    last_prompt = text(prev.get("last_prompt"))
    last_action = text(prev.get("last_action"))
    ask_tool = ask_target = ask_id = None
    if event == "UserPromptSubmit":
        status, waiting_for = "working", None
        last_prompt = as_text(payload.get("prompt"))[:400]
    elif event == "Stop":
        status, waiting_for, last_action = "done", None, None
    elif event == "StopFailure":
        # An API error ended the turn; the card says which kind.
        status, last_action = "done", None
        waiting_for = (text(payload.get("error")) or "unknown")[:400]
    elif event in EVENTS_THAT_ASK:
        waiting_for, ask_tool, ask_target, ask_id = question(event, payload, prev, sid, now)
        status = "waiting"
    elif event == "SessionEnd":
        return None
    elif event == "PostToolUse":
        status, waiting_for = "working", None
        target = first_of(payload.get("tool_input"), ("file_path", "path", "command", "pattern"))
        last_action = text((as_text(payload.get("tool_name")) + " " + target).strip()[:300])
    started = prev.get("started")
    return {
        "id": sid,
        "agent": text(prev.get("agent")) or "claude",
        "label": label,
        "status": status,
        "started": started if isinstance(started, (int, float)) and not isinstance(started, bool) else now,
        "updated": now,
        "last_prompt": text(last_prompt),
        "last_action": last_action,
        "tasks": prev.get("tasks"),
        "waiting_for": waiting_for,
        "cwd": text(cwd),
        "host_bundle": env("VAXO_BUNDLE") or text(prev.get("host_bundle")),
        "term_app": env("VAXO_TERM") or text(prev.get("term_app")),
        "term_session": env("VAXO_TERMSESSION") or text(prev.get("term_session")),
        "tty": env("VAXO_TTY") or text(prev.get("tty")),
        "ask_tool": ask_tool,
        "ask_target": ask_target,
        "ask_id": ask_id,
        "process": claude_process(prev),
        "ask_suggestions": offered(event, payload, prev, ask_id),
    }


def write_record(out, sid, record):
    """Writes under a temporary name, then renames over the session's file; failures are ignored."""
    folder = out.rsplit("/", 1)[0] or "/"
    # A temporary name of this process alone: concurrent events of one session never share it.
    tmp = env("VAXO_TMP") or "%s/.%s.%d.tmp" % (folder, sid, posix.getpid())
    try:
        if env("VAXO_SESSIONS"):
            make_folder(folder)
            posix.chmod(folder, 0o700)
        write_file(tmp, dump(record).encode("ascii"))
        posix.rename(tmp, out)
    except BaseException as error:
        try:
            posix.unlink(tmp)
        except OSError:
            pass
        if not isinstance(error, OSError):
            raise


def report():
    event = env("VAXO_EVENT")
    try:
        raw = sys.stdin.buffer.read()
        payload = parse(raw) if raw.strip() else {}
    except (OSError, ValueError):
        payload = {}
    if not isinstance(payload, dict):
        payload = {}
    sid = session_id(payload)
    sessions = env("VAXO_SESSIONS")
    out = env("VAXO_OUT") or (sessions + "/" + sid + ".json" if sessions else "")
    if changes_nothing(event, payload):
        return
    record = merge(event, payload, load_object(out) if out else {}, time.time())
    if record is None:
        try:
            posix.unlink(out)
        except OSError:
            pass
        return
    waiting = None
    if event == "PermissionRequest" and record["ask_id"]:
        waiting = dict(globals())
        exec(WAITING, waiting)
        waiting["prepare"]()  # before the question shows: the answer may come at once
    if out:
        write_record(out, sid, record)
    if waiting:
        waiting["answer"](payload, record, out)


# The wait for the island's answer, compiled only when a permission request waits: Claude Code runs
# the reporter in line on every tool call, and Python compiles all of a script's text at each start.
WAITING = r'''
def plain_id(ask_id):
    # The island names decision files after a sanitised id; an id that sanitising would change is
    # never answered, and must never lead the reporter to read or delete a file elsewhere.
    return 0 < len(ask_id) <= 120 and all(c.isascii() and (c.isalnum() or c in "-_") for c in ask_id)


def budget():
    try:
        seconds = float(env("VAXO_ASK_TIMEOUT") or "120")
    except ValueError:
        return 120.0
    return seconds if seconds - seconds == 0 else 120.0


def read_decision(path, ask_id):
    """The accepted answer in the decision file; None when there is none yet, "" for a refused file."""
    try:
        data = read_file(path)
    except FileNotFoundError:
        return None
    except OSError:
        return ""
    try:
        decision = parse(data)
    except ValueError:
        return ""
    try:
        posix.unlink(path)  # single use, whatever it holds
    except OSError:
        pass
    if not isinstance(decision, dict):
        return ""
    at = decision.get("at", 0)
    if isinstance(at, bool) or not isinstance(at, (int, float)):
        return ""
    behavior = decision.get("behavior")
    if behavior in ANSWERS and decision.get("id") == ask_id and time.time() - at < DECISION_MAX_AGE:
        return behavior
    return ""


def wait_for_decision(ask_id, watch):
    """The accepted answer, or None: every doubt leaves Claude Code to ask in the terminal. Ends
    early, with what the session became, when the question was answered in the terminal."""
    folder = env("VAXO_DECISIONS")
    if not folder or not plain_id(ask_id):
        return None, None
    path = folder + "/" + ask_id + ".json"
    deadline = time.time() + budget()
    polls = 0
    while time.time() < deadline:
        # A missing file costs less to see without an exception.
        behavior = read_decision(path, ask_id) if posix.access(path, posix.F_OK) else None
        if behavior is not None:
            return behavior or None, None
        # The terminal's answer ends the hook at once (SIGTERM); this look, once a second, is for
        # whatever else moves the turn on.
        polls += 1
        moved = watch.moved_on() if polls % WATCH_EVERY == 0 else None
        if moved:
            return None, moved
        time.sleep(POLL)
    return None, None


def stamp(path):
    try:
        st = posix.stat(path)
    except OSError:
        return None
    return st.st_ino, st.st_size, st.st_mtime_ns


class TurnWatch:
    """Notices a question answered in the terminal, where no hook tells: Claude Code's own status
    of its process, the transcript it appends the turn to, and the session's file. Each is read only
    when it changed, and of the transcript only what was appended after the request."""

    REFUSALS = (b"The user doesn't want to proceed", b"[Request interrupted by user")

    def __init__(self, payload, record, out):
        self.out, self.sid, self.ask_id = out, record["id"], record["ask_id"]
        self.session = stamp(out)
        self.transcript, self.pending = None, b""
        path = text(payload.get("transcript_path"))
        try:
            self.transcript = posix.open(path, posix.O_RDONLY) if path else None
            if self.transcript is not None:
                posix.lseek(self.transcript, 0, 2)
        except OSError:
            self.transcript = None
        process = record.get("process") or {}
        claude = env("CLAUDE_CONFIG_DIR") or (env("HOME") + "/.claude")
        self.status_path = "%s/sessions/%d.json" % (claude, process["pid"]) if process else None
        self.start = process.get("start")
        self.status, self.seen_waiting, self.since = None, False, time.time() * 1000

    def moved_on(self):
        """"working" or "done" once the turn went on without the island; "gone" when another event
        already replaced the question or ended the session; else None."""
        return self.replaced() or self.claude_status() or self.refused()

    def replaced(self):
        now = stamp(self.out)
        if now == self.session:
            return None
        self.session = now
        return "gone" if now is None or load_object(self.out).get("ask_id") != self.ask_id else None

    def claude_status(self):
        # Claude Code keeps sessions/<pid>.json with "status" idle, busy or waiting, rewritten as
        # it changes: a prompt answered either way leaves "waiting" at once. Any other status set
        # since the request (or after its "waiting") is an answer.
        now = stamp(self.status_path) if self.status_path else None
        if now is None or now == self.status:
            return None
        self.status = now
        state = load_object(self.status_path)
        if state.get("sessionId") != self.sid or str(state.get("procStart", self.start)) != self.start:
            return None
        changed = state.get("statusUpdatedAt")
        if state.get("status") == "waiting":
            self.seen_waiting = True
        elif self.seen_waiting or (isinstance(changed, (int, float)) and changed >= self.since):
            return {"busy": "working", "idle": "done"}.get(state.get("status"))
        return None

    def refused(self):
        # A refusal appends the call's result (the user does not want to proceed) at once.
        if self.transcript is None:
            return None
        while True:
            chunk = posix.read(self.transcript, 1 << 16)
            if not chunk:
                break
            self.pending = (self.pending + chunk)[-(1 << 22):]
        lines = self.pending.split(b"\n")
        self.pending = lines.pop()
        for line in lines:
            if any(mark in line for mark in self.REFUSALS) and refusal(line):
                return "done"
        return None

    def settle(self):
        """What the session became once the question went, judged within half a second; the turn
        went on when nothing says otherwise (a Claude Code that quit takes its session along)."""
        deadline = time.time() + 0.5
        while True:
            moved = self.moved_on()
            if moved or time.time() > deadline:
                return moved or "working"
            time.sleep(0.05)

    def record_move(self, status):
        """Writes what the session became, unless another event already moved it on."""
        prev = load_object(self.out)
        if status == "gone" or prev.get("ask_id") != self.ask_id:
            return
        prev.update(status=status, updated=time.time(), waiting_for=None, ask_tool=None, ask_target=None,
                    ask_id=None, ask_suggestions=None)
        write_record(self.out, self.sid, prev)


def refusal(line):
    try:
        entry = parse(line)
        blocks = entry["message"]["content"]
        if entry.get("type") != "user" or not isinstance(blocks, list):
            return False
    except (ValueError, KeyError, TypeError):
        return False
    for block in blocks:
        if not isinstance(block, dict):
            continue
        said = block.get("content") if block.get("type") == "tool_result" else block.get("text")
        if isinstance(said, str) and said.encode("utf-8", "replace").startswith(TurnWatch.REFUSALS):
            return True
    return False


def prepare():
    # Claude Code ends the hook (SIGTERM, then SIGKILL a second or so later) when the question is
    # answered in its terminal: what happened is then settled from what it left behind.
    import _signal
    _signal.signal(_signal.SIGTERM, answered_elsewhere)


class AnsweredElsewhere(Exception):
    pass


def answered_elsewhere(signum, frame):
    raise AnsweredElsewhere()


def answer(payload, record, out):
    """Waits for the island's answer and prints it, or records how the turn went on without it."""
    watch = TurnWatch(payload, record, out)
    try:
        behavior, moved = wait_for_decision(record["ask_id"], watch)
    except AnsweredElsewhere:
        import _signal
        _signal.signal(_signal.SIGTERM, _signal.SIG_IGN)
        behavior, moved = None, watch.settle()
    if moved:
        watch.record_move(moved)
    elif behavior:
        sys.stdout.write(decision_output(behavior, payload))


def decision_output(behavior, payload):
    decision = {"behavior": "deny" if behavior == "deny" else "allow"}
    if behavior == "always":
        offer = suggestions(payload)
        if offer is None:
            return ""  # nothing to remember: an "always" the terminal never offered is refused
        decision["updatedPermissions"] = offer
    return dump({"hookSpecificOutput": {"hookEventName": "PermissionRequest", "decision": decision}}) + "\n"
'''


def main():
    try:
        report()
        sys.stdout.flush()
    except BaseException:
        pass
    posix._exit(0)


main()

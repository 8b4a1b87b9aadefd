#!/usr/bin/python3
"""A stand-in for the Messages API, for driving Claude Code offline in tests.

Prints its 127.0.0.1 port on the first line. POST /v1/messages answers (streamed or plain): a Bash
tool call with the command of a "RUN: <command>" line of the last user text when Bash is offered;
else "Done." after a tool result or "Hello.", once every file named on a "HOLD: <path>" line of the
user's texts exists (up to two minutes each); an error with the status and type of a
"FAIL: <status> <type>" line of the last user text. Other paths: 404. Requests are logged on stderr.
"""
import http.server
import itertools
import json
import os
import sys
import time

ids = itertools.count(1)


def user_texts(message):
    content = message.get("content")
    blocks = [{"type": "text", "text": content}] if isinstance(content, str) else content or []
    return [b.get("text", "") for b in blocks if isinstance(b, dict) and b.get("type") == "text"]


def marked(texts, mark):
    return [line.split(mark, 1)[1].strip() for text in texts for line in text.splitlines() if mark in line]


def user_messages(body):
    return [m for m in body.get("messages") or [] if isinstance(m, dict) and m.get("role") == "user"]


def last_user(body):
    users = user_messages(body)
    return users[-1] if users else {}


def reply_blocks(body):
    users = user_messages(body)
    last = last_user(body)
    content = last.get("content") if isinstance(last.get("content"), list) else []
    results = [i for i, b in enumerate(content) if isinstance(b, dict) and b.get("type") == "tool_result"]
    # A new prompt may share the user message with the result of a refused call: only text after
    # the last tool result asks for something new.
    after = {"role": "user", "content": content[results[-1] + 1:]} if results else last
    answered = bool(results) and not marked(user_texts(after), "RUN:")
    tools = {t.get("name") for t in body.get("tools") or [] if isinstance(t, dict)}
    commands = marked(user_texts(after), "RUN:")
    if not answered and commands and "Bash" in tools:
        return [{"type": "tool_use", "id": "toolu_%024d" % next(ids), "name": "Bash",
                 "input": {"command": commands[-1], "description": "Run a command"}}]
    for gate in marked([t for m in users for t in user_texts(m)], "HOLD:"):
        deadline = time.monotonic() + 120
        while not os.path.exists(gate) and time.monotonic() < deadline:
            time.sleep(0.05)
    return [{"type": "text", "text": "Done." if answered else "Hello."}]


def message(body, blocks):
    return {"id": "msg_%024d" % next(ids), "type": "message", "role": "assistant",
            "model": body.get("model", "stand-in"), "content": blocks,
            "stop_reason": "tool_use" if blocks[0]["type"] == "tool_use" else "end_turn",
            "stop_sequence": None, "usage": {"input_tokens": 10, "output_tokens": 5}}


def events(body, blocks):
    msg = message(body, blocks)
    start = dict(msg, content=[], stop_reason=None, usage={"input_tokens": 10, "output_tokens": 1})
    yield "message_start", {"type": "message_start", "message": start}
    for index, block in enumerate(blocks):
        if block["type"] == "text":
            first, delta = {"type": "text", "text": ""}, {"type": "text_delta", "text": block["text"]}
        else:
            first, delta = dict(block, input={}), {"type": "input_json_delta", "partial_json": json.dumps(block["input"])}
        yield "content_block_start", {"type": "content_block_start", "index": index, "content_block": first}
        yield "content_block_delta", {"type": "content_block_delta", "index": index, "delta": delta}
        yield "content_block_stop", {"type": "content_block_stop", "index": index}
    yield "message_delta", {"type": "message_delta", "usage": {"output_tokens": 5},
                            "delta": {"stop_reason": msg["stop_reason"], "stop_sequence": None}}
    yield "message_stop", {"type": "message_stop"}


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, fmt, *args):
        sys.stderr.write("stand-in: " + (fmt % args) + "\n")

    def send(self, status, content_type, data):
        self.send_response(status)
        self.send_header("Content-Type", content_type)
        self.send_header("Content-Length", str(len(data)))
        self.end_headers()
        self.wfile.write(data)

    def do_GET(self):
        self.send(404, "application/json", b'{"type":"error","error":{"type":"not_found_error"}}')

    def do_POST(self):
        raw = self.rfile.read(int(self.headers.get("Content-Length") or 0))
        if self.path.split("?")[0] != "/v1/messages":
            return self.do_GET()
        try:
            body = json.loads(raw)
        except ValueError:
            body = {}
        failure = marked(user_texts(last_user(body)), "FAIL:")
        if failure:
            status, kind = (failure[-1].split() + ["api_error"])[:2]
            error = {"type": "error", "error": {"type": kind, "message": "Stand-in failure"}}
            return self.send(int(status), "application/json", json.dumps(error).encode())
        blocks = reply_blocks(body)
        if not body.get("stream"):
            return self.send(200, "application/json", json.dumps(message(body, blocks)).encode())
        data = "".join("event: %s\ndata: %s\n\n" % (name, json.dumps(payload)) for name, payload in events(body, blocks))
        self.send(200, "text/event-stream", data.encode())


server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
server.daemon_threads = True
print(server.server_address[1], flush=True)
server.serve_forever()

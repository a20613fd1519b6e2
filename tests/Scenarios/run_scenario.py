"""Plays a scenario to the driver program and compares what it answers.

A scenario is lines of text; README.md beside this file tells how they read.
"""

import argparse
import base64
import contextlib
import difflib
import json
import os
import re
import shutil
import sqlite3
import sys
import tempfile
import urllib.parse
import uuid
from decimal import Decimal
from hashlib import sha256
from pathlib import Path

from driver_process import NOBODY, DriverFailure, DriverProcess

SKIPPED = 77
DRIVER_OWN = ".driver"
DATABASE = ".driver/data/com.jotwell/TagIndex.db"

_UUID = re.compile(r"[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}")
_NAMED = re.compile(r"<(uuid|any):(\w+)>")


class Mismatch(Exception):
    pass


class Skipped(Exception):
    pass


def show(value):
    return json.dumps(value, ensure_ascii=False, indent=2, sort_keys=True)


def shortened(line, most=300):
    return line if len(line) <= most else f"{line[:most]}… ({len(line)} characters)"


def difference(expected, actual):
    lines = difflib.unified_diff(show(expected).splitlines(), show(actual).splitlines(),
                                 "expected", "answered", lineterm="", n=3)
    return "\n".join(map(shortened, lines))


def _repeated(_, parts):
    """A long text, from parts that are texts or [text, count]."""
    return "".join(part if isinstance(part, str) else part[0] * part[1] for part in parts)


def _note(home, path):
    """A note found without a search, as JSON."""
    path = Path(home) / path
    return {"id": "<uuid>", "fileName": path.stem, "filePath": str(path),
            "fileURL": "file://" + urllib.parse.quote(str(path)), "snippet": None,
            "relevanceScore": None, "isFullTextResult": False}


def _path_id(home, path):
    """The identifier of the template in that file."""
    return str(uuid.UUID(bytes=sha256(f"{home}/{path}".encode()).digest()[:16])).upper()


_FORMS = {"<repeat>": _repeated, "<note>": _note, "<path-id>": _path_id}


class Scenario:
    """One run of a file of steps: `do_<word>` carries out the step that the word begins."""

    def __init__(self, program, home, user, timeout):
        self._program = program
        self._home = home
        self._user = user
        self._timeout = timeout
        self._environment = {}
        self._names = {}
        self._driver = None
        self._answer = None

    def play(self, text):
        steps = [(number, line) for number, line in enumerate(text.splitlines(), 1)
                 if line.strip() and not line.startswith("#")]
        request = ""
        try:
            for number, line in steps:
                word, _, rest = line.strip().partition(" ")
                request = line if word in (">", "raw") else request
                try:
                    self._step(word, rest.strip())
                except (Mismatch, DriverFailure) as mismatch:
                    raise Mismatch(f"line {number}: {shortened(line)}\n"
                                   f"after: {shortened(request)}\n{mismatch}") from None
            self._finish()
        finally:
            if self._driver:
                self._driver.kill()

    def _step(self, word, rest):
        words = {">": "request", "<": "result", "!": "error"}
        action = getattr(self, "do_" + words.get(word, word), None)
        if not action:
            raise SystemExit(f"A step of no known kind: {word}")
        if word not in ("<", "!"):
            self._all_answered()
        action(rest)

    def _all_answered(self):
        if self._answer is None:
            return
        answer, self._answer = self._answer, None
        if "error" in answer:
            raise Mismatch(f"the step before failed: {show(answer['error'])}")

    def _finish(self):
        self._all_answered()
        if self._driver:
            self._driver.end(self._timeout)
            self._driver = None

    # Texts of a scenario

    def _filled(self, value):
        """Places, repetitions and names that were noted down, put into what is sent or expected."""
        if isinstance(value, str):
            name = _NAMED.fullmatch(value)
            if name and name.group(2) in self._names:
                return self._names[name.group(2)]  # of any kind
            value = value.replace("$HOME", self._home)
            return _NAMED.sub(lambda name: str(self._names.get(name.group(2), name.group())),
                              value)
        if isinstance(value, list):
            return [self._filled(each) for each in value]
        if isinstance(value, dict):
            form, argument = next(iter(value.items()), ("", None))
            if form in _FORMS:
                return _FORMS[form](self._home, argument)
            return {self._filled(key): self._filled(each) for key, each in value.items()}
        return value

    def _read(self, text):
        try:
            return self._filled(json.loads(text))
        except ValueError as error:
            raise SystemExit(f"No JSON in the scenario ({error}): {text}") from None

    def _resolved(self, expected, actual):
        """`expected` with its wildcards replaced by what they stand for in `actual`."""
        if isinstance(expected, dict) and "<json>" in expected:
            return actual if self._is_text_of(expected["<json>"], actual) else expected
        if isinstance(expected, dict) and "<matches>" in expected:
            is_met = isinstance(actual, str) and re.fullmatch(expected["<matches>"], actual)
            return actual if is_met else expected
        if isinstance(expected, dict) and "<set>" in expected:
            return actual if _is_set_of(expected["<set>"], actual) else expected
        if isinstance(expected, dict) and isinstance(actual, dict):
            return {key: self._resolved(each, actual.get(key)) for key, each in expected.items()}
        if isinstance(expected, list) and isinstance(actual, list):
            padded = actual + [None] * len(expected)
            return [self._resolved(*pair) for pair in zip(expected, padded)]
        if not isinstance(expected, str) or not expected.startswith("<"):
            return expected
        name = _NAMED.fullmatch(expected)
        kind = name.group(1) if name else expected.strip("<>")
        is_met = kind == "any" or kind == "uuid" and isinstance(actual, str) and _UUID.fullmatch(
            actual)
        if not is_met:
            return expected
        if name:
            if actual in self._names.values():
                return expected  # another name's value
            self._names[name.group(2)] = actual
        return actual

    def _is_text_of(self, expected, actual):
        try:
            return _is_same(self._resolved(expected, json.loads(actual)), json.loads(actual))
        except (TypeError, ValueError):
            return False

    def _compare(self, expected, actual):
        expected = self._resolved(self._filled(expected), actual)
        if not _is_same(expected, actual):
            raise Mismatch(difference(expected, actual))

    # Requests and answers

    def _started(self):
        if not self._driver:
            self._driver = DriverProcess(self._program, self._home, self._environment, self._user)
        return self._driver

    def do_request(self, rest):
        op, _, args = rest.partition(" ")
        self._answer = self._started().answer(op, self._read(args or "{}"), self._timeout)

    def do_result(self, rest):
        answer, self._answer = self._answer, None
        if "result" not in answer:
            raise Mismatch(difference({"result": self._read(rest)}, answer))
        self._compare(json.loads(rest), answer["result"])

    def do_error(self, rest):
        kind, _, message = rest.partition(" ")
        answer, self._answer = self._answer, None
        if "error" not in answer:
            raise Mismatch(difference({"error": {"type": kind}}, answer))
        self._compare({"type": kind, "message": json.loads(message or '"<any>"')}, answer["error"])

    def do_raw(self, rest):
        """A line as it is sent, and the line that answers it, both as JSON strings."""
        line, end = json.JSONDecoder().raw_decode(rest)
        expected = self._read(rest[end:])
        sent = line.encode(errors="surrogateescape")  # "\\udcff" stands for the byte FF
        answered = self._started().answer_to_line(sent, self._timeout).rstrip(b"\n").decode()
        if not re.fullmatch(re.escape(expected).replace("<any>", ".*"), answered):
            raise Mismatch(f"expected: {shortened(expected)}\nanswered: {shortened(answered)}")

    def do_blank(self, rest):
        """A line that gets no answer."""
        self._started().tell(json.loads(rest).encode())

    # The process and its home

    def do_environment(self, rest):
        name, _, value = rest.partition(" ")
        self._environment[name] = self._read(value)

    def do_restart(self, _):
        self._finish()

    def do_kill(self, _):
        self._driver.kill()
        self._driver = None

    def do_unprivileged(self, _):
        """Permissions don't bind the superuser, so the rest is done as nobody."""
        if os.geteuid() != 0:
            return
        if not DriverProcess.can_run_as(NOBODY, self._program):
            raise Skipped("nobody can't run the driver where it lies")
        self._user = NOBODY
        for folder, folders, files in os.walk(self._home):
            for name in [folder, *(os.path.join(folder, each) for each in folders + files)]:
                os.chown(name, NOBODY, NOBODY, follow_symlinks=False)

    def _made(self, path):
        path = Path(self._filled(json.loads(path)) if path.startswith('"') else path)
        path = Path(self._home) / path
        path.parent.mkdir(parents=True, exist_ok=True)
        return path

    def _path_and_value(self, rest):
        if rest.startswith('"'):
            name, end = json.JSONDecoder().raw_decode(rest)
            return self._made(json.dumps(name)), rest[end:].strip()
        name, _, value = rest.partition(" ")
        return self._made(name), value.strip()

    def do_file(self, rest):
        path, text = self._path_and_value(rest)
        path.write_bytes(self._read(text).encode())

    def do_bytes(self, rest):
        path, encoded = self._path_and_value(rest)
        path.write_bytes(base64.b64decode(self._read(encoded)))

    def do_folder(self, rest):
        self._path_and_value(rest)[0].mkdir(parents=True, exist_ok=True)

    def do_link(self, rest):
        path, target = self._path_and_value(rest)
        path.symlink_to(self._read(target))

    def do_pipe(self, rest):
        os.mkfifo(self._path_and_value(rest)[0])

    def do_mode(self, rest):
        path, mode = self._path_and_value(rest)
        path.chmod(int(mode, 8))

    def do_time(self, rest):
        path, seconds = self._path_and_value(rest)
        nanoseconds = int(Decimal(seconds) * 10**9)  # no float has that many digits
        os.utime(path, ns=(nanoseconds, nanoseconds), follow_symlinks=False)

    def do_notes(self, rest):
        """Notes 1.md, 2.md and so on, each changed a second after the one before."""
        folder, count = self._path_and_value(rest)
        folder.mkdir(parents=True, exist_ok=True)
        for number in range(1, int(count) + 1):
            note = folder / f"{number}.md"
            note.write_text(f"note {number}", encoding="utf-8")
            os.utime(note, (1_700_000_000 + number,) * 2)

    def do_rename(self, rest):
        path, to = self._path_and_value(rest)
        path.rename(self._made(self._read(to)))

    def do_remove(self, rest):
        path = self._path_and_value(rest)[0]
        if path.is_dir() and not path.is_symlink():
            shutil.rmtree(path)
        else:
            path.unlink()

    def do_holds(self, rest):
        """A file has exactly this text."""
        path, text = self._path_and_value(rest)
        try:
            self._compare(json.loads(text), path.read_bytes().decode())
        except OSError as error:
            raise Mismatch(str(error)) from None

    def do_lists(self, rest):
        """A folder has exactly these entries, hidden ones too."""
        path, names = self._path_and_value(rest)
        try:
            entries = sorted(each.name for each in path.iterdir() if each.name != DRIVER_OWN)
        except OSError as error:
            raise Mismatch(str(error)) from None
        self._compare(json.loads(names), entries)

    # The database of the index

    def _database(self):
        return contextlib.closing(sqlite3.connect(Path(self._home) / DATABASE))

    def do_sql(self, rest):
        """A statement that another program carries out."""
        with self._database() as database, database:
            database.execute(self._read(rest))

    def do_rows(self, rest):
        """A query has exactly these rows."""
        query, end = json.JSONDecoder().raw_decode(rest)
        with self._database() as database:
            rows = [list(row) for row in database.execute(self._filled(query))]
        self._compare(json.loads(rest[end:]), rows)


def _is_set_of(members, actual):
    return isinstance(actual, list) and _is_same(sorted(members, key=show),
                                                 sorted(actual, key=show))


def _is_same(left, right):
    """Equality of JSON values: 2 is 2.0, and true is not 1."""
    if isinstance(left, bool) or isinstance(right, bool):
        return left is right
    if isinstance(left, list) and isinstance(right, list):
        return len(left) == len(right) and all(map(_is_same, left, right))
    if isinstance(left, dict) and isinstance(right, dict):
        return left.keys() == right.keys() and all(
            _is_same(left[key], right[key]) for key in left)
    return left == right


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--driver", required=True, help="path of the driver program")
    parser.add_argument("--timeout", type=float, default=30, help="seconds for one answer")
    parser.add_argument("scenario", type=Path)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="jotwell-scenario-") as folder:
        os.chmod(folder, 0o755)
        home = os.path.join(os.path.realpath(folder), "home")
        os.mkdir(home)
        scenario = Scenario(os.path.abspath(options.driver), home, None, options.timeout)
        try:
            scenario.play(options.scenario.read_text(encoding="utf-8"))
        except (Mismatch, DriverFailure) as mismatch:
            sys.exit(f"{options.scenario}: {mismatch}")
        except Skipped as reason:
            print(f"skipped: {reason}")
            sys.exit(SKIPPED)


if __name__ == "__main__":
    main()

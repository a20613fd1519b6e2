"""Children that can't outlive a test, and waiting for what they do."""

import contextlib
import ctypes
import os
import signal
import subprocess
import time
from pathlib import Path

PATIENCE = 30  # seconds: far more than anything here takes, sanitizers and a busy machine included


def wait_until(predicate, what, patience=PATIENCE):
    """Asks until the answer is true, and gives that answer."""
    deadline = time.monotonic() + patience
    while True:
        answer = predicate()
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise AssertionError(f"{what}: not within {patience} s")
        time.sleep(0.02)


def running_processes(mark):
    """The ids of all processes with those bytes in their environment."""
    found = []
    for folder in Path("/proc").glob("[0-9]*"):
        with contextlib.suppress(OSError):  # gone, or another user's
            if mark in (folder / "environ").read_bytes():
                found.append(int(folder.name))
    return found


_libc = ctypes.CDLL(None)


def _die_with_parent():
    _libc.prctl(1, signal.SIGKILL)  # PR_SET_PDEATHSIG


class Process:
    """A child in a process group of its own, with its output in files."""

    def __init__(self, name, command, environment, folder, pass_fds=(),
                 stdin=subprocess.DEVNULL):
        self.name = name
        self._output = [folder / f"{name}.{stream}" for stream in ("out", "err")]
        with open(self._output[0], "ab") as out, open(self._output[1], "ab") as err:
            self._popen = subprocess.Popen(
                command, env=environment, cwd=folder, stdin=stdin, stdout=out,
                stderr=err, pass_fds=pass_fds, start_new_session=True, preexec_fn=_die_with_parent)

    def output(self):
        """All that children of this name have written."""
        return "".join(file.read_text(errors="replace") for file in self._output)

    def errors(self):
        """What they have written to standard error."""
        return self._output[1].read_text(errors="replace")

    def write(self, text):
        """Gives it something to read, if it was started with a pipe for that."""
        self._popen.stdin.write(text.encode())
        self._popen.stdin.flush()

    def pid(self):
        return self._popen.pid

    def open_files(self):
        """What its descriptors stand for, as the kernel words it."""
        found = []
        for descriptor in Path(f"/proc/{self.pid()}/fd").iterdir():
            with contextlib.suppress(OSError):  # closed meanwhile
                found.append(os.readlink(descriptor))
        return found

    def processor_time(self):
        """The seconds that it has worked so far, all threads and both modes together."""
        fields = Path(f"/proc/{self.pid()}/stat").read_text().rpartition(") ")[2].split()
        return sum(map(int, fields[11:13])) / os.sysconf("SC_CLK_TCK")

    def wake_ups_in(self, seconds):
        """How often its threads are given a processor in that time; one that ends wakes for it."""
        before = self._switches()
        time.sleep(seconds)
        after = self._switches()
        ended = len(before.keys() - after.keys())
        return ended + sum(count - before.get(thread, 0) for thread, count in after.items())

    def is_running(self):
        return self._popen.poll() is None

    def send(self, number):
        self._popen.send_signal(number)

    def exit_status(self):
        """Waits for the end; negative for a signal."""
        return self._popen.wait(PATIENCE)

    def stop(self):
        """Ends the whole group, by force if need be."""
        for number, patience in ((signal.SIGTERM, 3), (signal.SIGKILL, PATIENCE)):
            try:
                os.killpg(self._popen.pid, number)
                self._popen.wait(patience)
                if self._popen.stdin:
                    self._popen.stdin.close()
            except (ProcessLookupError, subprocess.TimeoutExpired):
                pass

    def _switches(self):
        """How often each thread has been given a processor so far."""
        found = {}
        for thread in Path(f"/proc/{self.pid()}/task").iterdir():
            with contextlib.suppress(OSError):  # ended meanwhile
                lines = (thread / "status").read_text().splitlines()
                found[thread.name] = sum(
                    int(line.split()[1]) for line in lines if "ctxt_switches:" in line)
        return found

"""The driver program as a process that is asked line by line."""

import json
import os
import queue
import subprocess
import threading

ENVIRONMENT = {"TZ": "UTC", "LC_ALL": "en_US.UTF-8"}
NOBODY = 65534


class DriverFailure(Exception):
    """The program didn't answer as a driver has to."""


class DriverProcess:
    """One process on one home folder."""

    def __init__(self, program, home, environment, user):
        self._requests = 0
        self._lines = queue.Queue()
        self._process = subprocess.Popen(
            [program, "--home", home], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            env={**os.environ, **ENVIRONMENT, **environment}, cwd=home,
            **({"user": user, "group": user, "extra_groups": []} if user else {}))
        threading.Thread(target=self._collect, daemon=True).start()

    def _collect(self):
        for line in self._process.stdout:
            self._lines.put(line)
        self._lines.put(None)

    @staticmethod
    def can_run_as(user, program):
        try:
            probe = subprocess.run([program], stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   user=user, group=user, extra_groups=[], cwd="/", check=False)
        except PermissionError:  # it lies in a folder that isn't for that user
            return False
        return probe.returncode == 0

    def tell(self, line):
        self._process.stdin.write(line + b"\n")
        self._process.stdin.flush()

    def answer_to_line(self, line, timeout):
        try:
            self.tell(line)
            answer = self._lines.get(timeout=timeout)
        except queue.Empty:
            raise DriverFailure(f"no answer within {timeout} seconds") from None
        except BrokenPipeError:
            answer = None
        if answer is None:
            raise DriverFailure(f"the driver ended with status {self._process.wait(timeout)}")
        return answer

    def answer(self, op, args, timeout):
        self._requests += 1
        request = {"id": self._requests, "op": op, "args": args}
        line = json.dumps(request, ensure_ascii=False).encode()
        answer = json.loads(self.answer_to_line(line, timeout))
        if answer.pop("id") != self._requests:
            raise DriverFailure("the answer has another id")
        return answer

    def end(self, timeout):
        self._process.stdin.close()
        if self._process.wait(timeout):
            raise DriverFailure(f"the driver ended with status {self._process.returncode}")
        if self._lines.get(timeout=timeout) is not None:
            raise DriverFailure("the driver wrote a line that nobody asked for")

    def kill(self):
        self._process.kill()
        self._process.wait()

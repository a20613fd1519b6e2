"""A vault with all that can lie in a folder, and notes among it that want to be found."""

import contextlib
import os
import socket
import stat
import subprocess
import threading
import time
from pathlib import Path

LEVELS = 10_000
LONG_PATH = 4096  # what the system calls take, its end included
# Sanitizers take an order of magnitude more time.
HUGE = 20_000_000 if "JOTWELL_SANITIZED" in os.environ else 200_000_000

# The powers of a superuser would open what is closed to everybody.
POWERLESS = ["setpriv", "--bounding-set=-all", "--inh-caps=-all"]


def write_huge_note(path):
    line = b"A line of [[many links|to]] **somewhere** with #huge words in it, and `code`.\n"
    path.write_bytes(line * (HUGE // len(line)))


def can_be_powerless():
    return subprocess.run([*POWERLESS, "true"], capture_output=True, check=False).returncode == 0


@contextlib.contextmanager
def filled(vault):
    """Fills the vault, and takes out again what others couldn't remove."""
    try:
        yield _Filling(vault)
    finally:
        subprocess.run(["chmod", "-R", "u+rwx", vault / "closed"], capture_output=True, check=False)
        subprocess.run(["rm", "-rf", vault / "deep"], check=True)


class _Filling:
    """What lies in the vault: `notes` are those that are to be indexed, by their paths below it,
    `refused` those of which the log is to tell that they can't be."""

    def __init__(self, vault):
        self._vault = vault
        self.notes = set()
        self.refused = set()
        self._add_notes()
        self._add_what_is_no_note()
        self._add_links()
        self._add_closed()
        self._add_undecodable()
        self._add_levels()

    def _add(self, name, text="# A note\n\n#plain words\n"):
        path = self._vault / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(text if isinstance(text, bytes) else text.encode())
        self.notes.add(name)

    def _add_notes(self):
        self._add("good.md", "# Good\n\n#plain words and needles in haystacks\n")
        self._add("folder/below.md")
        self._add("empty.md", "")
        self._add("it's \"quoted\"; -- %s.md")
        self._add("new\nline.md")
        self._add("\N{SEEDLING} e\u0301.md")
        self._add("n" * 252 + ".md")
        self._add("zeros.md", b"before\0after\n" * 100)
        self._add("unclosed.md", "---\ntags: [" + "[" * 100_000 + "`" * 100_000 + "#" * 100_000)
        write_huge_note(self._vault / "huge.md")
        self.notes.add("huge.md")

    def _add_what_is_no_note(self):
        os.mkfifo(self._vault / "fifo.md")
        with socket.socket(socket.AF_UNIX) as listener:
            os.chdir(self._vault)  # the address of a socket has little room
            listener.bind("socket.md")
            os.chdir("/")
        (self._vault / "folder.md").mkdir()
        self._add("folder.md/inside.md")
        self.refused |= {"fifo.md", "socket.md", "folder.md"}
        for device in os.makedev(1, 5), os.makedev(0, 0):  # zeros without end; for everybody
            with contextlib.suppress(PermissionError):
                os.mknod(self._vault / "device.md", stat.S_IFCHR | 0o666, device)
                self.refused.add("device.md")
                break

    def _add_links(self):
        for name, target in {"endless": "/dev/zero", "waiting": "fifo.md", "itself": "itself.md",
                             "dangling": "nowhere.md"}.items():
            (self._vault / f"{name}.md").symlink_to(target)
            self.refused.add(f"{name}.md")
        (self._vault / "linked.md").symlink_to("good.md")
        self.notes.add("linked.md")
        (self._vault / "folder" / "loop").symlink_to("..")

    def _add_closed(self):
        for name in "closed.md", "closed/hidden.md":
            self._add(name)
            self.notes.remove(name)
        (self._vault / "closed.md").chmod(0)
        (self._vault / "closed").chmod(0)
        self.refused.add("closed.md")

    def _add_undecodable(self):
        (self._vault / "latin.md").write_bytes("caf\xe9\n".encode("latin1"))
        (self._vault / "cut.md").write_bytes("caf\xe9".encode()[:-1])
        self.refused |= {"latin.md", "cut.md"}
        with contextlib.suppress(OSError):  # a file system may take no such name
            Path(os.fsdecode(bytes(self._vault / "caf") + b"\xe9.md")).write_text("unseen\n")

    def _add_levels(self):
        """A note on each hundredth level; those with paths too long for the system go unseen."""
        folder = os.open(self._vault, os.O_RDONLY)
        path = ""
        for level in range(LEVELS):
            name = "d" if level else "deep"
            os.mkdir(name, dir_fd=folder)
            below = os.open(name, os.O_RDONLY, dir_fd=folder)
            os.close(folder)
            folder = below
            path += f"{name}/"
            if level % 100 == 99:
                os.close(os.open("note.md", os.O_CREAT, dir_fd=folder))
                if len(f"{self._vault}/{path}note.md") < LONG_PATH:
                    self.notes.add(f"{path}note.md")
        os.close(folder)


@contextlib.contextmanager
def restless_notes(vault):
    """Notes that change, grow, shrink, vanish and come back all the time; when it is over each says
    so."""
    is_over = threading.Event()
    names = ["changing", "growing", "shrinking", "vanishing", "replaced"]

    def keep_busy():
        for turn in range(1_000_000):
            if is_over.is_set():
                break
            _disturb(vault, turn)
            time.sleep(0.001)

    thread = threading.Thread(target=keep_busy)
    thread.start()
    try:
        yield {f"{name}.md" for name in names}
    finally:
        is_over.set()
        thread.join()
        for name in names:
            (vault / f"{name}.md").write_text(f"# {name}\n\nat rest at {name} last\n")


def _disturb(vault, turn):
    letter = b"abcdefgh"[turn % 8:][:1]
    with open(vault / "changing.md", "wb") as file:
        file.write(letter * 100_000)
    with open(vault / "growing.md", "wb" if turn % 100 == 0 else "ab") as file:
        file.write(letter * 50_000)
    with open(vault / "shrinking.md", "wb" if turn % 50 == 0 else "r+b") as file:
        file.truncate(1_000_000 - turn % 50 * 20_000)
    (vault / "vanishing.md").write_bytes(letter * 1000)
    (vault / "new").write_bytes(letter * 100_000)
    (vault / "new").replace(vault / "replaced.md")
    (vault / "vanishing.md").unlink()

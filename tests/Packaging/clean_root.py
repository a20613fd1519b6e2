"""The package in a Debian that has nothing but what it asks for: installed, used, removed.

The X server and the bus are this machine's; only the program runs in there."""

import contextlib
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[1] / "EndToEnd"))

import mounts  # noqa: E402
from bare_starts import ENVIRONMENT, complaints_of  # noqa: E402
from desktop import Desktop, is_green  # noqa: E402
from installation import MODES, read  # noqa: E402
from processes import wait_until  # noqa: E402

SUITE = "bookworm"
NAME = "com.jotwell.Jotwell"
ARTIFACTS = Path(os.environ["JOTWELL_ARTIFACTS"])
CACHED = ARTIFACTS / f"{SUITE}.tar"
CHROOT = "/usr/sbin/chroot"
# What every installation or removal writes.
BOOKKEEPING = re.compile(r"(var/(log|cache|lib/(apt|dpkg))|etc/ld\.so\.cache|tmp|proc|dev|run)(/|$)")


def is_yellow(colour):
    red, green, blue = colour
    return red > 180 and green > 120 and blue < 110


def is_violet(colour):
    red, green, blue = colour
    return blue > 200 and red > green + 20 and blue > green + 80


def is_root():
    """And not just one that a namespace makes of another user, who can give files to nobody."""
    known_users = Path("/proc/self/uid_map").read_text().split()[2]
    return os.geteuid() == 0 and known_users != "1"


def make_cached_root():
    """Fetches Debian's smallest system, once."""
    with tempfile.TemporaryDirectory(dir=ARTIFACTS) as folder:
        done = subprocess.run(["debootstrap", "--variant=minbase", SUITE, folder],
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if done.returncode:
            raise unittest.SkipTest(f"debootstrap can't fetch Debian: {done.stdout[-500:]}")
        read("tar", "--create", "--one-file-system", "--exclude=./var/cache/apt/archives/*.deb",
             "--directory", folder, "--file", f"{CACHED}.new", ".")
    os.replace(f"{CACHED}.new", CACHED)


class Root:
    """`with Root() as root:` gives a fresh one, gone with the end of the block."""

    def __enter__(self):
        with contextlib.ExitStack() as stack:
            self._stack = stack
            self.folder = Path(stack.enter_context(
                tempfile.TemporaryDirectory(prefix="jotwell-root-", ignore_cleanup_errors=True)))
            self.folder.chmod(0o755)
            read("tar", "--extract", "--directory", self.folder, "--file", CACHED)
            self.mount("/proc", self.folder / "proc")
            self.apt("update")
            self._stack = stack.pop_all()
        return self

    def __exit__(self, *_):
        self._stack.close()

    def mount(self, source, target):
        """Shows a folder of this machine in the root."""
        target.mkdir(parents=True, exist_ok=True)
        self._stack.enter_context(mounts.shown(source, target))

    def run(self, *command):
        return read(CHROOT, self.folder, *command, env={
            "PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "HOME": "/root", "LC_ALL": "C.UTF-8",
            "DEBIAN_FRONTEND": "noninteractive"})

    def apt(self, *arguments):
        return self.run("apt-get", "--quiet", "--yes", "--no-install-recommends", *arguments)

    def paths(self):
        """All files and folders but those that every installation or removal writes."""
        found = set()
        for folder, folders, files in os.walk(self.folder):
            here = os.path.relpath(folder, self.folder)
            names = {os.path.normpath(os.path.join(here, name)) for name in folders + files}
            found |= {name for name in names if not BOOKKEEPING.match(name)}
            folders[:] = [name for name in folders
                          if not BOOKKEEPING.match(os.path.normpath(os.path.join(here, name)))]
        return found

    def knows_package(self):
        return "jotwell" in self.run("dpkg-query", "--show", "--showformat", "${Package}\n").split()


class CleanRoot(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        if not is_root():
            raise unittest.SkipTest("only root can make a root")
        if not shutil.which("debootstrap"):
            raise unittest.SkipTest("there is no debootstrap")
        if not CACHED.exists():
            make_cached_root()
        os.environ["JOTWELL_PROGRAM"] = "/usr/bin/jotwell"
        cls.root = cls.enterClassContext(Root())
        shutil.copy(os.environ["JOTWELL_DEB"], cls.root.folder / "jotwell.deb")
        cls.root.apt("install", "/jotwell.deb")

    @contextlib.contextmanager
    def desktop(self, services=(), **settings):
        with Desktop(bus_services=services) as desktop:
            self.root.mount(desktop.folder, self.root.folder / str(desktop.folder).lstrip("/"))
            if settings:
                desktop.write_settings(ObsidianFolderPath=desktop.vault, **settings)
            yield desktop

    def start(self, desktop):
        return desktop.start_program(by=[CHROOT, str(self.root.folder)], **ENVIRONMENT)

    def stop(self, program):
        program.send(signal.SIGTERM)
        self.assertEqual(program.exit_status(), 0)
        self.assertEqual(complaints_of(program), [])

    def shows(self, desktop, is_wanted):
        """Whether the screen has that colour anywhere."""
        return desktop.places_of(is_wanted, (0, 0, 1280, 800))

    def wait_for_named(self, desktop, title):
        wait_until(lambda: desktop.ask("xdotool", "search", "--onlyvisible", "--name",
                                       f"^{title}$"), title)

    def test_1_hotkey_and_a_note(self):
        with self.desktop(OnboardingCompleted="true") as desktop:
            program = self.start(desktop)
            desktop.call_up()
            desktop.type_text("All of it is here /new_note ")
            wait_until(lambda: self.shows(desktop, is_yellow), "the pencil of an emoji in colour")
            desktop.screenshot(ARTIFACTS / "clean-root-window.png")
            desktop.press("ctrl+Return")
            [note] = wait_until(desktop.notes, "a note")
            self.assertTrue(note.read_text().startswith("# All of it is here\n"))
            self.stop(program)

    def test_2_welcome_and_settings(self):
        with self.desktop() as desktop:
            program = self.start(desktop)
            self.wait_for_named(desktop, "Welcome to Jotwell")
            wait_until(lambda: self.shows(desktop, is_violet), "the button of the welcome")
            desktop.screenshot(ARTIFACTS / "clean-root-welcome.png")
            desktop.ask("gapplication", "action", NAME, "settings")
            self.wait_for_named(desktop, "Settings")
            wait_until(lambda: self.shows(desktop, is_green), "the lamp of the settings")
            desktop.screenshot(ARTIFACTS / "clean-root-settings.png")
            self.stop(program)

    def test_3_start_by_the_bus(self):
        with tempfile.TemporaryDirectory() as folder:
            installed = self.root.folder / f"usr/share/dbus-1/services/{NAME}.service"
            service = Path(folder) / installed.name
            service.write_text(installed.read_text().replace(
                "Exec=", f"Exec={CHROOT} {self.root.folder} "))
            with self.desktop([service], OnboardingCompleted="true") as desktop:
                desktop.ask("gapplication", "launch", NAME)
                desktop.wait_for_window()
                desktop.ask("gapplication", "action", NAME, "quit")
                wait_until(lambda: not desktop.strays(), "the end of the program")

    def test_4_wayland_would_be_found(self):
        [plugin] = (self.root.folder / "usr/lib").glob("*/qt6/plugins/platforms/libqwayland-generic.so")
        inside = f"/{plugin.relative_to(self.root.folder)}"
        self.assertNotIn("not found", self.root.run("ldd", inside))

    def test_5_removing_and_purging_leave_nothing(self):
        for way in "remove", "purge":
            self.root.apt("install", "/jotwell.deb")
            before = self.root.paths()
            self.assertTrue(self.root.knows_package())
            self.root.apt(way, "jotwell")
            after = self.root.paths()
            ours = {f"usr/{name}" for name in MODES}
            self.assertLessEqual(ours, before - after)
            folders = {str(folder) for name in ours for folder in Path(name).parents}
            self.assertEqual((before - after) - ours - folders, set(), way)
            self.assertEqual(after - before, set(), way)
            left = {name for name in after if "jotwell" in name.lower()} - {"jotwell.deb"}
            self.assertEqual(left, set(), way)
            self.assertFalse(self.root.knows_package())


if __name__ == "__main__":
    mounts.main()

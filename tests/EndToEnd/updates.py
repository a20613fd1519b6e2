"""Looking for newer versions is something that a user without a network never notices."""

import glob
import signal
import unittest
from pathlib import Path

from desktop import Desktop
from processes import wait_until

# A minute passes in 0.6 seconds.
_QUICKLY = "+0 x100"


def _network_sockets(process):
    """The descriptors of a process that lead to the network, as the kernel words them."""
    inodes = set()
    for table in ("tcp", "tcp6", "udp", "udp6"):
        lines = Path("/proc/net", table).read_text().splitlines()[1:]
        inodes |= {f"socket:[{line.split()[9]}]" for line in lines}
    return [name for name in process.open_files() if name in inodes]


def _has_stored_check(desktop):
    settings = Path(desktop.environment["XDG_CONFIG_HOME"], "com.jotwell/Jotwell.ini")
    return "\nLastUpdateCheck=" in settings.read_text()


def _refusals(desktop):
    return [line for line in desktop.log() if "com.jotwell.Updates" in line]


class Updates(unittest.TestCase):
    def start(self, desktop, **environment):
        desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
        return desktop.start_program(**environment)

    def end(self, desktop, program):
        program.send(signal.SIGTERM)
        self.assertEqual(program.exit_status(), 0)
        self.assertEqual(desktop.strays(), [])

    def test_start_asks_nobody(self):
        with Desktop() as desktop:
            program = self.start(desktop)
            wait_until(lambda: "refreshMenuBar" in program.output(), "the menu")
            for _ in range(20):
                self.assertEqual(_network_sockets(program), [])
            self.assertFalse(_has_stored_check(desktop))
            self.end(desktop, program)

    def test_unreachable_host_is_a_line_in_the_log(self):
        [library] = glob.glob("/usr/lib/*/faketime/libfaketimeMT.so.1")
        with Desktop() as desktop:
            program = self.start(desktop, LD_PRELOAD=library, FAKETIME=_QUICKLY)
            wait_until(lambda: _refusals(desktop), "a check")
            wait_until(lambda: _has_stored_check(desktop), "the time of the check")
            [refusal] = _refusals(desktop)
            self.assertIn("The update feed is of no use: ", refusal)
            self.assertEqual(desktop.visible_windows(), [])
            self.assertEqual(_network_sockets(program), [])
            self.end(desktop, program)


if __name__ == "__main__":
    unittest.main()

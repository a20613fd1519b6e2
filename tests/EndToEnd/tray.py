"""The tray of an X11 desktop gets Jotwell's item, whichever of the two is there first."""

import unittest

from desktop import Desktop
from processes import wait_until

ICON = '"jotwell": ("jotwell" "jotwell")  2'  # a window of 22 pixels or so


class X11Tray(unittest.TestCase):
    def start_tray(self, desktop):
        desktop.spawn("trayer", ["trayer", "--widthtype", "request"])
        wait_until(lambda: '"panel"' in self.windows(desktop), "the tray")

    def start_program(self, desktop):
        desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
        desktop.start_program()

    def windows(self, desktop):
        return desktop.ask("xwininfo", "-root", "-tree")

    def wait_for_icon(self, desktop):
        wait_until(lambda: ICON in self.windows(desktop), "the icon in the tray")

    def test_tray_that_is_there(self):
        for bus in True, False:
            with self.subTest(bus=bus), Desktop(bus=bus) as desktop:
                self.start_tray(desktop)
                self.start_program(desktop)
                self.wait_for_icon(desktop)

    def test_tray_that_comes_later(self):
        with Desktop() as desktop:
            self.start_program(desktop)
            wait_until(lambda: desktop.owns_name("com.jotwell.Jotwell"), "the program")
            self.assertNotIn(ICON, self.windows(desktop))
            self.start_tray(desktop)
            self.wait_for_icon(desktop)


if __name__ == "__main__":
    unittest.main()

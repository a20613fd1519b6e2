"""What comes and goes around the capture window: a compositor, a window manager, other windows."""

import signal
import unittest
from pathlib import Path

from processes import wait_until
from windows import CARD, CORNER, OtherWindow, capturing, is_black, is_white

FULL_SCREEN_RULE = """<openbox_config xmlns="http://openbox.org/3.4/rc"><applications>
<application title="Full"><fullscreen>yes</fullscreen></application>
</applications></openbox_config>"""


class Compositor(unittest.TestCase):
    def black_around(self, window):
        """The black places above and beside the card, its round corners included."""
        x, y, width, height = window.place()
        top = height // 2 - CARD[1] // 2 + CORNER
        side = (width - CARD[0]) // 2 + CORNER
        areas = ((x, y, width, top), (x, y, side, height), (x + width - side, y, side, height))
        return [place for area in areas for place in window.desktop.places_of(is_black, area)]

    def shadow(self, window):
        """The places just below the card that are neither white nor dark."""
        x, y = window.middle()
        below = x - 300, y + 84, 600, 8
        return window.desktop.places_of(lambda colour: not is_white(colour) and not is_black(colour),
                                        below)

    def wait_for_shadow(self, window):
        wait_until(lambda: len(self.shadow(window)) > 4000, "the shadow")

    def wait_for_no_shadow(self, window):
        wait_until(lambda: not self.shadow(window), "no shadow")

    def test_no_black_ring_without_compositor(self):
        with capturing(compositor=False) as window:
            window.show()
            self.wait_for_no_shadow(window)
            self.assertEqual(self.black_around(window), [])

    def test_compositor_that_goes_and_comes_back(self):
        with capturing() as window:
            window.show()
            self.wait_for_shadow(window)
            for end in signal.SIGTERM, signal.SIGKILL:
                with self.subTest(end=end):
                    window.desktop.compositor.send(end)
                    self.wait_for_no_shadow(window)
                    self.assertEqual(self.black_around(window), [])
                    window.desktop.compositor.exit_status()
                    window.desktop.start_compositor()
                    self.wait_for_shadow(window)
                    self.assertEqual(self.black_around(window), [])

    def test_compositor_that_goes_while_hidden(self):
        with capturing() as window:
            window.show()
            window.hide()
            window.desktop.compositor.stop()
            window.show()
            self.wait_for_no_shadow(window)
            self.assertEqual(self.black_around(window), [])


class WindowManager(unittest.TestCase):
    def check_manners(self, window):
        """It is above, on all desktops, and in no list of windows."""
        wanted = "_ABOVE", "_SKIP_TASKBAR", "_SKIP_PAGER", "= 4294967295"
        wait_until(lambda: all(each in window.properties("_NET_WM_STATE", "_NET_WM_DESKTOP")
                               for each in wanted), f"{wanted} of the window")
        stack = "xprop", "-root", "_NET_CLIENT_LIST_STACKING"
        wait_until(lambda: window.desktop.ask(*stack).endswith(hex(int(window.id))),
                   "the window on top of all others")

    def wait_until_let_go(self, window):
        """The X server maps what a window manager has in its hands when it dies."""
        wait_until(lambda: hex(int(window.id)) not in window.desktop.ask(
            "xprop", "-root", "_NET_CLIENT_LIST"), "the window in nobody's hands")

    def restart(self, desktop, end):
        desktop.end_window_manager(end)
        desktop.start_window_manager()
        wait_until(desktop.other.has_frame, "the other window in the new one's hands")

    def test_manners(self):
        with capturing() as window:
            for _ in range(3):
                window.show()
                self.check_manners(window)
                window.hide()
                wait_until(window.desktop.other.has_focus, "the keyboard back where it was")

    def test_restart_while_shown(self):
        for end in signal.SIGTERM, signal.SIGKILL:
            with self.subTest(end=end), capturing() as window:
                window.show()
                self.restart(window.desktop, end)
                wait_until(window.desktop.visible_windows, "the window under the new one")
                window.hide()
                window.desktop.other.focus()
                window.show()
                self.check_manners(window)
                window.click(-3, 82)
                wait_until(window.desktop.other.clicks, "the click beside the card")

    def test_restart_while_hidden(self):
        with capturing() as window:
            window.show()
            window.hide()
            self.wait_until_let_go(window)
            self.restart(window.desktop, signal.SIGKILL)
            window.desktop.other.focus()
            window.show()
            self.check_manners(window)

    def test_end_while_hidden(self):
        with capturing() as window:
            window.show()
            window.hide()
            window.desktop.window_manager.stop()
            window.show()
            window.wait_for_middle((640, 400))

    def test_all_desktops(self):
        with capturing() as window:
            desktop = window.desktop
            desktop.ask("xdotool", "set_num_desktops", "3")
            window.show()
            for number in "1", "2", "0":
                desktop.ask("xdotool", "set_desktop", number)
                wait_until(lambda: desktop.ask("xdotool", "get_desktop") == number, "the desktop")
                self.assertEqual(desktop.visible_windows(), [window.id])
            window.hide()
            desktop.ask("xdotool", "set_desktop", "2")
            window.show()
            self.assertEqual(desktop.ask("xdotool", "get_desktop"), "2")

    def test_above_a_full_screen_window(self):
        with capturing() as window:
            self.configure(window.desktop, FULL_SCREEN_RULE)
            full = OtherWindow(window.desktop, "600x400+0+0", "Full")
            wait_until(lambda: "_FULLSCREEN" in window.desktop.ask(
                "xprop", "-id", full.id, "_NET_WM_STATE"), "the full screen")
            window.show()
            self.check_manners(window)
            x, y = window.middle()
            card = x - 300, y - 60, 600, 120
            wait_until(lambda: len(window.desktop.places_of(is_white, card)) < 1000,
                       "the card in front of the full screen")
            window.desktop.type_text("above")
            self.assertEqual(window.desktop.visible_windows(), [window.id])

    def configure(self, desktop, rules):
        folder = Path(desktop.environment["XDG_CONFIG_HOME"]) / "openbox"
        folder.mkdir()
        (folder / "rc.xml").write_text(rules)
        desktop.end_window_manager(signal.SIGTERM)
        desktop.start_window_manager()

    def test_moved_by_its_background_and_back_in_the_middle(self):
        with capturing() as window:
            window.show()
            x, y = window.middle()
            for way in (-150, 120), (100, -60):
                left, top = window.middle()
                self.drag(window.desktop, (left + 380, top + 78), way)
                # Less the way by which a press becomes a drag.
                wanted = left + way[0], top + way[1]
                wait_until(lambda: self.is_near(window.middle(), wanted), "the move")
                moved = window.middle()
                window.desktop.ask("xdotool", "mousemove", "--sync", "900", "700", "sleep", "0.3")
                self.assertEqual(window.middle(), moved, "it hangs on the pointer")
            window.hide()
            window.show()
            window.wait_for_middle((x, y))

    def is_near(self, place, other):
        return all(abs(one - two) < 40 for one, two in zip(place, other))

    def drag(self, desktop, start, way):
        desktop.ask("xdotool", "mousemove", *map(str, start), "mousedown", "1")
        for step in range(1, 11):
            place = [at + length * step // 10 for at, length in zip(start, way)]
            desktop.ask("xdotool", "mousemove", "--sync", *map(str, place), "sleep", "0.03")
        desktop.ask("xdotool", "mouseup", "1")


if __name__ == "__main__":
    unittest.main()

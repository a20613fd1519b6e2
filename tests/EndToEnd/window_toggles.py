"""The capture window comes and goes as often as the user likes."""

import time
import unittest

from processes import wait_until
from windows import capturing, is_black

TOGGLES = 50
LINE = 776, 24  # the first line of the text, in the card
CARET = 40  # pixels; a few words have more
GROWTH = 8 * 1024  # what may be added by that many toggles, in kilobytes


class Toggles(unittest.TestCase):
    def text_pixels(self, window):
        """How many pixels of the first line are black, as only typed text is."""
        x, y = window.middle()
        line = x - LINE[0] // 2, y - 72, *LINE
        return len(window.desktop.places_of(is_black, line))

    def resident_memory(self, window):
        with open(f"/proc/{window.program.pid()}/status") as status:
            return next(int(line.split()[1]) for line in status if line.startswith("VmRSS"))

    def toggle_often(self, window):
        for _ in range(TOGGLES):
            window.toggle()

    def test_fifty_in_a_row(self):
        with capturing() as window:
            self.toggle_often(window)  # from hidden to hidden
            window.desktop.wait_for_no_window()
            memory = self.resident_memory(window)
            files = len(window.program.open_files())
            self.toggle_often(window)
            window.desktop.wait_for_no_window()
            self.assertLess(self.resident_memory(window), memory + GROWTH)
            self.assertEqual(len(window.program.open_files()), files)
            window.show()
            window.wait_for_middle((640, 400))
            window.desktop.type_text("still here")
            wait_until(lambda: self.text_pixels(window) > 100, "the text")

    def test_odd_number_in_a_row_leaves_it_shown(self):
        with capturing() as window:
            for _ in range(6):
                window.toggle()
            window.show()
            window.wait_for_middle((640, 400))

    def test_toggle_within_an_animation(self):
        with capturing() as window:
            window.show()
            middle = window.middle()
            for _ in range(5):
                window.desktop.type_text("a note /new_note ")
                window.desktop.press("ctrl+Return")  # the card's spring
                window.hide()
                window.show()
            self.assertNotEqual(window.desktop.notes(), [])
            window.wait_for_middle(middle)
            # At rest again, with a region of its own size.
            wait_until(lambda: self.takes_click_beside(window), "the card's own size")

    def takes_click_beside(self, window):
        before = window.desktop.other.clicks()
        window.click(-3, 82)
        window.desktop.ask("xdotool", "windowactivate", "--sync", window.id)
        return window.desktop.other.clicks() > before

    def test_closed_by_the_window_manager(self):
        with capturing() as window:
            window.show()
            window.desktop.type_text("what is kept")
            wait_until(lambda: self.text_pixels(window) > CARET, "the text")
            window.desktop.press("alt+F4")
            window.desktop.wait_for_no_window()
            self.assertTrue(window.program.is_running())
            window.show()
            wait_until(lambda: self.text_pixels(window) > CARET, "the text of before")

    def test_put_away_by_the_window_manager(self):
        with capturing() as window:
            for _ in range(2):
                window.show()
                window.desktop.ask("xdotool", "windowminimize", window.id)
                window.desktop.wait_for_no_window()
                window.show()
                window.wait_for_middle((640, 400))
                window.hide()

    def test_escape_twice_at_once(self):
        with capturing() as window:
            for _ in range(5):
                window.show()
                window.desktop.ask("xdotool", "key", "--delay", "0", "Escape", "Escape")
                window.desktop.wait_for_no_window()
                time.sleep(0.2)
                self.assertEqual(window.desktop.visible_windows(), [])

    def test_first_frame_shows_what_is_there_now(self):
        with capturing() as window:
            for _ in range(3):
                window.show()
                window.desktop.type_text("a text that is gone soon")
                wait_until(lambda: self.text_pixels(window) > 100, "the text")
                window.desktop.press("ctrl+a", "Delete", "Escape")
                window.desktop.wait_for_no_window()
                window.toggle()
                wait_until(window.desktop.visible_windows, "the window")
                self.assertLess(self.text_seen_while_appearing(window), CARET)
                window.hide()

    def text_seen_while_appearing(self, window):
        """The most black pixels of text that are seen until the window has stood for a while."""
        most, end = 0, time.monotonic() + 0.5
        while time.monotonic() < end:
            most = max(most, self.text_pixels(window))
        return most


if __name__ == "__main__":
    unittest.main()

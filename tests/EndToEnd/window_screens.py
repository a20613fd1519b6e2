"""The capture window is in the middle of the screen that is worked at, whatever that is like."""

import unittest

from windows import capturing

LEFT, RIGHT = (0, 1280), (1280, 1280)  # where two screens begin, and how wide they are
MIDDLE_OF_LEFT, MIDDLE_OF_RIGHT = (640, 400), (1920, 400)


class Screens(unittest.TestCase):
    def set_screens(self, desktop, **screens):
        """Parts the X server's one screen into several, and takes away those that were."""
        for line in desktop.ask("xrandr", "--listmonitors").splitlines()[1:]:
            name = line.split()[1].strip("+*")
            if name != "screen":
                desktop.ask("xrandr", "--delmonitor", name)
        for name, ((x, width), output) in screens.items():
            desktop.ask("xrandr", "--setmonitor", name, f"{width}/300x800/200+{x}+0", output)

    def two_screens(self, desktop):
        self.set_screens(desktop, right=(RIGHT, "none"), left=(LEFT, "screen"))

    def work_at(self, desktop, x):
        desktop.ask("xdotool", "windowsize", "--sync", desktop.other.id, "600", "400")
        desktop.ask("xdotool", "windowmove", "--sync", desktop.other.id, str(x), "100")
        desktop.other.focus()

    def test_scales(self):
        for scale in 1.25, 1.5, 2:
            with self.subTest(scale=scale), capturing(
                    size="1920x1300", environment={"QT_SCALE_FACTOR": str(scale)}) as window:
                for _ in range(2):
                    window.show()
                    window.wait_for_middle((960, 650), scale)
                    window.hide()

    def test_screen_with_the_keyboard(self):
        with capturing(size="2560x800") as window:
            self.two_screens(window.desktop)
            for x, middle in (1500, MIDDLE_OF_RIGHT), (100, MIDDLE_OF_LEFT), (1500, MIDDLE_OF_RIGHT):
                self.work_at(window.desktop, x)
                window.show()
                window.wait_for_middle(middle)
                window.hide()

    def test_screens_of_different_scales(self):
        with capturing(size="2560x800", environment={
                "QT_SCREEN_SCALE_FACTORS": "left=1;right=1.25"}) as window:
            self.two_screens(window.desktop)
            for x, middle, scale in ((1500, MIDDLE_OF_RIGHT, 1.25), (100, MIDDLE_OF_LEFT, 1),
                                     (1500, MIDDLE_OF_RIGHT, 1.25)):
                self.work_at(window.desktop, x)
                window.show()
                window.wait_for_middle(middle, scale)
                window.hide()

    def test_screen_smaller_than_the_window(self):
        with capturing(size="800x480") as window:
            for _ in range(2):
                window.show()
                window.wait_for_middle((400, 240))
                window.hide()

    def test_screen_that_goes_while_shown(self):
        with capturing(size="2560x800") as window:
            self.two_screens(window.desktop)
            self.work_at(window.desktop, 1500)
            window.show()
            window.wait_for_middle(MIDDLE_OF_RIGHT)
            self.set_screens(window.desktop, left=(LEFT, "screen"))
            window.wait_for_middle(MIDDLE_OF_LEFT)

    def test_screen_that_goes_while_hidden(self):
        with capturing(size="2560x800") as window:
            self.two_screens(window.desktop)
            self.work_at(window.desktop, 1500)
            window.show()
            window.hide()
            self.set_screens(window.desktop, left=(LEFT, "screen"))
            self.work_at(window.desktop, 100)
            window.show()
            window.wait_for_middle(MIDDLE_OF_LEFT)

    def test_screen_that_shrinks_while_shown(self):
        with capturing(size="2560x800") as window:
            self.set_screens(window.desktop, left=((0, 2560), "screen"))
            window.show()
            window.wait_for_middle((1280, 400))
            self.set_screens(window.desktop, left=(LEFT, "screen"))
            window.wait_for_middle(MIDDLE_OF_LEFT)


if __name__ == "__main__":
    unittest.main()

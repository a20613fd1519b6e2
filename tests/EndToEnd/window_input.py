"""Clicks belong to the card, and to whatever is behind where no card is."""

import unittest

from processes import wait_until
from windows import CARD, capturing

WIDTH, HEIGHT = CARD


class InputRegion(unittest.TestCase):
    def check_edges(self, scale=1, **options):
        with capturing(**options, environment={"QT_SCALE_FACTOR": str(scale)}) as window:
            other = window.desktop.other
            window.show()
            beside = [(-3, HEIGHT / 2), (WIDTH + 3, HEIGHT / 2), (WIDTH / 2, -3),
                      (WIDTH / 2, HEIGHT + 3), (1, 1), (WIDTH - 2, HEIGHT - 2)]
            within = [(3, HEIGHT / 2), (WIDTH - 3, HEIGHT / 2), (WIDTH / 2, 3),
                      (WIDTH / 2, HEIGHT - 3), (6, 6)]
            for number, place in enumerate(beside, start=1):
                window.click(*place, scale)
                wait_until(lambda: other.clicks() == number, f"the click beside the card at {place}")
            for place in within:
                window.click(*place, scale)
            self.assertEqual(other.clicks(), len(beside))

    def test_clicks_beside_the_card(self):
        self.check_edges()

    def test_clicks_beside_the_card_without_compositor(self):
        self.check_edges(compositor=False)

    def test_clicks_beside_the_card_without_window_manager(self):
        self.check_edges(window_manager=False)

    def test_clicks_beside_the_card_at_broken_scale(self):
        self.check_edges(scale=1.25)

    def test_clicks_beside_the_card_at_double_scale(self):
        self.check_edges(scale=2, size="1920x1300")

    def test_region_grows_with_the_card(self):
        with capturing() as window:
            window.show()
            below = WIDTH / 2, HEIGHT + 40
            window.click(*below)
            other = window.desktop.other
            wait_until(lambda: other.clicks() == 1, "the click below the card")
            window.desktop.ask("xdotool", "windowactivate", "--sync", window.id)
            window.desktop.type_text("/")
            wait_until(lambda: self.takes(window, below), "the card's growth")

    def takes(self, window, place):
        before = window.desktop.other.clicks()
        window.click(*place)
        return window.desktop.other.clicks() == before

    def test_clicks_on_the_card_give_it_the_keyboard(self):
        with capturing() as window:
            window.show()
            window.desktop.other.focus()
            window.click(WIDTH / 2, HEIGHT / 2)
            window.desktop.wait_for_window()


if __name__ == "__main__":
    unittest.main()

"""The card follows the desktop's light, dark and contrast while it is on the screen."""

import unittest

from desktop import Desktop
from portal import DARK, LIGHT, NO_PREFERENCE, SettingsPortal
from processes import wait_until

LIGHT_CARD = 0xEC
DARK_CARD = 0x32


def is_card(grey):
    return lambda colour: all(abs(part - grey) <= 2 for part in colour)


class Looks(unittest.TestCase):
    def wait_for_card(self, desktop, grey):
        wait_until(lambda: desktop.share_of(is_card(grey)) > 0.05, f"a card of grey {grey}")

    def start(self, desktop):
        desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
        program = desktop.start_program()
        desktop.call_up()
        return program

    def test_card_follows_the_colour_scheme(self):
        with Desktop() as desktop:
            portal = SettingsPortal(desktop, color_scheme=DARK)
            self.start(desktop)
            self.wait_for_card(desktop, DARK_CARD)
            portal.set_color_scheme(LIGHT)
            self.wait_for_card(desktop, LIGHT_CARD)
            portal.set_color_scheme(DARK)
            self.wait_for_card(desktop, DARK_CARD)
            portal.set_color_scheme(NO_PREFERENCE)
            self.wait_for_card(desktop, LIGHT_CARD)

    def test_portal_may_come_later(self):
        with Desktop() as desktop:
            program = self.start(desktop)
            self.wait_for_card(desktop, LIGHT_CARD)
            portal = SettingsPortal(desktop, color_scheme=DARK)
            self.wait_for_card(desktop, DARK_CARD)
            portal.stop()
            self.assertTrue(program.is_running())

    def test_hidden_window_comes_back_in_the_new_colours(self):
        with Desktop() as desktop:
            portal = SettingsPortal(desktop, color_scheme=LIGHT)
            self.start(desktop)
            self.wait_for_card(desktop, LIGHT_CARD)
            desktop.press("Escape")
            desktop.wait_for_no_window()
            portal.set_color_scheme(DARK)
            desktop.start_program().exit_status()
            desktop.wait_for_window()
            self.wait_for_card(desktop, DARK_CARD)


if __name__ == "__main__":
    unittest.main()

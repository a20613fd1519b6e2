"""The desktop's own panel for choosing a folder, asked for by the welcome."""

import contextlib
import time
import unittest

from accessibility import Role
from folder_portal import CANCELLED, CHOSEN, FAILED, REFUSING, FolderPortal
from onboarding import PANELS, welcome
from portal import start_silent_portal
from processes import wait_until

MESSAGE = PANELS["vault"]
SETTLED = 0.3  # seconds, after which what was to come of something has come
LEFT = 1  # second, after which a window that has lost the keyboard knows


@contextlib.contextmanager
def vault_step(**options):
    with welcome() as it:
        it.go_on(2)
        it.portal = FolderPortal(it.desktop, **options)
        yield it


class FolderPanel(unittest.TestCase):
    def browse(self, it, times=1):
        it.press_choose()
        it.portal.wait_for("OpenFile", times)
        time.sleep(SETTLED)

    def wait_for_vault(self, it, path):
        it.reader.find(Role.LABEL, f"Obsidian vault: {path}")

    def choose_in_place_of_it(self, it):
        """The program's own panel is there, and does."""
        it.desktop.type_text(str(it.desktop.vault))
        time.sleep(SETTLED)
        it.press("Return")
        self.wait_for_vault(it, it.desktop.vault)

    def wait_for_own_panel(self, it):
        wait_until(lambda: it.has_focus(MESSAGE), "the program's own panel")

    def test_chosen_folder(self):
        with vault_step() as it:
            vault = it.desktop.folder / "Mein Käfer 100%"
            vault.mkdir()
            self.browse(it)
            [window] = it.ids()
            self.assertEqual(it.portal.calls(), [
                ["OpenFile", f"x11:{int(window):x}", MESSAGE, True,
                 it.desktop.environment["HOME"] + "\0"]])
            it.portal.answer(CHOSEN, vault.as_uri())
            self.wait_for_vault(it, vault)
            self.assertEqual(it.ids(MESSAGE), [])
            it.press("space")
            it.portal.wait_for("OpenFile", 2)
            self.assertEqual(it.portal.calls()[1][4], f"{vault}\0")

    def test_cancelled_panel_changes_nothing(self):
        with vault_step() as it:
            self.browse(it)
            it.portal.answer(CHOSEN, it.desktop.vault.as_uri())
            self.wait_for_vault(it, it.desktop.vault)
            it.press("space")
            it.portal.wait_for("OpenFile", 2)
            it.portal.answer(CANCELLED)
            time.sleep(SETTLED)
            self.wait_for_vault(it, it.desktop.vault)
            self.assertEqual(it.ids(MESSAGE), [])
            self.assertEqual(it.stored(), {})

    def test_second_press_opens_no_second_panel(self):
        with vault_step() as it:
            self.browse(it)
            it.press("space", "space")
            time.sleep(SETTLED)
            self.assertEqual(it.portal.names(), ["OpenFile"])

    def test_own_panel_where_the_portal_refuses(self):
        with vault_step(kind=REFUSING) as it:
            self.browse(it)
            self.wait_for_own_panel(it)
            self.choose_in_place_of_it(it)

    def test_own_panel_where_the_portal_fails(self):
        with vault_step() as it:
            self.browse(it)
            it.portal.answer(FAILED)
            self.wait_for_own_panel(it)
            self.choose_in_place_of_it(it)

    def test_panel_that_is_closed_by_its_frame_has_not_failed(self):
        with vault_step() as it:
            self.browse(it)
            # As by the panel, the welcome loses the keyboard.
            it.desktop.ask("xdotool", "set_desktop", "1")
            time.sleep(LEFT)
            it.portal.answer(FAILED)
            it.desktop.ask("xdotool", "set_desktop", "0")
            time.sleep(SETTLED)
            self.assertEqual(it.ids(MESSAGE), [])
            it.portal.stop()
            wait_until(it.has_focus, "the keyboard in the welcome")
            it.press("space")
            self.wait_for_own_panel(it)

    def test_own_panel_where_the_portal_is_silent(self):
        with welcome() as it:
            it.go_on(2)
            start_silent_portal(it.desktop)
            it.press_choose()
            self.wait_for_own_panel(it)
            self.choose_in_place_of_it(it)

    def test_own_panel_once_the_portal_has_gone(self):
        with vault_step() as it:
            it.portal.stop()
            it.press_choose()
            self.wait_for_own_panel(it)
            self.choose_in_place_of_it(it)

    def test_portal_that_is_started_again(self):
        with vault_step() as it:
            self.browse(it)
            it.portal.stop()
            it.portal = FolderPortal(it.desktop)
            time.sleep(SETTLED)
            it.press("space")
            it.portal.wait_for("OpenFile")
            time.sleep(SETTLED)
            it.portal.answer(CHOSEN, it.desktop.vault.as_uri())
            self.wait_for_vault(it, it.desktop.vault)

    def test_panel_goes_with_the_welcome(self):
        with vault_step() as it:
            self.browse(it)
            it.close()
            it.portal.wait_for("Close")
            it.portal.answer(CHOSEN, it.desktop.vault.as_uri())
            time.sleep(SETTLED)
            self.assertTrue(it.program.is_running())
            self.assertEqual(it.stored(), {})

    def test_end_under_an_open_panel(self):
        with vault_step() as it:
            self.browse(it)
            it.stop()
            it.portal.wait_for("Close")


if __name__ == "__main__":
    unittest.main()

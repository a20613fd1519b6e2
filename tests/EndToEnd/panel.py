"""Notes are found, gone through and opened: the roads through the panel, by key and by mouse."""

import contextlib
import os
import time
import unittest

import accessibility
from desktop import Desktop
from editor import Editor
from opened import OpenedUrls
from processes import wait_until
from results_panel import ResultsPanel

NOTES = {
    "Garden.md": "# Garden\n\nAda lends us her #garden tools on Saturday.\n",
    "Shed.md": "---\ntags: [garden, repairs]\n---\n\nThe roof leaks above the garden tools.\n",
    "Kitchen/Sauce.md": "# Sauce\n\nTwo kilos of tomatoes, one onion, basil. #recipe\n",
}
NEWEST_FIRST = ["Sauce", "Shed", "Garden"]


def write_notes(vault):
    for age, (name, text) in enumerate(reversed(NOTES.items())):
        note = vault / name
        note.parent.mkdir(exist_ok=True)
        note.write_text(text)
        time = 1_700_000_000 - 60 * age
        os.utime(note, (time, time))


class Panel(ResultsPanel):
    """Jotwell over a vault with these notes."""

    def __init__(self, desktop):
        write_notes(desktop.vault)
        self.desktop = desktop
        self.opened = OpenedUrls(desktop)
        self.editor = Editor(desktop, program=self.opened.environment)
        super().__init__(self.editor)

    def search(self, query):
        self.editor.type(f"/search_notes {query}")
        self.editor.press("ctrl+Return")
        self.editor.wait_for("")

    def wait_until_opened(self, name):
        self.opened.wait_for(f"obsidian://open?path={self.desktop.vault / name}")
        self.desktop.wait_for_no_window()


@contextlib.contextmanager
def panel():
    with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
        yield Panel(desktop)


class Searches(unittest.TestCase):
    def test_words_are_found_and_opened_by_key(self):
        with panel() as it:
            it.search("garden tools")
            it.wait_for("Shed", "Garden")
            it.wait_for_selected()
            it.editor.press("Tab")
            it.wait_for_selected("Shed")
            it.editor.press("Down", "Down")
            it.wait_for_selected("Garden")
            it.editor.press("Return")
            it.wait_until_opened("Garden.md")

    def test_return_pressed_often_leaves_the_window_hidden(self):
        with panel() as it:
            it.search("garden tools")
            it.wait_for("Shed", "Garden")
            it.editor.press("Tab")
            it.wait_for_selected("Shed")
            it.desktop.ask("xdotool", "key", "--delay", "0", *["Return"] * 4)
            it.desktop.wait_for_no_window()
            time.sleep(0.3)
            self.assertEqual(it.desktop.visible_windows(), [])

    def test_tag_is_found_and_opened_by_mouse(self):
        with panel() as it:
            it.search("#recipe")
            it.wait_for("Sauce")
            it.click("Sauce")
            it.wait_until_opened("Kitchen/Sauce.md")

    def test_search_runs_by_itself_in_a_pause(self):
        with panel() as it:
            it.editor.type("/search_notes garden tools")
            it.wait_for("Shed", "Garden")
            self.assertEqual(it.editor.text(), "/search_notes garden tools")

    def test_up_leaves_the_panel_and_the_next_words_close_it(self):
        with panel() as it:
            it.search("garden tools")
            it.wait_for("Shed", "Garden")
            it.editor.press("Tab", "Up")
            it.wait_for_selected()
            it.editor.press("Return")  # the editor's again
            it.editor.wait_for("\n")
            self.assertEqual(it.opened.all(), [])
            it.wait_for()

    def test_what_was_found_is_still_there_when_the_window_comes_back(self):
        with panel() as it:
            it.search("garden tools")
            it.editor.press("Tab")
            it.wait_for_selected("Shed")
            it.editor.press("Escape")
            it.desktop.wait_for_no_window()
            it.desktop.start_program().exit_status()
            it.desktop.wait_for_window()
            it.wait_for_selected("Shed")
            it.editor.press("Return")
            it.wait_until_opened("Shed.md")


class RecentNotes(unittest.TestCase):
    def test_shortcut_lists_them(self):
        with panel() as it:
            it.editor.type("half a thought")
            it.editor.press("ctrl+3")
            it.editor.wait_for("/recent  $All Folders ")
            it.wait_for(*NEWEST_FIRST)
            it.editor.press("Tab", "Return")
            it.wait_until_opened("Kitchen/Sauce.md")

    def test_folder_is_chosen_by_mouse(self):
        with panel() as it:
            it.editor.type("/rec")
            it.editor.wait_for_rows("/recent")
            it.editor.click(it.editor.row_place("/recent"))
            it.editor.wait_for("/recent  $All Folders ")
            it.wait_for(*NEWEST_FIRST)
            it.editor.press(*["BackSpace"] * len("All Folders "))
            it.editor.wait_for_rows("All Folders", "Kitchen")
            it.editor.click(it.editor.row_place("Kitchen"))
            it.wait_for("Sauce")

    def test_vault_that_is_gone_is_told_of(self):
        with panel() as it:
            it.editor.press("ctrl+3")
            it.wait_for(*NEWEST_FIRST)
            it.desktop.write_settings(OnboardingCompleted="true")
            it.editor.press("ctrl+3")
            it.editor.wait_for_toast("Set up this command first in the app settings")
            it.wait_for(*NEWEST_FIRST)

    def test_note_that_has_gone_is_left_to_obsidian(self):
        with panel() as it:
            it.editor.press("ctrl+3")
            it.wait_for(*NEWEST_FIRST)
            (it.desktop.vault / "Shed.md").unlink()
            it.click("Shed")
            it.wait_until_opened("Shed.md")
            self.assertTrue(it.editor.program.is_running())


class Shortcuts(unittest.TestCase):
    def press(self, it, name):
        x, y, width, height = it.editor.reader.ask(it.editor.reader.item(name).place)
        it.editor.click((x + width // 2, y + height // 2))

    def test_buttons_make_a_note(self):
        with panel() as it:
            before = set(it.desktop.notes())
            self.press(it, "/new_note")
            it.editor.wait_for("/new_note  $Default ")
            it.editor.type("Call Ada")
            self.press(it, "Create Note")
            [note] = wait_until(lambda: set(it.desktop.notes()) - before, "a note")
            self.assertIn("Call Ada", note.read_text())
            it.editor.wait_for("")
            self.assertIsNotNone(it.editor.reader.item("/new_note"))

    def test_keys_do_the_same(self):
        with panel() as it:
            it.editor.press("ctrl+2")
            it.editor.wait_for("/search_notes ")
            it.editor.type("garden tools")
            it.wait_for("Shed", "Garden")
            it.editor.press("ctrl+1")
            it.editor.wait_for("/search_notes garden tools /new_note  $Default ")


if __name__ == "__main__":
    unittest.main()

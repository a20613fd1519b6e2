"""The input language under real fingers: what is chosen from its lists and what its chips do."""

import json
import shutil
import unittest

from editor import editing, is_command_chip, is_parameter_chip
from notes import CLOCK, CLOCK_IN_TEXT, daily_note, default_note
from processes import wait_until

STANDING_CLOCK = {"clock": CLOCK, "LC_ALL": "en_US.UTF-8"}
COMMANDS = "/new_note", "/search_notes", "/recent"
BUILT_IN = "Default", "Meeting", "Daily Note"


def own_templates(*names, last_used):
    """The settings of a user who has templates of these names, whose text is the name, and has
    last used one of them."""
    ids = {name: f"{number:08X}-0000-4000-8000-000000000000" for number, name in enumerate(names)}
    stored = json.dumps([
        {"id": ids[name], "name": name, "content": f"{name}: {{{{content}}}}",
         "showInDropdown": True, "type": {"regular": {}}} for name in names])
    escaped = stored.replace("\\", "\\\\").replace('"', '\\"')
    return {"ObsidianTemplates": f'"@ByteArray({escaped})"', "LastUsedTemplateId": ids[last_used]}


def write_tags(vault):
    (vault / "tagged.md").write_text("#work #tasks #tests\n")


def make_folders(vault):
    for name in "Inbox", "Work":
        (vault / name).mkdir()


class Lists(unittest.TestCase):
    def test_beginning_of_a_command_and_return_make_a_note(self):
        with editing(program=STANDING_CLOCK) as editor:
            editor.type("/ne")
            editor.wait_for_rows("/new_note")
            editor.press("Return")
            editor.wait_for("/new_note  $Default")
            editor.wait_for_rows()
            editor.type(" Call Ada")
            editor.press("ctrl+Return")
            self.assertEqual(editor.wait_for_note().read_text(),
                             default_note("Call Ada", "Call Ada", CLOCK_IN_TEXT))
            editor.wait_for("")

    def test_command_takes_the_template_used_last(self):
        settings = own_templates("Errand", "Idea", "Trip", last_used="Idea")
        with editing(**settings) as editor:
            editor.type("/ne")
            editor.press("Return")
            editor.wait_for("/new_note  $Idea")
            editor.type(" Paint it blue")
            editor.press("ctrl+Return")
            self.assertEqual(editor.wait_for_note().read_text(), "Idea: Paint it blue")

    def test_whole_command_gets_its_template_by_itself(self):
        with editing() as editor:
            editor.type("Call Ada /new_note")
            editor.wait_for("Call Ada /new_note  $Default")
            editor.wait_for_rows("/new_note")
            editor.type(" ")
            editor.wait_for("Call Ada /new_note  $Default ")
            editor.wait_for_rows()

    def test_template_is_chosen_with_the_arrows_and_kept(self):
        with editing(program=STANDING_CLOCK) as editor:
            editor.type("Call Ada /new_note")
            editor.wait_for("Call Ada /new_note  $Default")
            editor.press(*["BackSpace"] * len("Default"))
            editor.wait_for("Call Ada /new_note  $")
            editor.wait_for_rows(*BUILT_IN)
            editor.wait_for_selected("Default")
            editor.press("Down", "Down", "Down")
            editor.wait_for_selected("Daily Note")
            editor.press("Up")
            editor.wait_for_selected("Meeting")
            editor.press("Down", "Return")
            editor.wait_for("Call Ada /new_note  $Daily Note")
            editor.press("ctrl+Return")
            self.assertEqual(editor.wait_for_note().read_text(),
                             daily_note("Call Ada", "Call Ada", CLOCK_IN_TEXT))
            editor.wait_for("")
            editor.type("/new_note")
            editor.wait_for("/new_note  $Daily Note")

    def test_list_is_chosen_from_by_the_mouse(self):
        with editing() as editor:
            editor.type("/")
            editor.wait_for_rows(*COMMANDS)
            editor.click(editor.row_place("/search_notes"))
            editor.wait_for("/search_notes")
            editor.wait_for_rows()
            editor.type(" x")
            editor.wait_for("/search_notes x")

    def test_recent_notes_are_shown_at_once(self):
        with editing() as editor:
            editor.type("/re")
            editor.wait_for_rows("/recent")
            editor.press("Return")
            editor.wait_for_toast("No recent notes found")
            editor.wait_for("/recent  $All Folders ")

    def test_folder_is_chosen_and_its_notes_shown_at_once(self):
        with editing(fill=make_folders) as editor:
            editor.type("/recent")
            editor.wait_for("/recent  $All Folders")
            editor.press(*["BackSpace"] * len("All Folders"))
            editor.wait_for_rows("All Folders", "Inbox", "Work")
            editor.type("W")
            editor.wait_for_rows("Work")
            editor.press("Return")
            editor.wait_for("/recent  $Work")
            editor.wait_for_toast("No recent notes found")

    def test_tag_is_chosen(self):
        with editing(fill=write_tags) as editor:
            editor.type("#t")
            editor.wait_for_rows("#tasks", "#tests")
            editor.press("Down", "Return")
            editor.wait_for("#tests ")
            editor.wait_for_rows()

    def test_vault_goes_away_under_the_list_of_its_folders(self):
        with editing(fill=make_folders) as editor:
            editor.type("/recent")
            editor.wait_for("/recent  $All Folders")
            editor.press(*["BackSpace"] * len("All Folders"))
            editor.wait_for_rows("All Folders", "Inbox", "Work")
            shutil.rmtree(editor.desktop.vault)
            editor.press("Down", "Return")
            editor.wait_for("/recent  $Inbox")
            vault = editor.desktop.vault
            editor.wait_for_toast(f"The Obsidian folder does not exist: {vault}")
            editor.press(*["BackSpace"] * len("Inbox"))
            editor.wait_for_rows("All Folders")


class Chips(unittest.TestCase):
    def test_parameter_opens_its_list_and_a_key_replaces_it(self):
        with editing() as editor:
            editor.type("/new_note hello")
            editor.wait_for("/new_note  $Default hello")
            editor.press(*["Left"] * 3)
            editor.click(editor.chip_place(is_parameter_chip))
            editor.wait_for_rows(*BUILT_IN)
            self.assertEqual(editor.cursor(), len("/new_note  $Default he"))
            editor.press("Down", "Return")
            editor.wait_for("/new_note  $Meeting hello")
            editor.wait_for_rows()

    def test_parameter_is_replaced_by_a_click_on_a_row(self):
        with editing(fill=make_folders) as editor:
            editor.type("/recent ")
            editor.wait_for("/recent  $All Folders ")
            editor.click(editor.chip_place(is_parameter_chip))
            editor.wait_for_rows("All Folders", "Inbox", "Work")
            editor.click(editor.row_place("Inbox"))
            editor.wait_for("/recent  $Inbox ")
            editor.wait_for_toast("No recent notes found")

    def test_command_is_replaced(self):
        with editing() as editor:
            editor.type("/new_note hello")
            editor.wait_for("/new_note  $Default hello")
            editor.press("Home")
            editor.click(editor.chip_place(is_command_chip))
            editor.wait_for_rows(*COMMANDS)
            editor.wait_for_selected("/new_note")
            self.assertEqual(editor.cursor(), 0)
            editor.press("Down", "Return")
            editor.wait_for("/search_notes hello")
            editor.wait_for_rows()

    def test_tag_is_replaced(self):
        with editing(fill=write_tags) as editor:
            editor.type("#tasks more")
            editor.wait_for("#tasks more")
            editor.press("Left")
            editor.click(editor.start_of_text())
            editor.wait_for_rows("#tasks", "#tests", "#work")
            self.assertEqual(editor.cursor(), len("#tasks mor"))
            editor.press("Down", "Down", "Return")
            editor.wait_for("#work more")

    def test_edit_closes_the_list_of_a_clicked_chip(self):
        with editing() as editor:
            editor.type("/new_note hello")
            editor.wait_for("/new_note  $Default hello")
            editor.click(editor.chip_place(is_command_chip))
            editor.wait_for_rows(*COMMANDS)
            editor.type("x")
            editor.wait_for("/new_note  $Default hellox")
            editor.wait_for_rows()

    def test_click_beside_chips_moves_the_cursor(self):
        with editing(fill=write_tags) as editor:
            editor.type("plain words")
            editor.wait_for("plain words")
            editor.click(editor.start_of_text())
            wait_until(lambda: editor.cursor() < 3, "the cursor in the first word")
            editor.wait_for_rows()

    def test_pointer_shows_what_can_be_clicked(self):
        with editing() as editor:
            editor.type("words /new_note hello")
            editor.wait_for("words /new_note  $Default hello")
            shape = editor.desktop.pointer_shape
            editor.point_at(editor.start_of_text())
            over_text = shape()
            editor.point_at(editor.chip_place(is_command_chip))
            wait_until(lambda: shape() != over_text, "another pointer over a command")
            over_chip = shape()
            editor.point_at(editor.start_of_text())
            wait_until(lambda: shape() == over_text, "the pointer for text")
            editor.point_at(editor.chip_place(is_parameter_chip))
            wait_until(lambda: shape() == over_chip, "the same pointer over a parameter")


if __name__ == "__main__":
    unittest.main()

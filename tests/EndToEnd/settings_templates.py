"""The templates' screen of the settings, worked by keyboard, down to files and stored values."""

import contextlib
import json
import signal
import time
import unittest
from pathlib import Path

import accessibility
from accessibility import Role, ScreenReader, State
from processes import wait_until
from settings import settings

PANEL = "Select a folder containing .md template files"
COMPLETION = 0.5  # seconds, until the panel has shown what it would complete
LAST_KEY_TO_KILL = 0.1  # seconds
NEW_NOTE = ["Down"] * 4  # from the first row of the sidebar


class Templates:
    """The settings with the templates' screen on show."""

    def __init__(self, window):
        self.window = window
        self.desktop = window.desktop
        self.reader = ScreenReader(window.desktop)
        window.open()
        self.press(*NEW_NOTE)
        self.reader.find(Role.HEADING, "Sync templates from a folder with Jotwell")

    def press(self, *keys):
        self.desktop.press(*keys)

    def focused(self):
        """What has the keyboard; whatever that is in has it as well."""
        time.sleep(0.1)
        found = self.reader.ask(lambda: [(item.role(), item.name()) for item in self.reader.walk()
                                         if State.FOCUSED in item.states()])
        return found[-1] if found else (None, "")

    def to(self, role, name, key="Tab"):
        for _ in range(20):
            if self.focused() == (role, name):
                return
            self.press(key)
        raise AssertionError(f"«{name}» isn't reached, but {self.focused()}")

    def to_tab(self, name):
        """By Tab to the row, and by arrows in it."""
        while self.focused()[0] != Role.PAGE_TAB:
            self.press("Tab")
        self.press("Home")
        self.to(Role.PAGE_TAB, name, "Right")

    def stored(self):
        path = Path(self.desktop.environment["XDG_CONFIG_HOME"]) / "com.jotwell/Jotwell.ini"
        if not path.exists():
            return {}
        return dict(line.split("=", 1) for line in path.read_text().splitlines() if "=" in line)

    def templates(self):
        """Those that are stored: name, text and whether it is shown."""
        value = self.stored().get("ObsidianTemplates", '"@ByteArray([])"')
        value = value.strip('"').replace('\\"', '"').replace("\\\\", "\\")
        found = json.loads(value.removeprefix("@ByteArray(").removesuffix(")"))
        return [(each["name"], each["content"], each["showInDropdown"]) for each in found]

    def wait_for(self, name, text, is_shown=True):
        wait_until(lambda: (name, text, is_shown) in self.templates(), f"{name} as stored")

    def choose_folder(self, path):
        self.to(Role.PUSH_BUTTON, "Browse")
        self.press("space")
        def has_panel():
            return self.desktop.ask("xdotool", "search", "--onlyvisible", "--name", f"^{PANEL}$")
        wait_until(lambda: self.desktop.ask("xdotool", "getwindowfocus") in has_panel().split(),
                   "the keyboard in the panel")
        self.desktop.type_text(f"{path}/")
        time.sleep(COMPLETION)
        self.press("Return")
        wait_until(lambda: not has_panel(), "no panel")
        wait_until(self.window.has_focus, "the keyboard in the settings")

    def offered(self):
        """What the capture window offers for "$"."""
        self.desktop.call_up()
        wait_until(lambda: self.reader.item("Note editor"), "the field")
        self.desktop.type_text("Call Ada /new_note")
        for _ in range(30):
            if self.reader.ask(lambda: self.reader.item("Note editor").text()).endswith("$"):
                break
            self.press("BackSpace")
        time.sleep(0.3)
        rows = self.reader.ask(lambda: [item.name() for item in self.reader.walk()
                                        if item.role() == Role.LIST_ITEM and item.is_showing()])
        self.press("Escape", "Escape")
        return rows


@contextlib.contextmanager
def templates():
    with settings(**accessibility.ENVIRONMENT) as window:
        yield Templates(window)


class SettingsTemplates(unittest.TestCase):
    def test_add_edit_hide_and_delete_by_keyboard(self):
        with templates() as it:
            it.to(Role.PUSH_BUTTON, "Add Template")
            it.press("space")
            it.to(Role.TEXT, "Template Name")
            it.desktop.type_text("Errand")
            it.press("Tab")
            it.desktop.type_text("Errand: {{content}}")
            it.press("Tab", "Tab", "Return")
            it.wait_for("Errand", "Errand: {{content}}")
            it.to(Role.TEXT, "Template Name")
            it.press("End")
            it.desktop.type_text("s")
            it.wait_for("Errands", "Errand: {{content}}")
            it.to(Role.TEXT, "Template")
            it.press("ctrl+End", "Return")
            it.desktop.type_text("end")
            it.wait_for("Errands", "Errand: {{content}}\nend")
            it.press("shift+Tab")
            it.to(Role.CHECK_BOX, "Enable", "shift+Tab")
            it.press("space")
            it.wait_for("Errands", "Errand: {{content}}\nend", False)
            it.to_tab("Meeting")
            it.to(Role.PUSH_BUTTON, "Delete Template")
            it.press("space")
            wait_until(lambda: [name for name, *_ in it.templates()] ==
                       ["Default", "Daily Note", "Errands"], "the others as stored")
            it.window.close()
            offered = it.offered()
            self.assertIn("Default", offered)
            self.assertIn("Daily Note", offered)
            self.assertNotIn("Meeting", offered)
            self.assertNotIn("Errands", offered)

    def test_synced_template(self):
        with templates() as it:
            folder = it.desktop.folder / "my templates"
            folder.mkdir()
            errand = folder / "Errand.md"
            errand.write_bytes(b"one\r\ntwo")
            it.choose_folder(folder)
            wait_until(lambda: it.stored().get("TemplatesFolderPath") == str(folder), "the folder")
            it.to_tab("Errand")
            it.to(Role.TEXT, "Template")
            it.press("ctrl+End")
            it.desktop.type_text("!")
            wait_until(lambda: errand.read_bytes() == b"one\r\ntwo!", "the text in its file")
            (folder / "Walk.md").write_text("walk")
            it.reader.find(Role.PAGE_TAB, "Walk")
            self.assertEqual(it.focused(), (Role.TEXT, "Template"))
            it.to_tab("Walk")
            it.to(Role.CHECK_BOX, "Enable")
            it.press("space")
            wait_until(lambda: "false" in it.stored().get("SyncedTemplatePreferences", ""), "it")
            it.window.close()
            offered = it.offered()
            self.assertIn("Errand", offered)
            self.assertNotIn("Walk", offered)

    def test_what_was_typed_outlives_the_program(self):
        with templates() as it:
            folder = it.desktop.folder / "synced"
            folder.mkdir()
            (folder / "Errand.md").write_text("")
            it.choose_folder(folder)
            it.to_tab("Default")
            it.to(Role.TEXT, "Template")
            it.press("ctrl+a")
            it.desktop.type_text("typed to the end")
            time.sleep(LAST_KEY_TO_KILL)
            it.window.program.send(signal.SIGKILL)
            it.window.program.exit_status()
            self.assertIn(("Default", "typed to the end", True), it.templates())

    def test_what_was_typed_is_in_its_file_though_the_program_is_killed(self):
        with templates() as it:
            folder = it.desktop.folder / "synced"
            folder.mkdir()
            errand = folder / "Errand.md"
            errand.write_text("")
            it.choose_folder(folder)
            it.to_tab("Errand")
            it.to(Role.TEXT, "Template")
            it.desktop.type_text("typed to the end")
            time.sleep(LAST_KEY_TO_KILL)
            it.window.program.send(signal.SIGKILL)
            it.window.program.exit_status()
            self.assertEqual(errand.read_text(), "typed to the end")

    def test_window_closed_in_the_middle_of_an_edit(self):
        with templates() as it:
            it.to(Role.TEXT, "Template Name")
            it.desktop.type_text("My ")
            it.press("alt+F4")
            wait_until(lambda: not it.window.ids(), "no settings")
            self.assertTrue(it.templates()[0][0].startswith("My ") or
                            it.templates()[0][0] == "DefaultMy ")
            self.assertTrue(it.window.program.is_running())


if __name__ == "__main__":
    unittest.main()

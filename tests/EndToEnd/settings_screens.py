"""The screens of the settings: gone through by keyboard, and what they change seen at work."""

import contextlib
import signal
import time
import unittest
from pathlib import Path

import accessibility
import hostile_vault
from accessibility import Role, ScreenReader, State
from desktop import Desktop
from processes import wait_until
from results_panel import ResultsPanel
from settings import SettingsWindow

PANEL = "Obsidian Vault"
COMPLETION = 0.5  # seconds, until the panel has shown what it would complete
ENTRIES = [("Global Hotkey", ""), ("Obsidian Vault", ""), ("Updates", ""), ("Other", ""),
           ("/new_note", "Create new note"), ("/search_notes", "Search notes in Obsidian"),
           ("/recent", "Show recent notes")]
VAULT, RECENT = 1, 6  # entries
FAILED = "Error: Failed to enumerate files"
COUNT = "Number of Recent Files to Show"


class Screens:
    """Jotwell's settings on their first screen, with the keyboard in the sidebar."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.window = SettingsWindow(desktop, **accessibility.ENVIRONMENT)
        self.reader = ScreenReader(desktop)
        self.open()

    def open(self):
        self.window.open()
        self.reader.find(Role.LIST_ITEM, "Global Hotkey")

    def press(self, *keys):
        self.desktop.press(*keys)

    def go_to(self, entry):
        self.press("Home", *["Down"] * entry)
        self.wait_for_focus(ENTRIES[entry][0])

    def write(self, name, text):
        """From the sidebar into the first field of the screen."""
        self.press("Tab")
        self.wait_for_focus(name)
        self.write_anew(name, text)

    def write_anew(self, name, text):
        self.press("ctrl+a")
        self.desktop.type_text(str(text))
        wait_until(lambda: self.reader.ask(self.reader.find(Role.TEXT, name).text) == str(text),
                   f"«{text}» in the field")

    def wait_for_focus(self, name):
        def is_focused():
            return any(State.FOCUSED in item.states() and item.name() == name
                       for item in self.reader.walk())
        wait_until(lambda: self.reader.ask(is_focused), f"the keyboard at «{name}»")

    def wait_for_label(self, beginning):
        def is_shown():
            return any(item.role() == Role.LABEL and item.name().startswith(beginning)
                       for item in self.reader.walk())
        wait_until(lambda: self.reader.ask(is_shown), f"«{beginning}»")

    def ask_for_folder(self):
        """From the sidebar to an open panel."""
        self.press("Tab", "Tab")
        self.wait_for_focus("Browse")
        self.press("space")
        wait_until(lambda: self.desktop.ask("xdotool", "getwindowfocus") in self.panels(),
                   "the keyboard in the panel")

    def panels(self):
        return self.desktop.ask("xdotool", "search", "--onlyvisible", "--name",
                                f"^{PANEL}$").split()

    def stored(self):
        path = Path(self.desktop.environment["XDG_CONFIG_HOME"]) / "com.jotwell/Jotwell.ini"
        return dict(line.split("=", 1) for line in path.read_text().splitlines() if "=" in line)

    def wait_for_stored(self, **settings):
        wait_until(lambda: settings.items() <= self.stored().items(), f"{settings} stored")

    def wait_for_notes_found(self, command, *names):
        """In the capture window, over the settings."""
        self.desktop.start_program().exit_status()
        self.desktop.wait_for_window()
        wait_until(lambda: self.reader.item("Note editor"), "the field")
        self.press("ctrl+a", "Delete")
        self.desktop.type_text(command)
        # A search begins by itself. Run as well while an index is built, it could be the one to end
        # first, and take its text and with it the other one's panel away.
        if "/search_notes" not in command:
            self.press("ctrl+Return")
        ResultsPanel(self).wait_for(*names)
        self.press("Escape")
        self.desktop.wait_for_no_window()


@contextlib.contextmanager
def screens():
    with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
        yield Screens(desktop)


def make_vault(desktop, *names):
    """A second one; the newest note has the last name."""
    vault = desktop.folder / "second"
    vault.mkdir()
    for name in names:
        (vault / f"{name}.md").write_text(f"Tomatoes for {name}\n")
        time.sleep(0.02)
    return vault


class SettingsScreens(unittest.TestCase):
    def test_all_screens_by_keyboard(self):
        shown = [(Role.PUSH_BUTTON, "Record Shortcut"), (Role.TEXT, "Vault Path"),
                 (Role.CHECK_BOX, "Automatically check for updates"),
                 (Role.CHECK_BOX, "Launch at Login"), None,
                 (Role.HEADING, "Search Notes Settings"), (Role.TEXT, COUNT)]
        with screens() as it:
            for entry, (name, _) in enumerate(ENTRIES):
                it.wait_for_focus(name)
                if shown[entry]:
                    it.reader.find(*shown[entry])
                it.press("Down")
            it.press("Home")
            it.wait_for_focus("Global Hotkey")

    def test_what_the_screens_tell(self):
        with screens() as it:
            items = it.reader.ask(lambda: [(item.name(), item.description())
                                           for item in it.reader.walk()
                                           if item.role() == Role.LIST_ITEM])
            self.assertEqual(items, ENTRIES)
            it.go_to(VAULT)
            for role, name in [(Role.TEXT, "Vault Path"), (Role.PUSH_BUTTON, "Browse"),
                               (Role.HEADING, "Search Index"), (Role.PUSH_BUTTON, "Rebuild Index")]:
                it.reader.find(role, name)
            it.wait_for_label("Index last updated ")
            it.go_to(RECENT)
            self.assertEqual(it.reader.ask(it.reader.find(Role.TEXT, COUNT).text), "10")

    def test_vault_is_chosen_in_the_panel(self):
        with screens() as it:
            vault = make_vault(it.desktop, "Garden")
            it.go_to(VAULT)
            it.ask_for_folder()
            it.desktop.type_text(str(vault))
            time.sleep(COMPLETION)
            it.press("Return")
            wait_until(lambda: not it.panels(), "no panel")
            it.wait_for_stored(ObsidianFolderPath=str(vault))
            it.wait_for_label("Index last updated ")
            it.wait_for_notes_found("/search_notes tomatoes for", "Garden")

    def test_paths_that_are_no_vault(self):
        with screens() as it:
            folder = it.desktop.folder
            (folder / "file").write_text("")
            (folder / "loop").symlink_to("loop")
            it.go_to(VAULT)
            it.press("Tab")
            for path in folder / "gone", folder / "file", folder / "loop", folder / "second":
                it.write_anew("Vault Path", path)
                it.press("Return")
                it.wait_for_stored(ObsidianFolderPath=str(path))
                it.wait_for_label(FAILED)
            make_vault(it.desktop, "Garden")
            it.press("Tab", "Tab")
            it.wait_for_focus("Rebuild Index")
            it.press("space")
            it.wait_for_label("Index last updated ")
            it.wait_for_notes_found("/search_notes tomatoes for", "Garden")

    def test_beginnings_of_a_path_are_not_taken(self):
        with screens() as it:
            vault = make_vault(it.desktop, "Garden")
            it.go_to(VAULT)
            it.write("Vault Path", vault)
            it.desktop.start_program().exit_status()
            it.desktop.wait_for_window()
            it.press("Escape")
            wait_until(it.window.has_focus, "the keyboard in the settings")
            self.assertEqual(it.stored()["ObsidianFolderPath"], str(it.desktop.vault))
            it.window.close()
            it.wait_for_stored(ObsidianFolderPath=str(vault))
            it.wait_for_notes_found("/search_notes tomatoes for", "Garden")

    def test_window_closes_in_the_middle_of_a_build(self):
        with screens() as it:
            vault = make_vault(it.desktop, "Garden")
            hostile_vault.write_huge_note(vault / "huge.md")
            it.go_to(VAULT)
            it.write("Vault Path", f"{vault}/")
            it.press("Return")
            it.wait_for_label("Indexing ")
            it.window.close()
            wait_until(lambda: any("successfully: 2 files" in line for line in it.desktop.log()),
                       "the whole index")  # for which a search waits only so long
            it.wait_for_notes_found("/search_notes Garden", "Garden")
            it.open()
            it.go_to(VAULT)
            it.wait_for_label("Index last updated ")

    def test_panel_is_cancelled_and_left_open(self):
        with screens() as it:
            it.go_to(VAULT)
            it.ask_for_folder()
            it.press("Escape")
            wait_until(lambda: not it.panels(), "no panel")
            wait_until(it.window.has_focus, "the keyboard in the settings")
            it.press("space")
            wait_until(it.panels, "the panel")
            it.window.program.send(signal.SIGTERM)
            self.assertEqual(it.window.program.exit_status(), 0)
            self.assertEqual(it.stored()["ObsidianFolderPath"], str(it.desktop.vault))

    def test_typed_path_survives_the_end_of_the_program(self):
        with screens() as it:
            vault = make_vault(it.desktop, "Garden")
            it.go_to(VAULT)
            it.write("Vault Path", vault)
            it.window.program.send(signal.SIGTERM)
            self.assertEqual(it.window.program.exit_status(), 0)
            self.assertEqual(it.stored()["ObsidianFolderPath"], str(vault))

    def test_number_of_recent_notes(self):
        with screens() as it:
            for name in "Garden", "Shed", "Kitchen":
                (it.desktop.vault / f"{name}.md").write_text(name)
                time.sleep(0.02)
            it.go_to(RECENT)
            it.write(COUNT, "2")
            it.wait_for_stored(RecentFilesCount="2")
            it.wait_for_notes_found("/recent ", "Kitchen", "Shed")
            self.assertTrue(it.window.has_focus())
            it.press("BackSpace")
            it.desktop.type_text("0x1")
            it.wait_for_stored(RecentFilesCount="1")
            it.wait_for_notes_found("/recent ", "Kitchen")

    def test_another_program_changes_the_settings(self):
        with screens() as it:
            vault = make_vault(it.desktop, "Garden")
            it.go_to(VAULT)
            it.desktop.start_program().exit_status()
            it.desktop.wait_for_window()
            it.desktop.write_settings(ObsidianFolderPath=vault, OnboardingCompleted="true")
            it.press("Escape")
            it.desktop.wait_for_no_window()
            field = it.reader.find(Role.TEXT, "Vault Path")
            wait_until(lambda: it.reader.ask(field.text) == str(vault), "the other path")
            it.window.close()
            self.assertEqual(it.stored()["ObsidianFolderPath"], str(vault))


if __name__ == "__main__":
    unittest.main()

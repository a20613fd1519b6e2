"""The welcome of the first start: gone through by keyboard, left half way, and heard."""

import contextlib
import re
import signal
import time
import unittest
from pathlib import Path

import accessibility
from accessibility import Role, ScreenReader, State
from desktop import Desktop
from processes import wait_until

SIZE = "600x600"
PANELS = {"vault": "Select your Obsidian vault folder", "templates": "Select your templates folder"}
COMPLETION = 0.5  # seconds, until the panel has shown what it would complete
TITLE_BAR = 10  # pixels, from the middle of it to the window below
VAULT_WANTED = "Please select your Obsidian vault folder"


class Welcome:
    """Jotwell's first start, with the welcome before the user."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.reader = ScreenReader(desktop)
        self.start()

    def start(self):
        self.program = self.desktop.start_program(**accessibility.ENVIRONMENT)
        wait_until(self.has_focus, "the keyboard in the welcome")
        self.wait_for_step(1)

    def stop(self):
        self.program.send(signal.SIGTERM)
        if self.program.exit_status():
            raise AssertionError("The program doesn't end well")

    def ids(self, title="Welcome to Jotwell"):
        self.desktop.wake_window_manager()
        return self.desktop.ask("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split()

    def has_focus(self, title="Welcome to Jotwell"):
        return self.desktop.ask("xdotool", "getwindowfocus") in self.ids(title)

    def press(self, *keys):
        self.desktop.press(*keys)

    def wait_for_step(self, number):
        self.reader.find(Role.LABEL, f"Step {number} of 5")

    def wait_for_toast(self, message):
        """In the welcome: the hidden capture window has it too."""
        def shown():
            return [item for item in self.reader.walk() if item.is_showing()
                    and (item.role(), item.name()) == (Role.NOTIFICATION, message)]
        wait_until(lambda: len(self.reader.ask(shown)) == 1, message)

    def go_on(self, step):
        """By Return, to that step."""
        self.press("Return")
        self.wait_for_step(step)

    def press_choose(self):
        """From the button that goes on, or where it would be."""
        self.press("Tab")
        while not self._is_focused("Choose..."):
            self.press("Tab")
        self.press("space")

    def ask_for_folder(self, kind):
        """The same, to an open panel."""
        self.press_choose()
        wait_until(lambda: self.has_focus(PANELS[kind]), "the keyboard in the panel")

    def _is_focused(self, beginning):
        time.sleep(0.1)
        return self.reader.ask(lambda: any(
            State.FOCUSED in item.states() and item.name().startswith(beginning)
            for item in self.reader.walk()))

    def choose(self, kind, path):
        self.ask_for_folder(kind)
        self.desktop.type_text(str(path))
        time.sleep(COMPLETION)
        self.press("Return")
        wait_until(lambda: not self.ids(PANELS[kind]), "no panel")
        wait_until(self.has_focus, "the keyboard in the welcome")

    def to_the_way_on(self, name="Continue"):
        while not self._is_focused(name):
            self.press("Tab")

    def wait_for_end(self):
        wait_until(lambda: not self.ids(), "no welcome")

    def press_close_button(self):
        """Of the window manager, whatever lies over the rest of the window."""
        told = self.desktop.ask("xwininfo", "-id", wait_until(self.ids, "the welcome")[0])
        x, y, width = (int(re.search(rf"{name}: +(-?\d+)", told)[1]) for name in (
            "Absolute upper-left X", "Absolute upper-left Y", "Width"))
        self.desktop.ask("xdotool", "mousemove", "--sync", str(x + width - 8),
                         str(y - TITLE_BAR), "click", "1", "sleep", "0.5")

    def close(self):
        self.press("alt+F4")
        self.wait_for_end()

    def stored(self):
        path = Path(self.desktop.environment["XDG_CONFIG_HOME"]) / "com.jotwell/Jotwell.ini"
        if not path.exists():
            return {}
        return dict(line.split("=", 1) for line in path.read_text().splitlines() if "=" in line)


@contextlib.contextmanager
def welcome(**options):
    with Desktop(bus_services=accessibility.BUS_SERVICES, **options) as desktop:
        yield Welcome(desktop)


class Onboarding(unittest.TestCase):
    def test_whole_way_by_keyboard(self):
        with welcome() as it:
            desktop = it.desktop
            (desktop.vault / "Garden.md").write_text("Water the tomatoes\n")
            templates = desktop.folder / "my templates"
            templates.mkdir()
            (templates / "Errand.md").write_text("Errand: {{content}}")
            it.go_on(2)
            it.press("Return")
            it.wait_for_step(2)
            it.choose("vault", desktop.vault)
            it.reader.find(Role.LABEL, f"Obsidian vault: {desktop.vault}")
            self.assertEqual(it.stored(), {})
            it.to_the_way_on()
            it.go_on(3)
            it.choose("templates", f"{templates}/")
            it.reader.find(Role.LABEL, f"Templates folder: {templates}")
            it.to_the_way_on()
            it.go_on(4)
            it.go_on(5)
            it.press("Return")
            it.wait_for_end()
            stored = it.stored()
            self.assertEqual(stored["ObsidianFolderPath"], str(desktop.vault))
            self.assertEqual(stored["TemplatesFolderPath"], str(templates))
            self.assertEqual(stored["OnboardingCompleted"], "true")
            self.assertNotIn("LaunchAtLogin", stored)
            desktop.call_up()
            wait_until(lambda: it.reader.item("Note editor"), "the field")
            desktop.type_text("/search_notes garden")
            it.press("ctrl+Return")
            it.reader.find(Role.LIST_ITEM, "Garden")
            desktop.type_text("Call Ada /new_note")
            it.press(*["BackSpace"] * len("Default"))
            desktop.type_text("Err")
            it.reader.find(Role.LIST_ITEM, "Errand")
            it.press("Return")
            it.press("ctrl+Return")
            [note] = wait_until(lambda: set(desktop.notes()) - {desktop.vault / "Garden.md"},
                                "a note")
            self.assertEqual(note.read_text(), "Errand: Call Ada")
            it.stop()
            desktop.start_program()
            wait_until(lambda: desktop.owns_name("com.jotwell.Jotwell"), "the program")
            desktop.call_up()
            self.assertEqual(it.ids(), [])

    def test_skip_of_the_first_step(self):
        with welcome() as it:
            it.to_the_way_on("Skip")
            it.press("space")
            it.wait_for_end()
            self.assertEqual(it.stored(), {"OnboardingCompleted": "true"})
            it.stop()
            it.desktop.start_program()
            wait_until(lambda: it.desktop.owns_name("com.jotwell.Jotwell"), "the program")
            it.desktop.call_up()
            self.assertEqual(it.ids(), [])

    def test_vault_is_asked_for(self):
        with welcome() as it:
            it.go_on(2)
            it.to_the_way_on("Skip")
            it.press("space")
            it.wait_for_toast(VAULT_WANTED)
            it.wait_for_step(2)
            self.assertEqual(it.stored(), {})

    def test_keyboard_survives_the_way_back(self):
        with welcome() as it:
            it.go_on(2)
            it.to_the_way_on("Back")
            it.press("space")
            it.wait_for_step(1)
            it.to_the_way_on()
            it.go_on(2)
            it.press("Tab")
            self.assertTrue(it.has_focus())

    def test_left_half_way_it_comes_again(self):
        with welcome() as it:
            it.go_on(2)
            it.choose("vault", it.desktop.vault)
            it.close()
            self.assertEqual(it.stored(), {})
            self.assertTrue(it.program.is_running())
            it.desktop.call_up()
            it.press("Escape")
            it.desktop.wait_for_no_window()
            it.stop()
            it.start()

    def test_start_at_login_acts_at_once_and_stays(self):
        with welcome() as it:
            entry = Path(it.desktop.environment["XDG_CONFIG_HOME"],
                         "autostart/com.jotwell.Jotwell.desktop")
            it.go_on(2)
            it.choose("vault", it.desktop.vault)
            it.to_the_way_on()
            it.go_on(3)
            it.go_on(4)
            it.to_the_way_on("Launch at Login")
            it.press("space")
            wait_until(entry.exists, "the entry")
            wait_until(it.stored, "the settings")
            self.assertEqual(it.stored(), {"LaunchAtLogin": "true"})
            it.close()
            self.assertTrue(entry.exists())

    def test_cancelled_panel_changes_nothing(self):
        with welcome() as it:
            it.go_on(2)
            it.ask_for_folder("vault")
            it.press("Escape")
            wait_until(lambda: not it.ids(PANELS["vault"]), "no panel")
            it.reader.find(Role.LABEL, "Obsidian vault: No folder selected")
            wait_until(it.has_focus, "the keyboard in the welcome")
            it.choose("vault", it.desktop.vault)
            it.ask_for_folder("vault")
            it.press("Escape")
            it.reader.find(Role.LABEL, f"Obsidian vault: {it.desktop.vault}")

    def test_closing_under_an_open_panel(self):
        with welcome() as it:
            it.go_on(2)
            it.ask_for_folder("vault")
            it.press_close_button()
            self.assertTrue(it.program.is_running())
            self.assertEqual((len(it.ids()), len(it.ids(PANELS["vault"]))), (1, 1))
            it.press("Escape")
            wait_until(it.has_focus, "the keyboard in the welcome")
            it.press_close_button()
            it.wait_for_end()
            self.assertEqual(it.stored(), {})
            it.desktop.call_up()
            it.stop()

    def test_end_under_an_open_panel(self):
        with welcome() as it:
            it.go_on(2)
            it.ask_for_folder("vault")
            it.stop()
            self.assertEqual(it.stored(), {})

    def test_window(self):
        with welcome() as it:
            [window] = it.ids()
            self.assertIn(f"Geometry: {SIZE}",
                          it.desktop.ask("xdotool", "getwindowgeometry", window))

    def test_small_screen_has_all_of_it(self):
        with welcome(size="960x500") as it:
            for name in "Continue", "Skip":
                x, y, width, height = it.reader.ask(it.reader.find(Role.PUSH_BUTTON, name).place)
                self.assertTrue(x >= 0 and y >= 0 and x + width <= 960 and y + height <= 500,
                                f"{name} at {(x, y, width, height)}")


if __name__ == "__main__":
    unittest.main()

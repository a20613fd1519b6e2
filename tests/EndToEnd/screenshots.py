"""Takes the README's pictures from the real program, into the folder that is named."""

import sys
import time
from pathlib import Path

import accessibility
import demo_vault
from desktop import Desktop, is_green
from editor import Editor
from onboarding import Welcome
from portal import DARK, LIGHT, SettingsPortal
from settings import SettingsWindow
from settings_templates import Templates
from windows import OtherWindow

_SCREEN = 1280, 800
_WIDTH = 860
_MARGIN = 40  # takes in the card's shadow
_ALONE, _WITH_LIST, _WITH_NOTES = 164, 264, 484  # heights of the card
_TO_SETTLE = 0.6  # seconds: longer than anything moves

THOUGHT = "Call Ada about the **garden** tools #garden"
MORE_NOTES = {
    "Tools.md": "# Tools\n\nWhat lies in the garden shed: spade, rake, hoe, shears and the old saw.\n",
    "Spring.md": "# Spring\n\nSharpen the tools before the garden wakes up. Peas first, then beets.\n",
    "Neighbours.md": "Ada has the long ladder, Ben the garden hose; tools go back on Sunday.\n",
}


class Photographer:
    """Takes one picture after another of a card on a white ground."""

    def __init__(self, folder, color_scheme):
        self._folder = Path(folder)
        self._color_scheme = color_scheme

    def __enter__(self):
        self._desktop = Desktop(bus_services=accessibility.BUS_SERVICES)
        desktop = self._desktop.__enter__()
        SettingsPortal(desktop, color_scheme=self._color_scheme)
        OtherWindow(desktop, "x".join(map(str, _SCREEN)) + "+0+0")
        demo_vault.write_notes(desktop.vault)
        for name, text in MORE_NOTES.items():
            (desktop.vault / name).write_text(text)
        self.editor = Editor(desktop)
        return self

    def __exit__(self, *problem):
        self._desktop.__exit__(*problem)

    def take(self, name, card_height):
        time.sleep(_TO_SETTLE)
        self._save(name, card_height)

    def take_toast(self, name):
        self._desktop.wait_for_banner(is_green)
        self.take(name, _ALONE)

    def _save(self, name, card_height):
        height = card_height + 2 * _MARGIN
        left, top = (_SCREEN[0] - _WIDTH) // 2, (_SCREEN[1] - height) // 2
        path = self._folder / f"{name}.png"
        self._desktop.ask("import", "-window", "root", "-crop",
                          f"{_WIDTH}x{height}+{left}+{top}", "+repage", "-strip", str(path))
        print(path)


def take_window(desktop, title, folder, name):
    """What stands in a window of that title, without its frame."""
    time.sleep(_TO_SETTLE)
    [window] = desktop.ask("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split()
    path = Path(folder) / f"{name}.png"
    desktop.ask("import", "-window", window, "-strip", str(path))
    print(path)


def take_welcome(folder):
    with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
        SettingsPortal(desktop, color_scheme=LIGHT)
        Welcome(desktop)
        take_window(desktop, "Welcome to Jotwell", folder, "welcome")


def take_settings(folder):
    with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
        portal = SettingsPortal(desktop, color_scheme=LIGHT)
        window = SettingsWindow(desktop, **accessibility.ENVIRONMENT)
        Templates(window)
        take_window(desktop, "Settings", folder, "settings-templates")
        portal.set_color_scheme(DARK)
        desktop.press("Home")
        take_window(desktop, "Settings", folder, "settings-hotkey")


def take_all(folder):
    take_welcome(folder)
    take_settings(folder)
    with Photographer(folder, LIGHT) as it:
        it.editor.type("Call Ada /")
        it.editor.wait_for_rows("/new_note", "/search_notes", "/recent")
        it.take("dropdown", _WITH_LIST)
        it.editor.empty()
        it.editor.type("/search_notes garden tools")
        it.editor.press("ctrl+Return")
        it.editor.wait_for("")
        it.editor.press("Tab")
        it.take("results", _WITH_NOTES)
        it.editor.press("Up")
        capture(it, "capture-light")
        it.editor.press("ctrl+Return")
        it.take_toast("toast")
    with Photographer(folder, DARK) as it:
        capture(it, "capture-dark")


def capture(it, name):
    it.editor.type(f"{THOUGHT} /new_note")
    it.editor.wait_for(f"{THOUGHT} /new_note  $Default")
    it.editor.type(" ")
    it.editor.wait_for_rows()
    it.take(name, _ALONE)


if __name__ == "__main__":
    take_all(sys.argv[1])

"""Shows Jotwell at work where there is no display: a thought becomes a note in a vault and is found
there again. Pictures of it stay in build/demo."""

import shutil
import signal
from pathlib import Path

import accessibility
import demo_vault
from desktop import Desktop, is_green
from editor import Editor, is_parameter_chip
from opened import OpenedUrls
from processes import wait_until
from results_panel import ResultsPanel

PICTURES = Path(__file__).resolve().parents[2] / "build" / "demo"
THOUGHT = "Call Ada about the garden"
KNOWN = "garden tools"
UNKNOWN = "rhinoceros"


class Demonstration:
    def __init__(self, desktop):
        self._desktop = desktop
        self._pictures = 0

    def start(self):
        desktop = self._desktop
        print("A desktop of its own: X server, session bus, window manager, compositor.")
        demo_vault.write_notes(desktop.vault)
        print(f"A vault with {len(demo_vault.NOTES)} notes: {desktop.vault}")
        self._opened = OpenedUrls(desktop)
        self._editor = Editor(desktop, program=self._opened.environment)
        self._panel = ResultsPanel(self._editor)
        self._reader = self._editor.reader
        print("Jotwell has started and shows its capture window.")
        self._picture("empty")
        return self._editor.program

    def capture(self):
        editor = self._editor
        self._type(f"{THOUGHT} /ne")
        editor.wait_for_rows("/new_note")
        self._picture("commands")
        self._choose(f"{THOUGHT} /new_note  $Default")
        editor.click(editor.chip_place(is_parameter_chip))
        editor.wait_for_rows("Default", "Meeting", "Daily Note")
        print("Clicked on the template.")
        editor.press("Down", "Down")
        editor.wait_for_selected("Daily Note")
        self._picture("templates")
        self._choose(f"{THOUGHT} /new_note  $Daily Note")
        self._picture("chips")
        self._run()
        [note] = wait_until(lambda: list(self._desktop.vault.glob(f"{THOUGHT} - *.md")), "a note")
        self._desktop.wait_for_banner(is_green)
        self._picture("saved")
        print(f"The note: {note}\n")
        text = note.read_text()
        print("\n".join(f"    {line}" for line in text.splitlines()), "\n")
        _check(f"## Today's Focus\n{THOUGHT}\n" in text, "the note holds the thought")
        return note.stem

    def search(self):
        self._type("Ask about #r")
        self._editor.wait_for_rows("#recipe", "#repairs")
        self._picture("tags")
        self._choose("Ask about #recipe ")
        self._editor.empty()

        self._type(f"/search_notes {UNKNOWN}")
        self._run()
        toast = f"No notes found matching '{UNKNOWN}'"
        wait_until(lambda: toast in self._reader.texts(), "the toast")
        print(f"A toast says: {toast}")
        self._picture("nothing-found")

        for query, expected in {
            KNOWN: {"Garden", "Shed"},
            "#garden": {"Garden", "Shed"},
            "south wall": {"Garden"},
        }.items():
            self._find(f"/search_notes {query}", expected)
        self._picture("found")

    def open_recent_note(self, note):
        self._editor.press("ctrl+3")
        print("Pressed Ctrl+3.")
        found = wait_until(lambda: [name for name in self._panel.names() if name == note],
                           "the new note among the recent ones")
        _check(found == [note], "the new note is listed once")
        self._editor.press("Tab")
        self._panel.wait_for_selected(note)
        self._picture("recent")
        self._editor.press("Return")
        self._desktop.wait_for_no_window()
        [url] = wait_until(self._opened.all, "an opened note")
        print(f"Pressed Tab and Return. Obsidian is handed: {url}")

    def _find(self, query, expected):
        self._type(query)
        self._run()
        self._editor.wait_for("")
        wait_until(lambda: set(self._panel.names()) == expected, f"«{query}» finds {expected}")
        print(f"    found: {', '.join(self._panel.names())}")

    def show_again(self):
        print("The window is hidden, and Jotwell goes on running.")
        self._desktop.start_program().exit_status()
        self._desktop.wait_for_window()
        print("Started Jotwell once more: the one that runs shows its window again.")

    def end(self, program):
        program.send(signal.SIGTERM)
        _check(program.exit_status() == 0, "Jotwell ends cleanly")
        print("Asked it to end: it did, with exit status 0.")

    def _type(self, text):
        self._editor.type(text)
        self._editor.wait_for(text)
        print(f"Typed: {text}")

    def _choose(self, result):
        self._editor.press("Return")
        self._editor.wait_for(result)
        self._editor.wait_for_rows()
        print(f"Pressed Return: {result}")

    def _run(self):
        self._desktop.press("ctrl+Return")
        print("Pressed Ctrl+Return.")

    def _picture(self, name):
        self._pictures += 1
        path = PICTURES / f"{self._pictures}-{name}.png"
        self._desktop.screenshot(path)
        print(f"    picture: {path}")


def _check(is_so, what):
    if not is_so:
        raise AssertionError(f"Not so: {what}")


def main():
    shutil.rmtree(PICTURES, ignore_errors=True)
    PICTURES.mkdir(parents=True)
    with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
        demonstration = Demonstration(desktop)
        program = demonstration.start()
        note = demonstration.capture()
        demonstration.search()
        demonstration.open_recent_note(note)
        demonstration.show_again()
        demonstration.end(program)


if __name__ == "__main__":
    main()

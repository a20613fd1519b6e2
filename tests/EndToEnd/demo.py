"""Shows Jotwell at work where there is no display: a thought becomes a note in a vault, and
pictures of it stay in build/demo."""

import shutil
import signal
from pathlib import Path

from desktop import Desktop, is_green
from processes import wait_until

PICTURES = Path(__file__).resolve().parents[2] / "build" / "demo"
THOUGHT = "Call Ada about the garden"


def main():
    shutil.rmtree(PICTURES, ignore_errors=True)
    PICTURES.mkdir(parents=True)
    with Desktop() as desktop:
        def picture(name):
            desktop.screenshot(PICTURES / name)
            print(f"    picture: {PICTURES / name}")

        print("A desktop of its own: X server, session bus, window manager, compositor.")
        desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="false")
        program = desktop.start_program()
        desktop.wait_for_window()
        print("Jotwell has started and shows its capture window.")
        picture("1-empty.png")

        desktop.type_text(f"{THOUGHT} /new_note  $Daily Note")
        print(f"Typed: {THOUGHT} /new_note  $Daily Note")
        picture("2-typed.png")

        desktop.press("ctrl+Return")
        print("Pressed Ctrl+Return.")
        [note] = wait_until(desktop.notes, "a note in the vault")
        desktop.wait_for_banner(is_green)
        picture("3-saved.png")
        print(f"The note: {note}\n")
        text = note.read_text()
        print("\n".join(f"    {line}" for line in text.splitlines()), "\n")
        if f"## Today's Focus\n{THOUGHT}\n" not in text:
            raise AssertionError("The note doesn't hold the thought.")

        desktop.press("Escape")
        desktop.wait_for_no_window()
        print("Pressed Escape: the window is hidden, and Jotwell goes on running.")
        desktop.start_program().exit_status()
        desktop.wait_for_window()
        print("Started Jotwell once more: the one that runs shows its window again.")
        program.send(signal.SIGTERM)
        if program.exit_status() != 0:
            raise AssertionError("Jotwell doesn't end cleanly.")
        print("Asked it to end: it did, with exit status 0.")


if __name__ == "__main__":
    main()

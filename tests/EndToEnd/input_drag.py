"""Text that the mouse drags: within the editor, out of it and into it."""

import contextlib
import unittest

from editor import editing
from processes import wait_until

HIGHER, LOWER = -100, 250  # the tops of two windows whose cards don't overlap then
NOWHERE = 3, 790  # where nothing takes text
STEPS = 8


class Dragging(unittest.TestCase):
    def drag(self, desktop, start, end):
        """Presses the mouse at the one place and lets it go at the other, once the pointer shows
        that the text is welcome there."""
        desktop.ask("xdotool", "mousemove", *map(str, start), "mousedown", "1")
        shape = desktop.pointer_shape
        unwelcome = {shape()}
        self.move(desktop, start, NOWHERE)
        wait_until(lambda: shape() not in unwelcome, "the pointer of a drag")
        wait_until(lambda: len({shape() for _ in range(20)}) == 1, "the pointer over nothing")
        unwelcome.add(shape())
        self.move(desktop, NOWHERE, end)
        wait_until(lambda: shape() not in unwelcome, "the pointer of a drag that is welcome")
        desktop.ask("xdotool", "mouseup", "1")

    def move(self, desktop, start, end):
        for step in range(1, STEPS + 1):
            place = [a + (b - a) * step // STEPS for a, b in zip(start, end)]
            desktop.ask("xdotool", "mousemove", *map(str, place))

    def test_selection_moves_within_the_editor(self):
        with editing() as editor:
            desktop = editor.desktop
            editor.type("one two three")
            editor.press("Home", "ctrl+shift+Right")
            wait_until(lambda: editor.cursor() == len("one "), "the selection")
            x, y = editor.start_of_text()
            before = self.window_places(desktop)
            self.drag(desktop, (x, y), (x + 400, y))
            editor.wait_for("two threeone ")
            # The window doesn't hang on the pointer, and has its keys.
            desktop.ask("xdotool", "mousemove", str(x), str(y + 60))
            editor.press("ctrl+z")
            editor.wait_for("one two three")
            self.assertEqual(self.window_places(desktop), before)

    def test_token_that_is_moved_is_read_anew(self):
        with editing() as editor:
            editor.type("note /se")
            editor.wait_for_rows("/search_notes")
            editor.press("Home", "ctrl+shift+Right")
            x, y = editor.start_of_text()
            self.drag(editor.desktop, (x, y), (x + 400, y))
            editor.wait_for("/senote ")
            editor.wait_for_rows()

    def test_selection_goes_to_another_program(self):
        with self.two_programs() as (editor, other):
            self.focus(editor.desktop, editor.window)
            editor.type("Call Ada today")
            editor.press("Home", "ctrl+shift+Right", "ctrl+shift+Right")
            wait_until(lambda: editor.cursor() == len("Call Ada "), "the selection")
            x, y = editor.start_of_text()
            self.drag(editor.desktop, (x, y), (x, y + HIGHER - LOWER))
            editor.wait_for("today")
            self.focus(editor.desktop, other)
            editor.press("End")
            editor.type("/new_note")
            editor.press("ctrl+Return")
            [note] = wait_until(lambda: list(self.other_vault.glob("*.md")), "a note")
            self.assertTrue(note.read_text().startswith("# Call Ada\n"), note.read_text())

    def test_text_comes_from_another_program(self):
        with self.two_programs() as (editor, other):
            self.focus(editor.desktop, other)
            editor.type("Call Ada")
            editor.press("ctrl+a")
            x, y = editor.start_of_text()
            self.drag(editor.desktop, (x, y + HIGHER - LOWER), (x, y))
            editor.wait_for("Call Ada")

    @contextlib.contextmanager
    def two_programs(self):
        """An editor, and the window of another Jotwell that has nothing to do with it."""
        with editing() as editor:
            desktop = editor.desktop
            [editor.window] = desktop.visible_windows()
            desktop.start_program(**self.other_environment(desktop.folder / "other"))
            desktop.call_up("ctrl+alt+n")
            wait_until(lambda: len(desktop.visible_windows()) == 2, "another window")
            [other] = set(desktop.visible_windows()) - {editor.window}
            for window, top in (editor.window, LOWER), (other, HIGHER):
                desktop.ask("xdotool", "windowmove", "--sync", window, "x", str(top))
            yield editor, other

    def other_environment(self, folder):
        self.other_vault = folder / "vault"
        for name in "vault", "config/com.jotwell", "data", "runtime":
            (folder / name).mkdir(mode=0o700, parents=True)
        (folder / "config/com.jotwell/Jotwell.ini").write_text(
            f"[General]\nObsidianFolderPath={self.other_vault}\nOnboardingCompleted=true\n"
            "GlobalHotkeyCode=45\n")
        return {"DBUS_SESSION_BUS_ADDRESS": "", "XDG_CONFIG_HOME": str(folder / "config"),
                "XDG_DATA_HOME": str(folder / "data"), "XDG_RUNTIME_DIR": str(folder / "runtime")}

    def focus(self, desktop, window):
        desktop.ask("xdotool", "windowactivate", "--sync", window)
        wait_until(lambda: desktop.ask("xdotool", "getwindowfocus") == window, "the keyboard")

    def window_places(self, desktop):
        return [desktop.ask("xdotool", "getwindowgeometry", window)
                for window in desktop.visible_windows()]


if __name__ == "__main__":
    unittest.main()

"""Someone who doesn't see the window: all is told, all can be pressed, and what happens is said."""

import contextlib
import unittest

import accessibility
import hostile_vault
from accessibility import Role, Speech, State
from desktop import Desktop
from editor import Editor
from panel import Panel
from processes import wait_until

TOAST = "Set up this command first in the app settings"
HINTS = "Use Tab to switch to notes, ↑↓ to navigate, Enter to open"

FRAME = Role.FRAME, "Jotwell", "Jotwell", State.SHOWING
EDITOR = (Role.TEXT, "Note editor", "What's on your mind right now?",
          State.EDITABLE | State.FOCUSABLE | State.FOCUSED | State.SHOWING)
CREATE_NOTE = Role.PUSH_BUTTON, "Create Note", "Ctrl+Return", State.SHOWING
NEW_NOTE = Role.PUSH_BUTTON, "/new_note", "Ctrl+1", State.SHOWING
SEARCH_NOTES = Role.PUSH_BUTTON, "/search_notes", "Ctrl+2", State.SHOWING
RECENT = Role.PUSH_BUTTON, "/recent", "Ctrl+3", State.SHOWING
EMPTY = [FRAME, EDITOR, NEW_NOTE, SEARCH_NOTES, RECENT]


def row(name, description, states=State(0)):
    return (Role.LIST_ITEM, name, description,
            State.FOCUSABLE | State.SELECTABLE | State.SHOWING | states)


SELECTED = State.SELECTED | State.FOCUSED
COMPLETIONS = [
    (Role.LIST, "Completions", "", State.SHOWING),
    row("/new_note", "Create new note", SELECTED),
    row("/search_notes", "Search notes in Obsidian"),
    row("/recent", "Show recent notes"),
]


def recent_notes(*selected):
    rows = [("Sauce", ".../Kitchen/Sauce.md"), ("Shed", ".../vault/Shed.md"),
            ("Garden", ".../vault/Garden.md")]
    return [
        (Role.LABEL, HINTS, "", State.FOCUSABLE | State.SHOWING),
        (Role.LABEL, "3 notes", "", State.FOCUSABLE | State.SHOWING),
        (Role.LIST, "Notes", "", State.SHOWING),
        *(row(name, path, SELECTED if name in selected else State(0)) for name, path in rows),
    ]


def told(item):
    return item.role(), item.name(), item.description(), item.states()


def refuse_commands(desktop):
    """From now on each says by a toast what it lacks."""
    desktop.write_settings(OnboardingCompleted="true")


@contextlib.contextmanager
def reading(**options):
    with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
        it = Panel(desktop, **options)
        it.reader = it.editor.reader
        it.wait_for = lambda *things: wait_for(it.reader, *things)
        wait_for(it.reader, *EMPTY)
        yield it


def wait_for(reader, *things):
    """Waits until there is just that to find, in this order."""
    def walk():
        return reader.ask(lambda: [told(item) for item in reader.walk()])
    with contextlib.suppress(AssertionError):
        wait_until(lambda: walk() == list(things), "it", patience=10)
    if (found := walk()) != list(things):
        raise AssertionError("\n".join(map(str, ["Found", *found, "not", *things])))


class Walk(unittest.TestCase):
    """What there is to find. Nothing more is: nothing hidden, nameless, decorative or twice."""

    def test_list(self):
        with reading() as it:
            it.editor.type("/")
            it.wait_for(*EMPTY, *COMPLETIONS)
            it.editor.press("BackSpace")
            it.wait_for(*EMPTY)

    def test_create_note_button(self):
        with reading() as it:
            it.editor.type("Call Ada /new_note ")
            it.wait_for(FRAME, EDITOR, CREATE_NOTE, SEARCH_NOTES, RECENT)
            it.editor.empty()
            it.wait_for(FRAME, EDITOR, NEW_NOTE, SEARCH_NOTES, RECENT)

    def test_panel(self):
        with reading() as it:
            it.editor.press("ctrl+3")
            it.wait_for(*EMPTY, *recent_notes())
            it.editor.press("Tab")
            it.wait_for(*EMPTY, *recent_notes("Sauce"))
            it.editor.press("Down")
            it.wait_for(*EMPTY, *recent_notes("Shed"))
            it.editor.empty()
            it.wait_for(*EMPTY)

    def test_toast(self):
        with reading() as it:
            refuse_commands(it.desktop)
            it.editor.press("ctrl+3")
            it.wait_for(*EMPTY, (Role.NOTIFICATION, TOAST, "", State.SHOWING),
                        (Role.PUSH_BUTTON, "Dismiss", "", State.SHOWING))
            it.editor.empty()
            it.wait_for(*EMPTY)

    def test_build(self):
        with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
            hostile_vault.write_huge_note(desktop.vault / "huge.md")
            reader = Editor(desktop).reader
            wait_for(reader, *EMPTY,
                     (Role.PROGRESS_BAR, "Indexing vault...", "0 of 1 files", State.SHOWING))


class Presses(unittest.TestCase):
    def press(self, it, role, name):
        it.reader.ask(it.reader.find(role, name).press)

    def test_new_note_and_create_note(self):
        with reading() as it:
            before = set(it.desktop.notes())
            self.press(it, Role.PUSH_BUTTON, "/new_note")
            it.editor.wait_for("/new_note  $Default ")
            it.editor.type("Call Ada")
            self.press(it, Role.PUSH_BUTTON, "Create Note")
            [note] = wait_until(lambda: set(it.desktop.notes()) - before, "a note")
            self.assertIn("Call Ada", note.read_text())
            it.editor.wait_for("")

    def test_search_notes_and_a_note_that_was_found(self):
        with reading() as it:
            self.press(it, Role.PUSH_BUTTON, "/search_notes")
            it.editor.wait_for("/search_notes ")
            it.editor.type("garden tools")
            self.press(it, Role.LIST_ITEM, "Garden")
            it.wait_until_opened("Garden.md")

    def test_recent_notes(self):
        with reading() as it:
            self.press(it, Role.PUSH_BUTTON, "/recent")
            it.editor.wait_for("/recent  $All Folders ")
            self.press(it, Role.LIST_ITEM, "Shed")
            it.wait_until_opened("Shed.md")

    def test_completion(self):
        with reading() as it:
            it.editor.type("/")
            self.press(it, Role.LIST_ITEM, "/search_notes")
            it.editor.wait_for("/search_notes")
            it.editor.wait_for_rows()
            it.editor.type(" x")
            it.editor.wait_for("/search_notes x")

    def test_dismissal_of_a_toast(self):
        with reading() as it:
            refuse_commands(it.desktop)
            it.editor.press("ctrl+3")
            self.press(it, Role.PUSH_BUTTON, "Dismiss")
            wait_until(lambda: TOAST not in it.reader.texts(), "no toast", patience=1)
            it.editor.type("x")
            it.editor.wait_for("/recent  $All Folders x")


class Announcements(unittest.TestCase):
    editor = Role.TEXT, "Note editor"

    def test_completions(self):
        with reading() as it:
            speech = Speech(it.desktop)
            it.editor.type("/")
            speech.wait_for((Role.LIST_ITEM, "/new_note"))
            for key, name in [("Down", "/search_notes"), ("Down", "/recent"),
                              ("Up", "/search_notes"), ("Up", "/new_note")]:
                it.editor.press(key)
                speech.wait_for((Role.LIST_ITEM, name))
            it.editor.press("BackSpace")
            speech.wait_for(self.editor)

    def test_notes(self):
        with reading() as it:
            speech = Speech(it.desktop)
            it.editor.press("ctrl+3")
            it.editor.wait_for("/recent  $All Folders ")
            it.reader.find(Role.LIST_ITEM, "Garden")
            speech.forget()
            for key, name in [("Tab", "Sauce"), ("Down", "Shed"), ("Down", "Garden"),
                              ("Up", "Shed"), ("Up", "Sauce")]:
                it.editor.press(key)
                speech.wait_for((Role.LIST_ITEM, name))
            it.editor.press("Up")
            speech.wait_for(self.editor)

    def test_toasts(self):
        with reading() as it:
            speech = Speech(it.desktop)
            refuse_commands(it.desktop)
            for _ in range(3):
                it.editor.press("ctrl+3")
                speech.wait_for((Role.NOTIFICATION, TOAST))


if __name__ == "__main__":
    unittest.main()

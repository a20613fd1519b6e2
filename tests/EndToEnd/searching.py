"""A window over a vault that is searched, and what the index says and keeps of it."""

import contextlib
import sqlite3
import time
import unittest
from pathlib import Path

import accessibility
from desktop import Desktop
from processes import PATIENCE, wait_until

LONGEST_HANG = 2  # seconds that a key may take to show, whatever the vault holds

_LOG_LINES = {"QT_MESSAGE_PATTERN": "%{type} %{category}: %{message}"}


class SearchWindow:
    """Jotwell over the vault of a desktop that has `accessibility.BUS_SERVICES`."""

    def __init__(self, desktop, **options):
        self.desktop = desktop
        desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
        self._lines_before = len(desktop.log())
        self.program = desktop.start_program(**accessibility.ENVIRONMENT, **_LOG_LINES, **options)
        desktop.call_up()
        self._reader = accessibility.ScreenReader(desktop)

    def log(self):
        """The lines that this start of the program has logged so far."""
        return self.desktop.log()[self._lines_before:]

    def wait_for_log(self, text, patience=PATIENCE):
        wait_until(lambda: any(text in line for line in self.log()), f"«{text}» in the log",
                   patience)

    def wait_for_index(self, patience=PATIENCE):
        self.wait_for_log("Index built successfully: ", patience)

    def finds(self, query):
        """Whether a search for it finds anything: it says so if it doesn't."""
        toast = f"No notes found matching '{query}'"
        wait_until(lambda: toast not in self._reader.texts(), "the end of the last toast")
        self._send(query)
        wait_until(lambda: not self._holds(query), "the end of the search")
        return toast not in self._reader.texts()

    def wait_until_refused(self, query, toast):
        """Searches, and waits until that toast says why it can't. Takes back what it has typed."""
        self._send(query)
        wait_until(lambda: toast in self._reader.texts(), f"the toast «{toast}»")
        self.desktop.press("ctrl+a", "Delete")
        wait_until(lambda: not self._holds(query), "an empty editor")

    def slowest_key(self, is_over, what, patience=PATIENCE):
        """Types until `is_over`, and gives the longest time that a key took to show, and how many
        there were."""
        delays = []
        deadline = time.monotonic() + patience
        while not is_over():
            if time.monotonic() > deadline:
                raise AssertionError(f"{what}: not within {patience} s")
            typed = "x" * (len(delays) + 1)
            start = time.monotonic()
            self.desktop.press("x")
            wait_until(lambda text=typed: text in self._reader.texts(), "the key")
            delays.append(time.monotonic() - start)
        self.desktop.press("ctrl+a", "Delete")
        return max(delays), len(delays)

    def toggle(self):
        """Hides the window and shows it again; gives the time that this takes."""
        start = time.monotonic()
        self.desktop.start_program().exit_status()
        self.desktop.wait_for_no_window()
        self.desktop.start_program().exit_status()
        self.desktop.wait_for_window()
        return time.monotonic() - start

    def _send(self, query):
        self.desktop.type_text(f"/search_notes {query}")
        wait_until(lambda: self._holds(query), "the query")
        self.desktop.press("ctrl+Return")

    def _holds(self, query):
        return f"/search_notes {query}" in self._reader.texts()


class SearchTest(unittest.TestCase):
    @contextlib.contextmanager
    def searching(self, *, fill=lambda vault: None, **options):
        """A window over a vault that `fill` has put notes into."""
        with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
            fill(desktop.vault)
            yield SearchWindow(desktop, **options)


def database_file(desktop):
    return Path(desktop.environment["XDG_DATA_HOME"]) / "com.jotwell" / "TagIndex.db"


def ask_database(desktop, statement):
    """The rows of a database that must be there, sound or not."""
    with contextlib.closing(sqlite3.connect(f"file:{database_file(desktop)}?mode=ro", uri=True,
                                            timeout=PATIENCE)) as database:
        return database.execute(statement).fetchall()


def is_sound(desktop):
    return ask_database(desktop, "PRAGMA integrity_check") == [("ok",)]


def stored_notes(desktop):
    """The paths of the notes in the database, below the vault."""
    paths = {Path(path) for [path] in ask_database(desktop, "SELECT path FROM content_index")}
    return {str(path.relative_to(desktop.vault)) for path in paths}


def write_notes(vault, count):
    """So many notes of two kilobytes, each with the tag «plain» and a word of its own."""
    for number in range(count):
        text = f"# Note {number}\n\n#plain words and numeral{number}\n\n" + "A line of it.\n" * 140
        (vault / f"note {number}.md").write_text(text)

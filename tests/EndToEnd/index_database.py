"""The index's database is a copy: whatever has become of it, Jotwell starts, says so in its log and
searches."""

import contextlib
import os
import random
import signal
import sqlite3
import stat
import time
import unittest

import accessibility
import mounts
from desktop import Desktop
from processes import wait_until
from searching import (SearchTest, SearchWindow, database_file, is_sound, stored_notes, write_notes)

COUNT = 40
NAMES = {f"note {number}.md" for number in range(COUNT)}
SET_ASIDE = "The damaged database has been set aside"


class Databases(SearchTest):
    @contextlib.contextmanager
    def desktop(self):
        with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
            write_notes(desktop.vault, COUNT)
            yield desktop

    def check_searches(self, window):
        window.wait_for_index()
        self.assertTrue(window.finds("numeral7 words"))
        self.assertTrue(window.finds("#plain"))
        self.assertFalse(window.finds("words unwritten"))

    def end(self, window):
        window.program.send(signal.SIGTERM)
        self.assertEqual(window.program.exit_status(), 0)

    def make_database(self, desktop):
        window = SearchWindow(desktop)
        window.wait_for_index()
        self.end(window)
        return database_file(desktop)


class DamagedDatabase(Databases):
    def check_made_anew(self, desktop, damaged):
        """That the damaged file is kept aside and another is in its place."""
        window = SearchWindow(desktop)
        window.wait_for_log(SET_ASIDE)
        self.check_searches(window)
        self.assertEqual(stored_notes(desktop), NAMES)
        file = database_file(desktop)
        self.assertEqual(file.with_name("TagIndex.db.damaged").read_bytes(), damaged)
        self.end(window)
        self.assertTrue(is_sound(desktop))

    def test_sound(self):
        with self.desktop() as desktop:
            file = self.make_database(desktop)
            self.assertEqual(stored_notes(desktop), NAMES)
            self.assertEqual(stat.S_IMODE(file.stat().st_mode), 0o600)
            self.assertEqual(stat.S_IMODE(file.parent.stat().st_mode), 0o700)
            window = SearchWindow(desktop)
            self.check_searches(window)
            self.end(window)
            self.assertFalse([line for line in window.log() if SET_ASIDE in line])
            self.assertTrue(is_sound(desktop))

    def test_garbage(self):
        with self.desktop() as desktop:
            garbage = random.Random(1).randbytes(100_000)
            file = database_file(desktop)
            file.parent.mkdir(mode=0o700)
            file.write_bytes(garbage)
            self.check_made_anew(desktop, garbage)

    def test_truncated(self):
        with self.desktop() as desktop:
            file = self.make_database(desktop)
            half = file.read_bytes()[:file.stat().st_size // 2]
            file.write_bytes(half)
            self.check_made_anew(desktop, half)

    def test_empty(self):
        with self.desktop() as desktop:
            database_file(desktop).parent.mkdir(mode=0o700)
            database_file(desktop).touch()
            window = SearchWindow(desktop)
            self.check_searches(window)
            self.assertEqual(stored_notes(desktop), NAMES)

    def test_deleted_while_it_is_open(self):
        with self.desktop() as desktop:
            window = SearchWindow(desktop)
            window.wait_for_index()
            database_file(desktop).unlink()
            (desktop.vault / "later.md").write_text("words of another day\n")
            self.assertTrue(window.finds("another day"))
            self.check_searches(window)
            self.end(window)


class UnusableDatabase(Databases):
    def test_locked_by_another_process(self):
        with self.desktop() as desktop:
            file = self.make_database(desktop)
            with contextlib.closing(sqlite3.connect(file, isolation_level=None)) as other:
                other.execute("BEGIN EXCLUSIVE")
                window = SearchWindow(desktop)
                window.wait_for_log("Failed to create basic tables")
                self.check_searches(window)
                other.execute("ROLLBACK")
            (desktop.vault / "later.md").write_text("words of another day\n")
            self.assertTrue(window.finds("another day"))
            wait_until(lambda: stored_notes(desktop) == NAMES | {"later.md"}, "the note's row")
            self.end(window)
            self.assertTrue(is_sound(desktop))

    def test_disk_is_full(self):
        with self.desktop() as desktop, mounts.small_disk(desktop.environment["XDG_DATA_HOME"]):
            window = SearchWindow(desktop)
            self.check_searches(window)
            window.wait_for_log("database or disk is full")
            self.end(window)
            self.assertTrue(is_sound(desktop))

    def test_disk_is_full_from_the_start(self):
        with self.desktop() as desktop:
            with mounts.small_disk(desktop.environment["XDG_DATA_HOME"], size="16k"):
                window = SearchWindow(desktop)
                window.wait_for_log("Failed to create ")
                self.check_searches(window)
                self.end(window)

    def test_folder_cant_be_made(self):
        with self.desktop() as desktop:
            file = desktop.folder / "no folder"
            file.touch()
            desktop.environment["XDG_DATA_HOME"] = str(file)
            window = SearchWindow(desktop)
            window.wait_for_log("Failed to open database")
            self.check_searches(window)
            self.end(window)
            self.assertTrue(file.is_file())

    def test_folder_is_read_only(self):
        with self.desktop() as desktop:
            folder = desktop.environment["XDG_DATA_HOME"]
            with mounts.small_disk(folder):
                mounts.set_writable(folder, False)
                window = SearchWindow(desktop)
                window.wait_for_log("Failed to open database")
                self.check_searches(window)
                self.end(window)


if __name__ == "__main__":
    mounts.main()

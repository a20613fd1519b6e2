"""Whatever the vault holds and whatever becomes of it, the window answers and the rest is found."""

import contextlib
import os
import signal
import time
import unittest

import accessibility
import hostile_vault
import mounts
from desktop import Desktop
from processes import wait_until
from searching import (LONGEST_HANG, SearchTest, SearchWindow, is_sound, stored_notes, write_notes)

IDLE_TIME = 11  # seconds: two scans, or three
HUGE_PATIENCE = 150  # seconds that the huge note may take to be stored
WATCH = "anon_inode:inotify"


class HostileVault(SearchTest):
    def test_the_rest_is_found_and_nothing_hangs(self):
        by = hostile_vault.POWERLESS if hostile_vault.can_be_powerless() else []
        with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
            with hostile_vault.filled(desktop.vault) as filling:
                window = SearchWindow(desktop, by=by)
                if os.geteuid() == 0 and not by:
                    filling.refused.remove("closed.md")
                    filling.notes |= {"closed.md", "closed/hidden.md"}
                self.check_keys(window, until="Index built successfully: ")
                self.assertLess(window.toggle(), LONGEST_HANG)
                self.assertEqual(stored_notes(desktop), filling.notes)
                for name in filling.refused:
                    window.wait_for_log(
                        f"Failed to extract metadata from {desktop.vault}/{name}: ")
                for query in "haystacks needles", "good", "#plain":
                    self.assertTrue(window.finds(query), query)
                self.assertFalse(window.finds("words that nobody wrote"))
                window.program.send(signal.SIGTERM)
                self.assertEqual(window.program.exit_status(), 0)
                self.assertTrue(is_sound(desktop))

    def check_keys(self, window, until):
        slowest, keys = window.slowest_key(
            lambda: any(until in line for line in window.log()), f"«{until}»", HUGE_PATIENCE)
        print(f"{keys} keys typed meanwhile, the slowest took {slowest * 1000:.0f} ms")
        self.assertLess(slowest, LONGEST_HANG)

    def test_notes_that_change_while_they_are_read(self):
        with self.searching(fill=lambda vault: write_notes(vault, 20)) as window:
            vault = window.desktop.vault
            window.wait_for_index()
            with hostile_vault.restless_notes(vault) as names:
                end = time.monotonic() + 12
                slowest, _ = window.slowest_key(lambda: time.monotonic() > end, "its end")
                self.assertLess(slowest, LONGEST_HANG)
                self.assertTrue(window.finds("numeral7 words"))
            expected = names | {f"note {number}.md" for number in range(20)}
            wait_until(lambda: stored_notes(window.desktop) == expected, "each note in the index")
            for name in names:
                self.assertTrue(window.finds(f"rest at {name.removesuffix('.md')}"), name)
            window.program.send(signal.SIGTERM)
            self.assertEqual(window.program.exit_status(), 0)
            self.assertTrue(is_sound(window.desktop))


class ChangingVault(SearchTest):
    def check_found_later(self, window, name, patience):
        """That a note which is written now is found by the next scan, not only by a search."""
        (window.desktop.vault / f"{name}.md").write_text(f"the words of {name}\n")
        window.wait_for_log(f"New file detected: {name}.md", patience)
        self.assertTrue(window.finds(f"words of {name}"))

    def test_what_changes_is_found(self):
        with self.searching(fill=lambda vault: write_notes(vault, 20)) as window:
            vault = window.desktop.vault
            window.wait_for_index()
            self.assertIn(WATCH, window.program.open_files())
            for name in "first", "second", "third":  # too fast for the scan every five seconds
                (vault / f"{name}.md").write_text("a newcomer\n")
                window.wait_for_log(f"New file detected: {name}.md", patience=1.5)
            (vault / "note 3.md").write_text("quite another text\n")
            self.assertTrue(window.finds("another text"))
            (vault / "note 4.md").unlink()
            self.assertFalse(window.finds("numeral4 words"))
            (vault / "note 5.md").rename(vault / "moved.md")
            self.assertTrue(window.finds("moved"))
            self.assertLess({"first.md", "moved.md"}, stored_notes(window.desktop))

    def test_vault_goes_away_and_comes_back(self):
        with self.searching(fill=lambda vault: write_notes(vault, 20)) as window:
            vault = window.desktop.vault
            away = vault.with_name("away")
            window.wait_for_index()
            vault.rename(away)
            gone = f"The Obsidian folder does not exist: {vault}"
            window.wait_until_refused("numeral7 words", gone)
            time.sleep(6)  # a scan of what isn't there
            away.rename(vault)
            self.assertTrue(window.finds("numeral7 words"))
            self.assertFalse(any("removed" in line for line in window.log()))
            self.check_found_later(window, "homecomer", patience=15)

    def test_vault_is_removed_and_made_anew(self):
        with self.searching(fill=lambda vault: write_notes(vault, 20)) as window:
            vault = window.desktop.vault
            window.wait_for_index()
            for note in vault.iterdir():
                note.unlink()
            vault.rmdir()
            window.wait_until_refused("numeral7 words",
                                      f"The Obsidian folder does not exist: {vault}")
            vault.mkdir()
            self.assertFalse(window.finds("numeral7 words"))
            self.check_found_later(window, "firstborn", patience=15)
            self.assertIn("firstborn.md", stored_notes(window.desktop))

    def test_vault_comes_after_the_start(self):
        with self.searching(fill=lambda vault: vault.rmdir()) as window:
            window.wait_for_log("Failed to build index: Failed to enumerate files")
            window.desktop.vault.mkdir()
            write_notes(window.desktop.vault, 20)
            self.assertTrue(window.finds("numeral7 words"))
            self.check_found_later(window, "latecomer", patience=15)

    def test_vault_is_read_only(self):
        with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop, \
                mounts.small_disk(desktop.vault, size="4m"):
            write_notes(desktop.vault, 20)
            mounts.set_writable(desktop.vault, False)
            window = SearchWindow(desktop)
            window.wait_for_index()
            self.assertTrue(window.finds("numeral7 words"))
            self.assertEqual(len(stored_notes(desktop)), 20)
            mounts.set_writable(desktop.vault, True)
            self.check_found_later(window, "written", patience=15)

    def test_no_watch_is_left_for_the_vault(self):
        with self.searching(fill=lambda vault: write_notes(vault, 20),
                            LD_PRELOAD=os.environ["JOTWELL_NO_INOTIFY"]) as window:
            window.wait_for_index()
            self.assertNotIn(WATCH, window.program.open_files())
            self.assertTrue(window.finds("numeral7 words"))
            self.check_found_later(window, "unwatched", patience=15)


class IdleVault(SearchTest):
    def check_idle(self, window):
        before = window.program.processor_time()
        time.sleep(IDLE_TIME)
        worked = window.program.processor_time() - before
        print(f"{worked:.2f} s of work in {IDLE_TIME} s")
        self.assertLess(worked, IDLE_TIME / 10)

    def test_little_work_without_changes(self):
        with self.searching(fill=lambda vault: write_notes(vault, 1000)) as window:
            window.wait_for_index()
            self.check_idle(window)

    def test_little_work_without_a_vault(self):
        with self.searching(fill=lambda vault: write_notes(vault, 1000)) as window:
            window.wait_for_index()
            window.desktop.vault.rename(window.desktop.folder / "away")
            self.check_idle(window)


if __name__ == "__main__":
    mounts.main()

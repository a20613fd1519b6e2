"""When a note can't be written, nothing is, the toast says why, and the text stays for another
try."""

import contextlib
import unittest

import accessibility
import mounts
from desktop import Desktop, is_green, is_red
from processes import wait_until

THOUGHT = "Water the tomatoes"
TEXT = f"{THOUGHT} /new_note  $Default "  # what the program makes of it


class Sending(unittest.TestCase):
    @contextlib.contextmanager
    def window(self, **settings):
        with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
            desktop.write_settings(OnboardingCompleted="true", **{
                name: value.format(vault=desktop.vault) for name, value in settings.items()})
            desktop.start_program(**accessibility.ENVIRONMENT)
            desktop.call_up()
            desktop.type_text(f"{THOUGHT} /new_note ")
            self.reader = accessibility.ScreenReader(desktop)
            yield desktop

    def send(self, desktop, toast, colour=is_red):
        desktop.press("ctrl+Return")
        wait_until(lambda: toast in self.reader.texts(), f"the toast «{toast}»")
        desktop.wait_for_banner(colour)

    def check_text_is_there(self):
        self.assertIn(TEXT, self.reader.texts())

    def check_second_try(self, desktop):
        self.send(desktop, "Note created successfully!", is_green)
        [note] = [path for path in desktop.notes() if path.suffix == ".md"]
        self.assertTrue(note.name.startswith(f"{THOUGHT} - "), note.name)
        self.assertIn(f"# {THOUGHT}\n\n{THOUGHT}\n\n---\nCreated: ", note.read_text())
        wait_until(lambda: TEXT not in self.reader.texts(), "an empty editor")


class VaultFailures(Sending):
    def test_vault_is_not_set(self):
        with self.window() as desktop:
            self.send(desktop, "Set up this command first in the app settings")
            self.check_text_is_there()
            self.assertEqual(desktop.notes(), [])
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            self.check_second_try(desktop)

    def test_vault_is_gone(self):
        with self.window(ObsidianFolderPath="{vault}") as desktop:
            desktop.vault.rmdir()
            self.send(desktop, f"Can't find the folder: {desktop.vault}")
            self.check_text_is_there()
            self.assertFalse(desktop.vault.exists())
            desktop.vault.mkdir()
            self.check_second_try(desktop)

    def test_vault_is_a_file(self):
        with self.window(ObsidianFolderPath="{vault}") as desktop:
            desktop.vault.rmdir()
            desktop.vault.write_text("no folder")
            self.send(desktop, f"The path is not a directory: {desktop.vault}")
            self.check_text_is_there()
            self.assertEqual(desktop.vault.read_text(), "no folder")
            desktop.vault.unlink()
            desktop.vault.mkdir()
            self.check_second_try(desktop)


class DiskFailures(Sending):
    def test_vault_is_read_only(self):
        with self.window(ObsidianFolderPath="{vault}") as desktop, mounts.small_disk(desktop.vault):
            mounts.set_writable(desktop.vault, False)
            self.send(desktop, "Can't create a note: Read-only file system")
            self.check_text_is_there()
            self.assertEqual(desktop.notes(), [])
            mounts.set_writable(desktop.vault, True)
            self.check_second_try(desktop)

    def test_disk_is_full(self):
        with self.window(ObsidianFolderPath="{vault}") as desktop, mounts.small_disk(desktop.vault):
            ballast = desktop.vault / "ballast"
            with contextlib.suppress(OSError), open(ballast, "wb", buffering=0) as file:
                while True:
                    file.write(bytes(4096))
            self.send(desktop, "Can't create a note: No space left on device")
            self.check_text_is_there()
            self.assertEqual(desktop.notes(), [ballast])
            ballast.unlink()
            self.check_second_try(desktop)


if __name__ == "__main__":
    mounts.main()

"""The search and the recent notes of a vault, asked of the classes of the program by way of the
driver program, and printed."""

import os
import sys
import tempfile
import time
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[1] / "Scenarios"))
from driver_process import DriverProcess  # noqa: E402

_PATIENCE = 30

NOTES = {
    "Garden.md": "# Garden\n\nAda lends us her #garden tools on Saturday. Tomatoes go to the south "
                 "wall, beans along the fence.\n",
    "Shed.md": "---\ntags: [garden, repairs]\n---\n\nThe **roof** leaks above the garden "
               "tools. Ask about [tar paper](https://example.com/roof).\n",
    "Kitchen/Sauce.md": "# Sauce\n\nTwo kilos of tomatoes, one onion, basil. #recipe\n",
    "Trips/Lisbon.md": "# Lisbon\n\nTram 28 early in the morning. #travel\n",
}


def write_notes(vault):
    for name, text in NOTES.items():
        (vault / name).parent.mkdir(exist_ok=True)
        (vault / name).write_text(text)


class Searcher:
    """`with Searcher(desktop) as searcher:` has the desktop's vault indexed by a driver program."""

    def __init__(self, desktop):
        self._vault = desktop.vault
        self._environment = {"XDG_RUNTIME_DIR": desktop.environment["XDG_RUNTIME_DIR"]}

    def __enter__(self):
        self._home = tempfile.TemporaryDirectory(prefix="jotwell-driver-")
        self._driver = DriverProcess(
            os.environ["JOTWELL_DRIVER"], self._home.name, self._environment, None)
        self._ask("defaults.set", key="ObsidianFolderPath", type="string", value=str(self._vault))
        self._ask("TagIndexService.buildIndex", vaultPath=str(self._vault))
        return self

    def __exit__(self, *_):
        self._driver.kill()
        self._home.cleanup()

    def print_search(self, query):
        """Prints what is found, and gives the names of it."""
        return self._print_notes(f"Search: {query}", "ObsidianService.searchNotes", query=query)

    def print_recent_notes(self):
        return self._print_notes("Recent notes", "ObsidianService.getRecentNotes")

    def _print_notes(self, title, op, **arguments):
        start = time.monotonic()
        notes = self._ask(op, **arguments)
        milliseconds = (time.monotonic() - start) * 1000
        print(f"{title}\n    {len(notes)} found in {milliseconds:.1f} ms")
        for note in notes:
            path = Path(note["filePath"])
            changed = time.strftime("%H:%M:%S", time.localtime(path.stat().st_mtime))
            print(f"    {path.relative_to(self._vault)}  (changed {changed})")
            for line in (note["snippet"] or "").splitlines():
                print(f"        {line}")
        print()
        return [note["fileName"] for note in notes]

    def _ask(self, op, **arguments):
        answer = self._driver.answer(op, arguments, _PATIENCE)
        if "result" not in answer:
            raise AssertionError(f"{op}: {answer}")
        return answer["result"]

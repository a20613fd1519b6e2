"""What is handed to the desktop to be opened, taken by a stand-in for `xdg-open`."""

from processes import wait_until

_STAND_IN = """#!/bin/sh
printf '%s\\n' "$1" >> "$JOTWELL_OPENED"
"""


class OpenedUrls:
    """With `environment` a program opens nothing but leaves the URLs here, in their order."""

    def __init__(self, desktop):
        folder = desktop.folder / "opener"
        folder.mkdir()
        stand_in = folder / "xdg-open"
        stand_in.write_text(_STAND_IN)
        stand_in.chmod(0o755)
        self._list = desktop.folder / "opened"
        self.environment = {"PATH": f"{folder}:{desktop.environment['PATH']}",
                            "JOTWELL_OPENED": str(self._list)}

    def all(self):
        return self._list.read_text().splitlines() if self._list.exists() else []

    def wait_for(self, *urls):
        wait_until(lambda: len(self.all()) >= len(urls), f"{len(urls)} opened URLs")
        if self.all() != list(urls):
            raise AssertionError(f"{self.all()} was opened, not {list(urls)}")

"""The panel of notes found, as hands and eyes have it."""

from processes import wait_until


class ResultsPanel:
    """The panel in the window of an editor."""

    def __init__(self, editor):
        self._editor = editor

    def names(self):
        """Of the notes in it, from the top; none if it isn't there."""
        return self._editor.reader.ask(lambda: [row.name() for row in self._rows()])

    def selected(self):
        return self._editor.reader.ask(
            lambda: [row.name() for row in self._rows() if row.is_selected()])

    def wait_for(self, *names):
        """Waits until it holds just these."""
        wait_until(lambda: self.names() == list(names), f"{names}, not {self.names()}")

    def wait_for_selected(self, *names):
        wait_until(lambda: self.selected() == list(names),
                   f"{names} selected, not {self.selected()}")

    def click(self, name):
        x, y, width, height = self._editor.reader.ask(
            lambda: next(row.place() for row in self._rows() if row.name() == name))
        self._editor.click((x + width // 2, y + height // 2))

    def _rows(self):
        found = self._editor.reader.item("Notes")
        return found.children() if found and found.is_showing() else []

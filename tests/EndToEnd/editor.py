"""The capture window's field and the list below it, as hands and eyes have them."""

import contextlib

import accessibility
from desktop import Desktop
from processes import PATIENCE, wait_until

_FIRST_LINE = 28  # the height of it, above where a list begins


class Editor:
    """Starts Jotwell on a desktop that has `accessibility.BUS_SERVICES`, and waits for its window."""

    def __init__(self, desktop, *, program=None, **settings):
        self.desktop = desktop
        desktop.write_settings(**{"ObsidianFolderPath": desktop.vault,
                                  "OnboardingCompleted": "true"} | settings)
        self.program = desktop.start_program(**accessibility.ENVIRONMENT, **(program or {}))
        desktop.call_up()
        self.reader = accessibility.ScreenReader(desktop)
        self._field = wait_until(lambda: self.reader.item("Note editor"), "the field")

    # Hands

    def type(self, text):
        self.desktop.type_text(text)

    def press(self, *keys):
        self.desktop.press(*keys)

    def empty(self):
        self.press("ctrl+a", "Delete")
        self.wait_for("")

    def click(self, place):
        self.point_at(place)
        self.desktop.ask("xdotool", "click", "1")

    def point_at(self, place):
        self.desktop.ask("xdotool", "mousemove", *map(str, place))

    # Eyes

    def text(self):
        return self.reader.ask(self._field.text)

    def cursor(self):
        return self.reader.ask(self._field.cursor)

    def rows(self):
        """The names of the rows of the list, from the top; none if it isn't open."""
        return self.reader.ask(lambda: [row.name() for row in self._list_items()])

    def selected_rows(self):
        return self.reader.ask(
            lambda: [row.name() for row in self._list_items() if row.is_selected()])

    def row_place(self, name):
        """The middle of a row on the screen."""
        x, y, width, height = self.reader.ask(lambda: next(
            row.place() for row in self._list_items() if row.name() == name))
        return x + width // 2, y + height // 2

    def start_of_text(self):
        """A place within the first characters."""
        x, y, _, _ = self.reader.ask(self._field.place)
        return x + 12, y + 13

    def chip_place(self, is_its_colour):
        """The middle of the one chip of that colour, once it is there and stays where it is."""
        def middle():
            first, second = (self._places_in_first_line(is_its_colour) for _ in range(2))
            return first and first == second and _middle(first)
        return wait_until(middle, "a chip of that colour")

    def wait_for(self, text):
        """Waits until the field holds just that."""
        self._wait(self.text, text)

    def wait_for_rows(self, *names):
        """Waits until the list has these rows; without names, until it is closed."""
        self._wait(self.rows, list(names))

    def wait_for_selected(self, name):
        self._wait(self.selected_rows, [name])

    def wait_for_toast(self, text):
        wait_until(lambda: text in self.reader.texts(), f"the toast «{text}»")

    def wait_for_note(self):
        """The one note in the vault."""
        [note] = wait_until(lambda: list(self.desktop.vault.glob("*.md")), "a note")
        return note

    def _wait(self, look, expected):
        try:
            wait_until(lambda: look() == expected, "it")
        except AssertionError:
            raise AssertionError(f"{look()!r} isn't {expected!r}, not within {PATIENCE} s") from None

    def _list_items(self):
        found = self.reader.item("Completions")
        return found.children() if found and found.is_showing() else []

    def _places_in_first_line(self, is_its_colour):
        x, y, width, _ = self.reader.ask(self._field.place)
        return self.desktop.places_of(is_its_colour, (x, y, width, _FIRST_LINE))


def is_command_chip(colour):
    red, green, blue = colour
    return blue > 200 and blue > red + 30 and blue > green + 15


def is_parameter_chip(colour):
    red, green, blue = colour
    return green > 200 and green > red + 20 and green > blue + 15


@contextlib.contextmanager
def editing(*, fill=lambda vault: None, **options):
    """An editor over a vault that `fill` has put something into."""
    with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
        fill(desktop.vault)
        yield Editor(desktop, **options)


def _middle(places):
    xs, ys = zip(*places)
    return (min(xs) + max(xs)) // 2, (min(ys) + max(ys)) // 2

"""Every control by keyboard and as a screen reader has it, in the gallery that shows them all."""

import contextlib
import os
import unittest

import accessibility
from accessibility import Role, ScreenReader, State
from desktop import Desktop
from processes import wait_until

STATES = ["rest", "hovered", "pressed", "focused", "disabled"]
BUTTONS = ["Close", "Delete", "Add", "Browse", "Cancel", "Accept", "Add"]
CHECK_BOXES = ["Off", "On"]
KEYS = ["Tab", "↑↓", "Enter", "Ctrl", "Alt", "B", "Super", "Shift", "Space"]
TABS = ["Daily", "Meeting", "Synced"]
TOASTS = ["Note created", "No vault is set", "word " * 400]
FIELDS = [
    *[(Role.TEXT, "Template Name")] * 3,
    (Role.PASSWORD_TEXT, ""),  # as Qt has it
    (Role.TEXT, "Vault Path"),
    (Role.PUSH_BUTTON, "Browse"),
    (Role.TEXT, "Template Name"),
    (Role.PUSH_BUTTON, "Delete"),
    (Role.CHECK_BOX, "Enable"),
    (Role.TEXT, "Template"),
]
TOGGLED_BY_LOOKS = 2  # the first checkboxes, Dark and High contrast
DISABLED = "Disabled"


def in_each_state(role, names):
    return [(role, name) for name in names for _ in STATES]


CONTROLS = [
    (Role.CHECK_BOX, "Dark"), (Role.CHECK_BOX, "High contrast"),
    *in_each_state(Role.PUSH_BUTTON, BUTTONS), *in_each_state(Role.CHECK_BOX, CHECK_BOXES),
    *[(Role.LABEL, key) for key in KEYS],
    (Role.PAGE_TAB_LIST, ""), *[(Role.PAGE_TAB, name) for name in [*TABS, "Hovered"]],
    *[each for toast in TOASTS for each in [(Role.NOTIFICATION, toast), (Role.PUSH_BUTTON, "Dismiss")]],
    *FIELDS,
]


class Gallery:
    def __init__(self, desktop):
        self.desktop = desktop
        desktop.spawn("gallery", [os.environ["JOTWELL_GALLERY"]], **accessibility.ENVIRONMENT)
        self.reader = ScreenReader(desktop)
        wait_until(lambda: len(self.reader.walk()) > len(CONTROLS), "the gallery")
        window = wait_until(lambda: desktop.ask("xdotool", "search", "--onlyvisible", "--name",
                                                "^Control gallery$"), "its window")
        desktop.ask("xdotool", "windowactivate", "--sync", window)

    def items(self, *roles):
        """Those of the roles, of all without one, in the order of the tree."""
        items = self.reader.walk()[1:]
        return [item for item in items if not roles or self.ask(item.role) in roles]

    def ask(self, question):
        return self.reader.ask(question)

    def is_checked(self, item):
        return State.CHECKED in self.ask(item.states)

    def is_disabled(self, item):
        return self.ask(item.description) == DISABLED

    def title(self):
        """Which tells what has acted last."""
        return self.ask(lambda: self.reader.walk()[0].name())


@contextlib.contextmanager
def gallery():
    with Desktop(bus_services=accessibility.BUS_SERVICES, size="1280x1024") as desktop:
        yield Gallery(desktop)


class Controls(unittest.TestCase):
    def test_each_is_told(self):
        with gallery() as it:
            self.assertEqual([(item.role(), item.name()) for item in it.items()], CONTROLS)
            self.assertTrue(all(State.SHOWING in item.states() for item in it.items()))
            disabled = [item.name() for item in it.items() if it.is_disabled(item)]
            self.assertEqual(disabled, [*BUTTONS, *CHECK_BOXES, "Delete"])

    def test_buttons_are_pressed(self):
        with gallery() as it:
            buttons = it.items(Role.PUSH_BUTTON)[:len(BUTTONS) * len(STATES)]
            for number, button in enumerate(buttons):
                kind, state = divmod(number, len(STATES))
                actions = min(state + 1, len(STATES) - 1)
                it.ask(button.press)
                acted = STATES[actions - 1]  # not the disabled one
                wait_until(lambda: it.title() == f"{BUTTONS[kind]} {acted} {actions}",
                           f"{BUTTONS[kind]} {state}")

    def test_checkboxes_are_toggled(self):
        with gallery() as it:
            for action in "Toggle", "Press":
                for box in it.items(Role.CHECK_BOX)[TOGGLED_BY_LOOKS:]:
                    expected = it.is_checked(box) != (not it.is_disabled(box))
                    it.ask(lambda: box.act(action))
                    wait_until(lambda: it.is_checked(box) == expected, f"{action} {box.name()}")

    def test_tabs_are_selected(self):
        with gallery() as it:
            for tab in it.items(Role.PAGE_TAB)[:len(TABS)]:
                it.ask(tab.press)
                wait_until(tab.is_selected, tab.name())
                self.assertEqual(
                    sum(each.is_selected() for each in it.items(Role.PAGE_TAB)[:len(TABS)]), 1)

    def test_keyboard_reaches_each_in_order(self):
        with gallery() as it:
            stops = self.stops(it)
            self.assertIn(len(stops), range(50, len(CONTROLS)))
            for stop in [*stops, stops[0]]:
                self.move(it, "Tab", stop)
            for stop in reversed(stops):
                self.move(it, "shift+Tab", stop)

    def stops(self, it):
        """What the keyboard stops at: of the row of tabs one, and none that is disabled."""
        roles = Role.CHECK_BOX, Role.PUSH_BUTTON, Role.PAGE_TAB, Role.TEXT, Role.PASSWORD_TEXT
        items = [item for item in it.items(*roles) if not it.is_disabled(item)]
        disabled_field = [item for item in items if item.name() == "Template Name"][-1]
        return [item for item in items if item is not disabled_field
                and (item.name() not in TABS or item.is_selected())]

    def move(self, it, key, stop):
        it.desktop.press(key)
        wait_until(lambda: State.FOCUSED in stop.states(), f"{key} to {stop.name()}")
        self.assertEqual(
            [item.name() for item in it.items() if State.FOCUSED in item.states()], [stop.name()])

    def test_keys_act(self):
        with gallery() as it:
            it.desktop.press("Tab", "Tab")
            for key, title in [("space", "Close rest 1"), ("Return", "Close hovered 2")]:
                it.desktop.press("Tab", key)
                wait_until(lambda: it.title() == title, title)
            box = it.items(Role.CHECK_BOX)[1]
            it.desktop.press("shift+Tab", "shift+Tab", "space")
            wait_until(lambda: it.is_checked(box), box.name())
            it.desktop.press("Return")
            wait_until(lambda: not it.is_checked(box), box.name())


if __name__ == "__main__":
    unittest.main()

"""What a screen reader is told about the windows of a desktop."""

import contextlib
import enum
import time
from pathlib import Path

import dbus
import dbus.bus
import dbus.mainloop.glib
from gi.repository import GLib

from processes import wait_until

# Desktop(bus_services=BUS_SERVICES) has the accessibility bus, and ENVIRONMENT makes Qt use it.
BUS_SERVICES = [Path("/usr/share/dbus-1/services/org.a11y.Bus.service")]
ENVIRONMENT = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

_ACCESSIBLE = "org.a11y.atspi.Accessible"
_ACTION = "org.a11y.atspi.Action"
_COMPONENT = "org.a11y.atspi.Component"
_TEXT = "org.a11y.atspi.Text"
_OBJECT_EVENT = "org.a11y.atspi.Event.Object"
_REGISTRY = "org.a11y.atspi.Registry"
_ON_SCREEN = dbus.UInt32(0)
_QUIET_TIME = 0.4  # seconds in which what is still to be told comes


class Role(enum.IntEnum):
    CHECK_BOX = 7
    FRAME = 23
    LABEL = 29
    LIST = 31
    LIST_ITEM = 32
    PAGE_TAB = 37
    PAGE_TAB_LIST = 38
    PASSWORD_TEXT = 40
    PROGRESS_BAR = 42
    PUSH_BUTTON = 43
    TEXT = 61
    APPLICATION = 75
    HEADING = 83
    NOTIFICATION = 101


class State(enum.IntFlag):
    CHECKED = 1 << 4
    EDITABLE = 1 << 7
    FOCUSABLE = 1 << 11
    FOCUSED = 1 << 12
    SELECTABLE = 1 << 22
    SELECTED = 1 << 23
    SHOWING = 1 << 25


class Item:
    """One of the things that a screen reader tells of. Each question asks anew."""

    def __init__(self, bus, owner, path):
        self._bus = bus
        self._object = bus.get_object(owner, path, introspect=False)

    def name(self):
        return str(self._property(_ACCESSIBLE, "Name"))

    def role(self):
        """A `Role`, or the number of another one."""
        number = int(self._object.GetRole(dbus_interface=_ACCESSIBLE))
        return next((role for role in Role if role == number), number)

    def description(self):
        return str(self._property(_ACCESSIBLE, "Description"))

    def states(self):
        """Those of `State` that it has."""
        bits = int(self._object.GetState(dbus_interface=_ACCESSIBLE)[0])
        return State(bits & sum(State))

    def actions(self):
        if _ACTION not in self._object.GetInterfaces(dbus_interface=_ACCESSIBLE):
            return []
        return [str(name) for name, *_ in self._object.GetActions(dbus_interface=_ACTION)]

    def act(self, action):
        self._object.DoAction(self.actions().index(action), dbus_interface=_ACTION)

    def press(self):
        self.act("Press")

    def has_text(self):
        return _TEXT in self._object.GetInterfaces(dbus_interface=_ACCESSIBLE)

    def text(self):
        """Its text, with the ends of paragraphs as newlines."""
        return str(self._object.GetText(0, -1, dbus_interface=_TEXT)).replace("\u2029", "\n")

    def cursor(self):
        """Where it stands in the text, in UTF-16 units."""
        return int(self._property(_TEXT, "CaretOffset"))

    def is_selected(self):
        return State.SELECTED in self.states()

    def is_showing(self):
        return State.SHOWING in self.states()

    def place(self):
        """Its rectangle on the screen: x, y, width and height."""
        return tuple(map(int, self._object.GetExtents(_ON_SCREEN, dbus_interface=_COMPONENT)))

    def children(self):
        return [Item(self._bus, owner, path)
                for owner, path in self._object.GetChildren(dbus_interface=_ACCESSIBLE)]

    def with_all_below(self):
        """It, and all below it in the order of the tree."""
        yield self
        for child in self.children():
            yield from child.with_all_below()

    def _property(self, interface, name):
        return self._object.Get(interface, name, dbus_interface=dbus.PROPERTIES_IFACE)


class ScreenReader:
    def __init__(self, desktop):
        self._bus = dbus.bus.BusConnection(_address(desktop))

    def walk(self):
        """All there is in the windows, in the order of the tree."""
        def below(item):
            return [each for each in item.with_all_below() if each.role() != Role.APPLICATION]
        return self.ask(lambda: [
            each for program in self._root().children() for each in below(program)])

    def find(self, role, name):
        """The one of that role and name, once it is there."""
        def found():
            return [item for item in self.walk() if (item.role(), item.name()) == (role, name)]
        [item] = wait_until(lambda: self.ask(found), f"{role!r} «{name}»")
        return item

    def texts(self):
        """Every name and every text there is to read, in the order of the tree."""
        return self.ask(lambda: list(filter(None, self._texts())))

    def item(self, name):
        """The first of that name, none if there is none."""
        return self.ask(lambda: next(
            (item for item in self._root().with_all_below() if item.name() == name), None))

    def ask(self, question):
        """The answer, asked again if something went while it was asked."""
        def answer():
            with contextlib.suppress(dbus.DBusException):
                return (question(),)
        [answered] = wait_until(answer, "something to read")
        return answered

    def _root(self):
        return Item(self._bus, "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")

    def _texts(self):
        for item in self._root().with_all_below():
            yield item.name()
            if item.has_text():
                yield item.text()


class Speech:
    """What a screen reader says by itself from now on: where the user comes to, and what
    notifications appear. Like one, it asks for role and name when it is told of something."""

    def __init__(self, desktop):
        loop = dbus.mainloop.glib.DBusGMainLoop()
        self._bus = dbus.bus.BusConnection(_address(desktop), mainloop=loop)
        self._said = []
        registry = self._bus.get_object(_REGISTRY, "/org/a11y/atspi/registry")
        registry.RegisterEvent("object:state-changed", dbus.Array([], signature="s"), "",
                               dbus_interface=_REGISTRY)
        self._bus.add_signal_receiver(
            self._hear, "StateChanged", _OBJECT_EVENT, sender_keyword="owner", path_keyword="path")

    def wait_for(self, *said):
        """Waits until something is said, and for the quiet after it; it has to be just that, role
        and name each. Then the next is heard."""
        wait_until(self._heard, f"{said}")
        end = time.monotonic() + _QUIET_TIME
        while time.monotonic() < end:
            count = len(self._heard())
            time.sleep(0.02)
            if len(self._heard()) > count:
                end = time.monotonic() + _QUIET_TIME
        heard, self._said = self._said, []
        if heard != list(said):
            raise AssertionError(f"{heard} was said, not {list(said)}")

    def forget(self):
        """What has been said so far, and what follows at once."""
        end = time.monotonic() + _QUIET_TIME
        while time.monotonic() < end:
            self._heard()
            time.sleep(0.02)
        self._said = []

    def _heard(self):
        while GLib.MainContext.default().iteration(False):
            pass
        return self._said

    def _hear(self, state, is_on, *_, owner, path):
        if not is_on or state not in ("focused", "showing"):
            return
        item = Item(self._bus, owner, path)
        with contextlib.suppress(dbus.DBusException):  # gone again
            role = item.role()
            if state == "focused" and State.FOCUSED in item.states() or role == Role.NOTIFICATION:
                self._said.append((role, item.name()))


def _address(desktop):
    """That of the accessibility bus."""
    session = dbus.bus.BusConnection(desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
    launcher = session.get_object("org.a11y.Bus", "/org/a11y/bus")
    return launcher.GetAddress(dbus_interface="org.a11y.Bus")

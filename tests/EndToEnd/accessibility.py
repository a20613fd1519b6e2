"""What a screen reader is told about the windows of a desktop."""

import contextlib
from pathlib import Path

import dbus
import dbus.bus

from processes import wait_until

# Desktop(bus_services=BUS_SERVICES) has the accessibility bus, and ENVIRONMENT makes Qt use it.
BUS_SERVICES = [Path("/usr/share/dbus-1/services/org.a11y.Bus.service")]
ENVIRONMENT = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

_ACCESSIBLE = "org.a11y.atspi.Accessible"
_COMPONENT = "org.a11y.atspi.Component"
_TEXT = "org.a11y.atspi.Text"
_ON_SCREEN = dbus.UInt32(0)
_SELECTED = 1 << 23
_SHOWING = 1 << 25


class Item:
    """One of the things that a screen reader tells of. Each question asks anew."""

    def __init__(self, bus, owner, path):
        self._bus = bus
        self._object = bus.get_object(owner, path, introspect=False)

    def name(self):
        return str(self._property(_ACCESSIBLE, "Name"))

    def has_text(self):
        return _TEXT in self._object.GetInterfaces(dbus_interface=_ACCESSIBLE)

    def text(self):
        """Its text, with the ends of paragraphs as newlines."""
        return str(self._object.GetText(0, -1, dbus_interface=_TEXT)).replace("\u2029", "\n")

    def cursor(self):
        """Where it stands in the text, in UTF-16 units."""
        return int(self._property(_TEXT, "CaretOffset"))

    def is_selected(self):
        return self._has_state(_SELECTED)

    def is_showing(self):
        return self._has_state(_SHOWING)

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

    def _has_state(self, bit):
        return bool(self._object.GetState(dbus_interface=_ACCESSIBLE)[0] & bit)

    def _property(self, interface, name):
        return self._object.Get(interface, name, dbus_interface=dbus.PROPERTIES_IFACE)


class ScreenReader:
    def __init__(self, desktop):
        session = dbus.bus.BusConnection(desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        launcher = session.get_object("org.a11y.Bus", "/org/a11y/bus")
        self._bus = dbus.bus.BusConnection(
            launcher.GetAddress(dbus_interface="org.a11y.Bus"))

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

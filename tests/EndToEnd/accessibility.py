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
_TEXT = "org.a11y.atspi.Text"


class ScreenReader:
    def __init__(self, desktop):
        session = dbus.bus.BusConnection(desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        launcher = session.get_object("org.a11y.Bus", "/org/a11y/bus")
        self._bus = dbus.bus.BusConnection(
            launcher.GetAddress(dbus_interface="org.a11y.Bus"))

    def texts(self):
        """Every name and every text there is to read, in the order of the tree."""
        root = "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"

        def read():
            with contextlib.suppress(dbus.DBusException):  # something went while it was asked
                return [text for text in self._texts_below(*root) if text]
        return wait_until(read, "something to read")

    def _texts_below(self, owner, path):
        item = self._bus.get_object(owner, path, introspect=False)
        yield str(item.Get(_ACCESSIBLE, "Name", dbus_interface=dbus.PROPERTIES_IFACE))
        if _TEXT in item.GetInterfaces(dbus_interface=_ACCESSIBLE):
            yield str(item.GetText(0, -1, dbus_interface=_TEXT))
        for child_owner, child_path in item.GetChildren(dbus_interface=_ACCESSIBLE):
            yield from self._texts_below(child_owner, child_path)

"""A tray on the session bus, and the user who looks into it."""

from pathlib import Path

import dbus
import dbus.bus

from processes import wait_until

_WATCHER = "org.kde.StatusNotifierWatcher"
_ITEM = "org.kde.StatusNotifierItem"
_MENU = "com.canonical.dbusmenu"
_ITEM_PATH = "/StatusNotifierItem"


class NotifierTray:
    """Is there from its making on, until it is stopped."""

    def __init__(self, desktop):
        self._desktop = desktop
        script = Path(__file__).with_name("notifier_watcher.py")
        self._watcher = desktop.spawn("tray", ["/usr/bin/python3", "-B", script])
        self._known = len(self._watcher.output().splitlines())
        wait_until(lambda: desktop.owns_name(_WATCHER), "the tray on the bus")
        self._bus = dbus.bus.BusConnection(desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        self._item = None

    def stop(self):
        self._watcher.stop()
        wait_until(lambda: not self._desktop.owns_name(_WATCHER), "the end of the tray")

    def wait_for_item(self):
        wait_until(lambda: len(self._items()) > self._known, "an item in the tray")
        self._item = self._items()[self._known].split()[1]
        self._known += 1

    def has_more_items(self):
        return len(self._items()) > self._known

    def property(self, name):
        return self._object(_ITEM_PATH).Get(
            _ITEM, name, dbus_interface="org.freedesktop.DBus.Properties")

    def menu(self):
        """The entries as dictionaries of the properties that the bus has of them."""
        _, (_, _, entries) = self._menu().GetLayout(0, -1, dbus.Array([], signature="s"))
        return [dict(properties, id=number) for number, properties, _ in entries]

    def entry(self, label):
        [entry] = [each for each in self.menu() if each.get("label") == label]
        return entry

    def click(self, label):
        self._menu().Event(self.entry(label)["id"], "clicked", dbus.String("", variant_level=1),
                           dbus.UInt32(0))

    def activate(self):
        """A plain click on the item."""
        self._object(_ITEM_PATH).Activate(0, 0, dbus_interface=_ITEM)

    def _items(self):
        return self._watcher.output().splitlines()

    def _menu(self):
        return dbus.Interface(self._object(self.property("Menu")), _MENU)

    def _object(self, path):
        return self._bus.get_object(self._item, path, introspect=False)

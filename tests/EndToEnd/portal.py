"""Stand-ins for the desktop portal: for the part that tells of the desktop's looks, and for one
that is of no use at all."""

import signal
import sys

import dbus
import dbus.bus

from processes import wait_until

_NAME = "org.freedesktop.portal.Desktop"
_PATH = "/org/freedesktop/portal/desktop"
_SETTINGS = "org.freedesktop.portal.Settings"
_APPEARANCE = "org.freedesktop.appearance"

NO_PREFERENCE, DARK, LIGHT = range(3)


# The interfaces that this program, or the toolkit on its behalf, may ask, and by which calls.
_CALLS = {
    _SETTINGS: {"Read": "ss", "ReadAll": "as"},
    "org.freedesktop.portal.Background": {"RequestBackground": "sa{sv}"},
    "org.freedesktop.portal.FileChooser": {"OpenFile": "ssa{sv}"},
    "org.freedesktop.portal.GlobalShortcuts": {"CreateSession": "a{sv}",
                                               "BindShortcuts": "oa(sa{sv})sa{sv}",
                                               "ListShortcuts": "oa{sv}"},
    "org.freedesktop.portal.OpenURI": {"OpenURI": "ssa{sv}"},
}
_REFUSAL = ("raise dbus.exceptions.DBusException("
            "'no', name='org.freedesktop.portal.Error.NotAllowed')")


def _start_mock(desktop):
    process = desktop.spawn(
        "portal", [sys.executable, "-m", "dbusmock", "--session", _NAME, _PATH, _SETTINGS])
    wait_until(lambda: desktop.owns_name(_NAME), "the portal")
    bus = dbus.bus.BusConnection(desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
    return process, dbus.Interface(bus.get_object(_NAME, _PATH), "org.freedesktop.DBus.Mock")


def start_refusing_portal(desktop):
    """On the bus from now on: says no to every call."""
    _, mock = _start_mock(desktop)
    for interface, calls in _CALLS.items():
        for name, signature in calls.items():
            mock.AddMethod(interface, name, signature, "", _REFUSAL)


def start_silent_portal(desktop):
    """On the bus from now on: takes every call and never answers one."""
    process, _ = _start_mock(desktop)
    process.send(signal.SIGSTOP)


class SettingsPortal:
    """On the bus of a desktop, from now on."""

    def __init__(self, desktop, *, color_scheme=NO_PREFERENCE, contrast=0):
        self._values = {"color-scheme": color_scheme, "contrast": contrast}
        self._process, self._mock = _start_mock(desktop)
        for key, value in list(self._values.items()):
            self._set(key, value)  # also for who has asked before there was an answer

    def set_color_scheme(self, value):
        self._set("color-scheme", value)

    def set_contrast(self, value):
        self._set("contrast", value)

    def stop(self):
        self._process.stop()

    def _set(self, key, value):
        self._values[key] = value
        self._offer()
        self._mock.EmitSignal(
            _SETTINGS, "SettingChanged", "ssv",
            [_APPEARANCE, key, dbus.UInt32(value, variant_level=1)])

    def _offer(self):
        settings = ", ".join(f"{key!r}: dbus.UInt32({value})" for key, value in self._values.items())
        values = f"dbus.Dictionary({{{settings}}}, signature='sv')"
        self._mock.AddMethod(
            _SETTINGS, "ReadAll", "as", "a{sa{sv}}",
            f"ret = dbus.Dictionary({{{_APPEARANCE!r}: {values}}}, signature='sa{{sv}}')")
        self._mock.AddMethod(
            _SETTINGS, "Read", "ss", "v", f"ret = {values}[args[1]]")

"""A tray without a picture: owns the name of the desktop's tray on the session bus, and prints for
each program that brings its item the moment (seconds of the monotonic clock) and its bus name."""

import time

from gi.repository import Gio, GLib

_NAME = "org.kde.StatusNotifierWatcher"
_INTERFACE = """<node><interface name="org.kde.StatusNotifierWatcher">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
  <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
  <signal name="StatusNotifierHostRegistered"/>
</interface></node>"""
_PROPERTIES = {
    "RegisteredStatusNotifierItems": GLib.Variant("as", []),
    "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
    "ProtocolVersion": GLib.Variant("i", 0),
}


def answer(_connection, sender, _path, _interface, method, _arguments, invocation):
    if method == "RegisterStatusNotifierItem":
        print(time.monotonic(), sender, flush=True)
    invocation.return_value(None)


def take_name(connection, _name):
    interface = Gio.DBusNodeInfo.new_for_xml(_INTERFACE).interfaces[0]
    connection.register_object("/StatusNotifierWatcher", interface, answer,
                               lambda *asked: _PROPERTIES[asked[4]], None)


Gio.bus_own_name(Gio.BusType.SESSION, _NAME, Gio.BusNameOwnerFlags.NONE, take_name, None, None)
GLib.MainLoop().run()

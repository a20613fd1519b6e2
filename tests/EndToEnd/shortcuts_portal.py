"""A stand-in for the part of the desktop portal that gives programs their shortcuts.

Run as a program it is that portal: its argument says what becomes of a wish, each line that it
reads is a press, and what it is called for it prints."""

import subprocess
import sys

from processes import wait_until

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
PORTAL = "org.freedesktop.portal."

GRANTING, DENYING, SILENT = "granting", "denying", "silent"


class ShortcutsPortal:
    """On the bus of a desktop, from now on."""

    def __init__(self, desktop, answer=GRANTING):
        self._process = desktop.spawn(
            "shortcuts_portal", [sys.executable, "-B", __file__, answer], stdin=subprocess.PIPE)
        wait_until(lambda: desktop.owns_name(NAME), "the portal")

    def calls(self):
        """What it was called for since the first portal of this desktop."""
        return self._process.output().splitlines()

    def wait_for_call(self, name):
        wait_until(lambda: any(name in call for call in self.calls()), name)

    def press(self):
        self._process.write("\n")

    def stop(self):
        self._process.stop()


def _serve(answer):
    import dbus
    import dbus.lowlevel
    import dbus.mainloop.glib
    import dbus.service
    from gi.repository import GLib

    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()

    def emit(path, interface, member, signature, *values):
        message = dbus.lowlevel.SignalMessage(path, PORTAL + interface, member)
        message.append(*values, signature=signature)
        bus.send_message(message)

    class Portal(dbus.service.Object):
        session = shortcut = None

        def path(self, kind, sender, options, name):
            return f"{PATH}/{kind}/{sender[1:].replace('.', '_')}/{options[name]}"

        def respond(self, path, response, results):
            GLib.idle_add(emit, path, "Request", "Response", "ua{sv}", response, results)

        @dbus.service.method("org.freedesktop.host.portal.Registry", in_signature="sa{sv}")
        def Register(self, program, _):
            print("Register", program, flush=True)

        @dbus.service.method(PORTAL + "GlobalShortcuts", in_signature="a{sv}", out_signature="o",
                             sender_keyword="sender")
        def CreateSession(self, options, sender):
            print("CreateSession", flush=True)
            self.session = self.path("session", sender, options, "session_handle_token")
            request = self.path("request", sender, options, "handle_token")
            if answer != SILENT:
                self.respond(request, 0, {"session_handle": self.session})
            return request

        @dbus.service.method(PORTAL + "GlobalShortcuts", in_signature="oa(sa{sv})sa{sv}",
                             out_signature="o", sender_keyword="sender")
        def BindShortcuts(self, _session, shortcuts, _parent, options, sender):
            [(self.shortcut, wish)] = shortcuts
            print("BindShortcuts", self.shortcut, wish["preferred_trigger"], flush=True)
            request = self.path("request", sender, options, "handle_token")
            granted = dbus.Array(shortcuts, signature="(sa{sv})")
            self.respond(request, *((0, {"shortcuts": granted}) if answer == GRANTING else (1, {})))
            return request

        def press(self, *_):
            if not sys.stdin.readline():
                return False
            options = dbus.Dictionary({"activation_token": "token"}, signature="sv")
            emit(PATH, "GlobalShortcuts", "Activated", "osta{sv}", dbus.ObjectPath(self.session),
                 self.shortcut, 1, options)
            return True

    portal = Portal(bus, PATH)
    GLib.io_add_watch(sys.stdin, GLib.IO_IN | GLib.IO_HUP, portal.press)
    name = dbus.service.BusName(NAME, bus)
    GLib.MainLoop().run()
    del name


if __name__ == "__main__":
    _serve(sys.argv[1])

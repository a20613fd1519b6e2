"""A stand-in for the part of the desktop portal that shows the panel for choosing files.

Run as a program it is that portal: each line that it reads answers what was asked last, and what it
is called for it prints."""

import json
import subprocess
import sys

from processes import wait_until

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
PORTAL = "org.freedesktop.portal."

CHOSEN, CANCELLED, FAILED = range(3)
LISTENING, REFUSING = "listening", "refusing"


class FolderPortal:
    """On the bus of a desktop, from now on."""

    def __init__(self, desktop, kind=LISTENING):
        self._process = desktop.spawn(
            "folder_portal", [sys.executable, "-B", __file__, kind], stdin=subprocess.PIPE)
        self._past = len(self._lines())
        wait_until(lambda: desktop.owns_name(NAME), "the portal")

    def calls(self):
        """What this portal was called for: a name each, and what came with it."""
        return [json.loads(line) for line in self._lines()[self._past:]]

    def _lines(self):
        return [line for line in self._process.output().splitlines() if line.startswith("[")]

    def names(self):
        return [call[0] for call in self.calls()]

    def wait_for(self, name, times=1):
        wait_until(lambda: self.names().count(name) == times, name)

    def answer(self, response, *uris):
        self._process.write(json.dumps([response, uris]) + "\n")

    def stop(self):
        self._process.stop()


def _serve(kind):
    import dbus
    import dbus.lowlevel
    import dbus.mainloop.glib
    import dbus.service
    from gi.repository import GLib

    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()

    def tell(*call):
        print(json.dumps(call), flush=True)

    class Request(dbus.service.Object):
        @dbus.service.method(PORTAL + "Request")
        def Close(self):
            tell("Close")

        def respond(self, response, uris):
            message = dbus.lowlevel.SignalMessage(self.__dbus_object_path__, PORTAL + "Request",
                                                  "Response")
            results = {"uris": dbus.Array(uris, signature="s")} if uris else {}
            message.append(dbus.UInt32(response), dbus.Dictionary(results, signature="sv"),
                           signature="ua{sv}")
            bus.send_message(message)

    class Portal(dbus.service.Object):
        request = None

        @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="ss",
                             out_signature="v")
        def Get(self, interface, name):
            if (interface, name) != (PORTAL + "FileChooser", "version"):
                raise dbus.exceptions.DBusException("no such property")
            return dbus.UInt32(3)

        @dbus.service.method(PORTAL + "FileChooser", in_signature="ssa{sv}", out_signature="o",
                             sender_keyword="sender")
        def OpenFile(self, window, title, options, sender):
            folder = bytes(options["current_folder"]).decode()
            tell("OpenFile", window, title, bool(options["directory"]), folder)
            if kind == REFUSING:
                raise dbus.exceptions.DBusException(
                    "no", name="org.freedesktop.portal.Error.NotAllowed")
            path = f"{PATH}/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
            self.request = Request(bus, path)
            return dbus.ObjectPath(path)

        def read(self, *_):
            line = sys.stdin.readline()
            if line:
                self.request.respond(*json.loads(line))
            return bool(line)

    portal = Portal(bus, PATH)
    GLib.io_add_watch(sys.stdin, GLib.IO_IN | GLib.IO_HUP, portal.read)
    name = dbus.service.BusName(NAME, bus)
    GLib.MainLoop().run()
    del name


if __name__ == "__main__":
    _serve(sys.argv[1])

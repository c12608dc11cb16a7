"""A desktop of its own for one process: a virtual display with a window manager, a private session
bus and the bus of the accessibility tree."""

import os
import subprocess
import time

import pyatspi
from gi.repository import Gio, GLib

from display import DEADLINE, DeadlineError, Display

ACCESSIBILITY_BUS = "/usr/libexec/at-spi-bus-launcher"

# No services are offered beside those that a test puts there. Any user may connect, because the tests
# may run as another user than the desktop.
BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={folder}/bus</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow user="*"/>
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


def wait_until(what, condition, deadline=DEADLINE):
    """Polls until the condition returns something true, and returns that.

    what says in the error's text what was awaited, or is a function that says it; deadline is in
    seconds. Messages of the buses are delivered in between; a control that vanishes while the
    condition looks at it makes it look again.
    """
    last = time.monotonic() + deadline
    while True:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            result = condition()
        except GLib.Error:
            result = None
        if result:
            return result
        if time.monotonic() >= last:
            raise DeadlineError(f"not within {deadline:g} s: {what() if callable(what) else what}")
        time.sleep(0.02)


class Desktop(Display):
    """The display with a window manager and buses; a context manager that leaves nothing running.

    There is one per process, because the accessibility library connects once per process. Without
    accessible there is no accessibility tree, and programs need not keep one.

    process is the number of a process of the desktop; bus is the process of its session bus.
    """

    def __init__(self, user=None, accessible=True):
        super().__init__(user)
        self.process = None
        self.bus = None
        self._accessible = accessible

    def applications(self):
        """The programs in the accessibility tree."""
        return [application for application in pyatspi.Registry.getDesktop(0) if application]

    def screenshot(self, path):
        """Writes a picture of the active window with its frame; the file name tells the format."""
        subprocess.run(["import", "-frame", "-window", self.active_window(), str(path)],
                       env=self.environment, check=True)

    def active_window(self):
        """The number of the active window, once the window manager names it: the window knows earlier."""
        asked = ["xdotool", "getactivewindow"]
        return wait_until("an active window", lambda: subprocess.run(
            asked, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
            check=False).stdout.strip())

    def xdotool(self, *arguments):
        """Runs xdotool and returns its output; raises when it fails."""
        return subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True,
                              stdout=subprocess.PIPE, text=True).stdout

    def serve(self, name, path, interface, handle):
        """Offers an interface, given as XML, under that name on the session bus, and returns the connection to close.

        handle takes a call's parameters as Python values and returns the variant to answer with, if any.
        """
        connection = Gio.DBusConnection.new_for_address_sync(
            self.environment["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        connection.register_object(
            path, Gio.DBusNodeInfo.new_for_xml(interface).interfaces[0],
            lambda *call: call[6].return_value(handle(*call[5].unpack())), None, None)
        Gio.bus_own_name_on_connection(connection, name, Gio.BusNameOwnerFlags.NONE, None, None)
        return connection

    def _open(self):
        super()._open()
        self._start_bus()
        if self._accessible:
            self._start_accessibility()
        self._start_window_manager()

    def _start_bus(self):
        configuration = self.folder / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION.format(folder=self.folder))
        self.bus = self.start(["dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile"])
        address = f"unix:path={self.folder}/bus"
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        wait_until("the session bus", (self.folder / "bus").exists)

    def _start_accessibility(self):
        self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        self.start([ACCESSIBILITY_BUS, "--launch-immediately"])
        # The accessibility library in this very process reads its environment.
        os.environ["DISPLAY"] = self.environment["DISPLAY"]
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.environment["DBUS_SESSION_BUS_ADDRESS"]
        os.environ["AT_SPI_BUS_ADDRESS"] = wait_until("the accessibility bus", self._address)
        # On a busy machine the answer to a question may take as long as anything else.
        pyatspi.setTimeout(round(DEADLINE * 1000), round(DEADLINE * 1000))

    def _address(self):
        """The address of the accessibility bus, or nothing while it is not there yet."""
        reply = subprocess.run(
            ["dbus-send", "--session", "--print-reply=literal", "--dest=org.a11y.Bus",
             "/org/a11y/bus", "org.a11y.Bus.GetAddress"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False)
        return reply.stdout.strip() if reply.returncode == 0 else None

    def _start_window_manager(self):
        # The first key of all gives the display its keyboard. A window manager that runs by then
        # takes its keys anew, and loses those that are typed meanwhile.
        self.xdotool("key", "shift")
        # Its own menu would offer a click beside a window to end it.
        menu = self.folder / "openbox/menu.xml"
        menu.parent.mkdir()
        menu.write_text('<openbox_menu><menu id="root-menu" label="Empty"/></openbox_menu>', encoding="utf-8")
        environment = {**self.environment, "XDG_CONFIG_HOME": str(self.folder)}
        self.process = self.start(["openbox", "--sm-disable"], environment).pid
        wait_until("the window manager", lambda: subprocess.run(
            ["xdotool", "get_desktop"], env=self.environment, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL, check=False).returncode == 0)
        # Away from the middle, where it would hover over a button.
        self.xdotool("mousemove", 0, 0)

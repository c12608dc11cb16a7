"""A desktop of its own for one test process: a virtual display with a window manager, a private
session bus and the bus of the accessibility tree."""

import os
import select
import shutil
import subprocess
import tempfile
import time
from contextlib import ExitStack
from pathlib import Path

import pyatspi
from gi.repository import GLib

DEADLINE = 20.0
SCREEN = "1024x768x24"
ACCESSIBILITY_BUS = "/usr/libexec/at-spi-bus-launcher"
SUPPRESSIONS = Path(__file__).parent / "lsan.supp"

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


class DeadlineError(AssertionError):
    """Something awaited did not happen in time."""


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


class Desktop:
    """The display, window manager and buses; a context manager that leaves nothing running.

    There is one per process, because the accessibility library connects once per process. With a
    user number, which takes root, the desktop and its programs run as that user.

    folder is a scratch folder that the desktop's user owns; environment is what programs need to
    appear on this desktop; process is the number of a process of the desktop.
    """

    def __init__(self, user=None):
        self.folder = None
        self.environment = {}
        self.process = None
        self.user = os.geteuid() if user is None else user
        self._other = self.user != os.geteuid()
        self._cleanup = ExitStack()

    def __enter__(self):
        try:
            self._create_folder()
            self._start_display()
            self._start_buses()
            self._start_window_manager()
        except BaseException:
            self._cleanup.close()
            raise
        return self

    def __exit__(self, *details):
        self._cleanup.close()

    def start(self, command, environment=None, output=None, **options):
        """Starts a program that ends with the desktop, or with this process when it is killed.

        environment replaces the desktop's own; output names the file that takes what the program
        prints.
        """
        identity = [f"--reuid={self.user}", f"--regid={self.user}", "--clear-groups"]
        with (output or self.folder / "helpers.log").open("ab") as output:
            process = subprocess.Popen(
                ["setpriv", *(identity if self._other else []), "--pdeathsig", "KILL", *command],
                env=self.environment if environment is None else environment,
                stdin=subprocess.DEVNULL, stdout=output, stderr=output, **options)
        self._cleanup.callback(end, process)
        return process

    def new_folder(self):
        """Makes a new folder in the scratch folder."""
        return Path(tempfile.mkdtemp(dir=self.folder))

    def give(self, path):
        """Makes the desktop's user the owner of a file or folder."""
        if self._other:
            os.chown(path, self.user, self.user)

    def applications(self):
        """The programs in the accessibility tree."""
        return [application for application in pyatspi.Registry.getDesktop(0) if application]

    def screenshot(self, path):
        """Writes a picture of the active window with its frame; the file name tells the format."""
        window = self.xdotool("getactivewindow").strip()
        subprocess.run(["import", "-frame", "-window", window, str(path)], env=self.environment,
                       check=True)

    def xdotool(self, *arguments):
        """Runs xdotool and returns its output; raises when it fails."""
        return subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True,
                              stdout=subprocess.PIPE, text=True).stdout

    def _create_folder(self):
        self.folder = Path(tempfile.mkdtemp(prefix="vexora-desktop-", dir="/tmp"))
        self._cleanup.callback(shutil.rmtree, self.folder, ignore_errors=True)
        self.give(self.folder)
        for name in ("home", "runtime"):
            (self.folder / name).mkdir(mode=0o700)
            self.give(self.folder / name)
        # A program under the leak sanitizer reads this as whichever user it runs.
        suppressions = shutil.copy(SUPPRESSIONS, self.folder)
        os.chmod(suppressions, 0o644)
        self.environment = {
            "HOME": str(self.folder / "home"),
            "LANG": "C.UTF-8",
            "LSAN_OPTIONS": f"suppressions={suppressions}:print_suppressions=0",
            "PATH": "/usr/bin:/bin",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "QT_QPA_PLATFORM": "xcb",
            "TMPDIR": str(self.folder),
            "XDG_RUNTIME_DIR": str(self.folder / "runtime"),
        }

    def _start_display(self):
        reading, writing = os.pipe()
        with open(reading, "rb") as pipe:
            try:
                server = self.start(["Xvfb", "-displayfd", str(writing), "-screen", "0", SCREEN,
                                     "-ac", "-nolisten", "tcp", "-noreset"], pass_fds=[writing])
            finally:
                os.close(writing)
            if not select.select([pipe], [], [], DEADLINE)[0]:
                raise DeadlineError("the virtual display does not start")
            number = pipe.readline().decode().strip()
        if not number:
            raise RuntimeError(f"the virtual display ended with status {server.wait()}: "
                               + (self.folder / "helpers.log").read_text(errors="replace"))
        self.environment["DISPLAY"] = f":{number}"

    def _start_buses(self):
        configuration = self.folder / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION.format(folder=self.folder))
        self.start(["dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile"])
        address = f"unix:path={self.folder}/bus"
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        wait_until("the session bus", (self.folder / "bus").exists)
        self.start([ACCESSIBILITY_BUS, "--launch-immediately"])
        # The accessibility library in this very process reads its environment.
        os.environ["DISPLAY"] = self.environment["DISPLAY"]
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = address
        os.environ["AT_SPI_BUS_ADDRESS"] = wait_until("the accessibility bus", self._address)

    def _address(self):
        """The address of the accessibility bus, or nothing while it is not there yet."""
        reply = subprocess.run(
            ["dbus-send", "--session", "--print-reply=literal", "--dest=org.a11y.Bus",
             "/org/a11y/bus", "org.a11y.Bus.GetAddress"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False)
        return reply.stdout.strip() if reply.returncode == 0 else None

    def _start_window_manager(self):
        self.process = self.start(["openbox", "--sm-disable"]).pid
        wait_until("the window manager", lambda: subprocess.run(
            ["xdotool", "get_desktop"], env=self.environment, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL, check=False).returncode == 0)
        # Away from the middle, where it would hover over a button.
        self.xdotool("mousemove", 0, 0)


def end(process):
    """Ends a process that this one started, and waits for it."""
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()

"""What the program shows itself on, and speaks to other programs by."""

import subprocess

from case import HELD
from desktop import Desktop, wait_until
from installer import Installer, Unseen
from rows import BEGUN, FaultsTestCase, row

TOOLKIT = "the toolkit's own words\n"


class Unheard(Installer):
    """A program all on a desktop of its own, where assistive tools do not hear of it."""

    def __init__(self, stage, desktop):
        self.own = desktop
        super().__init__(stage, environment={
            "LC_ALL": "C.UTF-8",
            **{name: desktop.environment[name] for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS")}})

    def is_active(self):
        """Whether the window shows and has the keyboard."""
        try:
            active = self.own.xdotool("getactivewindow", "getwindowpid")
        except subprocess.CalledProcessError:
            return False
        return int(active) == self.process.pid

    def _find_window(self):
        self.check_running()
        return self.is_active()


class DisplayTest(FaultsTestCase):
    """A display of the program's own, beside the one of the class, which ends under it."""

    section = "Desktop"

    def setUp(self):
        super().setUp()
        self.own = self.enterContext(Desktop(self.desktop.user, accessible=False))

    @row("There is no display", "nothing", "none", TOOLKIT, given=[""], sample=True)
    @row("The display is nobody's", "nothing", "none", TOOLKIT, given=[":none"])
    def no_display(self, name):
        return self.enterContext(Unseen(self.stage(), environment={"LC_ALL": "C.UTF-8", "DISPLAY": name}))

    @row("The X server is killed on the start screen", "nothing", "none", TOOLKIT)
    def killed_at_start(self):
        installer = self.opened(self.stage(), DISPLAY=self.own.environment["DISPLAY"])
        self.own.server.kill()
        return installer

    @row("The X server is killed while install runs, which goes on", "nothing", f"{BEGUN}end\n", TOOLKIT, sample=True)
    def killed_while_install_runs(self):
        installer = self.held(DISPLAY=self.own.environment["DISPLAY"])
        self.own.server.kill()
        wait_until("the end of the program", lambda: not installer.is_running())
        self.assertEqual(installer.stage.log_text(), BEGUN)
        installer.stage.mark("go").touch()
        wait_until("the end of the log", lambda: installer.stage.log_text() == f"{BEGUN}end\n")
        return installer

    @row("The session bus is killed while install runs", "window", f"{BEGUN}end\n", sample=True)
    def bus_killed_while_install_runs(self):
        installer = self.enterContext(Unheard(self.stage(HELD), self.own))
        self.own.xdotool("key", "Return")
        wait_until("the script", lambda: installer.stage.log_text() == BEGUN)
        self.own.bus.kill()
        self.own.bus.wait()
        self.desktop = self.own  # of which the picture is taken
        installer.stage.mark("go").touch()
        wait_until("the end of the log", lambda: installer.stage.log_text() == f"{BEGUN}end\n")
        self.leave = lambda _: self.own.xdotool("key", "alt+F4")
        return installer

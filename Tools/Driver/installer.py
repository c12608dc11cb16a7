"""The staged installer as a person meets it: a copy of its folder, one running program, and its
controls in the accessibility tree."""

import re
import shutil
import time
from pathlib import Path

import pyatspi
from gi.repository import GLib

from desktop import wait_until

PROGRAM = "vexora-one-click-installer"
# What a control is, by its role. The names of the accessibility tree differ between its releases.
ROLES = {
    pyatspi.ROLE_LABEL: "label",
    pyatspi.ROLE_LINK: "link",
    pyatspi.ROLE_PROGRESS_BAR: "progress bar",
    pyatspi.ROLE_PUSH_BUTTON: "push button",
    pyatspi.ROLE_SCROLL_BAR: "scroll bar",
    pyatspi.ROLE_TEXT: "text",
}
LOG = Path("Library/Logs/Vexora_Lumiq/vexora-one-click-installer.log")


def strings(resources, language):
    """The strings file of a two-letter language as a table from message identifier to text."""
    path = resources / f"{language}.lproj" / "Localizable.strings"
    if not path.exists():
        return {}
    return dict(re.findall(r'^"(.*)" = "(.*)"$', path.read_text(encoding="utf-8"), re.MULTILINE))


class Stage:
    """The folder of the program and its resources, and the home folder of the person."""

    def __init__(self, desktop, folder, home):
        self.desktop = desktop
        self.program = folder / PROGRAM
        self.resources = folder / "Resources"
        self.home = home
        self.log = home / LOG

    def log_text(self):
        """What the install log holds; empty while there is none."""
        return self.log.read_text(encoding="utf-8") if self.log.exists() else ""


class ScratchStage(Stage):
    """A private copy of the staged folder, with scripts of the test's choice and an empty home.

    Both lie in a folder of their own on the desktop, in which scripts and tests leave marks for
    one another; stage and home are their names there.
    """

    def __init__(self, desktop, original, stage="stage", home="home"):
        self.folder = desktop.new_folder()
        super().__init__(desktop, self.folder / stage, self.folder / home)
        shutil.copytree(original, self.folder / stage)
        self.home.mkdir()
        for path in (self.folder, *self.folder.rglob("*")):
            desktop.give(path)

    def mark(self, name):
        """The path of a mark."""
        return self.folder / name

    def script(self, name, body):
        """Replaces install or unmount by a shell script with that body.

        The body finds the folder of the marks in $marks, and waits for one with: await NAME. A
        script that is still waiting when the desktop ends gives up.
        """
        path = self.resources / name
        path.write_text(
            "#!/bin/sh\n"
            f"marks='{self.folder}'\n"
            'await() { until [ -e "$marks/$1" ]; do [ -e "$marks" ] || exit; sleep 0.05; done; }\n'
            f"{body}\n", encoding="utf-8")
        path.chmod(0o755)


class Installer:
    """One running program; a context manager that ends it.

    language is the locale's identifier with its encoding; environment adds to the desktop's.
    Roles are named as in ROLES; controls and labels are found by the translation of their message
    identifier.
    """

    def __init__(self, stage, language="en_US.UTF-8", environment=None):
        self.stage = stage
        self.desktop = stage.desktop
        self._strings = strings(stage.resources, language[:2])
        self._output = self.desktop.new_folder() / "output.log"
        self.process = self.desktop.start(
            [str(stage.program)], {**self.desktop.environment, "HOME": str(stage.home),
                                   "LANG": language, **(environment or {})}, self._output)
        self.window = wait_until("the active window", self._find_window)

    def __enter__(self):
        return self

    def __exit__(self, *details):
        self.process.kill()
        self.process.wait()

    def text(self, identifier):
        """The translation of a message identifier, without its tags."""
        return re.sub("</?[a-zA-Z]+>", "", self._strings.get(identifier, identifier))

    def output(self):
        """What the program printed."""
        return self._output.read_text(encoding="utf-8", errors="replace")

    def controls(self):
        """Everything that shows in the window, in the order of the tree."""
        found = []
        _collect(self.window, found)
        return found

    def find(self, role, identifier=None):
        """Waits for a control that shows, and returns it."""
        name = None if identifier is None else self.text(identifier)
        return wait_until(lambda: f"{role} {name or ''} in {self.describe()}",
                          lambda: self._first(role, name))

    def shows(self, role, identifier=None):
        """Whether such a control shows now."""
        return self._first(role, None if identifier is None else self.text(identifier)) is not None

    def describe(self):
        """Roles, as far as ROLES has them, and names of everything that shows."""
        return [(ROLES.get(control.getRole()), control.name) for control in self.controls()]

    def check_running(self):
        """Raises an error with what the program printed, if it has ended."""
        if not self.is_running():
            raise AssertionError(f"the program ended with {self.process.returncode}: "
                                 + self.output())

    def progress(self):
        """The value of the progress bar."""
        return self.find("progress bar").queryValue().currentValue

    def wait_progress(self, value):
        """Waits until the progress bar shows at least that value."""
        wait_until(lambda: f"progress {value} but {self.progress()}",
                   lambda: self.progress() >= value, 60)

    def wait_rest(self):
        """Waits until the progress bar, which moves twice a second at least, has come to rest."""
        seen = {}
        wait_until("the bar's rest", lambda:
                   time.monotonic() > seen.setdefault(self.progress(), time.monotonic()) + 2)

    def focused(self):
        """The name of the control that takes the keys, or nothing. What holds it, or is held by it, has no name."""
        for control in self.controls():
            if control.name and control.getState().contains(pyatspi.STATE_FOCUSED):
                return control.name
        return None

    def press(self, control):
        """Presses a control through the accessibility tree."""
        action = control.queryAction()
        names = [action.getName(index) for index in range(action.nActions)]
        action.doAction(names.index("Press"))

    def click(self, control, times=1):
        """Clicks the middle of a control with the mouse."""
        area = control.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        self.desktop.xdotool("mousemove", area.x + area.width // 2, area.y + area.height // 2,
                             "click", "--repeat", times, "--delay", 60, 1)

    def key(self, *keys):
        """Types keys by their names, such as Tab."""
        self.desktop.xdotool("key", *keys)

    def close_window(self):
        """Closes the window as its owner does, with the window manager's key."""
        self.key("alt+F4")

    def is_active(self):
        """Whether the window has the keyboard, as far as the program knows."""
        return self._is_ready(self.window)

    def is_running(self):
        """Whether the program has not ended."""
        return self.process.poll() is None

    def wait_exit(self, action):
        """Does what ends the program, and returns the status with which it ends."""
        try:
            action()
        except GLib.Error:
            pass  # The program left before it answered the press.
        wait_until("the end of the program", lambda: not self.is_running())
        return self.process.returncode

    def _find_window(self):
        self.check_running()
        for application in self.desktop.applications():
            if application.get_process_id() == self.process.pid and application.childCount:
                window = application[0]
                if window and self._is_ready(window):
                    return window
        return None

    def _is_ready(self, window):
        """Whether the window has the keyboard; keys that are typed earlier are lost."""
        return window.getState().contains(pyatspi.STATE_ACTIVE)

    def _first(self, role, name):
        self.check_running()
        for control in self.controls():
            if ROLES.get(control.getRole()) == role and name in (None, control.name):
                return control
        return None


class Unseen(Installer):
    """A program that never shows a window."""

    def _find_window(self):
        return self.process


def _collect(control, found):
    for child in control:
        if child is not None and child.getState().contains(pyatspi.STATE_SHOWING):
            found.append(child)
            _collect(child, found)

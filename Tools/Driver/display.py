"""A virtual display with a scratch folder beside it, for programs that need no more."""

import os
import select
import shutil
import subprocess
import tempfile
from contextlib import ExitStack
from pathlib import Path

DEADLINE = 20.0
SCREEN = "1024x768x24"
SUPPRESSIONS = Path(__file__).parent / "lsan.supp"


class DeadlineError(AssertionError):
    """Something awaited did not happen in time."""


class Display:
    """The display; a context manager that leaves nothing running.

    With a user number, which takes root, the display and its programs run as that user.

    folder is a scratch folder that the display's user owns; environment is what programs need to
    appear on this display; server is its process.
    """

    def __init__(self, user=None):
        self.folder = None
        self.environment = {}
        self.server = None
        self.user = os.geteuid() if user is None else user
        self._other = self.user != os.geteuid()
        self._cleanup = ExitStack()

    def __enter__(self):
        try:
            self._open()
        except BaseException:
            self._cleanup.close()
            raise
        return self

    def __exit__(self, *details):
        self._cleanup.close()

    def start(self, command, environment=None, output=None, **options):
        """Starts a program that ends with the display, or with this process when it is killed.

        environment replaces the display's own; output names the file that takes what the program
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
        """Makes the display's user the owner of a file or folder."""
        if self._other:
            os.chown(path, self.user, self.user)

    def _open(self):
        self._create_folder()
        self._start_display()

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
            "QT_QPA_PLATFORM": "xcb",
            "TMPDIR": str(self.folder),
            "XDG_RUNTIME_DIR": str(self.folder / "runtime"),
        }

    def _start_display(self):
        reading, writing = os.pipe()
        with open(reading, "rb") as pipe:
            try:
                self.server = self.start(["Xvfb", "-displayfd", str(writing), "-screen", "0", SCREEN,
                                          "-ac", "-nolisten", "tcp", "-noreset"], pass_fds=[writing])
            finally:
                os.close(writing)
            if not select.select([pipe], [], [], DEADLINE)[0]:
                raise DeadlineError("the virtual display does not start")
            number = pipe.readline().decode().strip()
        if not number:
            raise RuntimeError(f"the virtual display ended with status {self.server.wait()}: "
                               + (self.folder / "helpers.log").read_text(errors="replace"))
        self.environment["DISPLAY"] = f":{number}"


def end(process):
    """Ends a process that this one started, and waits for it."""
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()

"""The rows of docs/faults.md: each tells of a fault, and is the test that makes it and holds the program to what the row
says. Only samples run unless VEXORA_LONG is 1. With VEXORA_RENEW=1 all of them run, and those that hold are written into
the document."""

import fcntl
import os
import re
import shutil
import signal
import subprocess
from dataclasses import dataclass
from pathlib import Path

from case import HELD, DesktopTestCase
from desktop import wait_until

RENEW = os.environ.get("VEXORA_RENEW") == "1"
LONG = RENEW or os.environ.get("VEXORA_LONG") == "1"
DOCUMENT = Path(os.environ["VEXORA_SOURCE"], "docs", "faults.md")
LIBRARY = Path(os.environ["VEXORA_BUILD"], "Tests", "Faults", "libfaults.so")
PICTURES = Path(os.environ["VEXORA_BUILD"], "faults")
HEAD = ("What was done", "The user sees", "Log", "System log", "Exit status")
ROOT = "Ran as root"

INSTALLING = "Installing <b>Ondrel Vexora Lumiq</b>..."
LICENCE = "By installing, you agree to the Ondrel Vexora <a>license agreement</a>."
# What HELD has printed when it waits.
BEGUN = "begin\n<&;>\n<wait $!>\n"
NOBODY = 65534
LONGEST = 100
# How much of a log is looked at, in bytes.
READ = 100_000_000
# What stands for a log that is no text, and for no program.
STATES = ("none", "empty", "a folder", "a FIFO", "a socket", "a device", "nothing")


@dataclass(frozen=True)
class Row:
    """What was done and what came of it; log and system log are their texts, or one of STATES.

    The status is the signal's name where a signal ended the program. root is what ran with root's rights, in sections
    that tell of it.
    """

    done: str
    seen: str
    log: str = "none"
    system: str = "none"
    status: int | str = 0
    root: str | None = None

    def line(self):
        """The line of the document."""
        cells = [self.done, self.seen, _cell(self.log), _cell(self.system), str(self.status)]
        return _line(cells if self.root is None else [*cells, _cell(self.root)])


def row(*values, given=(), sample=False, **more):
    """Makes a method the test of a row, or of several, each with what it is given.

    The method makes the fault and returns the program, or its answer to FaultsTestCase.started_on.
    """

    def decorate(method):
        method.__dict__.setdefault("rows", []).insert(0, (Row(*values, **more), given, sample))
        return method

    return decorate


def rows(them, *values, sample=None, **more):
    """Makes a method the test of rows that differ in what was done, what the method is given, and the status.

    Each of them has those three; sample is what the method is given for the sample.
    """

    def decorate(method):
        for done, given, status in reversed(them):
            method = row(done, *values, status=status, given=[given], sample=given == sample, **more)(method)
        return method

    return decorate


class FaultsTestCase(DesktopTestCase):
    """Runs as an ordinary user the rows that a class holds; section is their heading."""

    user = NOBODY if os.geteuid() == 0 else None
    section = ""

    def __init_subclass__(cls):
        cls.rows = []
        for name, method in list(vars(cls).items()):
            for row_, given, sample in getattr(method, "rows", ()):
                cls.rows.append(row_)
                if sample or LONG:
                    setattr(cls, f"test_{len(cls.rows):02}_{name}", _test(method, row_, given))

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.verified = []
        run = sum(name.startswith("test_") for name in vars(cls))
        if cls.rows:
            print(f"{cls.section}: {run} of {len(cls.rows)} rows", flush=True)

    @classmethod
    def tearDownClass(cls):
        if RENEW and cls.rows and sorted(cls.verified) == sorted(row_.line() for row_ in cls.rows):
            _renew(cls.section, cls.table())
        super().tearDownClass()

    @classmethod
    def table(cls):
        """The table of the section as it belongs into the document."""
        head = HEAD if cls.rows[0].root is None else [*HEAD, ROOT]
        return _line(head) + "|---" * len(head) + "|\n" + "".join(row_.line() for row_ in cls.rows)

    def setUp(self):
        self.later = lambda: None

    def started_on(self, stage, **environment):
        """The program over that stage, whose Start button has been pressed."""
        installer = self.opened(stage, **environment)
        installer.press(installer.find("push button", "Start"))
        return installer

    def held(self, stage=None, **environment):
        """A run over that stage, or another whose install is HELD, once install waits for the mark go."""
        installer = self.started_on(stage or self.stage(HELD), **environment)
        wait_until("the script", lambda: installer.stage.log_text() == BEGUN)
        return installer

    def opened(self, stage, **environment):
        """The program over that stage, in English, as what it starts is; no strings file is read for the test."""
        return self.launch(stage, "--", **{"LC_ALL": "C.UTF-8", **environment})

    def wrapped(self, stage, body):
        """The stage with a script in the program's place, whose body ends by running $program."""
        wrapper = stage.folder / "wrapper"
        wrapper.write_text(f"#!/bin/sh\nprogram='{stage.program}'\n{body}\n", encoding="utf-8")
        wrapper.chmod(0o755)
        stage.program = wrapper
        return stage

    def preloaded(self, stage):
        """The stage, whose program has the library of Preloaded.cpp loaded."""
        library = shutil.copy(LIBRARY, stage.folder)
        return self.wrapped(stage, f"exec env VEXORA_FAULTS='{stage.folder}' LD_PRELOAD='{library}' \"$program\"")

    def fault(self, stage, name, number=0):
        """Has the library make that fault, until its link is removed."""
        stage.mark(name).symlink_to(str(number))

    def made(self, path, mode=None):
        """A file or folder that belongs to the desktop's user, with that mode until the test ends."""
        self.desktop.give(path)
        if mode is not None:
            self.addCleanup(path.chmod, path.stat().st_mode & 0o777)
            path.chmod(mode)
        return path

    def put(self, path, content, mode=None):
        """A file with that content in place of whatever lies there."""
        path.unlink(missing_ok=True)
        path.write_bytes(content if isinstance(content, bytes) else content.encode("utf-8"))
        return self.made(path, mode)

    def folder(self, path):
        """A folder of the desktop's user, and those on the way to it."""
        for parent in (*reversed(path.parents), path):
            if not parent.exists():
                parent.mkdir()
                self.made(parent)
        return path

    def check(self, installer, expected):
        """Holds what came of a fault to its row."""
        self.assert_seen(installer, *expected.seen.partition(": ")[::2])
        if installer.is_running():
            self.take_picture()
        status = installer.wait_exit(lambda: self.leave(installer))
        self.later()
        if status < 0:
            status = signal.Signals(-status).name
        found = Row(expected.done, expected.seen, self.log(installer), self.system(installer), status,
                    self.root(installer))
        self.maxDiff = None
        self.assertEqual(vars(found), vars(expected))
        type(self).verified.append(found.line())
        if not RENEW:
            self.assertIn(found.line(), _sections().get(self.section, ""))

    def assert_seen(self, installer, kind, text):
        """Waits for what the user is to see, and checks all of it."""
        if kind == "success":
            installer.find("label", "Installation completed!")
            self.assertEqual(installer.progress(), 100)
            self.assertTrue(installer.shows("link", LICENCE))
        elif kind in ("failure", "notice"):
            wait_until("the failure screen", lambda: not installer.shows("link", LICENCE)
                       and installer.shows("link"))
            self.assertEqual(installer.find("link").name, f"{text} Open logs")
            self.assertEqual(installer.shows("label", "Installation failed"), kind == "failure")
        elif kind == "licence":
            area = installer.find("text", "License Agreement").queryText()
            self.assertEqual(_short(area.getText(0, -1)) or "empty", text)
        elif kind == "bar at rest":
            installer.wait_rest()
            self.assertTrue(installer.shows("label", INSTALLING))
        elif kind == "window":
            self.assertTrue(installer.is_active())
        elif kind == "nothing":
            wait_until("the end of the program", lambda: not installer.is_running())
        elif kind == "start screen":
            self.assertEqual(installer.find("push button").name, text)
        elif kind == "installing":
            installer.find("label", INSTALLING)
            self.assertLess(installer.progress(), 100)
        else:
            self.fail(f"nobody sees {kind}")

    def take_picture(self):
        """Leaves a picture of what the user sees; where none can be taken there is none."""
        try:
            PICTURES.mkdir(exist_ok=True)
            self.desktop.screenshot(PICTURES / f"{self.id().split('.', 1)[1]}.png")
        except (OSError, subprocess.SubprocessError) as error:
            print(f"no picture: {error}")

    def leave(self, installer):
        """Presses Close where the window has that button, and closes the window elsewhere."""
        if not installer.is_running():
            return
        if installer.shows("push button", "Close"):
            installer.press(installer.find("push button", "Close"))
        else:
            installer.close_window()

    def log(self, installer):
        """The log as rows tell it."""
        path = installer.stage.log
        if not os.path.exists(path):
            return "none"
        for kind, word in ((path.is_dir(), "a folder"), (path.is_fifo(), "a FIFO"), (path.is_socket(), "a socket"),
                           (path.is_char_device(), "a device")):
            if kind:
                return word
        with path.open("rb") as file:
            text = self.told(installer, file.read(READ).decode("utf-8", "backslashreplace")) or "empty"
        return _short(text, path.stat().st_size if len(text) == READ else None)

    def system(self, installer):
        """What the program has written to the system log, as rows tell it."""
        return self.told(installer, installer.output()) or "none"

    def root(self, _installer):
        """What ran with root's rights, or nothing in sections that do not tell of it."""
        return None

    def told(self, installer, text):
        """A text with words for the folders that differ from run to run."""
        stage = installer.stage
        for path, word in ((stage.resources, "$RESOURCES"), (stage.home, "$HOME"), (stage.folder, "$SCRATCH")):
            text = text.replace(str(path), word)
        # How the system's programs quote and what they call themselves depends on their release.
        text = text.translate({ord("‘"): "'", ord("’"): "'"}).replace("/usr/bin/nohup: failed", "nohup: failed")
        text = re.sub(r"(qt\.qpa|The X11 connection broke)[\s\S]*", "the toolkit's own words\n", text)
        return re.sub(r"[\x00-\x09\x0b-\x1f\x7f]", lambda found: f"\\x{ord(found[0]):02x}", text)

    def test_00_document_has_these_rows(self):
        if RENEW:
            self.skipTest("the document is being written")
        self.assertEqual(_sections().get(self.section), self.table())


def _test(method, row_, given):
    def test(self):
        self.check(method(self, *given), row_)

    test.__doc__ = row_.done
    return test


def _line(cells):
    return "| " + " | ".join(cell.replace("|", "\\|") for cell in cells) + " |\n"


def _short(text, size=None):
    """The text, or its beginning and how long it is."""
    size = size or len(text)
    return text if size <= LONGEST else f"{text[:LONGEST // 2]}… ({size} characters)"


def _cell(text):
    """A text of log or system log with its lines under one another."""
    return text if text in STATES else "<br>".join(f"`{line}`" for line in text.splitlines() if line)


def _sections():
    """The tables of the document by their headings."""
    found = re.findall(r"^## (.+)\n\n((?:\|.*\n)*)", DOCUMENT.read_text(encoding="utf-8"), re.MULTILINE)
    return dict(found)


def _renew(section, table):
    """Puts a section's table into the document, at the end if it has no such section yet."""
    with DOCUMENT.open("r+", encoding="utf-8") as document:
        fcntl.flock(document, fcntl.LOCK_EX)
        text = document.read()
        if section not in _sections():
            text += f"\n## {section}\n\n"
        text = re.sub(rf"^## {re.escape(section)}\n\n(?:\|.*\n)*",
                      lambda _: f"## {section}\n\n{table}", text, flags=re.MULTILINE)
        document.seek(0)
        document.truncate()
        document.write(text)

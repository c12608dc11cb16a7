"""The program under what nobody would do on purpose. Everything random follows from a seed, which is printed and which
VEXORA_SEED sets. With VEXORA_LONG=1 there is fifty times as much of it."""

import math
import os
import random
import time
import unittest
from collections import Counter
from functools import partial

from desktop import Desktop, wait_until
from installer import LOG, ScratchStage
from window import RETURN, Windows

LONG = os.environ.get("VEXORA_LONG") == "1"
SEED = os.environ.get("VEXORA_SEED", "1")
INSTALL = 'echo begin; echo >"$HOME/begun"; sleep "$TAKES"; echo end; echo >"$HOME/ended"; exit "$STATUS"'
WHOLE = "begin\nend\n"


class RandomTestCase(unittest.TestCase):
    """A desktop without assistive tools, and programs that share a stage but no home folder."""

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(accessible=False))
        cls.windows = cls.enterClassContext(Windows(cls.desktop))
        cls.stage = ScratchStage(cls.desktop, os.environ["VEXORA_STAGE"])
        cls.stage.script("install", INSTALL)
        cls.stage.script("unmount", "")
        cls.stage.mark("xdg-open").write_text("#!/bin/sh\n", encoding="utf-8")
        cls.stage.mark("xdg-open").chmod(0o755)

    def setUp(self):
        print(f"seed {SEED}", flush=True)
        self.random = random.Random(SEED)

    def start(self, takes, status, **environment):
        """A program whose install takes so many seconds and ends with that status."""
        return Program(self.desktop, self.stage, {"TAKES": f"{takes:.2f}", "STATUS": str(status), **environment})


class Program:
    """A running program."""

    def __init__(self, desktop, stage, environment):
        self.home = desktop.new_folder()
        self.output = self.home / "output"
        self.process = desktop.start(
            [str(stage.program)], {**desktop.environment, "HOME": str(self.home), "LC_ALL": "C.UTF-8",
                                   "PATH": f"{stage.folder}:{desktop.environment['PATH']}", **environment}, self.output)
        self.started = time.monotonic()
        self.window = None
        self.start_at = None
        self.close_at = None

    def has_begun(self):
        """Whether install is or was at work."""
        return (self.home / "begun").exists()

    def is_whole(self):
        """Whether install has not begun, or has come to its end with all of its log."""
        log = self.home / LOG
        text = log.read_text(encoding="utf-8") if log.exists() else ""
        return text == (WHOLE if self.has_begun() else "") and self.has_begun() == (self.home / "ended").exists()


class RandomClosesTest(RandomTestCase):
    """Windows that are closed at random moments, several programs at a time, and every eighth about when its outcome shows."""

    def test_every_close_ends_well(self):
        waiting = list(range(1000 if LONG else 20))
        running = {}
        programs = []
        closed = Counter()
        while waiting or running:
            while waiting and len(running) < 4:
                number = waiting.pop()
                # Where they see one another, only one of them has a window.
                running[number] = self.start(self.random.uniform(0, 1.2), self.random.choice((0, 0, 3, 5, 30)),
                                             DBUS_SESSION_BUS_ADDRESS="none:")
                programs.append(running[number])
            for number, program in list(running.items()):
                self.go_on(program, number % 8 == 0, closed)
                if program.process.poll() is not None:
                    self.assertEqual(program.process.returncode, 0, program.output.read_text())
                    del running[number]
            time.sleep(0.005)
        wait_until(lambda: [str(program.home) for program in programs if not program.is_whole()],
                   lambda: all(program.is_whole() for program in programs))
        print(f"{len(programs)} closes, all with status 0: {dict(closed)}")
        self.assertEqual(sum(closed.values()), len(programs))

    def go_on(self, program, aimed, closed):
        """Takes the next step of that program, if it is due."""
        now = time.monotonic()
        if program.window is None:
            program.window = self.windows.of(program.process)
            if program.window is not None:
                program.start_at = now + (0 if aimed else self.random.uniform(0, 0.5))
                program.close_at = None if aimed else now + self.random.uniform(0, 3)
        elif program.start_at is not None and now >= program.start_at:
            program.start_at = None
            self.windows.press(program.window, RETURN)
        elif program.close_at is None and program.has_begun():
            # The run looks at install once a second.
            program.close_at = now + self.random.choice((1, 2)) + self.random.uniform(-0.05, 0.4)
        elif program.close_at is not None and now >= program.close_at:
            program.close_at = math.inf
            closed[self.state(program)] += 1
            self.windows.close(program.window)
        self.assertLess(now, program.started + 60, "the program does not end")

    def state(self, program):
        """What the program is at, as far as one can tell from outside."""
        if not program.has_begun():
            return "before install"
        return "after install" if (program.home / "ended").exists() else "while install runs"


class RandomActionsTest(RandomTestCase):
    """Keys, clicks and sizes of the window, for a program that watches over itself."""

    KEYS = ("Tab", "Tab", "shift+Tab", "Return", "space", "Escape", "Up", "Down", "Left", "Right", "Page_Down", "Page_Up",
            "Home", "End", "a", "ctrl+a", "ctrl+c", "Menu", "shift+F10", "F1", "F10", "alt+F4")

    def test_no_action_is_a_fault(self):
        actions = 10_000 if LONG else 200
        program = None
        done = Counter()
        while sum(done.values()) < actions:
            if program is None:
                program = self.start(self.random.uniform(0, 2), self.random.choice((0, 3, 5, 30)))
                program.window = wait_until(program.output.read_text, partial(self.windows.of, program.process))
                done["start"] += 1
            chain = []
            for _ in range(10):
                kind = self.random.choice(("key", "key", "click", "click", "click", "size"))
                done[kind] += 1
                chain += getattr(self, kind)(program.window)
            self.windows.operate(*chain)
            if program.process.poll() is not None:
                self.assert_ended_well(program)
                program = None
        if program is not None:
            self.windows.close(program.window)
            wait_until("the end of the program", lambda: program.process.poll() is not None)
            self.assert_ended_well(program)
        print(f"{sum(done.values())} actions: {dict(done)}")

    def assert_ended_well(self, program):
        """Checks the status, which tells of a report, too."""
        self.assertEqual(program.process.returncode, 0, program.output.read_text(errors="replace"))

    def key(self, _window):
        """A key for whatever takes it."""
        return "key", self.random.choice(self.KEYS)

    def click(self, window):
        """A click or a turn of the wheel somewhere in the window."""
        return ("mousemove", "--window", window, self.random.randrange(640), self.random.randrange(580),
                "click", self.random.choice((1, 1, 1, 1, 2, 3, 4, 5)))

    def size(self, window):
        """A size that the window may take or refuse."""
        return "windowsize", window, self.random.randrange(1, 1200), self.random.randrange(1, 900)

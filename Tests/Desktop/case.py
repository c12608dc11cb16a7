"""The base of the desktop's test cases, and the scripts that several of them install."""

import os
import time
import unittest

from desktop import Desktop
from installer import Installer, ScratchStage

# Prints its arguments, then waits for the mark go before it ends well.
HELD = 'echo begin; for a; do printf "<%s>\\n" "$a"; done; await go; echo end'


class DesktopTestCase(unittest.TestCase):
    """Starts one desktop for all tests of the class; user is the number of the desktop's user."""

    user = None

    @classmethod
    def setUpClass(cls):
        cls.original = os.environ["VEXORA_STAGE"]
        cls.desktop = cls.enterClassContext(Desktop(cls.user))

    def stage(self, install="exit 0", **folders):
        """A copy of the staged folder whose install script has that body.

        The unmount script writes its arguments to the mark unmounted.
        """
        stage = ScratchStage(self.desktop, self.original, **folders)
        stage.script("install", install)
        stage.script("unmount", 'printf "<%s>" "$@" >"$marks/part"\n'
                                'mv "$marks/part" "$marks/unmounted"')
        return stage

    def launch(self, stage, language="en_US.UTF-8", **environment):
        """Starts the program, which ends with the test."""
        return self.enterContext(Installer(stage, language, environment))

    def started(self, *arguments, **folders):
        """A program whose Start button has been pressed."""
        installer = self.launch(self.stage(*arguments, **folders))
        installer.press(installer.find("push button", "Start"))
        return installer

    def assert_ends_well(self, installer, action):
        """Does what ends the program, and checks that it ends, with status 0."""
        start = time.monotonic()
        status = installer.wait_exit(action)
        print(f"{self.id()}: ended after {(time.monotonic() - start) * 1000:.0f} ms")
        self.assertEqual(status, 0)

    def assert_stays(self, what, condition, seconds=0.7):
        """Checks that a condition holds for that long."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.assertTrue(condition(), what)
            time.sleep(0.02)

    def assert_never_unmounted(self, installer):
        """Checks that the unmount script does not run."""
        mark = installer.stage.mark("unmounted")
        self.assert_stays("unmount ran", lambda: not mark.exists())

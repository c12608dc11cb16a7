"""The staged bundle as a person meets it, on a display of its own with a window manager."""

import os
import re
import subprocess
import time
import unittest

from desktop import Desktop, wait_until
from installer import PROGRAM, ScratchStage, strings

TITLE = "Ondrel Vexora Lumiq Setup"

# Places in the window's content, by the interface definitions.
CLOSE_BUTTON = (468, 420)
MARK_ON_BAR = (470, 275)
MIDDLE_OF_ICON = (280, 148)


class Bundle(ScratchStage):
    """A private copy of the bundle, with scripts of the test's choice and an empty home."""

    def __init__(self, desktop):
        super().__init__(desktop, os.environ["VEXORA_BUNDLE"], stage="The Setup.app")
        contents = self.folder / "The Setup.app" / "Contents"
        self.program = contents / "MacOS" / PROGRAM
        self.resources = contents / "Resources"
        # The toolkit looks for the home folder in the system's list of users.
        self.settings = self.folder / "GNUstep.conf"
        self.settings.write_text(f"GNUSTEP_USER_DEFAULTS_DIR={self.home}/GNUstep/Defaults\n"
                                 f"GNUSTEP_USER_DIR_LIBRARY={self.home}/GNUstep/Library\n")
        self.settings.chmod(0o600)


class Program:
    """One running program; a context manager that ends it."""

    def __init__(self, bundle, language="en_US.UTF-8"):
        self.bundle = bundle
        self.desktop = bundle.desktop
        environment = {**self.desktop.environment, "HOME": str(bundle.home), "LANG": language,
                       "GNUSTEP_CONFIG_FILE": str(bundle.settings),
                       "ASAN_OPTIONS": "detect_leaks=0"}
        self.process = self.desktop.start([str(bundle.program)], environment,
                                          bundle.folder / "output.log")
        self.title = strings(bundle.resources, language[:2])[TITLE]
        self.window = wait_until(lambda: f"{self.title}: {self.output()}", self._find_window)

    def __enter__(self):
        return self

    def __exit__(self, *details):
        self.process.kill()
        self.process.wait()

    def output(self):
        """What the program printed."""
        return (self.bundle.folder / "output.log").read_text(errors="replace")

    def key(self, name):
        """Types a key by its name, such as Return."""
        self.desktop.xdotool("key", name)

    def click(self, place):
        """Clicks a place of the window's content, no faster than a hand does."""
        self.desktop.xdotool("mousemove", "--window", self.window, *place, "sleep", 0.2,
                             "mousedown", 1, "sleep", 0.1, "mouseup", 1)

    def color(self, place):
        """The red, green and blue of a place of the content, or nothing while no picture can be taken."""
        text = subprocess.run(
            ["import", "-window", self.window, "-crop", "1x1+{}+{}".format(*place), "-depth", "8",
             "txt:-"],
            env=self.desktop.environment, check=False, stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL, text=True).stdout
        found = re.search(r"#(\w\w)(\w\w)(\w\w)", text)
        return [int(part, 16) for part in found.groups()] if found else []

    def wait_success(self):
        """Waits until the bar carries its green mark."""
        self._wait_color("the mark of success", MARK_ON_BAR,
                         lambda red, green, blue: green > 100 and max(red, blue) < 80)

    def wait_failure(self):
        """Waits until the red icon shows."""
        self._wait_color("the failure's icon", MIDDLE_OF_ICON,
                         lambda red, green, blue: red > 140 and max(green, blue) < 90)

    def _wait_color(self, what, place, condition):
        def meets():
            color = self.color(place)
            return color and condition(*color)

        wait_until(lambda: f"{what}, but {self.color(place)}; log: {self.bundle.log_text()!r}; "
                           f"active: {self._ask('getactivewindow', 'getwindowname')!r}; "
                           f"{self.output()}", meets, 60)

    def _find_window(self):
        if self.process.poll() is not None:
            raise AssertionError(f"ended with {self.process.returncode}: {self.output()}")
        if self._ask("getactivewindow", "getwindowname") != self.title:
            return None
        active = self._ask("getactivewindow")
        # Keys that are typed earlier are lost.
        return active if self._ask("getwindowfocus", "-f") == active else None

    def _ask(self, *question):
        """What xdotool answers; empty where the window in question has just gone."""
        return subprocess.run(["xdotool", *question], env=self.desktop.environment, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              text=True).stdout.strip()


class ProgramTest(unittest.TestCase):
    """Starts one desktop for all tests of the class."""

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop())

    def bundle(self, install=None):
        """A copy of the bundle; install is the body of its install script in place of the real one.

        The unmount script writes its arguments to the mark unmounted.
        """
        bundle = Bundle(self.desktop)
        if install is not None:
            bundle.script("install", install)
        bundle.script("unmount", 'printf "<%s>" "$@" >"$marks/part"\n'
                                 'mv "$marks/part" "$marks/unmounted"')
        return bundle

    def launch(self, bundle, language="en_US.UTF-8"):
        """Starts the program, which ends with the test."""
        return self.enterContext(Program(bundle, language))

    def assert_ends_well(self, program, action):
        """Does what ends the program, and checks that it ends soon and with status 0."""
        start = time.monotonic()
        action()
        wait_until("the end of the program", lambda: program.process.poll() is not None, 2.0)
        print(f"{self.id()}: ended after {(time.monotonic() - start) * 1000:.0f} ms")
        self.assertEqual(program.process.returncode, 0)

    def assert_never_unmounted(self, bundle):
        """Checks that the unmount script does not run."""
        end = time.monotonic() + 0.7
        while time.monotonic() < end:
            self.assertFalse(bundle.mark("unmounted").exists())
            time.sleep(0.02)

    def test_window_has_the_title_of_the_language(self):
        titles = set()
        for language in ("en_US.UTF-8", "de_DE.UTF-8", "ar_EG.UTF-8", "ja_JP.UTF-8"):
            with Program(self.bundle(), language) as program:
                titles.add(program.title)
                self.assert_ends_well(program, lambda: program.key("alt+F4"))
        self.assertIn("Ondrel Vexora Lumiq – Installation", titles)
        self.assertEqual(len(titles), 4)

    def test_return_starts_the_real_installation(self):
        bundle = self.bundle()
        program = self.launch(bundle)
        self.assertFalse(bundle.log.exists())
        program.key("Return")
        program.wait_success()
        self.assertTrue((bundle.home / ".mozilla/plugins/Lumiq.plugin/VERSION").exists())
        self.assertTrue(bundle.log.exists())

    def test_close_after_a_success_unmounts(self):
        bundle = self.bundle('for a; do printf "<%s>\\n" "$a"; done')
        program = self.launch(bundle)
        program.key("Return")
        program.wait_success()
        self.assertEqual(bundle.log_text(), "<&;>\n<wait $!>\n")
        self.assert_ends_well(program, lambda: program.click(CLOSE_BUTTON))
        wait_until("the unmount script", bundle.mark("unmounted").exists)
        self.assertEqual(bundle.mark("unmounted").read_text(), "<&>")

    def test_close_after_a_failure_does_not_unmount(self):
        bundle = self.bundle("echo newer; exit 10")
        program = self.launch(bundle, "de_DE.UTF-8")
        program.key("Return")
        program.wait_failure()
        self.assertEqual(bundle.log_text(), "newer\n")
        self.assert_ends_well(program, lambda: program.click(CLOSE_BUTTON))
        self.assert_never_unmounted(bundle)

    def test_refused_rights_are_a_failure(self):
        bundle = self.bundle("exit 1")
        program = self.launch(bundle)
        program.key("Return")
        program.wait_failure()
        self.assertIn("Upgrade system-wide failed\n", program.output())

    def test_closed_window_leaves_the_running_script_alone(self):
        bundle = self.bundle("echo begin; await go; echo end")
        program = self.launch(bundle)
        program.key("Return")
        wait_until("the script", lambda: bundle.log_text() == "begin\n")
        self.assert_ends_well(program, lambda: program.key("alt+F4"))
        bundle.mark("go").touch()
        wait_until("the end of the log", lambda: bundle.log_text() == "begin\nend\n")
        self.assert_never_unmounted(bundle)

    def test_window_closes_after_a_success_without_unmount(self):
        bundle = self.bundle("exit 0")
        program = self.launch(bundle)
        program.key("Return")
        program.wait_success()
        self.assert_ends_well(program, lambda: program.key("alt+F4"))
        self.assert_never_unmounted(bundle)

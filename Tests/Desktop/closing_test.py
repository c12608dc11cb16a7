"""Leaving the program in the middle of its work, and what a hasty second click does."""

from case import HELD, DesktopTestCase
from desktop import wait_until


class ClosingTest(DesktopTestCase):
    """The program ends at once, and the running script goes on."""

    def assert_script_goes_on(self, installer):
        """Checks that the script, held until now, runs to its end and completes the log."""
        begun = "begin\n<&;>\n<wait $!>\n"
        self.assertEqual(installer.stage.log_text(), begun)
        installer.stage.mark("go").touch()
        wait_until("the end of the log",
                   lambda: installer.stage.log_text() == f"{begun}end\n")
        self.assert_never_unmounted(installer)

    def held(self):
        """A program whose script runs until it may go on."""
        installer = self.started(HELD)
        wait_until("the script", lambda: "wait $!" in installer.stage.log_text())
        return installer

    def test_close_button_leaves_the_running_script_alone(self):
        installer = self.held()
        close = installer.find("push button", "Close")
        self.assert_ends_well(installer, lambda: installer.click(close))
        self.assert_script_goes_on(installer)

    def test_closed_window_leaves_the_running_script_alone(self):
        installer = self.held()
        self.assert_ends_well(installer, installer.close_window)
        self.assert_script_goes_on(installer)

    def test_window_closes_on_the_start_screen(self):
        installer = self.launch(self.stage())
        installer.find("push button", "Start")
        self.assert_ends_well(installer, installer.close_window)

    def test_window_closes_on_the_licence_screen(self):
        installer = self.held()
        installer.press(installer.find("link"))
        installer.find("label", "License Agreement")
        self.assert_ends_well(installer, installer.close_window)
        self.assert_script_goes_on(installer)

    def test_window_closes_after_a_success_without_unmount(self):
        installer = self.started("exit 0")
        installer.find("label", "Installation completed!")
        self.assert_ends_well(installer, installer.close_window)
        self.assert_never_unmounted(installer)


class SecondClickTest(DesktopTestCase):
    """A double click on Start is a click on Start."""

    def check(self, start):
        """Checks that whatever starts the installation starts it once and leaves it running."""
        installer = self.launch(self.stage('echo run >>"$marks/runs"; await go'))
        start(installer, installer.find("push button", "Start"))
        installer.wait_progress(40)
        self.assertTrue(installer.is_running())
        self.assertEqual(installer.stage.mark("runs").read_text(), "run\n")
        self.assertFalse(installer.shows("label", "License Agreement"))

    def test_double_click(self):
        self.check(lambda installer, start: installer.click(start, 2))

    def test_triple_click(self):
        self.check(lambda installer, start: installer.click(start, 3))

    def test_return_twice(self):
        self.check(lambda installer, start: installer.key("Return", "Return"))

    def test_space_twice(self):
        self.check(lambda installer, start: installer.key("space", "space"))

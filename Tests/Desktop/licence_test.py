"""The licence screen over a running installation."""

from case import HELD, DesktopTestCase
from desktop import wait_until


class LicenceTest(DesktopTestCase):
    """Opening and leaving the licence disturbs nothing."""

    def setUp(self):
        self.installer = self.started(HELD)
        self.installer.wait_progress(20)
        self.value = self.installer.progress()
        self.open()

    def open(self):
        """Opens the licence."""
        self.installer.press(self.installer.find("link"))
        self.installer.find("label", "License Agreement")

    def assert_progress_intact(self):
        """Checks that the bar is back where it would be, goes on, and reaches its end."""
        value = self.installer.progress()
        self.assertGreaterEqual(value, self.value)
        self.installer.find("label", "Installing <b>Ondrel Vexora Lumiq</b>...")
        self.assertFalse(self.installer.shows("label", "License Agreement"))
        self.installer.wait_progress(value + 2)
        self.installer.stage.mark("go").touch()
        self.installer.find("label", "Installation completed!")

    def test_covers_everything_else(self):
        self.assertFalse(self.installer.shows("progress bar"))
        self.assertFalse(self.installer.shows("link"))
        self.assertFalse(self.installer.shows("push button", "Close"))

    def test_shows_the_whole_agreement(self):
        expected = (self.installer.stage.resources / "LA_en").read_text(encoding="utf-16")
        text = self.installer.find("text", "License Agreement").queryText()
        self.assertEqual(text.getText(0, -1), expected)
        self.assertIn("license", expected.lower())

    def test_go_back_button(self):
        self.installer.press(self.installer.find("push button", "Go back"))
        self.assert_progress_intact()

    def test_return_goes_back(self):
        self.installer.key("Return")
        self.assert_progress_intact()

    def test_escape_goes_back(self):
        self.installer.key("Escape")
        self.assert_progress_intact()

    def test_opens_again_after_the_success(self):
        self.installer.press(self.installer.find("push button", "Go back"))
        self.assert_progress_intact()
        self.open()
        self.installer.key("Escape")
        self.installer.find("label", "Installation completed!")
        self.assertEqual(self.installer.progress(), 100)

    def test_success_comes_under_the_open_licence(self):
        self.installer.stage.mark("go").touch()
        wait_until("the end of the log",
                   lambda: self.installer.stage.log_text().endswith("end\n"))
        self.assert_stays("the licence goes away",
                          lambda: self.installer.shows("label", "License Agreement"), 2.5)
        self.installer.key("Escape")
        self.installer.find("label", "Installation completed!")

    def test_failure_shows_over_the_open_licence(self):
        # Another window of the program would be left to this one.
        self.installer.wait_exit(self.installer.close_window)
        installer = self.started("await go; exit 30")
        installer.press(installer.find("link"))
        installer.find("label", "License Agreement")
        installer.stage.mark("go").touch()
        installer.find("label", "Installation failed")
        self.assertFalse(installer.shows("label", "License Agreement"))
        self.assertFalse(installer.shows("push button", "Go back"))
        installer.find("push button", "Close")

"""What the window shows and starts when the installation has come to its end."""

import os

from gi.repository import GLib

from case import HELD, DesktopTestCase
from desktop import wait_until
from window import Windows

LICENCE = "By installing, you agree to the Ondrel Vexora <a>license agreement</a>."

# The file manager's and the browser's parts, as far as the program asks for them.
FILE_MANAGER = """<node><interface name="org.freedesktop.FileManager1"><method name="ShowItems">
  <arg type="as" direction="in"/><arg type="s" direction="in"/></method></interface></node>"""
BROWSER = '#!/bin/sh\nprintf "%s" "$1" >"$0.part" && mv "$0.part" "$0.opened"\n'


class SuccessTest(DesktopTestCase):
    """An install script that ends with status 0."""

    def test_label_changes_under_a_full_bar(self):
        installer = self.started("await go; echo installed")
        installer.find("label", "Installing <b>Ondrel Vexora Lumiq</b>...")
        installer.stage.mark("go").touch()
        installer.find("label", "Installation completed!")
        value = installer.find("progress bar", "Installation completed!").queryValue()
        self.assertEqual((value.minimumValue, value.currentValue, value.maximumValue),
                         (0.0, 100.0, 100.0))
        self.assertTrue(installer.shows("link", LICENCE))
        self.assertFalse(installer.shows("label", "Installing <b>Ondrel Vexora Lumiq</b>..."))
        self.assertEqual(installer.stage.log_text(), "installed\n")

    def test_bar_rests_below_full_while_the_script_runs(self):
        installer = self.started(HELD)
        installer.wait_progress(90)
        installer.wait_rest()
        self.assertLess(installer.progress(), 100)
        self.assertFalse(installer.shows("label", "Installation completed!"))
        installer.stage.mark("go").touch()
        installer.find("label", "Installation completed!")
        self.assertEqual(installer.progress(), 100)

    def test_script_gets_the_two_fixed_arguments(self):
        installer = self.started('printf "<%s>" "$0" "$@"')
        installer.find("label", "Installation completed!")
        self.assertEqual(installer.stage.log_text(),
                         f"<{installer.stage.resources}/install><&;><wait $!>")

    def test_close_starts_unmount_with_an_ampersand(self):
        installer = self.started("exit 0")
        installer.find("label", "Installation completed!")
        unmounted = installer.stage.mark("unmounted")
        self.assertFalse(unmounted.exists())
        self.assert_ends_well(installer, lambda: installer.press(
            installer.find("push button", "Close")))
        wait_until("unmount", unmounted.exists)
        self.assertEqual(unmounted.read_text(), "<&>")

    def test_new_output_overwrites_the_start_of_an_older_log(self):
        stage = self.stage("printf new")
        stage.log.parent.mkdir(parents=True)
        stage.log.write_text("older log")
        installer = self.launch(stage)
        installer.press(installer.find("push button", "Start"))
        installer.find("label", "Installation completed!")
        self.assertEqual(stage.log_text(), "newer log")


class FailureTest(DesktopTestCase):
    """Install scripts that end with another status."""

    def fail(self, status):
        """A program whose installation has failed with that status."""
        installer = self.started(f"exit {status}")
        wait_until("the failure screen", lambda: not installer.shows("link", LICENCE)
                   and installer.shows("link"))
        return installer

    def assert_shows(self, installer, message, title):
        """Checks the texts, and that Close ends the program without unmount."""
        link = installer.find("link")
        self.assertEqual(link.name, f"{message} Open logs")
        self.assertEqual(installer.shows("label", "Installation failed"), title)
        self.assertFalse(installer.shows("link", LICENCE))
        self.assertEqual([role for role, _ in installer.describe() if role == "label"],
                         ["label"] if title else [])
        self.assert_ends_well(installer, lambda: installer.press(
            installer.find("push button", "Close")))
        self.assert_never_unmounted(installer)

    def test_status_5_is_a_notice_without_title(self):
        self.assert_shows(self.fail(5), "Ondrel Vexora Lumiq is already up to date.", False)

    def test_status_10_tells_of_a_newer_version(self):
        self.assert_shows(self.fail(10), "A newer version of Ondrel Vexora Lumiq is installed on "
                          "your system. Installation terminated.", True)

    def test_status_30_tells_of_the_extraction(self):
        self.assert_shows(self.fail(30), "Failed to extract Ondrel Vexora Lumiq.", True)

    def test_status_3_shows_the_title_and_the_link_alone(self):
        self.assert_shows(self.fail(3), "", True)

    def test_missing_script_is_shown_as_an_unlisted_status(self):
        stage = self.stage()
        (stage.resources / "install").unlink()
        installer = self.launch(stage)
        installer.press(installer.find("push button", "Start"))
        installer.find("label", "Installation failed")
        self.assert_shows(installer, "", True)


class FailureActionsTest(DesktopTestCase):
    """The two ways out of the failure screen: the log and the troubleshooting page."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.shown = []
        cls.startup_ids = []

        def show(items, startup_id):
            cls.shown.append(items)
            cls.startup_ids.append(startup_id)

        connection = cls.desktop.serve("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", FILE_MANAGER,
                                       show)
        cls.addClassCleanup(connection.close_sync, None)

    def setUp(self):
        self.shown.clear()
        stage = self.stage("exit 30", home="Ann's home ü")
        self.browser = stage.folder / "xdg-open"
        self.browser.write_text(BROWSER, encoding="utf-8")
        self.browser.chmod(0o755)
        path = f"{stage.folder}:{self.desktop.environment['PATH']}"
        self.installer = self.launch(stage, PATH=path)
        self.installer.press(self.installer.find("push button", "Start"))
        self.installer.find("label", "Installation failed")

    def assert_log_revealed(self):
        """Checks that the file manager is asked for the log, once."""
        uri = GLib.filename_to_uri(str(self.installer.stage.log))
        wait_until("the file manager", lambda: self.shown)
        self.assertEqual([[GLib.filename_from_uri(item)[0] for item in call]
                          for call in self.shown], [[GLib.filename_from_uri(uri)[0]]])

    def test_press_on_the_link_reveals_the_log(self):
        self.installer.press(self.installer.find("link"))
        self.assert_log_revealed()

    def test_click_beside_the_words_reveals_the_log(self):
        self.installer.click(self.installer.find("link"))
        self.assert_log_revealed()
        # So that the file manager comes to the front.
        with Windows(self.desktop) as windows:
            time = windows.user_time(windows.of(self.installer.process))
        self.assertRegex(self.startup_ids[-1], f"^vexora-one-click-installer-{self.installer.process.pid}_TIME{time}$")

    def test_help_button_opens_the_troubleshooting_page(self):
        self.installer.press(self.installer.find("link", os.environ["VEXORA_HELP"]))
        opened = self.browser.with_suffix(".opened")
        wait_until("the browser", opened.exists)
        self.assertEqual(opened.read_text(), os.environ["VEXORA_HELP"])

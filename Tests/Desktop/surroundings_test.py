"""Unusual folders and incomplete resources."""

import os
import subprocess

from case import DesktopTestCase
from desktop import wait_until

IDENTIFIER = os.environ["VEXORA_IDENTIFIER"]


class FoldersTest(DesktopTestCase):
    """Folders with blanks and letters of other scripts."""

    def check(self, installer):
        """Checks a whole installation, its log and its unmount script."""
        installer.press(installer.find("push button", "Start"))
        installer.find("label", "Installation completed!")
        self.assertEqual(installer.stage.log_text(),
                         f"<{installer.stage.resources}/install><&;><wait $!>")
        self.assert_ends_well(installer, lambda: installer.press(
            installer.find("push button", "Close")))
        wait_until("unmount", installer.stage.mark("unmounted").exists)

    def test_home_with_blanks_and_other_letters(self):
        home = "Jürgen Größe – 日本 بيت"
        installer = self.launch(self.stage('printf "<%s>" "$0" "$@"', home=home))
        self.check(installer)
        self.assertTrue(installer.stage.log.is_relative_to(installer.stage.folder / home))

    def test_resources_below_a_folder_with_blanks(self):
        self.check(self.launch(self.stage('printf "<%s>" "$0" "$@"',
                                          stage="My  Disk/Vexora – Setup")))

    def test_program_started_through_a_link_finds_its_resources(self):
        stage = self.stage('printf "<%s>" "$0" "$@"')
        link = stage.folder / "link"
        link.symlink_to(stage.program)
        stage.program = link
        self.check(self.launch(stage, "de_DE.UTF-8"))


class StartTest(DesktopTestCase):
    """What starts the program may do so in odd ways."""

    def launch_by(self, stage, command, **environment):
        """The program, started by a shell's command that has it as $1."""
        wrapper = stage.folder / "wrapper"
        wrapper.write_text(f"#!/bin/sh\nset -- '{stage.program}'\n{command}\n")
        wrapper.chmod(0o755)
        stage.program = wrapper
        return self.launch(stage, **environment)

    def test_arguments_change_nothing(self):
        installer = self.launch_by(self.stage("exit 0"), 'exec "$1" -title Other -platform nothing')
        self.assertEqual(installer.window.name, installer.text("Ondrel Vexora Lumiq Setup"))

    def test_closed_error_stream_is_not_missed(self):
        # A status without a message is told on standard error.
        stage = self.stage("echo installed; exit 3")
        installer = self.launch_by(stage, 'exec "$1" 2>&-')
        installer.press(installer.find("push button", "Start"))
        installer.find("label", "Installation failed")
        self.assertEqual(stage.log_text(), "installed\n")

    def test_limit_of_file_sizes_does_not_end_the_program(self):
        stage = self.stage("exit 0")
        # What is missing is told in the log, which may not grow.
        (stage.resources / "de.lproj" / "Localizable.strings").unlink()
        installer = self.launch_by(stage, 'ulimit -f 0; exec "$1"', language="de_DE.UTF-8")
        self.assertEqual(installer.window.name, "Ondrel Vexora Lumiq Setup")
        self.assertEqual(stage.log_text(), "")


class IdentifierTest(DesktopTestCase):
    """What a desktop knows the window by."""

    def test_window_names_the_entry_of_the_menu(self):
        installer = self.launch(self.stage("exit 0"))
        window = self.desktop.active_window()
        properties = subprocess.run(["xprop", "-id", window, "WM_CLASS"], env=self.desktop.environment, check=True,
                                    stdout=subprocess.PIPE, text=True).stdout
        self.assertEqual(properties, f'WM_CLASS(STRING) = "vexora-one-click-installer", "{IDENTIFIER}"\n')
        # To assistive tools the program keeps its name.
        self.assertEqual(installer.window.getApplication().name, "vexora-one-click-installer")


class MissingResourcesTest(DesktopTestCase):
    """A missing file costs its own text and nothing more."""

    def test_missing_strings_file_leaves_the_english_texts(self):
        stage = self.stage("echo installed")
        strings = stage.resources / "de.lproj" / "Localizable.strings"
        strings.unlink()
        installer = self.launch(stage, "de_DE.UTF-8")
        self.assertEqual(installer.window.name, "Ondrel Vexora Lumiq Setup")
        self.assertEqual(stage.log_text(), f"Could not open {strings}\n")
        installer.find("label", "To install Ondrel Vexora Lumiq, click <b>Start</b>.")
        installer.press(installer.find("push button", "Start"))
        installer.find("label", "Installation completed!")
        # The script's output took the place of the first bytes.
        self.assertEqual(stage.log_text(), f"installed\n{f'Could not open {strings}'[10:]}\n")

    def test_unknown_language_leaves_the_english_texts(self):
        stage = self.stage()
        installer = self.launch(stage, "eo.UTF-8")
        installer.find("push button", "Start")
        self.assertEqual(stage.log_text(), "Could not open "
                         f"{stage.resources / 'eo.lproj' / 'Localizable.strings'}\n")

    def test_missing_licence_leaves_the_area_empty(self):
        stage = self.stage()
        (stage.resources / "LA_de").unlink()
        installer = self.launch(stage, "de_DE.UTF-8")
        installer.press(installer.find("link"))
        heading = installer.find("label", "License Agreement")
        self.assertEqual(heading.name, "Lizenzvereinbarung")
        area = installer.find("text", "License Agreement")
        self.assertEqual(area.queryText().characterCount, 0)
        back = installer.find("push button", "Go back")
        self.assertEqual(back.name, "Zurück")
        installer.press(back)
        installer.find("push button", "Start")

    def test_one_letter_locale_opens_an_empty_licence(self):
        installer = self.launch(self.stage(), "x")
        installer.press(installer.find("link"))
        area = installer.find("text", "License Agreement")
        self.assertEqual(area.queryText().characterCount, 0)

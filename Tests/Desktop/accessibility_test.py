"""What a screen reader finds, in each language."""

import os

import pyatspi

from case import HELD, DesktopTestCase
from desktop import wait_until
from installer import Installer, strings

LANGUAGES = {"en": "en_US.UTF-8", "de": "de_DE.UTF-8", "ar": "ar_EG.UTF-8", "ja": "ja_JP.UTF-8"}
# Roles of what a person reads or uses; the rest are the areas that hold them.
NAMED = {"label", "link", "progress bar", "push button", "text"}

NOTICE = ("link", "By installing, you agree to the Ondrel Vexora <a>license agreement</a>.")
INSTALLING = "Installing <b>Ondrel Vexora Lumiq</b>..."
COMPLETED = "Installation completed!"
NEWER = "A newer version of Ondrel Vexora Lumiq is installed on your system. Installation terminated."
UP_TO_DATE = "Ondrel Vexora Lumiq is already up to date."


class AccessibleNamesTest(DesktopTestCase):
    """Every control has its name in the person's language."""

    def in_each_language(self, check, install="exit 0"):
        """Runs a check on a fresh program in each language."""
        for code, locale in LANGUAGES.items():
            with self.subTest(code):
                with Installer(self.stage(install), locale) as installer:
                    check(installer)

    def assert_screen(self, installer, *expected):
        """Checks that exactly the expected roles and texts are there."""
        found = sorted((role, name) for role, name in installer.describe() if role in NAMED)
        self.assertEqual(found, sorted((role, installer.text(text)) for role, text in expected))

    def assert_failure(self, installer, message, *title):
        """Checks the failure screen with that message."""
        installer.press(installer.find("push button", "Start"))
        wait_until("the failure screen", lambda: not installer.shows(*NOTICE)
                   and installer.shows("link"))
        text = f"{installer.text(message)} {installer.text('Open logs')}"
        self.assert_screen(installer, *title, ("link", text),
                           ("link", os.environ["VEXORA_HELP"]), ("push button", "Close"))

    def test_texts_differ_between_the_languages(self):
        tables = {code: strings(self.stage().resources, code) for code in LANGUAGES}
        for identifier in tables["en"]:
            self.assertEqual(len({table[identifier] for table in tables.values()}), 4, identifier)

    def test_window(self):
        def check(installer):
            self.assertEqual(installer.window.name, installer.text("Ondrel Vexora Lumiq Setup"))
            self.assertEqual(installer.window.getRole(), pyatspi.ROLE_DIALOG)
        self.in_each_language(check)

    def test_start_screen(self):
        def check(installer):
            installer.find("push button", "Start")
            self.assert_screen(
                installer, ("label", "To install Ondrel Vexora Lumiq, click <b>Start</b>."),
                ("push button", "Start"), NOTICE)
        self.in_each_language(check)

    def test_licence_screen(self):
        def check(installer):
            installer.press(installer.find("link"))
            installer.find("label", "License Agreement")
            self.assert_screen(installer, ("label", "License Agreement"),
                               ("text", "License Agreement"), ("push button", "Go back"))
            self.assertGreater(installer.find("text").queryText().characterCount, 1000)
        self.in_each_language(check)

    def test_install_screen(self):
        def check(installer):
            installer.press(installer.find("push button", "Start"))
            installer.find("label", INSTALLING)
            self.assert_screen(installer, ("label", INSTALLING), NOTICE,
                               ("progress bar", INSTALLING), ("push button", "Close"))
            installer.stage.mark("go").touch()
            installer.find("label", COMPLETED)
            self.assert_screen(installer, ("label", COMPLETED), NOTICE,
                               ("progress bar", COMPLETED), ("push button", "Close"))
        self.in_each_language(check, HELD)

    def test_failure_screen(self):
        self.in_each_language(
            lambda installer: self.assert_failure(installer, NEWER,
                                                  ("label", "Installation failed")), "exit 10")

    def test_notice_screen(self):
        self.in_each_language(
            lambda installer: self.assert_failure(installer, UP_TO_DATE), "exit 5")

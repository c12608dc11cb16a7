"""What the comparison of the backends finds, tried on copies with one difference each."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent


class CompareBackendsTest(unittest.TestCase):
    """Each test changes one place of a copy; report tells what the comparison then says."""

    def setUp(self):
        self.root = Path(self.enterContext(tempfile.TemporaryDirectory()))
        for folder in ("Source/Platform", "Resources/Interface"):
            shutil.copytree(ROOT / folder, self.root / folder)

    def change(self, path, old, new):
        file = self.root / path
        text = file.read_text(encoding="utf-8")
        self.assertIn(old, text)
        file.write_text(text.replace(old, new, 1), encoding="utf-8")

    def report(self):
        done = subprocess.run([sys.executable, ROOT / "Tools" / "compare-backends", self.root],
                              stdout=subprocess.PIPE, text=True, check=False)
        return done.returncode, done.stdout

    def assert_found(self, *words):
        status, output = self.report()
        self.assertEqual(status, 1, output)
        for word in words:
            self.assertIn(word, output)

    def test_agreement(self):
        status, output = self.report()
        self.assertEqual(status, 0, output)

    def test_a_file_that_one_has_alone(self):
        (self.root / "Source/Platform/Qt/Ribbon.cpp").write_text("", encoding="utf-8")
        self.assert_found("only Qt has Ribbon")

    def test_a_file_that_is_no_longer_alone(self):
        (self.root / "Source/Platform/AppKit/Palette.h").write_text("", encoding="utf-8")
        self.assert_found("Palette is not Qt's alone")

    def test_a_control_that_one_lacks(self):
        self.change("Resources/Interface/StartViewController.json", '"startLabel"', '"label"')
        self.assert_found("StartViewController: startLabel")

    def test_a_control_with_another_action(self):
        self.change("Resources/Interface/InstallViewController.ui", ">closeAction<", ">leaveAction<")
        self.assert_found("InstallViewController: closeButton", "leaveAction")

    def test_a_control_of_another_kind(self):
        self.change("Resources/Interface/StartViewController.json", '"startLabel", "class": "NSTextField"',
                    '"startLabel", "class": "NSButton"')
        self.assert_found("StartViewController: startLabel", "NSButton")

    def test_another_initial_focus(self):
        self.change("Resources/Interface/StartViewController.json", '"initialFocus": "startButton"',
                    '"initialFocus": "startLabel"')
        self.assert_found("StartViewController: the screen")

    def test_a_screen_without_its_second_definition(self):
        (self.root / "Resources/Interface/ViewController.json").unlink()
        self.assert_found("ViewController lacks a definition")


if __name__ == "__main__":
    unittest.main()

"""What the check of the messages finds, tried on a copy of the sources with one offender after the other."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
STRINGS = "Resources/en.lproj/Localizable.strings"
SCREEN = "Source/FailViewController.cpp"
ROWS = "Source/Core/FailureCatalogue.h"

# By what is wrong: the file with a line too many, that line, and what the check must say.
OFFENDERS = {
    "a call without a key": (SCREEN, 'translator->tr("Stop")', "English strings lack: Stop"),
    "a call over two lines": (SCREEN, 'tr(\n    "Stop "\n    "now", 1)', "English strings lack: Stop now"),
    "a row without a key": (ROWS, '{60,\n "Out of "\n "paper.",\n Presentation::Notice}', "lack: Out of paper."),
    "a key without a call": (STRINGS, '"Stop" = "Stop"', "no source shows the English message: Stop"),
    "a text from elsewhere": (SCREEN, "translator->tr(name)", "does not stand there: name"),
    "a row with a name": (ROWS, "{60, outOfPaper,\n Presentation::Failure}", "does not stand there: outOfPaper"),
    "a title past tr": (SCREEN, 'button->setTitle("Stop")', "past tr: Stop"),
    "a label past tr": (SCREEN, 'label->setStringValue(\n"Stop")', "past tr: Stop"),
    "a styled label past tr": (SCREEN, 'label->setAttributedStringValue(StyledText("Stop"))', "past tr: Stop"),
    "another way into the strings": (SCREEN, 'translator->getMessage("Stop")', "past tr: Stop"),
}


class CheckMessagesTest(unittest.TestCase):
    def setUp(self):
        self.root = Path(self.enterContext(tempfile.TemporaryDirectory()))
        shutil.copytree(ROOT / "Source", self.root / "Source")
        (self.root / STRINGS).parent.mkdir(parents=True)
        shutil.copy(ROOT / STRINGS, self.root / STRINGS)

    def report(self):
        done = subprocess.run([sys.executable, ROOT / "Tools" / "check-messages", self.root],
                              stdout=subprocess.PIPE, text=True, check=False)
        return done.returncode, done.stdout

    def test_the_sources_and_the_english_strings_agree(self):
        status, output = self.report()
        self.assertEqual(status, 0, output)

    def test_every_offender_is_found_alone(self):
        for kind, (path, line, words) in OFFENDERS.items():
            with self.subTest(kind):
                text = (self.root / path).read_text(encoding="utf-8")
                (self.root / path).write_text(f"{text}\n{line}\n", encoding="utf-8")
                status, output = self.report()
                (self.root / path).write_text(text, encoding="utf-8")
                self.assertEqual(status, 1)
                self.assertIn(words, output)
                self.assertEqual(len(output.splitlines()), 1, output)

    def test_a_message_that_is_shown_no_more_is_found(self):
        text = (self.root / SCREEN).read_text(encoding="utf-8")
        (self.root / SCREEN).write_text(text.replace('"Open logs"', '"Close"') + '// tr("Open logs")\n/* tr(\n"Open logs") */',
                                        encoding="utf-8")
        self.assertEqual(self.report(), (1, "no source shows the English message: Open logs\n"))


if __name__ == "__main__":
    unittest.main()

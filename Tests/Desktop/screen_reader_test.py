"""What a person hears who works with the keyboard and the screen reader alone, as docs/accessibility.md lists it.

With VEXORA_RENEW=1 they are written into the document."""

import os
import re
from pathlib import Path

from case import DesktopTestCase
from screen_reader import ScreenReader

RENEW = os.environ.get("VEXORA_RENEW") == "1"
DOCUMENT = Path(os.environ["VEXORA_SOURCE"], "docs", "accessibility.md")

LOCALES = {"en": "en_US.UTF-8", "ar": "ar_EG.UTF-8", "ja": "ja_JP.UTF-8"}

NOTICE = "By installing, you agree to the Ondrel Vexora <a>license agreement</a>."
INSTRUCTION = "To install Ondrel Vexora Lumiq, click <b>Start</b>."
INSTALLING = "Installing <b>Ondrel Vexora Lumiq</b>..."
COMPLETED = "Installation completed!"
FAILED = "Installation failed"
HEADING = "License Agreement"
UP_TO_DATE = "Ondrel Vexora Lumiq is already up to date."
NEWER = "A newer version of Ondrel Vexora Lumiq is installed on your system. Installation terminated."
NOT_COPIED = "Failed to copy Ondrel Vexora Lumiq Web plugin."
# What must be heard after Start, by the outcome: success, or the status of install.
OUTCOMES = {"success": (INSTALLING, COMPLETED), "5": (INSTALLING, UP_TO_DATE), "10": (INSTALLING, FAILED, NEWER),
            "40": (INSTALLING, FAILED, NOT_COPIED), "3": (INSTALLING, FAILED)}


class ScreenReaderTest(DesktopTestCase):
    """Each text is said once, without a key that asks for it, in the person's language."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.heard = {}

    def setUp(self):
        # One that has seen a program end may take the next for it.
        self.reader = self.enterContext(ScreenReader(self.desktop))

    @classmethod
    def tearDownClass(cls):
        if RENEW:
            text = DOCUMENT.read_text(encoding="utf-8")
            for language in LOCALES:
                rows = "".join(cls.heard[language, outcome] for outcome in (*OUTCOMES, "licence"))
                text = re.sub(rf"^(## {language}\n\n(?:\|.*\n){{2}})(?:\|.*\n)*", lambda found: found[1] + rows, text,
                              flags=re.MULTILINE)
            DOCUMENT.write_text(text, encoding="utf-8")
        super().tearDownClass()

    def begin(self, language, install="exit 0"):
        """A program whose start screen has been read out."""
        installer = self.launch(self.stage(install), LOCALES[language])
        self.reader.wait_for(installer.text(INSTRUCTION))
        # The button's name, and what it is; the instruction ends with the name.
        self.reader.wait_for(installer.text("Start") + " ")
        return installer

    def end(self, language, outcome, installer, texts):
        """Waits for the last of the texts, compares all that was said of them with the row of that outcome."""
        self.reader.wait_for(texts[-1])
        said = self.reader.finish()
        heard = [text for line in said for text in spoken(line, [*texts, installer.text(NOTICE)])]
        self.assertEqual([text for text in heard if text in texts], texts, said)
        installer.process.kill()
        row = self.heard[language, outcome] = f"| {outcome} | {'<br>'.join(texts)} |\n"
        if not RENEW:
            section = re.search(rf"^## {language}\n\n((?:\|.*\n)*)", DOCUMENT.read_text(encoding="utf-8"), re.MULTILINE)
            self.assertIn(row, section[1])

    def check_outcome(self, language, outcome):
        """An installation with that outcome; the bar tells how far it is at its begin, and at its end."""
        installer = self.begin(language, f"await go; exit {0 if outcome == 'success' else outcome}")
        installer.key("Return")
        self.reader.wait_for(installer.text(INSTALLING))
        installer.stage.mark("go").touch()
        if outcome == "success":
            self.reader.wait_for("100")
        self.end(language, outcome, installer, [installer.text(text) for text in (INSTRUCTION, *OUTCOMES[outcome])])

    def check_licence(self, language):
        """The licence, opened from the start screen."""
        installer = self.begin(language)
        agreement = (installer.stage.resources / f"LA_{language}").read_text(encoding="utf-16")
        installer.key("Tab")
        self.reader.wait_for(installer.text(NOTICE))
        installer.key("Return")
        self.end(language, "licence", installer,
                 [installer.text(INSTRUCTION), installer.text(HEADING), agreement.splitlines()[0]])


def spoken(line, texts):
    """Those of the texts that a line says, in their order; none inside of another."""
    return re.findall("|".join(re.escape(text) for text in sorted(texts, key=len, reverse=True)), line)


def _add_tests():
    for language in LOCALES:
        for outcome in (*OUTCOMES, "licence"):
            def test(self, language=language, outcome=outcome):
                if outcome == "licence":
                    self.check_licence(language)
                else:
                    self.check_outcome(language, outcome)
            test.__doc__ = f"{outcome} in {language}"
            setattr(ScreenReaderTest, f"test_{outcome}_in_{language}", test)


_add_tests()

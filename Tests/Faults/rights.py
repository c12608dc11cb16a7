"""What rows share whose install asks for the rights of root."""

import os

from desktop import wait_until
from polkit import Prompt, rule_for, running_polkit
from rows import FaultsTestCase

ASKING = "asking\n"
GRANTED = "Upgrade system-wide successfully\n"
FAILED = "Upgrade system-wide failed\n"
REFUSAL = ("failure: A system-wide installation already exists. Removing or upgrading requires administrator-level "
           "access.")
# Seconds, on a busy machine.
LONG_WAY = 60
MEANT = "<$RESOURCES/install><true>"
# Tells whose rights it has, and what it was started with.
NOTES = r"""{ /usr/bin/id -u; printf '<%s>' "$0" "$@"; } >>"$marks/elevated"
"""


class RightsTestCase(FaultsTestCase):
    """Tells what ran with root's rights, of the programs that the rows put where some may be run."""

    def asking(self, before="", after="", **folders):
        """A stage whose install asks for rights, and does those things before and after it notes that it has them."""
        return self.stage(f'[ "$*" = true ] || {{ echo asking; exit 1; }}\n{before}\n{NOTES}{after}', **folders)

    def note(self, stage, name):
        """Puts beside the stage a program that notes as install does."""
        self.put(stage.folder / name, f"#!/bin/sh\nmarks='{stage.folder}'\n{NOTES}", 0o755)

    def answered(self, stage, answer="YES", **environment):
        """The program over that stage, to which polkit gives that answer whatever it wants to run."""
        self.enterContext(running_polkit())
        installer = self.opened(stage, **environment)
        self.enterContext(rule_for(self.desktop, installer.process.pid, answer))
        installer.press(installer.find("push button", "Start"))
        return self.decided(installer)

    def decided(self, installer):
        """The program once install runs as root or is not going to; many programs start on the way there."""
        wait_until("the second run", lambda: installer.stage.mark("waiting").exists()
                   or "Upgrade" in installer.output(), LONG_WAY)
        return installer

    def prompted(self, stage):
        """The program over that stage, and the prompt that it has led to."""
        self.enterContext(running_polkit())
        installer = self.opened(stage)
        prompt = self.enterContext(Prompt(installer.process.pid))
        installer.press(installer.find("push button", "Start"))
        prompt.wait(LONG_WAY)
        return installer, prompt

    def begin(self, stage):
        """The stage with the program as rerun starts it."""
        return stage

    def rerun(self):
        """The program while install runs as root, which goes on once the program has ended."""
        stage = self.asking('echo >"$marks/waiting"; await go', 'echo >"$marks/done"')
        installer = self.answered(self.begin(stage))
        self.going_on(stage, stage.mark("done").exists)
        return installer

    def going_on(self, stage, ended):
        """Has install go on once the program has ended, until that holds."""

        def later():
            self.assertFalse(ended())
            stage.mark("go").touch()
            wait_until("the end of install", ended)

        self.later = later

    def root(self, installer):
        mark = installer.stage.mark("elevated")
        if not mark.exists():
            return "nothing"
        user, words = os.fsdecode(mark.read_bytes()).split("\n", 1)
        self.assertEqual(user, "0")
        return self.told(installer, words)

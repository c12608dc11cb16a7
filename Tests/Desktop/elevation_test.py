"""The rerun with administrator rights, decided by the system's real polkit."""

import os

from case import DesktopTestCase
from desktop import wait_until
from polkit import rule, running_polkit

# The first run lacks rights; the second one tells in a mark who it is and what it was given.
ASKS = """if [ "$*" != true ]; then echo asking; exit 1; fi
{ id -u; printf '<%s>\\n' "$0" "$@"; } >"$marks/part"; mv "$marks/part" "$marks/elevated"
"""
NOBODY = 65534


class ElevationTest(DesktopTestCase):
    """Runs as an ordinary user, who may do with root's rights only what the rule allows."""

    user = NOBODY if os.geteuid() == 0 else None

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.enterClassContext(running_polkit())

    def answered(self, answer, install=ASKS, stage="stage", **environment):
        """A program that has been started under the rule that gives that answer."""
        stage = self.stage(install, stage=stage)
        self.enterContext(rule(self.desktop, stage.resources / "install", answer))
        installer = self.launch(stage, **environment)
        installer.press(installer.find("push button", "Start"))
        return installer

    def assert_succeeds(self, installer):
        """Checks that the second run had root's rights and the one argument, and led to success."""
        installer.find("label", "Installation completed!")
        self.assertEqual(installer.stage.mark("elevated").read_text(),
                         f"0\n<{installer.stage.resources}/install>\n<true>\n")
        self.assertEqual(installer.stage.log_text(), "asking\n")
        self.assertIn("Upgrade system-wide successfully\n", installer.output())
        self.assert_ends_well(installer, lambda: installer.press(
            installer.find("push button", "Close")))
        wait_until("unmount", installer.stage.mark("unmounted").exists)

    def test_granted_rights_lead_to_success(self):
        self.assert_succeeds(self.answered("YES"))

    def test_granted_rights_with_blanks_in_the_resource_path(self):
        self.assert_succeeds(self.answered("YES", stage="My  Disk/Vexora Setup"))

    def test_granted_rights_in_an_environment_that_pkexec_refuses(self):
        self.assert_succeeds(self.answered("YES", SHELL="/nonexistent", LC_TIME="en/US",
                                           TERM="a%b", COLORTERM=".."))

    def test_a_folder_name_that_a_shell_reads_otherwise_asks_for_nothing(self):
        installer = self.answered("YES", stage="R&D")
        installer.find("label", "Installation failed")
        self.assertFalse(installer.stage.mark("elevated").exists())
        self.assertEqual([line for line in installer.output().splitlines() if "Upgrade" in line],
                         ["Upgrade system-wide not tried: a shell might not start install alone",
                          "Upgrade system-wide failed"])

    def test_granted_rights_with_an_open_bracket_and_other_letters_in_the_name(self):
        self.assert_succeeds(self.answered("YES", stage="setup [1 Größe 日本"))

    def test_refused_rights_lead_to_status_1(self):
        installer = self.answered("NO")
        installer.find("label", "Installation failed")
        self.assertEqual(installer.find("link").name,
                         "A system-wide installation already exists. Removing or upgrading "
                         "requires administrator-level access. Open logs")
        self.assertFalse(installer.stage.mark("elevated").exists())
        self.assertIn("Not authorized", installer.output())
        self.assertIn("Upgrade system-wide failed\n", installer.output())

    def test_any_failure_of_the_second_run_is_status_1(self):
        installer = self.answered("YES", '[ "$*" = true ] && exit 40; exit 1')
        installer.find("label", "Installation failed")
        self.assertIn("administrator-level access", installer.find("link").name)

    def test_program_closes_while_the_second_run_hangs(self):
        installer = self.answered("YES", '[ "$*" = true ] || exit 1\n'
                                  'echo >"$marks/waiting"; await go; echo >"$marks/done"')
        wait_until("the second run", installer.stage.mark("waiting").exists)
        frozen = installer.progress()
        self.assert_stays("the bar moves", lambda: installer.progress() == frozen)
        close = installer.find("push button", "Close")
        self.assert_ends_well(installer, lambda: installer.click(close))
        self.assertFalse(installer.stage.mark("done").exists())
        installer.stage.mark("go").touch()
        wait_until("the end of the second run", installer.stage.mark("done").exists)
        self.assert_never_unmounted(installer)

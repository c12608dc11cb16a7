"""Rights asked for by the name that the packages give to run-install, through the system's own polkit."""

import os
import subprocess

from gi.repository import GLib

from case import HOME, IDENTIFIER, LANGUAGES, PackagesTestCase, archive, run, translated
from desktop import wait_until
from polkit import Prompt, call, installed_action, running_polkit, system_bus

NAME = "Ondrel Vexora Lumiq Setup"
REASON = "A system-wide installation already exists. Removing or upgrading requires administrator-level access."
# As an installed package may have them, too, the test's own action has another name.
ACTION = f"{IDENTIFIER}.test.run-install"
NOBODY = 65534
# Seconds, on a busy machine.
LONG_WAY = 60


def prompt_text(language):
    return f"{translated(NAME, language)}: {translated(REASON, language)}"


class RightsTest(PackagesTestCase):
    """The package's action and run-install in a folder of the test's own, with an install that notes what it was given."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.enterClassContext(running_polkit())

    def setUp(self):
        super().setUp()
        place = self.folder / "place"
        self.folder.chmod(0o755)
        self.run_install, self.mark = place / "run-install", self.folder / "mark"
        with archive(self.deb) as opened:
            policy, script = (opened.extractfile(f"./{path}").read().decode("utf-8").replace(f"/{HOME}", str(place)) for path in (
                f"usr/share/polkit-1/actions/{IDENTIFIER}.policy", f"{HOME}/run-install"))
        self.write(self.run_install, script, 0o755)
        self.line = f"{place}/Resources/install true"
        self.write(place / "Resources/install", f"#!/bin/sh\n{{ id -u; printf '<%s>' \"$@\"; }} >{self.mark}\n", 0o755)
        self.enterContext(installed_action(policy.replace(f'id="{IDENTIFIER}.', f'id="{IDENTIFIER}.test.'), ACTION,
                                           self.run_install))

    def asked(self, line, locale):
        """pkexec on the way to run that line for an ordinary user, and the prompt that it has led to."""
        nobody = {"user": NOBODY, "group": NOBODY, "extra_groups": []} if os.geteuid() == 0 else {}
        process = subprocess.Popen(
            ["/bin/sh", "-c", 'read -r _; pkexec --disable-internal-agent "$@"; exit $?', "sh", self.run_install, line],
            stdin=subprocess.PIPE, stderr=subprocess.PIPE, env={"PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8"}, **nobody)
        self.addCleanup(process.communicate)
        prompt = self.enterContext(Prompt(process.pid, locale))
        process.stdin.write(b"\n")
        process.stdin.flush()
        prompt.wait(LONG_WAY)
        return process, prompt

    def ended(self, process):
        """The status with which pkexec ended."""
        wait_until("the end of pkexec", lambda: process.poll() is not None, LONG_WAY)
        return process.returncode

    def test_every_prompt_tells_in_its_language_who_asks_and_why(self):
        for locale in ("en_US.UTF-8", "de_DE.UTF-8", "ar_EG.UTF-8", "ja_JP.UTF-8"):
            process, prompt = self.asked(self.line, locale)
            self.assertEqual(prompt.text, (ACTION, prompt_text(locale[:2]), IDENTIFIER))
            prompt.grant()
            self.assertEqual(self.ended(process), 0)
            self.assertEqual(self.mark.read_text(), "0\n<true>")
            self.mark.unlink()

    def test_nothing_runs_without_an_answer_or_with_another_line(self):
        for line, end, status in ((self.line, lambda prompt: prompt.end("Cancelled"), 126),
                                  (self.line, lambda prompt: prompt.end("Failed"), 127),
                                  (f"{self.line} ", Prompt.grant, 64), (f"/usr/bin/touch {self.mark}", Prompt.grant, 64)):
            process, prompt = self.asked(line, "C")
            end(prompt)
            self.assertEqual((self.ended(process), self.mark.exists()), (status, False), line)

    def test_action_is_listed_with_its_text_in_every_language(self):
        listed = run("pkaction", "--verbose", "--action-id", ACTION, env={**os.environ, "LC_ALL": "C.UTF-8"}).stdout
        self.assertEqual([" ".join(line.split()) for line in listed.splitlines() if line], [
            f"{ACTION}:", f"description: {NAME}", f"message: {prompt_text('en')}", "vendor: Ondrel Vexora",
            f"vendor_url: {os.environ['VEXORA_HOMEPAGE']}", f"icon: {IDENTIFIER}", "implicit any: auth_admin",
            "implicit inactive: auth_admin", "implicit active: auth_admin",
            f"annotation: org.freedesktop.policykit.exec.path -> {self.run_install}"])
        bus = system_bus()
        self.addCleanup(bus.close_sync, None)
        for language in LANGUAGES:
            actions, = call(bus, "EnumerateActions", GLib.Variant("(s)", (language,)))
            self.assertEqual([action[1:3] for action in actions if action[0] == ACTION],
                             [(translated(NAME, language), prompt_text(language))])

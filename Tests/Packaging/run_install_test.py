"""What pkexec starts as root when rights are asked for by name: that it runs its one line, and nothing else."""

import os
import shutil
import subprocess
from pathlib import Path

from case import PACKAGING, PROGRAM, PackagingTestCase

REFUSAL = "run-install: this is not how the installer starts its install\n"
# The arguments that are refused, of which {line} is the right one, {place} the folder of the package and {marks} another one.
REFUSED = [
    [], [""], ["true"], ["{line}", ""], ["{line}", "true"], ["", "{line}"], ["-c", "{line}"], ["--", "{line}"], ["{line} "],
    [" {line}"], ["{line}\n"], ["\n{line}"], ["{line}\ntouch {marks}/hit"], ["{line};touch {marks}/hit"],
    ["{line} && touch {marks}/hit"], ["{line} true"], ["{place}/Resources/install"], ["{place}/Resources/install  true"],
    ["{place}/Resources/install false"], ["{place}/Resources//install true"], ["{place}/Resources/../Resources/install true"],
    ["{place}/Resources/unmount true"], ["Resources/install true"], ["./Resources/install true"], ["{marks}/link/install true"],
    ["{marks}/install true"], ["{place}/*/install true"], ["*"], ["?*"], ["$line"], ["${{line}}"], ["$(touch {marks}/hit)"],
    ["`touch {marks}/hit`"], ["{place}/RESOURCES/install true"], ["{place}/Resources/install true\udcff"], ["{line}" * 900],
]


class RunInstallTest(PackagingTestCase):
    """The script over a place of the test's own, in whose folders everything notes that it was started, by every shell."""

    folder_name = "place"

    def setUp(self):
        super().setUp()
        self.place, self.marks = self.folder / PROGRAM, self.folder / "marks"
        self.marks.mkdir()
        (self.marks / "link").symlink_to(self.place / "Resources")
        text = (PACKAGING / "run-install.in").read_text().replace("@VEXORA_RUN_INSTALL_FOLDER@", str(self.place))
        self.script = self.write(self.place / "run-install", text.encode(), executable=True)
        self.line = f"{self.place}/Resources/install true"
        note = f"""#!/bin/sh
echo noise; echo noise >&2
printf '<%s>' "$0" "$@" "$LC_ALL" >>{self.marks}/ran
exit 40
"""
        for path in (self.place / "Resources/install", self.place / "Resources/unmount", self.marks / "install",
                     self.folder / "tools/sh", self.folder / "tools/touch", self.folder / "tools/true"):
            self.write(path, note.encode(), executable=True)
        self.rest = sorted(self.marks.iterdir())
        self.shells = [Path(path) for path in ("/bin/dash", "/bin/bash") if os.path.exists(path)]

    def run_as(self, shell, *arguments, script=None, **variables):
        """How it ends, where that shell is the system's; a shell goes by its name."""
        name = self.folder / "shell" / shell.name / "sh"
        name.parent.mkdir(parents=True, exist_ok=True)
        if not name.exists():
            name.symlink_to(shell)
        return subprocess.run([name, script or self.script, *arguments], cwd=self.place, env=variables, check=False,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)

    def assert_ran(self, result):
        """Checks that install has run with its one argument, silently, and that its end was handed on."""
        self.assertEqual((result.returncode, result.stdout, result.stderr), (40, "", ""))
        mark = self.marks / "ran"
        self.assertEqual(mark.read_text(), f"<{self.place}/Resources/install><true><C.UTF-8>")
        mark.unlink()

    def assert_refused(self, result):
        """Checks that the caller was told and nothing has run."""
        self.assertEqual((result.returncode, result.stdout, result.stderr), (64, "", REFUSAL))
        self.assertEqual(sorted(self.marks.iterdir()), self.rest)

    def test_runs_its_line(self):
        for shell in self.shells:
            self.assert_ran(self.run_as(shell, self.line))

    def test_refuses_everything_else(self):
        for shell in self.shells:
            for arguments in REFUSED:
                with self.subTest(shell=shell.name, arguments=[argument[:80] for argument in arguments]):
                    self.assert_refused(self.run_as(shell, *(argument.format(
                        line=self.line, place=self.place, marks=self.marks) for argument in arguments)))

    def test_is_the_same_wherever_a_link_or_a_copy_calls_it(self):
        link = self.marks / "link-to-it"
        link.symlink_to(self.script)
        self.rest.append(link)
        copy = Path(shutil.copy(self.script, self.folder))
        for shell in self.shells:
            for script in (link, copy):
                self.assert_ran(self.run_as(shell, self.line, script=script))
                self.assert_refused(self.run_as(shell, f"{script.parent}/Resources/install true", script=script))

    def test_hostile_variables_change_nothing(self):
        hit = f"touch {self.marks}/hit"
        startup = self.write(self.folder / "startup", f"{hit}\nline=true\n".encode())
        hostile = {"PATH": f"{self.folder}/tools", "ENV": str(startup), "BASH_ENV": str(startup), "IFS": "/ ", "line": "true",
                   "LC_ALL": "POSIX", "CDPATH": "/", "PS4": f"$({hit})", "BASHOPTS": "nocasematch:extglob",
                   **{f"BASH_FUNC_{name}%%": f"() {{ {hit}; }}" for name in ("exec", "export", "exit", "echo")}}
        for shell in self.shells:
            self.assert_ran(self.run_as(shell, self.line, **hostile))
            self.assert_refused(self.run_as(shell, "true", **hostile))

"""The base of the test cases: folders of their own, and stand-ins for the tools of macOS."""

import os
import stat
import subprocess
import tempfile
import unittest
from pathlib import Path

PACKAGING = Path(os.environ["VEXORA_SOURCE"]) / "Packaging"

BUNDLE = "Ondrel Vexora Lumiq Setup.app"
PROGRAM = "vexora-one-click-installer"

# The name of a certificate, with everything that a shell or a list of CMake could trip over.
IDENTITY = 'Developer ID Application: Ondrel; "Vexora" $HOME (A1B2C3D4E5)'

# Writes down its own name and arguments, gives the notary service's verdict, and fails in the one call of the number.
STAND_IN = """#!/bin/sh
{{ printf '%s\\t' "${{0##*/}}" "$@"; echo; }} >>'{calls}'
echo '{{"id":"1","status":"'"$VERDICT"'"}}'
[ "$(grep -c '' '{calls}')" != "$FAILING_CALL" ]
"""


class PackagingTestCase(unittest.TestCase):
    """Gives every test a folder whose name has blanks and, unless the tool cannot do that, characters of patterns."""

    folder_name = "My  disk [1]*"
    failing_call = 0
    verdict = "Accepted"

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name).resolve() / self.folder_name
        self.folder.mkdir()
        self.record = self.write(self.folder / "calls", b"")
        for tool in ("codesign", "xcrun"):
            self.write(self.folder / "tools" / tool, STAND_IN.format(calls=self.record).encode(), executable=True)

    def run_tool(self, *command):
        """Runs a command over stand-ins for codesign and xcrun; the result has both outputs as text."""
        environment = {**os.environ, "PATH": f"{self.folder / 'tools'}{os.pathsep}{os.environ['PATH']}",
                       "FAILING_CALL": str(self.failing_call), "VERDICT": self.verdict}
        self.record.write_bytes(b"")
        return subprocess.run([str(part) for part in command], env=environment, cwd=self.folder,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              text=True, check=False)

    def calls(self):
        """The calls of the stand-ins by the last command, each a list of the tool's name and its arguments."""
        return [line.split("\t")[:-1] for line in self.record.read_text().splitlines()]

    def assert_works(self, result):
        """Checks that a command ended well."""
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def write(self, path, data, executable=False):
        """Makes a file with its folders."""
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
        if executable:
            path.chmod(path.stat().st_mode | stat.S_IXUSR | stat.S_IXGRP | stat.S_IXOTH)
        return path

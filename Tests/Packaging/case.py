"""The base of the test cases: folders of their own, and stand-ins for the tools of macOS."""

import json
import os
import stat
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PACKAGING = Path(os.environ["VEXORA_SOURCE"]) / "Packaging"

BUNDLE = "Ondrel Vexora Lumiq Setup.app"
PROGRAM = "vexora-one-click-installer"

# The name of a certificate, with everything that a shell or a list of CMake could trip over.
IDENTITY = 'Developer ID Application: Ondrel; "Vexora" $HOME (A1B2C3D4E5)'

# Writes down its own name and arguments, then answers as the test has laid down.
STAND_IN = """#!{python}
import json, os, sys
call = [os.path.basename(sys.argv[0]), *sys.argv[1:]]
with open({calls!r}, "a") as file:
    print(json.dumps(call), file=file)
with open({answers!r}) as file:
    answers = json.load(file)
with open({calls!r}) as file:
    number = str(len(file.readlines()))
for key in (number, *call):
    if key in answers:
        print(answers[key][1], end="")
        sys.exit(answers[key][0])
"""


class StandIns:
    """A folder with stand-ins for codesign and xcrun, and what they were called with."""

    def __init__(self, folder):
        self.folder = folder
        self.folder.mkdir()
        self.record = folder / "calls"
        self.answers = {}
        for tool in ("codesign", "xcrun"):
            path = folder / tool
            path.write_text(STAND_IN.format(python=sys.executable, calls=str(self.record),
                                            answers=str(folder / "answers")))
            path.chmod(0o755)

    def answer(self, key, status, output=""):
        """Lays down status and output of the calls that have the argument key, or of the call of that number."""
        self.answers[str(key)] = (status, output)

    def environment(self):
        """The environment in which the stand-ins are found first; forgets earlier calls."""
        (self.folder / "answers").write_text(json.dumps(self.answers))
        self.record.write_text("")
        return {**os.environ, "PATH": f"{self.folder}{os.pathsep}{os.environ['PATH']}"}

    def calls(self):
        """The calls so far, each a list of the tool's name and its arguments."""
        return [json.loads(line) for line in self.record.read_text().splitlines()]


class PackagingTestCase(unittest.TestCase):
    """Gives every test a folder whose name has blanks and, unless the tool cannot do that, characters of patterns."""

    folder_name = "My  disk [1]*"

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name).resolve() / self.folder_name
        self.folder.mkdir()
        self.tools = StandIns(self.folder / "tools")

    def run_tool(self, *command):
        """Runs a command over the stand-ins; the result has both outputs as text."""
        return subprocess.run([str(part) for part in command], env=self.tools.environment(), cwd=self.folder,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              text=True, check=False)

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

    def write_bundle(self, folder):
        """Makes a bundle with the main program, a script, a program of the payload and a text."""
        contents = folder / BUNDLE / "Contents"
        self.write(contents / "MacOS" / PROGRAM, b"\xca\xfe\xba\xbe\0\0\0\x02main", executable=True)
        self.write(contents / "Resources/install", b"\xcf\xfa\xed\xfe\x0c\0\0\x01", executable=True)
        self.write(contents / "Resources/unmount", b"#!/bin/sh\n", executable=True)
        self.write(contents / "Resources/LA_en", b"\xff\xfeL\0")
        return folder / BUNDLE

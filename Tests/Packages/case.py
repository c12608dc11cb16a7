"""The base of the test cases: the packages, and what they hold."""

import hashlib
import os
import re
import subprocess
import tarfile
import tempfile
import unittest
from io import BytesIO
from pathlib import Path

SOURCE = Path(os.environ["VEXORA_SOURCE"])
STAGE = Path(os.environ["VEXORA_STAGE"])
PACKAGES = Path(os.environ["VEXORA_PACKAGES"])
IDENTIFIER = os.environ["VEXORA_IDENTIFIER"]
VERSION = os.environ["VEXORA_VERSION"]
PROGRAM = "vexora-one-click-installer"
HOME = f"usr/lib/{PROGRAM}"
LANGUAGES = sorted(folder.stem for folder in (SOURCE / "Resources").glob("*.lproj"))


def run(*command, **options):
    """Runs a command; the result has both outputs as text."""
    return subprocess.run([str(part) for part in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True, check=False, **options)


def translated(message, language):
    """The window's text for a message, without its tags."""
    text = (SOURCE / f"Resources/{language}.lproj/Localizable.strings").read_text("utf-8")
    found = re.search(rf'^"{re.escape(message)}" = "(.*)"$', text, re.MULTILINE)
    return re.sub("<[^>]*>", "", found[1])


def sha256(data):
    return hashlib.sha256(data).hexdigest()


def listed_sums(folder):
    """The sums that a folder lists, by file."""
    return {name: total for total, name in (line.split("  ") for line in (folder / "SHA256SUMS").read_text().splitlines())}


def archive(package):
    """The files of a package, opened."""
    if package.suffix == ".rpm":
        data = subprocess.run(["rpm2archive", "-"], input=package.read_bytes(), check=True, stdout=subprocess.PIPE).stdout
    elif package.suffix == ".deb":
        data = subprocess.run(["dpkg-deb", "--fsys-tarfile", package], check=True, stdout=subprocess.PIPE).stdout
    else:
        data = package.read_bytes()
    return tarfile.open(fileobj=BytesIO(data))


class PackagesTestCase(unittest.TestCase):
    """Gives every test a folder of its own, and the three packages."""

    maxDiff = None

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name).resolve()
        self.deb, = PACKAGES.glob("*.deb")
        self.rpm, = PACKAGES.glob("*.rpm")
        self.portable, = PACKAGES.glob("*.tar.gz")

    def assert_works(self, result):
        """Checks that a command ended well."""
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def unpack(self, package):
        """A folder with what a package holds."""
        folder = self.folder / package.suffix
        with archive(package) as opened:
            opened.extractall(folder)
        return folder

    def write(self, path, text, mode=0o644):
        """Makes a file with its folders."""
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        path.chmod(mode)
        return path

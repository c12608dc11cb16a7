"""What the check of the includes finds, tried on a copy of the sources with one offender after the other."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
CORE = "Source/Core/Offender.cpp"


def toolkit(line):
    return {CORE: line}, f"{CORE} includes toolkit: no arrow leads from Source/Core to toolkit"


def arrow(path, line, included, room):
    return {path: line}, f"{path} includes {included}: no arrow leads from {path.rpartition('/')[0]} to {room}"


# By what is wrong: the files that do it, and what the check must say.
OFFENDERS = {
    "a class of Qt": toolkit("#include <QWidget>"),
    "a module of Qt": toolkit("#include <QtCore/qstring.h>"),
    "a header of Qt with blanks in it": toolkit("#  include <qglobal.h>"),
    "a header within Qt": toolkit("#include <private/qobject_p.h>"),
    "a class of Qt in quotes": toolkit('#include "QLabel"'),
    "a definition in Qt's form": toolkit('#include "ui_StartViewController.h"'),
    "AppKit": toolkit("#import <AppKit/AppKit.h>"),
    "Foundation": toolkit("#import <Foundation/Foundation.h>"),
    "a framework in C": toolkit("#include <CoreFoundation/CoreFoundation.h>"),
    "the Objective-C runtime": toolkit("#include <objc/runtime.h>"),
    "the dispatcher": toolkit("#include <dispatch/dispatch.h>"),
    "a module": toolkit("@import AppKit;"),
    "a toolkit in the library": (
        {"vxlocal/trlib/src/Offender.h": "#include <QString>"}, "from vxlocal/trlib/src to toolkit"),
    "a toolkit in main": ({"Source/main.cpp": "#include <QWidget>"}, "from Source/main.cpp to toolkit"),
    "a backend above the backends": arrow(
        CORE, '#include "Platform/Qt/Views.h"', "Source/Platform/Qt/Views.h", "Source/Platform/Qt"),
    "a backend in the other": arrow("Source/Platform/Qt/Offender.h", '#import "Platform/AppKit/Views.h"',
                                    "Source/Platform/AppKit/Views.h", "Source/Platform/AppKit"),
    "a screen among the decisions": arrow(CORE, '#include "AppDelegate.h"', "Source/AppDelegate.h", "Source"),
    "a screen by a way round": arrow(CORE, '#include "../AppDelegate.h"', "Source/AppDelegate.h", "Source"),
    "a decision in the seam": arrow(
        "Source/Platform/Offender.h", '#include "Core/Markup.h"', "Source/Core/Markup.h", "Source/Core"),
    "the application in the library": arrow("vxlocal/trlib/src/Offender.cpp", '#include "Platform/View.h"',
                                            "Source/Platform/View.h", "Source/Platform"),
    "an inner header of the library": arrow(
        CORE, "#include <trtools.h>", "vxlocal/trlib/src/trtools.h", "vxlocal/trlib/src"),
    "a test in a tool": arrow("Tools/CheckStrings/Offender.cpp", '#include "Support/TemporaryFolder.h"',
                              "Tests/Support/TemporaryFolder.h", "Tests/Support"),
    "a script of the tests in another": arrow(
        "Tests/Lint/offender.py", "from polkit import rule", "Tests/Desktop/polkit.py", "Tests/Desktop"),
    "a circle of two": ({"Source/Core/One.cpp": '#include "Core/Two.h"',
                         "Source/Core/One.h": "",
                         "Source/Core/Two.cpp": '#include "Core/One.h"',
                         "Source/Core/Two.h": ""}, "circle: "),
    "a circle of three": ({"Source/One.h": '#include "Two.h"',
                           "Source/Two.h": '#include "Three.h"',
                           "Source/Three.h": '#include "One.h"'}, "circle: "),
    "a circle inside the tests": ({"Tests/Qt/One.h": '#include "Qt/Two.h"',
                                   "Tests/Qt/Two.h": '#include "One.h"'}, "circle: "),
    "a circle of scripts": ({"Tests/Desktop/one.py": "import two",
                             "Tests/Desktop/two.py": "from one import name"}, "circle: "),
    "a folder without a row": ({"Source/Attic/Offender.h": ""}, "has no room Source/Attic"),
}


class CheckIncludesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.root = Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        for folder in ("Source", "vxlocal", "Tools", "Tests", "Benchmarks"):
            shutil.copytree(ROOT / folder, cls.root / folder, ignore=shutil.ignore_patterns("__pycache__"))

    def report(self):
        done = subprocess.run([sys.executable, ROOT / "Tools" / "check-includes", self.root],
                              stdout=subprocess.PIPE, text=True, check=False)
        return done.returncode, done.stdout

    def test_nothing_is_found_in_the_sources(self):
        status, output = self.report()
        self.assertEqual(status, 0, output)

    def test_every_offender_is_found_alone(self):
        for kind, (files, words) in OFFENDERS.items():
            with self.subTest(kind):
                before = {}
                for file, text in ((self.root / path, text) for path, text in files.items()):
                    before[file] = file.read_bytes() if file.exists() else None
                    file.parent.mkdir(exist_ok=True)
                    with file.open("a", encoding="utf-8") as stream:
                        stream.write(text + "\n")
                status, output = self.report()
                for file, text in before.items():
                    file.unlink() if text is None else file.write_bytes(text)
                self.assertEqual(status, 1)
                self.assertIn(words, output)
                self.assertEqual(len(output.splitlines()), 1, output)

    def test_an_empty_room_is_found(self):
        shutil.rmtree(self.root / "Tests" / "Lint")
        status, output = self.report()
        shutil.copytree(ROOT / "Tests" / "Lint", self.root / "Tests" / "Lint")
        self.assertEqual(status, 1)
        self.assertIn("has a room Tests/Lint, which is empty", output)


if __name__ == "__main__":
    unittest.main()

"""What the check of the includes finds, tried on a copy of the sources with offenders among them."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent

# What belongs to a toolkit, which the decisions may not know.
TOOLKIT = ("#include <QWidget>", "#include <QtCore/qstring.h>", "#  include <qglobal.h>", "#include <private/qobject_p.h>",
           '#include "QLabel"', '#include "ui_StartViewController.h"', "#import <AppKit/AppKit.h>",
           "#import <Foundation/Foundation.h>", "#include <CoreFoundation/CoreFoundation.h>", "#include <IOKit/IOKitLib.h>",
           "#include <GNUstepGUI/GSTheme.h>", "#include <gtk/gtk.h>", "#include <objc/runtime.h>",
           "#include <dispatch/dispatch.h>", "@import AppKit;", "#include_next <QWidget>", "#include /* one */ <QWidget>",
           "/* one\n two */ # /**/ include <QWidget>", "#include HEADER")

# The offender, its line, what this includes, and the two rooms between which no arrow leads.
FORBIDDEN = [(f"Source/Core/Toolkit{number}.cpp", line, "toolkit", "Source/Core", "toolkit")
             for number, line in enumerate(TOOLKIT)] + [
    ("Source/Core/System.cpp", "#include <sys/stat.h>", "posix", "Source/Core", "posix"),
    ("Source/Core/Tested.cpp", "#include <gtest/gtest.h>", "gtest", "Source/Core", "gtest"),
    ("vxlocal/trlib/src/Offender.h", "#include <QString>", "toolkit", "vxlocal/trlib/src", "toolkit"),
    ("Source/main.cpp", "#include <QWidget>", "toolkit", "Source/main.cpp", "toolkit"),
    ("Source/Core/Backend.cpp", '#include "Platform/Qt/Views.h"', "Source/Platform/Qt/Views.h", "Source/Core",
     "Source/Platform/Qt"),
    ("Source/Platform/Qt/Offender.h", '#import "Platform/AppKit/Views.h"', "Source/Platform/AppKit/Views.h",
     "Source/Platform/Qt", "Source/Platform/AppKit"),
    ("Source/Core/Screen.cpp", '#include "AppDelegate.h"', "Source/AppDelegate.h", "Source/Core", "Source"),
    ("Source/Core/WayRound.cpp", '#include "../AppDelegate.h"', "Source/AppDelegate.h", "Source/Core", "Source"),
    ("Source/Platform/Offender.h", '#include "Core/Markup.h"', "Source/Core/Markup.h", "Source/Platform", "Source/Core"),
    ("vxlocal/trlib/src/Offender.cpp", '#include "Platform/View.h"', "Source/Platform/View.h", "vxlocal/trlib/src",
     "Source/Platform"),
    ("Source/Core/Inner.cpp", "#include <trtools.h>", "vxlocal/trlib/src/trtools.h", "Source/Core", "vxlocal/trlib/src"),
    ("Tools/CheckStrings/Offender.cpp", '#include "Support/TemporaryFolder.h"', "Tests/Support/TemporaryFolder.h",
     "Tools/CheckStrings", "Tests/Support"),
    ("Tests/Lint/first.py", "from polkit import rule", "Tests/Desktop/polkit.py", "Tests/Lint", "Tests/Desktop"),
    ("Tests/Lint/second.py", "import sys, polkit as it", "Tests/Desktop/polkit.py", "Tests/Lint", "Tests/Desktop"),
    ("Tests/Lint/within.py", "from Desktop import polkit", "Tests/Desktop/polkit.py", "Tests/Lint", "Tests/Desktop"),
]

# Sources that the check would have to read, but cannot, or has no rule for.
UNKNOWN = {
    "Source/Core/Offender.c": "Tools/check-includes does not know what a .c file includes",
    "Source/Core/Offender.hpp": "Tools/check-includes does not know what a .hpp file includes",
    "Tests/Core/Offender.inc": "Tools/check-includes does not know what a .inc file includes",
    "Source/Attic/Offender.h": "the table of Tools/check-includes has no room Source/Attic",
}

CIRCLES = {
    "of two": {"Source/Core/One.cpp": '#include "Core/Two.h"', "Source/Core/One.h": "",
               "Source/Core/Two.cpp": '#include "Core/One.h"', "Source/Core/Two.h": ""},
    "of three": {"Source/One.h": '#include "Two.h"', "Source/Two.h": '#include "Three.h"', "Source/Three.h": '#include "One.h"'},
    "inside the tests": {"Tests/Qt/One.h": '#include "Qt/Two.h"', "Tests/Qt/Two.h": '#include "One.h"'},
    "of scripts": {"Tests/Desktop/one.py": "import two", "Tests/Desktop/two.py": "from one import name"},
}


class CheckIncludesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.root = Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        for folder in ("Source", "vxlocal", "Tools", "Tests", "Benchmarks"):
            shutil.copytree(ROOT / folder, cls.root / folder, ignore=shutil.ignore_patterns("__pycache__"))

    def report_with(self, files):
        """Adds to the files of the copy as long as the check runs; returns what this says, or None where it finds no fault."""
        before = {}
        for file, text in ((self.root / path, text) for path, text in files.items()):
            before[file] = file.read_text(encoding="utf-8") if file.exists() else None
            file.parent.mkdir(exist_ok=True)
            file.write_text(f"{before[file] or ''}{text}\n", encoding="utf-8")
        done = subprocess.run([sys.executable, ROOT / "Tools" / "check-includes", self.root],
                              stdout=subprocess.PIPE, text=True, check=False)
        for file, text in before.items():
            file.unlink() if text is None else file.write_text(text, encoding="utf-8")
        return done.stdout.splitlines() if done.returncode else None

    def test_nothing_is_found_in_the_sources(self):
        self.assertIsNone(self.report_with({}))

    def test_every_offender_is_found_once(self):
        report = self.report_with({path: line for path, line, *_ in FORBIDDEN} | dict.fromkeys(UNKNOWN, ""))
        self.assertCountEqual(report, [f"{path}: {words}" for path, words in UNKNOWN.items()] + [
            f"{path} includes {included}: no arrow leads from {room} to {other}"
            for path, _, included, room, other in FORBIDDEN])

    def test_every_circle_is_found(self):
        for kind, files in CIRCLES.items():
            with self.subTest(kind):
                report = self.report_with(files)
                self.assertEqual([line[:8] for line in report], ["circle: "], report)

    def test_an_empty_room_and_an_unused_arrow_are_found(self):
        shutil.rmtree(self.root / "Tests" / "Lint")
        (self.root / "Tools" / "demonstrate.py").write_text("", encoding="utf-8")
        report = self.report_with({})
        shutil.copytree(ROOT / "Tests" / "Lint", self.root / "Tests" / "Lint")
        shutil.copy(ROOT / "Tools" / "demonstrate.py", self.root / "Tools")
        self.assertEqual(report, ["the table of Tools/check-includes has a room Tests/Lint, which is empty",
                                  "no include uses the arrow of Tools/check-includes from Tools to Tools/Driver"])


if __name__ == "__main__":
    unittest.main()

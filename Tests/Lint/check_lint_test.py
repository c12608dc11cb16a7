"""What lint finds by itself, tried on a checkout of nothing but offenders."""

import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent

# By the check that must find it: the offenders, each with its text, and what the check must say.
OFFENDERS = {
    "file sizes": ({"Source/main.cpp": "\n" * 61, "CMakeLists.txt": "\n" * 81, "Tests/long.py": "\n" * 401,
                    "Tests/short.py": "\n" * 400},
                   ["CMakeLists.txt has 81 lines, more than 80", "Source/main.cpp has 61 lines, more than 60",
                    "Tests/long.py has 401 lines, more than 400"]),
    "documents name what exists": ({"docs/a.md": "See [c](../docs/c.md), `docs/d.md` and `Tools/lint`.\n"},
                                   ["docs/a.md names ../docs/c.md, which does not exist",
                                    "docs/a.md names docs/d.md, which does not exist"]),
    "one dialect": ({"Source/Platform/Qt/QtTags.h": "/// @param one\n/// Two. \\returns three\n/// \\return four\n",
                     "Tests/Suites.cpp": "TEST(OneTest, two) {}\nTEST_F(OneDeathTest, two) {}\n",
                     "Tools/Ranges.mm": "std::sort(a);\nstd::ranges::sort(a);\nstd::find_if(a);\nstd::any_of(a);\n",
                     "Tools/CMakeLists.txt": "add_library(one-two)\nadd_custom_target(oneTwo)\nadd_executable(check-strings)\n"},
                    ["Source/Platform/Qt/QtTags.h:1:/// @param one", "Source/Platform/Qt/QtTags.h:2:/// Two. \\returns three",
                     "Tests/Suites.cpp:1:TEST(OneTest, two) {}", "Tools/Ranges.mm:1:std::sort(a);",
                     "Tools/Ranges.mm:3:std::find_if(a);", "Tools/Ranges.mm:4:std::any_of(a);",
                     "Tools/CMakeLists.txt:1:add_library(one-two)", "Tools/CMakeLists.txt:2:add_custom_target(oneTwo)",
                     "Source/Platform/Qt/QtTags.h"]),
    "SECURITY.md names tests that exist": ({"SECURITY.md": "(`One.two`, `One.three`, `Gone.two`, `GoneTest`, `AnyTest`, "
                                                           "`AnyTest.test_it`, `One.test_it`, `AnyTest.two`)\n",
                                            "Tests/OneTest.cpp": "TEST_F(One, two) {}\nTEST(Two, three) {}\n",
                                            "Tests/any_test.py": "class AnyTest(Case):\n    def test_it(self):\n"},
                                           ["SECURITY.md names the test One.three, which does not exist", "SECURITY.md names the test Gone.two, which does not exist",
                                            "SECURITY.md names the test GoneTest, which does not exist",
                                            "SECURITY.md names the test One.test_it, which does not exist",
                                            "SECURITY.md names the test AnyTest.two, which does not exist"]),
    "interface definitions without text": ({"Resources/Interface/A.json": '{"title": ""}\n', "Resources/Interface/A.ui": "\n"},
                                           ['Resources/Interface/A.json:1:{"title": ""}']),
}


class CheckLintTest(unittest.TestCase):
    def setUp(self):
        self.root = Path(self.enterContext(tempfile.TemporaryDirectory()))
        (self.root / "Tools").mkdir()
        shutil.copy(ROOT / "Tools" / "lint", self.root / "Tools")

    def report_with(self, files):
        """What each check says that fails in a checkout with those files."""
        for path, text in files.items():
            (self.root / path).parent.mkdir(parents=True, exist_ok=True)
            (self.root / path).write_text(text, encoding="utf-8")
        subprocess.run("git init -q && git add .", cwd=self.root, shell=True, check=True)
        done = subprocess.run(["Tools/lint"], cwd=self.root, stdout=subprocess.PIPE, text=True, check=False)
        self.assertEqual(done.returncode, 1)
        report = {}
        for line in done.stdout.splitlines():
            if line.startswith("FAIL "):
                found = report[line[5:]] = []
            elif line.startswith("     "):
                found.append(line.strip())
        return report

    def test_every_offender_is_found(self):
        report = self.report_with({path: text for files, _ in OFFENDERS.values() for path, text in files.items()})
        for check, (_, words) in OFFENDERS.items():
            with self.subTest(check):
                self.assertEqual(report.get(check), words)

    def test_the_text_of_the_other_form_and_a_missing_form_are_found(self):
        definitions = "interface definitions without text"
        text = '<property name="text">\n'
        report = self.report_with({"Resources/Interface/A.json": "\n", "Resources/Interface/A.ui": text})
        self.assertEqual(report[definitions], [f"Resources/Interface/A.ui:1:{text.strip()}"])
        (self.root / "Resources/Interface/A.ui").unlink()
        self.assertRegex(self.report_with({})[definitions][0], r"Resources/Interface/\*\.ui")

    def test_an_offender_alone_is_found(self):
        suite = "TEST(OneTest, two) {}"
        self.assertEqual(self.report_with({"Tests/Suites.cpp": suite})["one dialect"], [f"Tests/Suites.cpp:1:{suite}"])

    def test_the_checks_with_files_of_their_own_are_run(self):
        self.assertLessEqual({"includes", "messages", "backends"}, self.report_with({}).keys())


if __name__ == "__main__":
    unittest.main()

"""The script that starts the program of the portable archive, over stand-ins for what a desktop has."""

import shutil

from case import PROGRAM, PackagesTestCase, run

# What the script itself takes.
NEEDED = ("dirname", "readlink", "ldd", "sed", "sort")
DIALOG = "#!/bin/sh\n{ printf '<%s>' \"${0##*/}\" \"$@\"; echo; } >>'SAID'\n"


class StartScriptTest(PackagesTestCase):
    """What it tells and whom."""

    def setUp(self):
        super().setUp()
        self.root, = self.unpack(self.portable).iterdir()
        self.program = self.root / f"lib/{PROGRAM}/{PROGRAM}"
        self.said = self.folder / "said"
        self.tools = self.folder / "tools"
        self.tools.mkdir()
        for name in NEEDED:
            (self.tools / name).symlink_to(shutil.which(name))

    def stand_in(self, *names):
        for name in names:
            self.write(self.tools / name, DIALOG.replace("SAID", str(self.said)), 0o755)

    def start(self):
        return run(self.root / PROGRAM, cwd="/", env={"PATH": str(self.tools)})

    def lose_a_library(self):
        """Names a library in the program that no system has."""
        data = self.program.read_bytes()
        self.assertIn(b"libQt6Widgets.so.6\0", data)
        self.program.write_bytes(data.replace(b"libQt6Widgets.so.6\0", b"libQt6Gadgets.so.6\0"))

    def test_starts_the_program_also_through_a_link(self):
        self.write(self.program, f"#!/bin/sh\necho \"$0\" >>'{self.said}'\n", 0o755)
        (self.tools / "link").symlink_to(self.root / PROGRAM)
        for command in (self.root / PROGRAM, self.tools / "link"):
            self.assertEqual(run(command, env={"PATH": str(self.tools)}).returncode, 0)
        self.assertEqual(self.said.read_text(), f"{self.program}\n" * 2)

    def test_finds_nothing_missing_where_everything_is_there(self):
        ldd = self.write(self.folder / "ldd", f'#!/bin/sh\necho x >>"{self.said}"\nexec {shutil.which("ldd")} "$@"\n', 0o755)
        (self.tools / "ldd").unlink()
        (self.tools / "ldd").symlink_to(ldd)
        result = run(self.root / PROGRAM, env={"PATH": f"{self.tools}:/usr/bin:/bin", "QT_QPA_PLATFORM": "nothing"})
        self.assertEqual(self.said.read_text(), "x\n")
        self.assertNotIn("libraries", result.stderr)
        self.assertIn("platform plugin", result.stderr)  # So the program itself ran.

    def test_tells_what_is_missing_and_how_to_get_it_in_the_first_dialog_there_is(self):
        self.lose_a_library()
        for tool, advice in (("pacman", "sudo pacman -S "), ("zypper", "sudo zypper install "),
                             ("dnf", "sudo dnf install "), ("apt-get", "sudo apt-get install libqt6widgets6 ")):
            self.stand_in(tool)
            result = self.start()
            self.assertEqual((result.returncode, result.stdout), (1, ""))
            self.assertIn("\nlibQt6Gadgets.so.6\n", result.stderr)
            self.assertIn(advice, result.stderr)
        self.assertFalse(self.said.exists())
        for dialog in ("notify-send", "xmessage", "yad", "kdialog", "zenity"):
            self.stand_in(dialog)
            result = self.start()
            self.assertIn(f"<{dialog}>", self.said.read_text())
            self.assertIn(result.stderr.rstrip("\n"), self.said.read_text())
            self.assertEqual(self.said.read_text().count("Ondrel Vexora Lumiq Setup"), 1)
            self.said.unlink()

    def test_names_the_version_that_is_too_old(self):
        (self.tools / "ldd").unlink()
        self.write(self.tools / "ldd", "#!/bin/sh\necho \"$1: /lib/libc.so.6: version \\`GLIBC_9.9' not found (required by $1)\"\n",
                   0o755)
        result = self.start()
        self.assertEqual(result.returncode, 1)
        self.assertIn("\nGLIBC_9.9 or later\n", result.stderr)
        self.assertIn("Install Qt 6.4 or later", result.stderr)

"""What the packages hold, and what the desktop reads of it."""

import gzip
import os
import re
import xml.etree.ElementTree
from pathlib import Path

from case import (HOME, IDENTIFIER, LANGUAGES, PROGRAM, SOURCE, STAGE, VERSION, PackagesTestCase, archive, run,
                  translated)

NAME = "Ondrel Vexora Lumiq Setup"
COMMENT = "To install Ondrel Vexora Lumiq, click <b>Start</b>."


def staged(folder):
    """Content or target of everything below a folder."""
    return {path.relative_to(folder): os.readlink(path) if path.is_symlink() else path.read_bytes()
            for path in folder.rglob("*") if path.is_symlink() or path.is_file()}


class ContentsTest(PackagesTestCase):
    """The files of the packages and their rights."""

    def test_every_package_holds_the_stage(self):
        expected = staged(STAGE)
        self.assertGreater(len(expected), 57)
        for package, place in ((self.deb, HOME), (self.rpm, HOME),
                               (self.portable, f"{self.portable.name.removesuffix('.tar.gz')}/lib/{PROGRAM}")):
            held = staged(self.unpack(package) / place)
            if package != self.portable:
                self.assertIn(f"'/{HOME}/Resources/install true'", held.pop(Path("run-install")).decode())
                # It is built to have rights asked for by that name.
                self.assertFalse(held[Path(PROGRAM)] == expected[Path(PROGRAM)], package.name)
                held[Path(PROGRAM)] = expected[Path(PROGRAM)]
            self.assertEqual(held.keys(), expected.keys(), package.name)
            self.assertEqual([path for path in held if held[path] != expected[path]], [], package.name)

    def test_program_does_not_name_what_it_was_built_from(self):
        program = (STAGE / PROGRAM).read_bytes()
        self.assertEqual([text for text in (b"Source/", b"vxlocal/", b"build/release") if text in program], [])

    def test_both_package_managers_get_the_same(self):
        deb, rpm = staged(self.unpack(self.deb)), staged(self.unpack(self.rpm))
        del deb[Path(f"usr/share/lintian/overrides/{PROGRAM}")]
        self.assertEqual(deb.keys(), rpm.keys())
        self.assertEqual([path for path in deb if deb[path] != rpm[path]], [])

    def test_root_owns_everything_and_nobody_else_writes(self):
        for package in (self.deb, self.portable):
            with archive(package) as opened:
                for member in opened:
                    self.assertEqual((member.uid, member.gid), (0, 0), member.name)
                    self.assertIn(member.mode, (0o644, 0o755) if not member.issym() else (0o777,), member.name)
        listed = run("rpm", "--query", "--package", "--dump", self.rpm).stdout.splitlines()
        self.assertGreater(len(listed), 57)
        for line in listed:
            mode, owner, group = line.split()[4:7]
            self.assertEqual((owner, group), ("root", "root"), line)
            self.assertTrue(mode.startswith("012") or int(mode, 8) & 0o7022 == 0, line)

    def test_program_and_payload_can_be_run_and_the_link_leads_there(self):
        root = self.unpack(self.deb)
        for name in (PROGRAM, "run-install", "Resources/install", "Resources/unmount"):
            self.assertEqual((root / HOME / name).stat().st_mode & 0o7777, 0o755, name)
        self.assertEqual((root / f"usr/bin/{PROGRAM}").resolve(), root / HOME / PROGRAM)

    def test_agreement_is_the_copyright_file(self):
        agreement = (SOURCE / "Resources/Licenses/LA_en.txt").read_text("utf-8")
        for path in (self.unpack(self.deb) / f"usr/share/doc/{PROGRAM}/copyright",
                     *self.unpack(self.portable).glob("*/copyright")):
            self.assertIn(agreement, path.read_text("utf-8"))

    def test_dependencies_are_the_libraries_and_who_grants_rights(self):
        fields = dict(re.findall(r"^(\w+): (.*)$", run("dpkg-deb", "--field", self.deb).stdout, re.MULTILINE))
        names = {re.split(r"[ (]", part)[0] for part in fields["Depends"].split(", ")}
        self.assertLessEqual({"libqt6widgets6", "libqt6dbus6", "libfontconfig1", "libstdc++6", "libc6", "pkexec",
                              "polkitd", "qt6-qpa-plugins"}, {name.removesuffix("t64") for name in names})
        for name in ("nautilus", "xdg-utils", "qt6-wayland", "fonts-noto-core", "fonts-noto-cjk"):
            self.assertIn(name, fields["Recommends"])
        required = run("rpm", "--query", "--package", "--requires", self.rpm).stdout
        for name in ("libQt6Widgets.so.6", "libQt6DBus.so.6", "libfontconfig.so.1", "/usr/bin/pkexec", "polkit"):
            self.assertIn(name, required)
        self.assertIn("xdg-utils", run("rpm", "--query", "--package", "--recommends", self.rpm).stdout)


class DesktopFilesTest(PackagesTestCase):
    """The entry of the menu and what stands beside it."""

    def setUp(self):
        super().setUp()
        self.share = self.unpack(self.deb) / "usr/share"
        text = (self.share / f"applications/{IDENTIFIER}.desktop").read_text("utf-8")
        self.entry = dict(line.split("=", 1) for line in text.splitlines()[1:])

    def test_entry_speaks_every_language_of_the_window(self):
        self.assertEqual(len(LANGUAGES), 57)
        for key, message in (("Name", NAME), ("Comment", COMMENT)):
            expected = {key if language == "en" else f"{key}[{language}]": translated(message, language)
                        for language in LANGUAGES}
            self.assertEqual({name: text for name, text in self.entry.items() if name.startswith(key)}, expected)

    def test_entry_starts_the_program_and_tells_the_desktop_so(self):
        self.assertEqual({key: self.entry[key] for key in ("Exec", "Icon", "StartupNotify", "StartupWMClass", "Terminal")},
                         {"Exec": PROGRAM, "Icon": IDENTIFIER, "StartupNotify": "true", "StartupWMClass": IDENTIFIER,
                          "Terminal": "false"})

    def test_icon_comes_in_every_size_and_as_a_drawing(self):
        icons = self.share / "icons/hicolor"
        for size in (16, 32, 48, 64, 128, 256, 512):
            data = (icons / f"{size}x{size}/apps/{IDENTIFIER}.png").read_bytes()
            self.assertEqual((data[:8], data[16:24]), (b"\x89PNG\r\n\x1a\n", size.to_bytes(4, "big") * 2))
        self.assertIn("<svg", (icons / f"scalable/apps/{IDENTIFIER}.svg").read_text("utf-8"))

    def test_metainfo_has_the_releases_of_the_changelog_and_pictures_that_exist(self):
        root = xml.etree.ElementTree.parse(self.share / f"metainfo/{IDENTIFIER}.metainfo.xml").getroot()
        self.assertEqual(root.findtext("id"), IDENTIFIER)
        headings = re.findall(r"^## ([\d.]+),", (SOURCE / "CHANGELOG.md").read_text("utf-8"), re.MULTILINE)
        self.assertEqual([release.get("version") for release in root.iter("release")], [VERSION, *headings[1:]])
        self.assertEqual(headings[0], VERSION.removesuffix("~sample"))
        for image in root.iter("image"):
            self.assertTrue((SOURCE / "docs/pictures" / Path(image.text).name).is_file(), image.text)
        changes = gzip.decompress((self.share / f"doc/{PROGRAM}/changelog.gz").read_bytes()).decode()
        self.assertTrue(changes.startswith(f"{PROGRAM} ({VERSION}) "), changes[:80])

    def test_address_may_hold_what_xml_reads_otherwise(self):
        self.assert_works(run(SOURCE / "Packaging/make-texts", self.folder, "identifier=a", f"version={VERSION}", "date=0",
                              "homepage=https://a.example", "help=https://b.example/?c=1&d=2", "vendor=e", "contact=f",
                              "run_install=/g"))
        root = xml.etree.ElementTree.parse(self.folder / "a.metainfo.xml").getroot()
        self.assertEqual(root.findtext("url[@type='help']"), "https://b.example/?c=1&d=2")


class ValidatorsTest(PackagesTestCase):
    """What the tools of distributions say; each also has to find the fault that is made for it."""

    def complaints(self, *command):
        """What a tool says, without what it says about itself."""
        result = run(*command, cwd=self.folder, env={**os.environ, "LC_ALL": "C.UTF-8", "HOME": str(self.folder)})
        return result.returncode, result.stdout + result.stderr

    def test_desktop_entry(self):
        entry = self.unpack(self.deb) / f"usr/share/applications/{IDENTIFIER}.desktop"
        self.assertEqual(self.complaints("desktop-file-validate", entry), (0, ""))
        faulty = self.write(self.folder / "faulty.desktop", entry.read_text("utf-8").replace("Exec=", "Run="))
        self.assertNotEqual(self.complaints("desktop-file-validate", faulty), (0, ""))

    def test_metainfo(self):
        metainfo = self.unpack(self.deb) / f"usr/share/metainfo/{IDENTIFIER}.metainfo.xml"
        status, text = self.complaints("appstreamcli", "validate", "--no-net", metainfo)
        self.assertEqual((status, re.findall(r"^\s*[EW]: .*", text, re.MULTILINE)), (0, []), text)
        faulty = self.write(self.folder / metainfo.name, metainfo.read_text("utf-8").replace("<summary>", "<sum>")
                            .replace("</summary>", "</sum>"))
        self.assertNotEqual(self.complaints("appstreamcli", "validate", "--no-net", faulty)[0], 0)

    def test_debian_package(self):
        lintian = ("lintian", "--allow-root", "--fail-on", "error,warning", "--tag-display-limit", "0")
        status, text = self.complaints(*lintian, self.deb)
        self.assertEqual((status, re.findall(r"^[EW]: .*", text, re.MULTILINE)), (0, []), text)
        control = self.write(self.folder / "faulty/DEBIAN/control", "Package: faulty\nVersion: 1\nArchitecture: all\n"
                             "Maintainer: nobody\nDescription: faulty\n")
        self.assert_works(run("dpkg-deb", "--build", control.parents[1]))
        self.assertNotEqual(self.complaints(*lintian, self.folder / "faulty.deb")[0], 0)

    def test_rpm_package(self):
        rpmlint = ("rpmlint", "--config", SOURCE / "Packaging/rpmlint.toml")
        status, text = self.complaints(*rpmlint, self.rpm)
        self.assertEqual(status, 0, text)
        self.assertRegex(text, r"\b0 errors, 0 warnings")
        spec = self.write(self.folder / "faulty.spec", "Name: faulty\nVersion: 1\nRelease: 1\nSummary: faulty.\n"
                          "License: none\n%description\n%files\n")
        self.assertNotRegex(self.complaints(*rpmlint, spec)[1], r"\b0 errors, 0 warnings")

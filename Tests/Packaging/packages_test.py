"""The package of this build, and what a builder may choose about it."""

import itertools
import os
import tarfile
from pathlib import Path

from case import IDENTITY, PACKAGING, PackagingTestCase

PAYLOAD_PROJECT = """
cmake_minimum_required(VERSION 3.25)
project(Payload LANGUAGES NONE)
set(VEXORA_PAYLOAD "${CMAKE_CURRENT_SOURCE_DIR}/payload")
include("$ENV{VEXORA_SOURCE}/cmake/Payload.cmake")
add_custom_target(packed ALL DEPENDS ${payload})
"""
CONF = "VERSION=7.1\nPLUGIN=Velmär Player.plugin\nARCHIVE=velmär.tar.gz\n"


class ArchiveTest(PackagingTestCase):
    """The package of this build."""

    folder_name = "My  disk"  # CPack takes the folder in which it works for a pattern.

    def test_holds_the_stage(self):
        stage = Path(os.environ["VEXORA_STAGE"])
        self.assert_works(self.run_tool(os.environ["CPACK"], "-B", self.folder / "package",
                                        "--config", Path(os.environ["VEXORA_BUILD"]) / "CPackConfig.cmake"))
        package, = (self.folder / "package").glob("*.tar.gz")
        with tarfile.open(package) as archive:
            members = {Path(*Path(member.name).parts[1:]): member.linkname or (member.size, member.mode & 0o100)
                       for member in archive if not member.isdir()}
        files = [path for path in stage.rglob("*") if not path.is_dir()]
        self.assertEqual(members, {path.relative_to(stage): os.readlink(path) if path.is_symlink() else
                                   (path.stat().st_size, path.stat().st_mode & 0o100) for path in files})
        self.assertTrue(any(path.is_symlink() for path in files))


class SettingsTest(PackagingTestCase):
    """What a builder may choose."""

    def settings(self, **values):
        definitions = [f"-DVEXORA_{name}={value}" for name, value in values.items()]
        return self.run_tool(os.environ["CMAKE"], *definitions,
                             "-P", Path(os.environ["VEXORA_SOURCE"]) / "cmake/Settings.cmake")

    def test_takes_certificate_and_profile(self):
        self.assert_works(self.settings())
        self.assert_works(self.settings(SIGNING_IDENTITY=IDENTITY))
        self.assert_works(self.settings(SIGNING_IDENTITY=IDENTITY, NOTARY_PROFILE="a profile"))

    def test_refuses_notarisation_of_an_ad_hoc_signature(self):
        for values in ({}, {"SIGNING_IDENTITY": "-"}):
            result = self.settings(NOTARY_PROFILE="a profile", **values)
            self.assertNotEqual(result.returncode, 0)
            self.assertIn("takes a certificate in VEXORA_SIGNING_IDENTITY", " ".join(result.stderr.split()))

    def test_refuses_an_empty_certificate(self):
        result = self.settings(SIGNING_IDENTITY="")
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("VEXORA_SIGNING_IDENTITY must name a certificate", " ".join(result.stderr.split()))

    def test_refuses_an_address_that_is_not_https(self):
        for name, address in itertools.product(("VEXORA_TROUBLESHOOTING_URL", "VEXORA_HOMEPAGE"),
                                               ("http://a.example", "https://a.example/#part")):
            result = self.settings(**{name.removeprefix("VEXORA_"): address})
            self.assertNotEqual(result.returncode, 0)
            self.assertIn(f"{name} must be an https address", " ".join(result.stderr.split()))

    def test_refuses_a_payload_without_its_files_and_a_contact_that_no_package_takes(self):
        parts = [self.folder / name for name in ("install", "unmount", "payload.conf", "Plugin")]
        for path in parts:
            result = self.settings(PAYLOAD=self.folder)
            self.assertNotEqual(result.returncode, 0)
            self.assertIn(f"VEXORA_PAYLOAD must be a folder with {path.name},", " ".join(result.stderr.split()))
            path.mkdir()
        self.assert_works(self.settings(PAYLOAD=self.folder, CONTACT="A. B. <c@d.example>"))
        parts[1].rmdir()
        self.write(parts[1], b"")
        result = self.settings(PAYLOAD=self.folder)
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("/unmount must be executable.", " ".join(result.stderr.split()))
        for contact in ("a@b.example", "A <b>", "<a@b.example>"):
            result = self.settings(CONTACT=contact)
            self.assertNotEqual(result.returncode, 0, contact)
            self.assertIn("VEXORA_CONTACT must be a name and an address", " ".join(result.stderr.split()))

    def test_empty_key_is_refused_before_anything_is_built(self):
        for rest in ((), ("-D", "VEXORA_PUBLICATION=ON")):
            result = self.run_tool(PACKAGING / "build", "", *rest)
            self.assertEqual(result.returncode, 2)
            self.assertIn("Usage: ", result.stderr)

    def test_takes_no_place_of_run_install_that_a_shell_could_read_otherwise(self):
        self.assert_works(self.settings(RUN_INSTALL="/usr/lib/a_b.c-1/run-install"))
        for path in ("run-install", "/run-installer", "/usr/lib/install", "/my lib/run-install", "/a'/run-install",
                     "/$HOME/run-install", "//run-install", "/a\n/run-install"):
            result = self.settings(RUN_INSTALL=path)
            self.assertNotEqual(result.returncode, 0, path)
            self.assertIn("VEXORA_RUN_INSTALL must be the absolute path", " ".join(result.stderr.split()))


class PayloadTest(PackagingTestCase):
    """A payload of a publisher's."""

    folder_name = "My  disk [1] ü"

    def setUp(self):
        super().setUp()
        self.write(self.folder / "CMakeLists.txt", PAYLOAD_PROJECT.encode())
        for name in ("install", "unmount"):
            self.write(self.folder / "payload" / name, b"")
        self.write(self.folder / "elsewhere/player.module", b"plays")
        self.plugin = self.folder / "payload/Plugin"

    def configure(self, settings):
        self.write(self.folder / "payload/payload.conf", settings.encode())
        return self.run_tool(os.environ["CMAKE"], "-G", "Ninja", "-B", "build")

    def members(self):
        """What the archive holds, with the targets of links."""
        self.assert_works(self.configure(CONF))
        self.assert_works(self.run_tool(os.environ["CMAKE"], "--build", "build"))
        with tarfile.open(self.folder / "build/payload/velmär.tar.gz") as archive:
            return {member.name.removeprefix("Velmär Player.plugin/"): member.linkname
                    for member in archive if not member.isdir()}

    def test_may_be_a_link_to_a_folder_with_links_in_it(self):
        (self.folder / "elsewhere/module").symlink_to("player.module")
        self.plugin.symlink_to(self.folder / "elsewhere")
        self.assertEqual(self.members(), {"player.module": "", "module": "player.module", "VERSION": ""})
        self.assertFalse((self.folder / "elsewhere/VERSION").exists())

    def test_bundle_of_the_mac_gets_no_version(self):
        self.write(self.plugin / "Contents/Info.plist", b"")
        self.assertEqual(self.members(), {"Contents/Info.plist": ""})

    def assert_refused(self, settings, message):
        result = self.configure(settings)
        self.assertNotEqual(result.returncode, 0, settings)
        self.assertIn(message, " ".join(result.stderr.split()))

    def test_is_refused_where_install_would_fail(self):
        self.plugin.mkdir()
        for settings, message in ((CONF, "Plugin is empty."),
                                  (CONF.replace("7.1", "7.1-beta"), "names 7.1-beta."),
                                  (CONF.replace("7.1", "7..1"), "names 7..1."),
                                  (CONF.replace("7.1", "7.1234567890"), "names 7.1234567890."),
                                  (CONF.replace("\n", "\r\n"), "ends in a blank or a carriage return."),
                                  (CONF.replace("gz\n", "gz \n"), "ends in a blank or a carriage return."),
                                  (CONF.replace("Player.", "Player/"), "must have one line PLUGIN="),
                                  (CONF.replace("Player.", "Player;"), "must have one line PLUGIN="),
                                  (CONF.replace("Velmär Player.plugin", ".."), "must have one line PLUGIN="),
                                  (CONF + "PLUGIN=Another.plugin\n", "must have one line PLUGIN="),
                                  (CONF + "PLUGIN=An/other.plugin\n", "must have one line PLUGIN=")):
            self.assert_refused(settings, message)

    def test_is_refused_with_files_that_cannot_be_packed(self):
        self.write(self.plugin / "player.module", b"")
        nowhere = self.plugin / "nowhere"
        nowhere.symlink_to("missing")
        self.assert_refused(CONF, "nowhere is a link to nothing")
        nowhere.unlink()
        for name in ("a[b", "a;b"):
            self.write(self.plugin / name, b"")
            self.assert_refused(CONF, "its name holds a semicolon or a bracket")
            (self.plugin / name).unlink()
        self.assert_works(self.configure(CONF))

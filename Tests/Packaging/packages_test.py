"""What ships: the settings of CPack, and what its scripts do to the bundle and the images."""

import os
import re
import tarfile
import unittest
from pathlib import Path

from case import BUNDLE, IDENTITY, PACKAGING, PROGRAM, PackagingTestCase

# A project with the packages of this one, as they are on macOS, of a stage that lies beside it.
PROJECT = """
cmake_minimum_required(VERSION 3.25)
project(Packages VERSION 9.8.7 LANGUAGES NONE)
set(APPLE TRUE)
set(VEXORA_BACKEND appkit)
set(VEXORA_STAGE "${{CMAKE_CURRENT_SOURCE_DIR}}/stage")
set(VEXORA_BUNDLE "{bundle}")
set(VEXORA_SIGNING_IDENTITY [==[{identity}]==])
set(VEXORA_NOTARY_PROFILE [==[{profile}]==])
include("{packaging}/Packages.cmake")
"""

# CPack takes the folder in which it works for a pattern.
FOLDER_NAME = "My  disk"


class DiskImageTest(PackagingTestCase):
    """The settings for macOS; an archive stands in for the disk image, which only macOS can make."""

    folder_name = FOLDER_NAME

    def configure(self, identity, profile):
        self.write_bundle(self.folder / "stage")
        self.write(self.folder / "CMakeLists.txt", PROJECT.format(
            bundle=BUNDLE, identity=identity, profile=profile, packaging=PACKAGING).encode())
        self.assert_works(self.run_tool(os.environ["CMAKE"], "-S", ".", "-B", "build", "-G", "Unix Makefiles",
                                        "-D", "CMAKE_MAKE_PROGRAM=true"))

    def pack(self):
        """Runs CPack; the result has the names of the packages as well."""
        result = self.run_tool(os.environ["CPACK"], "--config", "build/CPackConfig.cmake", "-G", "TGZ")
        result.packages = sorted(path.name for path in (self.folder / "build").glob("*.tar.gz"))
        return result

    def signed(self):
        """The calls, without what the scripts' own tests check."""
        return [(call[0], *[argument for argument in call[1:] if argument in ("submit", "staple", "validate")],
                 Path(next(argument for argument in reversed(call) if "/" in argument)).name)
                for call in self.tools.calls() if "--verify" not in call]

    def test_settings(self):
        self.configure("-", "")
        settings = dict(re.findall(r'^set\((CPACK_\w+) "(.*)"\)$',
                                   (self.folder / "build/CPackConfig.cmake").read_text(), re.MULTILINE))
        expected = {
            "CPACK_GENERATOR": "DragNDrop",
            "CPACK_PACKAGE_FILE_NAME": f"{PROGRAM}-9.8.7",
            "CPACK_DMG_VOLUME_NAME": "Ondrel Vexora Lumiq Setup",
            "CPACK_DMG_FORMAT": "UDZO",
            "CPACK_DMG_DISABLE_APPLICATIONS_SYMLINK": "ON",
        }
        self.assertEqual({key: settings.get(key) for key in expected}, expected)

    def test_package_holds_the_bundle_and_nothing_else(self):
        self.configure("-", "")
        result = self.pack()
        self.assert_works(result)
        self.assertEqual(result.packages, [f"{PROGRAM}-9.8.7.tar.gz"])
        with tarfile.open(self.folder / "build" / result.packages[0]) as archive:
            members = {Path(member.name).relative_to(f"{PROGRAM}-9.8.7").as_posix(): member.mode
                       for member in archive if member.isfile()}
        contents = f"{BUNDLE}/Contents"
        self.assertEqual(members.keys(), {f"{contents}/MacOS/{PROGRAM}", f"{contents}/Resources/install",
                                          f"{contents}/Resources/unmount", f"{contents}/Resources/LA_en"})
        self.assertTrue(members[f"{contents}/Resources/unmount"] & 0o100)
        self.assertFalse(members[f"{contents}/Resources/LA_en"] & 0o100)

    def test_ad_hoc_signature_is_for_the_bundle_alone(self):
        self.configure("-", "")
        self.assert_works(self.pack())
        self.assertEqual(self.signed(), [("codesign", "install"), ("codesign", "unmount"), ("codesign", BUNDLE)])
        self.assertTrue(all("-" in call for call in self.tools.calls() if "--sign" in call))

    def test_certificate_signs_the_packed_copy_and_the_image(self):
        self.configure(IDENTITY, "")
        result = self.pack()
        self.assert_works(result)
        self.assertEqual(self.signed(), [
            ("codesign", "install"), ("codesign", "unmount"), ("codesign", BUNDLE), ("codesign", result.packages[0])])
        self.assertEqual([call[3] for call in self.tools.calls() if "--sign" in call], [IDENTITY] * 4)
        for call in self.tools.calls():
            self.assertNotIn(str(self.folder / "stage"), call[-1])
            self.assertIn("/_CPack_Packages/", call[-1])

    def test_notarisation_comes_last(self):
        self.configure(IDENTITY, "a profile")
        self.tools.answer("submit", 0, '{"id":"1","status":"Accepted"}')
        result = self.pack()
        self.assert_works(result)
        image = result.packages[0]
        self.assertEqual(self.signed(), [
            ("codesign", "install"), ("codesign", "unmount"), ("codesign", BUNDLE), ("codesign", image),
            ("xcrun", "submit", image), ("xcrun", "staple", image), ("xcrun", "validate", image)])

    def test_every_failure_leaves_no_package(self):
        self.configure(IDENTITY, "a profile")
        # Three signatures and a verification of the bundle, the same of the image, and the three steps of notarisation.
        for number in range(1, 10):
            with self.subTest(call=number):
                self.tools.answers = {"submit": (0, '{"id":"1","status":"Accepted"}')}
                self.tools.answer(number, 1)
                result = self.pack()
                self.assertNotEqual(result.returncode, 0)
                self.assertEqual(result.packages, [])
                self.assertEqual(len(self.tools.calls()), number)

    def test_refused_image_is_no_package(self):
        self.configure(IDENTITY, "a profile")
        self.tools.answer("submit", 0, '{"id":"1","status":"Invalid"}')
        result = self.pack()
        self.assertNotEqual(result.returncode, 0)
        self.assertEqual(result.packages, [])


@unittest.skipIf(os.uname().sysname == "Darwin", "The package is a disk image there.")
class ArchiveTest(PackagingTestCase):
    """The package of this build."""

    folder_name = FOLDER_NAME

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

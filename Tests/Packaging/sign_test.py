"""In which order the bundle and the disk image are signed, over stand-ins for the tools that do it."""

import os
from pathlib import Path

from case import BUNDLE, IDENTITY, PACKAGING, PROGRAM, PackagingTestCase

PREFIX = "com.ondrel.vexora.lumiq."

# A project with the packages of this one, as they are on macOS, of a stage that lies beside it.
PROJECT = f"""
cmake_minimum_required(VERSION 3.25)
project(Packages VERSION 9.8.7 LANGUAGES NONE)
set(APPLE TRUE)
set(VEXORA_BACKEND appkit)
set(VEXORA_STAGE "${{CMAKE_CURRENT_SOURCE_DIR}}/stage")
set(VEXORA_BUNDLE "{BUNDLE}")
set(VEXORA_SIGNING_IDENTITY [==[{IDENTITY}]==])
set(VEXORA_NOTARY_PROFILE "a profile")
include("{PACKAGING}/Packages.cmake")
"""


class SignTestCase(PackagingTestCase):
    def write_bundle(self, folder):
        """Makes a bundle with the main program, a script, a program of the payload and a text."""
        contents = folder / BUNDLE / "Contents"
        self.write(contents / "MacOS" / PROGRAM, b"\xca\xfe\xba\xbe\0\0\0\x02main", executable=True)
        self.write(contents / "Resources/install", b"\xcf\xfa\xed\xfe\x0c\0\0\x01", executable=True)
        self.write(contents / "Resources/unmount", b"#!/bin/sh\n", executable=True)
        self.write(contents / "Resources/LA_en", b"\xff\xfeL\0")
        return folder / BUNDLE


class SignTest(SignTestCase):
    """The script that signs."""

    def setUp(self):
        super().setUp()
        self.bundle = self.write_bundle(self.folder)
        self.resources = self.bundle / "Contents/Resources"

    def sign(self, target, identity):
        self.assert_works(self.run_tool(PACKAGING / "sign", target, identity))

    def assert_signed(self, identity, *options):
        signing = ["codesign", "--force", "--sign", identity, "--prefix", PREFIX, *options, "--options", "runtime"]
        self.assertEqual(self.calls(), [
            [*signing, str(self.resources / "install")],
            [*signing, str(self.resources / "unmount")],
            [*signing, str(self.bundle)],
            ["codesign", "--verify", "--deep", "--strict", "--verbose=2", str(self.bundle)],
        ])

    def test_signs_programs_then_the_bundle_then_verifies(self):
        self.sign(self.bundle, IDENTITY)
        self.assert_signed(IDENTITY, "--timestamp")

    def test_ad_hoc_signature_has_no_timestamp(self):
        self.sign(self.bundle, "-")
        self.assert_signed("-")

    def test_knows_programs_of_every_kind_wherever_they_are(self):
        kinds = ("cefaedfe", "cffaedfe", "feedface", "feedfacf", "cafebabe", "cafebabf")
        programs = [self.write(self.resources / f"A folder/{kind}", bytes.fromhex(kind) + b"rest") for kind in kinds]
        for name, data in (("empty", b""), ("short", b"\xcf\xfa\xed"), ("script", b"#!/usr/bin/env bash\n")):
            self.write(self.resources / name, data, executable=True)
        self.sign(self.bundle, "-")
        self.assertEqual([call[-1] for call in self.calls() if "--sign" in call], [
            *map(str, sorted([self.resources / "install", self.resources / "unmount", *programs])), str(self.bundle)])

    def test_signs_and_verifies_an_image(self):
        image = self.write(self.folder / "set up.dmg", b"koly")
        self.sign(image, IDENTITY)
        self.assertEqual(self.calls(), [
            ["codesign", "--force", "--sign", IDENTITY, "--prefix", PREFIX, "--timestamp", str(image)],
            ["codesign", "--verify", "--strict", "--verbose=2", str(image)],
        ])


class DiskImageTest(SignTestCase):
    """What CPack has done on macOS; an archive stands in for the disk image, which only macOS can make."""

    folder_name = "My  disk"  # CPack takes the folder in which it works for a pattern.

    def test_bundle_comes_before_the_image_and_notarisation_last(self):
        self.write_bundle(self.folder / "stage")
        self.write(self.folder / "CMakeLists.txt", PROJECT.encode())
        self.assert_works(self.run_tool(os.environ["CMAKE"], "-S", ".", "-B", "build", "-G", "Unix Makefiles",
                                        "-D", "CMAKE_MAKE_PROGRAM=true"))
        self.assert_works(self.run_tool(os.environ["CPACK"], "--config", "build/CPackConfig.cmake", "-G", "TGZ"))
        steps = []
        for call in self.calls():
            path = next(argument for argument in reversed(call) if "/" in argument)
            self.assertIn("/build/_CPack_Packages/", path)
            if "--verify" not in call:
                steps.append((call[0] if call[0] == "codesign" else call[2], Path(path).name))
        image = f"{PROGRAM}-9.8.7.tar.gz"
        self.assertEqual(steps, [("codesign", "install"), ("codesign", "unmount"), ("codesign", BUNDLE),
                                 ("codesign", image), ("submit", image), ("staple", image), ("validate", image)])

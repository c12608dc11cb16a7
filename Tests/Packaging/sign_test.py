"""In which order the bundle and the disk image are signed, over stand-ins for the tools that do it."""

import os
import tarfile
from pathlib import Path

from case import BUNDLE, IDENTITY, PACKAGING, PROGRAM, PackagingTestCase

PREFIX = "com.ondrel.vexora.lumiq."

# A project with the packages of this one, as they are on macOS, of a stage that lies beside it.
PROJECT = f"""
cmake_minimum_required(VERSION 3.25)
project(Packages LANGUAGES NONE)
set(APPLE TRUE)
set(VEXORA_BACKEND appkit)
set(VEXORA_STAGE "${{CMAKE_CURRENT_SOURCE_DIR}}/stage")
set(VEXORA_BUNDLE "{BUNDLE}")
set(VEXORA_PACKAGE_VERSION 9.8.7~sample)
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

    def test_signs_install_and_programs_of_every_kind_wherever_they_are_and_nothing_else(self):
        install = self.write(self.resources / "install", b"#!/bin/sh\n")
        (self.resources / "unmount").unlink()
        kinds = ("cefaedfe", "cffaedfe", "feedface", "feedfacf", "cafebabe", "cafebabf")
        programs = [self.write(self.resources / f"A folder/{kind}", bytes.fromhex(kind) + b"rest") for kind in kinds]
        helper = self.write(self.bundle / "Contents/MacOS/helper", bytes.fromhex(kinds[1]))
        for name, data in (("empty", b""), ("short", b"\xcf\xfa\xed"), ("elf", b"\x7fELF"),
                           ("script", b"#!/usr/bin/env bash\n"), ("later", b"\0\xcf\xfa\xed\xfe")):
            self.write(self.resources / name, data, executable=True)
        (self.resources / "link").symlink_to(programs[0])
        self.sign(self.bundle, "-")
        self.assertEqual([call[-1] for call in self.calls() if "--sign" in call], [
            *map(str, sorted([helper, install, *programs])), str(self.bundle)])

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

    def setUp(self):
        super().setUp()
        self.write_bundle(self.folder / "stage")
        self.write(self.folder / "CMakeLists.txt", PROJECT.encode())
        self.assert_works(self.run_tool(os.environ["CMAKE"], "-S", ".", "-B", "build", "-G", "Unix Makefiles",
                                        "-D", "CMAKE_MAKE_PROGRAM=true"))

    def pack(self):
        return self.run_tool(os.environ["CPACK"], "--config", "build/CPackConfig.cmake", "-G", "TGZ")

    def test_bundle_comes_before_the_image_and_notarisation_last(self):
        packed = self.pack()
        self.assert_works(packed)
        self.assertEqual(packed.stderr.count("is marked as a sample"), 1)
        steps = []
        for call in self.calls():
            path = next(argument for argument in reversed(call) if "/" in argument)
            self.assertIn("/build/_CPack_Packages/", path)
            if "--sign" in call:
                self.assertEqual(call[3], IDENTITY)
            if "--verify" not in call:
                steps.append((call[0] if call[0] == "codesign" else call[2], Path(path).name))
        image = f"{PROGRAM}-9.8.7~sample.tar.gz"
        self.assertEqual(steps, [("codesign", "install"), ("codesign", "unmount"), ("codesign", BUNDLE),
                                 ("codesign", image), ("submit", image), ("staple", image), ("validate", image)])

    def test_every_failure_leaves_neither_package_nor_image(self):
        # The bundle takes three signatures and a verification, the image one each and three steps of notarisation; a
        # refusal fails none of them and asks for the log.
        for self.failing_call, self.verdict, calls in (*((number, "Accepted", number) for number in range(1, 10)),
                                                       (0, "Invalid", 8)):
            self.assertNotEqual(self.pack().returncode, 0)
            self.assertEqual(len(self.calls()), calls)
            self.assertEqual(list((self.folder / "build").glob("*.tar.gz")), [])
            for image in (self.folder / "build/_CPack_Packages").rglob("*.tar.gz"):
                self.assertEqual(tarfile.open(image).getnames(), [])  # CPack makes one, if of nothing, all the same.

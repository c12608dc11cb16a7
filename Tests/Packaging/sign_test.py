"""The script that signs, over a stand-in for codesign."""

from case import IDENTITY, PACKAGING, PROGRAM, PackagingTestCase

PREFIX = "com.ondrel.vexora.lumiq."


def signing(identity, *options):
    """The call of codesign that signs, without the file."""
    return ["codesign", "--force", "--sign", identity, "--prefix", PREFIX, *options]


class SignTestCase(PackagingTestCase):
    """Signs a bundle in the test's folder."""

    def setUp(self):
        super().setUp()
        self.bundle = self.write_bundle(self.folder)
        self.resources = self.bundle / "Contents/Resources"

    def sign(self, target, identity):
        return self.run_tool(PACKAGING / "sign", target, identity)

    def signed(self):
        """The files that were signed, in order."""
        return [call[-1] for call in self.tools.calls() if "--sign" in call]


class SignBundleTest(SignTestCase):
    """What becomes of a bundle."""

    def test_signs_programs_then_the_bundle_then_verifies(self):
        self.assert_works(self.sign(self.bundle, IDENTITY))
        options = signing(IDENTITY, "--timestamp", "--options", "runtime")
        self.assertEqual(self.tools.calls(), [
            [*options, str(self.resources / "install")],
            [*options, str(self.resources / "unmount")],
            [*options, str(self.bundle)],
            ["codesign", "--verify", "--deep", "--strict", "--verbose=2", str(self.bundle)],
        ])

    def test_ad_hoc_signature_has_no_timestamp(self):
        self.assert_works(self.sign(self.bundle, "-"))
        options = signing("-", "--options", "runtime")
        self.assertEqual(self.tools.calls(), [
            [*options, str(self.resources / "install")],
            [*options, str(self.resources / "unmount")],
            [*options, str(self.bundle)],
            ["codesign", "--verify", "--deep", "--strict", "--verbose=2", str(self.bundle)],
        ])

    def test_knows_programs_of_every_kind_wherever_they_are(self):
        kinds = ("cefaedfe", "cffaedfe", "feedface", "feedfacf", "cafebabe", "cafebabf")
        programs = [self.write(self.resources / f"A folder/{kind}", bytes.fromhex(kind) + b"rest")
                    for kind in kinds]
        helper = self.write(self.bundle / "Contents/MacOS/helper", bytes.fromhex(kinds[1]))
        self.assert_works(self.sign(self.bundle, "-"))
        self.assertEqual(self.signed(), [
            *map(str, sorted([helper, self.resources / "install", self.resources / "unmount", *programs])),
            str(self.bundle)])

    def test_leaves_alone_what_is_no_program(self):
        for name, data in (("empty", b""), ("short", b"\xcf\xfa\xed"), ("elf", b"\x7fELF"),
                           ("script", b"#!/usr/bin/env bash\n"), ("later", b"\0\xcf\xfa\xed\xfe")):
            self.write(self.resources / name, data, executable=True)
        (self.resources / "link").symlink_to("install")
        self.assert_works(self.sign(self.bundle, "-"))
        self.assertEqual(self.signed(), [
            str(self.resources / "install"), str(self.resources / "unmount"), str(self.bundle)])

    def test_signs_install_and_unmount_also_when_they_are_scripts(self):
        self.write(self.resources / "install", b"#!/bin/sh\n")
        (self.resources / "unmount").unlink()
        self.assert_works(self.sign(self.bundle, "-"))
        self.assertEqual(self.signed(), [str(self.resources / "install"), str(self.bundle)])

    def test_every_failure_stops_it(self):
        for number in (1, 2, 3, 4):
            with self.subTest(call=number):
                self.tools.answers = {}
                self.tools.answer(number, 1)
                self.assertNotEqual(self.sign(self.bundle, IDENTITY).returncode, 0)
                self.assertEqual(len(self.tools.calls()), number)


class SignImageTest(SignTestCase):
    """What becomes of a disk image, and of everything else."""

    def test_signs_and_verifies_an_image(self):
        image = self.write(self.folder / "set up.dmg", b"koly")
        self.assert_works(self.sign(image, IDENTITY))
        self.assertEqual(self.tools.calls(), [
            [*signing(IDENTITY, "--timestamp"), str(image)],
            ["codesign", "--verify", "--strict", "--verbose=2", str(image)],
        ])

    def test_every_failure_stops_it(self):
        image = self.write(self.folder / "set up.dmg", b"koly")
        for number in (1, 2):
            with self.subTest(call=number):
                self.tools.answers = {}
                self.tools.answer(number, 1)
                self.assertNotEqual(self.sign(image, IDENTITY).returncode, 0)
                self.assertEqual(len(self.tools.calls()), number)

    def test_refuses_everything_else(self):
        (self.bundle / "Contents/MacOS" / PROGRAM).unlink()
        for target in (self.bundle, self.folder / "gone.app", self.folder):
            result = self.sign(target, "-")
            self.assertEqual(result.returncode, 1)
            self.assertIn(f"{target} is neither", result.stderr)
            self.assertEqual(self.tools.calls(), [])

    def test_tells_how_it_is_used(self):
        for arguments in ([], [self.bundle], [self.bundle, ""], [self.bundle, "-", "more"]):
            result = self.run_tool(PACKAGING / "sign", *arguments)
            self.assertEqual(result.returncode, 2)
            self.assertIn("Usage: ", result.stderr)
            self.assertEqual(self.tools.calls(), [])

"""The staged bundle."""

import os
import plistlib
from pathlib import Path

from case import BUNDLE, PackagingTestCase

STAGE = Path(os.environ["VEXORA_STAGE"])


class BundleTest(PackagingTestCase):
    """The layout that macOS takes for a program, on every system."""

    def setUp(self):
        super().setUp()
        self.contents = STAGE / BUNDLE / "Contents"
        self.values = plistlib.loads((self.contents / "Info.plist").read_bytes())

    def test_stage_holds_the_bundle_and_nothing_else(self):
        self.assertEqual([path.name for path in STAGE.iterdir()], [BUNDLE])
        self.assertEqual(sorted(path.name for path in self.contents.iterdir()), ["Info.plist", "MacOS", "Resources"])

    def test_program_is_where_the_list_says(self):
        programs = list((self.contents / "MacOS").iterdir())
        self.assertEqual([path.name for path in programs], [self.values["CFBundleExecutable"]])
        self.assertTrue(os.access(programs[0], os.X_OK))

    def test_every_language_has_its_texts_and_its_licence(self):
        for language in self.values["CFBundleLocalizations"]:
            self.assertTrue((self.contents / f"Resources/{language}.lproj/Localizable.strings").is_file(), language)
            self.assertTrue((self.contents / f"Resources/LA_{language}").is_file(), language)

    def test_payload_can_be_run(self):
        for name in ("install", "unmount"):
            self.assertTrue(os.access(self.contents / "Resources" / name, os.X_OK), name)

    def test_icons_of_other_desktops_stay_away(self):
        self.assertEqual(list((self.contents / "Resources").glob("vexora-one-click-installer-*.png")), [])

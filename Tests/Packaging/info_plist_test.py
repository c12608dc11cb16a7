"""The Info.plist of the bundle."""

import os
import plistlib
import re
from pathlib import Path

from case import BUNDLE, PACKAGING, PROGRAM, PackagingTestCase

CONTENTS = Path(os.environ["VEXORA_CONTENTS"])
RESOURCES = Path(os.environ["VEXORA_RESOURCES"])


class InfoPlistTest(PackagingTestCase):
    """The list that the build has made."""

    def setUp(self):
        super().setUp()
        self.values = plistlib.loads((CONTENTS / "Info.plist").read_bytes())

    def test_every_value(self):
        version = os.environ["VEXORA_VERSION"]
        expected = {
            "CFBundleInfoDictionaryVersion": "6.0",
            "CFBundlePackageType": "APPL",
            "CFBundleIdentifier": "com.ondrel.vexora.lumiq.setup",
            "CFBundleName": "Ondrel Vexora Lumiq Setup",
            "CFBundleDisplayName": "Ondrel Vexora Lumiq Setup",
            "CFBundleExecutable": PROGRAM,
            "CFBundleIconFile": f"{PROGRAM}.icns",
            "CFBundleShortVersionString": version,
            "CFBundleVersion": version,
            "CFBundleDevelopmentRegion": "en",
            "CFBundleLocalizations": sorted(folder.stem for folder in RESOURCES.glob("*.lproj")),
            "LSApplicationCategoryType": "public.app-category.utilities",
            "LSAppNapIsDisabled": True,
            "LSMinimumSystemVersion": os.environ["VEXORA_MINIMUM_SYSTEM"],
            "NSHighResolutionCapable": True,
            "NSHumanReadableCopyright": "Copyright © Ondrel Vexora",
            "NSPrincipalClass": "NSApplication",
        }
        if (RESOURCES / "Fonts").exists():
            expected["ATSApplicationFontsPath"] = "Fonts"
        actual = {**self.values, "CFBundleLocalizations": sorted(self.values["CFBundleLocalizations"])}
        self.assertEqual(actual, expected)

    def test_identifier_and_versions_have_the_form_that_the_system_takes(self):
        self.assertRegex(self.values["CFBundleIdentifier"], r"^[A-Za-z0-9-]+(\.[A-Za-z0-9-]+)+$")
        for key in ("CFBundleShortVersionString", "CFBundleVersion", "LSMinimumSystemVersion"):
            self.assertRegex(self.values[key], r"^[0-9]+(\.[0-9]+){0,2}$", key)

    def test_development_region_is_one_of_the_languages(self):
        self.assertIn(self.values["CFBundleDevelopmentRegion"], self.values["CFBundleLocalizations"])

    def test_name_is_that_of_the_bundle(self):
        self.assertEqual(f"{self.values['CFBundleName']}.app", BUNDLE)

    def test_icon_is_in_its_place(self):
        self.assertTrue((CONTENTS / "Resources" / self.values["CFBundleIconFile"]).is_file())


class InfoPlistTextsTest(PackagingTestCase):
    """The list made of texts of the test's choice."""

    def made(self, arguments):
        script = self.write(self.folder / "make.cmake", f"""
            include("{PACKAGING}/InfoPlist.cmake")
            vexora_info_plist("${{CMAKE_CURRENT_LIST_DIR}}/Info.plist" {arguments})
            """.encode())
        self.assert_works(self.run_tool(os.environ["CMAKE"], "-P", script))
        return plistlib.loads((self.folder / "Info.plist").read_bytes())

    def test_texts_arrive_as_they_are(self):
        name = 'Vexora & Söhne <"x"> &amp; @version@ a;b'
        values = self.made(f"IDENTIFIER a.b NAME [==[{name}]==] VERSION [==[1<2]==] MINIMUM_SYSTEM [==[a>b]==] "
                           "LANGUAGES [==[<&>]==]")
        self.assertEqual(values["CFBundleIdentifier"], "a.b")
        self.assertEqual(values["CFBundleName"], name)
        self.assertEqual(values["CFBundleDisplayName"], name)
        self.assertEqual(values["CFBundleVersion"], "1<2")
        self.assertEqual(values["LSMinimumSystemVersion"], "a>b")
        self.assertEqual(values["CFBundleLocalizations"], ["<&>"])

    def test_languages_keep_their_order(self):
        self.assertEqual(self.made("LANGUAGES en de ar")["CFBundleLocalizations"], ["en", "de", "ar"])

    def test_fonts_are_named_where_there_are_some(self):
        self.assertEqual(self.made("FONTS Fonts LANGUAGES en")["ATSApplicationFontsPath"], "Fonts")
        self.assertNotIn("ATSApplicationFontsPath", self.made("FONTS LANGUAGES en"))

    def test_nothing_of_the_template_is_left(self):
        self.made("NAME a VERSION 1 MINIMUM_SYSTEM 11.0 LANGUAGES en")
        self.assertIsNone(re.search("@[a-z_]+@", (self.folder / "Info.plist").read_text()))

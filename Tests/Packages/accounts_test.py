"""What accounts for the packages: sums and bill of materials."""

import json
import os

from case import PACKAGES, PROGRAM, SOURCE, STAGE, PackagesTestCase, archive, listed_sums, run, sha256

BILL = f"{PROGRAM}.spdx.json"


class BillTest(PackagesTestCase):
    """The bill of materials and the sums."""

    def setUp(self):
        super().setUp()
        self.bill = json.loads((PACKAGES / BILL).read_text("utf-8"))
        self.relations = {(relation["spdxElementId"], relation["relationshipType"], relation["relatedSpdxElement"])
                          for relation in self.bill["relationships"]}

    def test_sums_are_those_of_all_files(self):
        names = (self.deb.name, self.rpm.name, self.portable.name, BILL)
        self.assertEqual(listed_sums(PACKAGES), {name: sha256((PACKAGES / name).read_bytes()) for name in names})

    def test_lists_every_file_of_every_package(self):
        files = {file["SPDXID"]: (file["fileName"].removeprefix("./"), file["checksums"][1]["checksumValue"])
                 for file in self.bill["files"]}
        shipped = {package["name"]: package for package in self.bill["packages"]}
        for path in (self.deb, self.rpm, self.portable):
            package = shipped[path.name]
            self.assertEqual(package["checksums"][1], {"algorithm": "SHA256", "checksumValue": sha256(path.read_bytes())})
            with archive(path) as opened:
                expected = {(member.name.removeprefix("./"), sha256(opened.extractfile(member).read()))
                            for member in opened if member.isfile()}
            self.assertEqual({files[other] for one, kind, other in self.relations
                              if (one, kind) == (package["SPDXID"], "CONTAINS")}, expected)

    def test_lists_every_package_that_the_program_is_linked_with(self):
        libraries = {package["name"].removesuffix("t64"): package for package in self.bill["packages"]
                     if package["SPDXID"].startswith("SPDXRef-Library-")}
        needed = run("readelf", "--dynamic", STAGE / PROGRAM, env={**os.environ, "LC_ALL": "C"}).stdout
        for library, name in (("libQt6Widgets", "libqt6widgets6"), ("libQt6DBus", "libqt6dbus6"),
                              ("libfontconfig", "libfontconfig1"), ("libstdc++", "libstdc++6"), ("libc.", "libc6")):
            self.assertIn(library, needed)
            self.assertTrue(libraries[name]["versionInfo"])
            self.assertIn(("SPDXRef-Package-1", "DYNAMIC_LINK", libraries[name]["SPDXID"]), self.relations)

    def test_has_the_form_of_the_format(self):
        self.assertEqual((self.bill["spdxVersion"], self.bill["dataLicense"], self.bill["SPDXID"]),
                         ("SPDX-2.3", "CC0-1.0", "SPDXRef-DOCUMENT"))
        self.assertRegex(self.bill["creationInfo"]["created"], r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$")
        elements = [element["SPDXID"] for element in self.bill["packages"] + self.bill["files"]]
        self.assertEqual(len(elements), len(set(elements)))
        for one, _, other in self.relations:
            self.assertLessEqual({one, other} - {"SPDXRef-DOCUMENT"}, set(elements))

"""What accounts for the packages: sums, signature and bill of materials; and that they can be built again."""

import json
import os
import shutil
import subprocess

from case import PACKAGES, PROGRAM, SOURCE, STAGE, PackagesTestCase, archive, run, sha256

BILL = f"{PROGRAM}.spdx.json"


def listed_sums(folder):
    """The sums that a folder lists, by file."""
    return {name: total for total, name in (line.split("  ") for line in (folder / "SHA256SUMS").read_text().splitlines())}


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


class AnotherBuildTest(PackagesTestCase):
    """The same sources elsewhere: in another folder, at another time, by another user, under another umask and locale."""

    def test_gives_the_same_bytes_and_signs_them(self):
        copy = self.folder / "another folder"
        home = self.folder / "home"
        home.mkdir(mode=0o700)
        for name in run("git", "-C", SOURCE, "ls-files", "-z").stdout.split("\0")[:-1]:
            (copy / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(SOURCE / name, copy / name, follow_symlinks=False)
        # A compiler's cache may bring what was compiled in the other folder, but not in the long run.
        command = ["sh", "-c", "umask 077; chmod -R go= .; "
                   "[ -w \"${CCACHE_DIR-.}/tmp\" ] && [ -z \"${VEXORA_LONG-}\" ] || export CCACHE_DISABLE=1; "
                   "gpg --batch --quiet --passphrase '' --quick-generate-key publisher ed25519 sign && "
                   "Packaging/build publisher"]
        if os.geteuid() == 0:
            for path in (self.folder, *self.folder.rglob("*")):
                os.chown(path, 65534, 65534, follow_symlinks=False)
            command = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", *command]
        else:
            command = ["fakeroot", *command]
        date = run(SOURCE / "Packaging/source-date").stdout.strip()
        environment = {**os.environ, "HOME": str(home), "GNUPGHOME": str(home), "LC_ALL": "tr_TR.UTF-8",
                       "LANG": "tr_TR.UTF-8", "TZ": "Asia/Kathmandu", "SOURCE_DATE_EPOCH": date,
                       "CCACHE_BASEDIR": str(copy)}
        result = subprocess.run(command, cwd=copy, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, text=True, check=False)
        self.assertEqual(result.returncode, 0, result.stdout[-4000:])
        self.assertEqual(listed_sums(copy / "build/packages"), listed_sums(PACKAGES))
        verify = ("gpg", "--batch", "--verify", copy / "build/packages/SHA256SUMS.asc")
        self.assert_works(run(*verify, copy / "build/packages/SHA256SUMS", env=environment))
        (copy / "build/packages/SHA256SUMS").write_text("changed\n")
        self.assertNotEqual(run(*verify, copy / "build/packages/SHA256SUMS", env=environment).returncode, 0)

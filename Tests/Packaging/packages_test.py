"""The package of this build, and what a builder may choose about it."""

import os
import tarfile
from pathlib import Path

from case import IDENTITY, PackagingTestCase


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
        for name in ("VEXORA_TROUBLESHOOTING_URL", "VEXORA_HOMEPAGE"):
            result = self.settings(**{name.removeprefix("VEXORA_"): "http://a.example"})
            self.assertNotEqual(result.returncode, 0)
            self.assertIn(f"{name} must be an https address", " ".join(result.stderr.split()))

    def test_takes_no_place_of_run_install_that_a_shell_could_read_otherwise(self):
        self.assert_works(self.settings(RUN_INSTALL="/usr/lib/a_b.c-1/run-install"))
        for path in ("run-install", "/run-installer", "/usr/lib/install", "/my lib/run-install", "/a'/run-install",
                     "/$HOME/run-install", "//run-install", "/a\n/run-install"):
            result = self.settings(RUN_INSTALL=path)
            self.assertNotEqual(result.returncode, 0, path)
            self.assertIn("VEXORA_RUN_INSTALL must be the absolute path", " ".join(result.stderr.split()))

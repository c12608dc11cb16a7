"""The packages built elsewhere: once more, and for another product as docs/publishing.md tells."""

import os
import re
import shutil
import subprocess
import tempfile
from pathlib import Path

from case import PACKAGES, PROGRAM, SOURCE, STAGE, VERSION, PackagesTestCase, listed_sums, run

# What the page leaves to the publisher.
NAMES = {"build KEY": "build publisher", "NAME <ADDRESS>": "Velmar <help@velmar.example>",
         "https://HOMEPAGE": "https://velmar.example/player", "https://HELP": "https://velmar.example/help"}
WARNING = r"^(?:CMake )?Warning\b.*"
PAYLOAD = """\
PRODUCT=Velmar Player
VERSION=7.1
PLUGIN=Velmär Player.plugin
ARCHIVE=velmär.tar.gz
REQUIRED_KIB=1
LINUX_USER_FOLDER=.velmar/plug-ins
LINUX_USER_RECEIPTS=.velmar/receipts
LINUX_SYSTEM_FOLDER=/nowhere/velmar
LINUX_SYSTEM_RECEIPTS=/nowhere/receipts
"""


class AnotherBuildTest(PackagesTestCase):
    """The same sources elsewhere: in another folder, at another time, by another user, under another umask and locale."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(temporary.cleanup)
        cls.place = Path(temporary.name).resolve()
        cls.copy, cls.home = cls.place / "another folder", cls.place / "home"
        cls.home.mkdir(mode=0o700)
        for name in run("git", "-C", SOURCE, "ls-files", "-z").stdout.split("\0")[:-1]:
            (cls.copy / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(SOURCE / name, cls.copy / name, follow_symlinks=False)
        if os.geteuid() == 0:
            for path in (cls.place, *cls.place.rglob("*")):
                os.chown(path, 65534, 65534, follow_symlinks=False)
        date = run(SOURCE / "Packaging/source-date").stdout.strip()
        cls.environment = {**os.environ, "HOME": str(cls.home), "GNUPGHOME": str(cls.home), "LC_ALL": "tr_TR.UTF-8",
                           "LANG": "tr_TR.UTF-8", "TZ": "Asia/Kathmandu", "SOURCE_DATE_EPOCH": date,
                           "CCACHE_BASEDIR": str(cls.copy)}
        cls.first = cls.elsewhere("chmod -R go= .; Packaging/build publisher",
                                  "gpg --batch --quiet --passphrase '' --quick-generate-key publisher ed25519 sign")
        cls.packages = cls.place / "packages"
        if cls.first.returncode == 0:
            (cls.copy / "build/packages").rename(cls.packages)

    @classmethod
    def elsewhere(cls, script, before=":"):
        """Runs lines of a shell as the other user; the result has one output."""
        # A compiler's cache may bring what was compiled in the other folder, but not in the long run.
        command = ["bash", "-ec", "umask 077; [[ -w ${CCACHE_DIR-.}/tmp && -z ${VEXORA_LONG-} ]] || export CCACHE_DISABLE=1; "
                   f"{before}\n{script}"]
        as_other = ["fakeroot"]
        if os.geteuid() == 0:
            as_other = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
        return subprocess.run([*as_other, *command], cwd=cls.copy, env=cls.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)

    def assert_ended_well(self, result):
        self.assertEqual(result.returncode, 0, result.stdout[-4000:])

    def verified(self, folder):
        """Whether the signature of the sums in a folder is theirs."""
        return run("gpg", "--batch", "--verify", folder / "SHA256SUMS.asc", folder / "SHA256SUMS",
                   env=self.environment).returncode == 0

    def test_gives_the_same_bytes_and_signs_them(self):
        self.assert_ended_well(self.first)
        self.assertEqual(listed_sums(self.packages), listed_sums(PACKAGES))
        self.assertTrue(self.verified(self.packages))
        self.write(self.folder / "SHA256SUMS", "changed\n")
        shutil.copy(self.packages / "SHA256SUMS.asc", self.folder)
        self.assertFalse(self.verified(self.folder))

    def test_warns_once_that_it_makes_a_sample(self):
        self.assertEqual(re.findall(WARNING, self.first.stdout, re.MULTILINE),
                         ["Warning: these packages are marked as a sample; docs/publishing.md tells how to pack for publication."])
        self.assertIn(f"_{VERSION}_", self.deb.name)
        self.assertTrue(VERSION.endswith("~sample"))

    def test_publisher_who_follows_the_page_ends_with_an_installed_plug_in(self):
        copying, packing = re.findall(r"^```\n(.*?)^```", (SOURCE / "docs/publishing.md").read_text("utf-8"),
                                      re.MULTILINE | re.DOTALL)
        for name, value in NAMES.items():
            self.assertIn(name, packing)
            packing = packing.replace(name, value)
        self.assert_ended_well(self.elsewhere(copying))
        payload = self.home / "payload"
        shutil.rmtree(payload / "Plugin")
        self.write(payload / "Plugin/inner/player.module", "plays")
        self.write(payload / "payload.conf", PAYLOAD)
        logo = SOURCE / "Resources/Images/vexora-one-click-installer-128.png"
        shutil.copy(logo, self.copy / "Resources/Images/lumiqLogo.png")

        refused = self.elsewhere(packing)
        self.assertNotEqual(refused.returncode, 0)
        self.assertIn("Resources/Licenses/LA_en.txt:5:[PUBLISHER: date]\n", refused.stdout)
        for path in (self.copy / "Resources/Licenses").iterdir():
            path.write_text(re.sub(r"\[[^]]*\]", "Velmar Ltd", path.read_text("utf-8")), "utf-8")
        published = self.elsewhere(packing)
        self.assert_ended_well(published)
        self.assertEqual(re.findall(WARNING, published.stdout, re.MULTILINE), [])
        packages = self.copy / "build/packages"
        self.assertTrue(self.verified(packages))
        deb, = packages.glob("*.deb")
        self.assertEqual(run("dpkg-deb", "--show", "--showformat=${Version} ${Maintainer} ${Homepage}", deb).stdout,
                         f"{VERSION.removesuffix('~sample')} Velmar <help@velmar.example> https://velmar.example/player")

        self.assert_ended_well(self.elsewhere("mkdir ../unpacked; tar -xzf build/packages/*.tar.gz -C ../unpacked\n"
                                              f"../unpacked/*/lib/{PROGRAM}/Resources/install"))
        plugin = self.home / ".velmar/plug-ins/Velmär Player.plugin"
        self.assertEqual({str(path.relative_to(plugin)): path.read_text() for path in plugin.rglob("*") if path.is_file()},
                         {"inner/player.module": "plays", "VERSION": "7.1\n"})
        resources, = self.place.glob(f"unpacked/*/lib/{PROGRAM}/Resources")
        self.assertEqual({path.name for path in resources.iterdir()} ^ {path.name for path in (STAGE / "Resources").iterdir()},
                         {"velmär.tar.gz", "velmär.tar.gz.cksum", "lumiq-plugin.tar.gz", "lumiq-plugin.tar.gz.cksum"})
        for name in ("install", "unmount", "payload.conf"):
            self.assertNotRegex((resources / name).read_text("utf-8"), r"(?i)lumiq[.-](plugin|module)|Ondrel")
        self.assertIn("Velmar Ltd", (resources / "LA_en").read_text("utf-16"))
        self.assertEqual((resources / "lumiqLogo.png").read_bytes(), logo.read_bytes())
        program = (resources.parent / PROGRAM).read_bytes()
        self.assertTrue("https://velmar.example/help".encode("utf-16-le") in program)
        self.assertFalse("ondrel-vexora.example".encode("utf-16-le") in program)

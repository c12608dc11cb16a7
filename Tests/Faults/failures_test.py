"""What docs/failures.md tells of each status with which the sample payload ends. With VEXORA_RENEW=1 the logs and the
picture of the document are written anew."""

import re
import subprocess

from installer import ScratchStage
from rows import DOCUMENT, PICTURES, RENEW, FaultsTestCase

ATLAS = DOCUMENT.with_name("failures.md")
MONTAGE = ATLAS.parent / "pictures" / "failures.png"
# What the document says of a status: the message and the log.
SECTION = r"^## {}(?:: (.*)| and .*)\n\n```\n((?:.*\n)*?)(?=```$)"


class FailuresTest(FaultsTestCase):
    """The program with the sample payload, run by an ordinary user over whatever makes it fail."""

    def setUp(self):
        super().setUp()
        self.payload = ScratchStage(self.desktop, self.original)
        self.plugins = self.payload.home / ".mozilla" / "plugins"

    @classmethod
    def tearDownClass(cls):
        if RENEW:
            pictures = sorted(PICTURES.glob("status-*.png"))
            subprocess.run(["montage", *pictures, "-tile", "4x", "-geometry", "400x+4+4", "-strip", "-depth", "8",
                            f"PNG8:{MONTAGE}"], check=True)
        super().tearDownClass()

    def plant(self, folder, version):
        """Puts a plug-in of that version into a folder, and returns its own."""
        plugin = self.folder(folder / "Lumiq.plugin")
        self.put(plugin / "VERSION", version)
        return plugin

    def configure(self, setting, value):
        """Changes a setting of the payload, and returns what it was."""
        path = self.payload.resources / "payload.conf"
        text = path.read_text(encoding="utf-8")
        pattern = re.compile(f"(?<=^{setting}=).*", re.MULTILINE)
        self.put(path, pattern.sub(value, text))
        return pattern.search(text)[0]

    def check_status(self, status):
        """Holds what the user sees and the log to what the document says of a status."""
        text = ATLAS.read_text(encoding="utf-8")
        said = re.search(SECTION.format(status), text, re.MULTILINE)
        self.assertTrue(said, f"no section of {status}")
        installer = self.started_on(self.payload)
        self.assert_seen(installer, "notice" if status == 5 else "failure", said[1] or "")
        PICTURES.mkdir(exist_ok=True)
        self.desktop.screenshot(PICTURES / f"status-{status:03}.png")
        installer.wait_exit(lambda: self.leave(installer))
        log = self.told(installer, self.payload.log_text())
        # What differs from run to run.
        log = re.sub(r"(?<=\.staging\.)[\w-]+|(?<=checksum )\d+ \d+|(?<=expected )\d+ \d+", "…", log)
        if RENEW:
            ATLAS.write_text(text[:said.start(2)] + log + text[said.end(2):], encoding="utf-8")
        else:
            self.assertEqual(said[2], log)

    def test_00_document_has_these_rows(self):
        tested = {name.split("_")[2] for name in dir(self) if name.startswith("test_status_")}
        told = re.findall(r"^## (\d+)\b", ATLAS.read_text(encoding="utf-8"), re.MULTILINE)
        self.assertEqual(sorted(tested), sorted(told))

    def test_status_1_rights_are_refused(self):
        folder = self.payload.folder / "system"
        self.plant(folder, "2.3.0")
        self.made(folder, 0o555)
        self.configure("LINUX_SYSTEM_FOLDER", str(folder))
        self.check_status(1)

    def test_status_5_this_version_is_there(self):
        self.plant(self.plugins, self.configure("VERSION", "2.4.0"))
        self.check_status(5)

    def test_status_10_a_newer_version_is_there(self):
        self.plant(self.plugins, "99.0")
        self.check_status(10)

    def test_status_20_a_file_is_in_the_way(self):
        self.put(self.payload.home / ".mozilla", "")
        self.check_status(20)

    def test_status_30_the_archive_is_damaged(self):
        self.put(self.payload.resources / "lumiq-plugin.tar.gz", "cut")
        self.check_status(30)

    def test_status_40_the_old_plugin_may_not_be_moved(self):
        self.made(self.plant(self.plugins, "2.3.0"), 0o555)
        self.check_status(40)

    def test_status_50_a_file_is_in_the_way_of_the_receipt(self):
        self.put(self.payload.home / ".local", "")
        self.check_status(50)

    def test_status_127_install_is_missing(self):
        (self.payload.resources / "install").unlink()
        self.check_status(127)

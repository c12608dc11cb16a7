"""Files that are larger than anybody would make them."""

import shutil

from desktop import wait_until
from rows import FaultsTestCase, row

MILLION = 1_000_000


class LargeFilesTest(FaultsTestCase):
    """Texts that take long to read, and an install that prints more than 32 bits can count."""

    section = "Large files"

    @row("The strings file has 100 million bytes, and the entry is its last", "start screen: Begin")
    def strings(self):
        stage = self.stage()
        with (stage.resources / "en.lproj" / "Localizable.strings").open("w", encoding="utf-8") as file:
            for number in range(100_000):
                file.write(f'"{number:06}" = "{"x" * 986}"\n')
            file.write('"Start" = "Begin"\n')
        return self.opened(stage)

    @row("The strings file has 1 million bytes in one line, and no entry", "start screen: Start", sample=True)
    def strings_in_a_line(self):
        stage = self.stage()
        self.put(stage.resources / "en.lproj" / "Localizable.strings", "x" * MILLION)
        return self.opened(stage)

    @row("The licence has 1 million characters", f"licence: {'x' * 50}… (1000000 characters)", given=[1], sample=True)
    @row("The licence has 5 million characters", f"licence: {'x' * 50}… (5000000 characters)", given=[5])
    def licence(self, millions):
        stage = self.stage()
        self.put(stage.resources / "LA_en", (("x" * 99 + "\n") * 10_000 * millions).encode("utf-16"))
        installer = self.opened(stage)
        installer.press(installer.find("link"))
        return installer

    @row("install prints 2,200 million bytes", "success", f"{'x' * 50}… (2200000000 characters)")
    def output(self):
        stage = self.stage(f"head -c {2200 * MILLION} /dev/zero | tr '\\0' x")
        if shutil.disk_usage(stage.home).free < 5000 * MILLION:
            self.skipTest("the disk has no room for it")
        self.addCleanup(stage.log.unlink, missing_ok=True)
        installer = self.started_on(stage)
        wait_until("all of it", lambda: stage.log.exists() and stage.log.stat().st_size == 2200 * MILLION, 300)
        return installer

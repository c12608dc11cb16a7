"""The home folder, below which the log lies."""

import os
import pwd
from pathlib import Path

from rows import FaultsTestCase, row

FOLDER = "Failed to create logging directory: {}/Library/Logs/Vexora_Lumiq\n"
FILE = "Failed to open install log: {}/Library/Logs/Vexora_Lumiq/vexora-one-click-installer.log\n"
NOTHING = FOLDER + FOLDER + FILE
REGISTERED = "/nonexistent"


class HomeTest(FaultsTestCase):
    """An install that would succeed, over a home folder that is none or has an odd name."""

    section = "Home folder"

    def at_registered_home(self, command):
        """A run whose environment names no home folder that counts."""
        registered = pwd.getpwuid(self.desktop.user).pw_dir
        if registered != REGISTERED or os.path.exists(registered):
            self.skipTest(f"the registered home folder {registered} is somebody's")
        return self.started_on(self.wrapped(self.stage("echo installed; exit 0"), f'{command}; exec "$program"'))

    @row("It is read-only", "success", "none", NOTHING.format(*["$HOME"] * 3), sample=True)
    def read_only(self):
        stage = self.stage("echo installed; exit 0")
        self.made(stage.home, 0o555)
        return self.started_on(stage)

    @row("HOME is unset, and the user's registered home folder is missing", "success", "none",
         NOTHING.format(*[REGISTERED] * 3), given=["unset HOME"])
    @row("HOME is empty, and the user's registered home folder is missing", "success", "none",
         NOTHING.format(*[REGISTERED] * 3), given=["HOME="])
    @row("HOME is relative, and the user's registered home folder is missing", "success", "none",
         NOTHING.format(*[REGISTERED] * 3), given=["HOME=home"], sample=True)
    def registered(self, command):
        return self.at_registered_home(command)

    @row("It is a file", "success", "none", NOTHING.format(*["$HOME"] * 3))
    def is_a_file(self):
        stage = self.stage("echo installed; exit 0")
        stage.home.rmdir()
        self.put(stage.home, "no folder")
        return self.started_on(stage)

    @row("It is a link to nowhere", "success", "none", NOTHING.format(*["$HOME"] * 3))
    def is_a_broken_link(self):
        stage = self.stage("echo installed; exit 0")
        stage.home.rmdir()
        stage.home.symlink_to(stage.folder / "nowhere")
        return self.started_on(stage)

    @row("It is missing in a folder that takes it", "success", "installed\n")
    def is_missing(self):
        stage = self.stage("echo installed; exit 0")
        stage.home.rmdir()
        return self.started_on(stage)

    @row("HOME ends in three slashes", "success", "installed\n")
    def ends_in_slashes(self):
        stage = self.stage("echo installed; exit 0")
        return self.started_on(stage, HOME=f"{stage.home}///")

    @row("Its name has quotes of both kinds and a backslash", "success", "installed\n", given=["Ann's \"own\" \\home"])
    @row("Its name has a line break", "success", "installed\n", given=["two\nlines"], sample=True)
    @row("Its name has emoji", "success", "installed\n", given=["\U0001f3e0\U0001f468\u200d\U0001f469"])
    @row("Its name has what printf and a shell would read", "success", "installed\n", given=["%s%n $(id) `id` ; &"])
    @row("Its name is no UTF-8", "success", "installed\n", given=["caf\udce9"])
    def named(self, name):
        return self.started_on(self.stage("echo installed; exit 0", home=name))

    @row("Its path has 3,700 bytes", "success", "installed\n", given=[3700])
    @row("Its path leaves no room for the log's", "success", "none", FILE.format("$HOME"), given=[4050], sample=True)
    @row("Its path leaves no room for the log folder's", "success", "none", NOTHING.format(*["$HOME"] * 3),
         given=[4080])
    def long(self, length):
        stage = self.stage("echo installed; exit 0")
        path = str(stage.home)
        while len(path) < length:
            path += "/" + "h" * min(200, length - len(path) - 1)
            # The last folder has a name, too.
            if length - len(path) == 1:
                path += "h"
        self.assertEqual(len(path), length)
        home = self.folder(Path(path))
        stage.log = home / stage.log.relative_to(stage.home)
        stage.home = home
        return self.started_on(stage)

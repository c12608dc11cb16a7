"""The log of the installation, and the folder that it lies in."""

import os
import socket
import subprocess

from desktop import wait_until
from rows import FaultsTestCase, row

FOLDER = "Failed to create logging directory: $HOME/Library/Logs/Vexora_Lumiq\n"
FILE = ("Failed to open install log: "
        "$HOME/Library/Logs/Vexora_Lumiq/vexora-one-click-installer.log\n")
PRINTS = "echo installed; exit 0"


class LogTest(FaultsTestCase):
    """An install that would succeed, over a log that cannot be written."""

    section = "Log"

    def with_folder(self, install=PRINTS):
        """A stage whose log folder exists."""
        stage = self.stage(install)
        self.folder(stage.log.parent)
        return stage

    def on_small_disk(self, options):
        """A stage whose home folder lies on a small disk of its own."""
        stage = self.stage(PRINTS)
        mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", f"uid={self.desktop.user},{options}", "none",
                                  stage.home], capture_output=True, text=True, check=False)
        if mounted.returncode != 0:
            self.skipTest(f"no small disk here: {mounted.stderr.strip()}")
        self.addCleanup(subprocess.run, ["umount", "-l", stage.home], check=True)
        return stage

    @row("The folder above the log's takes no new folder", "success", "none", FOLDER + FOLDER + FILE, sample=True)
    def folder_cannot_be_made(self):
        stage = self.stage(PRINTS)
        self.folder(stage.log.parent.parent)
        self.made(stage.log.parent.parent, 0o555)
        return self.started_on(stage)

    @row("The log's folder takes no new file", "success", "none", FILE)
    def file_cannot_be_made(self):
        stage = self.with_folder()
        self.made(stage.log.parent, 0o555)
        return self.started_on(stage)

    @row("A file lies in place of the log's folder", "success", "none", FILE)
    def file_in_place_of_the_folder(self):
        stage = self.stage(PRINTS)
        self.folder(stage.log.parent.parent)
        self.put(stage.log.parent, "kept")
        self.later = lambda: self.assertEqual(stage.log.parent.read_text(), "kept")
        return self.started_on(stage)

    @row("The log's folder is a link to nowhere", "success", "none", FOLDER + FOLDER + FILE)
    def folder_is_a_broken_link(self):
        stage = self.stage(PRINTS)
        self.folder(stage.log.parent.parent)
        stage.log.parent.symlink_to(stage.folder / "nowhere")
        return self.started_on(stage)

    @row("The log is a folder", "success", "a folder", FILE)
    def log_is_a_folder(self):
        stage = self.with_folder()
        self.folder(stage.log)
        return self.started_on(stage)

    @row("The log may be neither read nor written", "success", "older", FILE)
    def log_without_permission(self):
        stage = self.with_folder()
        self.put(stage.log, "older", 0)
        self.later = lambda: stage.log.chmod(0o600)
        return self.started_on(stage)

    @row("The log may be read only", "success", "older", FILE)
    def log_is_read_only(self):
        stage = self.with_folder()
        self.put(stage.log, "older", 0o444)
        return self.started_on(stage)

    @row("The log is a link to a file", "success", "installed\n")
    def log_is_a_link(self):
        stage = self.with_folder()
        target = stage.folder / "target"
        self.put(target, "older")
        stage.log.symlink_to(target)
        self.later = lambda: self.assertEqual(target.read_text(), "installed\n")
        return self.started_on(stage)

    @row("The log is a link to a file that is not there", "success", "installed\n")
    def log_is_a_broken_link(self):
        stage = self.with_folder()
        stage.log.symlink_to(stage.folder / "target")
        self.later = lambda: self.assertEqual((stage.folder / "target").read_text(), "installed\n")
        return self.started_on(stage)

    @row("The log is a link to itself", "success", "none", FILE)
    def log_is_a_circle(self):
        stage = self.with_folder()
        stage.log.symlink_to(stage.log)
        return self.started_on(stage)

    @row("The log is a FIFO that nobody reads", "success", "a FIFO", FILE, sample=True)
    def log_is_a_fifo(self):
        stage = self.with_folder()
        os.mkfifo(stage.log)
        self.made(stage.log)
        return self.started_on(stage)

    @row("The log is a socket", "success", "a socket", FILE)
    def log_is_a_socket(self):
        stage = self.with_folder()
        listening = self.enterContext(socket.socket(socket.AF_UNIX))
        place = os.open(stage.log.parent, os.O_PATH)
        self.addCleanup(os.close, place)
        # The whole path is longer than the name of a socket may be.
        listening.bind(f"/proc/self/fd/{place}/{stage.log.name}")
        self.made(stage.log)
        return self.started_on(stage)

    @row("The log is a full device", "success", "a device")
    def log_is_a_full_device(self):
        stage = self.with_folder()
        stage.log.symlink_to("/dev/full")
        return self.started_on(stage)

    @row("An older log is longer than what install prints", "success", "installed\nold log\n")
    def log_is_older_and_longer(self):
        stage = self.with_folder()
        self.put(stage.log, "a longish old log\n")
        return self.started_on(stage)

    @row("The log's folder is removed before Start is pressed", "success", "installed\n")
    def folder_is_removed_in_between(self):
        stage = self.stage(PRINTS)
        installer = self.opened(stage)
        stage.log.parent.rmdir()
        installer.press(installer.find("push button", "Start"))
        return installer

    @row("The log is removed while install runs", "success", "none")
    def log_is_removed_while_install_runs(self):
        stage = self.stage('echo begin; echo >"$marks/begun"; await go; echo end')
        installer = self.started_on(stage)
        wait_until("install", stage.mark("begun").exists)
        stage.log.unlink()
        stage.mark("go").touch()
        return installer

    @row("The disk of the home folder is full", "success", "empty", sample=True)
    def disk_is_full(self):
        stage = self.on_small_disk("size=16k")
        with self.assertRaises(OSError), (stage.home / "filling").open("wb", buffering=0) as file:
            while True:
                file.write(bytes(4096))
        return self.started_on(stage)

    @row("The disk of the home folder takes no more files", "success", "none", FOLDER + FOLDER + FILE)
    def disk_takes_no_more_files(self):
        return self.started_on(self.on_small_disk("nr_inodes=1"))

    @row("Files may grow to 512 bytes, and install ends by the signal of its larger output", "failure",
         f"{'x' * 50}… (512 characters)", "install ended with status 25\n")
    def size_limit_ends_install(self):
        stage = self.stage(f"ulimit -c 0; printf {'x' * 600}")
        return self.started_on(self.wrapped(stage, 'ulimit -f 1; exec "$program"'))

    @row("Files may not grow, and the program has something to log", "start screen: Start", "empty", sample=True)
    def size_limit_leaves_the_program_alone(self):
        stage = self.stage(PRINTS)
        (stage.resources / "en.lproj" / "Localizable.strings").unlink()
        return self.opened(self.wrapped(stage, 'ulimit -f 0; exec "$program"'))

"""The program install, which does the work."""

import os
import signal

from case import HELD
from desktop import wait_until
from rows import BEGUN, FaultsTestCase, row

NOT_RUN = "nohup: failed to run command '$RESOURCES/{}': {}\n"
DENIED = NOT_RUN.format("install", "Permission denied")
MISSING = NOT_RUN.format("install", "No such file or directory")
NO_UNMOUNT = NOT_RUN.format("unmount", "No such file or directory")
ENDED = "install ended with status {}\n"


class InstallTest(FaultsTestCase):
    """An install that is none, ends oddly or does odd things."""

    section = "The program install"

    def replaced(self, make):
        """A run over whatever that puts in place of install."""
        stage = self.stage()
        path = stage.resources / "install"
        path.unlink()
        make(path)
        return self.started_on(stage)

    @row("It is missing", "failure", MISSING, ENDED.format(127), sample=True)
    def missing(self):
        return self.replaced(lambda path: None)

    @row("It is not executable", "failure", DENIED, ENDED.format(126))
    def not_executable(self):
        return self.replaced(lambda path: self.put(path, "#!/bin/sh\n", 0o644))

    @row("It is a folder", "failure", DENIED, ENDED.format(126))
    def folder_in_its_place(self):
        return self.replaced(self.folder)

    @row("It is a link to nowhere", "failure", MISSING, ENDED.format(127))
    def broken_link(self):
        return self.replaced(lambda path: path.symlink_to(path.with_name("nowhere")))

    @row("Its interpreter is missing", "failure", MISSING, ENDED.format(127))
    def interpreter_missing(self):
        return self.replaced(lambda path: self.put(path, "#!/nonexistent/sh\n", 0o755))

    @row("Its interpreter may not be run", "failure", DENIED, ENDED.format(126))
    def interpreter_not_executable(self):
        return self.replaced(lambda path: self.put(path, "#!/etc/passwd\n", 0o755))

    @row("It is empty, which runs as a script that does nothing", "success", "empty")
    def empty(self):
        return self.replaced(lambda path: self.put(path, "", 0o755))

    @row("It ends by signal 5, the status of a notice", "notice: Ondrel Vexora Lumiq is already up to date.", "begin\n",
         given=[5], sample=True)
    @row("It ends by signal 10, the number of a status", "failure: A newer version of Ondrel Vexora Lumiq is "
         "installed on your system. Installation terminated.", "begin\n", given=[10])
    @row("It ends by signal 30, the number of a status", "failure: Failed to extract Ondrel Vexora Lumiq.",
         "begin\n", given=[30])
    @row("It ends by signal 40, the number of a status", "failure: Failed to copy Ondrel Vexora Lumiq Web plugin.",
         "begin\n", given=[40])
    @row("It ends by signal 50, the number of a status", "failure: Post-installation steps failed.", "begin\n",
         given=[50])
    @row("It is killed", "failure", "begin\n", ENDED.format(9), given=[9], sample=True)
    @row("It ends by a fault of its memory", "failure", "begin\n", ENDED.format(11), given=[11])
    @row("It is terminated", "failure", "begin\n", ENDED.format(15), given=[15])
    @row("It is hung up, which nohup has it ignore", "success", "begin\nend\n", given=[1])
    @row("It is told to stop by its terminal, of which it has none", "success", "begin\nend\n", given=[20])
    def signalled(self, number):
        return self.started_on(self.stage(f"ulimit -c 0; echo begin; kill -{number} $$; echo end"))

    @row("It ends with status 3", "failure", "empty", ENDED.format(3), given=[3])
    @row("It ends with status 11, between two that have a message", "failure", "empty", ENDED.format(11), given=[11])
    @row("It ends with status 127 itself", "failure", "empty", ENDED.format(127), given=[127])
    @row("It ends with status 255", "failure", "empty", ENDED.format(255), given=[255])
    @row("It ends with status 20", "failure: Pre-installation steps failed.", "empty", given=[20])
    def ends_with(self, status):
        return self.started_on(self.stage(f"exit {status}"))

    @row("It is stopped for as long as the bar takes to come to rest, and goes on", "success", f"{BEGUN}end\n")
    def stopped(self):
        installer = self.started_on(self.stage(f'echo $$ >"$marks/part"; mv "$marks/part" "$marks/number"; {HELD}'))
        wait_until("the script", lambda: installer.stage.log_text() == BEGUN)
        number = int(installer.stage.mark("number").read_text())
        os.kill(number, signal.SIGSTOP)
        installer.stage.mark("go").touch()
        installer.wait_progress(90)
        installer.wait_rest()
        self.assertLess(installer.progress(), 100)
        os.kill(number, signal.SIGCONT)
        return installer

    @row("It ends when the bar is at 40", "success", f"{BEGUN}end\n", given=[40])
    @row("It ends when the bar is at 90", "success", f"{BEGUN}end\n", given=[90])
    def ends_at(self, value):
        installer = self.held()
        installer.wait_progress(value)
        installer.stage.mark("go").touch()
        return installer

    @row("It runs on after the bar has come to rest", "success", f"{BEGUN}end\n")
    def runs_long(self):
        installer = self.held()
        installer.wait_progress(90)
        installer.wait_rest()
        self.assertLess(installer.progress(), 100)
        installer.stage.mark("go").touch()
        return installer

    @row("It closes its standard streams", "success", "begin\n")
    def closes_its_streams(self):
        return self.started_on(self.stage("echo begin; exec <&- >&- 2>&-; echo end; exit 0"))

    @row("It leaves a daemon that writes to the log after Close", "success", "begin\nlate\n", sample=True)
    def daemon_outlives_it(self):
        stage = self.stage("echo begin; (await go; echo late) & exit 0")
        installer = self.started_on(stage)

        def late():
            self.assertEqual(stage.log_text(), "begin\n")
            stage.mark("go").touch()
            wait_until("the daemon", lambda: stage.log_text() == "begin\nlate\n")

        self.later = late
        return installer

    @row("It prints bytes that are no text", "success", r"\x00\xff\xfe\x01\x1b[31m" "\n")
    def prints_bytes(self):
        return self.started_on(self.stage(r"printf '\000\377\376\001\033[31m\n'"))

    @row("It prints 10 million bytes without a line break", "success", f"{'x' * 50}… (10000000 characters)")
    def prints_much(self):
        return self.started_on(self.stage("head -c 10000000 /dev/zero | tr '\\0' x"))

    @row("It reads from its standard input, which is empty", "success", "end\n")
    def reads(self):
        return self.started_on(self.stage("cat; read -r line || echo end"))

    @row("It removes itself", "success", "begin\nend\n")
    def removes_itself(self):
        return self.started_on(self.stage('echo begin; rm -- "$0"; echo end'))

    @row("It succeeds, and unmount is missing when Close is pressed", "success", "begin\n", NO_UNMOUNT, sample=True)
    def unmount_missing(self):
        stage = self.stage("echo begin")
        (stage.resources / "unmount").unlink()
        installer = self.started_on(stage)
        self.later = lambda: wait_until("nohup's words", lambda: installer.output().endswith("\n"))
        return installer

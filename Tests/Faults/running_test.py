"""What changes around the program while it runs, and what its user does to it."""

import os
import shutil
import signal

from case import HELD
from desktop import wait_until
from installer import Unseen
from rows import BEGUN, FaultsTestCase, row

DAY = 24 * 60 * 60
MISSING = "nohup: failed to run command '$RESOURCES/install': No such file or directory\n"
TWICE = 'name=one; mkdir "$marks/$name" 2>/dev/null || name=two\necho "$name begins"; await "go-$name"; echo "$name ends"'


class RunningTest(FaultsTestCase):
    """A run under which something is pulled away, and more of it than one."""

    section = "While it runs"

    def click_thrice(self, control):
        """Three clicks on a control, sooner than a window can be painted."""
        area = control.queryComponent().getExtents(0)
        self.desktop.xdotool("mousemove", area.x + area.width // 2, area.y + area.height // 2,
                             "click", "--repeat", 3, "--delay", 0, 1)

    @row("All resources are removed before Start is pressed", "failure", MISSING, "install ended with status 127\n",
         sample=True)
    def resources_removed_at_start(self):
        stage = self.stage()
        installer = self.opened(stage)
        shutil.rmtree(stage.resources)
        installer.press(installer.find("push button", "Start"))
        return installer

    @row("Program and resources are removed while install runs", "success", f"{BEGUN}end\n",
         "nohup: failed to run command '$RESOURCES/unmount': No such file or directory\n")
    def all_removed_while_install_runs(self):
        installer = self.held()
        shutil.rmtree(installer.stage.resources.parent)
        installer.stage.mark("go").touch()
        self.later = lambda: wait_until("nohup's words", lambda: installer.output().endswith("\n"))
        return installer

    @row("Pictures are removed while install runs", "failure: Failed to extract Ondrel Vexora Lumiq.", "empty")
    def pictures_removed(self):
        installer = self.started_on(self.stage("await go; exit 30"))
        for picture in installer.stage.resources.glob("*.png"):
            picture.unlink()
        installer.stage.mark("go").touch()
        return installer

    @row("The licence is removed before it is opened", "licence: empty")
    def licence_removed(self):
        stage = self.stage()
        installer = self.opened(stage)
        (stage.resources / "LA_en").unlink()
        installer.press(installer.find("link"))
        return installer

    @row("Strings files are removed while install runs", "success", f"{BEGUN}end\n")
    def strings_removed(self):
        installer = self.held()
        for folder in installer.stage.resources.glob("*.lproj"):
            shutil.rmtree(folder)
        installer.stage.mark("go").touch()
        return installer

    @row("The clock is set forward by a day while install runs", "success", f"{BEGUN}end\n", given=[DAY], sample=True)
    @row("The clock is set back by a day while install runs", "success", f"{BEGUN}end\n", given=[-DAY])
    def clock_stepped(self, seconds):
        installer = self.held(self.preloaded(self.stage(HELD)))
        installer.wait_progress(20)
        self.fault(installer.stage, "clock", seconds)
        # Neither a leap nor a halt.
        installer.wait_progress(installer.progress() + 10)
        self.assertLess(installer.progress(), 100)
        installer.stage.mark("go").touch()
        return installer

    @row("The log opens only when the bar, which nothing slows down until install runs, has come to its end", "success",
         "installed\n", sample=True)
    def log_opens_slowly(self):
        stage = self.stage("echo installed; exit 0")
        self.fault(stage, "slow")
        installer = self.started_on(self.preloaded(stage))
        installer.find("label", "Installation completed!")
        self.assertEqual(stage.log_text(), "")
        stage.mark("slow").unlink()
        wait_until("the end of the log", lambda: stage.log_text() == "installed\n")
        return installer

    @row("The program is started again, and ends; its window was minimised", "installing", BEGUN, sample=True)
    def started_again(self):
        installer = self.held()
        self.desktop.xdotool("getactivewindow", "windowminimize")
        wait_until("the minimised window", lambda: not installer.is_active())
        again = self.enterContext(Unseen(installer.stage))
        self.assertEqual(again.wait_exit(lambda: None), 0)
        wait_until("the window", installer.is_active)
        return installer

    @row("The program is started again while it is stopped: there are two", "start screen: Start")
    def started_again_while_stopped(self):
        stopped = self.opened(self.stage())
        stopped.process.send_signal(signal.SIGSTOP)
        return self.opened(self.stage())

    @row("Two programs run at once, as a stranger has their name on the session bus, and print into the one log",
         "success", "two begins\ntwo ends\n", sample=True)
    def two_programs(self):
        stranger = self.desktop.serve(os.environ["VEXORA_IDENTIFIER"], "/", "<node><interface name='a.b'/></node>", None)
        self.addCleanup(stranger.close_sync, None)
        stage = self.stage(TWICE)
        one = self.started_on(stage)
        wait_until("one", lambda: stage.log_text() == "one begins\n")
        two = self.started_on(stage)
        wait_until("two", lambda: stage.log_text() == "two begins\n")
        stage.mark("go-one").touch()
        wait_until("the end of one", lambda: stage.log_text() == "two begins\none ends\n")
        stage.mark("go-two").touch()
        two.find("label", "Installation completed!")
        self.assertEqual(two.wait_exit(lambda: self.leave(two)), 0)
        return one

    @row("Start is clicked three times within a frame", "success", "once\n", sample=True)
    def start_clicked_thrice(self):
        installer = self.opened(self.stage("echo once"))
        self.click_thrice(installer.find("push button", "Start"))
        return installer

    @row("Close is clicked three times within a frame", "success", "once\n")
    def close_clicked_thrice(self):
        stage = self.stage("echo once")
        stage.script("unmount", 'echo run >>"$marks/runs"; echo >"$marks/unmounted"')
        installer = self.started_on(stage)
        installer.find("label", "Installation completed!")
        self.leave = lambda _: self.click_thrice(installer.find("push button", "Close"))

        def later():
            wait_until("unmount", stage.mark("unmounted").exists)
            self.assertEqual(stage.mark("runs").read_text(), "run\n")

        self.later = later
        return installer

    @row("Close is clicked while install runs, and the last step out of the process takes until install has failed",
         "installing", f"{BEGUN}end\n", "install ended with status 3\n", sample=True)
    def leaving_takes_long(self):
        stage = self.stage(f"{HELD}; exit 3")
        installer = self.held(self.preloaded(stage))
        self.fault(stage, "leaving")

        def leave(_):
            installer.click(installer.find("push button", "Close"))
            wait_until("the last step", stage.mark("left").is_symlink)
            stage.mark("go").touch()
            wait_until("the outcome", installer.output)
            stage.mark("left").unlink()

        self.leave = leave
        return installer

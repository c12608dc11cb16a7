"""Signals, sent to the program or typed on its terminal: they end it, and what it has started goes on."""

import os
import signal

from case import HELD
from desktop import wait_until
from rights import ASKING, MEANT, RightsTestCase
from rows import BEGUN, rows

SIGNALS = ("SIGTERM", "SIGHUP", "SIGINT", "SIGQUIT", "SIGKILL")


class StatesTestCase(RightsTestCase):
    """Starts the program by a script of its own."""

    start = 'ulimit -c 0; exec "$program"'

    def begin(self, stage):
        return self.wrapped(stage, self.start)

    def running(self):
        """The program while install runs."""
        installer = self.held(self.begin(self.stage(HELD)))
        self.going_on(installer.stage, lambda: installer.stage.log_text() == f"{BEGUN}end\n")
        return installer


def all_signals(state):
    """The rows of all signals in a state."""
    return [(f"{name} {state}", name, name) for name in SIGNALS]


class SignalsTest(StatesTestCase):
    """Every signal that ends programs, in every state."""

    section = "Signals to the program"

    def sent(self, name, installer):
        """The program, which is going to get that signal."""
        self.leave = lambda _: installer.process.send_signal(signal.Signals[name])
        return installer

    @rows(all_signals("on the start screen"), "start screen: Start", root="nothing", sample="SIGTERM")
    def start_screen(self, name):
        return self.sent(name, self.opened(self.begin(self.stage())))

    @rows(all_signals("on the licence screen"), "licence: Agreed", root="nothing")
    def licence(self, name):
        stage = self.stage()
        self.put(stage.resources / "LA_en", "Agreed".encode("utf-16"))
        installer = self.opened(self.begin(stage))
        installer.press(installer.find("link"))
        return self.sent(name, installer)

    @rows(all_signals("while install runs"), "installing", f"{BEGUN}end\n", root="nothing", sample="SIGKILL")
    def while_install_runs(self, name):
        return self.sent(name, self.running())

    @rows(all_signals("during the prompt, which ends"), "installing", ASKING, root="nothing")
    def during_the_prompt(self, name):
        installer, prompt = self.prompted(self.begin(self.asking()))
        self.later = lambda: wait_until("the end of the prompt", lambda: prompt.taken_back)
        return self.sent(name, installer)

    @rows(all_signals("while install runs as root"), "installing", ASKING, root=MEANT)
    def while_install_runs_as_root(self, name):
        return self.sent(name, self.rerun())

    @rows(all_signals("after a success"), "success", "installed\n", root="nothing")
    def after_a_success(self, name):
        return self.sent(name, self.started_on(self.begin(self.stage("echo installed"))))

    @rows(all_signals("after a failure"), "failure: Pre-installation steps failed.", "begun\n", root="nothing")
    def after_a_failure(self, name):
        return self.sent(name, self.started_on(self.begin(self.stage("echo begun; exit 20"))))


def all_keys(state):
    """The rows of what is typed in a state, and of the end of the terminal, which is typed as nothing."""
    return [(f"Ctrl-C {state}", b"\x03", "SIGINT"), (f"Ctrl-\\ {state}", b"\x1c", "SIGQUIT"),
            (f"Hang-up {state}", b"", "SIGHUP")]


class TerminalTest(StatesTestCase):
    """What a person does to the terminal from which the program was started."""

    section = "Terminal"

    def begin(self, stage):
        one, other = os.openpty()
        self.terminal = self.enterContext(open(one, "wb", buffering=0))
        self.addCleanup(os.close, other)
        self.desktop.give(os.ttyname(other))
        self.start = f'ulimit -c 0; exec setsid --ctty "$program" <{os.ttyname(other)}'
        return super().begin(stage)

    def typed(self, keys, installer):
        """The program, on whose terminal that is going to be typed."""
        self.leave = lambda _: self.terminal.write(keys) if keys else self.terminal.close()
        return installer

    @rows(all_keys("while install runs"), "installing", f"{BEGUN}end\n", root="nothing", sample=b"\x03")
    def while_install_runs(self, keys):
        return self.typed(keys, self.running())

    @rows(all_keys("while install runs as root"), "installing", ASKING, root=MEANT)
    def while_install_runs_as_root(self, keys):
        return self.typed(keys, self.rerun())

"""The system's own polkit, and a rule that answers for the person at the password prompt."""

import fcntl
import json
import os
import pwd
import subprocess
from contextlib import contextmanager
from pathlib import Path

from desktop import Desktop, wait_until

# Changing the rules takes the rights of root, which sudo gives to those who may install packages.
AS_ROOT = [] if os.geteuid() == 0 else ["sudo", "-n"]
ANSWERS = {"YES": 0, "NO": 1}


@contextmanager
def running_polkit():
    """Makes sure that polkit can be asked; starts the system bus, which starts polkit, if need be.

    Rules and bus are the system's: another run of these tests waits for its turn.
    """
    with open("/usr/bin/pkexec", "rb") as turn:
        fcntl.flock(turn, fcntl.LOCK_EX)
        with _answering_polkit():
            yield


@contextmanager
def _answering_polkit():
    if _answers():
        yield
        return
    _as_root("mkdir", "-p", "/run/dbus")
    bus = subprocess.Popen([*AS_ROOT, "dbus-daemon", "--system", "--nofork", "--nopidfile"],
                           stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        wait_until("polkit", _answers)
        yield
    finally:
        _as_root("kill", str(bus.pid))
        bus.wait()
        _as_root("rm", "-f", "/run/dbus/system_bus_socket")


@contextmanager
def rule(desktop: Desktop, program: Path, answer):
    """Lets polkit answer YES or NO when the desktop's user wants to run that program as root."""
    name = pwd.getpwuid(desktop.user).pw_name
    path = f"/etc/polkit-1/rules.d/00-{desktop.folder.name}.rules"
    text = f"""polkit.addRule(function(action, subject) {{
    if (action.id === "org.freedesktop.policykit.exec" && subject.user === "{name}" &&
        action.lookup("command_line") === {json.dumps(_command_line(program))}) {{
        return polkit.Result.{answer};
    }}
}});
"""
    # A run that was killed may have left its rule behind.
    _as_root("sh", "-c", "rm -f /etc/polkit-1/rules.d/00-vexora-desktop-*.rules")
    try:
        _as_root("tee", path, input=text.encode(), stdout=subprocess.DEVNULL)
        _as_root("chmod", "644", path)
        wait_until(f"the rule {answer}", lambda: _decision(desktop, program) == ANSWERS[answer])
        yield
    finally:
        _as_root("rm", "-f", path)


def _answers():
    return subprocess.run(
        ["dbus-send", "--system", "--print-reply", "--dest=org.freedesktop.PolicyKit1", "/",
         "org.freedesktop.DBus.Peer.Ping"],
        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False).returncode == 0


def _command_line(program):
    """How pkexec tells the command that the installer has it run: the words with blanks between them."""
    line = str(program).replace(" ", "\\ ") + " true"
    return f'/bin/sh -c export LC_ALL=C.UTF-8; exec "$@" >/dev/null 2>&1 sh /bin/sh -c {line}'


def _decision(desktop, program):
    """What polkit says without asking anybody: 0 yes, 1 no, 2 and more that it would ask."""
    return subprocess.run(
        [*AS_ROOT, "pkcheck", "--action-id", "org.freedesktop.policykit.exec", "--process",
         str(desktop.process), "--detail", "command_line", _command_line(program)],
        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False).returncode


def _as_root(*command, **options):
    subprocess.run([*AS_ROOT, *command], check=True, **options)

"""The system's own polkit, and a rule that answers for the person at the password prompt."""

import fcntl
import json
import os
import pwd
import subprocess
from contextlib import contextmanager
from pathlib import Path

from gi.repository import Gio, GLib

from desktop import Desktop, wait_until

# Changing the rules takes the rights of root, which sudo gives to those who may install packages.
AS_ROOT = [] if os.geteuid() == 0 else ["sudo", "-n"]
ANSWERS = {"YES": 0, "NO": 1}
# What polkit calls where a prompt is to show.
AGENT = """<node><interface name="org.freedesktop.PolicyKit1.AuthenticationAgent">
  <method name="BeginAuthentication">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="a{ss}" direction="in"/><arg type="s" direction="in"/><arg type="a(sa{sv})" direction="in"/>
  </method>
  <method name="CancelAuthentication"><arg type="s" direction="in"/></method>
</interface></node>"""
# What an agent's own helper of root's tells polkit once the password was right: whose agent, which prompt, which identity.
RIGHT_PASSWORD = """import sys
from gi.repository import Gio, GLib
user, cookie, kind, number = sys.argv[1:]
identity = (kind, {"uid": GLib.Variant("u", int(number))})
Gio.bus_get_sync(Gio.BusType.SYSTEM, None).call_sync(
    "org.freedesktop.PolicyKit1", "/org/freedesktop/PolicyKit1/Authority", "org.freedesktop.PolicyKit1.Authority",
    "AuthenticationAgentResponse2", GLib.Variant("(us(sa{sv}))", (int(user), cookie, identity)), None, 0, -1, None)
"""


@contextmanager
def turn():
    """Rules and bus are the system's: another run of these tests waits for its turn."""
    with open("/usr/bin/pkexec", "rb") as file:
        fcntl.flock(file, fcntl.LOCK_EX)
        yield


@contextmanager
def running_polkit():
    """Makes sure in turn that polkit can be asked; starts the system bus, which starts polkit, if need be."""
    with turn(), _answering_polkit():
        yield


@contextmanager
def _answering_polkit():
    if answers():
        yield
        return
    as_root("mkdir", "-p", "/run/dbus")
    bus = subprocess.Popen([*AS_ROOT, "dbus-daemon", "--system", "--nofork", "--nopidfile"],
                           stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        wait_until("polkit", answers)
        yield
    finally:
        as_root("kill", str(bus.pid))
        bus.wait()
        as_root("rm", "-f", "/run/dbus/system_bus_socket")


def rule(desktop: Desktop, program: Path, answer):
    """Lets polkit answer YES or NO when the desktop's user wants to run that program as root."""
    name = pwd.getpwuid(desktop.user).pw_name
    line = _command_line(program)
    return _rule(desktop, f'subject.user === "{name}" && action.lookup("command_line") === {json.dumps(line)}', answer,
                 desktop.process, "--detail", "command_line", line)


def rule_for(desktop: Desktop, process, answer):
    """Lets polkit answer YES or NO whatever a process wants to run as root."""
    return _rule(desktop, f"subject.pid === {process}", answer, process)


@contextmanager
def _rule(desktop, condition, answer, *question):
    path = f"/etc/polkit-1/rules.d/00-{desktop.folder.name}.rules"
    text = f"""polkit.addRule(function(action, subject) {{
    if (action.id === "org.freedesktop.policykit.exec" && {condition}) {{
        return polkit.Result.{answer};
    }}
}});
"""
    # A run that was killed may have left its rule behind.
    as_root("sh", "-c", "rm -f /etc/polkit-1/rules.d/00-vexora-desktop-*.rules")
    try:
        as_root("tee", path, input=text.encode(), stdout=subprocess.DEVNULL)
        as_root("chmod", "644", path)
        wait_until(f"the rule {answer}", lambda: _decision(*question) == ANSWERS[answer])
        yield
    finally:
        as_root("rm", "-f", path)


@contextmanager
def installed_action(text, name, program):
    """Lets polkit know the action of a text, which has that name and is about that program."""
    path = f"/usr/share/polkit-1/actions/{name}.policy"
    try:
        as_root("tee", path, input=text.encode(), stdout=subprocess.DEVNULL)
        as_root("chmod", "644", path)
        wait_until("the action", lambda: str(program) in subprocess.run(
            ["pkaction", "--verbose", "--action-id", name], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
            check=False).stdout)
        yield
    finally:
        as_root("rm", "-f", path)


def system_bus():
    """A connection of its own to the system bus, to close before the bus goes away."""
    return Gio.DBusConnection.new_for_address_sync(
        Gio.dbus_address_get_for_bus_sync(Gio.BusType.SYSTEM, None),
        Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)


def call(bus, method, parameters):
    """What a method of polkit answers, as Python values."""
    return bus.call_sync("org.freedesktop.PolicyKit1", "/org/freedesktop/PolicyKit1/Authority",
                         "org.freedesktop.PolicyKit1.Authority", method, parameters, None, Gio.DBusCallFlags.NONE, -1,
                         None).unpack()


class Prompt:
    """The password prompt that polkit shows for one process, without a person, in a language; a context manager."""

    def __init__(self, process, locale="C"):
        self._process = process
        self._user = os.stat(f"/proc/{process}").st_uid
        self._locale = locale
        self._question = None
        self.taken_back = False

    def __enter__(self):
        # polkit takes an answer for the user's own agent alone.
        own = os.geteuid()
        os.seteuid(self._user)
        try:
            self._bus = system_bus()
        finally:
            os.seteuid(own)
        path = "/org/freedesktop/PolicyKit1/AuthenticationAgent"
        self._bus.register_object(path, Gio.DBusNodeInfo.new_for_xml(AGENT).interfaces[0], self._take, None, None)
        subject = ("unix-process", {"pid": GLib.Variant("u", self._process), "start-time": GLib.Variant("t", 0)})
        call(self._bus, "RegisterAuthenticationAgent",
             GLib.Variant("((sa{sv})ss)", (subject, self._locale, path)))
        return self

    def __exit__(self, *details):
        self._bus.close_sync(None)

    def wait(self, deadline):
        """Waits until it shows, for so many seconds at most."""
        wait_until("the prompt", lambda: self._question, deadline)

    @property
    def text(self):
        """The name of the action that it is about, what it says, and the name of its icon."""
        return self._question.get_parameters().unpack()[:3]

    @property
    def caller(self):
        """The number of the process that has led to it, as text."""
        return self._question.get_parameters().unpack()[3]["polkit.caller-pid"]

    def grant(self):
        """Ends it as the right password of the first administrator does."""
        cookie, ((kind, details), *_) = self._question.get_parameters().unpack()[4:]
        as_root("/usr/bin/python3", "-c", RIGHT_PASSWORD, str(self._user), cookie, kind, str(details["uid"]))
        self._question.return_value(None)

    def end(self, error):
        """Ends it in the way that polkit calls by that name."""
        self._question.return_dbus_error(f"org.freedesktop.PolicyKit1.Error.{error}", "")

    def _take(self, _bus, _sender, _path, _interface, method, _parameters, invocation):
        if method == "BeginAuthentication":
            self._question = invocation
        else:
            self.taken_back = True
            invocation.return_value(None)


def answers():
    """Whether polkit can be asked."""
    return subprocess.run(
        ["dbus-send", "--system", "--print-reply", "--dest=org.freedesktop.PolicyKit1", "/",
         "org.freedesktop.DBus.Peer.Ping"],
        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False).returncode == 0


def _command_line(program):
    """How pkexec tells the command that the installer has it run: the words with blanks between them."""
    line = str(program).replace(" ", "\\ ") + " true"
    return f'/bin/sh -c export LC_ALL=C.UTF-8; exec "$@" >/dev/null 2>&1 sh /bin/sh -c {line}'


def _decision(process, *details):
    """What polkit says without asking anybody: 0 yes, 1 no, 2 and more that it would ask."""
    return subprocess.run(
        [*AS_ROOT, "pkcheck", "--action-id", "org.freedesktop.policykit.exec", "--process", str(process), *details],
        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False).returncode


def as_root(*command, **options):
    """Runs a command with the rights of root."""
    subprocess.run([*AS_ROOT, *command], check=True, **options)

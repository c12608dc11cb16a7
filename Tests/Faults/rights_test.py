"""The rights of root for the second run of install: who is asked, who answers, and what runs then."""

import os
import re
import shutil
from pathlib import Path

from desktop import wait_until
from polkit import answers, as_root, running_polkit, turn
from rights import ASKING, FAILED, GRANTED, MEANT, REFUSAL, RightsTestCase
from rows import FaultsTestCase, row, rows

NOT_TRIED = f"Upgrade system-wide not tried: a shell might not start install alone\n{FAILED}"
SAYS = "Error executing command as another user: "
REPORTED = "\n\nThis incident has been reported.\n"


class AdministratorTest(RightsTestCase):
    """An install that asks for root's rights and then succeeds."""

    section = "Administrator rights"

    @row("They are granted", "success", ASKING, GRANTED, root=MEANT)
    def granted(self):
        return self.answered(self.asking())

    @row("They are granted, and install ends with status 40", REFUSAL, ASKING, FAILED, root=MEANT, given=["exit 40"])
    @row("They are granted, and install is killed", REFUSAL, ASKING, FAILED, root=MEANT, given=["kill -9 $$"])
    def granted_in_vain(self, after):
        return self.answered(self.asking(after=after))

    @row("They are refused without a prompt", REFUSAL, ASKING, f"{SAYS}Not authorized{REPORTED}{FAILED}",
         root="nothing")
    def refused(self):
        return self.answered(self.asking(), "NO")

    @row("The prompt is dismissed", REFUSAL, ASKING, f"{SAYS}Request dismissed\n{FAILED}", root="nothing",
         given=["Cancelled"], sample=True)
    @row("The prompt gets no right password", REFUSAL, ASKING, f"{SAYS}Not authorized{REPORTED}{FAILED}",
         root="nothing", given=["Failed"])
    def prompt_ends(self, error):
        installer, prompt = self.prompted(self.asking())
        prompt.end(error)
        return installer

    @row("Close is pressed during the prompt, which ends", "installing", ASKING, root="nothing", given=[FaultsTestCase.leave])
    @row("The window is closed during the prompt, which ends", "installing", ASKING, root="nothing",
         given=[lambda _, installer: installer.close_window()])
    def closed_during_the_prompt(self, leave):
        installer, prompt = self.prompted(self.asking())
        self.leave = lambda _: leave(self, installer)
        self.later = lambda: wait_until("the end of the prompt", lambda: prompt.taken_back)
        return installer

    @row("pkexec is killed during the prompt, which ends", REFUSAL, ASKING, FAILED, root="nothing")
    def pkexec_killed(self):
        installer, prompt = self.prompted(self.asking())
        as_root("kill", "-KILL", prompt.caller)
        wait_until("the end of the prompt", lambda: prompt.taken_back)
        return installer

    @row("Close is pressed while install runs as root", "installing", ASKING, root=MEANT)
    def closed_during_the_second_run(self):
        return self.rerun()

    @row("pkexec is missing", REFUSAL, ASKING, FAILED, root="nothing", sample=True)
    def no_pkexec(self):
        stage = self.asking()
        programs = self.folder(stage.folder / "programs")
        for name in ("nohup", "sh"):
            self.made(Path(shutil.copy(f"/usr/bin/{name}", programs)))
        apart = "unshare --user --map-current-user --mount --keep-caps sh -c"
        instead = f"mount --bind {programs} /usr/bin"
        if self.desktop.start([*apart.split(), instead]).wait() != 0:
            self.skipTest("an ordinary user may have no other /usr/bin here")
        stage = self.wrapped(stage, f"""exec {apart} '{instead} && exec "$0"' "$program" """)
        return self.decided(self.started_on(stage))

    @row("There is no system bus", REFUSAL, ASKING, "Error getting authority: Error initializing authority: Could not "
         f"connect: No such file or directory\n{FAILED}", root="nothing")
    def no_system_bus(self):
        self.enterContext(turn())
        if answers():
            self.skipTest("the system's own bus is running")
        return self.decided(self.started_on(self.asking()))

    @row("Nobody shows prompts", REFUSAL, ASKING, f"{SAYS}No authentication agent found.\n{FAILED}",
         root="nothing")
    def no_agent(self):
        if os.path.isdir("/run/systemd/sessions") and os.listdir("/run/systemd/sessions"):
            self.skipTest("the session here may show prompts")
        self.enterContext(running_polkit())
        return self.decided(self.started_on(self.asking()))

    @row("SHELL is not listed in /etc/shells", "success", ASKING, GRANTED, root=MEANT, given=["SHELL=/nonexistent"])
    @row("LC_TIME has a slash", "success", ASKING, GRANTED, root=MEANT, given=["LC_TIME=en/US"])
    @row("TERM has a percent sign", "success", ASKING, GRANTED, root=MEANT, given=["TERM=a%b"])
    @row("COLORTERM has two dots", "success", ASKING, GRANTED, root=MEANT, given=["COLORTERM=.."])
    @row("PATH leads to another pkexec, sh and id", "success", ASKING, GRANTED, root=MEANT,
         given=["PATH=$SCRATCH:/usr/bin"])
    def environment(self, variable):
        stage = self.asking("id")
        for name in ("pkexec", "sh", "id"):
            self.note(stage, name)
        name, value = variable.replace("$SCRATCH", str(stage.folder)).split("=")
        return self.answered(stage, **{name: value})


def shown(name):
    """A file name in code of the document, with escapes for what cannot be seen."""
    text = os.fsencode(name.replace("\\", "\\\\")).decode("utf-8", "backslashreplace")
    text = "".join(letter if letter.isprintable() else letter.encode("unicode_escape").decode() for letter in text)
    if len(text) > 50:
        text = f"{text[:10]}… ({len(text)} letters)"
    return f"`` {text} ``" if "`" in text else f"`{text}`"


def folders(*names):
    """The rows of folders of those names."""
    return [(shown(name), name, 0) for name in names]


# Names that a shell reads as they are, and those that it would or might read otherwise.
STARTED = ("My Disk", "two  blanks", " before", "behind ", "setup [1", "1] setup", "{a}", "~", "~root", "!", "#1",
           "50%", "a=b", "@", "-x", "a,b:c^+", "Größe 日本 بيت", "no\u00a0break", "\U0001f3e0\U0001f468\u200d\U0001f469",
           "\x01\x08\x1b\x7f", "\r", "n" * 255, "[a]", "a*", "a?")
REFUSED = ("R&D", "Ann's Files", '"own"', "setup (1)", "a$b", "a$(id)", "a`id`", "a;id", "a|id", "a&id", "a<b", "a>b",
           "a\tb", "two\nlines", r"two\nlines", "a\\", r"a\ b")


class FolderNamesTest(RightsTestCase):
    """An install that asks for root's rights; what the program then wants to run with them is allowed."""

    section = "Administrator rights below a folder with that name"

    @rows(folders(*STARTED), "success", ASKING, GRANTED, root=MEANT)
    @rows(folders("caf\udce9"), "success", ASKING, f"GLib-CRITICAL\n{GRANTED}", root=MEANT)
    @rows(folders(*REFUSED), REFUSAL, ASKING, NOT_TRIED, root="nothing", sample="a;id")
    def named(self, name):
        stage = self.asking(stage=name)
        # What a shell that took the name apart would start.
        first = re.split(r"[^\w*]", name)[0]
        if first not in ("", name):
            self.note(stage, first)
        return self.answered(stage)

    def system(self, installer):
        # Of names that are no UTF-8 a library of pkexec complains, in words and numbers that differ from run to run.
        return re.sub(r"(\s*\(process:\d+\): (GLib-CRITICAL) .*)+", r"\2", super().system(installer))

    @row("`a*`, beside `ab`", REFUSAL, ASKING, NOT_TRIED, root="nothing")
    def matches_another(self):
        stage = self.asking(stage="a*")
        self.note(stage, "ab")
        return self.answered(stage)

    @row("`[a]`, where others may add names", REFUSAL, ASKING, NOT_TRIED, root="nothing")
    def may_match_another(self):
        stage = self.asking(stage="[a]")
        self.made(stage.folder, 0o777)
        return self.answered(stage)

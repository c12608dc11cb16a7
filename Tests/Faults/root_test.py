"""A person who starts the program as root, with the home folder of another."""

import os

from rows import NOBODY, FaultsTestCase, row


class RootTest(FaultsTestCase):
    """An install that succeeds, run by root, over the home folder of an ordinary user."""

    user = None
    section = "Root over a user's home folder"

    def users_home(self):
        """A stage whose home folder is the user's."""
        if os.geteuid() != 0:
            self.skipTest("only root starts a program as root")
        stage = self.stage("echo installed; exit 0")
        os.chown(stage.home, NOBODY, NOBODY)
        return stage

    def owned_by(self, owner, *paths):
        """Has those files and folders belong to an owner in the end."""
        self.later = lambda: self.assertEqual({path.stat().st_uid for path in paths}, {owner})

    @row("There is no log: the new one and its folders belong to root", "success", "installed\n", sample=True)
    def no_log(self):
        stage = self.users_home()
        self.owned_by(0, stage.log, *stage.log.parents[:3])
        return self.started_on(stage)

    @row("The user's log is there: it stays the user's", "success", "installed\n")
    def users_log(self):
        stage = self.users_home()
        self.folder(stage.log.parent)
        self.put(stage.log, "older")
        for path in (stage.log, *stage.log.parents[:3]):
            os.chown(path, NOBODY, NOBODY)
        self.owned_by(NOBODY, stage.log, *stage.log.parents[:3])
        return self.started_on(stage)

    @row("The user's log is a link to a file that only root may write to: it is written to", "success", "installed\n")
    def users_link(self):
        stage = self.users_home()
        target = self.put(stage.folder / "target", "older", 0o600)
        self.folder(stage.log.parent)
        stage.log.symlink_to(target)
        os.lchown(stage.log, NOBODY, NOBODY)
        self.later = lambda: self.assertEqual(target.read_text(), "installed\n")
        return self.started_on(stage)

"""The standard streams that the program is given."""

from rows import FaultsTestCase, row

ENDED = "install ended with status 3\n"


class StreamsTest(FaultsTestCase):
    """A run that has something to tell, with streams that are closed or take nothing."""

    section = "Standard streams"

    def told_to(self, redirections):
        """The program with such streams, whose install ends with a status that has no message."""
        stage = self.stage("echo installed; exit 3")
        return self.started_on(self.wrapped(stage, f'exec "$program" {redirections}'))

    @row("0 closed", "failure", "installed\n", ENDED, given=["<&-"])
    @row("1 closed", "failure", "installed\n", ENDED, given=[">&-"])
    @row("2 closed", "failure", "installed\n", given=["2>&-"])
    @row("0 and 1 closed", "failure", "installed\n", ENDED, given=["<&- >&-"])
    @row("0 and 2 closed", "failure", "installed\n", given=["<&- 2>&-"])
    @row("1 and 2 closed", "failure", "installed\n", given=[">&- 2>&-"])
    @row("0, 1 and 2 closed", "failure", "installed\n", given=["<&- >&- 2>&-"], sample=True)
    @row("1 and 2 on a full device", "failure", "installed\n", given=[">/dev/full 2>&1"])
    def redirected(self, redirections):
        return self.told_to(redirections)

    @row("1 and 2 on a pipe that nobody reads", "failure", "installed\n", sample=True)
    def pipe_without_a_reader(self):
        stage = self.stage("echo installed; exit 3")
        stage.program = self.wrapped(stage, 'exec /usr/bin/python3 - <<END "$program"\n'
                                     "import os, signal, sys\n"
                                     "reading, writing = os.pipe()\n"
                                     "os.close(reading)\n"
                                     "os.dup2(writing, 1)\n"
                                     "os.dup2(writing, 2)\n"
                                     "signal.signal(signal.SIGPIPE, signal.SIG_DFL)\n"
                                     "os.execv(sys.argv[1], sys.argv[1:])\n"
                                     "END").program
        return self.started_on(stage)

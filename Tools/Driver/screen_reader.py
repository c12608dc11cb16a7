"""A screen reader on a desktop, and what it says."""

import os
import re
import threading
import tty

from desktop import wait_until
from display import end

# The line of the log that tells what is spoken, and the voice that speaks it.
SPEECH = re.compile(r"SPEECH OUTPUT: '(.*)'(?: voice=\w+)? ?(?:\{.*\})?$")
# The line that tells that windows which open from now on are read out.
READY = re.compile("ORCA: Starting (registry|Atspi main event loop)")
# Speech needs no sound here: what would speak is not found.
MUTE = {"SPEECHD_ADDRESS": "unix_socket:/nonexistent", "SPEECHD_CMD": "/bin/false", "GSETTINGS_BACKEND": "memory"}
# A key that no program minds; the reader says its name.
MARK = "F9"
# It takes its time on a busy machine.
DEADLINE = 120.0


class ScreenReader:
    """Orca on a desktop; a context manager that ends it. Its log is a terminal, to which it writes line by line."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._ready = threading.Event()
        self._said = []
        self._process = None

    def __enter__(self):
        reading, writing = os.openpty()
        tty.setraw(writing)
        threading.Thread(target=self._listen, args=(reading,), daemon=True).start()
        self._process = self._desktop.start(
            ["orca", "--debug-file", os.ttyname(writing)],
            {**self._desktop.environment, **MUTE, "PATH": f"{self._blinkers()}:{self._desktop.environment['PATH']}"})
        wait_until("the screen reader", self._ready.is_set, DEADLINE)
        os.close(writing)
        return self

    def __exit__(self, *details):
        self._process.kill()
        end(self._process)

    def wait_for(self, text):
        """Waits until a text has been said."""
        wait_until(lambda: f"{text!r} in {self._said}", lambda: any(text in line for line in self._said), DEADLINE)

    def finish(self):
        """Waits until the reader has said what it has been told so far, and returns all that it said, line by line."""
        self._desktop.xdotool("key", MARK)
        self.wait_for(MARK)
        return [line for line in self._said if MARK not in line]

    def _blinkers(self):
        """A folder for the search path that keeps the reader from finding others of the same user, on whatever desktop,
        for which it would not start."""
        folder = self._desktop.new_folder()
        (folder / "pgrep").symlink_to("/bin/false")
        return folder

    def _listen(self, terminal):
        """Reads the log to its end, which is an error on a terminal."""
        try:
            with open(terminal, encoding="utf-8", errors="replace") as log:
                for line in log:
                    if found := SPEECH.search(line.rstrip()):
                        self._said.append(found[1])
                    if READY.search(line):
                        self._ready.set()
        except OSError:
            pass

"""What the program and the desktop around it have to say to each other."""

from case import DesktopTestCase
from desktop import wait_until
from window import Windows


class CompanyTest(DesktopTestCase):
    """A desktop whose user looks elsewhere while install runs."""

    def setUp(self):
        self.windows = self.enterContext(Windows(self.desktop))

    def minimise(self, installer):
        """Minimises the window, and returns it once its program knows that it is not active."""
        window = self.windows.of(installer.process)
        self.windows.operate("windowminimize", window)
        wait_until("the minimised window", lambda: self.windows.has_state(window, b"_NET_WM_STATE_HIDDEN")
                   and not installer.is_active())
        return window

    def test_asks_for_attention_with_the_outcome(self):
        for install in ("await go", "await go; exit 30"):
            with self.subTest(install):
                installer = self.started(install)
                window = self.minimise(installer)
                self.assertFalse(self.windows.has_state(window, b"_NET_WM_STATE_DEMANDS_ATTENTION"))
                installer.stage.mark("go").touch()
                wait_until("attention",
                           lambda: self.windows.has_state(window, b"_NET_WM_STATE_DEMANDS_ATTENTION"))
                installer.wait_exit(installer.process.kill)

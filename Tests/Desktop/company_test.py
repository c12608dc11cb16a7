"""What the program and the desktop around it have to say to each other."""

from gi.repository import Gio, GLib

from case import HELD, DesktopTestCase
from desktop import wait_until
from installer import Unseen
from window import Windows

PORTAL = """<node><interface name="org.freedesktop.portal.Inhibit"><method name="Inhibit"><arg type="s" direction="in"/>
  <arg type="u" direction="in"/><arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method></interface>
  <interface name="org.freedesktop.portal.Request"><method name="Close"/></interface></node>"""


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

    def test_second_start_brings_the_first_window_to_the_front(self):
        installer = self.launch(self.stage())
        window = self.windows.of(installer.process)
        other = self.enterContext(Unseen(self.stage(), environment={"DBUS_SESSION_BUS_ADDRESS": "none:"}))
        above = wait_until("the window above", lambda: self.windows.of(other.process))
        wait_until("the window behind", lambda: not installer.is_active())
        opened = self.windows.user_time(above)
        self.windows.operate("mousemove", "--window", above, 9, 9, "click", 1)
        wait_until("the click", lambda: self.windows.user_time(above) != opened)
        again = self.enterContext(Unseen(installer.stage))
        self.assertEqual(again.wait_exit(lambda: None), 0)
        wait_until("the window", installer.is_active)
        # Otherwise some desktops would leave it where it is.
        self.assertGreater(self.windows.user_time(window), self.windows.user_time(above))

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

    def test_keeps_the_desktop_awake_while_install_runs(self):
        asked, closed = [], []

        def inhibit(*arguments):
            asked.append(arguments)
            return GLib.Variant("(o)", ("/request",))

        portal = self.desktop.serve("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", PORTAL, inhibit)
        self.addCleanup(portal.close_sync, None)
        portal.register_object("/request", Gio.DBusNodeInfo.new_for_xml(PORTAL).interfaces[1],
                               lambda *call: closed.append(call[6].return_value(None)), None, None)
        installer = self.launch(self.stage(HELD))
        self.assertEqual(asked, [])
        installer.press(installer.find("push button", "Start"))
        wait_until("the portal", lambda: asked)
        self.assertEqual(asked, [("", 1 | 4, {"reason": installer.text("Ondrel Vexora Lumiq Setup")})])
        self.assertEqual(closed, [])
        installer.stage.mark("go").touch()
        wait_until("the end of it", lambda: closed)

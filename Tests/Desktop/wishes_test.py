"""How the window looks where the desktop has wishes."""

import subprocess

from gi.repository import GLib

from case import DesktopTestCase
from desktop import wait_until

PORTAL = """<node><interface name="org.freedesktop.portal.Settings"><method name="ReadAll">
  <arg type="as" direction="in"/><arg type="a{sa{sv}}" direction="out"/></method></interface></node>"""


class WishesTest(DesktopTestCase):
    """The desktop's settings are asked for when the window opens."""

    def paper(self):
        """The colour near the window's lower left corner: red, green and blue."""
        picture = self.desktop.folder / "window.png"
        self.desktop.screenshot(picture)
        return list(subprocess.run(
            ["convert", picture, "-gravity", "SouthWest", "-crop", "1x1+20+20", "-depth", "8", "rgb:-"],
            check=True, stdout=subprocess.PIPE).stdout)

    def test_paper_is_white_for_contrast(self):
        settings = {"org.freedesktop.appearance": {"contrast": GLib.Variant("u", 1)}}
        portal = self.desktop.serve("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", PORTAL,
                                    lambda _groups: GLib.Variant("(a{sa{sv}})", (settings,)))
        self.addCleanup(portal.close_sync, None)
        self.launch(self.stage())
        wait_until(self.paper, lambda: self.paper() == [255, 255, 255])

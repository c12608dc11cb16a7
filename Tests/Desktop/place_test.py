"""Where the window opens."""

import pyatspi

from case import DesktopTestCase
from desktop import wait_until
from display import SCREEN
from window import Windows


class PlaceTest(DesktopTestCase):
    """The window manager's frame belongs to the window."""

    def test_opens_in_the_middle_with_its_frame(self):
        installer = self.launch(self.stage())
        screen = [int(number) for number in SCREEN.split("x")[:2]]
        with Windows(self.desktop) as windows:
            window = windows.of(installer.process)

            def aside():
                """How far the frame is from the screen's four sides."""
                left, right, top, bottom = windows.frame_of(window)
                area = installer.window.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
                return (area.x - left, screen[0] - area.x - area.width - right,
                        area.y - top, screen[1] - area.y - area.height - bottom)

            self.assertGreater(windows.frame_of(window)[2], 0)
            wait_until(lambda: f"the middle: {aside()}", lambda: abs(aside()[0] - aside()[1]) <= 1
                       and abs(aside()[2] - aside()[3]) <= 1)

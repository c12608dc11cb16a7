"""The program on a desktop without X."""

import os
import re
import signal

from case import DesktopTestCase
from desktop import wait_until
from installer import Installer, Unseen

IDENTIFIER = os.environ["VEXORA_IDENTIFIER"]


class Compositor:
    """A display of Wayland of 640 x 480 without keys, beside the desktop's own; ends with the desktop."""

    def __init__(self, desktop):
        folder = desktop.new_folder()
        desktop.give(folder)
        self._log = folder / "weston.log"
        self.environment = {"QT_QPA_PLATFORM": "wayland", "WAYLAND_DISPLAY": folder.name}
        self.process = desktop.start(["weston", "--backend=headless-backend.so", "--no-config", "--width=640",
                                      "--height=480", f"--socket={folder.name}"], output=self._log)
        socket = desktop.folder / "runtime" / folder.name
        wait_until(self.log, lambda: socket.exists() or self.process.poll() is not None)
        if self.process.poll() is not None:
            raise RuntimeError(f"the compositor ended with {self.process.returncode}: {self.log()}")

    def log(self):
        """What the compositor printed."""
        return self._log.read_text(errors="replace")


class WaylandInstaller(Installer):
    """The program where nothing has the keyboard: its window is not active, but shows."""

    def _is_ready(self, window):
        return window.childCount > 0


class WaylandTest(DesktopTestCase):
    """Without keys and a pointer, what shows is operated by assistive tools alone."""

    def launch_on(self, compositor, stage):
        """Starts the program there; it ends with the test."""
        return self.enterContext(WaylandInstaller(stage, environment=compositor.environment))

    def test_installs_and_closes(self):
        installer = self.launch_on(Compositor(self.desktop), self.stage("exit 0"))
        self.assertEqual(installer.window.name, installer.text("Ondrel Vexora Lumiq Setup"))
        installer.press(installer.find("push button", "Start"))
        installer.find("label", "Installation completed!")
        self.assert_ends_well(installer, lambda: installer.press(installer.find("push button", "Close")))

    def test_window_names_the_entry_of_the_menu(self):
        compositor = Compositor(self.desktop)
        compositor.environment["WAYLAND_DEBUG"] = "1"
        installer = self.launch_on(compositor, self.stage())
        self.assertIn(IDENTIFIER, re.findall(r'\.set_app_id\("([^"]*)"\)', installer.output()))

    def test_fits_a_small_screen(self):
        installer = self.launch_on(Compositor(self.desktop), self.stage("exit 30"))
        installer.press(installer.find("push button", "Start"))
        installer.find("label", "Installation failed")
        width, height = installer.window.queryComponent().getSize()
        self.assertLess(width, 640)
        # The toolkit draws the frame.
        self.assertLess(height, 480 - 20)

    def test_second_start_leaves_the_window_to_the_first(self):
        compositor = Compositor(self.desktop)
        installer = self.launch_on(compositor, self.stage())
        again = self.enterContext(Unseen(installer.stage, environment={**compositor.environment,
                                                                       "XDG_ACTIVATION_TOKEN": "token"}))
        self.assertEqual(again.wait_exit(lambda: None), 0)
        installer.find("push button", "Start")

    def test_ends_well_with_its_compositor(self):
        compositor = Compositor(self.desktop)
        installer = self.launch_on(compositor, self.stage())
        installer.find("push button", "Start")
        self.assert_ends_well(installer, lambda: compositor.process.send_signal(signal.SIGTERM))

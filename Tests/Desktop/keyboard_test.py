"""Everything can be done without a mouse."""

import os

import pyatspi

from case import HELD, DesktopTestCase
from desktop import wait_until

NOTICE = "By installing, you agree to the Ondrel Vexora <a>license agreement</a>."


class KeyboardTest(DesktopTestCase):
    """Where the keys go, and what they do there."""

    def wait_focus(self, installer, identifier):
        """Waits until the control with that text takes the keys."""
        name = installer.text(identifier)
        wait_until(lambda: f"focus on {name}, not {installer.focused()}",
                   lambda: installer.focused() == name)

    def tab_order(self, installer):
        """The controls in the order in which Tab reaches them, once round."""
        order = []
        while True:
            before = installer.focused()
            installer.key("Tab")
            wait_until(f"Tab leaves {before}",
                       lambda: installer.focused() not in (None, before))
            if installer.focused() in order:
                return order
            order.append(installer.focused())

    def assert_reading_order(self, installer, *expected):
        """Checks that Tab reaches exactly these controls, line by line from the left."""
        expected = [installer.text(identifier) for identifier in expected]
        order = self.tab_order(installer)
        first = order.index(expected[0])
        self.assertEqual(order[first:] + order[:first], expected)
        places = {control.name: control.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
                  for control in installer.controls()
                  if control.getState().contains(pyatspi.STATE_FOCUSABLE)}
        for name, following in zip(expected, expected[1:]):
            place, later = places[name], places[following]
            same_line = later.y < place.y + place.height
            self.assertTrue(place.x < later.x if same_line else place.y < later.y, following)

    def test_start_button_takes_the_keys_first(self):
        installer = self.launch(self.stage())
        self.wait_focus(installer, "Start")

    def test_return_presses_start(self):
        installer = self.launch(self.stage(HELD))
        installer.find("push button", "Start")
        installer.key("Return")
        installer.find("progress bar")

    def test_tab_order_of_the_start_screen(self):
        self.assert_reading_order(self.launch(self.stage()), "Start", NOTICE)

    def test_tab_order_of_the_install_screen(self):
        installer = self.started(HELD)
        installer.find("progress bar")
        self.assert_reading_order(installer, "Close", NOTICE)

    def test_tab_order_of_the_licence_screen(self):
        installer = self.launch(self.stage())
        installer.press(installer.find("link"))
        installer.find("label", "License Agreement")
        self.assert_reading_order(installer, "License Agreement", "Go back")

    def test_tab_order_of_the_failure_screen(self):
        installer = self.started("exit 40")
        link = "Failed to copy Ondrel Vexora Lumiq Web plugin. Open logs"
        installer.find("link", link)
        self.assert_reading_order(installer, link, os.environ["VEXORA_HELP"], "Close")

    def test_close_takes_the_keys_when_the_installation_has_failed(self):
        for status in (5, 30):
            with self.subTest(status):
                installer = self.started(f"exit {status}")
                self.wait_focus(installer, "Close")
                self.assert_ends_well(installer, lambda: installer.key("Return"))

    def check_notice(self, key):
        """Checks that Tab and that key open the licence, and that Escape goes back."""
        installer = self.launch(self.stage())
        self.wait_focus(installer, "Start")
        installer.key("Tab")
        self.wait_focus(installer, NOTICE)
        installer.key(key)
        installer.find("label", "License Agreement")
        installer.key("Escape")
        installer.find("push button", "Start")
        self.wait_focus(installer, NOTICE)

    def test_return_on_the_notice_opens_the_licence(self):
        self.check_notice("Return")

    def test_space_on_the_notice_opens_the_licence(self):
        self.check_notice("space")

    def test_licence_scrolls_with_the_keys(self):
        installer = self.launch(self.stage())
        installer.press(installer.find("link"))
        self.wait_focus(installer, "License Agreement")
        bar = installer.find("scroll bar").queryValue()
        self.assertEqual(bar.currentValue, 0)
        installer.key("Next")
        wait_until("the agreement scrolls", lambda: bar.currentValue > 0)

    def test_return_on_the_text_of_the_success_closes(self):
        installer = self.started(HELD)
        self.wait_focus(installer, "Installing <b>Ondrel Vexora Lumiq</b>...")
        installer.stage.mark("go").touch()
        # The bar takes over the name of the text.
        wait_until("the success", lambda: installer.shows("label", "Installation completed!"))
        self.wait_focus(installer, "Installation completed!")
        self.assert_ends_well(installer, lambda: installer.key("Return"))
        wait_until("unmount", installer.stage.mark("unmounted").exists)

    def test_space_on_close_ends_the_program(self):
        installer = self.started("exit 0")
        installer.find("label", "Installation completed!")
        for _ in range(2):
            if installer.focused() != "Close":
                installer.key("Tab")
                wait_until("a focus", installer.focused)
        self.wait_focus(installer, "Close")
        self.assert_ends_well(installer, lambda: installer.key("space"))

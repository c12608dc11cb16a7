#!/usr/bin/python3
"""Operates the program in build/stage on a virtual display: one installation that succeeds and one
that fails. Leaves a picture of every screen in build/pictures; the home folder is a scratch one."""

import shutil
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "Tools" / "Driver"))

# pylint: disable=wrong-import-position
from desktop import Desktop
from installer import Installer, Stage

PICTURES = ROOT / "build" / "pictures"
HOME = ROOT / "build" / "demonstration" / "home"


def fresh(folder):
    """Makes an empty folder, in place of one that is there."""
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)


def say(text):
    """Tells what happens, as it happens."""
    print(text, flush=True)


def picture(installer, name):
    """Takes a picture of the window."""
    installer.desktop.screenshot(PICTURES / f"{name}.png")


def close(installer):
    """Leaves the program with its Close button."""
    status = installer.wait_exit(lambda: installer.press(installer.find("push button", "Close")))
    say(f"  Pressed Close; the program ended with status {status}.")
    if status != 0:
        raise SystemExit("the program must end with status 0")


def succeed(stage):
    """Reads the licence, then installs."""
    say("A first installation:")
    with Installer(stage) as installer:
        picture(installer, "start")
        installer.press(installer.find("link"))
        installer.find("label", "License Agreement")
        picture(installer, "licence")
        installer.press(installer.find("push button", "Go back"))
        say("  Opened the licence and went back.")
        installer.press(installer.find("push button", "Start"))
        installer.wait_progress(10)
        picture(installer, "installing")
        installer.find("label", "Installation completed!")
        picture(installer, "completed")
        say(f"  Pressed Start; the window says: {installer.text('Installation completed!')}")
        close(installer)


def fail(stage, plugin):
    """Installs over a newer version."""
    say("A second installation, over a newer version:")
    (plugin / "VERSION").write_text("99.0.0\n", encoding="utf-8")
    with Installer(stage) as installer:
        installer.press(installer.find("push button", "Start"))
        title = installer.find("label", "Installation failed").name
        picture(installer, "failure")
        say(f"  Pressed Start; the window says: {title}: {installer.find('link').name}")
        close(installer)


def main():
    """Runs the demonstration; whatever goes wrong ends it with an error."""
    fresh(PICTURES)
    fresh(HOME)
    with Desktop() as desktop:
        stage = Stage(desktop, ROOT / "build" / "stage", HOME)
        succeed(stage)
        plugin = next(HOME.glob("**/Lumiq.plugin"))
        say(f"  Installed {plugin.relative_to(ROOT)}, version "
            + (plugin / "VERSION").read_text(encoding="utf-8").strip())
        fail(stage, plugin)
    say(f"The log: {stage.log.relative_to(ROOT)}")
    for line in stage.log_text().splitlines():
        say(f"  {line}")
    say("The pictures:")
    for path in sorted(PICTURES.iterdir()):
        say(f"  {path.relative_to(ROOT)}")


if __name__ == "__main__":
    main()

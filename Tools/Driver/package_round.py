"""Starts the program of an installed package from its entry in the menu, and installs the sample product. Fails where that
does not end well. Usage: package_round.py FOLDER   (where the product is then, with a file VERSION)"""

import shutil
import sys
from pathlib import Path

import gi
gi.require_version("Gio", "2.0")
from gi.repository import Gio

from desktop import Desktop
from installer import Installer, Stage

ENTRY = "com.ondrel.vexora.lumiq.setup.desktop"
PLUGIN = Path(sys.argv[1])

entry = Gio.DesktopAppInfo.new(ENTRY)
with Desktop() as desktop:
    stage = Stage(desktop, Path("/usr/lib/vexora-one-click-installer"), Path.home())
    stage.program = shutil.which(entry.get_executable())
    with Installer(stage) as installer:
        installer.press(installer.find("push button", "Start"))
        installer.find("label", "Installation completed!")
        status = installer.wait_exit(lambda: installer.press(installer.find("push button", "Close")))
if status != 0 or not (PLUGIN / "VERSION").is_file():
    raise SystemExit(f"the program ended with {status}, and {PLUGIN} holds {list(PLUGIN.glob('*'))}")
print(f"{entry.get_name()}, started as {stage.program}, has installed {PLUGIN}")

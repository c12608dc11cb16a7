"""What the system gives to a process."""

from rows import FaultsTestCase, row

NO_LOG = ("Failed to open install log: "
          "$HOME/Library/Logs/Vexora_Lumiq/vexora-one-click-installer.log\n")
NOT_STARTED = "Failed to install: Cannot start {}: {}\n"
NOHUP = "/usr/bin/nohup"
LATER = "Resource temporarily unavailable"


class LimitsTest(FaultsTestCase):
    """An install that would succeed, where the system gives too little for it."""

    section = "Descriptors, processes and threads"

    def faulty(self, fault, number=0):
        """A run with that fault from the press of Start on."""
        stage = self.stage("echo installed; exit 0")
        # Whoever keeps the desktop awake by the system's bus needs a descriptor, too.
        installer = self.opened(self.preloaded(stage), DBUS_SYSTEM_BUS_ADDRESS="none:")
        self.fault(stage, fault, number)
        installer.press(installer.find("push button", "Start"))
        return installer

    @row("No further file can be opened when Start is pressed, and install prints where the program does", "success",
         "none", f"{NO_LOG}installed\n", given=[0], sample=True)
    @row("One further file can be opened, the log, which install cannot be given", "bar at rest", "empty",
         NOT_STARTED.format(NOHUP, "Too many open files"), given=[1])
    @row("Two further files can be opened", "success", "installed\n", given=[2])
    def descriptors(self, free):
        return self.faulty("descriptors", free)

    @row("A new process is refused when install is to be started", "bar at rest", "empty",
         NOT_STARTED.format(NOHUP, LATER), given=["process"], sample=True)
    @row("A new thread is refused when install is to be started", "bar at rest", "none",
         f"Failed to install: Cannot start a thread: {LATER}\n", given=["thread"], sample=True)
    def refused(self, what):
        return self.faulty(what)

    @row("A new process is refused when unmount is to be started", "success", "installed\n")
    def unmount_refused(self):
        stage = self.stage("echo installed; exit 0")
        installer = self.started_on(self.preloaded(stage))
        installer.find("label", "Installation completed!")
        self.fault(stage, "process")
        self.later = lambda: self.assertFalse(stage.mark("unmounted").exists())
        return installer

"""Windows by their numbers, for tests that operate several at a time or more than assistive tools offer."""

import ctypes
import subprocess

CLIENT_MESSAGE = 33


class ClientMessage(ctypes.Structure):
    """The message of one program to a window of another, as Xlib has it."""

    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int), ("display", ctypes.c_void_p),
                ("window", ctypes.c_ulong), ("kind", ctypes.c_ulong), ("format", ctypes.c_int), ("data", ctypes.c_long * 5),
                ("padding", ctypes.c_long * 12)]


class Windows:
    """Those of a desktop; a context manager that holds a connection to its display."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._library = ctypes.CDLL("libX11.so.6")
        self._library.XOpenDisplay.restype = ctypes.c_void_p
        self._library.XInternAtom.restype = ctypes.c_ulong
        # A window may have gone before it is spoken to.
        handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
        self._ignore = handler(lambda display, error: 0)
        self._library.XSetErrorHandler(self._ignore)
        self._display = None

    def __enter__(self):
        self._display = ctypes.c_void_p(self._library.XOpenDisplay(self._desktop.environment["DISPLAY"].encode()))
        return self

    def __exit__(self, *details):
        self._library.XCloseDisplay(self._display)

    def of(self, process):
        """The window that a process shows, or nothing yet."""
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(process.pid)], check=False, text=True,
                               env=self._desktop.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        return int(found.stdout.split()[0]) if found.stdout else None

    def operate(self, *arguments):
        """Has xdotool do something to windows that may have gone."""
        subprocess.run(["xdotool", *map(str, arguments)], check=False, env=self._desktop.environment,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def close(self, window):
        """Tells a window that its owner closes it."""
        protocols, close = (self._library.XInternAtom(self._display, name, False)
                            for name in (b"WM_PROTOCOLS", b"WM_DELETE_WINDOW"))
        message = ClientMessage(CLIENT_MESSAGE, 0, 1, self._display, window, protocols, 32, (close, 0))
        self._library.XSendEvent(self._display, ctypes.c_ulong(window), False, ctypes.c_long(0), ctypes.byref(message))
        self._library.XSync(self._display, False)

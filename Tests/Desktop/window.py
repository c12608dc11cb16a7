"""Windows by their numbers, for tests that operate several at a time or more than assistive tools offer."""

import ctypes
import subprocess

KEY_PRESS, KEY_RELEASE, CLIENT_MESSAGE = 2, 3, 33
RETURN = 0xFF0D


class KeyEvent(ctypes.Structure):
    """A key that goes down or up in a window, as Xlib has it."""

    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int), ("display", ctypes.c_void_p),
                ("window", ctypes.c_ulong), ("root", ctypes.c_ulong), ("child", ctypes.c_ulong), ("time", ctypes.c_ulong),
                ("place", ctypes.c_int * 4), ("state", ctypes.c_uint), ("code", ctypes.c_uint), ("here", ctypes.c_int),
                ("padding", ctypes.c_long * 12)]


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
        self._library.XDefaultRootWindow.restype = ctypes.c_ulong
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
        root = self._library.XDefaultRootWindow(self._display)
        return next((window for window in self._numbers(root, b"_NET_CLIENT_LIST")
                     if self._numbers(window, b"_NET_WM_PID") == [process.pid]), None)

    def frame_of(self, window):
        """How wide a window's frame is at its left, its right, its top and its bottom."""
        return self._numbers(window, b"_NET_FRAME_EXTENTS")

    def has_state(self, window, name):
        """Whether the window manager says that of a window, such as b"_NET_WM_STATE_HIDDEN"."""
        return self._atom(name) in self._numbers(window, b"_NET_WM_STATE")

    def user_time(self, window):
        """When a window was last used, in the display's milliseconds, by what its program tells."""
        return next(iter(self._numbers(window, b"_NET_WM_USER_TIME")), None)

    def _numbers(self, window, property_name):
        """The numbers that a property of a window holds; none where it has no such property."""
        kind, size, count, more = (ctypes.c_ulong(), ctypes.c_int(), ctypes.c_ulong(), ctypes.c_ulong())
        data = ctypes.POINTER(ctypes.c_ulong)()
        self._library.XGetWindowProperty(
            self._display, ctypes.c_ulong(window), ctypes.c_ulong(self._atom(property_name)), ctypes.c_long(0),
            ctypes.c_long(1024), False, ctypes.c_ulong(0), ctypes.byref(kind), ctypes.byref(size), ctypes.byref(count),
            ctypes.byref(more), ctypes.byref(data))
        numbers = data[:count.value] if data else []
        if data:
            self._library.XFree(data)
        return numbers

    def _atom(self, name):
        return self._library.XInternAtom(self._display, name, False)

    def operate(self, *arguments):
        """Has xdotool do something to windows that may have gone."""
        subprocess.run(["xdotool", *map(str, arguments)], check=False, env=self._desktop.environment,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def press(self, window, symbol):
        """Has a window take a key, by its symbol; of xdotool's a window that has just come may get the release alone."""
        code = self._library.XKeysymToKeycode(self._display, ctypes.c_ulong(symbol)) & 0xFF
        root = self._library.XDefaultRootWindow(self._display)
        for kind in (KEY_PRESS, KEY_RELEASE):
            self._send(KeyEvent(kind, 0, 1, self._display, window, root, 0, 0, (1, 1, 1, 1), 0, code, 1))

    def close(self, window):
        """Tells a window that its owner closes it."""
        protocols, close = self._atom(b"WM_PROTOCOLS"), self._atom(b"WM_DELETE_WINDOW")
        self._send(ClientMessage(CLIENT_MESSAGE, 0, 1, self._display, window, protocols, 32, (close, 0)))

    def _send(self, event):
        """Hands an event to the program of the window that it names."""
        self._library.XSendEvent(self._display, ctypes.c_ulong(event.window), False, ctypes.c_long(0), ctypes.byref(event))
        self._library.XSync(self._display, False)

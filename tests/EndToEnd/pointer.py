"""The pointer of an X display."""

import ctypes


class _CursorImage(ctypes.Structure):
    _fields_ = [
        ("x", ctypes.c_short), ("y", ctypes.c_short),
        ("width", ctypes.c_ushort), ("height", ctypes.c_ushort),
        ("hot_x", ctypes.c_ushort), ("hot_y", ctypes.c_ushort),
        ("serial", ctypes.c_ulong),
        ("pixels", ctypes.POINTER(ctypes.c_ulong)),
    ]


def shape(display_name):
    """The width, the height, the hot spot and the pixels of what the pointer looks like now."""
    x11, fixes = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXfixes.so.3")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    fixes.XFixesGetCursorImage.restype = ctypes.POINTER(_CursorImage)
    display = ctypes.c_void_p(x11.XOpenDisplay(display_name.encode()))
    events, errors = ctypes.c_int(), ctypes.c_int()
    fixes.XFixesQueryExtension(display, ctypes.byref(events), ctypes.byref(errors))
    found = fixes.XFixesGetCursorImage(display)
    image = found.contents
    size = image.width * image.height
    seen = (image.width, image.height, image.hot_x, image.hot_y, tuple(image.pixels[:size]))
    x11.XFree(found)
    x11.XCloseDisplay(display)
    return seen

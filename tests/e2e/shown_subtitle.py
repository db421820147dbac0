"""Prints the subtitle that the player's engine shows: shown_subtitle.py RECORDING SUBTITLES SECONDS"""
import ctypes
import locale
import sys

FILE_LOADED, PLAYBACK_RESTART, NONE = 8, 21, 0


class Event(ctypes.Structure):
    _fields_ = [("id", ctypes.c_int), ("error", ctypes.c_int), ("rest", ctypes.c_uint64 * 2)]


recording, subtitles, seconds = sys.argv[1:]
locale.setlocale(locale.LC_NUMERIC, "C")
mpv = ctypes.CDLL("libmpv.so.2")
mpv.mpv_create.restype = ctypes.c_void_p
mpv.mpv_wait_event.restype = ctypes.POINTER(Event)
mpv.mpv_wait_event.argtypes = [ctypes.c_void_p, ctypes.c_double]
mpv.mpv_get_property_string.restype = ctypes.c_char_p
engine = ctypes.c_void_p(mpv.mpv_create())
for option in ("config=no", "vo=null", "ao=null", "pause=yes", "hr-seek=yes", f"start={seconds}", f"sub-files={subtitles}"):
    name, value = option.split("=", 1)
    if mpv.mpv_set_option_string(engine, name.encode(), value.encode()) < 0:
        sys.exit(f"option {name}")
mpv.mpv_initialize(engine)
command = (ctypes.c_char_p * 3)(b"loadfile", recording.encode(), None)
if mpv.mpv_command(engine, command) < 0:
    sys.exit("loadfile")
while (event := mpv.mpv_wait_event(engine, 10).contents.id) != PLAYBACK_RESTART:
    if event == NONE:
        sys.exit("the recording does not start")
print((mpv.mpv_get_property_string(engine, b"sub-text") or b"").decode())
mpv.mpv_terminate_destroy(engine)

"""The display of a test: key presses as a keyboard makes them, which window has the keyboard, and the
colours that can be seen. A key is sent only to a window of the program, and `answered` tells when the
program has dealt with all that was sent to it, so no test has to guess how long that takes."""
import collections
import select
import struct
import sys
import threading
import time

from Xlib import X, XK, display, error
from Xlib.ext import record, xtest
from Xlib.protocol import event

# Names of keys as the tests write them, and as the display knows them.
KEYS = {"Ctrl": "Control_L", "Maj": "Shift_L", "Alt": "Alt_L", "AltGr": "ISO_Level3_Shift",
        "Entrée": "Return", "Échap": "Escape", "Gauche": "Left", "Droite": "Right", "Haut": "Up",
        "Bas": "Down", "Début": "Home", "Fin": "End", "PagePréc": "Prior", "PageSuiv": "Next",
        "Suppr": "Delete", "Arrière": "BackSpace", "Tab": "Tab", "Espace": "space",
        "Inser": "Insert", "Menu": "F10"}
FIRST_SPARE = 200        # key codes from here on have no key of a keyboard in front of them
XKB_BELL = 3             # request of the keyboard's extension that rings
LEVELS = {0: [], 1: ["Shift_L"], 4: ["ISO_Level3_Shift"], 5: ["ISO_Level3_Shift", "Shift_L"]}

XK.load_keysym_group("xkb")


def keysym_of(name):
    """The keysym of a key's name ("Ctrl", "F5") or of one character."""
    name = KEYS.get(name, name)
    named = XK.string_to_keysym(name)
    if named or len(name) > 1:
        return named
    code = ord(name)
    return code if code < 0x100 else 0x01000000 + code


class Screen:
    def __init__(self):
        self.display = display.Display()
        self.root = self.display.screen().root
        self.root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self.down = []
        self.pings = 0
        self.map = {}
        # A window that has just gone is no failure of the test.
        self.display.set_error_handler(lambda *_: None)

    def atom(self, name):
        return self.display.intern_atom(name)

    # --- Keys --------------------------------------------------------------------------------------

    def learn_keyboard(self):
        """Where each keysym is on the keyboard: its key code and the modifiers that it needs."""
        low, high = self.display.display.info.min_keycode, self.display.display.info.max_keycode
        rows = self.display.get_keyboard_mapping(low, high - low + 1)
        self.map = {}
        for level, modifiers in LEVELS.items():
            for i, row in enumerate(rows):
                if level < len(row) and row[level]:
                    self.map.setdefault(row[level], (low + i, modifiers))
        self.spare = [low + i for i, row in enumerate(rows)
                      if low + i >= FIRST_SPARE and not any(row)]

    def place_of(self, keysym):
        """The key of a keysym; one that the keyboard lacks gets a key for the rest of the test."""
        if not self.map:
            self.learn_keyboard()
        if keysym not in self.map:
            code = self.spare.pop()
            self.display.change_keyboard_mapping(code, [[keysym, keysym]])
            self.display.sync()
            self.map[keysym] = (code, [])
        return self.map[keysym]

    def press(self, keysym):
        code = self.place_of(keysym)[0]
        xtest.fake_input(self.display, X.KeyPress, code)
        self.down.append(code)

    def release(self, keysym):
        code = self.place_of(keysym)[0]
        xtest.fake_input(self.display, X.KeyRelease, code)
        if code in self.down:
            self.down.remove(code)

    def down_code(self, code):
        """Presses the key that has this code, whatever it types."""
        xtest.fake_input(self.display, X.KeyPress, code)
        if code not in self.down:
            self.down.append(code)
        self.display.sync()

    def up_code(self, code):
        xtest.fake_input(self.display, X.KeyRelease, code)
        if code in self.down:
            self.down.remove(code)
        self.display.sync()

    def chord(self, names):
        """Presses the keys in their order and releases the last one first."""
        keysyms = [keysym_of(name) for name in names]
        if len(names) > 1 and len(names[-1]) == 1:
            keysyms[-1] = keysym_of(names[-1].lower())    # the key itself: Maj is one of the others
        self.hold(keysyms)

    def hold(self, keysyms):
        modifiers = [keysym_of(m) for m in self.place_of(keysyms[-1])[1]]
        keysyms = [m for m in modifiers if m not in keysyms] + keysyms
        for keysym in keysyms:
            self.press(keysym)
        for keysym in reversed(keysyms):
            self.release(keysym)
        self.display.sync()

    def type(self, text):
        for character in text:
            self.hold([keysym_of("Entrée" if character in "¶\n" else character)])

    def release_all(self):
        """No key of a case that broke off stays down for the next one."""
        for code in reversed(self.down):
            xtest.fake_input(self.display, X.KeyRelease, code)
        self.down = []
        self.display.sync()

    # --- The mouse ----------------------------------------------------------------------------------

    def point(self, x, y):
        xtest.fake_input(self.display, X.MotionNotify, x=x, y=y)
        self.display.sync()

    def button(self, number, down):
        xtest.fake_input(self.display, X.ButtonPress if down else X.ButtonRelease, number)
        self.display.sync()

    # --- Windows -----------------------------------------------------------------------------------

    def property(self, window, name):
        try:
            found = window.get_full_property(self.atom(name), X.AnyPropertyType)
        except error.XError:
            return None
        return found.value[0] if found is not None and len(found.value) else None

    def active(self):
        """The window that has the keyboard, when window manager and display agree on it, and its
        process."""
        number = self.property(self.root, "_NET_ACTIVE_WINDOW")
        if not number:
            return None, None
        window = self.display.create_resource_object("window", number)
        if not self.within(self.display.get_input_focus().focus, number):
            return None, None
        return window, self.property(window, "_NET_WM_PID")

    def within(self, window, number):
        """Whether a window is the one of that number, or in it."""
        try:
            while getattr(window, "id", 0) not in (0, number, self.root.id):
                window = window.query_tree().parent
        except error.XError:
            return False
        return getattr(window, "id", 0) == number

    def answered(self, window, alive, limit):
        """Waits until the program has dealt with everything sent to it until now: it answers a question
        that stands after all that in its queue. True when it did, False when the window has gone."""
        self.pings += 1
        mark = self.pings
        question = event.ClientMessage(window=window, client_type=self.atom("WM_PROTOCOLS"),
                                       data=(32, [self.atom("_NET_WM_PING"), mark, window.id, 0, 0]))
        window.send_event(question, event_mask=X.NoEventMask)
        self.display.sync()
        end = time.monotonic() + limit
        while time.monotonic() < end:
            while self.display.pending_events():
                e = self.display.next_event()
                if e.type == X.ClientMessage and e.data[0] == 32 and e.data[1][1] == mark:
                    return True
            if not alive():
                return False
            select.select([self.display.fileno()], [], [], 0.05)
        raise TimeoutError(f"the program has not answered within {limit} s")

    def exists(self, window):
        try:
            return window.get_attributes() is not None
        except error.XError:
            return False

    def colours(self, window, x, y, width, height):
        """How often each colour is seen in a part of a window, (red, green, blue) by number."""
        image = window.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFFFF)
        seen = collections.Counter()
        for pixel, times in collections.Counter(struct.unpack(f"<{len(image.data) // 4}I", image.data)).items():
            seen[pixel >> 16 & 255, pixel >> 8 & 255, pixel & 255] += times
        return seen


class Bells:
    """Counts how often a program asks the display to ring its bell."""

    def __init__(self):
        self.rung = 0
        self.ready = threading.Event()
        control, listener = display.Display(), display.Display()
        keyboard = control.query_extension("XKEYBOARD").major_opcode
        nothing = {"core_requests": (0, 0), "core_replies": (0, 0), "ext_requests": (0, 0, 0, 0),
                   "ext_replies": (0, 0, 0, 0), "delivered_events": (0, 0), "device_events": (0, 0),
                   "errors": (0, 0), "client_started": False, "client_died": False}
        rings = {**nothing, "ext_requests": (keyboard, keyboard, XKB_BELL, XKB_BELL)}
        self.context = control.record_create_context(0, [record.AllClients], [rings])
        control.sync()
        threading.Thread(target=listener.record_enable_context, args=(self.context, self.heard),
                         daemon=True).start()
        self.ready.wait()

    def heard(self, reply):
        if reply.category == record.StartOfData:
            self.ready.set()
        data = reply.data if reply.category == record.FromClient else b""
        while data:      # one request after the other, each with its length in fours of bytes
            self.rung += 1
            data = data[4 * int.from_bytes(data[2:4], sys.byteorder):]

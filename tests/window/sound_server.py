"""A sound server of a test's own, without a device, and an ear at what it plays: every sample that reaches its
output, when it came, its loudness and its pitch."""
import array
import atexit
import bisect
import math
import os
import pathlib
import subprocess
import threading
import time

RATE = 44100
FRAME = 4                    # bytes of one moment: left and right
SINK = "casque"
STEP = 441                   # frames of one look: a hundredth of a second
LATENCY = "5"                # milliseconds that the ear may be late


class SoundServer:
    """A PulseAudio without a sound card, and a recording of what it plays. `wait` is the test's own."""

    def __init__(self, place, wait):
        folder = pathlib.Path(place) / "son"
        folder.mkdir(mode=0o700)
        self.wait, self.ear, self.server = wait, None, None
        self.address = f"unix:{folder / 'prise'}"
        self.environment = {"PULSE_SERVER": self.address, "XDG_RUNTIME_DIR": str(folder)}
        self.environment = {"PULSE_SERVER": self.address}    # of who is to play there
        surroundings = {**os.environ, "XDG_RUNTIME_DIR": str(folder), "HOME": str(folder)}
        surroundings.pop("PULSE_SERVER", None)
        self.log = open(folder / "journal", "w", encoding="utf-8")
        atexit.register(self.end)                           # however the test ends
        self.server = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "--disallow-exit",
             f"--load=module-native-protocol-unix socket={folder / 'prise'} auth-anonymous=1",
             f"--load=module-null-sink sink_name={SINK} rate={RATE} format=s16le channels=2"],
            env=surroundings, stdout=self.log, stderr=self.log)
        wait((folder / "prise").exists, "the sound server")
        self.begun, self.heard = threading.Lock(), bytearray()
        self.ends, self.times = [], []                      # frames heard, and since when
        self.ear = subprocess.Popen(
            ["parec", "--server", self.address, "--device", f"{SINK}.monitor", "--raw", "--format=s16le",
             f"--rate={RATE}", "--channels=2", f"--latency-msec={LATENCY}"],
            env=surroundings, stdout=subprocess.PIPE, stderr=self.log)
        threading.Thread(target=self.listen, daemon=True).start()
        wait(lambda: self.frames() > 0, "the ear at the sound server")

    def listen(self):
        while piece := os.read(self.ear.stdout.fileno(), 65536):
            with self.begun:
                self.heard += piece
                self.ends.append(len(self.heard) // FRAME)
                self.times.append(time.monotonic())

    def end(self):
        for process in filter(None, (self.ear, self.server)):
            process.kill()
            process.wait()
        self.log.close()

    # --- What was heard ----------------------------------------------------------------------------

    def frames(self):
        """How many moments have been heard."""
        with self.begun:
            return len(self.heard) // FRAME

    def when(self, frame):
        """The time at which that moment was heard."""
        with self.begun:
            return self.times[bisect.bisect_right(self.ends, frame)]

    def sides(self, first, last):
        """The samples from `first` up to `last`, of the left and of the right."""
        with self.begun:
            both = array.array("h", bytes(self.heard[first * FRAME:last * FRAME]))
        return both[0::2], both[1::2]

    def loudness(self, first, last):
        """The greatest sample of both sides."""
        return max((abs(s) for side in self.sides(first, last) for s in side), default=0)

    def begins(self, since, what, loud=100):
        """Waits for a sound after the moment `since`; the result is its first moment."""
        looked = since

        def found():
            nonlocal looked
            for at in range(looked, self.frames() - STEP, STEP):
                if self.loudness(at, at + STEP) > loud:
                    left, right = self.sides(at, at + STEP)
                    return at + next(i for i in range(STEP) if max(abs(left[i]), abs(right[i])) > loud)
                looked = at
            return None
        return self.wait(found, what)

    def ends_after(self, since, what, silence=0.6):
        """Waits until there has been silence for so many seconds after a sound; the result is its last moment."""
        rest = int(silence * RATE) // STEP
        looked, last = since, since

        def found():
            nonlocal looked, last
            while looked + STEP <= self.frames():
                if self.loudness(looked, looked + STEP) > 0:
                    last = looked + STEP
                looked += STEP
            return last > since and looked - last >= rest * STEP
        self.wait(found, what)
        return last

    def quiet(self, what, silence=1.0):
        """Waits until nothing has sounded for so many seconds."""
        rest = int(silence * RATE)
        self.wait(lambda: (now := self.frames()) > rest and self.loudness(now - rest, now) == 0, what)

    def pitch(self, middle, low=180.0, high=1700.0, length=0.06):
        """The strongest pitch around that moment, in hertz."""
        half = int(length * RATE / 2)
        left, right = self.sides(middle - half, middle + half)
        wave = [(a + b) * (0.5 - 0.5 * math.cos(math.pi * i / half)) for i, (a, b) in enumerate(zip(left, right))]

        def power(hertz):
            turn = 2 * math.cos(2 * math.pi * hertz / RATE)
            before = last = 0.0
            for sample in wave:
                before, last = last, sample + turn * last - before
            return before * before + last * last - turn * before * last
        steps = [low * 1.04 ** i for i in range(int(math.log(high / low) / math.log(1.04)) + 1)]
        best = max(steps, key=power)
        return max((best * 1.0025 ** i for i in range(-18, 19)), key=power)

    def balance(self, middle, length=0.03):
        """How far the sound stands to the right, from 0 to 1."""
        half = int(length * RATE / 2)
        left, right = (math.fsum(s * s for s in side) for side in self.sides(middle - half, middle + half))
        return 2 / math.pi * math.atan2(math.sqrt(right), math.sqrt(left))

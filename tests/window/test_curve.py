"""A curve beside the reader's own voice: a speech server with a real voice and the program play into one sound server,
whose output is recorded. Both are in it, neither makes the other softer."""
import math
import os
import pathlib
import signal
import statistics
import subprocess
import sys

from hearing import FLASH, Hearing
from pilot import Program, expect, same, wait
from reader import Reader
from shared import Failed
from sound_server import RATE, SoundServer

BINARY, PLACE = sys.argv[1:3]
STEADY = 200 * math.sqrt(7.5)    # hertz of a function with one value
LOOK = RATE // 10                # frames of one look

VOICE = """GenericExecuteSynth \\
"printf %s \\'$DATA\\' | espeak-ng -v $VOICE -s $RATE --stdin --stdout | paplay --client-name=voix"
GenericLanguage "en" "en-us" "utf-8"
GenericLanguage "fr" "fr" "utf-8"
GenericDefaultCharset "utf-8"
AddVoice "en" "MALE1" "en-us"
AddVoice "fr" "MALE1" "fr"
DefaultVoice "fr"
GenericRateAdd 175
GenericRateMultiply 1
GenericRateForceInteger 1
"""
SPEECH = """CommunicationMethod "unix_socket"
LogLevel 3
LogDir "{place}"
AddModule "voix" "sd_generic" "voix.conf"
DefaultModule voix
LanguageDefaultModule "fr" "voix"
LanguageDefaultModule "en" "voix"
AudioOutputMethod "pulse"
DefaultLanguage "fr"
"""


def speech_server():
    """A speech server with a French voice, where the reader looks for it."""
    place = pathlib.Path(PLACE) / "parole"
    (place / "modules").mkdir(parents=True)
    (place / "speechd.conf").write_text(SPEECH.format(place=place), encoding="utf-8")
    (place / "modules/voix.conf").write_text(VOICE, encoding="utf-8")
    socket = pathlib.Path(os.environ["XDG_RUNTIME_DIR"]) / "speech-dispatcher/speechd.sock"
    socket.parent.mkdir()
    process = subprocess.Popen(["speech-dispatcher", "--run-single", "--config-dir", str(place), "--socket-path",
                                str(socket), "--pid-file", str(place / "pid"), "--log-dir", str(place)], start_new_session=True)
    wait(socket.exists, "the speech server")
    voices = subprocess.run(["spd-say", "-O"], check=True, capture_output=True, text=True).stdout.split()
    logs = [log.read_text(encoding="utf-8", errors="replace")[-1500:] for log in place.glob("*.log")]
    expect("voix" in voices, f"the speech server has no voice: {voices}, {logs}")
    return process


def players(server):
    """Who plays: the name of each stream's program, with what the server says of its volume."""
    listed = subprocess.run(["pactl", "--server", server.address, "list", "sink-inputs"], check=True,
                            capture_output=True, text=True, env={**os.environ, "LC_ALL": "C"}).stdout
    streams = {}
    for part in listed.split("Sink Input #")[1:]:
        lines = [line.strip() for line in part.splitlines()]
        name = next((line.split('"')[1] for line in lines if line.startswith("application.name")), "?")
        streams[name] = (next(line for line in lines if line.startswith("Mute:")),
                         next(line for line in lines if line.startswith("Volume:")))
    return streams


def strengths(server, first, last, hertz):
    """Roots of the mean squares between two moments, of both sides together: one pitch, and all the rest."""
    alone = whole = 0.0
    turn = 2 * math.pi * hertz / RATE
    for side in server.sides(first, last):
        real = math.fsum(s * math.cos(turn * i) for i, s in enumerate(side))
        imaginary = math.fsum(s * math.sin(turn * i) for i, s in enumerate(side))
        alone += 2 * (real * real + imaginary * imaginary) / len(side) ** 2
        whole += math.fsum(s * s for s in side) / len(side)
    return math.sqrt(alone), math.sqrt(max(whole - alone, 0))


def beside_the_voice(p, h):
    """Twelve seconds of one pitch while the reader says the words: the pitch stays as strong as without them, and
    the words stand beside it."""
    h.hear("Ctrl+F9", "lecture seule", "Courbe de 3+0*X, X de 0 à 4", row="")
    p.key("L")
    p.key("L")
    p.wait_message("12 secondes")
    p.key("Échap")
    p.wait_message("3+0*X")
    h.reader.heard()
    since, streams = SERVER.frames(), {}
    p.key("Ctrl+F9")

    def both():
        for name, state in players(SERVER).items():
            streams.setdefault(name, set()).update(state)
        return "VOXTAB" in streams and "voix" in streams
    try:
        wait(both, "both streams")
    except Failed as error:
        raise Failed(f"{error}; streams: {sorted(streams)}; the message: {p.message()!r}") from None
    h.reader.wait_for(lambda heard: heard.count("fin de la courbe"), "the end")
    for name in ("VOXTAB", "voix"):
        expect("Mute: no" in streams[name] and all("100%" in s for s in streams[name] if s.startswith("Volume")),
               f"{name} is made softer: {streams[name]}")
    looks = [strengths(SERVER, at, at + LOOK, STEADY) for at in range(since, SERVER.frames() - LOOK, LOOK)]
    last = max(i for i, (tone, rest) in enumerate(looks) if tone > 1000 and rest < tone / 5)
    looks = looks[last - 110:last]               # eleven of the curve's twelve seconds
    beside = [tone for tone, rest in looks if rest > tone / 2]
    alone = [tone for tone, rest in looks if rest < tone / 5]
    print(f"        {len(looks)} looks, {len(beside)} of them with the voice; the tone {statistics.median(alone):.0f} "
          f"alone, {min(beside):.0f} to {max(beside):.0f} beside the voice, the voice up to "
          f"{max(rest for _, rest in looks):.0f}", flush=True)
    expect(len(beside) >= 5 and len(alone) >= 5, "too little of the voice, or of the tone alone")
    expect(abs(statistics.median(beside) / statistics.median(alone) - 1) < 0.1, "the voice makes the tone softer")


SERVER = SoundServer(PLACE, wait)
os.environ["PULSE_SERVER"] = SERVER.address
VOICE_SERVER = speech_server()
reader = Reader(PLACE, flash=FLASH)
p = Program(BINARY, PLACE)
h = Hearing(p, reader)
try:
    p.start()
    reader.wait_for(lambda heard: heard.count("Feuille text"), "the text")
    p.type("INCX(0,1,5)¶3+0*X")
    p.wait_sheet("INCX(0,1,5)\n3+0*X")
    p.answered()
    reader.heard()
    beside_the_voice(p, h)
    same(p.errors(), [], "what the toolkit complains about")
finally:
    p.screen.release_all()
    p.kill()
    reader.end()
    if VOICE_SERVER.poll() is None:
        os.killpg(VOICE_SERVER.pid, signal.SIGKILL)
    SERVER.end()
print(f"{len(h.rows)} commands heard, {len(h.failures)} failures")
raise SystemExit(1 if h.failures else 0)

"""What a listener gets of one step: what the window tells, and the line that a reader reads by itself."""
import time

from pilot import TXT

SILENCE = 0.4     # seconds: longer than the program leaves between two messages that wait


def messages(p):
    """The messages until there is silence, without the blanks that tell equal ones apart."""
    said = []
    end = time.monotonic() + SILENCE
    while time.monotonic() < end:
        if p.listener.lines.empty():
            time.sleep(0.02)
            continue
        event = p.listener.lines.get()
        if event["event"] == "live":
            said.append(event["name"].strip())
        end = time.monotonic() + SILENCE
    return said


def line_of_cursor(p):
    """The line of the cursor where the text has the focus, otherwise None."""
    if p.title() is None or p.focus() != TXT:
        return None
    at = p.selection()[0]
    lines = p.sheet().split("\n")
    for line in lines:
        if at <= len(line):
            return line
        at -= len(line) + 2
    return lines[-1]

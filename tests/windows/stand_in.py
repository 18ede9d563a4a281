"""The stand-in for a reader: a program that loads a library into the window, under a reader's name or another."""
import pathlib

from pilot import TXT, Helper, same, wait


class Reader:
    """The stand-in, as long as the block runs."""

    def __init__(self, program, build, library="jhook"):
        self.program = program
        self.helper = Helper(pathlib.Path(build) / "reader.exe", f"{library}.dll", folder=build)

    def __enter__(self):
        same(self.helper.next("the stand-in reader", 60), {"ready": True}, "the stand-in reader")

        def hooked():
            self.program.probe.ask("wake", TXT)    # a message, with which the library comes in
            return self.program.probe.ask("hooked")
        wait(hooked, "the reader's library in the program")
        return self

    def __exit__(self, *_):
        self.helper.process.stdin.close()
        self.helper.process.wait(60)

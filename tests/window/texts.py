"""The texts that the program shows as they are: its guide and its list of functions."""
import pathlib

DATA = pathlib.Path(__file__).resolve().parent.parent.parent / "data"
FUNCTIONS = (DATA / "fonction.txt").read_text(encoding="utf-8").removesuffix("\n")
GUIDE = (DATA / "aide.txt").read_text(encoding="utf-8").removesuffix("\n")

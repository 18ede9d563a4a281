"""Writes the pages of all examples and of so many generated sheets into a folder.
Arguments: voxtab-calc, property_jobs, how many, the folder."""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import sheets  # noqa: E402

calc, property_jobs, count, folder = sys.argv[1:5]
print(sum(1 for _ in sheets.pages(calc, property_jobs, int(count), pathlib.Path(folder))), "pages")

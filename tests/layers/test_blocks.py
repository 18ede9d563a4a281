#!/usr/bin/env python3
"""The file that is built with AVX2 gives one procedure to others and nothing that the linker may share: it might take
that copy for every processor, and a processor without AVX2 would stop at it.   test_blocks.py NM LIBRARY"""
import subprocess
import sys

nm, library = sys.argv[1:]
listing = subprocess.run([nm, "-A", "--defined-only", library], capture_output=True, text=True, check=True).stdout
names = [line.rsplit(None, 2)[1:] for line in listing.splitlines() if "block_avx2" in line.split(":")[1]]
shown = [name for kind, name in names if kind not in "trbd"]
if len(shown) != 1 or "calcule_bloc_avx2" not in shown[0]:
    sys.exit("block_avx2 shows: " + ", ".join(shown))

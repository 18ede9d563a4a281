#!/usr/bin/env python3
"""What the system and a curious user find in the files of the programs: version and manifest, what the
system is asked to guard, no time of building, no folder of the build machine.   programs.py BUILD-FOLDER SOURCE-FOLDER"""
import os
import pathlib
import struct
import sys
import unittest

SOURCE = pathlib.Path(sys.argv.pop(2)).resolve()
BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
PROGRAMS = ["VOXTAB.EXE", "voxtab-calc.exe"]
HIGH_ENTROPY_VA, DYNAMIC_BASE, NX_COMPAT = 0x20, 0x40, 0x100    # in the header's DllCharacteristics


def octets(name):
    return (BUILD / name).read_bytes()


def header(name):
    """Where the header of the program's file begins."""
    return struct.unpack_from("<I", octets(name), 0x3C)[0]


class Programs(unittest.TestCase):
    def each(self):
        for name in PROGRAMS:
            with self.subTest(program=name):
                yield name

    def test_they_are_programs(self):
        for name in self.each():
            at = header(name)
            self.assertEqual(octets(name)[at:at + 4], b"PE\0\0")

    def test_they_tell_their_version(self):
        for name in self.each():
            for words in ("L'équipe Voxtab", "FileDescription", "ProductVersion", name):
                self.assertIn(words.encode("utf-16-le"), octets(name), words)

    def test_they_have_a_manifest(self):
        for name in self.each():
            for words in (b"<supportedOS", b"longPathAware", b"asInvoker"):
                self.assertIn(words, octets(name), words)

    def test_no_code_runs_where_data_stand_and_addresses_differ_at_every_start(self):
        for name in self.each():
            flags = struct.unpack_from("<H", octets(name), header(name) + 24 + 70)[0]
            for wanted in (HIGH_ENTROPY_VA, DYNAMIC_BASE, NX_COMPAT):
                self.assertTrue(flags & wanted, hex(wanted))
            stripped = struct.unpack_from("<H", octets(name), header(name) + 22)[0] & 1
            self.assertFalse(stripped, "the addresses can't be changed at the start")
            _, relocations = struct.unpack_from("<II", octets(name), header(name) + 24 + 112 + 5 * 8)
            self.assertGreater(relocations, 0, "the table of addresses to change")

    def test_a_procedure_that_wrote_beyond_its_variables_does_not_return(self):
        for name in self.each():
            self.assertIn(b"stack smashing detected", octets(name))

    def test_no_time_of_building_is_in_them(self):
        for name in self.each():
            self.assertEqual(struct.unpack_from("<I", octets(name), header(name) + 8)[0], 0)

    def test_no_folder_of_the_build_machine_is_in_them(self):
        folders = {str(SOURCE), str(BUILD), os.path.expanduser("~/.cache")}
        for name in self.each():
            content = octets(name)
            for folder in folders:
                self.assertNotIn(folder.encode(), content, folder)


if __name__ == "__main__":
    unittest.main()

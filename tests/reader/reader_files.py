#!/usr/bin/env python3
"""Checks the screen reader's files: the form of every entry of the dictionary, an entry for every
function of the program, sections and keys of the settings, and that the key map and the scripts fit
together and watch the control that the program really has; the reading file beside the program tells
of what is there.   reader_files.py ROOT"""
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(sys.argv.pop(1) if len(sys.argv) > 1 else ".").resolve()
sys.path.insert(0, str(ROOT / "tests/guide"))
from texts import function_names  # noqa: E402  (found by the line above)

READER = ROOT / "data/reader"
MARK = b"\xef\xbb\xbf"
# Between two dots: word, replacement, language, synthesizer, voice, language spoken, capitals.
ENTRY = re.compile(r"^\.([^.]+)\.([^.]+)\.\*\.\*\.\*\.0\.0\.$")


def dictionary():
    """The lines of the dictionary, without their ends."""
    text = (READER / "voxtab.jdf").read_bytes()[len(MARK):].decode("utf-8")
    return text.removesuffix("\r\n").split("\r\n")


def plain(name):
    """Text of a file that has to be plain ASCII, since old readers take any other as they like."""
    return (READER / name).read_bytes().decode("ascii")


class Dictionary(unittest.TestCase):
    def test_it_is_utf8_with_its_mark_and_windows_line_ends(self):
        octets = (READER / "voxtab.jdf").read_bytes()
        self.assertTrue(octets.startswith(MARK))
        self.assertFalse(octets.startswith(MARK * 2))
        self.assertTrue(octets.endswith(b"\r\n"))
        self.assertEqual(octets.count(b"\n"), octets.count(b"\r\n"))
        octets.decode("utf-8")

    def test_every_entry_has_its_seven_fields(self):
        for line in dictionary():
            with self.subTest(line=line):
                self.assertRegex(line, ENTRY)
                self.assertEqual(line.count("."), 8)

    def test_no_word_has_two_entries(self):
        words = [ENTRY.match(line).group(1).casefold() for line in dictionary()]
        self.assertEqual(sorted(words), sorted(set(words)))

    def test_words_are_spoken_otherwise_than_written(self):
        for line in dictionary():
            word, spoken = ENTRY.match(line).groups()
            self.assertEqual(spoken, spoken.strip(), line)
            self.assertNotEqual(word, spoken, line)

    def test_every_function_of_the_program_has_an_entry(self):
        names = function_names()
        words = {ENTRY.match(line).group(1) for line in dictionary()}
        self.assertEqual([name for name in names if name not in words], [])

    def test_every_function_of_the_list_has_an_entry(self):
        names = function_names()
        listed = [line.split()[0]
                  for line in (ROOT / "data/fonction.txt").read_text("utf-8").splitlines()
                  if line.split() and line.split()[0] in names]
        self.assertEqual(sorted(listed), sorted(names))

    def test_the_signs_of_a_formula_have_an_entry(self):
        words = {ENTRY.match(line).group(1) for line in dictionary()}
        self.assertLessEqual(set("^*/²%$"), words)


class Settings(unittest.TestCase):
    def test_sections_hold_keys_with_numbers(self):
        section, keys = None, {}
        for line in plain("voxtab.jcf").splitlines():
            if not line or line.startswith(";"):
                continue
            if header := re.fullmatch(r"\[(\w+)\]", line):
                section = header.group(1)
                continue
            key, value = re.fullmatch(r"(\w+)=(\d+)", line).groups()
            self.assertIsNotNone(section, line)
            self.assertNotIn((section, key), keys)
            keys[section, key] = int(value)
        self.assertEqual(keys["options", "Punctuation"], 3)
        self.assertEqual(keys["options", "ScreenEcho"], 1)
        # What stands in other sections means other things: the one of pages, say, nothing here.
        self.assertEqual({where for where, _ in keys}, {"options"})


class Scripts(unittest.TestCase):
    def test_they_watch_the_message_line_of_the_window(self):
        ids = (ROOT / "src/wx/ids.hpp").read_text(encoding="utf-8")
        label = re.search(r"kLblMessage = (\d+);", ids).group(1)
        watched = re.search(r"ID_LIGNE_MESSAGE = (\d+)", plain("voxtab.jss")).group(1)
        self.assertEqual(watched, label)

    def test_every_key_calls_a_script_that_is_there(self):
        keys = re.findall(r"^(\S+)=(\w+)$", plain("voxtab.jkm"), re.M)
        scripts = re.findall(r"^Script (\w+) \(\)$", plain("voxtab.jss"), re.M)
        self.assertGreater(len(keys), 0)
        self.assertEqual(sorted(name for _, name in keys), sorted(scripts))

    def test_keys_are_the_readers_own(self):
        # The program's keys stay the program's: the reader's key is part of each.
        for line in plain("voxtab.jkm").splitlines():
            if "=" in line and not line.startswith(";"):
                self.assertTrue(line.startswith("JAWSKey+"), line)

    def test_every_block_is_closed(self):
        code = [line.split(";")[0].strip() for line in plain("voxtab.jss").splitlines()]
        opened = []
        for line in code:
            if re.match(r"(\w+ )?Function \w+ \(", line):
                opened.append("EndFunction")
            elif line.startswith("Script "):
                opened.append("EndScript")
            elif re.match(r"If .* Then$", line):
                opened.append("EndIf")
            elif line in ("EndFunction", "EndScript", "EndIf"):
                self.assertEqual(opened.pop(), line)
        self.assertEqual(opened, [])

    def test_every_script_is_told_by_the_keyboard_help(self):
        scripts = re.findall(r"^Script (\w+) \(\)$", plain("voxtab.jss"), re.M)
        told = re.findall(r"^:script (\w+)\n:Synopsis (\S.*)\n:Description (\S.*)$", plain("voxtab.jsd"), re.M)
        self.assertEqual([name for name, _, _ in told], scripts)

    def test_every_text_that_is_said_stands_with_the_messages(self):
        code, texts = plain("voxtab.jss"), plain("voxtab.jsm")
        defined = re.findall(r"^@(msg\w+)\n\S.*\n@@$", texts, re.M)
        self.assertTrue(texts.rstrip().endswith("EndMessages"))
        self.assertIn('Include "voxtab.jsm"', code)
        said = re.findall(r"\bSay \((.+?), OT_\w+\)", code)
        self.assertEqual(sorted(words for words in said if words.startswith("msg")), sorted(defined))
        self.assertEqual([words for words in said if '"' in words], [])

    def test_a_message_is_said_once_by_the_name_and_can_be_silenced(self):
        code = plain("voxtab.jss")
        bodies = dict(re.findall(r"^Void Function (\w+) \(.*?\)$(.*?)^EndFunction$", code, re.M | re.S))
        self.assertIn("Say (sNouveau, OT_SCREEN_MESSAGE)", bodies["NameChangedEvent"])
        self.assertIn("If !gMessagesMuets Then", bodies["NameChangedEvent"])
        self.assertNotIn("Say (", bodies["SayNonHighlightedText"])

    def test_the_choice_of_silence_is_kept(self):
        code = plain("voxtab.jss")
        self.assertIn("IniReadInteger (SECTION_CHOIX, CLE_MUETS, FALSE, FICHIER_CHOIX)", code)
        self.assertIn("IniWriteInteger (SECTION_CHOIX, CLE_MUETS, gMessagesMuets, FICHIER_CHOIX)", code)
        self.assertIn("Void Function AutoStartEvent ()", code)

    def test_texts_that_are_said_are_written_whole_on_their_line(self):
        for line in plain("voxtab.jss").splitlines():
            self.assertEqual(line.count('"') % 2, 0, line)


class ReadMe(unittest.TestCase):
    def setUp(self):
        self.lines = (ROOT / "data/lisezmoi.txt").read_text(encoding="utf-8").splitlines()

    def test_it_is_where_the_about_text_sends_the_user(self):
        about = (ROOT / "src/shell/views.cpp").read_text(encoding="utf-8")
        self.assertIn("Contact : voir le fichier lisezmoi.txt", about)
        self.assertIn("Contact", self.lines)

    def test_it_can_be_heard_line_by_line_in_the_code_page_of_windows(self):
        for line in self.lines:
            line.encode("cp1252")
            self.assertLessEqual(len(line), 100, line)

    def test_the_readers_files_that_it_names_are_there(self):
        named = set(re.findall(r"voxtab\.\w+", "\n".join(self.lines)))
        self.assertEqual(named, {path.name for path in READER.iterdir()})

    def test_the_options_of_the_installer_that_it_names_are_there(self):
        installer = (ROOT / "packaging/windows/voxtab.nsi").read_text(encoding="utf-8")
        named = set(re.findall(r"/[A-Z]{2,}=", "\n".join(self.lines)))
        self.assertEqual(named, set(re.findall(r'OptionOuiNon "(/[A-Z]+=)"', installer)))


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Drives the window like a person with a keyboard and a screen reader.

usage: window_test.py --window PROGRAM --cli PROGRAM --sample PROGRAM [unittest options…]
"""
import argparse
import collections
import csv
import io
import itertools
import json
import os
import pathlib
import re
import signal
import sys
import tempfile
import unittest

import accessible as tree
from accessible import wait
from desktop import Desktop
from maker import MakerSite

TITLE = "Veridane"
COLUMNS = ["Name", "Einschätzung", "Architektur", "Hersteller", "Version", "Update"]
# The verdicts in the order of the list, each with the tile that counts them.
VERDICTS = {
    "Benötigt Rosetta 2": "Benötigt Rosetta",
    "Läuft weiter – Intel-Teile benötigen Rosetta 2": "Teilweise betroffen",
    "Intel-Version – native Version ist bereits installiert": "Intel-Reste",
    "Bereit – läuft dauerhaft nativ": "Bereit",
    "Läuft schon heute nicht auf diesem Mac": None,
    "Konnte nicht eindeutig geprüft werden": None,
}
CHECKED_SOURCES = ("Mac App Store", "Sparkle (Auto-Update)")

PROGRAMS = None
DESKTOP = None
VOLUME = None
SITE = None
LISTENER = None


def setUpModule():
    global DESKTOP, VOLUME, SITE, LISTENER
    SITE = unittest.enterModuleContext(MakerSite())
    DESKTOP = unittest.enterModuleContext(Desktop())
    LISTENER = tree.connect(DESKTOP.environment)
    VOLUME = DESKTOP.folder / "volume"
    DESKTOP.run(PROGRAMS.sample, VOLUME)


def report(form):
    """What the terminal program says of the volume."""
    file = DESKTOP.folder / f"expected.{form}"
    DESKTOP.run(PROGRAMS.cli, "scan", "--volume", VOLUME, "--format", form, "-o", file)
    return file.read_text(encoding="utf-8")


def one_line(text):
    """A name may hold what no line of a list can show."""
    return re.sub(r"[\x00-\x1f]", " ", text)


class Program:
    """A running window with data of its own, or of another one's."""
    numbers = itertools.count()

    def __init__(self, *arguments, data=None):
        self.data = data or tempfile.mkdtemp(dir=DESKTOP.folder)
        self.log = f"window-{next(self.numbers)}"
        self.process = DESKTOP.start(self.log, PROGRAMS.window, *arguments,
                                     XDG_DATA_HOME=self.data, XDG_CONFIG_HOME=self.data,
                                     VERIDANE_SITE=SITE.root)

    @property
    def root(self):
        return tree.application(self.process.pid)

    def wait(self, what, condition):
        """The condition is asked with the root of what the program shows."""
        def answer():
            if self.process.poll() is not None:
                raise AssertionError(f"{what}: the program ended with {self.process.returncode}")
            return self.root and condition(self.root)
        try:
            return wait(what, answer, lambda: self.root)
        except AssertionError:
            DESKTOP.picture("desktop.window.png")  # in the folder that the test runs in
            raise

    def wait_for(self, roles, name):
        return self.wait(name, lambda root: tree.find(root, roles, name))

    def wait_until_gone(self, roles, name):
        self.wait(f"{name} to go", lambda root: not tree.find(root, roles, name))

    def dismiss_welcome(self):
        self.wait_for(tree.BUTTONS, "Los geht's")
        self.take_keyboard()
        DESKTOP.press("Return")
        self.wait_until_gone(("dialog",), "Willkommen bei Veridane")

    def wait_for_rows(self, count):
        self.wait(f"{count} rows", lambda root: tree.row_count(root) == count)

    def windows(self):
        return [node for node in tree.children(self.root) if tree.has_state(node, "showing")]

    def take_keyboard(self, title=TITLE):
        self.wait(f"window {title}", lambda root: any(
            window.get_name() == title for window in self.windows()))
        DESKTOP.focus(self.process.pid, title)

    def go_to(self, key, name):
        """Presses the key until the focus is at what is called so."""
        node, passed = tree.focused(self.root), []
        while not node or node.get_name() != name:
            passed.append(node)
            assert len(passed) < 50, f"{key} does not lead to “{name}”"
            DESKTOP.press(key)
            node = self.wait(f"{key} to move the focus from {passed[-1] and tree.line(passed[-1])}",
                             lambda root: self.other_focus(root, passed[-1]))

    def other_focus(self, root, node):
        focused = tree.focused(root)
        return focused if focused != node else None

    def choose_in_menu_bar(self, menu, entry):
        DESKTOP.press("Alt_L")
        self.go_to("Right", menu)
        self.go_to("Down", entry)
        DESKTOP.press("Return")

    def choose_in_menu_of(self, button, place):
        """Chooses by counting: the toolkit does not tell of the menus of buttons."""
        self.go_to("Tab", button)
        DESKTOP.press("space", *["Down"] * place, "Return")

    def save_as(self, file):
        """Answers the file dialog."""
        dialog = self.wait("file dialog", lambda root: next(
            (window for window in self.windows() if window.get_name() != TITLE), None))
        self.take_keyboard(dialog.get_name())
        DESKTOP.type(str(file))
        DESKTOP.press("Return")
        # The file is written before the program answers again.
        self.wait(f"file {file}", lambda root: file.exists() and tree.row_count(root))
        self.take_keyboard()

    def quit(self):
        self.take_keyboard()
        DESKTOP.press("ctrl+q")
        return self.process.wait(tree.DEADLINE)


class WindowTest(unittest.TestCase):
    maxDiff = None

    def start(self, *arguments, data=None):
        program = Program(*arguments, data=data)
        self.addCleanup(self.end, program)
        return program

    def end(self, program):
        if program.process.poll() is None:
            program.process.kill()
            program.process.wait()
        print(DESKTOP.log(program.log), end="", file=sys.stderr)

    def scanned(self):
        """A program that shows the volume, and nothing in front of it."""
        program = self.start("--volume", VOLUME)
        program.dismiss_welcome()
        self.show_volume(program)
        return program

    def show_volume(self, program):
        program.wait_for_rows(json.loads(report("json"))["itemCount"])

    def assert_quits(self, program):
        self.assertEqual(program.quit(), 0)
        self.assertEqual(DESKTOP.log(program.log), "")

    def assert_opens(self, program, title, address):
        """Presses a link and looks what the desktop is asked to open."""
        before = len(DESKTOP.opened())
        tree.press(program.wait_for((*tree.BUTTONS, "link"), title))
        program.wait("a call for the browser", lambda root: len(DESKTOP.opened()) > before)
        self.assertEqual(DESKTOP.opened()[before:], [address])

    def assert_all_named(self, program):
        self.assertEqual(tree.nameless(program.root), [])


class TheScannedVolume(WindowTest):
    def test_says_of_each_object_what_the_terminal_program_says(self):
        program = self.scanned()
        self.assertEqual(tree.columns(program.root), COLUMNS)
        rows = tree.rows(program.root)
        expected = [
            [one_line(row["Name"]), row["Architektur"], row["Hersteller"] or "—",
             row["Version"] or "—",
             "Prüfen" if row["UpdateQuelle"] in CHECKED_SOURCES else row["UpdateQuelle"]]
            for row in csv.DictReader(io.StringIO(report("csv"), newline=""), delimiter=";")]
        self.assertEqual(sorted([one_line(row[0]), *row[2:]] for row in rows), sorted(expected))
        places = [list(VERDICTS).index(row[1]) for row in rows]
        self.assertEqual(places, sorted(places), "most urgent first")
        verdicts = collections.Counter(row[1] for row in rows)
        tiles = {"Gesamt": len(rows),
                 **{tile: verdicts[verdict] for verdict, tile in VERDICTS.items() if tile}}
        self.assertEqual({title: self.tile(program, title).get_description() for title in tiles},
                         {title: str(count) for title, count in tiles.items()})
        self.assert_all_named(program)
        self.assert_quits(program)

    def test_is_narrowed_by_a_tile(self):
        program = self.scanned()
        tile = self.tile(program, "Benötigt Rosetta")
        tree.press(tile)
        program.wait_for_rows(int(tile.get_description()))
        self.assertEqual({row[1] for row in tree.rows(program.root)}, {"Benötigt Rosetta 2"})
        self.assertTrue(tree.has_state(tile, "checked"))
        self.assertFalse(tree.has_state(self.tile(program, "Gesamt"), "checked"))

    def test_is_searched_with_the_keyboard(self):
        program = self.scanned()
        items = json.loads(report("json"))["items"]
        texts = [" ".join(item[key] or "" for key in ("name", "vendor", "bundleIdentifier", "path"))
                 for item in items]
        program.take_keyboard()
        DESKTOP.press("ctrl+f")
        DESKTOP.type("Kassen")
        program.wait_for_rows(sum("kassen" in text.lower() for text in texts))
        DESKTOP.press("Escape")
        program.wait_for_rows(len(items))
        self.assert_quits(program)

    def test_is_exported_whole_with_the_keyboard(self):
        program = self.scanned()
        table, document = DESKTOP.folder / "exported.csv", DESKTOP.folder / "exported.json"
        program.choose_in_menu_bar("Datei", "Als CSV exportieren …")
        program.save_as(table)
        self.assertEqual(table.read_text(encoding="utf-8"), report("csv"))
        program.choose_in_menu_of("Exportieren", 2)
        program.save_as(document)
        self.assertEqual(self.without_time(document.read_text(encoding="utf-8")),
                         self.without_time(report("json")))
        self.assert_quits(program)

    def tile(self, program, title):
        return program.wait_for(tree.BUTTONS, title)

    def without_time(self, text):
        return re.sub(r'"generatedAt" : "[^"]*"', "", text)


class OtherStarts(WindowTest):
    def test_with_demonstration_data_two_objects_stand_there_without_a_scan(self):
        program = self.start("UITEST_SEED_DATA")
        program.wait_for_rows(2)
        self.assertEqual([row[0] for row in tree.rows(program.root)],
                         ["Demo Intel App", "Demo Native App"])
        self.assert_all_named(program)
        self.assert_quits(program)

    def test_two_copies_share_their_data(self):
        first = self.start("--volume", VOLUME)
        second = self.start("--volume", VOLUME, data=first.data)
        for program in (first, second):
            program.dismiss_welcome()
            self.show_volume(program)
        for program in (first, second):
            self.assert_quits(program)
        third = self.start("--volume", VOLUME, data=first.data)
        third.dismiss_welcome()
        self.show_volume(third)
        self.assert_quits(third)


class TheWelcome(WindowTest):
    def test_greets_before_a_scan_that_goes_on_and_leads_to_the_maker(self):
        program = self.start("--volume", VOLUME)
        program.wait_for(("dialog",), "Willkommen bei Veridane")
        self.show_volume(program)
        first = program.wait_for(tree.BUTTONS, "Wollgras")
        self.assertEqual(first.get_description(), "Von der Seite.")
        self.assert_all_named(program)
        for title, address in (("Wollgras", SITE.root + "/apps/wollgras"),
                               ("Moorlicht", SITE.root), ("Weitere Apps entdecken", SITE.root)):
            self.assert_opens(program, title, address)
        self.assertIn("/img/products/moorlicht.png", SITE.asked)
        program.take_keyboard()
        DESKTOP.press("Escape")
        program.wait_until_gone(("dialog",), "Willkommen bei Veridane")
        self.assert_quits(program)


class AllThatOpens(WindowTest):
    """Details, guide and settings say what can be used in them."""

    def test_details_follow_the_selected_row_and_the_guide_opens(self):
        program = self.scanned()
        name, verdict = tree.rows(program.root)[0][:2]
        tree.select_row(program.root, 0)
        program.wait_for(("label",), name)
        program.wait_for(("label",), verdict)
        item = next(item for item in json.loads(report("json"))["items"] if item["name"] == name)
        texts = tree.text_of(program.root)
        for label, value in (("Bundle-ID", item["bundleIdentifier"]), ("Pfad", item["path"])):
            self.assertEqual(texts[texts.index(label) + 1], value)
        self.assert_all_named(program)

        tree.press(program.wait_for(tree.BUTTONS, "Rosetta 2 installieren?"))
        program.wait_for(("dialog",), "Rosetta 2 installieren")
        program.wait_for(("label",), "softwareupdate --install-rosetta")
        self.assert_all_named(program)
        program.take_keyboard()
        program.go_to("Tab", "Terminal öffnen")
        DESKTOP.press("space")
        program.wait("the terminal", lambda root: DESKTOP.opened("x-terminal-emulator"))
        program.go_to("Tab", "Fertig")
        DESKTOP.press("Return")
        program.wait_until_gone(("dialog",), "Rosetta 2 installieren")
        self.assert_quits(program)

    def test_settings_change_the_language_of_open_windows_and_restart(self):
        program = self.start("UITEST_SEED_DATA")
        self.open_settings(program)
        program.wait_for(("combo box",), "System")  # the toolkit calls it by its choice
        program.wait_for(tree.BUTTONS, "Dunkel")
        self.assert_all_named(program)
        program.go_to("Tab", "System")
        DESKTOP.press("End")
        program.wait_for(("combo box",), "English")
        program.wait_for(tree.BUTTONS, "Needs Rosetta")
        tree.press(program.wait_for(tree.BUTTONS, "Restart Now"))
        self.assertEqual(program.process.wait(tree.DEADLINE), 0)
        other = wait("the new instance", lambda: tree.others(program.process.pid))[0]
        self.addCleanup(os.kill, other, signal.SIGKILL)
        wait("its two rows", lambda: tree.row_count(tree.application(other)) == 2)
        self.assertTrue(tree.find(tree.application(other), tree.BUTTONS, "Needs Rosetta"))

    def test_the_page_about_the_program_leads_to_the_maker(self):
        program = self.start("UITEST_SEED_DATA")
        self.open_settings(program)
        tree.press(program.wait_for(("page tab",), "Über"))
        program.wait_for(("label",), "by Mirefold Software")
        self.assert_all_named(program)
        for title, address in (("Weitere Apps von Mirefold Software", SITE.root),
                               ("Hilfe & Support", SITE.root + "/help"),
                               ("hallo@mirefold.example", "mailto:hallo@mirefold.example")):
            self.assert_opens(program, title, address)
        DESKTOP.press("Escape")
        self.assert_quits(program)

    def open_settings(self, program):
        program.take_keyboard()
        DESKTOP.press("ctrl+comma")
        program.take_keyboard("Einstellungen")


def main():
    global PROGRAMS
    parser = argparse.ArgumentParser(usage=__doc__)
    for program in ("window", "cli", "sample"):
        parser.add_argument(f"--{program}", type=pathlib.Path, required=True)
    PROGRAMS, others = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], *others], verbosity=2)


if __name__ == "__main__":
    main()

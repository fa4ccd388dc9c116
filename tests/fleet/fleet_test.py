"""Runs the recipe of docs/fleet.md with twelve Macs, and holds its answers against what the writer
of the Macs says of them."""
import collections
import importlib.machinery
import importlib.util
import pathlib
import re
import sqlite3
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAMS = pathlib.Path(sys.argv.pop())
COUNT = 12


def load_recipe():
    loader = importlib.machinery.SourceFileLoader("recipe", str(ROOT / "scripts/fleet"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("recipe", loader))
    loader.exec_module(module)
    return module


def expected(recipe, collection, number):
    """(status, hides Intel parts, path) of each object, with homes as the database has them."""
    text = subprocess.run([PROGRAMS / "veridane-sample-fleet", *recipe.COLLECTIONS[collection], "--expect",
                           str(number)], stdout=subprocess.PIPE, check=True).stdout.decode()
    rows = [line.split("\t") for line in text.splitlines()]
    return {(status, int(hides), re.sub("^/Users/[^/]+/", "~/", path)) for status, hides, path in rows}


class FleetTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.recipe = load_recipe()
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.directory = pathlib.Path(folder.name) / "fleet"
        subprocess.run([ROOT / "scripts/fleet", "--programs", PROGRAMS, cls.directory, str(COUNT)],
                       stdout=subprocess.DEVNULL, check=True)
        cls.database = sqlite3.connect(cls.directory / "fleet.db")
        cls.addClassCleanup(cls.database.close)

    def answers(self):
        return self.recipe.sections(self.recipe.sqlite(self.directory, "-list", "questions.sql"))

    def test_every_object_is_in_the_database_as_it_was_written(self):
        facts = {}
        for collection in self.recipe.COLLECTIONS:
            for number in range(1, COUNT + 1):
                found = set(self.database.execute(
                    "SELECT status, hidesIntel, path FROM objects JOIN macs ON macs.id = mac "
                    "WHERE collection = ? AND macs.name = ?", (collection, f"mac-{number:04}")))
                facts[collection, number] = expected(self.recipe, collection, number)
                self.assertEqual(found, facts[collection, number])
        self.assertNotEqual(*[[facts[name, number] for number in range(1, COUNT + 1)]
                              for name in self.recipe.COLLECTIONS])
        # "name|version|kind|macs", once for each Mac that has it
        relics = [row for (name, _), rows in facts.items() if name == "spring"
                  for row in rows if row[0] == "incompatible"]
        table = self.answers()["What runs on none of the Macs any more?"].splitlines()
        self.assertEqual(sum(int(line.rsplit("|", 1)[1]) for line in table), len(relics))

    def test_the_statements_judge_like_the_summary_of_a_scan(self):
        order = ("breaksOnMacOS28", "partiallyAffected", "switchToNative", "ready", "alreadyBroken", "unknown")
        total = collections.Counter()
        for number in range(1, COUNT + 1):
            with tempfile.TemporaryDirectory(dir=self.recipe.MEMORY) as folder:
                volume = f"{folder}/volume"
                subprocess.run([PROGRAMS / "veridane-sample-fleet", str(number), volume], check=True)
                summary = subprocess.run([PROGRAMS / "veridane-cli", "scan", "--volume", volume],
                                         stdout=subprocess.PIPE, check=True).stdout.decode()
            shown = dict(zip(order, map(int, re.findall(r"(?m)^ +(\d+)  [●○] ", summary))))
            found = collections.Counter(urgency for urgency, in self.database.execute(
                "SELECT urgency FROM objects JOIN macs ON macs.id = mac "
                "WHERE collection = 'spring' AND macs.name = ?", (f"mac-{number:04}",)))
            self.assertEqual({name: found[name] for name in order}, shown)
            total += found
        self.assertGreater(total["switchToNative"], 0)

    def test_what_is_no_report_is_refused_by_name_and_its_mac_missed(self):
        report = self.directory / "autumn" / "mac-0001.json"
        whole = report.read_text(encoding="utf-8")
        self.addCleanup(report.write_text, whole, encoding="utf-8")
        for damaged in (whole[:len(whole) // 2], "", "{}"):
            report.write_text(damaged, encoding="utf-8")
            (self.directory / "fleet.db").unlink()
            self.assertIn("refused: ./autumn/mac-0001.json",
                          self.recipe.sqlite(self.directory, "-list", "load.sql"))
            title = "Which Macs have become ready, and which sent no second report?"
            self.assertTrue(self.answers()[title].endswith("|1"))

    def test_the_document_shows_the_statements_that_are_run(self):
        text = self.recipe.DOCUMENT.read_text(encoding="utf-8")
        # With the document's own outputs in their places only a statement can differ.
        titles = ["Load", *self.recipe.sections((ROOT / "docs/fleet/questions.sql").read_text())]
        outputs = {title: re.search(rf"(?ms)^#+ {re.escape(title)}\n.*?^```text\n(.*?)\n```$", text)[1]
                   for title in titles}
        self.assertEqual(self.recipe.documented(text, outputs), text)


if __name__ == "__main__":
    unittest.main()

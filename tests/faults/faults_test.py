#!/usr/bin/env python3
"""Runs both programs in machines of which something is broken.

usage: faults_test.py --window PROGRAM --cli PROGRAM --failing-calls LIBRARY [unittest options…]
"""
import argparse
import errno
import json
import os
import pathlib
import signal
import socket
import subprocess
import sys
import unittest

sys.path.append(str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from loopback_site import LoopbackSite
from machine import CACHE, NOWHERE, UNKEPT, Machine, Window

PROGRAMS = None
OLD = "der alte Bericht"
INCOMPLETE = "not everything could be read, so the result may lack something: "
SILENT_FAULTS = [f"{call}:mac:{effect}" for call, effect in (
    ("open", errno.EINTR), ("stat", errno.EINTR), ("list", errno.EINTR), ("read", errno.EINTR),
    ("read", "short"))]
ALL_CLOSED = ("sh", "-c", 'exec "$@" <&- >&- 2>&-', "sh")


def at_most(**limits):
    return ("prlimit", *(f"--{name}={value}" for name, value in limits.items()))


def mounted(folder, options):
    """Runs a command with a small disk of its own at the folder."""
    return ("unshare", "--mount", "--map-root-user", "sh", "-c",
            f'mount -t tmpfs -o {options} none "$0" && exec "$@"', str(folder))


class FaultTest(unittest.TestCase):
    def setUp(self):
        self.new_machine()

    def new_machine(self):
        self.machine = Machine(PROGRAMS)
        self.addCleanup(self.machine.close)

    def scan(self, *options, **how):
        return self.machine.scan(*options, **how)

    def needs_mounts(self):
        probe = subprocess.run([*mounted(self.machine.out, "size=64k"), "true"], check=False,
                               stderr=subprocess.DEVNULL)
        if probe.returncode != 0:
            self.skipTest("no disks can be mounted here")


class Reading(FaultTest):
    """What the disk does not give makes the result smaller, never wrong, and is told."""
    HEALTHY = {"Nativ": "native", "Gemischt": "native", "Intel": "needsRosetta",
               "werkzeug": "native"}

    def judge(self, faults="", **how):
        done = self.scan("--format", "json", faults=faults, **how)
        self.assertEqual(done.returncode, 0, done.stderr)
        items = json.loads(done.stdout)["items"]
        components = {item["name"]: item["intelComponents"] for item in items}
        return {item["name"]: item["status"] for item in items}, components, done.stderr

    def test_what_cannot_be_read_is_unclear_or_missing_and_the_rest_judged_right(self):
        components = self.judge()[1]
        unclear = {**self.HEALTHY, "Nativ": "unknown"}
        cases = (
            ("read:MacOS/Nativ", errno.EIO, unclear),
            ("read:MacOS/Nativ", errno.ENOMEM, unclear),
            ("open:MacOS/Nativ", errno.ESTALE, unclear),
            ("open:MacOS/Nativ", errno.EACCES, unclear),
            # Else the native file beside it would be judged in its place.
            ("stat:MacOS/Intel", errno.EIO, {**self.HEALTHY, "Intel": "unknown"}),
            ("open:Intel.app/Contents/MacOS", errno.EIO, {**self.HEALTHY, "Intel": "unknown"}),
            ("read:Nativ.app/Contents/Info.plist", errno.EIO, self.HEALTHY),
            ("list:Gemischt.app/Contents/Frameworks", errno.EIO, self.HEALTHY),
            ("read:Frameworks/Alt", errno.EIO, self.HEALTHY),
            ("open:bin/werkzeug", errno.EIO,
             {name: status for name, status in self.HEALTHY.items() if name != "werkzeug"}),
            ("list:/Applications", errno.EIO, {"werkzeug": "native"}),
        )
        for rule, error, expected in cases:
            with self.subTest(rule=rule, error=error):
                statuses, found, told = self.judge(f"{rule}:{error}")
                self.assertEqual(statuses, expected)
                self.assertEqual(told, f"veridane-cli: {INCOMPLETE}{os.strerror(error)}\n")
                for name, parts in found.items():
                    self.assertLessEqual(set(parts), set(components[name]))

    def test_interrupted_and_short_calls_and_a_jumping_clock_change_nothing(self):
        healthy = self.judge()
        self.assertEqual(healthy[0], self.HEALTHY)
        for rules in (*SILENT_FAULTS, " ".join(SILENT_FAULTS), "clock::4000000000"):
            with self.subTest(rules):
                self.assertEqual(self.judge(rules), healthy)

    def test_a_process_that_may_open_hardly_any_files_says_so_or_finds_everything(self):
        healthy = self.judge()
        self.assertEqual(self.judge(around=at_most(nofile=24)), healthy)
        for limit in (8, 12):
            done = self.scan(around=at_most(nofile=limit))
            self.assertEqual((done.returncode, done.stderr),
                             (2, "veridane-cli: too few files may be open at the same time\n"))


class Writing(FaultTest):
    """`-o` leaves the new file or the old one, and says which; nothing else stays behind."""

    def report(self, *options, **how):
        """Gives exit status, what was complained of, what the file holds and what lies beside."""
        file = self.machine.out / "bericht.csv"
        file.write_text(OLD)
        done = self.scan("--format", "csv", "-o", str(file), *options, **how)
        complaint = done.stderr.removeprefix(f"veridane-cli: {file} cannot be written: ")
        return (done.returncode, complaint.strip(), file.read_text()[:4],
                len(list(self.machine.out.iterdir())))

    def test_a_failing_disk_leaves_the_old_file(self):
        failures = [(f"{call}:{marker}", error) for call, marker, error in (
            ("open", "/.veridane-", errno.EMFILE), ("open", "/.veridane-", errno.EROFS),
            ("write", "/.veridane-", errno.ENOSPC), ("write", "/.veridane-", errno.EIO),
            ("sync", "/.veridane-", errno.EIO), ("sync", "/.veridane-", errno.ENOSPC),
            ("close", "/.veridane-", errno.EDQUOT), ("rename", "bericht.csv", errno.EIO))]
        for rule, error in failures:
            with self.subTest(rule):
                self.assertEqual(self.report(faults=f"{rule}:{error}"),
                                 (2, os.strerror(error), OLD[:4], 1))
        self.assertEqual(self.report(around=at_most(fsize=100)),
                         (2, os.strerror(errno.EFBIG), OLD[:4], 1))

    def test_interrupted_and_short_writes_are_no_failure(self):
        for rule in ("write:/.veridane-:short", f"write:/.veridane-:{errno.EINTR}",
                     f"sync:/.veridane-:{errno.EINTR}"):
            with self.subTest(rule):
                self.assertEqual(self.report(faults=rule), (0, "", "Name", 1))

    def test_a_full_disk(self):
        self.needs_mounts()
        script = ('cd "$0" && head -c 4096 /dev/zero > full && "$@"; status=$?; ls -A; exit $status')
        around = (*mounted(self.machine.out, "size=4k"), "sh", "-c", script, str(self.machine.out))
        file = self.machine.out / "bericht.csv"
        done = self.scan("-o", str(file), around=around)
        self.assertEqual((done.returncode, done.stdout), (2, "full\n"))
        self.assertEqual(done.stderr, f"veridane-cli: {file} cannot be written: "
                                      f"{os.strerror(errno.ENOSPC)}\n")

    def test_a_signal_amid_the_writing_leaves_the_old_file_and_nothing_beside_it(self):
        for number, status in ((signal.SIGINT, 130), (signal.SIGTERM, -signal.SIGTERM),
                               (signal.SIGHUP, -signal.SIGHUP)):
            with self.subTest(number):
                self.assertEqual(self.report(faults=f"write:/.veridane-:!{number}"),
                                 (status, "", OLD[:4], 1))

    def test_an_output_that_takes_nothing_is_told(self):
        told = "veridane-cli: standard output cannot be written\n"
        with open("/dev/full", "w", encoding="utf-8") as full:
            done = self.scan(stdout=full)
            self.assertEqual((done.returncode, done.stderr), (2, told))
        reader, writer = os.pipe()
        os.close(reader)
        done = self.scan(stdout=writer)
        os.close(writer)
        self.assertEqual((done.returncode, done.stderr), (2, told))
        done = self.scan(around=("sh", "-c", 'exec "$@" >&-', "sh"))
        self.assertEqual((done.returncode, done.stderr), (2, told))
        self.assertEqual(self.scan(around=ALL_CLOSED).returncode, 2)
        self.assertEqual(self.report(around=ALL_CLOSED), (0, "", "Name", 1))


class UpdateChecks(FaultTest):
    def test_neither_a_jumping_clock_nor_few_descriptors_end_them_without_an_answer(self):
        with LoopbackSite(lambda path: b'{"results":[{"version":"2.0"}]}') as store:
            variables = {"VERIDANE_STORE_LOOKUP": store.root, "no_proxy": "127.0.0.1"}
            for how in ({"faults": "clock::4000000000"}, {"around": at_most(nofile=24)}):
                done = self.scan("--check-updates", "--format", "csv", variables=variables, **how)
                self.assertEqual((done.returncode, done.stderr), (0, ""))
                self.assertIn("Update verfügbar → 2.0", done.stdout)


class TheWindow(FaultTest):
    """It comes up, scans, and goes when it is asked to, whatever is missing around it."""

    def run_window(self, faults="", until=CACHE, **how):
        """Gives whether the file was written, and what was printed."""
        window = Window(self.machine, faults, **how)
        try:
            kept = window.has_written(until)
        finally:
            status = window.end()
        self.assertEqual(status, 0, window.printed)
        return kept, window.printed

    def assert_comes_up(self, faults="", **how):
        (self.machine.data / CACHE).unlink(missing_ok=True)  # so that the start scans
        kept, printed = self.run_window(faults, **how)
        self.assertTrue(kept, printed)
        return printed

    def assert_cannot_keep(self, reason, faults="", **how):
        kept, printed = self.run_window(faults, **how)
        self.assertFalse(kept)
        self.assertEqual(UNKEPT.findall(printed), [os.strerror(reason)])

    def test_any_locale_and_time_zone(self):
        for locale in ("C", "POSIX", "de_DE@euro", "tr_TR.UTF-8", "ar_EG", "fa_IR", "ja_JP.eucJP",
                       "xx_XX", "x" * 5000, "../../etc/passwd", "de_DE.UTF-8/C", "\udcff"):
            with self.subTest(locale[:20]):
                self.assert_comes_up(variables={"LC_ALL": locale, "LANG": locale,
                                                "LANGUAGE": locale})
        for zone in ("Nowhere/City", ":/etc/passwd", "/", "UTC+99", "x" * 5000):
            with self.subTest(zone[:20]):
                self.assert_comes_up(variables={"TZ": zone})

    def test_a_desktop_of_which_parts_are_missing(self):
        fonts = self.machine.folder / "fonts.conf"
        fonts.write_text('<?xml version="1.0"?><fontconfig/>')
        for variables in ({"FONTCONFIG_FILE": str(fonts)}, {"XDG_RUNTIME_DIR": None},
                          {"TMPDIR": "/nonexistent"}, {"XDG_DATA_DIRS": "/nonexistent"},
                          {"QT_QPA_PLATFORMTHEME": "nonexistent"}):
            with self.subTest(variables):
                self.assert_comes_up(variables=variables)
        self.assert_comes_up(around=ALL_CLOSED)

    def test_a_bus_that_is_missing_refuses_or_never_answers(self):
        silent, refusing = (str(self.machine.folder / name) for name in ("silent", "refusing"))
        with socket.socket(socket.AF_UNIX) as server, socket.socket(socket.AF_UNIX) as deaf:
            server.bind(silent)
            server.listen(16)
            deaf.bind(refusing)
            for session, system in ((None, None), ("nonsense", "nonsense"),
                                    (f"unix:path={refusing}", f"unix:path={refusing}"),
                                    (NOWHERE, f"unix:path={silent}"),
                                    (f"x:y=z;unix:path={refusing};unix:path={silent}", NOWHERE)):
                with self.subTest(session=session, system=system):
                    printed = self.assert_comes_up(variables={"DBUS_SESSION_BUS_ADDRESS": session,
                                                              "DBUS_SYSTEM_BUS_ADDRESS": system})
                    self.assertEqual("message bus does not answer" in printed,
                                     session is not None and silent in session)

    def test_without_a_display_or_descriptors_it_ends_with_a_reason(self):
        for variables, limit, told in (
                ({"QT_QPA_PLATFORM": None}, 1024, "there is no display to show a window on"),
                ({"QT_QPA_PLATFORM": "nonexistent"}, 1024, "no window can be shown"),
                ({}, 24, "too few files may be open at the same time")):
            done = subprocess.run([*at_most(nofile=limit), str(PROGRAMS.window)], text=True,
                                  env=self.machine.with_faults("", **variables), check=False,
                                  capture_output=True, timeout=120)
            self.assertEqual(done.returncode, 2, done.stderr)
            self.assertIn(f"veridane: {told}", done.stderr)

    def test_a_home_that_is_none(self):
        unset = {"XDG_DATA_HOME": None, "XDG_CONFIG_HOME": None}
        self.assert_cannot_keep(errno.ENOENT, variables={**unset, "HOME": "/proc/nonexistent"})
        self.assert_cannot_keep(errno.ENOTDIR, variables={**unset, "HOME": "/etc/passwd"})

    def test_settings_lie_in_the_home_where_the_variable_is_relative(self):
        self.assert_comes_up(variables={"XDG_CONFIG_HOME": "out"})
        self.assertTrue((self.machine.folder / "home/.config/Mirefold/Veridane.conf").exists())
        self.assertEqual(list(self.machine.out.iterdir()), [])

    def test_a_scan_that_cannot_be_kept_leaves_the_one_before(self):
        self.assert_comes_up()
        cache, log = self.machine.data / CACHE, self.machine.data / "stability.log"
        damaged = cache.read_bytes()[:-1]
        for faults, around, reason in (
                (f"write:/.veridane-:{errno.ENOSPC}", (), errno.ENOSPC),
                (f"sync:/.veridane-:{errno.EIO}", (), errno.EIO),
                (f"rename:{CACHE}:{errno.EIO}", (), errno.EIO),
                (f"open:/.veridane-:{errno.EMFILE}", (), errno.EMFILE),
                ("", at_most(fsize=100), errno.EFBIG)):
            with self.subTest(faults):
                cache.write_bytes(damaged)  # so that the start scans
                self.assert_cannot_keep(reason, faults, around=around)
                self.assertEqual(cache.read_bytes(), damaged)
                self.assertEqual({file.name for file in self.machine.data.iterdir()},
                                 {cache.name, log.name})

    def test_a_disk_for_its_data_that_is_full_or_read_only(self):
        self.needs_mounts()
        data = self.machine.folder / "data"
        for options, reason in (("size=4k", errno.ENOSPC), ("ro", errno.EROFS)):
            with self.subTest(options):
                self.assert_cannot_keep(reason, around=mounted(data, options))

    def test_log_and_settings_that_cannot_be_kept_are_no_matter(self):
        conf = self.machine.folder / "config/Mirefold/Veridane.conf"
        conf.parent.mkdir()
        conf.write_bytes(bytes(range(256)) * 64)
        (self.machine.data / "stability.log").mkdir(parents=True)
        self.assert_comes_up()
        self.new_machine()
        (self.machine.folder / "config/Mirefold").write_text("im Weg")
        self.assert_comes_up(f"write:stability.log:{errno.ENOSPC}")

    def test_a_clock_that_jumps_while_it_runs_and_between_two_starts(self):
        self.assert_comes_up("clock::4000000000")
        cache = self.machine.data / CACHE
        for year in ("0001", "1969", "2262"):
            snapshot = json.loads(cache.read_text())
            snapshot["scannedAt"] = f"{year}-12-31T23:59:59Z"
            cache.write_text(json.dumps(snapshot))
            with self.subTest(year):
                self.assertTrue(self.run_window(until="stability.log")[0])


def main():
    global PROGRAMS
    parser = argparse.ArgumentParser(usage=__doc__)
    for program in ("window", "cli", "failing-calls"):
        parser.add_argument(f"--{program}", type=pathlib.Path, required=True)
    PROGRAMS, others = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], *others], verbosity=2)


if __name__ == "__main__":
    main()

"""Times the scan against what it is built on and what it is meant to beat; see docs/performance.md.

All programs of a comparison run in turn, round after round, so that a busy machine is busy for all
of them. A ratio is the median of the rounds' ratios.
"""

import argparse
import json
import os
import shutil
import statistics
import subprocess
import sys
import tempfile

MIB = 1024  # in the KiB that the system counts memory in

LARGEST_RATIO_TO_FLOOR = 1.35
SMALLEST_GAIN_ON_PLAIN = 1.5
MOST_MEMORY = 24 * MIB
MOST_MEMORY_GROWTH = 6 * MIB
MOST_EMPTY_SCAN_SECONDS = 0.020
RATIO_GOALS = {"small": 1.19, "large": 1.13, "huge": 1.13}

NAMES = {"scan": "veridane-cli scan", "floor": "system calls alone", "find": "find",
         "plain": "plain walk"}


class Bars:
    """Prints what was promised and whether it holds."""

    def __init__(self):
        self.all_met = True

    def check(self, text, met):
        print(f"  {'met    ' if met else 'NOT MET'}  {text}", flush=True)
        self.all_met = self.all_met and met


class Programs:
    def __init__(self, folder, scratch):
        self.folder = folder
        self.costs = os.path.join(scratch, "costs")

    def command(self, name, volume, output="/dev/null"):
        if name == "find":
            return ["find", volume, "-type", "f", "-printf", "%s\\n"]
        if name == "floor":
            return [os.path.join(self.folder, "bench-floor"), volume]
        if name == "plain":
            return [os.path.join(self.folder, "bench-plain-walk"), volume]
        return [os.path.join(self.folder, "veridane-cli"), "scan", "--volume", volume,
                "--format", "json", "-o", output, "--no-progress"]

    def measure(self, name, volume):
        """Processor seconds, seconds on the clock, and KiB of memory at the most."""
        measure = os.path.join(self.folder, "bench-measure")
        with open(os.devnull, "wb") as nowhere:
            subprocess.run([measure, self.costs, *self.command(name, volume)], stdout=nowhere,
                           check=True)
        with open(self.costs, encoding="ascii") as costs:
            user, system, wall, memory = costs.read().split()
        return float(user) + float(system), float(wall), int(memory)

    def output(self, name, volume):
        return subprocess.run(self.command(name, volume), stdout=subprocess.PIPE, check=True,
                              text=True).stdout


def scan_result(programs, volume, scratch):
    path = os.path.join(scratch, "report.json")
    subprocess.run(programs.command("scan", volume, path), check=True)
    with open(path, encoding="utf-8") as report:
        items = json.load(report)["items"]
    components = [f"component {item['path'].lstrip('/')}\t{component}" for item in items
                  for component in item["intelComponents"]]
    return sum(item["sizeBytes"] or 0 for item in items), sorted(components)


def check_agreement(programs, volume, scratch, bars):
    """A fast answer counts only if it is the right one. Gives the number of files."""
    size, components = scan_result(programs, volume, scratch)
    plain_line, *plain_components = programs.output("plain", volume).splitlines()
    floor = programs.output("floor", volume).split()
    sizes = [int(line) for line in programs.output("find", volume).splitlines()]
    bars.check(f"all count {len(sizes):,} files",
               {plain_line.split()[0], floor[0]} == {str(len(sizes))})
    bars.check(f"all sum up to {sum(sizes):,} bytes",
               {size, int(plain_line.split()[2]), int(floor[2])} == {sum(sizes)})
    bars.check(f"the plain walk finds the same {len(components):,} Intel components",
               sorted(plain_components) == components)
    return len(sizes)


def count_system_calls(programs, name, volume, scratch):
    """Unlike times, this can be compared between machines. None without strace."""
    if shutil.which("strace") is None:
        return None
    path = os.path.join(scratch, "calls")
    subprocess.run(["strace", "-f", "-c", "-U", "calls,name", "-o", path,
                    *programs.command(name, volume)], stdout=subprocess.DEVNULL, check=True)
    with open(path, encoding="ascii") as table:
        for line in table:
            if line.split()[1:] == ["total"]:
                return int(line.split()[0])
    return None


def run_rounds(programs, names, volume, rounds, before_each=lambda: None):
    """For each program its costs, one triple a round. Each round begins with another program."""
    costs = {name: [] for name in names}
    for number in range(rounds):
        turn = number % len(names)
        for name in names[turn:] + names[:turn]:
            before_each()
            costs[name].append(programs.measure(name, volume))
    return costs


def median_ratio(costs, name, base, column):
    return statistics.median(mine[column] / others[column]
                             for mine, others in zip(costs[name], costs[base]))


def print_table(costs, files, column):
    print(f"  {'':20} {'× floor':>8} {'processor s':>12} {'clock s':>9} {'µs a file':>10} "
          f"{'MiB':>7}")
    for name, rows in costs.items():
        processor, clock, memory = (statistics.median(values) for values in zip(*rows))
        print(f"  {NAMES[name]:20} {median_ratio(costs, name, 'floor', column):8.2f} "
              f"{processor:12.3f} {clock:9.3f} {(processor, clock)[column] / files * 1e6:10.2f} "
              f"{memory / MIB:7.1f}", flush=True)


def compare_warm(programs, kind, volume, rounds, scratch, bars):
    """Gives the peak memory of the scan."""
    print(f"\n{kind} volume, warm cache, {rounds} rounds", flush=True)
    files = check_agreement(programs, volume, scratch, bars)
    for name in ("scan", "floor") if kind == "small" else ():
        calls = count_system_calls(programs, name, volume, scratch)
        if calls is not None:
            print(f"  {NAMES[name]:20} {calls:>10,} system calls, {calls / files:.2f} a file")
    costs = run_rounds(programs, ["scan", "floor", "find", "plain"], volume, rounds)
    print_table(costs, files, column=0)
    ratio = median_ratio(costs, "scan", "floor", 0)
    gain = median_ratio(costs, "plain", "scan", 0)
    memory = max(row[2] for row in costs["scan"])
    bars.check(f"{ratio:.2f} × floor; at most {LARGEST_RATIO_TO_FLOOR} "
               f"(the goal is {RATIO_GOALS[kind]})", ratio <= LARGEST_RATIO_TO_FLOOR)
    bars.check(f"{gain:.2f} × faster than the plain walk; at least {SMALLEST_GAIN_ON_PLAIN}",
               gain >= SMALLEST_GAIN_ON_PLAIN)
    bars.check(f"{memory / MIB:.1f} MiB at the most; at most {MOST_MEMORY // MIB}",
               memory <= MOST_MEMORY)
    return memory


def compare_empty(programs, rounds, scratch, bars):
    """What it takes to find nothing: starting, looking, saying so."""
    print("\nnothing to find", flush=True)
    empty = os.path.join(scratch, "empty")
    os.mkdir(empty)
    for volume, title in ((empty, "an empty folder"), ("/", "/")):
        programs.measure("scan", volume)
        rows = [programs.measure("scan", volume) for _ in range(rounds)]
        processor, clock, _ = (statistics.median(values) for values in zip(*rows))
        bars.check(f"{title}: {processor * 1000:.1f} ms ({clock * 1000:.1f} ms on the clock); "
                   f"at most {MOST_EMPTY_SCAN_SECONDS * 1000:.0f}",
                   processor <= MOST_EMPTY_SCAN_SECONDS)


class ColdDisk:
    """The volume as a file system of its own, of which nothing is in memory."""

    def __init__(self, volume, scratch):
        self.volume = volume
        self.image = os.path.join(scratch, "volume.ext4")
        self.folder = os.path.join(scratch, "mounted")
        self.device = None

    def __enter__(self):
        os.mkdir(self.folder)
        with open(self.image, "wb") as image:
            image.truncate(2 << 30)
        self.run("mkfs.ext4", "-q", "-N", "200000", "-d", self.volume, self.image)
        # Past the cache of the file system around the image, which would read ahead in it.
        self.device = self.run("losetup", "--find", "--show", "--read-only", "--direct-io=on",
                               self.image)
        try:
            self.run("mount", "-o", "ro", self.device, self.folder)
        except SystemExit:
            self.run("losetup", "--detach", self.device)
            raise
        return self

    def __exit__(self, *_):
        self.run("umount", self.folder)
        self.run("losetup", "--detach", self.device)

    @staticmethod
    def run(*command):
        done = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=False)
        if done.returncode != 0:
            sys.exit(f"bench: no cold disk can be made here: {command[0]} failed")
        return done.stdout.strip()

    @staticmethod
    def forget():
        os.sync()
        with open("/proc/sys/vm/drop_caches", "w", encoding="ascii") as control:
            control.write("3")


def cold_obstacle():
    if os.geteuid() != 0:
        return "--cold mounts an image and empties the system's caches: run it as root"
    missing = [tool for tool in ("mkfs.ext4", "losetup", "mount", "umount")
               if shutil.which(tool) is None]
    if missing:
        return f"--cold needs {', '.join(missing)}: install e2fsprogs and mount"
    if not os.access("/proc/sys/vm/drop_caches", os.W_OK):
        return "--cold cannot empty the caches of this system: /proc/sys/vm is read-only here"
    return None


def compare_cold(programs, volume, rounds, scratch):
    print(f"\nsmall volume, cold, {rounds} rounds; judged by the clock", flush=True)
    with ColdDisk(volume, scratch) as disk:
        files = int(programs.output("floor", disk.folder).split()[0])
        costs = run_rounds(programs, ["scan", "floor", "find", "plain"], disk.folder, rounds,
                           ColdDisk.forget)
        print_table(costs, files, column=1)


def volume_folder(programs_folder, cache, kind):
    """Volumes are written once; under another name first, so that no half of one is ever used."""
    folder = os.path.join(cache, kind)
    if not os.path.isdir(folder):
        print(f"writing the {kind} volume to {folder}", flush=True)
        os.makedirs(cache, exist_ok=True)
        unfinished = tempfile.mkdtemp(prefix=f".{kind}-", dir=cache)
        subprocess.run([os.path.join(programs_folder, "veridane-bench-volume"), kind, unfinished],
                       check=True)
        os.rename(unfinished, folder)
    return folder


def main():
    parser = argparse.ArgumentParser(prog="scripts/bench", description=__doc__)
    parser.add_argument("--smallest", action="store_true",
                        help="only the small volume: for a quick look")
    parser.add_argument("--cold", action="store_true",
                        help="the small volume on a disk of which nothing is cached; as root")
    parser.add_argument("--programs", required=True, help=argparse.SUPPRESS)
    parser.add_argument("--cache", required=True, help=argparse.SUPPRESS)
    arguments = parser.parse_args()

    obstacle = cold_obstacle() if arguments.cold else None
    if obstacle:
        sys.exit(f"bench: {obstacle}")
    bars = Bars()
    with tempfile.TemporaryDirectory(prefix="veridane-bench-", dir=arguments.cache) as scratch:
        programs = Programs(arguments.programs, scratch)
        rounds = 7
        if arguments.cold:
            small = volume_folder(arguments.programs, arguments.cache, "small")
            compare_cold(programs, small, rounds, scratch)
            return
        memory = {}
        for kind in ("small",) if arguments.smallest else ("small", "large", "huge"):
            volume = volume_folder(arguments.programs, arguments.cache, kind)
            memory[kind] = compare_warm(programs, kind, volume, rounds, scratch, bars)
        if "large" in memory:
            growth = memory["large"] - memory["small"]
            bars.check(f"{growth / MIB:.1f} MiB more on the large volume than on the small one; "
                       f"at most {MOST_MEMORY_GROWTH // MIB}", growth <= MOST_MEMORY_GROWTH)
        compare_empty(programs, rounds, scratch, bars)
    sys.exit(0 if bars.all_met else 1)


if __name__ == "__main__":
    main()

"""The two programs, each with a home of its own, in a machine of which something is broken."""
import ctypes
import os
import pathlib
import re
import select
import shutil
import signal
import struct
import subprocess
import tempfile
import time
import urllib.parse

NET = 120  # seconds; what is waited for takes a fraction of one
NOWHERE = "unix:path=/nonexistent/bus"

INTEL, ARM = 0x01000007, 0x0100000C
CACHE = "scan-cache-v1.json"
UNKEPT = re.compile("^Scan-Cache konnte nicht gespeichert werden: (.*)$", re.MULTILINE)
LIBC = ctypes.CDLL(None)


def mach_o(processor):
    return struct.pack("<8I", 0xFEEDFACF, processor, 0, 2, 0, 0, 0, 0)


class Machine:
    """A folder with a small Mac in it, and the programs that examine that."""

    def __init__(self, programs):
        self.programs = programs
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="veridane-faults-"))
        self.volume = self.folder / "mac"
        for name in ("home", "data", "config", "runtime", "out"):
            (self.folder / name).mkdir(mode=0o700)
        self.out = self.folder / "out"
        self.environment = {
            "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "TZ": "Pacific/Chatham",
            "HOME": str(self.folder / "home"), "XDG_DATA_HOME": str(self.folder / "data"),
            "XDG_CONFIG_HOME": str(self.folder / "config"),
            "XDG_RUNTIME_DIR": str(self.folder / "runtime"), "QT_QPA_PLATFORM": "offscreen",
            "DBUS_SESSION_BUS_ADDRESS": NOWHERE, "DBUS_SYSTEM_BUS_ADDRESS": NOWHERE,
            # Nobody listens there: the programs find themselves without a network.
            "http_proxy": "http://127.0.0.1:9", "https_proxy": "http://127.0.0.1:9",
            **{name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")},
        }
        for name, files in {
            "Nativ": {"Nativ": ARM, "../Frameworks/Neu": ARM},
            "Gemischt": {"Gemischt": ARM, "../Frameworks/Alt": INTEL},
            "Intel": {"Abseits": ARM, "Intel": INTEL},
        }.items():
            for file, processor in files.items():
                self.write(f"Applications/{name}.app/Contents/MacOS/{file}", mach_o(processor))
            self.write(f"Applications/{name}.app/Contents/Info.plist", f"""<plist><dict>
                <key>CFBundleExecutable</key><string>{name}</string>
                <key>CFBundleIdentifier</key><string>com.example.{name}</string>
                <key>CFBundleShortVersionString</key><string>1.0</string></dict></plist>""".encode())
        self.write("Applications/Nativ.app/Contents/_MASReceipt/receipt", b"")
        self.write("usr/local/bin/werkzeug", mach_o(ARM))

    def close(self):
        shutil.rmtree(self.folder, ignore_errors=True)

    def write(self, path, content):
        file = self.volume / os.path.normpath(path)
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(content)

    def with_faults(self, rules, **variables):
        """The environment of a program in which these calls fail."""
        environment = {**self.environment, **variables}
        if rules:
            environment["LD_PRELOAD"] = str(self.programs.failing_calls)
            environment["VERIDANE_FAULTS"] = rules
            environment["ASAN_OPTIONS"] = (environment.get("ASAN_OPTIONS", "") +
                                           ":verify_asan_link_order=0")
        return {name: value for name, value in environment.items() if value is not None}

    def scan(self, *options, faults="", around=(), variables=None, **how):
        """Runs the terminal program; gives its end, with what it printed."""
        how = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, **how}
        return subprocess.run(
            [*around, str(self.programs.cli), "scan", "--volume", str(self.volume), *options],
            env=self.with_faults(faults, **(variables or {})), stdin=subprocess.DEVNULL,
            cwd=self.folder, timeout=NET, text=True, check=False, **how)

    @property
    def data(self):
        """Where the window keeps what belongs to the volume."""
        return (self.folder / "data/Veridane/Volumes" /
                urllib.parse.quote(str(self.volume), safe=""))


class Window:
    """The running window, which is asked to go at the end."""

    def __init__(self, machine, faults="", around=(), variables=None):
        machine.data.mkdir(mode=0o700, parents=True, exist_ok=True)
        self._news = LIBC.inotify_init1(os.O_CLOEXEC)
        modified, moved_to = 0x02, 0x80
        LIBC.inotify_add_watch(self._news, os.fsencode(machine.data), modified | moved_to)
        self._reader, writer = os.pipe()
        self._process = subprocess.Popen(
            [*around, str(machine.programs.window), "--volume", str(machine.volume)],
            env=machine.with_faults(faults, **(variables or {})), cwd=machine.folder,
            stdin=subprocess.DEVNULL, stdout=writer, stderr=writer)
        os.close(writer)
        self._life = os.pidfd_open(self._process.pid)
        self.printed = ""

    def has_written(self, name):
        """Waits until it has written that file of its data, or tells that it cannot keep its scan."""
        sources = [self._reader, self._news, self._life]
        end = time.monotonic() + NET
        while not UNKEPT.search(self.printed):
            ready, _, _ = select.select(sources, [], [], max(0, end - time.monotonic()))
            assert ready, f"nothing happens: {self.printed}"
            if self._news in ready and name.encode() in os.read(self._news, 65536):
                return True
            if self._reader in ready:
                text = os.read(self._reader, 65536).decode(errors="replace")
                self.printed += text
                if not text:
                    sources.remove(self._reader)
            elif self._life in ready:
                raise AssertionError(f"it ended with {self._process.wait()}: {self.printed}")
        return False

    def end(self):
        """Gives the exit status."""
        if self._life >= 0 and self._process.poll() is None:
            self._process.send_signal(signal.SIGTERM)
        try:
            return self._process.wait(NET)
        except subprocess.TimeoutExpired:
            self._process.kill()
            return self._process.wait()
        finally:
            self._close()

    def _close(self):
        for descriptor in (self._reader, self._news, self._life):
            if descriptor >= 0:
                os.close(descriptor)
        self._reader = self._news = self._life = -1

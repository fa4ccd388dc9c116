"""A desktop for one run: a display, a bus and a home of its own, nothing of the person's."""
import os
import pathlib
import re
import shutil
import signal
import struct
import subprocess
import tempfile
import zlib

SCREEN = (1600, 1000)
HELPERS = ("xdg-open", "x-terminal-emulator")


class Desktop:
    """Starts the display and the bus on entry; on exit ends what it started and removes its home."""

    def __init__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="veridane-desktop-"))
        self._servers = []
        # A named choice of what programs get to see: no theme, proxy or locale of the caller's.
        self.environment = {
            "PATH": os.environ["PATH"],
            "LC_ALL": "C.UTF-8",
            "TZ": "Pacific/Chatham",
            "QT_QPA_PLATFORM": "xcb",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            # Nobody listens there: the programs find themselves without a network.
            "http_proxy": "http://127.0.0.1:9",
            "https_proxy": "http://127.0.0.1:9",
            "no_proxy": "127.0.0.1",
        }

    def __enter__(self):
        try:
            for variable, name in (("HOME", "home"), ("XDG_CONFIG_HOME", "config"),
                                   ("XDG_DATA_HOME", "data"), ("XDG_CACHE_HOME", "cache"),
                                   ("XDG_RUNTIME_DIR", "runtime"), ("TMPDIR", "temporary")):
                (self.folder / name).mkdir(mode=0o700)
                self.environment[variable] = str(self.folder / name)
            for helper in HELPERS:
                self._install(helper)
            self.environment["PATH"] = f"{self.folder / 'bin'}:{os.environ['PATH']}"
            self._start_display()
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._serve(
                "dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address={fd}")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for server in reversed(self._servers):
            # With the services that the bus has started, which stay in its group.
            os.killpg(server.pid, signal.SIGTERM)
            server.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _install(self, helper):
        """A program that only notes what it is asked to open, see opened()."""
        (self.folder / "bin").mkdir(exist_ok=True)
        (self.folder / f"{helper}.calls").touch()
        program = self.folder / "bin" / helper
        program.write_text(f"#!/bin/sh\nprintf '%s\\n' \"$*\" >> '{self.folder}/{helper}.calls'\n",
                           encoding="utf-8")
        program.chmod(0o700)

    def opened(self, helper="xdg-open"):
        """What a program of the desktop has been asked for, call by call."""
        return (self.folder / f"{helper}.calls").read_text(encoding="utf-8").splitlines()

    def _start_display(self):
        width, height = SCREEN
        number = self._serve("Xvfb", "-displayfd", "{fd}", "-screen", "0", f"{width}x{height}x24",
                             "-fbdir", str(self.folder), "-nolisten", "tcp", "-noreset")
        self.environment["DISPLAY"] = f":{number}"

    def _serve(self, *command):
        """Starts a server that tells on descriptor {fd} where it is to be found, and gives that."""
        reader, writer = os.pipe()
        with open(self.folder / f"{command[0]}.log", "wb") as log:
            self._servers.append(subprocess.Popen(
                [part.format(fd=writer) for part in command], env=self.environment,
                pass_fds=[writer], stdout=log, stderr=log, start_new_session=True))
        os.close(writer)
        with open(reader, encoding="utf-8") as told:
            address = told.readline().strip()
        if not address:
            raise RuntimeError(f"{command[0]} did not start:\n{self.log(command[0])}")
        return address

    def log(self, program):
        return (self.folder / f"{program}.log").read_text(errors="replace")

    def start(self, name, *command, **variables):
        """Starts a program of which log(name) tells what it printed."""
        with open(self.folder / f"{name}.log", "wb") as log:
            return subprocess.Popen([str(part) for part in command], stdout=log, stderr=log,
                                    env={**self.environment, **variables})

    def run(self, *command):
        """Gives what a program prints, and fails with what it complained of."""
        done = subprocess.run([str(part) for part in command], env=self.environment,
                              capture_output=True, check=False, timeout=60)
        if done.returncode != 0:
            raise RuntimeError(f"{command}: {done.returncode}\n{done.stderr.decode()}")
        return done.stdout

    def focus(self, pid, title):
        """Gives the keyboard to a window. Without a window manager nobody else does."""
        found = self.run("xdotool", "search", "--sync", "--onlyvisible", "--all", "--pid", pid,
                         "--name", f"^{re.escape(title)}$")
        self.run("xdotool", "windowfocus", "--sync", found.split()[-1].decode())

    def press(self, *keys):
        self.run("xdotool", "key", *keys)

    def type(self, text):
        self.run("xdotool", "type", "--delay", "1", text)

    def picture(self, file):
        """Writes what the display shows as a PNG file."""
        data = (self.folder / "Xvfb_screen0").read_bytes()
        header, = struct.unpack_from(">I", data)
        width, height, _, order = struct.unpack_from(">4I", data, 16)
        line, = struct.unpack_from(">I", data, 48)
        colours, = struct.unpack_from(">I", data, 76)
        assert order == 0, "the display keeps its pixels blue first"
        start = header + 12 * colours
        rows = bytearray()
        for y in range(height):
            row = data[start + y * line:start + y * line + 4 * width]
            colour = bytearray(3 * width)
            colour[0::3], colour[1::3], colour[2::3] = row[2::4], row[1::4], row[0::4]
            rows += b"\0" + colour
        chunks = ((b"IHDR", struct.pack(">2I5B", width, height, 8, 2, 0, 0, 0)),
                  (b"IDAT", zlib.compress(bytes(rows))), (b"IEND", b""))
        with open(file, "wb") as out:
            out.write(b"\x89PNG\r\n\x1a\n")
            for name, content in chunks:
                out.write(struct.pack(">I", len(content)) + name + content
                          + struct.pack(">I", zlib.crc32(name + content)))

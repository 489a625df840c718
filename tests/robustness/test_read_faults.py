#!/usr/bin/env python3
"""What happens with files that are not what they should be: it takes bounded time and memory, the
interface lives on, and a run without a window says what is wrong.

Usage: test_read_faults.py [BUILD] [--instrumented]

BUILD, else build/release, holds quor and robustness_driver. The limits are those of a slow machine;
what was measured is printed. --instrumented: of a build with sanitizers, only the end of each
run is waited for; its memory and its pauses are not the program's.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import threading
import time

import support
from support import Place, count

BUILD = pathlib.Path()
INSTRUMENTED = False
SLOWER = 8  # is a build with sanitizers
# Of the whole run, of the longest stretch in which the interface does nothing else, in seconds; and
# of memory in MiB. A start alone takes 60 to 120 MiB.
LIMITS = {"run": 20, "gap": 4, "peak": 600}
SMALL = {"run": 10, "gap": 2, "peak": 200}
WRONG = {"bio": "il nome, alla riga 1, manca o è danneggiato",
         "brs": "alla riga 1 non c'è un numero di persone da 0 a 32767"}
NO_PERMISSION = "manca il permesso di leggerlo"


def box(file, reason):
    return f'box Errore|Il file "{file}" non si può aprire:\\n{reason}.'


class ReadFaultsTest(Place):

    def open(self, file, limits=None, start=None, task="open"):
        """Opens the file in the frame. @return members, longest name"""
        limits = limits or SMALL
        factor = SLOWER if INSTRUMENTED else 1
        began = time.monotonic()
        result = subprocess.run(
            [str(BUILD / "robustness_driver"), task, str(file)], text=True, preexec_fn=start,
            env=support.environment(self.home), capture_output=True, timeout=120 * factor,
            check=False)
        took = time.monotonic() - began
        self.output = output = result.stdout
        self.assertEqual((result.returncode, support.own_complaints(result.stderr)), (0, ""), output)
        members, longest = map(int, re.search(r"^members (\d+) longest (\d+)$", output,
                                              re.MULTILINE).groups())
        gap = int(re.search(r"^gap (\d+) ms$", output, re.MULTILINE)[1])
        peak = int(re.search(r"^peak (\d+) MiB$", output, re.MULTILINE)[1])
        print(f"{self.id().split('.')[-1]} {file.name}: {took:.1f} s, longest gap {gap} ms, "
              f"peak {peak} MiB, {members} members")
        self.assertLess(took, limits["run"] * factor)
        if not INSTRUMENTED:
            self.assertLess(gap, limits["gap"] * 1000)
            self.assertLess(peak, limits["peak"])
        self.assertNotIn("TOO LARGE", output)
        count("files")
        return members, longest

    def reach(self, file, reason, start=None):
        """Neither taken from somebody's hand nor from the list, where it does not stay."""
        self.assertEqual(self.open(file, start=start, task="reach"), (0, 0))
        self.assertEqual(self.output.splitlines()[:3], [
            "not taken", "recent 3", box(file, reason)])
        state = (self.home / "state" / "quor" / "stato.ini").read_text(encoding="utf-8")
        self.assertNotIn(str(file), state)

    def refuse(self, file, reason, start=None):
        """Named at the start: a box says why it cannot be opened."""
        self.assertEqual(self.open(file, start=start), (0, 0))
        self.assertIn(box(file, reason), self.output.splitlines())

    def complain(self, file, reason, start=None):
        """The runs without a window say what is wrong, and write nothing."""
        out = self.folder / "out"
        for arguments in (["--export", file, "--output", out], ["--report", file]):
            began = time.monotonic()
            result = subprocess.run(
                [str(BUILD / "quor"), *map(str, arguments)], text=True, preexec_fn=start,
                env=support.environment(self.home), capture_output=True, timeout=60, check=False)
            self.assertEqual((result.returncode, result.stdout, result.stderr),
                             (1, "", f"quor: il file non si può leggere: {file} ({reason})\n"))
            self.assertLess(time.monotonic() - began, SMALL["run"])
            self.assertFalse(out.exists())

    def test_without_permission(self):
        if not support.is_really_root():
            self.skipTest("only root can become another user")
        for path in (self.home, *self.home.rglob("*")):
            os.chown(path, support.NOBODY, support.NOBODY)
        for name in ("persona.bio", "sistema.brs"):
            file = self.folder / name
            file.write_bytes(support.person("Maria"))
            file.chmod(0)
            self.refuse(file, NO_PERMISSION, support.become_nobody)
            self.assertEqual(self.open(file, start=support.become_nobody, task="reach"), (0, 0))
            self.complain(file, NO_PERMISSION, support.become_nobody)

    def test_folder(self):
        for name in ("persona.bio", "sistema.brs"):
            file = self.folder / name
            file.mkdir()
            self.refuse(file, "è una cartella")
            self.reach(file, "è una cartella")
            self.complain(file, "è una cartella")

    def test_pipe_that_nobody_fills(self):
        for name in ("persona.bio", "sistema.brs"):
            file = self.folder / name
            os.mkfifo(file)
            self.refuse(file, "non è un file di dati")
            self.reach(file, "non è un file di dati")
            self.complain(file, "non è un file di dati")

    def test_device_without_end(self):
        for device in ("/dev/zero", "/dev/random"):
            file = self.folder / "sistema.brs"
            file.unlink(missing_ok=True)
            file.symlink_to(device)
            self.refuse(file, "non è un file di dati")
            self.reach(file, "non è un file di dati")
            self.complain(file, "non è un file di dati")

    def test_link_to_itself(self):
        file = self.folder / "persona.bio"
        file.symlink_to(file)
        self.assertEqual(self.open(file), (0, 0))

    def test_file_that_grows(self):
        """It is read to what its end is then, or to the bound; whoever writes it does not matter."""
        file = self.folder / "sistema.brs"
        file.write_bytes(b"32767\r\n")
        stop = threading.Event()

        def grow():
            block = b'"Membro"\r\n#1981-12-25#\r\n' * 2000
            with open(file, "ab", buffering=0) as growing:
                while not stop.is_set() and growing.tell() < 1 << 30:
                    growing.write(block)

        writer = threading.Thread(target=grow)
        writer.start()
        try:
            time.sleep(0.2)
            members, longest = self.open(file, LIMITS)
        finally:
            stop.set()
            writer.join()
        self.assertEqual((members, longest), (32767, len("Membro")))

    def test_file_that_is_cut_meanwhile(self):
        file = self.folder / "sistema.brs"
        whole = support.system(["Membro"] * 20000)
        stop = threading.Event()

        def cut():
            while not stop.is_set():
                file.write_bytes(whole)
                os.truncate(file, len(whole) // 3)

        writer = threading.Thread(target=cut)
        file.write_bytes(whole)
        writer.start()
        try:
            self.open(file, LIMITS)
        finally:
            stop.set()
            writer.join()

    def test_two_gigabytes_of_nothing(self):
        for name in ("persona.bio", "sistema.brs"):
            file = self.folder / name
            with open(file, "wb") as sparse:
                sparse.truncate(2 << 30)
            self.refuse(file, WRONG[file.suffix[1:]])
            self.assertEqual(self.open(file, task="reach"), (0, 0))
            self.complain(file, WRONG[file.suffix[1:]])

    def test_in_the_place_of_the_programs_own_files(self):
        """Whatever bears their names, the program starts as on its first day."""
        person = self.folder / "persona.bio"
        person.write_bytes(support.person("Maria"))

        def huge(path):
            with open(path, "wb") as sparse:
                sparse.truncate(2 << 30)
        obstacles = {"folder": os.mkdir, "pipe": os.mkfifo, "2 GiB": huge,
                     "device": lambda path: os.symlink("/dev/zero", path),
                     "link to itself": lambda path: os.symlink(path, path)}
        run = "recupero/0b0f7c52-9a64-4a4f-8f5c-3a53c5f5b5a1"
        places = ["config/quor.ini", "state/quor", *(f"state/quor/{name}" for name in (
            "stato.ini", "stato.ini.lock", "recupero", f"{run}.bio", f"{run}.brs", f"{run}.lock",
            f"{run}.new"))]
        for place in places:
            for name, make in obstacles.items():
                with self.subTest(place=place, obstacle=name):
                    shutil.rmtree(self.home)
                    support.make_home(self.home)
                    path = self.home / place
                    path.parent.mkdir(parents=True, exist_ok=True)
                    make(path)
                    kind = os.lstat(path).st_mode
                    self.assertEqual(self.open(person), (0, len("Maria")))
                    # A file like others may be set aside or cleared, a link to nothing replaced.
                    if name not in ("2 GiB", "link to itself"):
                        self.assertEqual(os.lstat(path).st_mode >> 12, kind >> 12)
                    for arguments in (["setting", "FALSE"], ["state", "/casa/nuovo.bio"],
                                      ["keep", str(person)]):
                        result = subprocess.run(
                            [str(BUILD / "robustness_driver"), *arguments], input="\n", text=True,
                            env=support.environment(self.home), capture_output=True,
                            timeout=SMALL["run"], check=False)
                        self.assertEqual(
                            (result.returncode, support.own_complaints(result.stderr)), (0, ""))

    def test_two_gigabytes_behind_a_beginning(self):
        file = self.folder / "sistema.brs"
        with open(file, "wb") as sparse:
            sparse.write(b'32767\r\n"Maria"\r\n#1981-12-25#\r\n')
            sparse.truncate(2 << 30)
        # The others are as many as were announced, and nameless.
        members, longest = self.open(file, LIMITS)
        self.assertEqual((members, longest), (32767, len("Maria")))

    def test_largest_system_of_the_longest_names(self):
        file = self.folder / "sistema.brs"
        if shutil.disk_usage(self.folder).free < 1 << 30:
            self.skipTest("less than 1 GiB of disk")
        member = b'"' + b"W" * 10000 + b'"\r\n#1981-12-25#\r\n'
        with open(file, "wb") as huge:
            huge.write(b"32767\r\n")
            for _ in range(32767 // 1000):
                huge.write(member * 1000)
            huge.write(member * (32767 % 1000))
            huge.write(support.system([]).split(b"\r\n", 1)[1])
        self.assertEqual(self.open(file, LIMITS), (32767, 10000))


if __name__ == "__main__":
    BUILD = support.within_reach(support.build_folder(), "quor", "robustness_driver")
    INSTRUMENTED = "--instrumented" in sys.argv
    support.main(lambda tests, bad, skipped: f"{support.tried.get('files', 0)} files that are not "
                 f"what they should be, {bad} tests wrong, {skipped} skipped")

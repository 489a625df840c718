#!/usr/bin/env python3
"""What happens to files that cannot be written: the message or log line that is due, the old file
whole, nothing left beside it, and the program goes on.

Usage: test_write_faults.py [BUILD]

BUILD, else build/release, holds quor, quor-render and robustness_driver. Every kind of file that the
program writes meets every way of not being written.
"""

import contextlib
import os
import pathlib
import re
import shutil
import subprocess
import sys

import support
from support import Place, Waiting, count, listing

BUILD = pathlib.Path()
OLD = support.person("Vecchia Persona")
MEMBERS = 400  # beyond what is written in one go
OLD_SYSTEM = support.system([f"Membro numero {i}" for i in range(MEMBERS)])
NAMES = {"bio": "persona.bio", "brs": "sistema.brs"}


class Fault:
    """A way in which a file in a folder cannot be written."""
    name = ""
    nobody = False  # whom a folder can refuse

    def __init__(self, test, folder, file):
        self.test, self.folder, self.file = test, folder, file

    def prepare(self):
        """Before the program looks at the folder."""

    def limit(self):
        """In the program's process."""

    def strike(self):
        """When the program is about to write."""

    def heal(self):
        pass

    def unmount(self):
        support.unmount(self.folder)


class FullDisk(Fault):
    """Not a byte is left, though a file can still be made."""
    name = "full disk"
    room = 0

    def prepare(self):
        if not support.may_mount():
            self.test.skipTest("no file system can be mounted here")
        support.mount("-t", "tmpfs", "-o", "size=256k,mode=0777", "none", self.folder)
        self.test.addCleanup(self.unmount)

    def strike(self):
        with contextlib.suppress(OSError), open(self.folder / "filler", "wb", 0) as filler:
            while filler.write(b"x" * 4096):
                pass
        if self.room:
            os.truncate(self.folder / "filler",
                        (self.folder / "filler").stat().st_size - self.room)

    def heal(self):
        (self.folder / "filler").unlink(missing_ok=True)


class NearlyFullDisk(FullDisk):
    """The first piece of a longer file still finds room."""
    name = "disk that fills up"
    room = 4096


class ReadOnlyDisk(FullDisk):
    name = "read-only file system"

    def strike(self):
        support.mount("-o", "remount,bind,ro", self.folder)

    def heal(self):
        support.mount("-o", "remount,bind,rw", self.folder)


class SizeLimit(Fault):
    """The limit lies within the file, and the signal that comes with it is as the system has it."""
    name = "file-size limit"

    def limit(self):
        support.file_size_limit(20)()


class ReadOnlyFolder(Fault):
    name = "read-only folder"
    nobody = True

    def strike(self):
        self.file.parent.chmod(0o555)

    def heal(self):
        self.file.parent.chmod(0o777)


class VanishedFolder(Fault):
    name = "vanished folder"

    def strike(self):
        self.folder.rename(self.folder.with_name("gone"))

    def heal(self):
        self.folder.with_name("gone").rename(self.folder)


class RefusedRename(Fault):
    """The folder lets a new file in, but not in the place of somebody else's."""
    name = "refused rename (sticky folder)"
    nobody = True

    def strike(self):
        self.folder.chmod(0o1777)
        os.chown(self.folder, 0, 0)
        for file in self.folder.rglob("*"):
            if file.is_file():
                os.chown(file, 0, 0)
                file.chmod(0o666)

    def heal(self):
        self.folder.chmod(0o777)


class MountedFile(Fault):
    """Nothing takes the place of a file that something is mounted on."""
    name = "refused rename (mounted file)"

    def strike(self):
        if not support.may_mount():
            self.test.skipTest("no file can be mounted here")
        support.mount("--bind", self.file, self.file)
        self.test.addCleanup(subprocess.run, ["umount", "--lazy", str(self.file)],
                             capture_output=True, check=False)

    def heal(self):
        support.unmount(self.file)


FAULTS = [FullDisk, ReadOnlyDisk, SizeLimit, ReadOnlyFolder, VanishedFolder, RefusedRename,
          MountedFile]


def bytes_under(folder):
    content = listing(folder)
    return content and {name: data for name, data in content.items() if name != "filler"}


class WriteFaultsTest(Place):

    def each(self, faults, old_file, work):
        """`work` with a folder that holds the old file, for each of the faults."""
        for fault_class in faults:
            with self.subTest(fault=fault_class.name):
                if fault_class.nobody and not support.is_really_root():
                    self.skipTest("only root can become another user")
                folder = self.folder / fault_class.__name__ / "files"
                folder.mkdir(parents=True)
                file = folder / old_file[0]
                fault = fault_class(self, folder, file)
                fault.prepare()
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_bytes(old_file[1])
                if fault.nobody:
                    for path in (folder.parent, folder, file, file.parent):
                        os.chown(path, support.NOBODY, support.NOBODY)
                if os.geteuid() == 0:
                    owner = support.NOBODY if fault.nobody else 0
                    for path in (*self.home.rglob("*"), self.home):
                        os.chown(path, owner, owner)

                def start(fault=fault):
                    fault.limit()
                    if fault.nobody:
                        support.become_nobody()
                work(fault, start)
                count("faults")

    def assert_untouched(self, fault, before):
        after = bytes_under(fault.folder)
        self.assertEqual(sorted(after), sorted(before), "something was left, or is gone")
        self.assertEqual(after, before, "an old file is not whole")

    def save_document(self, kind, content, faults):
        def work(fault, start):
            driver = Waiting([BUILD / "robustness_driver", "save", fault.file], self.home, start)
            self.addCleanup(driver.process.kill)
            driver.wait_ready()
            before = bytes_under(fault.folder)
            fault.strike()
            lines, status, errors = driver.go_on()
            fault.heal()
            message = f'box Errore|Errore imprevisto: il file "{fault.file}" non è stato salvato.'
            self.assertEqual(lines[0].split("\\n")[0], message)
            self.assertRegex(lines[0], r"salvato\.\\n\S.+", "the reason is missing")
            self.assertNotIn("Unknown error", lines[0])
            self.assertEqual((lines[1:], status, errors), (["modified"], 0, ""))
            self.assert_untouched(fault, before)
        self.each(faults, (NAMES[kind], content), work)

    def test_biorhythm(self):
        self.save_document("bio", OLD, FAULTS)

    def test_what_is_no_file(self):
        """Nothing takes the place of a pipe."""
        for name in NAMES.values():
            file = self.folder / name
            file.write_bytes(OLD if name.endswith("bio") else OLD_SYSTEM)
            driver = Waiting([BUILD / "robustness_driver", "save", file], self.home)
            self.addCleanup(driver.process.kill)
            driver.wait_ready()
            file.unlink()
            os.mkfifo(file)
            lines, status, errors = driver.go_on()
            self.assertEqual((status, errors, lines[1:]), (0, "", ["modified"]))
            self.assertIn(f'il file "{file}" non è stato salvato.\\nNon è un file', lines[0])
            self.assertTrue(file.is_fifo())
            count("faults")

    def test_system(self):
        self.save_document("brs", OLD_SYSTEM, [*FAULTS, NearlyFullDisk])

    def test_settings(self):
        """Nothing is said: the window comes again, as it did."""
        old = b"[Options]\nFastStart=TRUE\n; " + b"a hand's own line " * 20 + b"\n"

        def work(fault, start):
            home = self.home
            config = home / "config"
            if config.is_symlink():
                config.unlink()
            else:
                config.rmdir()
            config.symlink_to(fault.folder)
            driver = Waiting([BUILD / "robustness_driver", "setting", "FALSE"], home, start)
            self.addCleanup(driver.process.kill)
            driver.wait_ready()
            before = bytes_under(fault.folder)
            fault.strike()
            self.assertEqual(driver.go_on(), (["refused"], 0, ""))
            fault.heal()
            self.assert_untouched(fault, before)
        # A folder that is not there is made: there is no old file to lose then.
        self.each([fault for fault in FAULTS if fault is not VanishedFolder], ("quor.ini", old),
                  work)

    def test_state(self):
        """Nothing is said: it is only memory."""
        old = "".join(f"File{i}=/casa/{'lungo' * 40}{i}.bio\n" for i in range(8))
        old = f"[Frame]\nPlace=\n\n[RecentBiorhythms]\n{old}\n[RecentSystems]\n".encode()

        def work(fault, start):
            state = self.home / "state"
            if state.is_symlink():
                state.unlink()
            else:
                state.rmdir()
            state.symlink_to(fault.folder)
            driver = Waiting([BUILD / "robustness_driver", "state", "/casa/nuovo.bio"], self.home,
                             start)
            self.addCleanup(driver.process.kill)
            driver.wait_ready()
            before = bytes_under(fault.folder)
            fault.strike()
            self.assertEqual(driver.go_on(), ([], 0, ""))
            fault.heal()
            self.assert_untouched(fault, before)
        self.each([fault for fault in FAULTS if fault not in (VanishedFolder, RefusedRename)],
                  ("quor/stato.ini", old), work)

    def test_recovery(self):
        """Nothing is said: there is nothing the user could do about it. No part of it is left."""
        source = self.folder / "persona.bio"
        source.write_bytes(OLD)
        source.chmod(0o644)

        def work(fault, start):
            state = self.home / "state"
            if state.is_symlink():
                state.unlink()
            else:
                state.rmdir()
            state.symlink_to(fault.folder)
            driver = Waiting([BUILD / "robustness_driver", "keep", source], self.home, start)
            self.addCleanup(driver.process.kill)
            driver.wait_ready()
            fault.strike()
            self.assertEqual(driver.go_on(), (["kept"], 0, ""))
            fault.heal()
            left = [name for name in bytes_under(fault.folder)
                    if name.startswith("quor/recupero/") and not name.endswith(".lock")]
            self.assertEqual(left, [])
            self.assertEqual(source.read_bytes(), OLD)
        self.each([FullDisk, ReadOnlyDisk, SizeLimit, ReadOnlyFolder], ("quor/altro", b""), work)


class OtherFilesTest(WriteFaultsTest):
    # Of the other class only the steps are wanted.
    test_biorhythm = test_system = test_what_is_no_file = None
    test_settings = test_state = test_recovery = None

    PRODUCTS = ["grafico.png", *(f"StatoSettimana{i}.png" for i in range(4)), "Riepilogo.html"]

    def person(self):
        source = self.folder / "persona.bio"
        source.write_bytes(OLD)
        source.chmod(0o644)
        return source


class ProductsTest(OtherFilesTest):
    """Pictures, pages and reports: the program without a window, and the window of exports."""

    def export(self, source, folder, start=None):
        return subprocess.run(
            [str(BUILD / "quor"), "--export", str(source), "--output", str(folder)], text=True,
            env=support.environment(self.home), preexec_fn=start, capture_output=True, timeout=60,
            check=False)

    def test_export(self):
        source = self.person()
        old = {f"persona_21-11-2026_{product}": b"vecchio " + product.encode() * 600
               for product in self.PRODUCTS}

        def work(fault, start):
            for name, content in old.items():
                (fault.folder / name).write_bytes(content)
                if fault.nobody:
                    os.chown(fault.folder / name, support.NOBODY, support.NOBODY)
            before = bytes_under(fault.folder)
            fault.strike()
            result = self.export(source, fault.folder, start)
            fault.heal()
            self.assertEqual((result.returncode, result.stdout), (1, ""))
            *failures, total = result.stderr.splitlines()
            self.assertEqual(total, "quor: 6 errori rilevati!")
            for failure, product in zip(failures, self.PRODUCTS, strict=True):
                self.assertRegex(failure, f"{product}: Errore: (creazione del file impossibile"
                                 "|inizializzazione dell'header dell'immagine"
                                 "|creazione dell'immagine impossibile)$")
            self.assert_untouched(fault, before)
        # A folder that is not there is made, and one product that is mounted is not all.
        self.each([FullDisk, ReadOnlyDisk, SizeLimit, ReadOnlyFolder, RefusedRename],
                  ("altro", b"altro"), work)

    def test_window_of_exports(self):
        """Each product has its line in the log, and a box tells the sum."""
        source = self.person()

        def work(fault, start):
            name = "persona_21-11-2026_grafico.png"
            (fault.folder / name).write_bytes(b"vecchio")
            if fault.nobody:
                os.chown(fault.folder / name, support.NOBODY, support.NOBODY)
            driver = Waiting([BUILD / "robustness_driver", "export", source, fault.folder],
                             self.home, start)
            self.addCleanup(driver.process.kill)
            driver.wait_ready()
            before = bytes_under(fault.folder)
            fault.strike()
            lines, status, errors = driver.go_on()
            fault.heal()
            self.assertEqual((status, errors), (0, ""))
            log = [line for line in lines if line.startswith("log ")]
            products = [line for line in log if " --> " in line]
            self.assertEqual(len(products), 6, lines)
            for line in products:
                self.assertRegex(line, " --> Errore: (creazione del file impossibile"
                                 "|inizializzazione dell'header dell'immagine"
                                 "|creazione dell'immagine impossibile)$")
            self.assertEqual([line for line in lines if line.startswith("box ")],
                             ["box Quor|6 errori rilevati!"])
            self.assertEqual(lines[-1], "goes on")
            self.assert_untouched(fault, before)
        self.each([FullDisk, ReadOnlyDisk, SizeLimit, ReadOnlyFolder, VanishedFolder], ("altro", b"altro"),
                  work)

    def test_export_where_one_product_is_refused(self):
        source = self.person()
        name = "persona_21-11-2026_StatoSettimana2.png"

        def work(fault, start):
            fault.strike()
            result = self.export(source, fault.folder, start)
            self.assertEqual(result.returncode, 1)
            self.assertEqual(len(result.stdout.splitlines()), 5)
            self.assertEqual(result.stderr.splitlines(), [
                f"{fault.folder}/{name}: Errore: creazione dell'immagine impossibile",
                "quor: 1 errori rilevati!"])
            fault.heal()
            self.assertEqual(fault.file.read_bytes(), b"vecchio")
            self.assertEqual(len(os.listdir(fault.folder)), 6)
        self.each([MountedFile], (name, b"vecchio"), work)

    def test_report(self):
        source = self.person()

        def work(fault, start):
            before = bytes_under(fault.folder)
            fault.strike()
            result = subprocess.run(
                [str(BUILD / "quor"), "--report", str(source), "--format", "csv", "--days", "2000",
                 "--output", str(fault.file)], text=True, env=support.environment(self.home),
                preexec_fn=start, capture_output=True, timeout=60, check=False)
            fault.heal()
            self.assertEqual((result.returncode, result.stdout), (1, ""))
            self.assertRegex(result.stderr, r"\Aquor: il rapporto non si può scrivere in "
                             + re.escape(str(fault.file)) + r": \S.*\n\Z")
            self.assertNotIn("Unknown error", result.stderr)
            self.assert_untouched(fault, before)
        self.each([*FAULTS, NearlyFullDisk], ("rapporto.csv", b"vecchio rapporto"), work)

    def test_export_where_a_product_is_no_file(self):
        source, out = self.person(), self.folder / "out"
        out.mkdir()
        pipes = [out / f"persona_21-11-2026_{name}" for name in ("grafico.png", "Riepilogo.html")]
        for pipe in pipes:
            os.mkfifo(pipe)
        result = self.export(source, out)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.splitlines(), [
            *(f"{pipe}: Errore: creazione del file impossibile" for pipe in pipes),
            "quor: 2 errori rilevati!"])
        self.assertTrue(all(pipe.is_fifo() for pipe in pipes))
        count("faults")

    def test_export_through_links(self):
        """Nobody has chosen the names of products, so what lies behind a link stays as it is."""
        source, out = self.person(), self.folder / "out"
        out.mkdir()
        precious = self.folder / "prezioso"
        precious.write_bytes(b"prezioso")
        links = [out / f"persona_21-11-2026_{product}" for product in self.PRODUCTS]
        for number, link in enumerate(links):
            link.symlink_to(precious if number % 2 else self.folder / "manca")
        result = self.export(source, out)
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertEqual(result.stderr.splitlines(), [
            *(f"{link}: Errore: creazione del file impossibile" for link in links),
            "quor: 6 errori rilevati!"])
        self.assertEqual(precious.read_bytes(), b"prezioso")
        self.assertFalse((self.folder / "manca").exists())
        self.assertTrue(all(link.is_symlink() for link in links))
        count("faults")

    def test_export_where_the_folder_cannot_be_made(self):
        source = self.person()
        obstacle = self.folder / "file"
        obstacle.write_bytes(b"file")
        result = self.export(source, obstacle / "folder")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (1, "", f"quor: la cartella non si può creare: {obstacle}/folder\n"))
        self.assertEqual(obstacle.read_bytes(), b"file")
        count("faults")

    def test_standard_output(self):
        """Full, closed, or left by whoever read it: said in one line, and told by the status."""
        source = self.person()
        report = "quor: il rapporto non si può scrivere sullo standard output: "
        listed = "quor: l'elenco dei file non si può scrivere sullo standard output\n"
        answer = "quor: lo standard output non si può scrivere: "
        runs = [(["--help"], answer), (["--version"], answer),
                (["--export", source, "--output", self.folder / "out"], listed),
                *((["--report", source, "--format", form], report)
                  for form in ("text", "json", "csv", "ics"))]
        reading, left = os.pipe()
        os.close(reading)
        self.addCleanup(os.close, left)
        with open("/dev/full", "wb") as full:
            for name, stream, prepare in (("full", full, None),
                                          ("closed", full, lambda: os.close(1)),
                                          ("left", left, None)):
                for arguments, complaint in runs:
                    if name == "left" and complaint == answer:
                        continue  # ended by the system, in silence, as usual
                    with self.subTest(stream=name, arguments=arguments):
                        result = subprocess.run(
                            [str(BUILD / "quor"), *map(str, arguments)], stdout=stream,
                            stderr=subprocess.PIPE, text=True, timeout=60, check=False,
                            env=support.environment(self.home), preexec_fn=prepare)
                        self.assertEqual(result.returncode, 1)
                        self.assertTrue(result.stderr.startswith(complaint), result.stderr)
                        self.assertEqual(result.stderr.count("\n"), 1)
                        count("faults")
        whole = self.export(source, self.folder / "whole")
        self.assertEqual(whole.returncode, 0)
        self.assertEqual(listing(self.folder / "out"), listing(self.folder / "whole"))

    def test_nothing_is_printed_into_a_file(self):
        """Closed streams leave their numbers to nobody."""
        source, out, whole = self.person(), self.folder / "out", self.folder / "whole"

        def close_all():
            for stream in range(3):
                os.close(stream)
        for folder, prepare in ((whole, None), (out, close_all)):
            folder.mkdir()
            for arguments in (["--export", source, "--output", folder],
                              ["--report", source, "--output", folder / "rapporto"]):
                subprocess.run([str(BUILD / "quor"), *map(str, arguments)], stdin=subprocess.DEVNULL,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=60,
                               env=support.environment(self.home), preexec_fn=prepare, check=False)
        self.assertEqual(len(listing(whole)), 7)
        self.assertEqual(listing(out), listing(whole))
        count("faults")


class ForcedTest(OtherFilesTest):
    """What takes its place has reached the disk before."""

    def steps(self, *command):
        """Runs it. @return in their order, what was forced onto the disk and what took its place"""
        if not support.can_trace():
            self.skipTest("strace is missing or may not look at other processes here")
        log = self.folder / "calls"
        subprocess.run(
            ["strace", "-f", "-qq", "-o", str(log), "-e",
             "trace=fsync,fdatasync,rename,renameat,renameat2,link,linkat", "-s", "5000",
             *map(str, command)], input="\n", text=True,
            env=support.environment(self.home, ASAN_OPTIONS="detect_leaks=0"),
            check=True, capture_output=True, timeout=120)
        steps = []
        for line in log.read_text(encoding="utf-8", errors="replace").splitlines():
            call = re.match(r"\d+ +(\w+)\(.*= 0$", line)
            if call and call[1].endswith("sync"):
                steps.append("forced")
            elif call:
                name = os.path.basename(re.findall(r'"([^"]*)"', line)[-1])
                if not re.search(r"\.\w{6}$", name):  # beside its place, for one that has an old file
                    steps.append(name)
        return steps

    def test_order(self):
        source, out = self.person(), self.folder / "out"
        several = self.folder / "sistema.brs"
        several.write_bytes(OLD_SYSTEM)
        driver = BUILD / "robustness_driver"
        runs = [([BUILD / "quor", "--export", source, "--output", out],
                 [f"persona_21-11-2026_{product}" for product in self.PRODUCTS]),
                ([BUILD / "quor", "--report", source, "--output", out / "rapporto"], ["rapporto"]),
                ([driver, "save", source], ["persona.bio"]),
                ([driver, "save", several], ["sistema.brs"]),
                ([driver, "setting", "FALSE"], ["quor.ini"])]
        for command, files in runs:
            for time in ("new", "again"):
                with self.subTest(command=command[1:], time=time):
                    steps = self.steps(*command)
                    for file in files:
                        place = steps.index(file)
                        self.assertEqual(steps[place - 1], "forced", steps)
                        count("forced")


class PrintedPagesTest(OtherFilesTest):
    """The program that makes pages, and printing into a file."""

    def setUp(self):
        super().setUp()
        if not (BUILD / "quor-render").is_file():
            self.skipTest("there is no engine for pages")

    def test_renderer(self):
        source, pages = self.person(), self.folder / "pages"
        subprocess.run([str(BUILD / "quor"), "--export", str(source), "--print", "--output",
                        str(pages)], env=support.environment(self.home), check=True,
                       stdout=subprocess.DEVNULL, timeout=60)
        [page] = pages.glob("*.html")

        def work(fault, start):
            before = bytes_under(fault.folder)
            fault.strike()
            result = subprocess.run(
                [str(BUILD / "quor-render"), str(page), str(fault.file)], text=True,
                env=support.environment(self.home), preexec_fn=start, capture_output=True,
                timeout=120, check=False)
            fault.heal()
            complaint = f"il file non si può scrivere: {re.escape(str(fault.file))}: \\S.*"
            status = 3
            if isinstance(fault, SizeLimit):  # which the engine itself does not get along with
                complaint, status = "la pagina non si può caricare|il motore si è interrotto", 1
            self.assertRegex(result.stderr, rf"\Aquor-render: ({complaint})\n\Z")
            self.assertNotIn("Unknown error", result.stderr)
            self.assertEqual((result.returncode, result.stdout), (status, ""))
            self.assert_untouched(fault, before)
        self.each([*FAULTS, NearlyFullDisk], ("pagine.pdf", b"%PDF- vecchio"), work)

    def print_into_file(self, faults, old, work_on, complaint):
        """`work_on` gives the folder of exports and the file that is printed, for a fault."""
        source = self.person()

        def work(fault, start):
            out, pdf = work_on(fault)
            driver = Waiting([BUILD / "robustness_driver", "print", source, out, pdf], self.home,
                             start)
            self.addCleanup(driver.process.kill)
            driver.wait_ready()
            before = bytes_under(fault.folder)
            fault.strike()
            lines, status, errors = driver.go_on()
            fault.heal()
            boxes = [line for line in lines if line.startswith("box ")]
            self.assertEqual(len(boxes), 1, lines)
            self.assertRegex(boxes[0], complaint(fault))
            self.assertEqual((lines[-1], status, errors), ("goes on", 0, ""))
            self.assert_untouched(fault, before)
        self.each(faults, old, work)

    def own_folder(self, name):
        folder = self.home / name
        folder.mkdir(exist_ok=True)
        shutil.chown(folder, self.home.stat().st_uid, self.home.stat().st_gid)
        return folder

    def test_file(self):
        self.print_into_file(
            [FullDisk, NearlyFullDisk, ReadOnlyDisk, ReadOnlyFolder, VanishedFolder, RefusedRename,
             MountedFile], ("pagine.pdf", b"%PDF- vecchio"),
            lambda fault: (self.own_folder("out"), fault.file),
            lambda fault: "^box Stampa\\|Impossibile scrivere il file "
                          f'"{re.escape(str(fault.file))}"\\.$')

    def test_folder_of_exports(self):
        self.print_into_file(
            [FullDisk, ReadOnlyDisk, SizeLimit, ReadOnlyFolder, VanishedFolder],
            ("altro", b"altro"),
            lambda fault: (fault.folder, self.own_folder("pdf") / "pagine.pdf"),
            lambda fault: r"^box Avviso\|La stampa è stata interrotta\.")
        self.assertEqual(listing(self.home / "pdf"), {})

    def test_temporary_folder(self):
        def work_on(fault):
            temporary = self.home / "tmp"
            if temporary.is_symlink():
                temporary.unlink()
            else:
                temporary.rmdir()
            temporary.symlink_to(fault.folder)
            return self.own_folder("out"), self.own_folder("pdf") / "pagine.pdf"
        self.print_into_file(
            [FullDisk, ReadOnlyDisk, ReadOnlyFolder, VanishedFolder], ("altro", b"altro"), work_on,
            lambda fault: r"^box Errore\|Non si può creare una cartella temporanea"
                          if isinstance(fault, VanishedFolder) else
                          r"^box Errore\|(Non si può creare una cartella temporanea"
                          r"|Le pagine non si possono scrivere nella cartella temporanea"
                          r"|La pagina da stampare manca|Il programma che prepara le pagine)")
        self.assertEqual(listing(self.home / "pdf"), {})


if __name__ == "__main__":
    support.enter_own_mounts()
    BUILD = support.within_reach(support.build_folder(), "quor", "quor-paper.so", "quor-render",
                                 "robustness_driver")
    support.main(lambda tests, bad, skipped: f"{support.tried.get('faults', 0)} faults while "
                 f"writing, {bad} wrong, {skipped} tests skipped")

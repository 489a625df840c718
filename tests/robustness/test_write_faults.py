"""What happens to files that cannot be written: the message or log line that is due, the old file
whole, nothing left beside it, and the program goes on.

Usage: test_write_faults.py BUILD

BUILD holds quor and robustness_driver. Every kind of file that the program writes meets every way of
not being written.
"""

import contextlib
import os
import pathlib
import re
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
                    for path in (folder.parent, *self.home.rglob("*"), self.home, folder, file,
                                 file.parent):
                        os.chown(path, support.NOBODY, support.NOBODY)

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


class ProductsTest(WriteFaultsTest):
    """Pictures, pages and reports: the program without a window."""

    PRODUCTS = ["grafico.png", *(f"StatoSettimana{i}.png" for i in range(4)), "Riepilogo.html"]

    # Of the other class only the steps are wanted.
    test_biorhythm = test_system = test_what_is_no_file = None
    test_settings = test_state = test_recovery = None

    def export(self, source, folder, start=None):
        return subprocess.run(
            [str(BUILD / "quor"), "--export", str(source), "--output", str(folder)], text=True,
            env=support.environment(self.home), preexec_fn=start, capture_output=True, timeout=60,
            check=False)

    def test_export(self):
        source = self.folder / "persona.bio"
        source.write_bytes(OLD)
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

    def test_export_where_one_product_is_refused(self):
        source = self.folder / "persona.bio"
        source.write_bytes(OLD)
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
        source = self.folder / "persona.bio"
        source.write_bytes(OLD)
        source.chmod(0o644)

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
            self.assert_untouched(fault, before)
        self.each([*FAULTS, NearlyFullDisk], ("rapporto.csv", b"vecchio rapporto"), work)

    def test_export_where_a_product_is_no_file(self):
        source, out = self.folder / "persona.bio", self.folder / "out"
        source.write_bytes(OLD)
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

    def test_export_where_the_folder_cannot_be_made(self):
        source = self.folder / "persona.bio"
        source.write_bytes(OLD)
        obstacle = self.folder / "file"
        obstacle.write_bytes(b"file")
        result = self.export(source, obstacle / "folder")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (1, "", f"quor: la cartella non si può creare: {obstacle}/folder\n"))
        self.assertEqual(obstacle.read_bytes(), b"file")
        count("faults")


if __name__ == "__main__":
    support.enter_own_mounts()
    BUILD = support.within_reach(sys.argv[1], "quor", "robustness_driver")
    support.main(lambda tests, bad, skipped: f"{support.tried.get('faults', 0)} faults while "
                 f"writing, {bad} wrong, {skipped} tests skipped")

"""The program's export without a window, from the command line to the files on the disk.

Usage: test_batch.py QUOR EXAMPLES
"""

import datetime
import os
import pathlib
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

import page_reference

QUOR = EXAMPLES = pathlib.Path()
OK = "Operazione eseguita correttamente"
PRODUCTS = ["grafico.png", *(f"StatoSettimana{i}.png" for i in range(4)), "Riepilogo.html"]
NOBODY = 65534


def run(*arguments, home, quor=None, **options):
    """The program on a machine without a display, in Italian."""
    environment = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "HOME": str(home)}
    return subprocess.run([str(quor or QUOR), *map(str, arguments)], env=environment, text=True,
                          capture_output=True, timeout=120, check=False, **options)


def lines_of(file):
    return pathlib.Path(file).read_bytes().decode("cp1252").split("\r\n")


def read_person(file):
    """Name, birth, calculation date."""
    name, birth, calculation = lines_of(file)[:3]
    return name.strip('"'), birth.strip("#"), calculation.strip("#")


def read_system(file):
    """Names with births; calculation date."""
    count, *lines = lines_of(file)
    members = [(lines[2 * i].strip('"'), lines[2 * i + 1].strip("#")) for i in range(int(count))]
    return members, lines[2 * int(count)].strip("#")


class BatchTest(unittest.TestCase):

    def setUp(self):
        page_reference.TODAY = datetime.date.today().isoformat()
        self.home = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.output = self.home / "out"

    def assert_products(self, result, persons, for_print=False):
        """Six files for each person, in order, and each page as a second hand writes it.

        `persons` are tuples of the name, the birth, the calculation date and the files' base.
        """
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        expected = []
        for name, birth, calculation, base in persons:
            person = (name, birth, calculation, 0, page_reference.CURVES, page_reference.WEEK, "",
                      base, name)
            prefix = page_reference.prefix(person, for_print)
            expected += [prefix + product for product in PRODUCTS]
            page = (self.output / (prefix + "Riepilogo.html")).read_bytes()
            self.assertEqual(page, page_reference.page(person, for_print, True, True))
        self.assertEqual(sorted(os.listdir(self.output)), sorted(expected))
        self.assertEqual(result.stdout.splitlines(), [
            f"{self.output}/{file}: " + ("Operazione completata" if file.endswith("html") else OK)
            for file in expected])

    def test_person(self):
        file = EXAMPLES / "Giulia Ferraro.bio"
        name, birth, calculation = read_person(file)
        result = run("--export", file, "--output", self.output, home=self.home)
        self.assert_products(result, [(name, birth, calculation, file.stem)])

    def test_after_an_option_of_the_toolkit(self):
        file = EXAMPLES / "Giulia Ferraro.bio"
        name, birth, calculation = read_person(file)
        result = run("-platform", "offscreen", "--export", file, "--output", self.output,
                     home=self.home)
        self.assert_products(result, [(name, birth, calculation, file.stem)])

    def test_another_date_for_print(self):
        file = EXAMPLES / "Giulia Ferraro.bio"
        name, birth, _ = read_person(file)
        result = run("--export", file, "--print", "--date", "13 Nov 1945", "--output",
                     self.output, home=self.home)
        self.assert_products(result, [(name, birth, "1945-11-13", file.stem)], for_print=True)

    def test_system(self):
        [file] = EXAMPLES.glob("*.brs")
        members, calculation = read_system(file)
        self.assertEqual(len(members), 12)
        result = run("--export", file, "--output", self.output, home=self.home)
        self.assert_products(result, [(name, birth, calculation, f"{file.stem}_{name}")
                                      for name, birth in members])

    def test_names_that_files_cannot_bear(self):
        """One file each, also where upper and lower case are the same."""
        members = ["A/B", "A:B", "Anna", "anna", "Anna"]
        file = self.home / "Casa.brs"
        lines = [str(len(members))]
        for number, name in enumerate(members):
            lines += [f'"{name}"', f"#{1950 + number}-07-30#"]
        file.write_bytes("\r\n".join([*lines, "#2004-03-15#", ""]).encode())
        result = run("--export", file, "--output", self.output, home=self.home)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(len({name.casefold() for name in os.listdir(self.output)}), 5 * 6)
        self.assertEqual(len(set(result.stdout.splitlines())), 5 * 6)

    def test_folder_of_the_program(self):
        """Without --output the files go where the export window puts them."""
        program = self.home / "programma" / "quor"
        program.parent.mkdir()
        shutil.copy(QUOR, program)
        self.output = program.parent / "UserFiles" / "Esportazioni"
        file = EXAMPLES / "Giulia Ferraro.bio"
        name, birth, calculation = read_person(file)
        result = run("--export", file, home=self.home, quor=program)
        self.assert_products(result, [(name, birth, calculation, file.stem)])

    def assert_every_product_failed(self, result, file, count=6):
        """Each of them named, none left behind, none left out."""
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        *failures, total = result.stderr.splitlines()
        self.assertEqual(len(failures), count)
        for failure, product in zip(failures, PRODUCTS * (count // 6), strict=True):
            self.assertIn(product + ": Errore: ", failure)
        self.assertEqual(total, f"quor: {count} errori rilevati!")
        self.assertEqual(os.listdir(self.output), [], file)

    def test_full_disk(self):
        def no_room():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (0, 0))

        [system] = EXAMPLES.glob("*.brs")
        self.output.mkdir()
        for file, count in ((EXAMPLES / "Giulia Ferraro.bio", 6), (system, 72)):
            result = run("--export", file, "--output", self.output, home=self.home,
                         preexec_fn=no_room)
            self.assert_every_product_failed(result, file, count)

    def test_read_only_folder(self):
        def become_nobody():
            if os.geteuid() == 0:  # whom no folder refuses
                os.setgid(NOBODY)
                os.setuid(NOBODY)

        # Where anybody may read.
        self.home.chmod(0o755)
        self.output.mkdir(mode=0o555)
        program = self.home / "quor"
        shutil.copy(QUOR, program)
        file = self.home / "Giulia Ferraro.bio"
        shutil.copy(EXAMPLES / "Giulia Ferraro.bio", file)
        result = run("--export", file, "--output", self.output, home=self.home, quor=program,
                     preexec_fn=become_nobody)
        self.assert_every_product_failed(result, file)

    def test_what_cannot_be_read(self):
        for file, complaint in (("manca.bio", "il file non esiste: manca.bio"),
                                ("/dev/null", "il file non è né un bioritmo (.bio) né un sistema "
                                              "(.brs): /dev/null")):
            result = run("--export", file, "--output", self.output, home=self.home)
            self.assertEqual((result.returncode, result.stdout, result.stderr),
                             (1, "", f"quor: {complaint}\n"))


if __name__ == "__main__":
    QUOR, EXAMPLES = map(pathlib.Path, sys.argv[1:3])
    unittest.main(argv=sys.argv[:1], verbosity=2)

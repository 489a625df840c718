"""The program's reports, from the command line to the bytes that arrive.

Usage: test_report.py QUOR EXAMPLES SCHEMA
"""

import csv
import datetime
import io
import json
import os
import pathlib
import random
import resource
import signal
import stat
import subprocess
import sys
import tempfile
import unittest

import jsonschema
import report_reference as reference

QUOR = EXAMPLES = pathlib.Path()
SCHEMA = {}
OPTIONS = "2\r\n0\r\n16711680\r\n255\r\n65280\r\n65535\r\n255\r\n65280\r\n65535\r\n"
DAY = datetime.timedelta(1)


def run(*arguments, locale="C.UTF-8", stdout=subprocess.PIPE, **options):
    """The program on a machine without a display."""
    environment = {"PATH": os.environ["PATH"], "LC_ALL": locale, "HOME": "/nonexistent"}
    return subprocess.run([str(QUOR), *map(str, arguments)], env=environment, stdout=stdout,
                          stderr=subprocess.PIPE, timeout=120, check=False, **options)


def date(text):
    return datetime.date.fromisoformat(text.strip("#"))


def read_person(file):
    """Name, birth, calculation date."""
    name, birth, calculation = file.read_bytes().decode("cp1252").split("\r\n")[:3]
    return name.strip('"'), date(birth), date(calculation)


def read_system(file):
    """Names with births; calculation date."""
    count, *lines = file.read_bytes().decode("cp1252").split("\r\n")
    members = [(lines[2 * i].strip('"'), date(lines[2 * i + 1])) for i in range(int(count))]
    return members, date(lines[2 * int(count)])


def random_date(chance, first=1, last=9999):
    return datetime.date.fromordinal(chance.randint(
        datetime.date(max(first, 100), 1, 1).toordinal(), datetime.date(last, 12, 31).toordinal()))


def events_of(calendar):
    """Days and summaries, and the identifiers, of unfolded lines."""
    text = calendar.decode().replace("\r\n ", "")
    events, uids = [], []
    for line in text.split("\r\n"):
        if line.startswith("DTSTART;VALUE=DATE:"):
            day = datetime.datetime.strptime(line.partition(":")[2], "%Y%m%d").date()
        elif line.startswith("SUMMARY:"):
            events.append((day, line.partition(": ")[2]))
        elif line.startswith("UID:"):
            uids.append(line[4:])
    return events, uids


class ReportTest(unittest.TestCase):

    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.person = EXAMPLES / "Giulia Ferraro.bio"
        [self.system] = EXAMPLES.glob("*.brs")

    def write_person(self, name, birth, calculation, file="a.bio"):
        path = self.folder / file
        path.write_bytes(f'"{name}"\r\n#{birth}#\r\n#{calculation}#\r\n{OPTIONS}'.encode("cp1252"))
        return path

    def write_system(self, members, calculation, file="a.brs"):
        path = self.folder / file
        text = "".join(f'"{name}"\r\n#{birth}#\r\n' for name, birth in members)
        path.write_bytes(f"{len(members)}\r\n{text}#{calculation}#\r\n{OPTIONS}".encode("cp1252"))
        return path

    def report(self, *arguments, **options):
        result = run("--report", *arguments, **options)
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        return result.stdout

    def json_report(self, *arguments):
        """Read back, the numbers as they are written; it keeps to the schema."""
        text = self.report(*arguments, "--format", "json").decode()

        def number(written):
            value = float(written)
            self.assertEqual(written, reference.text_of_number(value))
            return value

        report = json.loads(text, parse_float=number)
        checked = report
        if pairs := report.get("sistema", {}).get("compatibilita"):
            # Half a million pairs are alike; the schema need not see all of them.
            system = {**report["sistema"], "compatibilita": pairs[:100] + pairs[-100:]}
            checked = {**report, "sistema": system}
        jsonschema.Draft202012Validator(SCHEMA).validate(checked)
        return report

    def assert_fault(self, status, line, *arguments, **options):
        result = run(*arguments, **options)
        self.assertEqual((result.stdout or b"", result.stderr.decode(), result.returncode),
                         (b"", line, status))

    # ---- numbers

    def test_json_of_samples(self):
        name, birth, calculation = read_person(self.person)
        self.assertEqual(self.json_report(self.person), reference.report(
            "persona", reference.person(name, birth, calculation), calculation))
        members, calculation = read_system(self.system)
        self.assertEqual(self.json_report(self.system), reference.report(
            "sistema", reference.system(self.system.stem, members, calculation), calculation))

    def test_json_of_a_thousand_persons(self):
        """As members of a system, so that their means and pairs are tried, too; and some alone."""
        chance = random.Random(20261121)
        calculation = datetime.date(2026, 11, 21)
        members = [(f"Persona {i}", random_date(chance, 1600, 2300)) for i in range(1000)]
        found = self.json_report(self.write_system(members, calculation))
        horizon = 60  # the mean of a thousand never comes near an extreme
        expected = reference.report(
            "sistema", reference.system("a", members, calculation, horizon), calculation)
        self.assertIsNone(found["sistema"]["media"]["previsioni"]["massimo"])
        for ours, theirs in zip(found["sistema"]["persone"], expected["sistema"]["persone"],
                                strict=True):
            self.assertEqual(ours, theirs)
        self.assertEqual(found, expected)

        for _ in range(100):
            birth, calculation = random_date(chance), random_date(chance)
            found = self.json_report(self.write_person("Anna", birth, calculation))
            self.assertEqual(found, reference.report(
                "persona", reference.person("Anna", birth, calculation), calculation))

    def test_small_systems(self):
        chance = random.Random(7)
        for count in (1, 1, 2, 2, 3, 5):
            calculation = random_date(chance, 1900, 2100)
            members = [(f"P{i}", random_date(chance, 1900, 2030)) for i in range(count)]
            self.assertEqual(self.json_report(self.write_system(members, calculation)),
                             reference.report("sistema", reference.system(
                                 "a", members, calculation), calculation))

    def test_csv(self):
        name, birth, calculation = read_person(self.person)
        text = self.report(self.person, "--format", "csv").decode("ascii")
        expected = reference.table([(calculation - birth).days], calculation, 365, False)
        self.assertEqual(text, "".join(line + "\r\n" for line in expected))
        rows = list(csv.DictReader(io.StringIO(text, newline="")))
        self.assertEqual((len(rows), rows[0]["data"]), (365, calculation.isoformat()))

        # Across a birth, and with members born within the days.
        members = [("A", calculation + 40 * DAY), ("B", calculation - 9000 * DAY), ("C", birth)]
        file = self.write_system(members, calculation)
        text = self.report(file, "--days", 100, "--format", "csv")
        expected = reference.table([(calculation - born).days for _, born in members], calculation,
                                   100, True)
        self.assertEqual(text.decode().split("\r\n"), [*expected, ""])
        file = self.write_person(name, calculation + 30 * DAY, calculation)
        text = self.report(file, "--format", "csv", "--days", "22000").decode()
        self.assertEqual(text.split("\r\n"),
                         [*reference.table([-30], calculation, 22000, False), ""])

    def test_ics(self):
        _, birth, calculation = read_person(self.person)
        events, uids = events_of(self.report(self.person, "--format", "ics", "--days", 3000))
        expected = reference.calendar([(calculation - birth).days], calculation, 3000, False)
        self.assertEqual(events, expected)
        self.assertEqual(len(set(uids)), len(expected))
        self.assertEqual(len({kind for _, kind in events}), 6)
        # The events of another span are the same ones.
        moved = self.report(self.person, "--format", "ics", "--date",
                            (calculation + 100 * DAY).isoformat())
        both = dict(zip(events, uids))
        again, again_uids = events_of(moved)
        self.assertGreater(len(again), 60)
        self.assertEqual([both[event] for event in again], again_uids)

        members, calculation = read_system(self.system)
        events, _ = events_of(self.report(self.system, "--format", "ics"))
        self.assertEqual(events, reference.calendar(
            [(calculation - born).days for _, born in members], calculation, 365, True))

    def test_text(self):
        text = self.report(self.person).decode()
        for part in ("Bioritmo di Giulia Ferraro", "domenica 8 luglio 1990",
                     "sabato 21 novembre 2026", "Stato fisico:        -6 ↓      ██████│",
                     "venerdì 4 dicembre 2026  tra 13 giorni"):
            self.assertIn(part, text)
        text = self.report(self.system).decode()
        members, _ = read_system(self.system)
        for name, birth in members:
            self.assertIn(f"{name:24}  {birth:%d/%m/%Y}", text)
        self.assertIn("Prossimo massimo (Media = 9):    Mai", text)
        self.assertIn("Maria Luisa Però        Elena Rossi              89,28", text)
        self.assertLessEqual(max(map(len, text.splitlines())), 80)
        self.assertEqual(text, "\n".join(line.rstrip() for line in text.split("\n")))

    def test_terminals(self):
        file = EXAMPLES / "Niccolò D'Amico.bio"
        text = self.report(file, locale="C").decode("ascii")
        self.assertIn("Bioritmo di Niccolo D'Amico", text)
        self.assertIn("Stato emotivo:       -6 v      ######|", text)
        # A file is UTF-8, whatever the terminal has; and so is JSON.
        output = self.folder / "rapporto.txt"
        self.report(file, "--output", output, locale="C")
        self.assertEqual(output.read_bytes(), self.report(file))
        self.assertIn("Niccolò", self.report(file, "--format", "json", locale="C").decode())

    # ---- what a file may hold

    def test_date(self):
        _, birth, _ = read_person(self.person)
        for typed, day in (("13 nov 1945", "1945-11-13"), ("25/12/2026", "2026-12-25"),
                           ("OGGI", datetime.date.today().isoformat())):
            found = self.json_report(self.person, "--date", typed)
            self.assertEqual(found["dataDiCalcolo"], day)
            self.assertEqual(found["persona"]["giorni"], (date(day) - birth).days)

    def test_missing_dates(self):
        file = self.write_person("Anna", "1990-01-01", "1899-12-30")
        self.assert_fault(1, f"quor: il file non ha una data di calcolo, indicarla con --date: {file}\n",
                          "--report", file)
        self.report(file, "--date", "2020-01-01")
        # As in the windows: a damaged calculation date is today, a member's damaged birth the day 0.
        (self.folder / "b.bio").write_bytes(b'"Anna"\r\n#1990-01-01#\r\ny\r\n')
        found = self.json_report(self.folder / "b.bio")
        self.assertEqual(found["dataDiCalcolo"], datetime.date.today().isoformat())
        (self.folder / "b.brs").write_bytes(
            b'2\r\n"Anna"\r\n#1990-01-01#\r\n"Bea"\r\nx\r\n#2020-01-01#\r\n')
        found = self.json_report(self.folder / "b.brs")
        self.assertEqual([member["dataDiNascita"] for member in found["sistema"]["persone"]],
                         ["1990-01-01", "1899-12-30"])

    def test_names_are_no_commands(self):
        file = self.write_person("\x1b]0;x\x07@31m,;\\ è", "1990-01-01", "2026-01-01")
        file.write_bytes(file.read_bytes().replace(b"@", b"\x81"))  # one beyond ASCII
        shown = "?]0;x??31m,;\\ è"
        text = self.report(file)
        self.assertIn(f"Bioritmo di {shown}\n", text.decode())
        self.assertEqual(self.json_report(file)["persona"]["nome"],
                         "\x1b]0;x\x07\x8131m,;\\ è")
        self.assertNotIn(b"\x1b", self.report(file, "--format", "json"))
        calendar = self.report(file, "--format", "ics").decode()
        self.assertIn("SUMMARY:?]0\\;x??31m\\,\\;\\\\ è: ", calendar)
        self.assertNotIn("\x1b", calendar)

    def test_end_of_the_calendar(self):
        file = self.write_person("Anna", "9990-01-01", "9999-12-01")
        for chosen in ("csv", "ics"):
            self.assert_fault(2, "quor: i giorni vanno oltre l'anno 9999: da questa data al massimo "
                                 "31\n", "--report", file, "--format", chosen, "--days", 32)
        lines = self.report(file, "--format", "csv").decode().split("\r\n")
        self.assertEqual((len(lines), lines[31][:10]), (33, "9999-12-31"))
        self.assertIsNone(self.json_report(file)["persona"]["previsioni"]["massimo"]["data"])

    def test_far_births(self):
        members = [("A", date("1800-01-01")), ("B", date("2000-01-01")), ("C", date("2000-01-15"))]
        pairs = self.json_report(self.write_system(members, "2026-01-01"))["sistema"]["compatibilita"]
        self.assertEqual([(pair["prima"], pair["seconda"]) for pair in pairs],
                         [(1, 2), (0, 1), (0, 2)])
        self.assertIsNone(pairs[2]["totale"])
        self.assertIn(" ?", self.report(self.folder / "a.brs").decode())

    def test_many_members(self):
        chance = random.Random(3)
        members = [(f"P{i}", random_date(chance, 1930, 2020)) for i in range(2001)]
        file = self.write_system(members, "2026-01-01")
        self.assertIsNone(self.json_report(file)["sistema"]["compatibilita"])
        self.assertIn("Omessa: il sistema ha più di 2000 membri.", self.report(file).decode())

    # ---- faults

    def test_wrong_use(self):
        file = self.person
        for line, arguments in (
                ("l'opzione --report vuole il nome di un file", ["--report"]),
                ("l'opzione --format vuole text, json, csv o ics: xml",
                 ["--report", file, "--format", "xml"]),
                ("l'opzione --days vuole un numero da 1 a 100000: 0",
                 ["--report", file, "--format", "csv", "--days", "0"]),
                ("l'opzione --days vuole un numero da 1 a 100000: 100001",
                 ["--days", "100001", "--report", file, "--format", "csv"]),
                ("l'opzione --days vale solo con --format csv o ics",
                 ["--report", file, "--days", "5"])):
            self.assert_fault(2, f"quor: {line}\nProvare: quor --help\n", *arguments)
        self.assert_fault(2, "quor: la data non è valida: 31/02/2026\n",
                          "--report", file, "--date", "31/02/2026")
        copy = self.write_person("Anna", "1990-01-01", "2026-01-01")
        before = copy.read_bytes()
        self.assert_fault(2, f"quor: il rapporto andrebbe sul file da leggere: {copy}\n",
                          "--report", copy, "--output", copy)
        self.assertEqual(copy.read_bytes(), before)

    def test_what_cannot_be_read(self):
        (self.folder / "vuoto.brs").write_bytes(b"0\r\n")
        (self.folder / "persona.bio").write_bytes(b'"Anna"\r\n1981-12-25\r\n')
        (self.folder / "cartella.bio").mkdir()
        for file, complaint in (
                ("manca.bio", "il file non esiste: manca.bio"),
                ("riga\nnuova\x1b.bio", "il file non esiste: riga?nuova?.bio"),
                ("/dev/null", "il file non è né un bioritmo (.bio) né un sistema (.brs): /dev/null"),
                (self.folder / "cartella.bio",
                 f"il file non si può leggere: {self.folder}/cartella.bio (è una cartella)"),
                (self.folder / "persona.bio",
                 f"il file non si può leggere: {self.folder}/persona.bio (la data di nascita, alla "
                 "riga 2, manca o è danneggiata)"),
                (self.folder / "vuoto.brs",
                 f"il sistema non contiene nessuna persona: {self.folder}/vuoto.brs")):
            self.assert_fault(1, f"quor: {complaint}\n", "--report", file)

    def test_full_disk(self):
        with open("/dev/full", "wb") as full:
            for chosen in ("text", "json", "csv", "ics"):
                self.assert_fault(1, "quor: il rapporto non si può scrivere sullo standard output: "
                                     "No space left on device\n",
                                  "--report", self.system, "--format", chosen, stdout=full)
        # A device stays what it is.
        device = os.stat("/dev/full").st_mode
        self.assert_fault(1, "quor: il rapporto non si può scrivere in /dev/full: No space left on "
                             "device\n", "--report", self.person, "--output", "/dev/full")
        self.assertTrue(stat.S_ISCHR(device) and os.stat("/dev/full").st_mode == device)

    def test_output_into_a_pipe(self):
        """Also one that has no path but a process's own link to it, as shells hand them on."""
        told = run("--report", self.person).stdout
        result = run("--report", self.person, "--output", "/dev/stdout")
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        self.assertEqual(result.stdout, told)

    def test_output_is_whole_or_not_there(self):
        def little_room():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (100_000, 100_000))

        output = self.folder / "out" / "giorni.csv"
        output.parent.mkdir()
        arguments = ["--report", self.person, "--format", "csv", "--output", output, "--days"]
        for old in (None, b"vecchio"):
            if old:
                output.write_bytes(old)
            result = run(*arguments, 100_000, preexec_fn=little_room)
            self.assertEqual((result.returncode, result.stderr.count(b"\n")), (1, 1))
            self.assertEqual([file.read_bytes() for file in output.parent.iterdir()],
                             [old] if old else [])
        self.assertEqual(run(*arguments, 1000).stdout, b"")
        self.assertEqual(output.read_bytes(),
                         self.report(self.person, "--format", "csv", "--days", 1000))
        self.assert_fault(1, f"quor: il rapporto non si può scrivere in {self.folder}/no/a: No such "
                             "file or directory\n",
                          "--report", self.person, "--output", self.folder / "no" / "a")

    def test_reader_who_leaves(self):
        reading, writing = os.pipe()
        os.close(reading)
        with os.fdopen(writing, "wb") as pipe:
            self.assert_fault(1, "quor: il rapporto non si può scrivere sullo standard output: "
                                 "Broken pipe\n", "--report", self.person, stdout=pipe)

    def test_after_an_option_of_the_toolkit(self):
        result = run("-platform", "offscreen", "--report", self.person)
        self.assertEqual((result.returncode, result.stdout), (0, self.report(self.person)))


if __name__ == "__main__":
    QUOR, EXAMPLES = map(pathlib.Path, sys.argv[1:3])
    SCHEMA = json.loads(pathlib.Path(sys.argv[3]).read_text(encoding="utf-8"))
    jsonschema.Draft202012Validator.check_schema(SCHEMA)
    unittest.main(argv=sys.argv[:1], verbosity=2)

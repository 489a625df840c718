"""The summary page, written a second time, compared byte for byte with the program's.

Usage: page_reference.py DRIVER
"""

import datetime
import hashlib
import html
import html.entities
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import urllib.parse

TODAY = "2026-11-21"
CURVES = [0xFF0000, 0x0000FF, 0x00FF00, 0x00FFFF]
WEEK = [0x0000FF, 0x00FF00, 0x00FFFF]
# The days from Monday on, the months as they stand in a date, the long and the short date.
LOCALES = {
    "it_IT": (
        "lunedì martedì mercoledì giovedì venerdì sabato domenica",
        "gennaio febbraio marzo aprile maggio giugno luglio agosto settembre ottobre novembre dicembre",
        "{day} {date.day} {month} {date.year:04}",
        "{date.day:02}/{date.month:02}/{date.year:04}",
    ),
    "de_DE": (
        "Montag Dienstag Mittwoch Donnerstag Freitag Samstag Sonntag",
        "Januar Februar März April Mai Juni Juli August September Oktober November Dezember",
        "{day}, {date.day}. {month} {date.year:04}",
        "{date.day:02}.{date.month:02}.{date.year:04}",
    ),
    "fr_FR": (
        "lundi mardi mercredi jeudi vendredi samedi dimanche",
        "janvier février mars avril mai juin juillet août septembre octobre novembre décembre",
        "{day} {date.day} {month} {date.year:04}",
        "{date.day:02}/{date.month:02}/{date.year:04}",
    ),
    "pl_PL": (
        "poniedziałek wtorek środa czwartek piątek sobota niedziela",
        "stycznia lutego marca kwietnia maja czerwca lipca sierpnia września października listopada grudnia",
        "{day}, {date.day} {month} {date.year:04}",
        "{date.day}.{date.month:02}.{date.year:04}",
    ),
}  # fmt: skip


def mark(head: str) -> str:
    """What stands in a file's name after characters that had to be replaced."""
    return "~" + hashlib.sha1(head.encode()).hexdigest()[:8]


# Every character that HTML 4 names, and some that it does not.
MANY_LETTERS = "".join(map(chr, html.entities.codepoint2name)) + "Łódź '李' \U0001f600 \u0300 \u2029"

# name, birth, calculation, graphDaysAdjust, curve colours, week colours, system, prefix's head
PERSONS = [
    ("Giulia Ferraro", "1990-07-08", "2026-11-21", 0, CURVES, WEEK, "",
     "Giulia Ferraro"),
    ("Niccolò D'Amico", "1981-12-25", "2004-02-29", -19, CURVES, WEEK, "",
     "Niccolò D'Amico"),
    # A Sunday, and colours with leading zeros.
    ("Rossi & <Figli>", "1899-12-29", "2026-11-22", 345,
     [0x000001, 0x0000FF, 0x100000, 0xABCDEF], [0, 0x010203, 0xFFFFFF], "",
     "Rossi & _Figli_" + mark("Rossi & <Figli>")),
    # A Monday at the turn of a year, a system.
    ("Zoë", "2030-01-01", "2029-12-31", 1, CURVES, WEEK, "/tmp/x/Famiglia Però. 2.brs",
     "Famiglia Però_Zoë"),
    ("Mario", "0123-04-05", "1000-01-01", 0, CURVES, WEEK, "C:\\dati\\Casa.brs",
     "Casa_Mario"),
]  # fmt: skip


def day(text: str) -> datetime.date:
    return datetime.date.fromisoformat(text)


def long(date: datetime.date, locale: str = "it_IT") -> str:
    days, months, form, _ = LOCALES[locale]
    return form.format(date=date, day=days.split()[date.weekday()], month=months.split()[date.month - 1])


def short(date: datetime.date, locale: str = "it_IT") -> str:
    return LOCALES[locale][3].format(date=date)


def dates_of_the_year() -> list[str]:
    """A day of each month and each weekday with "ì" in March, which browsers that guess read wrong."""
    days = [(month, month % 5) for month in range(1, 13)] + [(3, weekday) for weekday in range(5) if weekday != 3]
    middle = [(datetime.date(2022, month, 15), weekday) for month, weekday in days]
    return [str(date + datetime.timedelta(days=weekday - date.weekday())) for date, weekday in middle]


def text(plain: str) -> str:
    """As a page of pure ASCII holds it."""
    names = {code: name for code, name in html.entities.codepoint2name.items() if code not in (0x2329, 0x232A)}
    escaped = html.escape(plain, quote=False)
    return re.sub("[^\0-\x7f]", lambda letter: f"&{names.get(ord(letter[0]), f'#{ord(letter[0])}')};", escaped)


def hexadecimal(colour: int) -> str:
    text = f"{colour:X}".zfill(6)
    return text[-2:] + text[2:4] + text[:2]


def prefix(person: tuple, for_print: bool) -> str:
    date = day(person[2])
    stamp = f"{date.day:02}-{date.month:02}-{date.year:04}"
    return f"{person[7]}_{stamp}_" + ("stampa_" if for_print else "")


def page(person: tuple, for_print: bool, graph: bool, weekly: bool, locale: str = "it_IT") -> bytes:
    name, birth, calculation, adjust, curves, week, *_ = person
    name = text(name)
    source = prefix(person, for_print).replace("&", "&amp;")
    source = re.sub("[^ -~]", lambda letter: urllib.parse.quote(letter[0]), source)
    centre = day(calculation)
    around = datetime.timedelta(days=20 + adjust)
    lines = [
        '<DOCTYPE HTML PUBLIC>',
        '<HTML>',
        '<HEAD>',
        f'<TITLE>Riepilogo dati bioritmici di {name}</TITLE>',
        '<META name="generator" content="Quor v1.0">',
        '<STYLE>',
        'BODY    { font-size: 12pt; background-color: #DDDDFF; color: #000000; margin: 5%; }',
        'TABLE   { font-size: 12pt; border-width: 0px; }',
        'A:link,A:visited,A:active    { text-decoration: underline; font-size: 12pt; color: #0000FF; background-color: transparent; }',
        'A:hover     { text-decoration: none; font-size: 12pt; color: #2222FF; background-color: transparent;}',
        'TABLE.c1    { font-size: 12pt; background-color: #CCCCFF; color: #000000; border-width: 1px; border-color: #000000; border-style: solid; }',
        '.c1 TH      { background-color: #BBBBFF; color: #000000; font-weight: normal; text-decoration: none; border-bottom: 1px #000000 solid; border-right: 1px #000000 solid; border-left: 1px #FFFFFF solid; border-top: 1px #FFFFFF solid;}',
        '</STYLE>',
        '</HEAD>',
        '<BODY>',
        '<TABLE width="100%" class="c1">',
        '<TR><TH><B>Dati personali</B></TH></TR>',
        f'<TR><TD><B>Nome: </B>{name}</TD></TR>',
        f'<TR><TD><B>Data di nascita: </B>{text(long(day(birth), locale))}</TD></TR>',
        f'<TR><TD><B>Bioritmo calcolato in data: </B>{text(long(centre, locale))}</TD></TR>',
        '</TABLE>',
    ]  # fmt: skip
    if graph:
        if not for_print:
            lines.append('<P>&nbsp;</P>')
        lines += [
            '<TABLE width="100%" class="c1">',
            f'<TR><TH><B>Grafico dal {short(centre - around)} al {short(centre + around)}</B></TH></TR>',
            f'<TR><TD align="center"><IMG src="{source}grafico.png" alt="" border="1"></TD></TR>',
            '<TR><TD><TABLE width="100%">',
        ]
        a, b, c, d = (hexadecimal(colour) for colour in curves)
        if for_print:
            lines += [
                f'<TR><TD width="25%" align="center"><B style="color:#{a};">Fisica</B></TD>',
                f'<TD width="25%" align="center"><B style="color:#{b};">Emotiva</B></TD>',
                f'<TD width="25%" align="center"><B style="color:#{c};">Intellettiva</B></TD>',
                f'<TD width="25%" align="center"><B style="color:#{d};">Media</B></TD></TR>',
            ]
        else:
            lines += [
                f'<TR><TD width="25%" align="center" bgcolor="#{a}"><B>Fisica</B></TD>',
                f'<TD width="25%" align="center" bgcolor="#{b}"><B>Emotiva</B></TD>',
                f'<TD width="25%" align="center" bgcolor="#{c}"><B>Intellettiva</B></TD>',
                f'<TD width="25%" align="center" bgcolor="#{d}"><B>Media</B></TD></TR>',
            ]
        lines += ['</TABLE></TD></TR>', '</TABLE>']
    if weekly:
        monday = centre - datetime.timedelta(days=centre.weekday())
        sunday = monday + datetime.timedelta(days=6)
        if not for_print:
            lines.append('<P>&nbsp;</P>')
        lines += [
            '<TABLE width="100%" class="c1">',
            f'<TR><TH><B>Grafico per la settimana dal {short(monday)} al {short(sunday)}</B></TH></TR>',
            '<TR><TD><TABLE width="100%">',
            f'<TR><TD width="33%" align="center"><IMG src="{source}StatoSettimana1.png" alt="" border="1"></TD>',
            f'<TD width="33%" align="center"><IMG src="{source}StatoSettimana2.png" alt="" border="1"></TD>',
            f'<TD width="33%" align="center"><IMG src="{source}StatoSettimana3.png" alt="" border="1"></TD></TR>',
            f'<TR><TD colspan="3" align="center"><IMG src="{source}StatoSettimana0.png" alt="" border="1"></TD></TR>',
        ]
        a, b, c = (hexadecimal(colour) for colour in week)
        if for_print:
            lines += [
                f'<TR><TD width="33%" align="left"><B style="color:#{a};">Giorni critici</B></TD>',
                f'<TD width="33%" align="center"><B style="color:#{b};">Giorni stabili</B></TD>',
                f'<TD width="33%" align="right"><B style="color:#{c};">Giorni ottimi</B></TD></TR>',
            ]
        else:
            lines += [
                f'<TR><TD width="33%" align="left" bgcolor="#{a}"><B>Giorni critici</B></TD>',
                f'<TD width="33%" align="center" bgcolor="#{b}"><B>Giorni stabili</B></TD>',
                f'<TD width="33%" align="right" bgcolor="#{c}"><B>Giorni ottimi</B></TD></TR>',
            ]
        lines += ['</TABLE></TD></TR>', '</TABLE>']
    lines += [
        f'<P align="right">Disegnato da Quor v1.0 - {short(day(TODAY), locale)}</P>',
        '</BODY>',
        '</HTML>',
    ]
    return "".join(line + "\r\n" for line in lines).encode("ascii")


def export(driver: str, cases: list[dict], size: tuple[int, int] = (60, 30)) -> None:
    wanted = {"today": TODAY, "size": size, "cases": cases}
    with tempfile.NamedTemporaryFile("w", suffix=".json") as file:
        json.dump(wanted, file)
        file.flush()
        subprocess.run([driver, file.name], check=True)


def differs(case: str, got: bytes, expected: bytes) -> bool:
    if got != expected:
        pairs = zip(got.split(b"\r\n"), expected.split(b"\r\n"))
        print(f"{case}:", next((p for p in pairs if p[0] != p[1]), "another length"))
    return got != expected


def each_day(driver: str, root: pathlib.Path) -> int:
    """Every day of a year in each of the locales, as both dates of a page without pictures."""
    start = day("2024-01-01")
    days = [start + datetime.timedelta(days=i) for i in range(366)]
    people = {
        f"{locale} {date}": (locale, date, MANY_LETTERS if date == start else "Anna")
        for locale in LOCALES
        for date in days
    }
    export(driver, [
        {"folder": str(root / case), "name": name, "birth": str(date), "calculation": str(date),
         "locale": locale, "graph": False, "weekly": False}
        for case, (locale, date, name) in people.items()
    ])  # fmt: skip
    faults = 0
    for case, (locale, date, name) in people.items():
        (written,) = (root / case).iterdir()
        got = written.read_bytes()
        faults += differs(case, got, page((name, str(date), str(date), 0, CURVES, WEEK, "", ""), False, False, False, locale))
        shown = html.unescape(got.decode("ascii", "replace"))
        for line in (f"Nome: </B>{name}<", f"nascita: </B>{long(date, locale)}<", f"data: </B>{long(date, locale)}<"):
            if line not in shown:
                print(f"{case}: no {line!r}")
                faults += 1
    print(f"{len(people)} days, {faults} faults")
    return faults


def main(driver: str) -> int:
    faults = 0
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        wanted = [
            (person, for_print, graph, weekly)
            for person in PERSONS
            for for_print in (False, True)
            for graph, weekly in ((True, False), (False, True), (True, True))
        ]
        cases = [
            {
                "folder": str(root / str(i)),
                "name": person[0],
                "birth": person[1],
                "calculation": person[2],
                "days": person[3],
                "curves": person[4],
                "week": person[5],
                "system": person[6],
                "print": for_print,
                "graph": graph,
                "weekly": weekly,
            }
            for i, (person, for_print, graph, weekly) in enumerate(wanted)
        ]
        export(driver, cases)
        for i, (person, for_print, graph, weekly) in enumerate(wanted):
            start = prefix(person, for_print)
            names = {start + "Riepilogo.html"}
            names |= {start + "grafico.png"} if graph else set()
            names |= {f"{start}StatoSettimana{n}.png" for n in range(4)} if weekly else set()
            found = {path.name for path in (root / str(i)).iterdir()}
            if found != names:
                print(f"case {i}: files {sorted(found)}, wanted {sorted(names)}")
                faults += 1
                continue
            got = (root / str(i) / (start + "Riepilogo.html")).read_bytes()
            expected = page(person, for_print, graph, weekly)
            faults += differs(f"case {i}", got, expected)
        faults += each_day(driver, root / "days")
    print(f"{len(wanted)} pages, {faults} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))

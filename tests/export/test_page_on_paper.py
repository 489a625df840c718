"""The summary page for print comes out on one sheet of A4, with its pictures whole, and its dates read
letter by letter as they were written.

Usage: test_page_on_paper.py DRIVER QUOR_RENDER
Needs Debian's poppler-utils.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

from page_reference import dates_of_the_year, day, export, long

from page_reference import dates_of_the_year, day, export, long


def main(driver: str, renderer: str) -> int:
    faults = []
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        case = {"folder": folder, "name": "Giulia Ferraro", "birth": "1990-07-08",
                "calculation": "2026-11-20", "print": True}  # fmt: skip
        export(driver, [case], (635, 449))
        page = next(root.glob("*Riepilogo.html"))
        pdf = root / "page.pdf"
        (root / "home").mkdir(mode=0o700)
        environment = {**os.environ, "HOME": folder, "XDG_RUNTIME_DIR": str(root / "home")}
        subprocess.run([renderer, page, pdf], check=True, timeout=120, env=environment)

        about = subprocess.run(["pdfinfo", pdf], capture_output=True, text=True, check=True).stdout
        sheets = re.search(r"^Pages: +(\d+)$", about, re.M)[1]
        if sheets != "1":
            faults.append(f"{sheets} sheets")
        text = subprocess.run(
            ["pdftotext", "-layout", pdf, "-"], capture_output=True, text=True, check=True
        ).stdout
        if "Disegnato da Quor v1.0 - 21/11/2026" not in text:
            faults.append("the foot is missing")

        # Their own size in pixels, and as many to the inch as the page has when nothing is shrunk.
        listed = subprocess.run(
            ["pdfimages", "-list", pdf], capture_output=True, text=True, check=True
        ).stdout
        pictures = [line.split() for line in listed.splitlines()[2:]]
        found = sorted((int(row[3]), int(row[4]), round(int(row[12]) / 2) * 2) for row in pictures)
        expected = sorted([(635, 449, 96), (627, 112, 96), *[(205, 112, 96)] * 3])
        if found != expected:
            faults.append(f"pictures {found}, not {expected}")

        dates = dates_of_the_year()
        export(driver, [
            {"folder": f"{folder}/{date}", "name": "Mosè D'Aloè", "birth": date, "calculation": date,
             "graph": False, "weekly": False}
            for date in dates
        ])  # fmt: skip
        for date in dates:
            subprocess.run([renderer, *(root / date).iterdir(), pdf], check=True, timeout=120, env=environment)
            shown = subprocess.run(["pdftotext", pdf, "-"], capture_output=True, text=True, check=True).stdout
            written = long(day(date))
            expected = ["Nome: Mosè D'Aloè", f"Data di nascita: {written}", f"Bioritmo calcolato in data: {written}"]
            if missing := set(expected) - set(shown.splitlines()):
                faults.append(f"{date}: no {missing}")
    print("\n".join(faults) or "one sheet")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2]))

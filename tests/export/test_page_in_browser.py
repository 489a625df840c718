"""Summary pages in a browser: of persons with every sort of name, and of days from all over the year. Each
picture must be found, and names and dates must read letter by letter as they were written.

Usage: test_page_in_browser.py DRIVER [CHROMIUM]
"""

import html
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

from page_reference import dates_of_the_year, day, long

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from tools import reason_to_skip  # noqa: E402

NAMES = [
    "Giulia Ferraro",
    "Niccolò D'Amico",
    "Anna-Lucia_1 (la rossa), né Però",
    "50% e 100%25 #1 & Co; a&amp;b &lt=",
    'Anna "la Rossa" <b> / \\ : * ? |',
    "~`!@$^+={}[]è€’œ",
    "Zoë Åse Œuvre Ñandú Ÿ",
    "e\u0301 scomposta, A\u030a",
    "\u0338 segno davanti",
    "שרה לוי",
    "محمد بن سلمان",
    "李小龍 \U0002070e \U0001f600",
    "Дмитрий Ёлкин",
    "  blank davanti",
    "\u00a0 unbreakable\u2028line",
    "\u202edne thgir\u202c",
    "tab\tand\nline\x07end\x85",
    "x" * 300,
    "è" * 200,
    "李" * 100,
    "C:\\Windows\\..\\..\\fine",
    "../../fuori",
    ".nascosta",
    "javascript:alert(1)",
    "Ã¨ Ã",
    "çà ÀÈÌÒÙ àèìòù " * 8,
    "XXXXXX",
    # Names whose accents make a browser take the page for Russian, Czech or Latvian.
    "Mosè D'Aloè",
    "Nicolò Pàpà è là",
    "ÀÈÌÒÙ",
]

# What the page says of itself once everything in it is loaded, at the end of its text.
PROBE = (
    b"<SCRIPT>addEventListener('load', function () {"
    b"document.body.setAttribute('data-widths', Array.from(document.images,"
    b"function (image) { return image.naturalWidth; }).join());});</SCRIPT></BODY>"
)


# Where the pictures are, and how wide the tables: that of the person, of the graph, of the week.
LAYOUT = (
    b"<SCRIPT>addEventListener('load', function () {"
    b"var places = Array.from(document.images, function (image) {"
    b"var box = image.getBoundingClientRect();"
    b"return [box.left, box.top, box.right, box.bottom].map(Math.round); });"
    b"var tables = Array.from(document.querySelectorAll('TABLE.c1'),"
    b"function (table) { return table.offsetWidth; });"
    b"document.body.setAttribute('data-layout', JSON.stringify([places, tables]));"
    b"});</SCRIPT></BODY>"
)


def dump(chromium: str, page: pathlib.Path, profile: str, window: str = "800,600") -> str:
    done = subprocess.run(
        [
            chromium, "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic",
            "--no-first-run", "--disable-background-networking", "--disable-component-update",
            "--disable-sync", "--disable-dev-shm-usage", f"--user-data-dir={profile}",
            f"--window-size={window}", "--dump-dom", page.as_uri(),
        ],
        capture_output=True, timeout=120, check=True,
        env={**os.environ, "HOME": profile, "LANG": "it_IT.UTF-8"},
    )  # fmt: skip
    return done.stdout.decode()


def layout_faults(driver: str, chromium: str) -> int:
    """Pages with pictures of their real sizes, in a window that is too narrow for them: a table is
    then as wide as its pictures need. That of the week must not need more than that of the graph.
    """
    faults = 0
    for size, for_print in (([1523, 635], False), ([635, 449], True), ([627, 347], False)):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            case = {"folder": folder, "name": "Anna", "birth": "1981-12-25",
                    "calculation": "2026-11-20", "print": for_print}  # fmt: skip
            (root / "cases.json").write_text(
                json.dumps({"today": "2026-11-21", "size": size, "cases": [case]})
            )
            subprocess.run([driver, root / "cases.json"], check=True)
            page = next(root.glob("*Riepilogo.html"))
            page.write_bytes(page.read_bytes().replace(b"</BODY>", LAYOUT))
            with tempfile.TemporaryDirectory() as profile:
                dom = dump(chromium, page, profile, "500,400")
        found = re.search(r'data-layout="([^"]*)"', dom)
        (graph, *cycles, mean), (_, graph_table, week_table) = json.loads(
            html.unescape(found.group(1))
        )
        print(f"{size}: tables {graph_table} and {week_table}, cycles {cycles}, mean {mean}")
        left, right = cycles[0][0], cycles[2][2]
        good = (
            graph_table == size[0] + 10  # else the window was too wide to tell
            and graph_table - 3 < week_table <= graph_table
            and len({(top, bottom) for _, top, _, bottom in cycles}) == 1
            and mean[1] > cycles[0][3]
            and (mean[0], mean[2]) == (left, right)
            and graph[0] <= left and right <= graph[2]
        )  # fmt: skip
        if not good:
            print("  ** wrong")
            faults += 1
    return faults


def main(driver: str, chromium: str) -> int:
    faults = 0
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        cases = [
            {
                "folder": str(root / "out # 100% è 李" / str(i)),
                "name": name,
                "birth": birth,
                "calculation": calculation,
                "print": i % 2 == 1,  # starting the browser is what takes time
            }
            for i, (name, birth, calculation) in enumerate(
                [(name, "1981-12-25", "2026-11-20") for name in NAMES]
                + [("Anna", date, date) for date in dates_of_the_year()]
            )
        ]
        (root / "cases.json").write_text(
            json.dumps({"today": "2026-11-21", "size": [120, 60], "cases": cases})
        )
        subprocess.run([driver, root / "cases.json"], check=True)
        pages = []
        for case in cases:
            files = sorted(os.listdir(case["folder"]))
            if len(files) != 6:
                print(f"{case['name']!r}: {files}")
                faults += 1
                continue
            page = next(pathlib.Path(case["folder"]).glob("*Riepilogo.html"))
            text = page.read_bytes()
            assert text.endswith(b"</BODY>\r\n</HTML>\r\n"), page
            page = page.with_name("probe.html")
            page.write_bytes(text.replace(b"</BODY>", PROBE))
            pages.append((case, page))
        for case, page in pages:
            with tempfile.TemporaryDirectory() as profile:
                dom = dump(chromium, page, profile)
            found = re.search(r'data-widths="([^"]*)"', dom)
            shown = [html.unescape(text) for text in re.findall(r"<td><b>[^<]*: </b>(.*?)</td>", dom, re.S)]
            # No page can hold a control character of the second kind.
            wanted = [re.sub("[\x80-\x9f]", "\ufffd", case["name"])]
            wanted += [long(day(case[date])) for date in ("birth", "calculation")]
            widths = found.group(1) if found else "nothing"
            print(f"{widths:25} {case['name'][:30]!r} {case['calculation']}")
            if widths != "120,34,34,34,114" or shown != wanted:
                print(f"  ** wrong: {shown}, not {wanted}")
                faults += 1
    faults += layout_faults(driver, chromium)
    print(f"{len(cases)} pages, {faults} faults")
    return 1 if faults or not cases else 0


if __name__ == "__main__":
    reason = "" if len(sys.argv) > 2 else reason_to_skip("chromium")
    if reason:
        print("skipped:", reason)
        sys.exit(77)
    sys.exit(main(sys.argv[1], sys.argv[2] if len(sys.argv) > 2 else "chromium"))

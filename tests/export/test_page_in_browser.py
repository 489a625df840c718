"""Summary pages of persons with every sort of name, in a browser: each picture must be found.

Usage: test_page_in_browser.py DRIVER [CHROMIUM]
"""

import html
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

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


def dump(chromium: str, page: pathlib.Path, profile: str) -> str:
    done = subprocess.run(
        [
            chromium, "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic",
            "--no-first-run", "--disable-background-networking", "--disable-component-update",
            "--disable-sync", "--disable-dev-shm-usage", f"--user-data-dir={profile}",
            "--dump-dom", page.as_uri(),
        ],
        capture_output=True, timeout=120, check=True,
        env={**os.environ, "HOME": profile, "LANG": "it_IT.UTF-8"},
    )  # fmt: skip
    return done.stdout.decode()


def main(driver: str, chromium: str) -> int:
    faults = 0
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        cases = [
            {
                "folder": str(root / "out # 100% è 李" / str(i)),
                "name": name,
                "birth": "1981-12-25",
                "calculation": "2026-11-20",
                "print": i % 2 == 1,  # starting the browser is what takes time
            }
            for i, name in enumerate(NAMES)
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
            shown = html.unescape(re.search(r"<b>Nome: </b>(.*?)</td>", dom, re.S).group(1))
            widths = found.group(1) if found else "nothing"
            print(f"{widths:25} {case['name'][:30]!r} shown as {shown[:40]!r}")
            if widths != ",".join(["120"] * 5):
                print("  ** wrong")
                faults += 1
    print(f"{len(cases)} pages, {faults} faults")
    return 1 if faults or not cases else 0


if __name__ == "__main__":
    browser = sys.argv[2] if len(sys.argv) > 2 else shutil.which("chromium")
    if browser is None:
        sys.exit("no chromium")
    sys.exit(main(sys.argv[1], browser))

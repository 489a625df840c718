"""Checks quor-render from outside: what is on its pages, what it refuses, what it leaves behind.

Usage: test_render.py QUOR_RENDER
Needs Debian's poppler-utils.
"""

import base64
import http.server
import os
import pathlib
import re
import resource
import shutil
import struct
import subprocess
import sys
import tempfile
import threading
import time
import unittest
import zlib

RENDERER = os.path.abspath(sys.argv.pop(1))
TIME_LIMIT = 120  # seconds, on a busy machine


def png(width: int, height: int, colour: tuple[int, int, int]) -> bytes:
    def chunk(kind: bytes, data: bytes) -> bytes:
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    rows = b"".join(b"\0" + bytes(colour) * width for _ in range(height))
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b"")


PAGE = """<DOCTYPE HTML PUBLIC>\r
<HTML>\r
<HEAD>\r
<TITLE>Riepilogo dati bioritmici di Niccolò</TITLE>\r
{head}
<STYLE>\r
BODY    {{ font-size: 12pt; background-color: #DDDDFF; color: #000000; margin: 5%; }}\r
.c1 TH  {{ background-color: #BBBBFF; }}\r
</STYLE>\r
</HEAD>\r
<BODY>\r
<P id="name">Nome: Niccolò D'Amico, perché "città"</P>\r
{body}
</BODY>\r
</HTML>\r
"""


def process_group(group: int) -> list[str]:
    """The processes of a group that run."""
    running = []
    for stat in pathlib.Path("/proc").glob("[0-9]*/stat"):
        try:
            state, _parent, own_group = stat.read_text().rpartition(")")[2].split()[:3]
        except OSError:
            continue
        if int(own_group) == group and state != "Z":
            running.append(stat.parent.name)
    return running


class Render(unittest.TestCase):
    def setUp(self) -> None:
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="quor-render-test-"))
        self.addCleanup(shutil.rmtree, self.root)
        self.folder = self.root / "una cartella è #1"
        self.folder.mkdir()
        self.home = self.root / "home"
        self.home.mkdir(mode=0o700)
        self.temporary = self.root / "tmp"
        self.temporary.mkdir()
        self.out = self.root / "out"
        self.out.mkdir()
        self.pdf = self.out / "pagine.pdf"

    def page(self, body: str = "", head: str = "") -> pathlib.Path:
        path = self.folder / "Riepilogo.html"
        path.write_bytes(PAGE.format(body=body, head=head).encode("cp1252"))
        return path

    def run_renderer(self, *arguments: object, **more_environment: str) -> subprocess.CompletedProcess:
        environment = {
            "PATH": os.environ["PATH"],
            "HOME": str(self.home),
            "TMPDIR": str(self.temporary),
            "XDG_RUNTIME_DIR": str(self.home),
            "LC_ALL": "C",
            **more_environment,
        }
        process = subprocess.Popen(
            [RENDERER, *map(str, arguments)],
            env=environment,
            cwd=self.folder,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            start_new_session=True,
        )
        out, err = process.communicate(timeout=TIME_LIMIT)
        result = subprocess.CompletedProcess(arguments, process.returncode, out.decode(), err.decode())
        end = time.monotonic() + TIME_LIMIT
        while process_group(process.pid) and time.monotonic() < end:
            time.sleep(0.05)
        self.assertEqual(process_group(process.pid), [], "processes stay behind")
        return result

    def render(self, page: pathlib.Path, *options: str, **environment: str) -> None:
        result = self.run_renderer(*options, page, self.pdf, **environment)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
        self.assertEqual([file.name for file in self.out.iterdir()], ["pagine.pdf"])

    def fails(self, code: int, *arguments: object) -> str:
        result = self.run_renderer(*arguments)
        self.assertEqual(result.returncode, code, result.stderr)
        self.assertEqual(result.stdout, "")
        self.assertRegex(result.stderr, r"\Aquor-render: [^\n]+\n(Provare: quor-render --help\n)?\Z")
        return result.stderr

    def text(self) -> str:
        done = subprocess.run(["pdftotext", "-layout", self.pdf, "-"], capture_output=True, check=True)
        return done.stdout.decode()

    def pictures(self) -> list[tuple[int, int]]:
        done = subprocess.run(["pdfimages", "-list", self.pdf], capture_output=True, check=True, text=True)
        rows = [line.split() for line in done.stdout.splitlines()[2:]]
        return [(int(row[3]), int(row[4])) for row in rows]

    def info(self, key: str) -> str:
        done = subprocess.run(["pdfinfo", self.pdf], capture_output=True, check=True, text=True)
        return re.search(rf"^{key}:\s*(.*)$", done.stdout, re.MULTILINE)[1]

    def pixels(self, dots_per_inch: int) -> tuple[int, int, bytes]:
        done = subprocess.run(
            ["pdftoppm", "-r", str(dots_per_inch), "-f", "1", "-l", "1", self.pdf],
            capture_output=True,
            check=True,
        )
        _, width, height, _, data = re.match(rb"(P6)\s+(\d+)\s+(\d+)\s+(\d+)\s(.*)\Z", done.stdout, re.DOTALL).groups()
        return int(width), int(height), data

    def test_text_and_pictures(self) -> None:
        (self.folder / "grafico.png").write_bytes(png(60, 30, (30, 120, 220)))
        own = base64.b64encode(png(41, 43, (0, 200, 0))).decode()
        self.render(self.page(f'<IMG src="grafico.png" alt=""><IMG src="data:image/png;base64,{own}">'))
        self.assertIn("Nome: Niccolò D'Amico, perché \"città\"", self.text())
        self.assertEqual(self.pictures(), [(60, 30), (41, 43)])
        self.assertEqual(self.info("Pages"), "1")
        self.assertRegex(self.info("Page size"), r"A4")

    def test_character_set(self) -> None:
        """That of a page which names none is not guessed; these words are taken for Czech."""
        guessed = "lunedì 7 marzo 2022 Mosè D'Aloè"
        for page, wanted in (
            (f"<TITLE>{guessed}</TITLE><P>{guessed}".encode("cp1252"), guessed),
            (f'<META charset="utf-8"><P>{guessed} Łódź'.encode(), f"{guessed} Łódź"),
            (f"<P>{guessed} Łódź".encode("utf-8-sig"), f"{guessed} Łódź"),
            (b"<P>luned&igrave; &#321;&oacute;d&#378;", "lunedì Łódź"),
        ):
            path = self.folder / "pagina.html"
            path.write_bytes(page)
            self.render(path)
            self.assertEqual(self.text().strip(), wanted)

    def test_large_pages(self) -> None:
        (self.folder / "grafico.png").write_bytes(png(60, 30, (30, 120, 220)))
        self.render(self.page(f'<!--{"%" * 3_000_000}--><IMG src="grafico.png">'))
        self.assertIn("Nome: Niccol", self.text())
        self.assertEqual(self.pictures(), [(60, 30)])

    def test_colours_of_the_page(self) -> None:
        self.render(self.page())
        width, height, data = self.pixels(50)
        middle = (height // 2 * width + width // 2) * 3
        self.assertEqual(tuple(data[middle : middle + 3]), (0xDD, 0xDD, 0xFF))
        self.assertEqual(tuple(data[:3]), (255, 255, 255))  # the margin of the paper

    def test_scripts_do_not_run(self) -> None:
        change = "document.getElementById('name').textContent='CHANGED'"
        self.render(
            self.page(
                f'<SCRIPT>{change}</SCRIPT><IMG src="x" onerror="{change}"><NOSCRIPT>senza script</NOSCRIPT>'
            )
        )
        self.assertNotIn("CHANGED", self.text())
        self.assertIn("Niccolò", self.text())
        self.assertIn("senza script", self.text())

    def test_no_network(self) -> None:
        asked = []

        class Server(http.server.BaseHTTPRequestHandler):
            def do_GET(self) -> None:
                asked.append(self.path)
                self.send_response(200)
                self.end_headers()
                self.wfile.write(png(77, 55, (220, 20, 20)))

            def log_message(self, *_arguments: object) -> None:
                pass

        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Server)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        address = f"http://127.0.0.1:{server.server_port}"
        self.render(
            self.page(
                f'<IMG src="{address}/img.png"><IFRAME src="{address}/frame"></IFRAME>'
                f'<OBJECT data="{address}/object"></OBJECT>',
                f'<LINK rel="stylesheet" href="{address}/style.css"><LINK rel="icon" href="{address}/icon.png">'
                f'<LINK rel="prefetch" href="{address}/prefetch"><LINK rel="preconnect" href="{address}">'
                f'<META http-equiv="refresh" content="0;url={address}/refresh">',
            )
        )
        self.assertEqual(asked, [])
        self.assertNotIn((77, 55), self.pictures())
        self.assertIn("Niccolò", self.text())

    def test_no_file_elsewhere(self) -> None:
        outside = self.root / "fuori.png"
        outside.write_bytes(png(77, 55, (220, 20, 20)))
        secret = self.root / "segreto.txt"
        secret.write_text("SEGRETO")
        (self.folder / "segreto.css").symlink_to(self.root / "stile.css")
        (self.root / "stile.css").write_text("P::after { content: 'DA FUORI'; }")
        (self.folder / "legame.png").symlink_to(outside)
        # A folder whose name begins like the page's own.
        neighbour = self.root / (self.folder.name + "2")
        neighbour.mkdir()
        (neighbour / "vicino.png").write_bytes(png(78, 56, (220, 20, 20)))
        below = self.folder / "dentro"
        below.mkdir()
        (below / "dentro.png").write_bytes(png(61, 31, (30, 120, 220)))
        self.render(
            self.page(
                '<IMG src="dentro/dentro.png"><IMG src="../fuori.png"><IMG src="legame.png">'
                f'<IMG src="file://{outside}"><IMG src="../{neighbour.name.replace("#", "%23")}/vicino.png">'
                f'<IFRAME src="file://{secret}"></IFRAME><IFRAME src="../segreto.txt"></IFRAME>'
                f'<OBJECT data="file://{secret}" type="text/plain"></OBJECT>',
                '<LINK rel="stylesheet" href="segreto.css">',
            )
        )
        pictures = self.pictures()
        self.assertIn((61, 31), pictures)
        self.assertNotIn((77, 55), pictures)
        self.assertNotIn((78, 56), pictures)
        self.assertNotIn("SEGRETO", self.text())
        self.assertNotIn("DA FUORI", self.text())

    def test_missing_pictures_do_not_matter(self) -> None:
        self.render(self.page('<IMG src="manca.png" alt="">'))
        self.assertIn("Niccolò", self.text())

    def test_relative_paths(self) -> None:
        self.page()
        result = self.run_renderer("Riepilogo.html", "../out/pagine.pdf")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn("Niccolò", self.text())

    def test_paper(self) -> None:
        self.render(self.page(), "--paper", "100x150", "--margin", "5")
        width, height = (float(side) for side in re.findall(r"[\d.]+", self.info("Page size"))[:2])
        self.assertAlmostEqual(width, 100 / 25.4 * 72, delta=1)
        self.assertAlmostEqual(height, 150 / 25.4 * 72, delta=1)

    def ink(self) -> tuple[float, float, float, float]:
        """What lies between the paper's edges and the first colour: left, top, right, bottom, in millimetres."""
        width, height, data = self.pixels(127)  # five to the millimetre
        rows = [data[y * width * 3 : (y + 1) * width * 3] for y in range(height)]
        white = b"\xff" * (width * 3)
        inked = [y for y in range(height) if rows[y] != white]
        middle = rows[(inked[0] + inked[-1]) // 2]
        columns = [x for x in range(width) if middle[3 * x : 3 * x + 3] != b"\xff\xff\xff"]
        edges = columns[0], inked[0], width - 1 - columns[-1], height - 1 - inked[-1]
        return tuple(edge / 5 for edge in edges)

    def test_margins(self) -> None:
        self.render(self.page(), "--paper", "297x210", "--margin", "10,20,50.5,40")
        width, height = (float(side) for side in re.findall(r"[\d.]+", self.info("Page size"))[:2])
        self.assertGreater(width, height)
        for found, wanted in zip(self.ink(), (10, 20, 50.5, 40)):
            self.assertAlmostEqual(found, wanted, delta=0.7)

    def test_pictures_shrink_to_fit_the_sheet(self) -> None:
        """Whole: the frame of the widest one is left on each side, with the page's own margin."""
        (self.folder / "grafico.png").write_bytes(png(635, 449, (30, 120, 220)))
        body = '<TABLE width="100%" class="c1"><TR><TD align="center"><IMG src="grafico.png"></TD></TR></TABLE>'
        for paper, share in (("210x297", 1), ("148x210", 0.72), ("105x148", 0.48), ("297x80", 0.46)):
            with self.subTest(paper=paper):
                self.render(self.page(body), "--paper", paper)
                width, height = map(int, paper.split("x"))
                pictures = subprocess.run(["pdfimages", "-list", self.pdf], capture_output=True, check=True, text=True)
                (row,) = pictures.stdout.splitlines()[2:]
                self.assertEqual(row.split()[3:5], ["635", "449"])
                self.assertAlmostEqual(96 / int(row.split()[12]), share, delta=0.04)
                page = int(row.split()[0])
                shown = subprocess.run(
                    ["pdftoppm", "-r", "127", "-f", str(page), "-l", str(page), self.pdf], capture_output=True, check=True
                ).stdout
                blue = shown.count(bytes((30, 120, 220))) / 25  # square millimetres
                self.assertGreater(blue, 0.97 * (635 * 449) * (25.4 / int(row.split()[12])) ** 2)

    def test_grey(self) -> None:
        (self.folder / "grafico.png").write_bytes(png(60, 30, (30, 120, 220)))
        body = '<TABLE class="c1"><TR><TH><B style="color:#FF0000;">Fisica</B></TH></TR></TABLE><IMG src="grafico.png">'
        self.render(self.page(body), "--grey")
        self.assertIn("Fisica", self.text())  # text stays text
        _, _, data = self.pixels(100)
        greys = {data[i] for i in range(0, len(data), 3)}
        self.assertTrue(all(data[i] == data[i + 1] == data[i + 2] for i in range(0, len(data), 3)))
        # The red text, the picture, the page.
        for grey in (54, 108, 224):
            self.assertTrue(greys & set(range(grey - 2, grey + 3)), (grey, sorted(greys)))

    def test_surroundings_change_nothing(self) -> None:
        self.render(
            self.page("<SCRIPT>document.getElementById('name').textContent='CHANGED'</SCRIPT>"),
            QT_QPA_PLATFORM="xcb",
            QT_SCALE_FACTOR="2",
            DISPLAY=":4711",
            QTWEBENGINE_CHROMIUM_FLAGS="--remote-debugging-port=9 --nonsense",
            QTWEBENGINE_REMOTE_DEBUGGING="9",
        )
        self.assertNotIn("CHANGED", self.text())
        self.assertEqual(self.info("Pages"), "1")

    def test_leaves_nothing_behind(self) -> None:
        self.render(self.page())
        self.assertEqual(list(self.temporary.iterdir()), [])
        self.assertEqual([path for path in self.home.rglob("*") if path.is_file()], [])

    def test_replaces_a_file(self) -> None:
        self.pdf.write_text("what was there")
        self.render(self.page())
        self.assertTrue(self.pdf.read_bytes().startswith(b"%PDF-"))

    def test_missing_page(self) -> None:
        self.pdf.write_text("what was there")
        self.assertIn("manca", self.fails(1, self.folder / "manca.html", self.pdf))
        self.fails(1, self.folder, self.pdf)
        self.assertEqual(self.pdf.read_text(), "what was there")
        self.assertEqual(len(list(self.out.iterdir())), 1)

    def test_file_that_cannot_be_written(self) -> None:
        page = self.page()
        self.assertIn("scrivere", self.fails(3, page, self.root / "manca" / "pagine.pdf"))
        self.fails(3, page, self.out)
        self.assertEqual(list(self.out.iterdir()), [])

    def test_nothing_but_a_file_makes_way(self) -> None:
        os.mkfifo(self.pdf)
        self.assertIn("scrivere", self.fails(3, self.page(), self.pdf))
        self.assertTrue(self.pdf.is_fifo())

    def test_wrong_use(self) -> None:
        page = self.page()
        for arguments in (
            [],
            [page],
            [page, self.pdf, "more"],
            [page, ""],
            ["--nonsense", page, self.pdf],
            [page, self.pdf, "--paper"],
            ["--paper", "A4", page, self.pdf],
            ["--paper", "0x0", page, self.pdf],
            ["--paper", "210x297x3", page, self.pdf],
            ["--margin", "-3", page, self.pdf],
            ["--margin", "95", page, self.pdf],
            ["--margin", "1,2", page, self.pdf],
            ["--margin", "10,95,10,95,10", page, self.pdf],
            ["--margin", "90,10,91,10", page, self.pdf],
        ):
            with self.subTest(arguments=arguments):
                self.fails(2, *arguments)
        self.assertEqual(list(self.out.iterdir()), [])

    def test_help(self) -> None:
        result = self.run_renderer("--help")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("quor-render [OPZIONI] PAGINA.html FILE.pdf", result.stdout)

    def test_double_hyphen_ends_the_options(self) -> None:
        (self.folder / "--help").write_bytes(b"<P>pagina")
        self.fails(2, "--", "--help")
        self.fails(1, "--", "--manca.html", self.pdf)

    def test_cost(self) -> None:
        """No limit on a machine that others use; the figures are for whoever reads the log."""
        page = self.page()
        begin = time.monotonic()
        self.render(page)
        seconds = time.monotonic() - begin
        memory = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss // 1024
        print(f"quor-render: {seconds:.2f} s, {memory} MiB", file=sys.stderr)
        self.assertLess(seconds, 30)


if __name__ == "__main__":
    unittest.main(verbosity=2)

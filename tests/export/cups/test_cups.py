"""Prints to a queue of a print system of its own and looks at what comes out.

Usage: test_cups.py TEST_PROGRAM
Needs Debian's cups, cups-client, cups-filters, printer-driver-cups-pdf (the description of a
printer) and poppler-utils. The print system wants the superuser; without, the test is skipped (77).
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "support"))
from tools import reason_to_skip  # noqa: E402

PROGRAM = os.path.abspath(sys.argv.pop(1))
QUEUE = "Prova"
DESCRIPTION = pathlib.Path("/usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd")
TIME_LIMIT = 60  # seconds

SERVER = """\
Listen {root}/run/cups.sock
Browsing Off
BrowseLocalProtocols none
DefaultAuthType None
WebInterface No
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
    Allow all
  </Limit>
</Policy>
"""

FILES = """\
ServerRoot {root}/etc
RequestRoot {root}/spool
TempDir {root}/spool/tmp
CacheDir {root}/cache
StateDir {root}/run
ErrorLog {root}/log/error
AccessLog {root}/log/access
PageLog {root}/log/page
SystemGroup root
FileDevice Yes
Sandboxing relaxed
"""


def wait_for(condition, what: str) -> None:
    end = time.monotonic() + TIME_LIMIT
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(f"never came: {what}")
        time.sleep(0.1)


class Cups(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        # Short: the path of a socket has little room. Readable: filters run as another user.
        cls.root = pathlib.Path(tempfile.mkdtemp(prefix="quor-cups-", dir="/tmp"))
        cls.addClassCleanup(shutil.rmtree, cls.root)
        cls.root.chmod(0o755)
        for folder in ("etc/ppd", "spool/tmp", "cache", "run/certs", "log", "out"):
            (cls.root / folder).mkdir(parents=True)
        (cls.root / "etc/cupsd.conf").write_text(SERVER.format(root=cls.root))
        (cls.root / "etc/cups-files.conf").write_text(FILES.format(root=cls.root))
        # The printer takes pages as they come out of the system's filters, as a document, and cannot
        # count copies itself.
        lines = DESCRIPTION.read_text(encoding="latin-1").splitlines()
        lines = [line for line in lines if not line.startswith("*cupsFilter")]
        lines.append('*cupsFilter2: "application/vnd.cups-pdf application/pdf 0 -"')
        lines.append("*cupsManualCopies: True")
        (cls.root / "printer.ppd").write_text("\n".join(lines) + "\n", encoding="latin-1")

        cls.environment = {
            "PATH": "/usr/sbin:/usr/bin:/sbin:/bin",
            "HOME": str(cls.root),
            "LC_ALL": "C.UTF-8",
            "CUPS_SERVER": f"{cls.root}/run/cups.sock",
            "QUOR_TEST_QUEUE": QUEUE,
        }
        cls.server = subprocess.Popen(
            ["/usr/sbin/cupsd", "-f", "-c", f"{cls.root}/etc/cupsd.conf"],
            stdin=subprocess.DEVNULL,
            start_new_session=True,
        )
        cls.addClassCleanup(cls.end_server)
        wait_for((cls.root / "run/cups.sock").exists, "the print system")
        cls.run_tool(
            "lpadmin", "-p", QUEUE, "-E", "-v", f"file://{cls.root}/out/pages.pdf", "-P", f"{cls.root}/printer.ppd"
        )

    @classmethod
    def end_server(cls) -> None:
        cls.server.terminate()
        cls.server.wait(TIME_LIMIT)

    @classmethod
    def run_tool(cls, *words: str) -> str:
        done = subprocess.run(words, env=cls.environment, capture_output=True, text=True, timeout=TIME_LIMIT)
        if done.returncode != 0:
            raise AssertionError(f"{words}: {done.stdout}{done.stderr}")
        return done.stdout

    def output(self) -> pathlib.Path:
        return self.root / "out/pages.pdf"

    def print_with(self, function: str) -> None:
        self.output().unlink(missing_ok=True)
        self.run_tool(PROGRAM, function)
        wait_for(lambda: not self.run_tool("lpstat", "-W", "not-completed", "-o"), "the end of the print")

    def pages(self) -> list[str]:
        done = subprocess.run(["pdftotext", self.output(), "-"], capture_output=True, check=True, text=True)
        return [page.strip() for page in done.stdout.split("\f")[:-1]]

    def test_dialog_knows_the_queue(self) -> None:
        self.run_tool(PROGRAM, "theDialogKnowsTheQueue")

    def test_chosen_pages_and_copies_arrive_as_text(self) -> None:
        self.print_with("printsChosenPages")
        self.assertEqual(self.pages(), ["due", "tre", "due", "tre"])

    def test_another_sheet_arrives_as_it_was_laid_out(self) -> None:
        self.print_with("printsOnAnotherSheet")
        done = subprocess.run(["pdftoppm", "-gray", "-r", "25.4", self.output()], capture_output=True, check=True)
        _, width, height, _, data = done.stdout.split(None, 4)
        width, height = int(width), int(height)
        rows = [data[y * width : (y + 1) * width] for y in range(height)]
        if width < height:  # the sheet goes upright through the printer
            rows = [bytes(row) for row in reversed(list(zip(*rows)))]
            found = self.black(rows)
            turned = self.black([row[::-1] for row in reversed(rows)])
            self.assertIn((20, 30, 100, 50), [self.rounded(found), self.rounded(turned)], (found, turned))
        else:
            self.assertEqual(self.rounded(self.black(rows)), (20, 30, 100, 50))

    @staticmethod
    def black(rows: list[bytes]) -> tuple[int, int, int, int]:
        """Left, top, width and height of what is black, in millimetres."""
        ys = [y for y, row in enumerate(rows) if min(row) < 128]
        xs = [x for x in range(len(rows[0])) if rows[ys[len(ys) // 2]][x] < 128]
        return xs[0], ys[0], len(xs), len(ys)

    @staticmethod
    def rounded(place: tuple[int, int, int, int]) -> tuple[int, ...]:
        return tuple(round(value / 5) * 5 for value in place)

    def test_painted_pages_arrive(self) -> None:
        self.print_with("paintsWithoutTheHandOverProgram")
        self.assertEqual(len(self.pages()), 2)

    def test_unknown_queue_is_reported(self) -> None:
        self.run_tool(PROGRAM, "reportsAnUnknownQueue")


if __name__ == "__main__":
    REASON = reason_to_skip("cupsd", "/usr/lib/cups/filter/pdftopdf", str(DESCRIPTION))
    if os.geteuid() != 0:
        REASON = "only the superuser can start a print system"
    if REASON:
        print("skipped:", REASON)
        sys.exit(77)
    unittest.main(verbosity=2)

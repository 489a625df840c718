#!/usr/bin/env python3
"""Files from a stranger, opened, looked at in every window, exported, previewed and printed: they
write nowhere but where they should, start nothing, reach no network, and nothing in them is markup.

Usage: test_untrusted.py [BUILD] [--full]

BUILD, else build/release, holds quor, quor-render and robustness_driver. What a run does is seen
from outside, by its system calls. --full previews and prints every name, not only some.
"""

import html.parser
import os
import pathlib
import re
import shutil
import subprocess
import sys
import urllib.parse

import support
from support import Place, count

BUILD = pathlib.Path()
FULL = False

# In code page 1252, as they stand in the file.
NAMES = {
    "up": b"../../../../../../tmp/quor-evil",
    "root": b"/etc/cron.d/quor-evil",
    "dots": b"..",
    "dot": b".",
    "windows": b"C:\\quor-evil\\..\\x|y?z*<>:\"",
    "home": b"~root/quor-evil",
    "percent": b"%2e%2e%2f%00%0a%s%n%1",
    "script": b"<script>document.title='x';fetch('http://192.0.2.7/')</script>",
    "image": b"<img src=http://192.0.2.7/x.png onerror=alert(1)>",
    "local image": b"<img src=file:///etc/passwd><b>x</b>",
    "style": b"</TITLE><style>@import url(//192.0.2.7/x.css);</style><iframe src=//192.0.2.7>",
    "refresh": b"<meta http-equiv=refresh content=0;url=http://192.0.2.7/>",
    "quotes": b"' onload='alert(1)' x=' \" onload=\"alert(1)\"",
    "entities": b"&lt;b&gt; &#60;script&#62; &amp; &nbsp &copy",
    "comment": b"--><!-- ]]> <![CDATA[ <?xml ?>",
    "shell": b"$(touch quor-evil) `touch quor-evil`; touch quor-evil | touch quor-evil &",
    "option": b"-o quor-evil",
    "long option": b"--help",
    "controls": bytes(range(1, 10)) + b"\x0b\x0c" + bytes(range(14, 32)) + bytes(range(127, 160)),
    "terminal": b"\x1b]0;quor-evil\x07\x1b[2J\x1b[31mrosso",
    "character set": b"\x1b$B<script>\x1b(B \x1b(J\\ +ADw-script+AD4-",
    "nul": b"Ma\0ria",
    "line": b"Ma\x85\xa0\xadria",
    "format": b"%n%n%n%s%s%s {0} %1 %2 \\n \\x41",
    "reserved": b"CON",
    "hyphens": b"-rf",
    "blanks": b"   quor-evil   ",
    "variables": b"$HOME/${IFS}quor-evil ~ %HOME% !x",
    "long": b"W" * 10000,
    "long words": b"Wort " * 2000,
    "long markup": b"<b>" * 3300,
    "colour": b"#ff0000\"><script>x</script>",
}
# Of files: a name of a file is the stranger's choice, too.
FILE_NAMES = ["<b>x<img src=x>.bio", "a\u202egnp.oib.bio", "-o quor-evil.bio", "--help.bio",
              "$(touch quor-evil).bio", "a\nb\x1b[2J.bio", "%2e%2e%2f.bio", "è&amp;#;?x=y.bio",
              "W" * 251 + ".bio", "è" * 125 + ".bio", "\U0001f600" * 60 + ".bio", "CON.bio", "-rf.bio",
              "  spazi  .bio", "..bio", "...bio", ".bio", "~.bio", "$HOME.bio", "a\\..\\b.bio", "a%s%n.bio",
              "a\u2028b\u200f.bio", "e\u0301.bio", "&amp;&lt;.bio"]
# What a terminal obeys: control characters but the line's end, and those of the writing direction.
COMMANDS = "[\\x00-\\x09\\x0b-\\x1f\\x7f-\\x9f\\u200e\\u200f\\u2028-\\u202e\\u2066-\\u2069]"
HEAD = "<DOCTYPE HTML PUBLIC>\r\n"  # to the letter
RENDERED = ["script", "up", "controls", "long"]


class Page(html.parser.HTMLParser):
    """What a browser would find in a page."""
    ALLOWED = {"html", "head", "title", "meta", "style", "body", "table", "tr", "th", "td", "b", "p",
               "img"}

    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.faults, self.pictures, self.text = [], [], {}
        self.inside = []

    def handle_starttag(self, tag, attributes):
        if tag not in self.ALLOWED:
            self.faults.append(f"<{tag}>")
        for name, value in attributes:
            if name.startswith("on") or name in ("href", "http-equiv", "background"):
                self.faults.append(f"{tag} {name}")
            if name == "src":
                self.pictures.append(value)
        if tag not in ("meta", "img"):
            self.inside.append(tag)

    def handle_endtag(self, tag):
        if not self.inside or self.inside.pop() != tag:
            self.faults.append(f"</{tag}>")

    def handle_data(self, data):
        self.text.setdefault(self.inside[-1] if self.inside else "", []).append(data)

    def handle_comment(self, data):
        self.faults.append(f"<!--{data}-->")

    def handle_pi(self, data):
        self.faults.append(f"<?{data}>")

    def unknown_decl(self, data):
        self.faults.append(f"<![{data}>")


def shown(name):
    """A name as a page's reader has it."""
    text = "".join(bytes([byte]).decode("cp1252", "replace") if byte >= 0x80 else chr(byte)
                   for byte in name.split(b'"')[0].replace(b"\0", b" "))
    return text


class Calls:
    """What a run has asked of the system."""
    WRITING = re.compile(r"O_WRONLY|O_RDWR|O_CREAT|O_TRUNC|O_APPEND")
    CHANGING = {"rename", "renameat", "renameat2", "unlink", "unlinkat", "mkdir", "mkdirat", "rmdir",
                "symlink", "symlinkat", "link", "linkat", "chmod", "fchmodat", "chown", "lchown",
                "fchownat", "truncate", "mknod", "mknodat", "utimensat", "setxattr", "lsetxattr"}

    def __init__(self, log):
        self.written, self.started, self.sockets, self.connections = set(), set(), set(), set()
        for line in log.read_text(encoding="utf-8", errors="replace").splitlines():
            match = re.match(r"\d+ +(\w+)\((.*)", line)
            if not match or re.search(r"\) += -1 ", line):
                continue  # refused by the system: nothing has happened
            call, rest = match.groups()
            if call in ("open", "openat", "openat2", "creat"):
                if call == "creat" or self.WRITING.search(rest.rsplit('"', 1)[-1]):
                    self.written.add(self.path(rest))
            elif call in self.CHANGING:
                self.written.update(self.paths(rest))
            elif call in ("execve", "execveat"):
                self.started.add(os.path.basename(self.path(rest)))
            elif call == "socket":
                self.sockets.add(rest.split(",")[0])
            elif call in ("connect", "sendto", "sendmsg", "bind") and "sa_family=AF_INET" in rest:
                self.connections.add(rest)

    @staticmethod
    def unquoted(text):
        return text.encode("latin-1", "replace").decode("unicode_escape", "replace")

    @classmethod
    def path(cls, rest):
        return cls.paths(rest)[0]

    @classmethod
    def paths(cls, rest):
        """Each path with the folder that it is relative to: strace names that, too."""
        found = []
        for folder, path in re.findall(r'(?:(?:AT_FDCWD|\d+)<([^>]*)>, )?"((?:[^"\\]|\\.)*)"', rest):
            found.append(os.path.normpath(os.path.join(folder or "/", cls.unquoted(path))))
        return found or ["?" + rest]


class UntrustedTest(Place):

    def setUp(self):
        super().setUp()
        self.out = self.home / "out"
        self.out.mkdir()

    def trace(self, *command):
        """Runs it. @return what it has asked of the system"""
        log = self.folder / "calls"
        words = [str(word) for word in command]
        trace = ["strace", "-f", "-y", "-qq", "-s", "5000", "-o", str(log),
                 "-e", "trace=open,openat,openat2,creat,execve,execveat,socket,connect,sendto,sendmsg,bind,"
                 + ",".join(sorted(Calls.CHANGING)), "--seccomp-bpf"]
        if not support.can_trace():
            self.skipTest("strace is missing or may not look at other processes here")
        result = subprocess.run([*trace, *words], env=support.environment(self.home),
                                cwd=self.home, capture_output=True, timeout=240, check=False)
        self.output = result.stdout.decode("utf-8", "replace")
        complaints = result.stderr.decode("utf-8", "replace")
        self.assertEqual(result.returncode, 0, self.output + complaints)
        return log

    def traced(self, *command):
        """Runs it and looks at what it does. @return its output"""
        self.check(Calls(self.trace(*command)))
        return self.output

    def check(self, calls):
        self.assertGreater(len(calls.started), 0, "nothing was seen")
        home = str(self.home)
        # The engine's processes share memory in the one and set themselves up in the other.
        own = (home + "/", "/dev/null", "/dev/shm/", "/proc/", "/memfd:")
        outside = [path for path in calls.written
                   if path != home and not path.startswith(own) and path != str(self.home / "out")]
        self.assertEqual(outside, [], "written outside of its folders")
        self.assertLessEqual(calls.started, {"robustness_driver", "quor", "quor-render",
                                             "QtWebEngineProcess", "exe"})
        self.assertEqual(calls.connections, set(), "reached for the network")
        for folder in (self.folder, pathlib.Path("/tmp"), pathlib.Path("/etc/cron.d")):
            self.assertEqual(list(folder.glob("quor-evil*")), [])
        self.assertEqual(list(self.folder.rglob("*/quor-evil*")), [])

    def check_windows(self, output):
        windows = re.findall(r"^window .*$", output, re.MULTILINE)
        self.assertGreater(len(windows), 1)
        self.assertEqual([window for window in windows if "fits" not in window], [])

    def check_products(self, expected):
        """Names that a file system and a person can bear; pages with nothing alive in them."""
        files = sorted(self.out.iterdir())
        self.assertEqual(len([f for f in files if f.suffix in (".png", ".html")]), expected)
        for file in files:
            self.assertTrue(file.is_file())
            self.assertLessEqual(len(os.fsencode(file.name)), 255)
            if file.suffix in (".png", ".html"):
                self.assertNotRegex(file.name, r'[\x00-\x1f\x7f-\x9f/\\:*?"<>|]')
        texts = []
        for file in self.out.glob("*.html"):
            page = Page()
            text = file.read_bytes().decode("latin-1")
            self.assertTrue(text.startswith(HEAD))
            page.feed(text.removeprefix(HEAD))
            page.close()
            self.assertEqual((page.faults, page.inside), ([], []), file.name)
            for picture in page.pictures:
                self.assertNotRegex(picture, r"^[A-Za-z][A-Za-z0-9+.-]*:|^/|^\\|(^|/)\.\.(/|$)")
                name = urllib.parse.unquote_to_bytes(picture.encode("latin-1"))
                candidates = {name.decode("utf-8", "replace"), name.decode("cp1252", "replace")}
                self.assertTrue(any(os.path.isfile(self.out / c) for c in candidates), picture)
            texts.append("".join(page.text["title"]))
            count("pages")
        return texts

    def test_what_is_looked_for_is_seen(self):
        """A stranger that does all of it would be noticed."""
        script = ("import os, socket, subprocess; open('../quor-evil', 'w'); "
                  "os.chdir('/'); os.close(os.open('tmp', os.O_RDONLY)); "
                  "socket.socket(socket.AF_INET, socket.SOCK_DGRAM).connect(('127.0.0.1', 9)); "
                  "subprocess.run(['true'])")
        log = self.trace(support.PYTHON, "-c", script)
        calls = Calls(log)
        self.assertIn(str(self.folder / "quor-evil"), calls.written)
        self.assertIn("true", calls.started)
        self.assertEqual(len(calls.connections), 1)

    def test_system_of_hostile_names(self):
        file = self.home / "..<i>sistema\u202e.brs"
        lines = [str(len(NAMES)).encode()]
        for name in NAMES.values():
            lines += [b'"' + name + b'"', b"#1981-12-25#"]
        tail = support.system([]).split(b"\r\n")[1:]
        file.write_bytes(b"\r\n".join([*lines, *tail]))
        output = self.traced(BUILD / "robustness_driver", "visit", file, self.out)
        self.assertIn("visited", output)
        self.check_windows(output)
        titles = self.check_products(6 * len(NAMES))
        self.assertEqual(len(titles), len(NAMES))
        count("names", len(NAMES))

    def test_without_a_window(self):
        file = self.home / "sistema.brs"
        names = list(NAMES.values())
        lines = [str(len(names)).encode()]
        for name in names:
            lines += [b'"' + name + b'"', b"#1981-12-25#"]
        tail = support.system([]).split(b"\r\n")[1:]
        file.write_bytes(b"\r\n".join([*lines, *tail]))
        output = self.traced(BUILD / "quor", "--export", file, "--output", self.out)
        # A line each, and nothing in it that a terminal would obey.
        self.assertEqual(len(output.splitlines()), 6 * len(NAMES))
        self.assertNotRegex(output, COMMANDS)
        self.check_products(6 * len(NAMES))
        for form in ("text", "json", "csv", "ics"):
            output = self.traced(BUILD / "quor", "--report", file, "--format", form)
            if form != "ics":  # whose long lines are folded
                self.assertNotRegex(output.replace("\r\n", "\n"), r"[\x00-\x08\x0b-\x1f\x7f]")
            self.assertGreater(len(output), 1000)

    def test_persons(self):
        if not (BUILD / "quor-render").is_file():
            self.skipTest("there is no engine for pages")
        for key in NAMES if FULL else RENDERED:
            with self.subTest(name=key):
                shutil.rmtree(self.out)
                self.out.mkdir()
                file = self.home / "persona.bio"
                file.write_bytes(b'"' + NAMES[key] + b'"' +
                                 support.person("").removeprefix(b'""'))
                output = self.traced(BUILD / "robustness_driver", "visit", file, self.out)
                self.assertIn("visited", output)
                self.check_windows(output)
                self.check_products(12)
                self.assertTrue((self.out / "stampa.pdf").read_bytes().startswith(b"%PDF"))
                count("names")

    def test_file_names(self):
        for name in FILE_NAMES:
            with self.subTest(name=name[:40]):
                shutil.rmtree(self.out)
                self.out.mkdir()
                file = self.home / name
                file.write_bytes(support.person("Maria"))
                output = self.traced(BUILD / "quor", "--export", file, "--output", self.out)
                self.assertNotRegex(output, COMMANDS)
                self.check_products(6)
                count("names")

    def test_long_paths(self):
        """As long as a path may be, and longer: all of it is written, or nothing."""
        product = len("/persona_21-11-2026_StatoSettimana0.png")
        for length, fits in ((4095 - product, True), (4095 - product + 1, False)):
            with self.subTest(length=length):
                folder = str(self.out)
                while len(folder) < length - 201:
                    folder += "/" + "d" * 200
                folder += "/" + "d" * (length - len(folder) - 1)
                os.makedirs(folder)
                file = self.home / "persona.bio"
                file.write_bytes(support.person("Maria"))
                result = subprocess.run(
                    [str(BUILD / "quor"), "--export", str(file), "--output", folder],
                    env=support.environment(self.home), capture_output=True, timeout=60, check=False)
                products = {name: os.path.getsize(f"{folder}/{name}") for name in os.listdir(folder)}
                self.assertEqual(result.returncode, 0 if fits else 1)
                failed = result.stderr.count(b": Errore: ")
                self.assertEqual(len(products) + failed, 6)
                self.assertEqual(failed, 0 if fits else 4)  # those of the longest names
                self.assertNotIn(0, products.values())
                count("names")
                shutil.rmtree(self.out)
                self.out.mkdir()

    def test_complaints(self):
        """What a terminal would obey does not reach it by way of a message."""
        file = self.home / "a\nb\x1b[2J\x9b.bio"
        for arguments in (["--export", file], ["--report", file]):
            for make in (lambda: None, file.touch, lambda: (file.unlink(), file.mkdir())):
                make()
                result = subprocess.run(
                    [str(BUILD / "quor"), *map(str, arguments), "--output", str(self.out / "x")],
                    env=support.environment(self.home), capture_output=True, timeout=60,
                    check=False)
                self.assertEqual((result.returncode, result.stdout), (1, b""))
                self.assertRegex(result.stderr.decode(), r"^quor: [^\x00-\x1f\x7f-\x9f]+\n\Z")
            file.rmdir()


if __name__ == "__main__":
    FULL = "--full" in sys.argv
    BUILD = support.build_folder()
    support.main(lambda tests, bad, skipped: f"{support.tried.get('names', 0)} strangers' names, "
                 f"{support.tried.get('pages', 0)} pages, {bad} tests wrong, {skipped} skipped")

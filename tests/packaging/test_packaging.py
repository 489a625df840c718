"""The program as people get it: the installed tree and the Debian package.

Usage: test_packaging.py SOURCES BUILD CMAKE CPACK
"""

import json
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from tools import reason_to_skip  # noqa: E402

SOURCES = BUILD = pathlib.Path()
CMAKE = CPACK = ""
HERE = pathlib.Path(__file__).resolve().parent
# What lintian says that is known and explained in docs/PACKAGING.md.
EXPLAINED_WARNINGS = []
SIZES = [16, 22, 24, 32, 48, 64, 128, 256]
TYPES = {".bio": "application/x-quor-bioritmo", ".brs": "application/x-quor-sistema"}
ICONS = {"apps/quor", *(f"mimetypes/{kind.replace('/', '-')}" for kind in TYPES.values())}
APP_ID = "alt.quor.quor"
# Why tests are skipped, where they are.
LACKS_APPSTREAM = reason_to_skip("appstreamcli")
LACKS_MANUAL = reason_to_skip("man", "mandoc")
LACKS_SANDBOX = reason_to_skip("flatpak-builder")
LACKS_LINTIAN = reason_to_skip("lintian")


def run(*command, **options):
    environment = {"PATH": os.environ["PATH"] + ":/usr/sbin:/sbin", "LC_ALL": "C.UTF-8",
                   "HOME": "/nonexistent", **options.pop("env", {})}
    return subprocess.run([str(word) for word in command], env=environment, text=True,
                          capture_output=True, timeout=300, check=False, **options)


class Folder(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))

    def assert_silent(self, result):
        """It went well and there was nothing to say."""
        self.assertEqual((result.returncode, result.stdout + result.stderr), (0, ""))


class InstalledTreeTest(Folder):

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        done = run(CMAKE, "--install", BUILD, "--prefix", "/usr",
                   env={"DESTDIR": str(cls.folder / "tree")})
        assert done.returncode == 0, done.stderr
        cls.usr = cls.folder / "tree/usr"
        cls.share = cls.usr / "share"

    def test_files(self):
        expected = {
            "bin/quor", "bin/quor-render",
            "lib/quor/modules/quor-calendar.so", "lib/quor/modules/quor-help.so",
            "lib/quor/modules/quor-paper.so",
            "share/quor/Quor.qch", "share/quor/Quor.qhc",
            "share/applications/quor.desktop", "share/mime/packages/quor.xml",
            f"share/metainfo/{APP_ID}.metainfo.xml", "share/doc/quor/copyright",
            "share/doc/quor/changelog.gz"}
        for manual in ("quor.1.gz", "quor-render.1.gz"):
            expected |= {f"share/man/man1/{manual}", f"share/man/it/man1/{manual}"}
        for icon in ICONS:
            expected.add(f"share/icons/hicolor/scalable/{icon}.svg")
            expected |= {f"share/icons/hicolor/{size}x{size}/{icon}.png" for size in SIZES}
        tree = self.folder / "tree"
        found = {str(path.relative_to(tree)) for path in tree.rglob("*") if not path.is_dir()}
        self.assertEqual(found, {f"usr/{path}" for path in expected})

    def test_icons(self):
        for icon in ICONS:
            ElementTree.parse(self.share / f"icons/hicolor/scalable/{icon}.svg")
            for size in SIZES:
                file = self.share / f"icons/hicolor/{size}x{size}/{icon}.png"
                with self.subTest(file=file):
                    head = file.read_bytes()[:24]
                    self.assertEqual(head[:8], b"\x89PNG\r\n\x1a\n")
                    self.assertEqual(struct.unpack(">II", head[16:]), (size, size))
                    # Paper, line, three cycles, and what lies outside is seen through.
                    picture = run("convert", file, "-format", "%k %[fx:p{0,0}.a]", "info:")
                    colours, corner = picture.stdout.split()
                    self.assertGreaterEqual(int(colours), 5)
                    self.assertLess(float(corner), 0.5)

    def test_menu_entry(self):
        file = self.share / "applications/quor.desktop"
        self.assert_silent(run("desktop-file-validate", file))
        entry = dict(line.split("=", 1) for line in file.read_text().splitlines() if "=" in line)
        self.assertEqual(entry["Exec"], "quor --open %f")
        self.assertEqual(set(entry["MimeType"].split(";")) - {""}, set(TYPES.values()))
        self.assertIn(f"apps/{entry['Icon']}", ICONS)
        for key in ("GenericName", "Comment", "Keywords"):
            self.assertTrue(entry[key])
            self.assertTrue(entry[f"{key}[it]"])

    def check_metainfo(self, file):
        """@return its releases"""
        result = run("appstreamcli", "validate", "--no-net", "--no-color", file)
        self.assertEqual(result.returncode, 0, result.stdout)
        self.assertNotRegex(result.stdout, r"(?m)^\s*[EW]:")
        return ElementTree.parse(file).getroot()

    @unittest.skipIf(LACKS_APPSTREAM, LACKS_APPSTREAM)
    def test_metainfo(self):
        component = self.check_metainfo(self.share / f"metainfo/{APP_ID}.metainfo.xml")
        self.assertEqual(component.findtext("id"), APP_ID)
        self.assertEqual(component.findtext("launchable"), "quor.desktop")
        self.assertEqual({node.text for node in component.iter("mediatype")}, set(TYPES.values()))
        self.assertIsNotNone(component.find("content_rating[@type='oars-1.1']"))
        # What AppStream 1.0 asks for, and what its forerunner reads.
        self.assertEqual(component.findtext("url[@type='homepage']"), "https://quor.example")
        self.assertTrue(component.findtext("developer_name"))
        self.assertEqual(component.findtext("developer/name"), component.findtext("developer_name"))

        # The releases are those of the changelog, and the first is what the program says it is.
        version = run(self.usr / "bin/quor", "--version").stdout.split()[1]
        headings = re.findall(r"(?m)^## \[(.+?)\](?: - (\S+))?$",
                              (SOURCES / "CHANGELOG.md").read_text())
        expected = [(version, "development") if name == "Unreleased" else (name, "stable")
                    for name, day in headings]
        releases = [(node.get("version"), node.get("type")) for node in component.iter("release")]
        self.assertEqual(releases, expected)
        self.assertEqual(releases[0][0], version)
        for node, (_, day) in zip(component.iter("release"), headings):
            self.assertRegex(node.get("date"), day or r"^\d{4}-\d\d-\d\d$")

    @unittest.skipIf(LACKS_APPSTREAM, LACKS_APPSTREAM)
    def test_metainfo_with_addresses(self):
        """Who hands packages on names an address and the pictures."""
        build = self.folder / "addresses"
        address = "https://quor.example"
        done = run(CMAKE, "-S", SOURCES, "-B", build, "-DQUOR_TESTS=OFF", "-DQUOR_BENCH=OFF",
                   f"-DQUOR_HOMEPAGE={address}", f"-DQUOR_SCREENSHOTS_URL={address}/images")
        self.assertEqual(done.returncode, 0, done.stderr)
        component = self.check_metainfo(build / f"packaging/{APP_ID}.metainfo.xml")
        self.assertEqual(component.findtext("url[@type='homepage']"), address)
        pictures = [node.text for node in component.iter("image")]
        images = {file.name for file in (SOURCES / "docs/images").iterdir()}
        self.assertEqual(set(pictures), {f"{address}/images/{name}" for name in images})
        self.assertEqual(len(component.findall("screenshots/screenshot[@type='default']")), 1)
        config = (build / "CPackConfig.cmake").read_text()
        self.assertIn(f'set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "{address}")', config)
        self.assertIn(f"The project lives at {address}.", config)

    def test_file_types(self):
        data = self.folder / "data"
        (data / "mime/packages").mkdir(parents=True)
        shutil.copy(self.share / "mime/packages/quor.xml", data / "mime/packages")
        environment = {"XDG_DATA_HOME": str(data), "XDG_CURRENT_DESKTOP": "GNOME"}
        self.assert_silent(run("update-mime-database", data / "mime", env=environment))
        files = [file for file in (SOURCES / "examples").iterdir() if file.suffix in TYPES]
        self.assertEqual({file.suffix for file in files}, set(TYPES))
        for file in files:
            result = run("xdg-mime", "query", "filetype", file, env=environment)
            self.assertEqual(result.stdout.strip(), TYPES[file.suffix], result.stderr)
        # Its picture goes by the type's name.
        for kind in TYPES.values():
            self.assertIn(f"mimetypes/{kind.replace('/', '-')}", ICONS)

    @unittest.skipIf(LACKS_MANUAL, LACKS_MANUAL)
    def test_manual(self):
        for program in ("quor", "quor-render"):
            usage = run(self.usr / "bin" / program, "--help").stdout
            options = set(re.findall(r"--[a-z]+", usage))
            self.assertTrue(options)
            for language in ("", "it/"):
                page = self.share / f"man/{language}man1/{program}.1.gz"
                with self.subTest(page=page):
                    self.assert_silent(run("mandoc", "-T", "lint", "-W", "style", page))
                    shown = run("man", "--warnings", "--encoding=UTF-8", "--local-file", page,
                                env={"MANWIDTH": "80", "MAN_KEEP_FORMATTING": ""})
                    self.assertEqual((shown.returncode, shown.stderr), (0, ""))
                    # Each option has its paragraph.
                    described = set(re.findall(r"(?m)^ {7}(--[a-z]+)", shown.stdout))
                    self.assertEqual(described, options)
        self.assertIn("bioritmi di persone", run(
            "man", "-l", self.share / "man/it/man1/quor.1.gz", env={"MANWIDTH": "80"}).stdout)


@unittest.skipIf(LACKS_SANDBOX, LACKS_SANDBOX)
class SandboxTest(Folder):
    """The manifest of the sandboxed program, as far as it can be tried without its runtime."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.file = SOURCES / f"packaging/flatpak/{APP_ID}.yml"
        cls.result = run("flatpak-builder", "--show-manifest", cls.file,
                         cwd=cls.folder)  # it leaves a folder where it runs
        cls.manifest = json.loads(cls.result.stdout)

    def test_manifest_is_understood(self):
        """An unknown property, too, is a warning."""
        self.assertEqual((self.result.returncode, self.result.stderr), (0, ""))
        self.assertEqual(self.manifest["id"], APP_ID)
        self.assertEqual(self.manifest["command"], "quor")

    def test_no_folder_and_no_network(self):
        permissions = {word for word in self.manifest["finish-args"]
                       if not word.startswith("--env=")}
        self.assertEqual(permissions, {"--share=ipc", "--socket=wayland", "--socket=fallback-x11",
                                       "--socket=cups", "--device=dri"})

    def test_names_that_may_be_handed_out(self):
        """Its last steps, tried on what is installed: file types and icons bear the program's name."""
        done = run(CMAKE, "--install", BUILD, "--prefix", self.folder)
        self.assertEqual(done.returncode, 0, done.stderr)
        module = next(module for module in self.manifest["modules"] if module["name"] == "quor")
        for step in module["post-install"]:
            self.assert_silent(run("sh", "-ec", step.replace("/app/", f"{self.folder}/"),
                                   env={"FLATPAK_ID": APP_ID}))
        share = self.folder / "share"
        types, = (share / "mime/packages").iterdir()
        self.assertEqual(types.name, f"{APP_ID}.xml")
        named = {node.get("name") for node in ElementTree.parse(types).iter()
                 if node.tag.endswith("}icon")}
        self.assertEqual(named, {f"{APP_ID}-bioritmo", f"{APP_ID}-sistema"})
        for folder in (share / "icons/hicolor").glob("*/mimetypes"):
            self.assertEqual({file.stem for file in folder.iterdir()}, named)
        for part, kind in (("desktop-file", "applications"), ("icon", "icons/hicolor/scalable/apps")):
            renamed = self.manifest[f"rename-{part}"]
            self.assertEqual([file.name.removesuffix(".svg") for file in (share / kind).iterdir()],
                             [renamed])


class DebianPackageTest(Folder):

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        done = run(CPACK, "--config", BUILD / "CPackConfig.cmake", "-B", cls.folder)
        assert done.returncode == 0, done.stdout + done.stderr
        cls.package, = cls.folder.glob("*.deb")

    def test_fields(self):
        def field(name):
            return run("dpkg-deb", "--field", self.package, name).stdout
        depends = {word.split()[0] for word in field("Depends").split(", ")}
        for library in ("libqt6widgets6", "libqt6svg6", "libqt6pdf6", "libqt6webenginecore6",
                        "libc6"):
            self.assertIn(library, depends)
        recommends = field("Recommends")
        for package in ("qt6-translations-l10n", "qt6-wayland", "libqt6sql6-sqlite",
                        "cups-client"):
            self.assertIn(package, recommends)
        wanted = (SOURCES / "scripts/packages.txt").read_text().splitlines()
        for package in recommends.split(", "):
            # What the program looks for is there when it is tested.
            self.assertIn(package.split("|")[0].strip(), wanted)
        # Nobody owns what it installs but the machine.
        for line in run("dpkg-deb", "--contents", self.package).stdout.splitlines():
            mode, owner, *_ = line.split()
            self.assertEqual(owner, "root/root")
            self.assertIn(mode, ("drwxr-xr-x", "-rw-r--r--", "-rwxr-xr-x"))

    @unittest.skipIf(LACKS_LINTIAN, LACKS_LINTIAN)
    def test_lintian(self):
        as_root = ["--allow-root"] if os.geteuid() == 0 else []
        result = run("lintian", *as_root, "--no-cfg", "--fail-on", "error", self.package,
                     env={"HOME": str(self.folder)})
        self.assertEqual((result.returncode, result.stderr), (0, ""), result.stdout)
        warnings = sorted({line.split()[2] for line in result.stdout.splitlines()})
        self.assertEqual(warnings, EXPLAINED_WARNINGS)

    def test_clean_place(self):
        as_root = [] if os.geteuid() == 0 else ["sudo", "--non-interactive"]
        if as_root and (not shutil.which("sudo") or run(*as_root, "true").returncode != 0):
            self.skipTest("only root can make a copy of this machine")
        result = run(*as_root, HERE / "clean_place.sh", self.package,
                     SOURCES / "examples")
        if result.returncode == 77:
            self.skipTest(f"no copy of this machine can be made: {result.stderr}")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(result.stdout, "installed, used, removed\n")


if __name__ == "__main__":
    SOURCES, BUILD = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    CMAKE, CPACK = sys.argv[3:5]
    unittest.main(argv=sys.argv[:1] + sys.argv[5:])

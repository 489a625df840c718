#!/usr/bin/env python3
"""Integer conversions: no source of ours is compiled without -Wconversion, none switches a warning
off, and what the flags are for is seen.

Usage: test_conversions.py [BUILD]

BUILD, else build/release, holds compile_commands.json. That there is no such warning in any source is
said by a build with QUOR_WERROR, as .ci/run makes it.
"""

import json
import pathlib
import re
import shlex
import subprocess
import unittest

import support
from support import count

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path()
FOLDERS = ("src", "tests", "fuzz", "bench", "packaging")
# A warning that is switched off, in a source or for a target.
SWITCHED_OFF = re.compile(r"diagnostic\s+(ignored|warning)|-Wno-|COMPILE_WARNING_AS_ERROR OFF"
                          r"|(?<![\w-])-w(?![\w-])")
PROBE = "int cut(double value) { return value; }\nshort cut(long value) { return value; }\n"


class ConversionsTest(unittest.TestCase):

    def setUp(self):
        entries = json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8"))
        self.commands = {pathlib.Path(entry["file"]): shlex.split(entry["command"])
                         for entry in entries}

    def test_every_source_has_the_flag(self):
        without = [str(file) for file, words in self.commands.items() if "-Wconversion" not in words]
        self.assertEqual(without, [])
        count("sources", len(self.commands))

    def test_no_warning_is_switched_off(self):
        files = [ROOT / "CMakeLists.txt", *(ROOT / "cmake").iterdir()]
        for folder in FOLDERS:
            files += [file for file in (ROOT / folder).rglob("*")
                      if file.suffix in (".cpp", ".h") or file.name == "CMakeLists.txt"]
        self.assertGreater(len(files), 200)
        faults = [f"{file.relative_to(ROOT)}: {line.strip()}" for file in files
                  for line in file.read_text(encoding="utf-8").splitlines()
                  if SWITCHED_OFF.search(line)]
        self.assertEqual(faults, [])
        count("files", len(files))

    def test_a_fault_is_seen(self):
        """With the very flags of a source, both conversions are named."""
        file, words = next((file, words) for file, words in self.commands.items()
                           if file.name == "Rounding.cpp" or "unity" in file.name)
        flags = [word for word in words if re.match(r"-(std|W|f)", word)]
        compiler = next(word for word in words if re.search(r"(\+\+|g\+\+|clang\+\+)[-\d]*$", word))
        result = subprocess.run([compiler, *flags, "-fsyntax-only", "-x", "c++", "-"], input=PROBE,
                                text=True, capture_output=True, timeout=60, check=False)
        self.assertEqual(len(re.findall(r"conversion\]$", result.stderr, re.MULTILINE)), 2,
                         f"{file}: {result.stderr}")


if __name__ == "__main__":
    BUILD = support.build_folder()
    support.main(lambda tests, bad, skipped: f"{support.tried.get('sources', 0)} sources compiled "
                 f"with -Wconversion, no warning switched off in {support.tried.get('files', 0)} files, "
                 f"{bad} tests wrong")

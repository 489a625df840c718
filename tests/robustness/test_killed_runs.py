#!/usr/bin/env python3
"""Runs of the program without a window, ended by kill -9 at random moments: each file is the old one
or the new one, whole.

Usage: test_killed_runs.py [BUILD [TIMES]]

BUILD, else build/release, holds quor.
"""

import pathlib
import random
import subprocess
import sys
import time

import support
from support import Place, count

BUILD = pathlib.Path()
TIMES = 40


class KilledRunsTest(Place):

    def run_whole(self, arguments):
        began = time.monotonic()
        subprocess.run(arguments, env=support.environment(self.home), check=True,
                       stdout=subprocess.DEVNULL, timeout=60)
        return time.monotonic() - began

    def kill_at(self, arguments, seconds):
        process = subprocess.Popen(arguments, env=support.environment(self.home),
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            process.wait(seconds)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
            return True
        return False

    def check(self, make, out):
        """`make` gives the arguments that write the one or the other content into the folder."""
        took, contents = 0, []
        for number in (0, 1):
            out.mkdir(exist_ok=True)
            took = self.run_whole(make(number))
            contents.append(support.listing(out))
        self.assertEqual(contents[0].keys(), contents[1].keys())
        self.assertTrue(all(contents[0][name] != contents[1][name] for name in contents[0]
                            if not name.endswith(".txt")))
        moments = random.Random(20261121)
        for i in range(TIMES):
            under_way = self.kill_at(make(i % 2), moments.uniform(0.2, 1.1) * took)
            found = support.listing(out)
            unfinished = set(found) - set(contents[0])
            for name in unfinished:  # "name.XXXXXX"
                self.assertIn(name.rpartition(".")[0], contents[0])
                (out / name).unlink()
            for name, content in contents[0].items():
                self.assertIn(found.get(name), (content, contents[1][name]),
                              f"{name} is neither the old nor the new one")
                count("new" if found[name] == (content, contents[1][name])[i % 2] else "old")
            count("kills")
            count("under way", int(under_way))

    def persons(self):
        sources = []
        for number in (0, 1):
            folder = self.folder / str(number)
            folder.mkdir()
            sources.append(folder / "persona.bio")
            birth = b"#1981-12-25#", b"#1975-03-02#"
            sources[-1].write_bytes(support.person("Maria Rossi").replace(birth[0], birth[number]))
        return sources

    def test_export(self):
        sources, out = self.persons(), self.folder / "out"
        self.check(lambda number: [str(BUILD / "quor"), "--export", str(sources[number]),
                                   "--output", str(out)], out)

    def test_report(self):
        sources, out = self.persons(), self.folder / "out"
        self.check(lambda number: [str(BUILD / "quor"), "--report", str(sources[number]),
                                   "--format", "csv", "--days", "20000",
                                   "--output", str(out / "rapporto.csv")], out)


if __name__ == "__main__":
    BUILD = support.build_folder()
    TIMES = int(sys.argv[2]) if len(sys.argv) > 2 else TIMES
    support.main(lambda tests, bad, skipped: f"{support.tried.get('kills', 0)} runs killed, "
                 f"{support.tried.get('under way', 0)} of them under way: "
                 f"{support.tried.get('old', 0)} files old, {support.tried.get('new', 0)} new, "
                 f"{bad} tests with another one")

"""What the tests of faults and strangers' files share.

A test counts what it tried; `main` runs a file's tests and prints the figure last. What a machine
does not allow (mounting, another user, looking at system calls) is skipped with its reason, and the
figure says so.
"""

import atexit
import ctypes
import os
import pathlib
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

NOBODY = 65534
SKIPPED = 77
MOUNTED = "QUOR_ROBUSTNESS_MOUNTED"

# Whoever starts a script with no surroundings has neither.
os.environ.setdefault("PATH", os.defpath)
PYTHON = sys.executable or os.readlink("/proc/self/exe")

tried = {}


def build_folder():
    """The first argument, or where the preset "release" builds."""
    if len(sys.argv) > 1 and not sys.argv[1].startswith("-"):
        return pathlib.Path(sys.argv[1]).absolute()
    return pathlib.Path(__file__).absolute().parents[2] / "build" / "release"


def count(what, number=1):
    tried[what] = tried.get(what, 0) + number


def enter_own_mounts():
    """Runs the script again where it may mount, for itself alone, if the machine allows that."""
    if MOUNTED in os.environ:
        return
    for options in (["--mount"], ["--mount", "--map-root-user"]):
        command = ["unshare", *options, "--propagation", "private"]
        probe = [*command, "mount", "-t", "tmpfs", "none", "/mnt"]
        if shutil.which("unshare") and not subprocess.run(
                probe, capture_output=True, check=False).returncode:
            os.environ[MOUNTED] = "yes"
            os.execvp(command[0], [*command, PYTHON, "-B", *sys.argv])
    os.environ[MOUNTED] = ""


def may_mount():
    return os.environ.get(MOUNTED) == "yes"


def mount(*arguments):
    subprocess.run(["mount", *map(str, arguments)], check=True)


def unmount(path):
    subprocess.run(["umount", "--lazy", str(path)], check=True)


def is_really_root():
    """Root, and not only by the name of a space of its own, where nobody else exists."""
    if os.geteuid() != 0:
        return False
    return pathlib.Path("/proc/self/uid_map").read_text().split()[2] != "1"


def can_trace():
    return shutil.which("strace") and not subprocess.run(
        ["strace", "-f", "-qq", "-o", "/dev/null", "true"], capture_output=True,
        check=False).returncode


def become_nobody():
    os.setgroups([])
    os.setgid(NOBODY)
    os.setuid(NOBODY)
    # Ended with the test; a change of user takes that away.
    ctypes.CDLL(None).prctl(1, signal.SIGKILL)


def within_reach(build, *programs):
    """The folder of the programs, or of copies of them where another user may not enter it: root's
    own home, for one, is closed to everybody else. What was not built is left out."""
    if not is_really_root() or all(folder.stat().st_mode & 0o001
                                   for folder in (build, *build.parents)):
        return build
    copies = pathlib.Path(tempfile.mkdtemp(prefix="quor-robustness-programs-"))
    atexit.register(shutil.rmtree, copies, ignore_errors=True)
    copies.chmod(0o755)
    for program in programs:
        if (build / program).is_file():
            shutil.copy(build / program, copies)
    return copies


def file_size_limit(size):
    def limit():
        resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    return limit


def environment(home, **more):
    """A machine without a display, in Italian, everything of the user's in one place."""
    home = str(home)
    return {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "HOME": home, "TMPDIR": home + "/tmp",
            "XDG_CONFIG_HOME": home + "/config", "XDG_DATA_HOME": home + "/data",
            "XDG_STATE_HOME": home + "/state", "XDG_CACHE_HOME": home + "/cache",
            "XDG_RUNTIME_DIR": home + "/run", "TZ": "Europe/Rome", **more}


def make_home(path):
    for folder in ("tmp", "config", "data", "state", "cache", "run"):
        (path / folder).mkdir(parents=True, exist_ok=True)
    (path / "run").chmod(0o700)
    return path


def listing(folder):
    """Everything in it with its content; None where nobody can look."""
    folder = pathlib.Path(folder)
    if not folder.is_dir():
        return None
    return {str(file.relative_to(folder)): file.read_bytes() if file.is_file() else None
            for file in sorted(folder.rglob("*"))}


def person(name, calculation="2026-11-21"):
    lines = [f'"{name}"', "#1981-12-25#", f"#{calculation}#", "2", "0",
             "16711680", "255", "65280", "65535", "255", "65280", "65535"]
    return "".join(line + "\r\n" for line in lines).encode("cp1252")


def system(names, calculation="2026-11-21"):
    lines = [str(len(names))]
    for name in names:
        lines += [f'"{name}"', "#1981-12-25#"]
    lines += [f"#{calculation}#", "2", "0",
              "16711680", "255", "65280", "65535", "255", "65280", "65535"]
    return "".join(line + "\r\n" for line in lines).encode("cp1252")


def own_complaints(text):
    """Without what the toolkit says about a bare machine."""
    about = ("This plugin does not support ", "QStandardPaths: ", "Detected locale ")
    return "".join(line for line in text.splitlines(True) if not line.startswith(about))


class Place(unittest.TestCase):
    """A test with a folder of its own that anybody may enter."""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quor-robustness-"))
        self.addCleanup(self.remove)
        self.folder.chmod(0o755)
        self.home = make_home(self.folder / "home")

    def remove(self):
        shutil.rmtree(self.folder, ignore_errors=True)


class Waiting:
    """A driver that says "ready" and waits to be told to go on."""

    def __init__(self, command, home, preexec=None, cwd=None):
        self.process = subprocess.Popen(
            [str(word) for word in command], env=environment(home), preexec_fn=preexec, cwd=cwd,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
            encoding="utf-8")

    def wait_ready(self):
        before = []
        for line in self.process.stdout:
            if line == "ready\n":
                return before
            before.append(line.rstrip("\n"))
        raise AssertionError(f"ended early: {before} {self.process.stderr.read()}")

    def go_on(self):
        """@return its lines after that, its end and its complaints"""
        out, errors = self.process.communicate("\n", timeout=60)
        return out.splitlines(), self.process.returncode, own_complaints(errors)


def main(figure):
    """Runs the tests of the script and prints the figure, a function of the result, last."""
    started = time.monotonic()
    program = unittest.main(module="__main__", argv=sys.argv[:1], exit=False, verbosity=1)
    result = program.result
    for test, reason in result.skipped:
        print(f"skipped: {test}: {reason}")
    print(f"({time.monotonic() - started:.1f} s)")
    bad = len(result.failures) + len(result.errors)
    print(figure(result.testsRun - len(result.skipped), bad, len(result.skipped)))
    if bad:
        sys.exit(1)
    sys.exit(SKIPPED if result.skipped and len(result.skipped) == result.testsRun else 0)

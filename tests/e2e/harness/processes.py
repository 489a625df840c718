"""Starting and ending processes, with all that they leave behind."""

import ctypes
import os
import signal
import subprocess

_libc = ctypes.CDLL(None, use_errno=True)
_PR_SET_PDEATHSIG = 1
_PR_SET_CHILD_SUBREAPER = 36


def adopt_orphans():
    """Makes processes whose parent ends our children, so that `reap` can collect them."""
    _libc.prctl(_PR_SET_CHILD_SUBREAPER, 1)


def spawn(argv, environment, signal_at_our_death, **options):
    """Starts a process in a group of its own.

    It gets the signal when this process is killed: a test run that ends by
    force must not leave anything behind.
    """
    def bind_to_parent():
        _libc.prctl(_PR_SET_PDEATHSIG, signal_at_our_death)

    return subprocess.Popen(argv, env=environment, stdin=subprocess.DEVNULL,
                            start_new_session=True, preexec_fn=bind_to_parent, **options)


def stop_process(process, grace=3.0):
    """Ends a process started by `spawn`, with its whole process group."""
    def signal_group(number):
        try:
            os.killpg(process.pid, number)
        except (ProcessLookupError, PermissionError):
            pass

    if process.poll() is None:
        signal_group(signal.SIGTERM)
        try:
            process.wait(grace)
        except subprocess.TimeoutExpired:
            signal_group(signal.SIGKILL)
            process.wait(grace)
    signal_group(signal.SIGKILL)  # whatever remains of its group


def processes_with(marker):
    """Ids of the live processes whose environment contains `marker`."""
    found = []
    for entry in os.listdir("/proc"):
        if not entry.isdigit() or int(entry) == os.getpid():
            continue
        try:
            with open(f"/proc/{entry}/environ", "rb") as file:
                if marker in file.read().split(b"\0"):
                    found.append(int(entry))
        except OSError:
            pass  # gone meanwhile, or somebody else's
    return found


def reap(pid):
    """Collects the exit status of an adopted orphan; True when there is none left."""
    try:
        return os.waitpid(pid, os.WNOHANG)[0] == pid
    except ChildProcessError:
        return True


def run_tool(environment, *argv):
    """Runs a program that answers within half a minute; returns what it said, as text."""
    # xdotool turns its arguments into key presses by the locale's encoding.
    return subprocess.run(argv, env={**environment, "LC_ALL": "C.UTF-8"},
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True, timeout=30)

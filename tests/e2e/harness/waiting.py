"""Waiting until something is true, for a bounded time."""

import time

from .atspi import pump_events

DEFAULT_TIMEOUT = 5.0
POLL_INTERVAL = 0.03


class HarnessError(AssertionError):
    """What was expected on the screen did not happen."""


def poll(condition, timeout=DEFAULT_TIMEOUT):
    """Calls `condition` until it returns something true; returns its last answer."""
    deadline = time.monotonic() + timeout
    while True:
        pump_events()
        answer = condition()
        if answer or time.monotonic() >= deadline:
            return answer
        time.sleep(POLL_INTERVAL)


def wait_for(condition, what, timeout=DEFAULT_TIMEOUT):
    """Like `poll`, but complains when the condition stays false.

    `what` is the complaint, or a function that makes it up.
    """
    answer = poll(condition, timeout)
    if not answer:
        text = what() if callable(what) else what
        raise HarnessError(f"{text} (waited {timeout:g} s)")
    return answer

"""The test case that starts the program under test."""

import os
import sys
import unittest

from .program import Program


def settings_file(home):
    """Where the program keeps its settings."""
    return os.path.join(home, ".config", "quor.ini")


class ProgramTestCase(unittest.TestCase):
    """A test that starts the program whose path QUOR_PROGRAM gives.

    The program must have ended, with no crash, when the test is over.  When a
    test fails, what the program showed and wrote goes to stderr; a picture of
    the screen is saved in the folder that QUOR_E2E_ARTIFACTS names, if it does.
    """

    def run(self, result=None):
        self._result = result if result is not None else self.defaultTestResult()
        self._failures_before = self._failure_count()
        return super().run(self._result)

    def _failure_count(self):
        return len(self._result.failures) + len(self._result.errors)

    def start_program(self, desktop, *arguments, path=None, first_start=False, **options):
        """A Program; `options` are those of its constructor.

        `path` is another program than QUOR_PROGRAM, such as a copy of it.

        Its settings keep the fast-start window from greeting, unless there are
        settings already, or none are wanted as at the `first_start`.
        """
        path = path or os.environ.get("QUOR_PROGRAM")
        self.assertTrue(path, "QUOR_PROGRAM must give the path of the program")
        options.setdefault("home", desktop.new_home())
        settings = settings_file(options["home"])
        if not first_start and not os.path.exists(settings):
            os.makedirs(os.path.dirname(settings), exist_ok=True)
            with open(settings, "w", encoding="utf-8") as file:
                file.write("[Options]\nFastStart=FALSE\n")
        program = Program(desktop, [path, *arguments], **options)
        self.addCleanup(self._finish, program)
        return program

    def _finish(self, program):
        if self._failure_count() == self._failures_before:
            program.finish()
            return
        # The test has failed for a reason of its own: a program left running
        # is no news then.
        print(f"\n{self.id()} has failed.", file=sys.stderr)
        if program.is_running():
            print(program.dump(), file=sys.stderr)
            directory = os.environ.get("QUOR_E2E_ARTIFACTS")
            if directory:
                os.makedirs(directory, exist_ok=True)
                program.screenshot(os.path.join(directory, self.id() + ".png"))
        else:
            print(f"The program ended with status {program.exit_status}.", file=sys.stderr)
        print(program.stderr_text(), file=sys.stderr)
        program.kill()

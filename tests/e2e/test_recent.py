#!/usr/bin/python3
"""What the program remembers from one run to the next: recent files and its window's place."""

import os
import signal
import unittest

from harness import (Desktop, ProgramTestCase, extents_of, is_enabled, name_of,
                     plain, poll, role_of, walk)
from harness.drag import Drag

RECENT = "Aperti di recente"
CLEAR = "Svuota elenco"
CLOSING_QUESTION = ("Questo comporterà la chiusura del bioritmo di {}. "
                    "Si desidera continuare ugualmente?")
FILE = ('"{}"\r\n#1981-12-25#\r\n#2004-03-15#\r\n2\r\n0\r\n16711680\r\n255\r\n65280\r\n65535\r\n'
        '255\r\n65280\r\n65535\r\n')

desktop = Desktop()


def setUpModule():
    desktop.start()


def tearDownModule():
    desktop.stop()


class RecentTest(ProgramTestCase):

    def setUp(self):
        self.home = desktop.new_home()

    # -- steps of the scenarios ----------------------------------------------

    def start(self, *arguments):
        return self.start_program(desktop, *arguments, home=self.home)

    def write(self, name, folder="."):
        os.makedirs(os.path.join(self.home, folder), exist_ok=True)
        path = os.path.normpath(os.path.join(self.home, folder, name + ".bio"))
        with open(path, "w", encoding="cp1252", newline="") as file:
            file.write(FILE.format(name))
        return path

    def state_text(self):
        with open(os.path.join(self.home, ".local/state/quor/stato.ini"),
                  encoding="utf-8") as file:
            return file.read()

    def submenu(self, program):
        """Entries of the closed submenu, by AT-SPI, and whether it can be opened."""
        bar = program.find("menu bar")
        node = next(node for node in walk(bar, showing=False)
                    if plain(name_of(node)) == RECENT and role_of(node) == "menu item"
                    and "bioritmi" in plain(name_of(self.top_of(node, bar))))
        entries = [name_of(entry) for entry in walk(node, showing=False)
                   if role_of(entry) == "menu item" and name_of(entry)]
        return entries, is_enabled(node)

    @staticmethod
    def top_of(node, bar):
        while node.get_parent() != bar:
            node = node.get_parent()
        return node

    def assert_submenu(self, program, entries):
        expected = ([*entries, CLEAR] if entries else [], bool(entries))
        seen = []

        def is_expected():
            seen[:] = [self.submenu(program)]
            return seen[0] == expected

        poll(is_expected)
        self.assertEqual(seen[0], expected)

    def answer(self, program, title, button):
        box = program.message_box(title)
        box.press(button)
        return box.text

    # -- scenarios -----------------------------------------------------------

    def test_recent_files(self):
        anna = self.write("Anna & Bea")
        lia = self.write("Lia")
        program = self.start("--open", anna)
        self.answer(program, "Aggiornare?", "No")
        program.window("Grafico di Anna & Bea")
        self.assert_submenu(program, ["1 Anna & Bea.bio"])
        self.assertEqual(program.terminate(), 0)

        program = self.start("--open", lia)
        self.answer(program, "Aggiornare?", "No")
        program.window("Grafico di Lia")
        self.assert_submenu(program, ["1 Lia.bio", "2 Anna & Bea.bio"])

        # With the questions of the command that opens.
        program.menu("File bioritmi", RECENT, "2 Anna & Bea.bio")
        self.assertEqual(self.answer(program, "Conferma", "No"), CLOSING_QUESTION.format("Lia"))
        program.menu("File bioritmi", RECENT, "2 Anna & Bea.bio")
        self.answer(program, "Conferma", "Sì")
        self.answer(program, "Aggiornare?", "No")
        program.window("Grafico di Anna & Bea")
        self.assert_submenu(program, ["1 Anna & Bea.bio", "2 Lia.bio"])

        # A file that is gone is named, and leaves the list.
        os.remove(lia)
        program.menu("File bioritmi", RECENT, "2 Lia.bio")
        self.assertEqual(self.answer(program, "Errore", "OK"), f'Il file "{lia}" non esiste.')
        program.window("Grafico di Anna & Bea")
        self.assert_submenu(program, ["1 Anna & Bea.bio"])
        self.assertIn(anna, self.state_text())
        self.assertNotIn(lia, self.state_text())

        program.menu("File bioritmi", RECENT, CLEAR)
        self.assert_submenu(program, [])
        self.assertNotIn(anna, self.state_text())
        self.assertEqual(program.terminate(), 0)

    def test_files_are_dropped(self):
        anna = self.write("Anna & Bea")
        lia = self.write("Lia")
        other = os.path.join(self.home, "Lia.txt")
        os.link(lia, other)
        program = self.start()
        window = program.x_window(program.window())
        left, top, width, height = extents_of(program.window())
        middle = (left + width // 2, top + height // 2)
        for unwelcome in ((other,), (anna, lia), (self.home,)):
            with Drag(desktop, window, middle, *unwelcome) as drag:
                self.assertFalse(drag.is_welcome(), unwelcome)
        with Drag(desktop, window, middle, anna) as drag:
            self.assertTrue(drag.is_welcome())
            # The other program gets its answer before anything is asked here.
            self.assertTrue(drag.drop())
        self.answer(program, "Aggiornare?", "No")
        graph = program.window("Grafico di Anna & Bea")
        # On a window inside, with the questions of the command that opens.
        left, top, width, height = extents_of(graph)
        with Drag(desktop, window, (left + width // 2, top + height // 2), lia) as drag:
            self.assertTrue(drag.is_welcome())
            self.assertTrue(drag.drop())
            box = program.message_box("Conferma")
            self.assertEqual(box.text, CLOSING_QUESTION.format("Anna & Bea"))
        with Drag(desktop, window, middle, lia) as drag:
            # While something is asked the frame takes nothing.
            self.assertFalse(drag.is_welcome())
        box.press("Sì")
        self.answer(program, "Aggiornare?", "No")
        program.window("Grafico di Lia")
        self.assert_submenu(program, ["1 Lia.bio", "2 Anna & Bea.bio"])
        self.assertEqual(program.terminate(), 0)

    def test_the_place_of_the_window(self):
        program = self.start()
        first = extents_of(program.window())
        wanted = (first[0] + 40, first[1] + 30, first[2] - 200, first[3] - 100)
        window = program.x_window(program.window())
        desktop.xdotool("windowsize", "--sync", window, wanted[2], wanted[3])
        # The window manager counts the frame that it draws.
        self.assert_place(program, (*first[:2], *wanted[2:]))
        desktop.xdotool("windowmove", window, wanted[0], wanted[1])
        poll(lambda: extents_of(program.window())[:2] != first[:2])
        moved = extents_of(program.window())
        self.assertNotEqual(moved[:2], first[:2])

        program.menu("File sistemi", "Esci dal Quor")
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())
        program = self.start()
        self.assert_place(program, moved)

        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())
        program = self.start()
        self.assert_place(program, moved)

        desktop.xdotool("windowsize", "--sync", program.x_window(program.window()), 700, 500)
        self.assert_place(program, (*moved[:2], 700, 500))
        program.close_box(program.window())
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())
        program = self.start()
        self.assert_place(program, (*moved[:2], 700, 500))
        self.assertEqual(program.terminate(), 0)

    def assert_place(self, program, place):
        poll(lambda: tuple(extents_of(program.window())) == tuple(place))
        self.assertEqual(tuple(extents_of(program.window())), tuple(place))


if __name__ == "__main__":
    unittest.main(verbosity=2)

#!/usr/bin/python3
"""Work that was not saved comes back after an end that asked nothing."""

import os
import unittest

from harness import Desktop, ProgramTestCase, children_of, name_of, poll, wait_for
from harness.session import SessionManager

CLOSING = ("Questo comporterà la chiusura del bioritmo di Maria Rossi. "
           "Si desidera continuare ugualmente?")
SAVING = ("Sono presenti dati non salvati. Si desidera salvare prima di chiudere il bioritmo "
          "di Maria Rossi ?")
LINES = ['"Maria Rossi"', "#1981-12-25#", "#2004-03-15#", "2", "0",
         "16711680", "255", "65280", "65535", "255", "65280", "65535"]

desktop = Desktop()


def setUpModule():
    desktop.start()


def tearDownModule():
    desktop.stop()


class RecoveryTest(ProgramTestCase):

    def setUp(self):
        self.home = desktop.new_home()

    # -- steps of the scenarios ----------------------------------------------

    def start(self, *arguments):
        return self.start_program(desktop, *arguments, home=self.home)

    def waiting(self):
        """The files with work put aside."""
        folder = os.path.join(self.home, ".local/state/quor/recupero")
        names = os.listdir(folder) if os.path.isdir(folder) else []
        return [os.path.join(folder, name) for name in names if name.endswith((".bio", ".brs"))]

    def wait_put_aside(self, content):
        """Waits until a file with this content waits for the next start."""
        def is_there():
            for path in self.waiting():
                with open(path, encoding="cp1252", newline="") as file:
                    if content in file.read():
                        return True
            return False
        wait_for(is_there, f"{content!r} is not put aside")

    def write(self, name, lines):
        path = os.path.join(self.home, name)
        with open(path, "w", encoding="cp1252", newline="") as file:
            file.write("".join(line + "\r\n" for line in lines))
        return path

    def read(self, path):
        with open(path, encoding="cp1252", newline="") as file:
            return file.read().split("\r\n")[:-1]

    def enter_maria(self, program):
        program.menu("File bioritmi", "Calcola nuovo")
        dialog = program.dialog("Inserimento")
        for label, text in (("Nome:", "Maria Rossi"), ("Data di nascita:", "25/12/1981"),
                            ("Giorno attorno al quale calcolare il bioritmo:", "15/03/2004")):
            program.set_text(program.text_field(dialog, label), text)
        program.click(program.button(dialog, "Ok"))
        program.wait_gone(dialog)

    @staticmethod
    def move_to(program, day):
        program.menu("File bioritmi", "Sposta data di calcolo")
        dialog = program.dialog("Inserimento")
        program.set_text(program.find(("text", "entry"), parent=dialog), day)
        program.key("Enter")
        program.message_box("Operazione eseguita.").press("OK")

    def offer(self, program, whose, path):
        box = program.message_box("Recupero")
        lines = box.text.split("\n")
        self.assertEqual(lines[0], "Quor è terminato prima che queste modifiche fossero salvate.")
        self.assertEqual(lines[2:4], [whose, "File: " + path])
        self.assertRegex(lines[4], r"^Ultima modifica: \d\d/\d\d/\d{4} alle \d\d:\d\d$")
        self.assertEqual(sorted(box.buttons), ["Elimina", "Più tardi", "Recupera"])
        return box

    def assert_panels(self, program, *texts):
        bar = program.find("status bar")
        panels = []

        def read_panels():
            panels[:] = [text for text in map(name_of, children_of(bar)) if text]
            return panels == list(texts)

        poll(read_panels)
        self.assertEqual(panels, list(texts))

    def assert_maria_is_open(self, program, day="15/03/2004"):
        program.window("Grafico di Maria Rossi")
        self.assert_panels(program, "Nome: Maria Rossi", "Data di nascita: 25/12/1981",
                           "Data in esame per il calcolo: " + day)

    def quit_maria(self, program, save=None):
        program.menu("File bioritmi", "Esci da Quor")
        box = program.message_box("Conferma")
        self.assertEqual(box.text, CLOSING)
        box.press("Sì")
        if save is not None:
            box = program.message_box("Conferma")
            self.assertEqual(box.text, SAVING)
            box.press(save)
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())

    def assert_nothing_is_offered(self, *arguments):
        """A start after which the frame is free at once."""
        program = self.start(*arguments)
        program.wait_active(program.window("Quor"))
        captions = [item.caption for item in program.menu_items("File bioritmi")]
        self.assertIn("Calcola nuovo", captions)
        self.assertEqual(program.dialogs(), [])
        self.assertEqual(program.terminate(), 0)

    # -- scenarios -----------------------------------------------------------

    def test_a_changed_file_after_a_crash(self):
        path = self.write("maria.bio", LINES)
        program = self.start("--open", path)
        program.message_box("Aggiornare?").press("No")
        self.assert_maria_is_open(program)
        self.move_to(program, "16/04/2005")
        self.wait_put_aside("#2005-04-16#")
        program.kill_at_once()
        self.assertEqual(self.read(path), LINES)

        program = self.start()
        box = self.offer(program, "Bioritmo di Maria Rossi", path)
        box.press("Recupera")
        # Open as it was: the day of calculation is not asked about.
        self.assert_maria_is_open(program, "16/04/2005")
        program.menu("File bioritmi", "Salva bioritmo")
        program.message_box("Ok").press("OK")
        self.assertEqual(self.read(path), LINES[:2] + ["#2005-04-16#"] + LINES[3:])
        self.quit_maria(program)
        self.assertEqual(self.waiting(), [])
        self.assert_nothing_is_offered()

    def test_the_end_of_the_session_while_it_asks(self):
        program = self.start()
        self.enter_maria(program)
        program.menu("File bioritmi", "Esci da Quor")
        program.message_box("Conferma").press("Sì")
        self.assertEqual(program.message_box("Conferma").text, SAVING)
        # Closing this question would mean not to save.
        self.assertEqual(program.terminate(), 0, program.stderr_text())

        # What the box is closed with is offered again.
        program = self.start()
        self.offer(program, "Bioritmo di Maria Rossi", "nessuno")
        program.key("Escape")
        program.wait_active(program.window("Quor"))
        self.assertEqual(program.terminate(), 0)

        program = self.start()
        self.offer(program, "Bioritmo di Maria Rossi", "nessuno").press("Recupera")
        self.assert_maria_is_open(program)
        self.quit_maria(program, save="No")
        self.assert_nothing_is_offered()

    def test_the_desktop_logs_out(self):
        session = SessionManager(self.home)
        self.addCleanup(session.stop)
        in_session = {"SESSION_MANAGER": session.address}
        program = self.start_program(desktop, home=self.home, env=in_session)
        self.enter_maria(program)
        # Neither is the desktop kept waiting nor the user asked.
        self.assertEqual(session.ask_to_save(), ["saved"])
        session.end()
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())

        # Nor when something is being asked at that moment.
        program = self.start_program(desktop, home=self.home, env=in_session)
        self.offer(program, "Bioritmo di Maria Rossi", "nessuno")
        self.assertEqual(session.ask_to_save(), ["saved"])
        session.end()
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())

        # A desktop may not wait any longer than for the answer.
        program = self.start_program(desktop, home=self.home, env=in_session)
        self.offer(program, "Bioritmo di Maria Rossi", "nessuno").press("Recupera")
        self.assert_maria_is_open(program)
        self.move_to(program, "16/04/2005")
        self.assertEqual(session.ask_to_save(), ["saved"])
        program.kill_at_once()

        program = self.start()
        self.offer(program, "Bioritmo di Maria Rossi", "nessuno").press("Recupera")
        self.assert_maria_is_open(program, "16/04/2005")
        self.quit_maria(program, save="No")

    def test_a_system_and_a_named_file(self):
        system = ["2", '"Anna Bianchi"', "#2000-01-01#", '"Bruno Neri"', "#1938-07-30#",
                  *LINES[2:]]
        path = self.write("rossi.brs", system)
        program = self.start("--open", path)
        program.message_box("Aggiornare?").press("Sì")
        program.window("Sistema corrente")
        self.wait_put_aside("Anna Bianchi")
        program.kill_at_once()

        maria = self.write("maria.bio", LINES)
        program = self.start("--open", maria)
        self.offer(program, "Sistema con 2 bioritmi", path).press("Recupera")
        # The named file comes after it, with the questions of every other.
        box = program.message_box("Conferma")
        self.assertRegex(box.text, "^Questo comporterà la chiusura del sistema")
        box.press("No")
        program.window("Sistema corrente")
        program.menu("File sistemi", "Salva sistema")
        self.assertEqual(program.message_box("Ok").text, "Sistema salvato")
        program.message_box("Ok").press("OK")
        saved = self.read(path)
        self.assertNotEqual(saved[5], system[5])
        self.assertEqual(saved[:5] + saved[6:], system[:5] + system[6:])
        program.menu("File sistemi", "Esci dal Quor")
        program.message_box("Conferma").press("Sì")
        self.assertEqual(program.wait_exit(), 0)
        self.assert_nothing_is_offered()

    def test_two_programs_at_once(self):
        first = self.start()
        self.enter_maria(first)
        self.wait_put_aside('"Maria Rossi"')
        # The other one leaves a living program's work alone.
        self.assert_nothing_is_offered()
        self.assertEqual(len(self.waiting()), 1)
        first.kill_at_once()

        second = self.start()
        box = self.offer(second, "Bioritmo di Maria Rossi", "nessuno")
        box.press("Elimina")
        box = second.message_box("Recupero")
        self.assertRegex(box.text, "andranno perse")
        box.press("Sì")
        second.wait_active(second.window("Quor"))
        self.assertEqual(second.terminate(), 0)
        self.assertEqual(self.waiting(), [])

    def test_what_is_saved_is_not_offered(self):
        path = self.write("maria.bio", LINES)
        program = self.start("--open", path)
        program.message_box("Aggiornare?").press("No")
        self.assert_maria_is_open(program)
        program.kill_at_once()
        self.assert_nothing_is_offered()


if __name__ == "__main__":
    unittest.main(verbosity=2)

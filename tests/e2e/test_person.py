#!/usr/bin/python3
"""One person's biorhythm from the input dialog to the file and back."""

import os
import re
import signal
import unittest

from harness import (Desktop, ProgramTestCase, children_of, is_read_only,
                     is_showing, name_of, poll, text_of, wait_for)

NAME = "Maria Rossi"
BIRTH = "25/12/1981"
DAY = "15/03/2004"

STATUS = ["Nome: Maria Rossi",
          "Data di nascita: 25/12/1981",
          "Data in esame per il calcolo: 15/03/2004"]

CLOSING_QUESTION = ("Questo comporterà la chiusura del bioritmo di Maria Rossi. "
                    "Si desidera continuare ugualmente?")
UPDATE_QUESTION = ("La data di calcolo è diversa da quella di oggi. "
                   "Si desidera aggiornarla?")
INPUT_ERROR = ("Nome non presente o formato date errato. "
               "Possibili date sono 25/12/1981 o 13 Nov 1945 o 05-06-85")

FILE_LINES = ['"Maria Rossi"', "#1981-12-25#", "#2004-03-15#", "2", "0",
              "16711680", "255", "65280", "65535", "255", "65280", "65535"]

desktop = Desktop()


def setUpModule():
    desktop.start()


def tearDownModule():
    desktop.stop()


class PersonTest(ProgramTestCase):

    def setUp(self):
        self.program = self.start_program(desktop)

    # -- steps of the scenarios ----------------------------------------------

    def open_input_dialog(self):
        self.program.menu("File bioritmi", "Calcola nuovo")
        return self.program.dialog("Inserimento")

    def input_fields(self, dialog):
        return [self.program.text_field(dialog, label) for label in (
            "Nome:", "Data di nascita:", "Giorno attorno al quale calcolare il bioritmo:")]

    def fill_in(self, dialog, *texts):
        for field, text in zip(self.input_fields(dialog), texts, strict=True):
            self.program.set_text(field, text)

    def calculate(self):
        """Enters Maria's dates; returns when her graph is there."""
        dialog = self.open_input_dialog()
        self.fill_in(dialog, NAME, BIRTH, DAY)
        self.program.click(self.program.button(dialog, "Ok"))
        self.program.wait_gone(dialog)
        self.assert_graph_is_shown()

    def assert_graph_is_shown(self):
        """The child window, its dates and the status bar are Maria's."""
        program = self.program
        graph = program.window("Grafico di Maria Rossi")
        for name, date in (("Data in esame", "lunedì 15 marzo 2004"),
                           ("Prima data", "martedì 24 febbraio 2004"),
                           ("Ultima data", "domenica 4 aprile 2004")):
            box = program.text_field(graph, name)
            self.assertEqual(text_of(box), date, name)
            self.assertTrue(is_read_only(box), name)

        bar = program.find("status bar")
        panels = []

        def read_panels():
            panels[:] = [text for text in map(name_of, children_of(bar)) if text]
            return panels == STATUS

        poll(read_panels)
        self.assertEqual(panels, STATUS)

    def assert_stays_open(self):
        """After a refusal nothing has changed, and the program still answers."""
        program = self.program
        program.wait_active(program.window())
        self.assertEqual(program.dialogs(), [])
        self.assert_graph_is_shown()
        # An open menu shows that the program has not begun to end.
        captions = [item.caption for item in program.menu_items("File bioritmi")]
        self.assertIn("Calcola nuovo", captions)

    # -- scenarios -----------------------------------------------------------

    def test_calculate_save_open_and_quit(self):
        program = self.program
        self.calculate()

        path = os.path.join(program.home, "maria.bio")
        program.menu("File bioritmi", "Salva con nome")
        program.file_dialog("Salva").choose(path)
        box = program.message_box("Ok")
        self.assertEqual(box.text, "File salvato")
        self.assertEqual(box.buttons, ["OK"])
        box.press("OK")
        with open(path, "rb") as file:
            self.assertEqual(file.read(), "".join(
                line + "\r\n" for line in FILE_LINES).encode("ascii"))

        program.menu("File bioritmi", "Apri bioritmo")
        box = program.message_box("Conferma")
        self.assertEqual(box.text, CLOSING_QUESTION)
        self.assertEqual(sorted(box.buttons), ["No", "Sì"])
        box.press("Sì")
        # What has been saved is not asked about: the file dialog comes next.
        program.file_dialog("Apri").choose(path)
        box = program.message_box("Aggiornare?")
        self.assertEqual(box.text, UPDATE_QUESTION)
        self.assertEqual(sorted(box.buttons), ["No", "Sì"])
        box.press("No")
        self.assert_graph_is_shown()

        program.menu("File bioritmi", "Esci da Quor")
        program.message_box("Conferma").press("Sì")
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())

    def test_right_click_tells_the_values_of_the_day(self):
        program = self.program
        self.calculate()
        picture = program.find(name="Finestra del grafico",
                               parent=program.window("Grafico di Maria Rossi"))
        program.click(picture, button=3)
        popup = program.popup()
        captions = popup.captions()
        for caption in ("Giorno 15/03/2004", "Fisico: -7", "Emotivo: -8",
                        "Intellettivo: -4", "Media: -6", "Opzioni"):
            self.assertIn(caption, captions)
        popup.dismiss()
        self.assertEqual(program.terminate(), 0)

    def test_bad_input_is_refused_and_kept(self):
        program = self.program
        dialog = self.open_input_dialog()
        for texts in (("", BIRTH, DAY),
                      (NAME, "31/02/2000", DAY),
                      (NAME, BIRTH, "oggi")):
            with self.subTest(texts=texts):
                self.fill_in(dialog, *texts)
                program.click(program.button(dialog, "Ok"))
                box = program.message_box("Errore")
                self.assertEqual(box.text, INPUT_ERROR)
                self.assertEqual(box.buttons, ["OK"])
                box.press("OK")
                program.wait_active(dialog)
                self.assertEqual([text_of(field) for field in self.input_fields(dialog)],
                                 list(texts))
        program.click(program.button(dialog, "Annulla"))
        program.wait_gone(dialog)
        self.assertEqual(program.find_all(name=re.compile("^Grafico di")), [])
        self.assertEqual(program.terminate(), 0)

    def test_sigterm_ends_without_a_question(self):
        program = self.program
        self.calculate()
        program.send_signal(signal.SIGTERM)

        # A box would keep the program from ending: looked for all along, as it
        # may be gone again by the time the program ends.
        boxes = []

        def ended():
            boxes.extend(program.dialogs())
            return boxes or not program.is_running()

        wait_for(ended, "the program does not end", timeout=3)
        self.assertEqual(boxes, [])
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())

    def test_close_box_asks_first(self):
        program = self.program
        self.calculate()
        for close in (lambda: program.close_box(program.window()),
                      lambda: program.key("Alt+F4")):
            close()
            box = program.message_box("Conferma")
            self.assertEqual(sorted(box.buttons), ["No", "Sì"])
            box.press("No")
            self.assert_stays_open()
        self.assertTrue(is_showing(program.window()))
        self.assertEqual(program.terminate(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)

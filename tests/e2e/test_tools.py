#!/usr/bin/python3
"""What an assistive tool does over the accessibility bus, where it has an action for it."""

import os
import unittest

from harness import (Desktop, ProgramTestCase, description_of, is_enabled, text_of, wait_for)

SYSTEM = "Sistema corrente"
PHOTOGRAPHS = os.environ.get("QUOR_TOOLS_PHOTOGRAPHS")  # where somebody wants to look

desktop = Desktop(size=(1280, 1024))


def setUpModule():
    desktop.start()


def tearDownModule():
    desktop.stop()


def act(node):
    """Does the first action of a node: the one that it is there for."""
    node.get_action_iface().do_action(0)


class ToolsTest(ProgramTestCase):
    def setUp(self):
        self.program = self.start_program(desktop)

    def photograph(self, name):
        if PHOTOGRAPHS:
            self.program.screenshot(os.path.join(PHOTOGRAPHS, name + ".png"))

    def enter(self, name, toggled=()):
        program = self.program
        dialog = program.dialog("Inserimento")
        for label, text in (("Nome:", name), ("Data di nascita:", "25/12/1981"),
                            ("Giorno attorno al quale calcolare il bioritmo:", "15/03/2004")):
            field = program.text_field(dialog, label)
            field.get_editable_text_iface().set_text_contents(text)
            wait_for(lambda field=field, text=text: text_of(field) == text, f"no {text}")
        for caption in toggled:
            act(program.checkbox(dialog, caption))
        act(program.button(dialog, "Ok"))
        program.wait_gone(dialog)

    def set_days(self, window, days):
        program = self.program
        program.click(program.find(name="Finestra del grafico", parent=window), 3)
        program.popup().choose("Opzioni")
        dialog = program.dialog("Opzioni del grafico")
        field = program.text_field(dialog, "Giorni attorno alla data di calcolo")
        field.get_editable_text_iface().set_text_contents(days)
        act(program.button(dialog, "Ok"))
        program.wait_gone(dialog)

    def test_a_person(self):
        program = self.program
        program.menu("File bioritmi", "Calcola nuovo")
        self.enter("Maria Rossi", ["Calcola statistiche"])
        program.window("Statistiche di Maria Rossi")
        graph = program.window("Grafico di Maria Rossi")
        picture = program.find(name="Finestra del grafico", parent=graph)
        act(program.checkbox(graph, "Emotivo"))
        act(program.button(graph, "Aggiorna"))
        wait_for(lambda: "fisico, intellettivo" in description_of(picture),
                 lambda: description_of(picture))
        self.assertEqual(program.terminate(), 0)

    def test_a_member_of_a_system(self):
        program = self.program
        program.menu("File sistemi", "Nuovo sistema")
        system = program.window(SYSTEM)
        act(program.button(system, "Inserisci nuovo"))
        self.enter("Anna")
        tree = program.find("tree", parent=system)
        member = program.find(name="Bioritmo di Anna", parent=tree)
        open_ = program.button(system, "Apri la vista scelta")
        self.assertFalse(is_enabled(open_))
        program.click(member)
        program.key("Right")
        act(program.find(name="Grafico", parent=tree))
        wait_for(lambda: is_enabled(open_), "nothing to open")
        self.photograph("leaf")
        act(open_)
        graph = program.window("Grafico di Anna")
        picture = program.find(name="Finestra del grafico", parent=graph)
        before = desktop.place_of(graph)

        self.set_days(graph, "30")
        note = "Le curve cominciano ancora dal giorno con cui sono state aperte (24/02/2004)."
        program.label(graph, note)
        self.assertTrue(description_of(picture).endswith(note), description_of(picture))
        program.click(picture, 3)
        popup = program.popup()
        self.photograph("note")
        self.assertIn(note, popup.captions())
        popup.dismiss()
        act(program.button(graph, "Riapri"))
        wait_for(lambda: note not in description_of(picture), lambda: description_of(picture))
        self.photograph("reopened")
        self.assertEqual(desktop.place_of(graph), before)
        self.assertIn("30 giorni prima", description_of(picture))
        self.assertEqual(program.terminate(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)

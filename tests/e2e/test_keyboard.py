#!/usr/bin/python3
"""A person's graph without a mouse, read as a screen reader does."""

import unittest

from harness import (Atspi, Desktop, ProgramTestCase, description_of, has_state, is_checked,
                     name_of, role_of, wait_for)

GRAPH = "Grafico di Maria Rossi"
WEEK = "Grafico settimanale di Maria Rossi"

desktop = Desktop(size=(1280, 1024))


def setUpModule():
    desktop.start()


def tearDownModule():
    desktop.stop()


class KeyboardTest(ProgramTestCase):
    def setUp(self):
        self.program = self.start_program(desktop)

    def tab_to(self, node):
        """Presses the tab key until a node has the keyboard."""
        for _ in range(40):
            if has_state(node, "focused"):
                return
            self.program.key("Tab")
        wait_for(lambda: has_state(node, "focused"), f"tab does not reach {name_of(node)!r}")

    def enter_person(self, choices):
        program = self.program
        program.wait_active(program.window())
        program.menu("File bioritmi", "Calcola nuovo", by="keys")
        dialog = program.dialog("Inserimento")
        for label, text in (("Nome:", "Maria Rossi"), ("Data di nascita:", "25/12/1981"),
                            ("Giorno attorno al quale calcolare il bioritmo:", "15/03/2004")):
            self.tab_to(program.text_field(dialog, label))
            program.key("Ctrl+A")
            program.type_text(text)
        for choice in ("Disegna grafico", "Disegna stato settimanale", "Calcola statistiche",
                       "Calcola previsioni"):
            box = program.checkbox(dialog, choice)
            if is_checked(box) != (choice in choices):
                self.tab_to(box)
                program.key("Space")
                wait_for(lambda box=box, choice=choice: is_checked(box) == (choice in choices),
                         f"Space does not change {choice!r}")
        program.key("Return")
        program.wait_gone(dialog)

    def listen_for_descriptions(self):
        """The list to which each description comes that the program says has changed."""
        changed = []
        listener = Atspi.EventListener.new(
            lambda event, _data: changed.append(description_of(event.source)), None)
        event = "object:property-change:accessible-description"
        listener.register(event)
        self.addCleanup(listener.deregister, event)
        return changed

    def test_without_a_mouse(self):
        program = self.program
        told = self.listen_for_descriptions()
        self.enter_person(["Disegna grafico", "Disegna stato settimanale"])
        week = program.window(WEEK)
        window = program.window(GRAPH)
        picture = program.find(name="Finestra del grafico", parent=window)
        self.assertEqual(role_of(picture), "chart")
        self.assertEqual(
            description_of(picture),
            GRAPH + ". Data di calcolo: lunedì 15 marzo 2004. Fisico: -7, Emotivo: -8, "
            "Intellettivo: -4, Media: -6. 20 giorni prima e 20 dopo, da martedì 24 febbraio 2004 "
            "a domenica 4 aprile 2004. Disegnati: fisico, emotivo, intellettivo, media, "
            "enchance.")
        row = program.find(name="FISICO", parent=week)
        self.assertEqual(role_of(row), "chart")
        self.assertIn("lunedì 15 marzo 2004: stabile (data di calcolo)", description_of(row))

        # From the week, which was opened last, to the graph, its picture and its menu.
        self.tab_to(row)
        program.key("Ctrl+Tab")
        self.tab_to(picture)
        for key in ("Shift+F10", "Menu"):
            program.key(key)
            popup = program.popup()
            self.assertEqual([caption for caption in popup.captions() if caption],
                             ["Giorno 15/03/2004", "Fisico: -7", "Emotivo: -8",
                              "Intellettivo: -4", "Media: -6", "Opzioni"])
            popup.dismiss()

        # The options, by the menu's last entry; what they change is told.
        program.key("Shift+F10")
        program.popup()
        program.key("Up", "Return")
        dialog = program.dialog("Opzioni del grafico")
        days = program.text_field(dialog, "Giorni attorno alla data di calcolo")
        self.tab_to(days)
        program.key("Ctrl+A")
        program.type_text("3")
        program.key("Return")
        program.wait_gone(dialog)
        span = " 3 giorni prima e 3 dopo, da venerdì 12 marzo 2004 a giovedì 18 marzo 2004."
        wait_for(lambda: span in description_of(picture), lambda: description_of(picture))
        wait_for(lambda: any(span in text for text in told), lambda: f"the change is not told: {told}")

        program.key("Ctrl+F6")
        self.tab_to(row)
        program.key("Ctrl+F4")
        program.wait_gone(week)
        program.key("Ctrl+F4")
        program.wait_gone(window)
        program.menu("File bioritmi", "Esci da Quor", by="keys")
        program.message_box("Conferma")
        program.key("Return")
        program.message_box("Conferma")
        program.key("Escape")  # nothing is to be saved
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())


if __name__ == "__main__":
    unittest.main(verbosity=2)

#!/usr/bin/python3
"""The newcomer's way in: the fast-start window and the two guided tours."""

import os
import re
import signal
import unittest

from harness import (Desktop, ProgramTestCase, children_of, extents_of, has_state,
                     is_checked, is_enabled, is_showing, name_of, plain, poll, role_of,
                     settings_file, text_of, wait_for, walk)

GREETING = "Quor Procedure guidate"
TOUR = "Procedura guidata"
TOURS = ["Calcola un nuovo bioritmo", "Aprire un sistema"]

LOCK_NOTICE = ("Mentre è in corso la procedura guidata verranno abilitate solo le funzioni utili "
               "alla spiegazione. Al termine della procedura verranno riattivate completamente.")
THANKS = "Grazie per l'attenzione!"
FIRST_TOUR = [
    "Questa procedura guidata vi illustrerà come calcolare un nuovo bioritmo e gestire tutte le "
    "funzionalità che Quor offre in questa sezione.\nPremere Next>> per continuare.",
    LOCK_NOTICE,
    "Cliccando sull'icona rappresentata quì sopra, o sul menù Bioritmi->Nuovo Bioritmo verrà "
    "aperta questa finestra.",
    "In questa finestra potete inserire il vostro nome e la vostra data di nascita.\n"
    "Premendo NEXT>> potrete attivare la finestra ed iniziare!",
    "Si sono aperte le finestre che avete deciso tra le opzioni della finestra di inserimento, "
    "calcolando i dati che avete appena inserito.",
    "Con i bottoni della toolbar appena attivati potete aprire e chiudere le finestre in qualsiasi "
    "momento.\nPotete anche usare il menu Bioritmi-> per lo stesso scopo.",
    "Adesso con il bottone raffigurato quì sopra, o sul menù Bioritmi->Salva Bioritmo, potete "
    "salvare i vostri dati.",
    "Per leggere bene i grafici, o per funzioni come la stampa e l'esportazione si rimanda alla "
    "guida attivabile con l'icona di aiuto.",
    THANKS,
]
SECOND_TOUR = [
    "Questa procedura guidata vi illustrerà come calcolare molti bioritmi contemporaneamente e "
    "gestire un sistema.\nPremere Next>> per continuare.",
    LOCK_NOTICE,
    "Cliccando sull'icona rappresentata quì sopra, o sul menù File->Nuovo Sistema verrà aperta "
    "questa finestra.",
    "Questa finestra vi darà la possibilità di inserire e rimuovere bioritmi, e di eseguire "
    "operazioni sui singoli bioritmi o sul sistema.",
    "Per adesso potrete solo inserire bioritmi nel sistema. Cliccate Inserisci nuovo, per "
    "calcolarne uno da zero, o Inserisci Esistente per caricarne uno.",
    THANKS,
]

MENUS = ["File sistemi", "File bioritmi", "Finestre", "Help"]
VIEW_COMMANDS = ["Grafico", "Stato settimanale", "Stato del giorno", "Previsioni"]
VIEW_BUTTONS = ["Apre la finestra Grafico", "Apre la finestra Grafico settimanale",
                "Apre la finestra Statistiche", "Apre la finestra Previsioni"]
CLOSING_SYSTEM = ("Questo comporterà la chiusura del sistema aperto attualmente. Si desidera "
                  "continuare ugualmente?")

# What can be pressed in the system window, on all its tabs.
INSERT_BUTTONS = ["Inserisci nuovo", "Inserisci un bioritmo esistente"]
WITHOUT_MEMBERS = [*INSERT_BUTTONS, "Compatibilità bioritmica", "Grafici e colori",
                   "Sposta data di calcolo", "?", "Chiudi"]
WITH_MEMBERS = [*WITHOUT_MEMBERS, "Rimuovi", "Grafico", "Statistiche", "Previsioni", "Esporta",
                "Esporta come file bioritmo", "Esporta tutto il sistema", "Stampa"]

# What a program offers by itself: in the menus, then on the toolbar.
WITHOUT_DATA = (
    ["Nuovo sistema", "Apri sistema", "Esci dal Quor", "Calcola nuovo", "Apri bioritmo",
     "Esci da Quor", "Affiancate Orizzontalmente", "Affiancate Verticalmente", "In Cascata",
     "Riordina Icone", "File di guida", "Procedure guidate", "About"],
    ["Calcola un nuovo sistema", "Apre un sistema", "Calcola un nuovo Bioritmo",
     "Apre un bioritmo", "File di guida"])
WITH_PERSON = (
    ["Nuovo sistema", "Apri sistema", "Esci dal Quor", "Calcola nuovo", "Apri bioritmo",
     "Salva bioritmo", "Salva con nome", "Chiudi Bioritmo", "Anteprima di Stampa", "Stampa",
     "Grafico", "Stato settimanale", "Stato del giorno", "Previsioni",
     "Sposta data di calcolo", "Opzioni bioritmo", "Esporta Informazioni", "Esci da Quor",
     "Affiancate Orizzontalmente", "Affiancate Verticalmente", "In Cascata", "Riordina Icone",
     "File di guida", "Procedure guidate", "About"],
    ["Calcola un nuovo sistema", "Apre un sistema", "Calcola un nuovo Bioritmo",
     "Apre un bioritmo", "Salva il bioritmo", *VIEW_BUTTONS, "Opzioni", "Esporta informazioni",
     "Stampa", "File di guida"])
WITH_SYSTEM = (
    ["Nuovo sistema", "Apri sistema", "Salva sistema", "Salva con nome", "Chiudi Sistema",
     "Opzioni Sistema", "Esporta il sistema", "Esci dal Quor", "Affiancate Orizzontalmente",
     "Affiancate Verticalmente", "In Cascata", "Riordina Icone", "File di guida",
     "Procedure guidate", "About"],
    ["Calcola un nuovo sistema", "Apre un sistema", "Salva il sistema", "Opzioni",
     "Esporta informazioni", "File di guida"])

desktop = Desktop(size=(1400, 1000))


def setUpModule():
    desktop.start()


def tearDownModule():
    desktop.stop()


class GuideTestCase(ProgramTestCase):

    def setUp(self):
        self.program = self.start_program(desktop, first_start=True)

    # -- what the program shows ----------------------------------------------

    def greeting(self):
        return self.program.window(GREETING)

    def greetings(self):
        return self.program.find_all("frame", GREETING)

    def usable(self):
        """The entries of the menus, and the toolbar's buttons, that can be chosen."""
        program = self.program
        entries = []
        for menu in program.find_all("menu item", parent=program.find("menu bar")):
            if is_enabled(menu):  # its entries can be read while it is closed
                entries += [plain(name_of(node)) for node in walk(menu, showing=False)
                            if role_of(node) == "menu item" and is_enabled(node)]
        buttons = [name_of(node) for node in children_of(program.find("tool bar"))
                   if role_of(node) == "push button" and is_enabled(node)]
        return [entries, buttons]

    def assert_usable(self, expected, when=None):
        seen = []

        def is_expected():
            seen[:] = self.usable()
            return seen == list(expected)

        poll(is_expected, 2)
        self.assertEqual(seen, list(expected), when)

    def assert_system(self, expected, when=None):
        """What can be pressed in the system window, on whichever tab, and whether its tree can."""
        system = self.program.window("Sistema corrente")
        seen = []

        def is_expected():
            nodes = list(walk(system, showing=False))
            buttons = [plain(name_of(node)) for node in nodes
                       if role_of(node) == "push button" and is_enabled(node)]
            buttons = [name for name in buttons if name in WITH_MEMBERS]  # not those of the tabs
            trees = [is_enabled(node) for node in nodes
                     if role_of(node) in ("tree", "tree table")]
            seen[:] = [sorted(buttons), trees]
            return seen == wanted

        free = "Chiudi" in expected
        wanted = [sorted(expected), [free]]
        poll(is_expected, 2)
        self.assertEqual(seen, wanted, when)

    # -- the tour's window ---------------------------------------------------

    def start_tour(self, number):
        """By the button beside the choice."""
        program = self.program
        if not self.greetings():
            program.menu("Help", "Procedure guidate")
        window = self.greeting()
        choice = program.button(window, TOURS[number - 1])
        _, top, _, height = extents_of(choice)
        buttons = program.find_all("push button", "Mostrami come", window)
        self.assertEqual(len(buttons), 2)
        beside = [button for button in buttons
                  if top <= extents_of(button)[1] < top + height]
        self.assertEqual(len(beside), 1)
        program.click(beside[0])
        tour = program.dialog(TOUR)
        program.wait_gone(window)
        return tour

    def tour_text(self, tour):
        return text_of(self.program.find("text", parent=tour))

    def assert_step(self, tour, text):
        poll(lambda: self.tour_text(tour) == text)
        self.assertEqual(self.tour_text(tour), text)
        caption = "FINE" if text == THANKS else "NEXT >>"
        self.program.button(tour, caption)

    def next(self, tour):
        self.program.click(self.program.button(tour, re.compile("^(NEXT >>|FINE)$")))

    def picture(self, tour):
        """What is said of the picture of a button; None when there is none."""
        names = [name_of(node) for node in self.program.find_all(parent=tour)
                 if name_of(node).startswith("Pulsante: ")]
        return names[0] if names else None

    def fill_in(self, dialog, name="Maria Rossi"):
        program = self.program
        program.set_text(program.text_field(dialog, "Nome:"), name)
        program.set_text(program.text_field(dialog, "Data di nascita:"), "25/12/1981")
        program.click(program.button(dialog, "Ok"))
        program.wait_gone(dialog)


class FastStartTest(GuideTestCase):

    def test_first_start_greets(self):
        program = self.program
        window = self.greeting()
        self.assertFalse(os.path.exists(settings_file(program.home)))
        for text in ("Cosa vuoi fare oggi?", "Procedure guidate", "Calcolare un nuovo bioritmo",
                     "Calcolare e gestire molti bioritmi", "Calcolare la compatibilità bioritmica"):
            program.label(window, text)
        self.assertTrue(is_checked(program.checkbox(
            window, "Mostra questa finestra al prossimo avvio")))
        # In the middle of the frame.
        x, y, width, height = extents_of(window)
        frame_x, _, frame_width, _ = extents_of(program.window())
        self.assertLess(abs((x + width / 2) - (frame_x + frame_width / 2)), 5)
        # The third choice is inert, by the mouse and by the keyboard.
        third = program.button(window, "Compatibilità bioritmica")
        program.click(third)
        program.key("space", "Enter")
        program.click(program.label(window, "Calcolare la compatibilità bioritmica"))
        self.assertEqual(program.dialogs(), [])
        self.assertEqual(len(self.greetings()), 1)
        self.assertEqual(program.terminate(), 0)

    def test_switched_off(self):
        program = self.program
        window = self.greeting()
        program.click(program.checkbox(window, "Mostra questa finestra al prossimo avvio"))
        program.click(program.button(window, "Chiudi"))
        program.wait_gone(window)
        with open(settings_file(program.home), encoding="utf-8") as file:
            self.assertIn("FastStart=FALSE", file.read())
        self.assertEqual(program.terminate(), 0)

        self.program = program = self.start_program(desktop, home=program.home, first_start=True)
        program.wait_active(program.window())
        # The frame answers and has nothing inside.
        self.assertIn("Procedure guidate",
                      [item.caption for item in program.menu_items("Help")])
        self.assertEqual(self.greetings(), [])
        program.menu("Help", "Procedure guidate")
        check = program.checkbox(self.greeting(), "Mostra questa finestra al prossimo avvio")
        self.assertFalse(is_checked(check))
        # Switched on again, and the program ended without closing the window.
        program.click(check)
        wait_for(lambda: is_checked(check), "the box stays cleared")
        self.assertEqual(program.terminate(), 0)
        self.program = self.start_program(desktop, home=program.home, first_start=True)
        self.greeting()
        self.assertEqual(self.program.terminate(), 0)

    def test_by_keyboard(self):
        program = self.program
        window = self.greeting()
        order = [*("Calcola un nuovo bioritmo", "Mostrami come", "Aprire un sistema",
                   "Mostrami come", "Compatibilità bioritmica",
                   "Mostra questa finestra al prossimo avvio", "Chiudi")]

        def focused():
            return [name_of(node) for node in program.find_all(parent=window)
                    if has_state(node, "focused")]

        for caption in order:
            poll(lambda wanted=caption: focused() == [wanted])
            self.assertEqual(focused(), [caption])
            program.key("Tab")
        program.key("Enter")  # once round: the first choice
        dialog = program.dialog("Inserimento")
        program.wait_gone(window)
        program.key("Escape")
        program.wait_gone(dialog)
        program.menu("Help", "Procedure guidate")
        window = self.greeting()
        second = program.button(window, "Aprire un sistema")
        program.key("Tab", "Tab")
        wait_for(lambda: has_state(second, "focused"), "Tab does not reach the second choice")
        program.key("space")
        program.window("Sistema corrente")
        program.wait_gone(window)
        self.assertEqual(program.terminate(), 0)

    def test_by_mouse(self):
        program = self.program
        program.click(program.label(self.greeting(), "Calcolare un nuovo bioritmo"))
        dialog = program.dialog("Inserimento")
        self.assertEqual(self.greetings(), [])
        program.click(program.button(dialog, "Annulla"))
        program.wait_gone(dialog)
        program.menu("Help", "Procedure guidate")
        program.click(program.button(self.greeting(), "Aprire un sistema"))
        program.window("Sistema corrente")
        self.assertEqual(self.greetings(), [])
        self.assertEqual(program.terminate(), 0)


class TourTest(GuideTestCase):

    def test_first_tour(self):
        program = self.program
        self.assert_usable(WITHOUT_DATA)
        # The menus themselves say the same.
        self.assertEqual([item.caption for menu in MENUS for item in program.menu_items(menu)
                          if item.enabled], WITHOUT_DATA[0])
        tour = self.start_tour(1)
        # Beside what it talks about, not on it.
        toolbar_x, toolbar_y, toolbar_width, toolbar_height = extents_of(program.find("tool bar"))
        x, y, width, height = extents_of(tour)
        self.assertGreater(y, toolbar_y + toolbar_height)
        self.assertLessEqual(x + width, desktop.size[0])
        self.assertLessEqual(y + height, desktop.size[1])

        usable = {5: (VIEW_COMMANDS, VIEW_BUTTONS),
                  6: (["Salva bioritmo"], ["Salva il bioritmo"]),
                  7: (["File di guida"], ["File di guida"])}
        pictures = {2: "Pulsante: Calcola un nuovo Bioritmo", 6: "Pulsante: Salva il bioritmo",
                    7: "Pulsante: File di guida"}
        for number, text in enumerate(FIRST_TOUR):
            self.assert_step(tour, text)
            self.assertEqual(self.picture(tour), pictures.get(number))
            self.assert_usable(usable.get(number, ([], [])), text)
            if number == 5:
                program.click(program.find("push button", VIEW_BUTTONS[1],
                                           program.find("tool bar")))
                program.window("Stato settimanale di Maria Rossi")
            self.next(tour)
            if number == 3:
                dialog = program.dialog("Inserimento")
                wait_for(lambda: not is_enabled(program.button(tour, "NEXT >>")),
                         "the tour does not wait")
                self.assert_usable(([], []), "while the biorhythm is entered")
                name = program.text_field(dialog, "Nome:")
                program.set_text(name, "Anna")
                program.click(program.button(dialog, "Annulla"))
                program.key("Escape")
                program.close_box(dialog)
                self.assertTrue(is_showing(dialog))
                self.assertEqual(text_of(name), "Anna")
                self.fill_in(dialog)
                program.window("Grafico di Maria Rossi")
                program.wait_active(tour)
        program.wait_gone(tour)
        self.assert_usable(WITH_PERSON)
        self.assertEqual(program.terminate(), 0)

    def test_second_tour(self):
        program = self.program
        tour = self.start_tour(2)
        for number, text in enumerate(SECOND_TOUR):
            self.assert_step(tour, text)
            self.assertEqual(self.picture(tour),
                             "Pulsante: Calcola un nuovo sistema" if number == 2 else None)
            self.assert_usable(([], []), text)
            if number >= 3:
                self.assert_system(INSERT_BUTTONS if number == 4 else [], text)
            if number == 4:
                program.click(program.button(program.window("Sistema corrente"),
                                             "Inserisci nuovo"))
                self.fill_in(program.dialog("Inserimento"))
                # The member is there, and nothing more can be done with it yet.
                program.find(name="Bioritmo di Maria Rossi",
                             parent=program.window("Sistema corrente"))
                self.assert_system(INSERT_BUTTONS, "with a member")
                self.assert_usable(([], []), "with a member")
            self.next(tour)
        program.wait_gone(tour)
        self.assert_system(WITH_MEMBERS)
        self.assert_usable(WITH_SYSTEM)
        self.assertEqual(program.terminate(), 0)

    def walk_to(self, tour, texts, number):
        """Presses NEXT until the step of this number, counted from 1, shows."""
        for text in texts[:number - 1]:
            self.assert_step(tour, text)
            self.next(tour)
        self.assert_step(tour, texts[number - 1])

    def test_closed_early(self):
        program = self.program
        tour = self.start_tour(1)
        self.walk_to(tour, FIRST_TOUR, 3)
        program.close_box(tour)
        program.wait_gone(tour)
        self.assert_usable(WITHOUT_DATA)

        # While it waits: the dialog stays and can be closed again.
        tour = self.start_tour(1)
        self.walk_to(tour, FIRST_TOUR, 4)
        self.next(tour)
        dialog = program.dialog("Inserimento")
        program.set_text(program.text_field(dialog, "Nome:"), "Anna")
        program.close_box(tour)
        program.wait_gone(tour)
        dialog = program.dialog("Inserimento")
        self.assertEqual(text_of(program.text_field(dialog, "Nome:")), "Anna")
        program.click(program.button(dialog, "Annulla"))
        program.wait_gone(dialog)
        self.assert_usable(WITHOUT_DATA)

        # And another tour can be started.
        tour = self.start_tour(2)
        self.walk_to(tour, SECOND_TOUR, 4)
        self.assert_system([])
        program.key("Escape")
        program.wait_gone(tour)
        self.assert_usable(WITH_SYSTEM)
        self.assert_system(WITHOUT_MEMBERS)
        self.assertEqual(program.terminate(), 0)

    def test_a_refusal_ends_it(self):
        program = self.program
        window = self.greeting()
        program.click(program.button(window, "Calcola un nuovo bioritmo"))
        self.fill_in(program.dialog("Inserimento"))
        program.window("Grafico di Maria Rossi")
        for number, texts, step in ((1, FIRST_TOUR, 4), (2, SECOND_TOUR, 3)):
            tour = self.start_tour(number)
            self.walk_to(tour, texts, step)
            self.next(tour)
            program.message_box("Conferma").press("No")
            program.wait_gone(tour)
            self.assert_usable(WITH_PERSON)
        program.window("Grafico di Maria Rossi")
        self.assertEqual(program.terminate(), 0)

    def test_closing_the_system_ends_it(self):
        program = self.program
        tour = self.start_tour(2)
        self.walk_to(tour, SECOND_TOUR, 5)
        program.click(program.window("Sistema corrente"))
        program.key("Ctrl+W")
        box = program.message_box("Conferma")
        self.assertEqual(box.text, CLOSING_SYSTEM)
        box.press("No")
        self.assert_step(tour, SECOND_TOUR[4])
        program.click(program.window("Sistema corrente"))
        program.key("Ctrl+W")
        program.message_box("Conferma").press("Sì")
        program.wait_gone(tour)
        self.assert_usable(WITHOUT_DATA)
        self.assertEqual(program.terminate(), 0)

    def test_quitting(self):
        program = self.program
        tour = self.start_tour(1)
        self.walk_to(tour, FIRST_TOUR, 4)
        self.next(tour)
        self.fill_in(program.dialog("Inserimento"))
        self.assert_step(tour, FIRST_TOUR[4])
        program.close_box(program.window())
        program.message_box("Conferma").press("No")
        self.assert_step(tour, FIRST_TOUR[4])
        program.close_box(program.window())
        program.message_box("Conferma").press("Sì")
        program.message_box("Conferma").press("No")  # nothing is to be saved
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())

    def test_sigterm_while_it_waits(self):
        program = self.program
        tour = self.start_tour(1)
        self.walk_to(tour, FIRST_TOUR, 4)
        self.next(tour)
        program.dialog("Inserimento")
        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())

    def test_sigterm_in_the_system(self):
        program = self.program
        check = program.checkbox(self.greeting(), "Mostra questa finestra al prossimo avvio")
        program.click(check)
        wait_for(lambda: not is_checked(check), "the box stays set")
        tour = self.start_tour(2)
        self.walk_to(tour, SECOND_TOUR, 5)
        program.click(program.button(program.window("Sistema corrente"), "Inserisci nuovo"))
        program.dialog("Inserimento")
        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())
        with open(settings_file(program.home), encoding="utf-8") as file:
            self.assertIn("FastStart=FALSE", file.read())

    def test_sigterm_at_its_question(self):
        program = self.program
        program.click(program.button(self.greeting(), "Calcola un nuovo bioritmo"))
        self.fill_in(program.dialog("Inserimento"))
        tour = self.start_tour(2)
        self.walk_to(tour, SECOND_TOUR, 3)
        self.next(tour)
        program.message_box("Conferma")
        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())

    def test_quitting_while_it_waits(self):
        program = self.program
        tour = self.start_tour(1)
        self.walk_to(tour, FIRST_TOUR, 4)
        self.next(tour)
        program.dialog("Inserimento")
        program.close_box(program.window())
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())


if __name__ == "__main__":
    unittest.main(verbosity=2)

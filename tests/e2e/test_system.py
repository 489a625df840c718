#!/usr/bin/python3
"""A system from its first member to its file and back, and what it shows."""

import datetime
import math
import os
import re
import unittest

from harness import (Desktop, ProgramTestCase, children_of, description_of,
                     has_state, name_of, poll, text_of, wait_for)

DAY = datetime.date(2004, 3, 15)
PEOPLE = {"Anna Bianchi": datetime.date(2000, 1, 1),
          "Bruno Neri": datetime.date(2000, 1, 15),
          "Carla Verdi": datetime.date(1938, 7, 30)}

WINDOW = "Sistema corrente"
DUPLICATE = "Esiste già un bioritmo relativo a questo nome. Nessuna azione compiuta."
CLOSING = ("Questo comporterà la chiusura del sistema aperto attualmente. "
           "Si desidera continuare ugualmente?")
SAVING = "Sono presenti dati non salvati. Si desidera salvare prima di chiudere il sistema ?"
UPDATE = "La data di calcolo è diversa da quella di oggi. Si desidera aggiornarla?"
OPTIONS_IN_FILE = ["2", "0", "16711680", "255", "65280", "65535", "255", "65280", "65535"]

desktop = Desktop(size=(1600, 1000))


def setUpModule():
    desktop.start()


def tearDownModule():
    desktop.stop()


def short_date(day):
    return f"{day:%d/%m/%Y}"


# -- the values of a system, straight from their definition ------------------

def cycle(days, period):
    return math.sin(math.fmod(days, period) * (6.28318530717958 / period))


def mean(days):
    return (cycle(days, 23) + cycle(days, 28) + cycle(days, 33)) / 3


def system_state(births, day):
    """The four values of a day, each on the scale of ten."""
    counts = [(day - birth).days for birth in births]
    functions = [lambda days, period=period: cycle(days, period) for period in (23, 28, 33)]
    return [sum(function(count) * 10 for count in counts) / len(counts)
            for function in (*functions, mean)]


def system_mean(births, offset):
    counts = [(DAY - birth).days + offset for birth in births]
    return sum(map(mean, counts)) / len(counts)


def first_day(births, accepts):
    """The first offset that is accepted, or None from the 22000th on."""
    return next((k for k in range(22000) if accepts(k)), None)


def forecast(births):
    """The texts of the six boxes: dates, then days."""
    inversion = first_day(births, lambda k: system_mean(births, k) * system_mean(births, k - 1) <= 0)
    extremes = [first_day(births, lambda k, target=target:
                          round(system_mean(births, k) * 10) == target) for target in (9, -9)]
    offsets = [inversion, *extremes]
    return ([("Mai" if k is None else short_date(DAY + datetime.timedelta(days=k)))
             for k in offsets],
            [("Mai" if k is None else str(k)) for k in offsets])


class SystemTest(ProgramTestCase):

    def setUp(self):
        self.program = self.start_program(desktop)

    # -- steps of the scenarios ----------------------------------------------

    def new_system(self):
        self.program.menu("File sistemi", "Nuovo sistema")
        return self.program.window(WINDOW)

    def press(self, caption):
        program = self.program
        program.click(program.button(program.window(WINDOW), caption))

    def enter(self, name, birth):
        """Types a member into the dialog and confirms it."""
        program = self.program
        self.press("Inserisci nuovo")
        dialog = program.dialog("Inserimento")
        for label, text in (
                ("Nome:", name), ("Data di nascita:", short_date(birth)),
                ("Giorno attorno al quale calcolare il bioritmo:", short_date(DAY))):
            program.set_text(program.text_field(dialog, label), text)
        program.click(program.button(dialog, "Ok"))
        return dialog

    def enter_all(self, people):
        for count, (name, birth) in enumerate(people.items(), 1):
            dialog = self.enter(name, birth)
            self.program.wait_gone(dialog)
            self.assert_panels("Nome: ", f"{count} bioritmi nel sistema")

    def answer(self, title, text, *buttons):
        """A box with this title and text; the last button named is pressed."""
        box = self.program.message_box(title)
        self.assertEqual(box.text, text)
        self.assertEqual(sorted(box.buttons), sorted(buttons))
        box.press(buttons[-1])

    def assert_panels(self, *texts):
        texts = [*texts, "Data in esame per il calcolo: " + short_date(DAY)]
        bar = self.program.find("status bar")
        shown = []

        def read_panels():
            shown[:] = [text for text in map(name_of, children_of(bar)) if text]
            return shown == [text for text in texts if text]

        poll(read_panels)
        self.assertEqual(shown, [text for text in texts if text])

    def tree(self):
        return self.program.find("tree", parent=self.program.window(WINDOW))

    def member(self, name):
        return self.program.find(name="Bioritmo di " + name, parent=self.tree())

    def members(self):
        prefix = "Bioritmo di "
        return [name_of(node).removeprefix(prefix) for node in
                self.program.find_all(name=re.compile("^" + prefix), parent=self.tree())]

    def close_child(self, title):
        window = self.program.window(title)
        self.program.click(self.program.button(window, "Chiudi"))
        self.program.wait_gone(window)

    def assert_system_views(self, births):
        """Statistics, forecasts and mean graph of the open system."""
        program = self.program
        self.press("Statistiche")
        window = program.window("Statistiche di sistema")
        now, before = (system_state(births, DAY - datetime.timedelta(days=back))
                       for back in (0, 1))
        boxes = [text_of(program.text_field(window, label)) for label in
                 ("Stato fisico:", "Stato emotivo:", "Stato intellettivo:", "Media:")]
        self.assertEqual(boxes, [str(round(value)) for value in now])
        subjects = ["Stato fisico", "Stato emotivo", "Stato intellettivo", "Media"]
        arrows = [name_of(node) for node in program.find_all(
            parent=window, name=re.compile(" in (salita|discesa)$"))]
        self.assertEqual(arrows, [
            f"{subject} in {'salita' if value >= old else 'discesa'}"
            for subject, value, old in zip(subjects, now, before, strict=True)])
        self.close_child("Statistiche di sistema")

        self.press("Previsioni")
        window = program.window("Previsione di sistema")
        dates, days = forecast(births)
        rows = ("Prossima inversione", "Prossimo massimo", "Prossimo minimo")
        self.assertEqual([text_of(program.text_field(window, row + ", in data"))
                          for row in rows], dates)
        self.assertEqual([text_of(program.text_field(window, row + ", tra giorni"))
                          for row in rows], days)
        self.close_child("Previsione di sistema")

        self.press("Grafico")
        window = program.window("Grafico di sistema")
        picture = program.find(name="Finestra del grafico", parent=window)
        program.click(picture, button=3)
        popup = program.popup()
        captions = popup.captions()
        state = [round(value) for value in system_state(births, DAY)]
        for caption in ("Giorno " + short_date(DAY), f"Fisico: {state[0]}",
                        f"Emotivo: {state[1]}", f"Intellettivo: {state[2]}",
                        f"Media: {state[3]}", "Opzioni"):
            self.assertIn(caption, captions)
        popup.dismiss()
        program.key("Ctrl+W")
        program.wait_gone(window)

    # -- scenarios -----------------------------------------------------------

    def test_gather_save_close_and_open(self):
        program = self.program
        self.new_system()

        self.enter_all(PEOPLE)

        dialog = self.enter("Bruno Neri", datetime.date(1990, 5, 5))
        self.answer("Errore", DUPLICATE, "OK")
        name = program.text_field(dialog, "Nome:")  # what was typed stands there to be corrected
        wait_for(lambda: has_state(name, "focused"), "the name is not focused")
        self.assertEqual(text_of(name), "Bruno Neri")
        program.key("Escape")
        program.wait_gone(dialog)
        self.assertEqual(self.members(), list(PEOPLE))

        program.click(self.member("Anna Bianchi"))
        self.press("Rimuovi")
        box = program.message_box("Conferma eliminazione")
        program.key("Return")  # is No
        program.wait_gone(box.node)
        self.assertEqual(self.members(), list(PEOPLE))
        self.press("Rimuovi")
        self.answer("Conferma eliminazione", "Rimuovere il bioritmo di Anna Bianchi ?",
                    "No", "Sì")
        self.assert_panels("Nome: ", "2 bioritmi nel sistema")
        self.assertEqual(self.members(), ["Bruno Neri", "Carla Verdi"])

        path = os.path.join(program.home, "famiglia.brs")
        program.menu("File sistemi", "Salva sistema")
        program.file_dialog("Salva").choose(path)
        self.answer("Ok", "File salvato", "OK")
        with open(path, "rb") as file:
            # The last member took the place of the first.
            self.assertEqual(file.read().decode("ascii").split("\r\n"), [
                "2", '"Carla Verdi"', "#1938-07-30#", '"Bruno Neri"', "#2000-01-15#",
                "#2004-03-15#", *OPTIONS_IN_FILE, ""])

        program.menu("File sistemi", "Chiudi Sistema")
        self.answer("Conferma", CLOSING, "Sì", "No")
        self.assertEqual(self.members(), ["Bruno Neri", "Carla Verdi"])
        window = program.window(WINDOW)
        program.menu("File sistemi", "Chiudi Sistema")
        self.answer("Conferma", CLOSING, "No", "Sì")
        program.wait_gone(window)
        self.assertEqual(program.dialogs(), [])

        program.menu("File sistemi", "Apri sistema")
        program.file_dialog("Apri").choose(path)
        self.answer("Aggiornare?", UPDATE, "Sì", "No")
        program.window(WINDOW)
        self.assert_panels("Nome: " + path, "2 bioritmi nel sistema")
        self.assertEqual(self.members(), ["Carla Verdi", "Bruno Neri"])
        self.assert_system_views([PEOPLE["Carla Verdi"], PEOPLE["Bruno Neri"]])

        program.menu("File sistemi", "Esci dal Quor")
        self.answer("Conferma", CLOSING, "No", "Sì")
        self.assertEqual(program.wait_exit(), 0, program.stderr_text())

    def test_two_weeks_apart(self):
        program = self.program
        self.new_system()
        people = {name: PEOPLE[name] for name in ("Anna Bianchi", "Bruno Neri")}
        self.enter_all(people)
        self.assert_system_views(people.values())

        self.press("Compatibilità bioritmica")
        window = program.window("Compatibilità bioritmica")
        combos = program.find_all("combo box", parent=window)
        self.assertEqual(len(combos), 2)
        for combo, name in zip(combos, people, strict=True):
            while not has_state(combo, "focused"):
                program.key("Tab")
            program.key("Home")
            wait_for(lambda: name_of(combo) == "Anna Bianchi", "Home does not choose the first")
            if name != "Anna Bianchi":
                program.key("End")
                wait_for(lambda: name_of(combo) == name, "End does not choose the last")

        panels = []
        texts = [f"{text}%, tra {' e '.join(people)}" for text in (
            "Compatibilità: 12,30", "Compatibilità fisica: 21,74",
            "Compatibilità emotiva: 0,00", "Compatibilità intellettiva: 15,15")]

        def read_panels():
            panels[:] = [text for text in map(description_of, program.find_all(parent=window))
                         if text.startswith("Compatibilità")]
            return panels == texts

        poll(read_panels)
        self.assertEqual(panels, texts)
        self.assertEqual(program.terminate(), 0)

    def test_unsaved_changes_are_asked_about_once(self):
        program = self.program
        window = self.new_system()
        self.enter_all({"Anna Bianchi": PEOPLE["Anna Bianchi"]})
        for close in (lambda: self.press("Chiudi"),
                      lambda: program.key("Ctrl+W"),
                      lambda: program.menu("File sistemi", "Chiudi Sistema"),
                      lambda: program.menu("File sistemi", "Esci dal Quor")):
            close()
            self.answer("Conferma", CLOSING, "Sì", "No")
            self.assertEqual(program.dialogs(), [])
            self.assertEqual(self.members(), ["Anna Bianchi"])

        self.press("Chiudi")
        self.answer("Conferma", CLOSING, "No", "Sì")
        self.answer("Conferma", SAVING, "Sì", "No")
        program.wait_gone(window)
        self.assertEqual(program.dialogs(), [])
        items = {item.caption: item.enabled for item in program.menu_items("File sistemi")}
        for caption in ("Salva sistema", "Salva con nome", "Chiudi Sistema", "Opzioni Sistema",
                        "Esporta il sistema"):
            self.assertFalse(items[caption], caption)
        program.key("Escape")
        self.assertEqual(program.terminate(), 0)

    def test_members_views(self):
        """Each click on a view of a member opens a window more."""
        program = self.program
        self.new_system()
        self.enter_all({"Anna Bianchi": PEOPLE["Anna Bianchi"]})
        program.click(self.member("Anna Bianchi"))
        program.key("Right")
        for node, title in (("Grafico", "Grafico di Anna Bianchi"),
                            ("Settimanale", "Grafico settimanale per Anna Bianchi"),
                            ("Statistiche", "Statistiche per Anna Bianchi"),
                            ("Previsioni", "Previsioni per Anna Bianchi")):
            for count in (1, 2):
                program.click(program.find(name=node, parent=self.tree()))
                wait_for(lambda: len(program.find_all("frame", title)) == count,
                         lambda: f"no window number {count} with the title {title}")
                # From the newest window to the oldest, the system's.
                program.key("Ctrl+Tab")
                program.desktop.move_to(*program.centre_of(self.tree()))
        self.assertEqual(program.terminate(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)

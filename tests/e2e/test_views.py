#!/usr/bin/python3
"""The views of a person, the date and the options they depend on, and the help."""

import datetime
import math
import os
import random
import re
import unittest

from harness import (Desktop, ProgramTestCase, children_of, extents_of,
                     is_checked, is_read_only, is_showing, name_of, page_text_of, poll, text_of,
                     wait_for)

NAME = "Maria Rossi"
BIRTH = datetime.date(1981, 12, 25)
DAY = datetime.date(2004, 3, 15)  # a Monday

VIEWS = ["Grafico di Maria Rossi", "Grafico settimanale di Maria Rossi",
         "Statistiche di Maria Rossi", "Previsioni di Maria Rossi"]
CHOICES = ["Disegna grafico", "Disegna stato settimanale", "Calcola statistiche",
           "Calcola previsioni"]

PROMPT = ("Inserire la data di calcolo desiderata.\n"
          "Un trucco: per la data di oggi, inserire semplicemente la parola 'oggi'.")

HELP = "Guida di Quor"

# As wide as the main window and the help viewer beside each other.
desktop = Desktop(size=(2160, 1060))


def setUpModule():
    desktop.start()


def tearDownModule():
    desktop.stop()


def short_date(day):
    return f"{day:%d/%m/%Y}"


def cycle_value(day, period):
    days = (day - BIRTH).days
    return math.sin(math.fmod(days, period) * (6.28318530717958 / period)) * 10


def expected_state(day):
    """The texts of the four boxes, and of the four arrows, of Maria's state on a day."""
    def values(when):
        physical, emotional, intellectual = (cycle_value(when, period) for period in (23, 28, 33))
        return [physical, emotional, intellectual, (physical + emotional + intellectual) / 3]

    now, before = values(day), values(day - datetime.timedelta(days=1))
    subjects = ["Stato fisico", "Stato emotivo", "Stato intellettivo", "Media"]
    return ([str(round(value)) for value in now],
            [f"{subject} in {'salita' if new >= old else 'discesa'}"
             for subject, new, old in zip(subjects, now, before, strict=True)])


class ViewsTestCase(ProgramTestCase):
    """Starts the program; knows how to enter Maria and how to read her windows."""

    def setUp(self):
        self.program = self.start_program(desktop)

    def calculate(self, choices=CHOICES):
        """Enters Maria's dates; returns when the views that `choices` name are there."""
        program = self.program
        program.menu("File bioritmi", "Calcola nuovo")
        dialog = program.dialog("Inserimento")
        for label, text in (
                ("Nome:", NAME), ("Data di nascita:", short_date(BIRTH)),
                ("Giorno attorno al quale calcolare il bioritmo:", short_date(DAY))):
            program.set_text(program.text_field(dialog, label), text)
        for choice in CHOICES:
            box = program.checkbox(dialog, choice)
            if is_checked(box) != (choice in choices):
                program.click(box)
        program.click(program.button(dialog, "Ok"))
        program.wait_gone(dialog)
        for choice, title in zip(CHOICES, VIEWS, strict=True):
            if choice in choices:
                program.window(title)

    def child_titles(self):
        """The titles of all child windows, sorted."""
        area = self.program.find("layered pane", "Finestre")
        return sorted(name_of(node) for node in self.program.find_all("frame", parent=area))

    def assert_children(self, titles):
        poll(lambda: self.child_titles() == sorted(titles))
        self.assertEqual(self.child_titles(), sorted(titles))

    def assert_box(self, title, text):
        """A box with this text and only an OK button, which is pressed."""
        box = self.program.message_box(title)
        self.assertEqual(box.text, text)
        self.assertEqual(box.buttons, ["OK"])
        box.press("OK")

    def calculation_panel(self):
        """What the third panel of the status bar says."""
        texts = [name_of(node) for node in children_of(self.program.find("status bar"))]
        return next((text for text in texts if text.startswith("Data in esame")), None)

    def assert_day_state(self, title, day):
        program = self.program
        window = program.window(title)
        boxes = [program.text_field(window, label) for label in
                 ("Stato fisico:", "Stato emotivo:", "Stato intellettivo:", "Media:")]
        self.assertTrue(all(map(is_read_only, boxes)))
        arrows = [name_of(node) for node in program.find_all(
            parent=window, name=re.compile(" in (salita|discesa)$"))]
        self.assertEqual(([text_of(box) for box in boxes], arrows), expected_state(day))

    def assert_graph_dates(self, first, last):
        graph = self.program.window(VIEWS[0])
        dates = []

        def read_dates():
            dates[:] = [text_of(self.program.text_field(graph, name))
                        for name in ("Prima data", "Data in esame", "Ultima data")]
            return dates == [first, "lunedì 15 marzo 2004", last]

        poll(read_dates)
        self.assertEqual(dates, [first, "lunedì 15 marzo 2004", last])

    def assert_blue_frame(self, window, weekday):
        """In each picture of the week one blue frame stands round one column; Monday is 1."""
        for label in ("MEDIA", "FISICO", "EMOTIVO", "INTELLETTIVO"):
            with self.subTest(picture=label):
                picture = self.program.find(name=label, parent=window)
                left, right, top, bottom, inside = self.blue_box(picture)
                _, _, width, height = extents_of(picture)
                # The seven columns leave a margin of a fortieth on both sides, and on the right
                # a bit more.
                margin = width / 40
                column = (width - 2 * margin - 200 / 15) / 7
                self.assertAlmostEqual(left, margin + (weekday - 1) * column, delta=3)
                self.assertAlmostEqual(right, margin + weekday * column, delta=3)
                # It reaches over the whole row, above the text line.
                self.assertLess(top, height * 0.1)
                self.assertGreater(bottom, height * 0.6)
                self.assertFalse(inside, "blue inside of the frame")

    def blue_box(self, picture):
        """The bounds of a picture's blue pixels, and whether one lies inside of the frame."""
        place = extents_of(picture)
        found = []

        def complete():
            found[:] = [(x, y) for y, row in enumerate(desktop.pixels(*place))
                        for x, (red, green, blue) in enumerate(row)
                        if blue > 200 and red < 60 and green < 60]
            return found

        wait_for(complete, f"nothing blue in {name_of(picture)}")
        left, right = min(x for x, _ in found), max(x for x, _ in found)
        top, bottom = min(y for _, y in found), max(y for _, y in found)
        pixels = set(found)
        for x in (left, right):
            self.assertTrue(all((x, y) in pixels for y in range(top, bottom + 1)), "a gap")
        for y in (top, bottom):
            self.assertTrue(all((x, y) in pixels for x in range(left, right + 1)), "a gap")
        inside = any(left + 3 < x < right - 3 and top + 3 < y < bottom - 3 for x, y in found)
        return left, right, top, bottom, inside


class FourViewsTest(ViewsTestCase):

    def test_all_four_boxes_open_all_four_views(self):
        program = self.program
        self.calculate()
        self.assert_children(VIEWS)

        self.assertEqual(expected_state(DAY)[0], ["-7", "-8", "-4", "-6"])
        self.assertTrue(all(text.endswith(" in salita") for text in expected_state(DAY)[1]))
        self.assert_day_state("Statistiche di Maria Rossi", DAY)

        forecasts = program.window("Previsioni di Maria Rossi")
        for subject, date, days in (("Prossima inversione", "venerdì 19 marzo 2004", "4"),
                                    ("Prossimo massimo", "mercoledì 24 marzo 2004", "9"),
                                    ("Prossimo minimo", "giovedì 7 aprile 2005", "388")):
            self.assertEqual(
                [text_of(program.text_field(forecasts, subject + ending))
                 for ending in (", in data", ", tra giorni")], [date, days], subject)

        week = program.window("Grafico settimanale di Maria Rossi")
        pictures = [name_of(node) for node in program.find_all(
            "chart", re.compile("^[A-Z]+$"), parent=week)]
        self.assertEqual(pictures, ["MEDIA", "FISICO", "EMOTIVO", "INTELLETTIVO"])
        self.assertEqual([name_of(node) for node in program.find_all("label", parent=week)],
                         ["Ottimi", "Stabili", "Critici"])

        # The command brings the window to the front, under its other title.
        program.menu("File bioritmi", "Stato settimanale")
        week = program.window("Stato settimanale di Maria Rossi")
        self.assertNotIn("Grafico settimanale di Maria Rossi", self.child_titles())
        self.assert_blue_frame(week, 1)
        self.assertEqual(program.terminate(), 0)


class MovingTheDateTest(ViewsTestCase):

    def ask_for_date(self):
        self.program.menu("File bioritmi", "Sposta data di calcolo")
        dialog = self.program.dialog("Inserimento")
        field = self.program.text_field(dialog, PROMPT)
        self.assertEqual(text_of(field), "")
        return dialog, field

    def test_refused_first_then_moved_to_today(self):
        program = self.program
        self.calculate()

        refusals = {
            "cancelled": lambda dialog, field: program.click(program.button(dialog, "Annulla")),
            "escaped": lambda dialog, field: program.key("Escape"),
            "left empty": lambda dialog, field: program.click(program.button(dialog, "OK")),
            "no date": lambda dialog, field: (program.set_text(field, "31/02/2004"),
                                              program.key("Enter")),
        }
        for name, answer in refusals.items():
            with self.subTest(name):
                dialog, field = self.ask_for_date()
                answer(dialog, field)
                self.assert_box("Errore",
                                "La data inserita non è valida. Nessuna operazione eseguita.")
                self.assertEqual(program.dialogs(), [])
                self.assert_children(VIEWS)
                self.assertEqual(self.calculation_panel(),
                                 "Data in esame per il calcolo: 15/03/2004")

        dialog, field = self.ask_for_date()
        program.set_text(field, "  OGGI ")
        # Midnight may pass between the program's look at the clock and ours.
        before = datetime.date.today()
        program.click(program.button(dialog, "OK"))
        self.assert_box("Operazione eseguita.", "La nuova data di calcolo è stata inserita.")
        self.assert_children([])
        panel = self.calculation_panel()
        days = {f"Data in esame per il calcolo: {short_date(day)}": day
                for day in (before, datetime.date.today())}
        self.assertIn(panel, days)

        program.menu("File bioritmi", "Stato del giorno")
        self.assert_children(["Stato del giorno di Maria Rossi"])
        self.assert_day_state("Stato del giorno di Maria Rossi", days[panel])

        program.menu("File bioritmi", "Stato settimanale")
        self.assert_blue_frame(program.window("Stato settimanale di Maria Rossi"),
                               days[panel].isoweekday())
        self.assertEqual(program.terminate(), 0)


class OptionsTest(ViewsTestCase):

    def test_options_window_leads_to_both_dialogs(self):
        program = self.program
        self.calculate(CHOICES[:2])
        self.assert_graph_dates("martedì 24 febbraio 2004", "domenica 4 aprile 2004")
        program.menu("File bioritmi", "Opzioni bioritmo")
        options = program.window("Opzioni")

        def graph_dialog():
            program.click(program.button(options, "Opzioni del grafico"))
            dialog = program.dialog("Opzioni del grafico")
            return dialog, program.text_field(dialog, "Giorni attorno alla data di calcolo")

        dialog, days = graph_dialog()
        self.assertEqual(text_of(days), "20")
        program.set_text(days, "5")
        program.click(program.button(dialog, "Ok"))
        program.wait_gone(dialog)
        self.assert_graph_dates("mercoledì 10 marzo 2004", "sabato 20 marzo 2004")

        program.click(program.button(options, "Opzioni della statistica settimanale"))
        weekly = program.dialog("Opzioni del grafico settimanale")
        program.click(program.button(weekly, "Cancel"))
        program.wait_gone(weekly)

        # More days than a number of the record can hold.
        dialog, days = graph_dialog()
        self.assertEqual(text_of(days), "5")
        program.set_text(days, "40000")
        program.click(program.button(dialog, "Ok"))
        self.assert_box("Errore", "Overflow\nScrivere un numero di giorni da 1 a 32767.")
        program.wait_active(dialog)
        self.assertEqual(text_of(days), "40000")
        program.click(program.button(dialog, "Cancel"))
        program.wait_gone(dialog)
        self.assert_graph_dates("mercoledì 10 marzo 2004", "sabato 20 marzo 2004")

        program.click(program.button(options, "Chiudi"))
        self.assert_children(VIEWS[:2])
        self.assertEqual(program.terminate(), 0)


class HelpTest(ViewsTestCase):

    START = "Guida di Quor"
    NEW = "Inserire un nuovo bioritmo"
    GRAPH_OPTIONS = "Le opzioni del grafico"
    WEEKLY_OPTIONS = "Le opzioni dello stato settimanale"
    WEEK = "Lo stato settimanale"
    DAY_STATE = "Lo stato del giorno e le statistiche"
    FORECASTS = "Le previsioni"
    CONTACTS = "Contatti"
    GLOSSARY = "Glossario"

    def open_viewer(self):
        """By the menu entry, which has no topic; remembers what the viewer consists of."""
        program = self.program
        program.menu("Help", "File di guida")
        viewer = program.window(HELP)
        self.page = program.find(name="Pagina della guida", parent=viewer)
        self.glossary = program.find("table cell", self.GLOSSARY, parent=viewer)
        self.assert_page(self.START)
        return viewer

    def assert_page(self, heading):
        """The one help viewer shows the page that begins with this line."""
        def shown():
            return page_text_of(self.page).split("\n")[0]

        poll(lambda: shown() == heading)
        self.assertEqual(shown(), heading)
        self.assertEqual(len(self.program.find_all("frame", HELP)), 1)

    def assert_usable(self):
        """The contents lead to another page."""
        self.program.click(self.glossary)
        self.assert_page(self.GLOSSARY)

    def press_help(self, window, heading):
        self.program.click(self.program.button(window, "?"))
        self.assert_page(heading)

    def move(self, window, x, y):
        """Drags a window aside."""
        desktop.xdotool("windowmove", self.program.x_window(window), x, y)
        wait_for(lambda: abs(extents_of(window)[0] - x) < 30, "the window does not move")

    def test_each_window_has_its_page_in_one_viewer(self):
        program = self.program
        self.move(program.window("Quor"), 10, 40)
        viewer = self.open_viewer()
        self.move(viewer, 1120, 40)
        # From here on the viewer stays open; a person goes to and fro.
        self.assert_usable()

        program.menu("File bioritmi", "Calcola nuovo")
        dialog = program.dialog("Inserimento")
        self.press_help(dialog, self.NEW)
        self.assert_usable()
        self.assertTrue(is_showing(dialog))
        program.click(program.button(dialog, "Annulla"))
        program.wait_gone(dialog)
        self.assertTrue(is_showing(viewer))

        self.calculate()
        program.menu("File bioritmi", "Stato settimanale")
        week = program.window("Stato settimanale di Maria Rossi")
        self.press_help(week, self.WEEK)
        program.click(program.button(week, "Legenda & Opzioni"))
        dialog = program.dialog("Opzioni del grafico settimanale")
        self.press_help(dialog, self.WEEKLY_OPTIONS)
        self.assert_usable()
        program.click(program.button(dialog, "Cancel"))
        program.wait_gone(dialog)
        program.click(program.button(week, "Chiudi"))
        program.wait_gone(week)

        program.menu("File bioritmi", "Stato del giorno")
        state = program.window("Stato del giorno di Maria Rossi")
        self.press_help(state, self.DAY_STATE)
        self.assert_usable()
        program.click(program.text_field(state, "Media:"))
        program.wait_active(program.window("Quor"))
        program.key("F1")
        self.assert_page(self.DAY_STATE)

        program.menu("File bioritmi", "Previsioni")
        self.press_help(program.window("Previsioni di Maria Rossi"), self.FORECASTS)

        program.menu("File bioritmi", "Opzioni bioritmo")
        program.click(program.button(program.window("Opzioni"), "Opzioni del grafico"))
        dialog = program.dialog("Opzioni del grafico")
        self.press_help(dialog, self.GRAPH_OPTIONS)
        self.assert_usable()
        self.assertTrue(is_showing(dialog))
        program.click(program.button(dialog, "Cancel"))
        program.wait_gone(dialog)

        program.menu("Help", "About")
        about = program.dialog("About")
        program.click(program.button(about, "Contatti"))
        self.assert_page(self.CONTACTS)
        self.assert_usable()
        program.click(program.button(about, "Ok"))
        program.wait_gone(about)

        # No dialog has taken the viewer along; closed, it opens anew.
        self.open_viewer()
        program.close_box(viewer)
        program.wait_gone(viewer)
        self.open_viewer()
        self.assertEqual(program.terminate(), 0)


class DamagedFilesTest(ProgramTestCase):

    WHOLE = ('"Maria Rossi"\r\n#1981-12-25#\r\n#2004-03-15#\r\n2\r\n0\r\n16711680\r\n255\r\n'
             "65280\r\n65535\r\n255\r\n65280\r\n65535\r\n").encode("ascii")

    def open(self, name, content):
        """Starts the program with a file; a folder where there is no content."""
        path = desktop.path(name)
        if content is None:
            os.mkdir(path)
        else:
            with open(path, "wb") as file:
                file.write(content)
        return self.start_program(desktop, "--open", path)

    def assert_ends_orderly(self, program):
        self.assertEqual(program.terminate(), 0, program.stderr_text())
        self.assertEqual(program.stderr_text(), "")

    def test_files_without_a_person_open_nothing(self):
        noise = random.Random(1981).randbytes(4096)
        name_gone = "il nome, alla riga 1, manca o è danneggiato"
        birth_gone = "la data di nascita, alla riga 2, manca o è danneggiata"
        for name, content, reason in (
                ("empty.bio", b"", name_gone),
                ("folder.bio", None, "è una cartella"),
                ("binary.bio", noise, name_gone),
                ("zeros.bio", bytes(4096), name_gone),
                ("one-line.bio", noise.replace(b"\r", b"").replace(b"\n", b"") * 16, name_gone),
                ("no-dates.bio", b'"Maria Rossi"\r\n#1981-99-99#\r\n#x#\r\n' + b"9" * 400,
                 birth_gone)):
            with self.subTest(name):
                program = self.open(name, content)
                box = program.message_box("Errore")
                self.assertRegex(box.text, f'^Il file ".*{name}" non si può aprire:\n{reason}\\.$')
                box.press("OK")
                self.assertEqual(program.find_all(name=re.compile("^Grafico di")), [])
                captions = [item.caption for item in program.menu_items("File bioritmi")]
                self.assertIn("Calcola nuovo", captions)
                self.assert_ends_orderly(program)

    def test_a_person_without_the_rest_is_applied_without_a_box(self):
        program = self.open("two-lines.bio", self.WHOLE[:29])
        program.window("Grafico di Maria Rossi")
        self.assertEqual(program.dialogs(), [])
        self.assert_ends_orderly(program)

    def test_ends_while_the_question_about_the_date_is_open(self):
        # Cut within the first colour; the dates are whole.
        program = self.open("cut.bio", self.WHOLE[:50])
        program.message_box("Aggiornare?")
        self.assert_ends_orderly(program)

    def test_missing_file_is_told(self):
        program = self.start_program(desktop, "--open", desktop.path("missing.bio"))
        box = program.message_box("Errore")
        self.assertRegex(box.text, r'^Il file ".*missing\.bio" non esiste\.$')
        box.press("OK")
        self.assertEqual(program.find_all(name=re.compile("^Grafico di")), [])
        self.assert_ends_orderly(program)


if __name__ == "__main__":
    unittest.main(verbosity=2)

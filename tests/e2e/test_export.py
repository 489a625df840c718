#!/usr/bin/python3
"""What is on the screen given away: pages and pictures, preview, paper."""

import os
import re
import shutil
import subprocess
import unittest

from harness import (DIALOG_ROLES, Desktop, ProgramTestCase, children_of,
                     has_state, is_checked, is_enabled, is_showing, name_of, poll, text_of,
                     value_and_maximum_of, wait_for)

NAME = "Maria Rossi"
OPTIONS_IN_FILE = ["2", "0", "16711680", "255", "65280", "65535", "255", "65280", "65535"]
PERSON = ['"Maria Rossi"', "#1981-12-25#", "#2004-03-15#", "2", "0", *OPTIONS_IN_FILE[2:]]
MEMBERS = ["Anna Bianchi", "Bruno Neri", "Carla Verdi"]
# Enough for a run that is still going on when a slow machine has found the button that ends it.
CROWD = [f"Persona {number}" for number in range(3000)]

REFUSAL = "Seleziona cosa vuoi esportare ed il tipo di esportazione!"
NO_MEMBER = "L'elemento selezionato non è valido. Selezionare un bioritmo da {}."
EXPORT_WARNING = ("Durante l'esportazione non sarà possibile effettuare cambiamenti sul sistema.\n"
                  "Il controllo del sistema sarà ripristinato con la chiusura della finestra "
                  "esportazioni.")
PRINT_WARNING = ("Durante la procedura per la stampa non sarà possibile effettuare cambiamenti sul "
                 "sistema.\nIl controllo del sistema sarà ripristinato con la chiusura della "
                 "finestra di stampa.")
CLOSING = ("Questo comporterà la chiusura del sistema aperto attualmente. "
           "Si desidera continuare ugualmente?")
DONE = " --> Operazione eseguita correttamente"

PRODUCTS = ["Riepilogo.html", *(f"StatoSettimana{n}.png" for n in range(4)), "grafico.png"]

# The engine's program takes its time where other tests run beside this one.
ENGINE_TIMEOUT = 40

desktop = Desktop(size=(1600, 1000))


def setUpModule():
    desktop.start()


def tearDownModule():
    desktop.stop()


def write_lines(path, lines):
    with open(path, "wb") as file:
        file.write("".join(line + "\r\n" for line in lines).encode("cp1252"))
    return path


def is_alive(pid):
    try:
        with open(f"/proc/{pid}/stat", encoding="ascii", errors="replace") as file:
            return file.read().rpartition(")")[2].split()[0] != "Z"
    except OSError:
        return False


class ExportTest(ProgramTestCase):

    def setUp(self):
        # A copy, beside which its own folder for exports comes to lie.
        self.home = desktop.new_home()
        self.folder = os.path.join(self.home, "programma")
        os.mkdir(self.folder)
        original = os.environ["QUOR_PROGRAM"]
        self.path = shutil.copy(original, self.folder)
        self.renderer = os.path.join(self.folder, "quor-render")
        for part in ("quor-render", "quor-paper.so"):
            shutil.copy(os.path.join(os.path.dirname(original), part), self.folder)
        self.exports = os.path.join(self.folder, "UserFiles", "Esportazioni")

    # -- steps of the scenarios ----------------------------------------------

    def start(self, path):
        """The program with a file whose date it leaves as it is."""
        self.program = self.start_program(desktop, "--open", path, path=self.path, home=self.home)
        self.answer("Aggiornare?", None, "No")
        return self.program

    def start_with_person(self):
        return self.start(write_lines(os.path.join(self.home, "maria.bio"), PERSON))

    def start_with_system(self, members=MEMBERS):
        lines = [str(len(members))]
        for number, name in enumerate(members):
            lines += [f'"{name}"', f"#{1950 + number % 50}-07-30#"]
        program = self.start(write_lines(os.path.join(self.home, "famiglia.brs"),
                                         [*lines, "#2004-03-15#", *OPTIONS_IN_FILE]))
        self.system = program.window("Sistema corrente")
        program.click(program.find("page tab", "Esportazioni/Stampa", self.system))
        return program

    def answer(self, title, text, button="OK"):
        box = self.program.message_box(title, timeout=ENGINE_TIMEOUT)
        if text is not None:
            self.assertEqual(box.text, text)
        box.press(button)

    def press(self, window, caption):
        self.program.click(self.program.button(window, caption))

    def choose_member(self, name):
        self.program.click(self.program.find(name="Bioritmo di " + name, parent=self.system))

    def choose(self, window, captions, variant):
        program = self.program
        for caption in captions:
            box = program.checkbox(window, caption)
            if not is_checked(box):
                program.click(box)
                wait_for(lambda: is_checked(box), f"{caption} cannot be checked")
        combo = program.combo_box(window, "Tipo di esportazione")
        program.wait_active(window)
        for _ in range(10):
            if has_state(combo, "focused"):
                break
            program.key("Tab")
            poll(lambda: has_state(combo, "focused"), 0.3)
        program.key({"Per pagina internet": "Home", "Per stampa": "End"}[variant])
        wait_for(lambda: name_of(combo) == variant, f"{variant} cannot be chosen")

    def log(self, window):
        return [name_of(node) for node in children_of(self.program.find("list", parent=window))]

    def close_progress(self):
        """Waits for the end of a run and closes the window that shows how far it is."""
        program = self.program
        progress = program.dialog("Esporta Informazioni", active=False)
        program.label(progress, "Esportazioni completate", timeout=ENGINE_TIMEOUT)
        bar = program.find("progress bar", parent=progress)
        self.assertEqual(*value_and_maximum_of(bar))
        self.press(progress, "Chiudi")
        program.wait_gone(progress)

    def files(self):
        return sorted(os.listdir(self.exports))

    def menus_enabled(self):
        bar = self.program.find("menu bar")
        return {name_of(item).replace("&", ""): is_enabled(item) for item in children_of(bar)}

    def assert_usable(self, busy=()):
        """The frame and its menus answer; `busy` are those that are locked."""
        wait_for(lambda: all(enabled == (name not in busy)
                             for name, enabled in self.menus_enabled().items() if name != "PopUp"),
                 lambda: f"the menus are {self.menus_enabled()}")

    def assert_locked(self):
        wait_for(lambda: not any(self.menus_enabled().values()),
                 lambda: f"the menus are {self.menus_enabled()}")

    def print_dialog(self):
        """The system's dialog, which has the title of the window that opens it."""
        program = self.program
        return program.find(DIALOG_ROLES, "Stampa", timeout=ENGINE_TIMEOUT,
                            where=lambda node: program.find_all(
                                "combo box", parent=node) != [])

    # -- scenarios -----------------------------------------------------------

    def test_person_is_exported_for_the_internet(self):
        program = self.start_with_person()
        program.menu("File bioritmi", "Esporta Informazioni")
        window = program.dialog("Esporta bioritmo di Maria Rossi")
        self.assertEqual(self.log(window), ["In attesa"])
        self.assertFalse(is_enabled(program.checkbox(window, "Crea pagina riassuntiva")))
        self.press(window, "Esporta")
        self.answer("Errore", REFUSAL)
        program.wait_active(window)

        program.click(program.checkbox(window, "Grafico"))
        self.press(window, "Esporta")
        self.answer("Errore", REFUSAL)
        program.wait_active(window)
        self.assertEqual(self.files(), [])

        self.choose(window, ["Stato settimale", "Crea pagina riassuntiva"], "Per pagina internet")
        self.press(window, "Esporta")
        self.close_progress()
        self.assertEqual(self.log(window), [
            "In attesa", f"Grafico di {NAME}{DONE}", *[f"Stato settimanale di {NAME}{DONE}"] * 4,
            f"File di riepilogo di {NAME} --> Operazione completata"])
        self.assertEqual(self.files(), ["maria_15-03-2004_" + name for name in PRODUCTS])
        with open(os.path.join(self.exports, self.files()[0]), "rb") as file:
            self.assertIn(f"<TITLE>Riepilogo dati bioritmici di {NAME}</TITLE>\r\n".encode(),
                          file.read())

        # Once more, for paper, with the keyboard alone.
        program.wait_active(window)
        self.choose(window, [], "Per stampa")
        program.key("Return")
        progress = program.dialog("Esporta Informazioni")
        program.label(progress, "Esportazioni completate", timeout=ENGINE_TIMEOUT)
        program.key("Return")
        program.wait_gone(progress)
        self.assertEqual(len(self.log(window)), 13)
        self.assertIn("maria_15-03-2004_stampa_Riepilogo.html", self.files())
        program.wait_active(window)
        program.key("Escape")
        program.wait_gone(window)
        program.wait_active(program.window())
        self.assert_usable()
        self.assertEqual(program.terminate(), 0)

    def test_one_window_shows_the_progress_of_every_run(self):
        program = self.start_with_person()
        program.menu("File bioritmi", "Esporta Informazioni")
        window = program.dialog("Esporta bioritmo di Maria Rossi")
        self.choose(window, ["Grafico"], "Per pagina internet")
        for lines in (2, 3):
            program.desktop.xdotool("windowactivate", "--sync", program.x_window(window))
            program.wait_active(window)
            program.key("Alt+e")
            wait_for(lambda: len(self.log(window)) == lines, lambda: f"{self.log(window)}")
            progress = program.dialog("Esporta Informazioni", active=False)
            program.label(progress, "Esportazioni completate")
            self.assertEqual(program.dialogs().count("Esporta Informazioni"), 1)
        self.assertEqual(program.terminate(), 0)

    def test_preview(self):
        program = self.start_with_person()
        program.menu("File bioritmi", "Anteprima di Stampa")
        window = program.dialog("Stampa")
        for caption in ("Pagina riassuntiva contenente :", "Grafico", "Stato della settimana"):
            self.assertTrue(is_checked(program.checkbox(window, caption)), caption)
        self.press(window, "Anteprima di stampa")
        preview = program.dialog(re.compile("^Anteprima"), timeout=ENGINE_TIMEOUT)
        self.assertEqual(text_of(program.label(preview, re.compile("^Pagina "))), "Pagina 1 di 1")
        self.assertEqual(self.files(), ["maria_15-03-2004_stampa_" + name for name in PRODUCTS])
        self.assertEqual(program.find_all(DIALOG_ROLES, "Esporta Informazioni"), [])
        program.key("Escape")
        program.wait_gone(preview)
        program.wait_active(window)
        self.assert_usable()

        # What is there is shown as it is; Enter starts again.
        times = [os.stat(os.path.join(self.exports, name)).st_mtime_ns for name in self.files()]
        program.key("Return")
        preview = program.dialog(re.compile("^Anteprima"), timeout=ENGINE_TIMEOUT)
        self.assertEqual(
            [os.stat(os.path.join(self.exports, name)).st_mtime_ns for name in self.files()], times)
        self.press(preview, "Chiudi")
        program.wait_gone(preview)
        program.wait_active(window)
        program.key("Escape")
        program.wait_gone(window)
        self.assert_usable()
        self.assertEqual(program.terminate(), 0)

    def test_print_into_a_file(self):
        program = self.start_with_person()
        program.menu("File bioritmi", "Stampa")
        window = program.dialog("Stampa")
        for round_number in (1, 2):
            self.press(window, "Stampa")
            dialog = self.print_dialog()
            program.wait_active(dialog)
            field = program.text_field(dialog, re.compile("^File.*:$"))
            path = os.path.join(self.home, f"carta{round_number}.pdf")
            program.set_text(field, path)
            self.press(dialog, "Stampa")
            program.wait_gone(dialog)
            program.wait_active(window)
            text = subprocess.run(["pdftotext", "-layout", path, "-"], check=True, text=True,
                                  stdout=subprocess.PIPE).stdout
            for part in (NAME, "Dati personali", "Grafico dal 24/02/2004 al 04/04/2004",
                         "Grafico per la settimana dal 15/03/2004 al 21/03/2004"):
                self.assertIn(part, text)
        self.press(window, "Stampa")
        dialog = self.print_dialog()
        program.wait_active(dialog)
        program.key("Escape")
        program.wait_gone(dialog)
        program.wait_active(window)
        self.press(window, "Chiudi")
        program.wait_gone(window)
        self.assert_usable()
        self.assertEqual(program.terminate(), 0)

    def test_member_of_a_system(self):
        program = self.start_with_system()
        self.press(self.system, "Esporta")
        self.answer("Errore.", NO_MEMBER.format("esportare"))
        self.choose_member("Bruno Neri")
        self.press(self.system, "Esporta")
        self.answer("Avviso", EXPORT_WARNING)
        window = program.dialog("Esportazione bioritmo di Bruno Neri")
        self.assert_locked()
        # The frame's own close box waits for the export's end.
        program.close_box(program.window())
        self.choose(window, ["Grafico", "Stato settimale", "Crea pagina riassuntiva"],
                    "Per pagina internet")
        self.press(window, "Esporta")
        self.close_progress()
        self.assertEqual(self.files(),
                         ["famiglia_Bruno Neri_15-03-2004_" + name for name in PRODUCTS])
        self.assert_locked()
        self.press(window, "Chiudi")
        program.wait_gone(window)
        self.assert_usable(busy=["File bioritmi"])
        self.assertEqual(program.dialogs(), [])

        self.press(self.system, "Stampa")
        self.answer("Avviso", PRINT_WARNING)
        window = program.dialog("Stampa")
        self.assert_locked()
        program.close_box(window)
        program.wait_gone(window)
        self.assert_usable(busy=["File bioritmi"])
        program.menu("File sistemi", "Chiudi Sistema")
        self.answer("Conferma", CLOSING, "Sì")
        program.wait_gone(self.system)
        self.assertEqual(program.terminate(), 0)

    def test_whole_system(self):
        program = self.start_with_system()
        self.press(self.system, "Esporta tutto il sistema")
        self.answer("Avviso", EXPORT_WARNING)
        window = program.dialog("Esportazione del sistema")
        self.assert_usable(busy=["File sistemi", "File bioritmi"])
        self.choose(window, ["Grafico", "Stato settimale", "Crea pagina riassuntiva"],
                    "Per pagina internet")
        self.press(window, "Esporta")
        self.close_progress()
        self.assertEqual(self.files(), sorted(f"famiglia_{name}_15-03-2004_{product}"
                                              for name in MEMBERS for product in PRODUCTS))
        self.assert_usable(busy=["File sistemi", "File bioritmi"])
        program.close_box(window)
        program.wait_gone(window)
        self.assert_usable(busy=["File bioritmi"])
        self.assertTrue(is_enabled(program.button(self.system, "Esporta tutto il sistema")))
        self.assertEqual(program.terminate(), 0)

    def test_end_in_the_middle_of_an_export(self):
        program = self.start_with_system(CROWD)
        self.press(self.system, "Esporta tutto il sistema")
        self.answer("Avviso", EXPORT_WARNING)
        window = program.dialog("Esportazione del sistema")
        self.choose(window, ["Grafico", "Stato settimale"], "Per stampa")
        self.press(window, "Esporta")
        wait_for(lambda: len(self.files()) > 10, "nothing is exported")
        self.assert_locked()
        self.assertEqual(program.terminate(), 0)
        self.assertLess(len(self.files()), 5 * len(CROWD))

    def test_close_in_the_middle_of_an_export(self):
        program = self.start_with_system(CROWD)
        self.press(self.system, "Esporta tutto il sistema")
        self.answer("Avviso", EXPORT_WARNING)
        window = program.dialog("Esportazione del sistema")
        self.choose(window, ["Grafico", "Stato settimale"], "Per stampa")
        self.press(window, "Esporta")
        progress = program.dialog("Esporta Informazioni", active=False)
        wait_for(lambda: len(self.files()) > 10, "nothing is exported")
        program.close_box(program.window())  # nothing happens while it goes on
        program.key("Escape")
        self.assertTrue(is_showing(progress))
        self.assert_locked()
        self.press(window, "Chiudi")
        program.wait_gone(window)
        program.wait_gone(progress)
        self.assert_usable(busy=["File bioritmi"])
        self.assertLess(len(self.files()), 5 * len(CROWD))
        self.assertEqual(program.terminate(), 0)

    def test_end_while_the_printer_is_asked_for(self):
        program = self.start_with_person()
        program.menu("File bioritmi", "Anteprima di Stampa")
        self.press(program.dialog("Stampa"), "Anteprima di stampa")
        preview = program.dialog(re.compile("^Anteprima"), timeout=ENGINE_TIMEOUT)
        self.press(preview, "Stampa")
        program.wait_active(self.print_dialog())
        self.assertEqual(program.terminate(), 0)

    def test_renderer_is_missing(self):
        os.remove(self.renderer)
        program = self.start_with_person()
        program.menu("File bioritmi", "Anteprima di Stampa")
        window = program.dialog("Stampa")
        self.press(window, "Anteprima di stampa")
        self.answer("Errore", f'Manca il programma che prepara le pagine: "{self.renderer}".')
        program.wait_active(window)
        for caption in ("Anteprima di stampa", "Chiudi", "?"):
            self.assertTrue(is_enabled(program.button(window, caption)), caption)
        self.press(window, "Chiudi")
        program.wait_gone(window)
        self.assert_usable()
        self.assertEqual(program.terminate(), 0)

    def start_endless_preview(self):
        """A preview whose pages never come. Returns its window and the engine's process."""
        note = os.path.join(self.home, "note")
        with open(self.renderer, "w", encoding="utf-8") as file:
            file.write(f"#!/bin/sh\necho $$ > '{note}.new'\nmv '{note}.new' '{note}'\nsleep 300\n")
        os.chmod(self.renderer, 0o755)
        program = self.start_with_person()
        program.menu("File bioritmi", "Anteprima di Stampa")
        window = program.dialog("Stampa")
        self.press(window, "Anteprima di stampa")
        wait_for(lambda: os.path.exists(note), "the engine's program is not started",
                 ENGINE_TIMEOUT)
        with open(note, encoding="ascii") as file:
            engine = int(file.read())
        self.assertTrue(is_alive(engine))
        self.assertFalse(is_enabled(program.button(window, "Anteprima di stampa")))
        return window, engine

    def test_close_in_the_middle_of_a_preview(self):
        window, engine = self.start_endless_preview()
        program = self.program
        program.close_box(window)
        program.wait_gone(window)
        wait_for(lambda: not is_alive(engine), "the engine's program goes on")
        self.assert_usable()
        self.assertEqual(program.dialogs(), [])
        self.assertEqual(program.terminate(), 0)

    def test_end_in_the_middle_of_a_preview(self):
        _, engine = self.start_endless_preview()
        self.assertEqual(self.program.terminate(), 0)
        wait_for(lambda: not is_alive(engine), "the engine's program goes on")


if __name__ == "__main__":
    unittest.main(verbosity=2)

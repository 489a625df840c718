#!/usr/bin/python3
"""The program on a Wayland desktop, from one start to the next."""

import glob
import os
import subprocess
import sys
import unittest

from harness import (Program, ProgramTestCase, extents_of, has_state, poll, text_of, wait_for)
from harness.wayland import WaylandDesktop

FILE = ('"{}"\r\n#1981-12-25#\r\n#2004-03-15#\r\n2\r\n0\r\n'
        "16711680\r\n255\r\n65280\r\n65535\r\n255\r\n65280\r\n65535\r\n")
CLOSING = ("Questo comporterà la chiusura del bioritmo di Maria Rossi. "
           "Si desidera continuare ugualmente?")
GRAPH = "Grafico di Maria Rossi"

desktop = WaylandDesktop()


def setUpModule():
    desktop.start()


def tearDownModule():
    desktop.stop()


class WaylandTest(ProgramTestCase):

    def setUp(self):
        self.home = desktop.new_home()

    # -- steps of the scenarios ----------------------------------------------

    def start(self, **options):
        return self.start_program(desktop, home=self.home, **options)

    @staticmethod
    def open_entry(program):
        program.wait_active(program.window())
        program.menu("File bioritmi", "Calcola nuovo", by="keys")
        return program.dialog("Inserimento")

    def enter_maria(self, program):
        """By keys alone."""
        dialog = self.open_entry(program)
        for label, text in (("Nome:", "Maria Rossi"), ("Data di nascita:", "25/12/1981"),
                            ("Giorno attorno al quale calcolare il bioritmo:", "15/03/2004")):
            field = program.text_field(dialog, label)
            if label != "Nome:":
                program.key("Tab")
            wait_for(lambda field=field: has_state(field, "focused"), f"{label} has no focus")
            program.key("Ctrl+A")
            program.type_text(text)
            wait_for(lambda field=field, text=text: text_of(field) == text,
                     lambda field=field, text=text: f"{text_of(field)!r} is typed, not {text!r}")
        program.key("Return")
        program.wait_gone(dialog)
        return program.window(GRAPH)

    def drop(self, program, path):
        """Drags a file from another program onto the frame."""
        with Program(desktop, [os.environ["QUOR_DRAG_SOURCE"], path]) as files:
            source = files.window("Files")
            x, y, width, height = desktop.place_of(source)
            left, top, wide, high = desktop.place_of(program.window())
            # Two places that a small window cannot cover both.
            end = left + wide // 4, top + high // 2
            if x - 20 < end[0] < x + width + 20 and y - 50 < end[1] < y + height + 20:
                end = left + wide * 3 // 4, end[1]
            desktop.drag((x + width // 2, y + height // 2), end)
            program.find(("dialog", "alert"))
            files.kill_at_once()

    def assert_size(self, program, size):
        poll(lambda: extents_of(program.window())[2:] == size)
        self.assertEqual(extents_of(program.window())[2:], size)

    @staticmethod
    def quit(program):
        program.menu("File bioritmi", "Esci da Quor")
        program.message_box("Conferma").press("Sì")

    # -- scenarios -----------------------------------------------------------

    def test_from_one_start_to_the_next(self):
        program = self.start()
        graph = self.enter_maria(program)
        x, y = program.centre_of(program.find(name="Finestra del grafico", parent=graph))
        desktop.click_at(x, y, 3)
        popup = program.popup()
        self.assertIn("Giorno 15/03/2004", popup.captions())
        # Where the mouse is, as far as there is room.
        place = desktop.place_of(popup.node)
        self.assertLessEqual(abs(place[0] - x) + abs(place[1] - y), 8, (place, x, y))
        popup.dismiss()

        maria = os.path.join(self.home, "maria.bio")
        program.menu("File bioritmi", "Salva con nome")
        program.file_dialog("Salva").choose(maria)
        program.message_box("Ok").press("OK")
        with open(maria, encoding="cp1252", newline="") as file:
            self.assertEqual(file.read(), FILE.format("Maria Rossi"))

        lia = os.path.join(self.home, "lia.bio")
        with open(lia, "w", encoding="cp1252", newline="") as file:
            file.write(FILE.format("Lia"))
        self.drop(program, lia)
        box = program.message_box("Conferma")
        self.assertEqual(box.text, CLOSING)
        box.press("Sì")
        program.message_box("Aggiornare?").press("No")
        program.window("Grafico di Lia")
        self.quit(program)
        self.assertEqual((program.wait_exit(), program.stderr_text()), (0, ""))

        program = self.start()
        program.menu("File bioritmi", "Aperti di recente", "2 maria.bio")
        program.message_box("Aggiornare?").press("No")
        program.window(GRAPH)
        self.assertEqual(program.terminate(), 0)

    def test_size_and_maximised_state(self):
        program = self.start()
        surface = desktop.surface_of(program.window())
        corner = (surface.x + surface.width - 1, surface.y + surface.height - 1)
        desktop.drag(corner, (corner[0] - 200, corner[1] - 100))
        self.assert_size(program, (880, 660))
        self.assertEqual(program.terminate(), 0)

        program = self.start()
        self.assert_size(program, (880, 660))
        program.wait_active(program.window())
        program.key("super+shift+m")
        self.assert_maximised(program)
        self.assertEqual(program.terminate(), 0)

        program = self.start()
        self.assert_maximised(program)
        program.wait_active(program.window())
        program.key("super+shift+m")
        self.assert_size(program, (880, 660))
        self.assertEqual(program.terminate(), 0)

    def test_first_window_fits_on_a_small_screen(self):
        # Of 853 by 683 pixels, for the program.
        program = self.start(env={"QT_SCALE_FACTOR": "1.5"})
        surface = wait_for(lambda: desktop.surface_of(program.window()), "no window")
        self.assertLessEqual(surface.width, desktop.size[0])
        self.assertLessEqual(surface.height, desktop.size[1])
        self.assertEqual(program.terminate(), 0)

    def assert_maximised(self, program):
        def size():
            surface = desktop.surface_of(program.window())
            return surface and (surface.width, surface.height)
        poll(lambda: size() == desktop.size)
        self.assertEqual(size(), desktop.size)

    def test_escape_in_an_open_list(self):
        program = self.start()
        graph = self.enter_maria(program)
        program.click(program.find(name="Finestra del grafico", parent=graph), button=3)
        program.popup().choose("Opzioni")
        dialog = program.dialog("Opzioni del grafico")
        box = program.find("combo box", parent=dialog)
        program.click(box)
        wait_for(lambda: self.popups(), "the list does not open")
        program.key("Escape")
        wait_for(lambda: not self.popups(), "the list does not close")
        # The dialog answers to what comes next.
        program.key("Tab")
        wait_for(lambda: not has_state(box, "focused"), "the tab key does nothing")
        self.assertEqual(program.dialogs(), ["Opzioni del grafico"])
        program.key("Escape")
        program.wait_gone(dialog)
        self.assertEqual(program.terminate(), 0)

    @staticmethod
    def popups():
        return [surface for surface in desktop.surfaces() if surface.role == "xdg_popup"]

    def test_clipboard(self):
        first = self.start()
        self.open_entry(first)
        first.type_text("Maria Rossi")
        first.key("Ctrl+A", "Ctrl+C")
        second = self.start_program(desktop)
        field = second.text_field(self.open_entry(second), "Nome:")
        second.key("Ctrl+V")
        wait_for(lambda: text_of(field) == "Maria Rossi",
                 lambda: f"{text_of(field)!r} is pasted")
        self.assertEqual((first.terminate(), second.terminate()), (0, 0))

    def test_the_compositor_ends(self):
        for question in (False, True):
            with self.subTest(question=question):
                program = self.start()
                if not question:
                    self.enter_maria(program)
                else:
                    self.recover(program)
                    self.quit(program)
                    program.message_box("Conferma")  # asks whether to save
                wait_for(lambda: glob.glob(self.home + "/.local/state/quor/recupero/*.bio"),
                         "the work is not put aside")
                desktop.end_compositor()
                # An end like any other, without a crash.
                self.assertEqual(program.wait_exit(), 1, program.stderr_text())
                desktop.start_compositor()
        program = self.start()
        self.recover(program)
        self.assertEqual(program.terminate(), 0)

    @staticmethod
    def recover(program):
        box = program.message_box("Recupero")
        assert "Bioritmo di Maria Rossi" in box.text
        box.press("Recupera")
        program.window(GRAPH)

    def test_a_missing_plugin_is_named(self):
        """Also where Qt finds another one."""
        missing = 'quor: a Qt manca un plugin: Could not find the Qt platform plugin "{}" in ""'
        for platform, end in (("wayland-missing", " (installare il pacchetto qt6-wayland)"),
                              ("missing", "")):
            line = missing.format(platform) + end + "\n"
            program = self.start(env={"QT_QPA_PLATFORM": platform + ";wayland"})
            program.window()
            program.kill_at_once()  # one that ends well may write nothing
            self.assertEqual(program.stderr_text(), line)
            result = subprocess.run([os.environ["QUOR_PROGRAM"]], capture_output=True, text=True,
                                    env={**desktop.environment, "QT_QPA_PLATFORM": platform})
            self.assertEqual((result.returncode, result.stdout, result.stderr),
                             (1, "", line + "quor: nessuno schermo disponibile\n"))


if __name__ == "__main__":
    if WaylandDesktop.missing():
        print("skipped:", WaylandDesktop.missing())
        sys.exit(77)
    unittest.main(verbosity=2)

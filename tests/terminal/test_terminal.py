#!/usr/bin/env python3
"""Bars and interrupts as users meet them: in a real terminal, in a pipe, and by signals.

argument: the program actor
"""
import os
import random
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

sys.path.append(str(Path(__file__).parent.parent / "support"))
from screen import Screen, columns, resize  # noqa: E402

ACTOR = sys.argv.pop()
os.environ["LC_ALL"] = "C.UTF-8"
SIZE = 1000000


def on_screen(width, *arguments, control=False):
    return Screen(width, ACTOR, *arguments, control=control)


class Bars(unittest.TestCase):
    def check_bars(self, screen, width):
        """All fit, none goes back, and the last thing on the terminal is what the program says."""
        bars = screen.bars()
        self.assertTrue(bars)
        self.assertLess(max(map(columns, bars)), width)
        percents = [int(re.search(r"(\d+)%", bar)[1]) for bar in bars]
        self.assertEqual(percents, sorted(percents))
        self.assertNotIn("\x1b", screen.text, "something that must be put back")
        self.assertRegex(screen.text, r"\r +\r(done|stopped)\r\n$", "a bar that is left behind")
        return bars

    def test_a_bar_fits_into_narrow_and_wide_terminals(self):
        for width in (40, 200):
            screen = on_screen(width, "bar", "15", "100")
            self.assertEqual(screen.end(), 0)
            bars = self.check_bars(screen, width)
            self.assertIn("Ränder", bars[-1])
            self.assertRegex("".join(bars), r"\d:\d\d", "no time that is left")
            self.assertRegex(screen.text, r"\r +\rhalfway\r\n\r", "a line that the bar cuts")

    def test_a_terminal_may_be_resized(self):
        screen = on_screen(100, "bar", "20", "120")
        screen.wait_for(r"\[#")
        resize(screen.ours, 60)
        with screen.seen:
            before = len(screen.text)
            screen.seen.wait_for(lambda: len(screen.text) > before + 200, 30)
        self.assertEqual(screen.end(), 0)
        self.assertGreater(max(map(columns, screen.bars())), 60)
        self.assertLess(columns(screen.bars()[-1]), 60)

    def test_what_is_fast_shows_no_bar(self):
        screen = on_screen(80, "bar", "0", "100")
        self.assertEqual(screen.end(), 0)
        self.assertEqual(screen.text, "halfway\r\ndone\r\n")

    def test_a_very_narrow_terminal_gets_the_percentage(self):
        screen = on_screen(12, "bar", "10", "100")
        self.assertEqual(screen.end(), 0)
        self.assertRegex(screen.text, r"\r\d+% *")
        self.assertLess(max(map(columns, re.split(r"[\r\n]+", screen.text))), 12)

    def test_a_pipe_gets_lines_and_the_quiet_nothing(self):
        for quiet in ((), ("quiet",)):
            said = subprocess.run([ACTOR, "bar", "8", "100", *quiet], capture_output=True, text=True)
            self.assertEqual(said.stdout, "done\n")
            pattern = r"halfway\n" if quiet else r"(halfway\n)? +\d+% Ränder 測定\n(halfway\n)?100% Ränder 測定\n"
            self.assertRegex(said.stderr, rf"\A{pattern}\Z")

    def test_ctrl_c_stops_and_wipes(self):
        screen = on_screen(80, "bar", "20", "100000", control=True)
        screen.wait_for(r"\[")
        os.write(screen.ours, b"\x03")
        self.assertEqual(screen.end(), 130)
        screen.text = screen.text.replace("^C", "")
        self.check_bars(screen, 80)


class Interrupts(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = Path(folder.name) / "project.kyr"
        self.file.write_bytes(b"0" * SIZE)

    def start(self, *arguments):
        actor = subprocess.Popen([ACTOR, "save", self.file, *arguments], stdout=subprocess.PIPE, text=True)
        self.assertEqual(actor.stdout.readline(), "saving\n")
        return actor

    def check_file(self, moment):
        self.assertEqual(os.listdir(self.file.parent), [self.file.name], f"left behind after {moment} s")
        content = self.file.read_bytes()
        self.assertEqual((len(content), len(set(content))), (SIZE, 1), f"not whole after {moment} s")

    def test_one_signal_at_any_moment_stops(self):
        for turn in range(100):
            actor = self.start()
            moment = random.uniform(0, 0.02)
            time.sleep(moment)
            actor.send_signal((signal.SIGTERM, signal.SIGINT, signal.SIGHUP)[turn % 3])
            self.assertEqual((actor.communicate(timeout=30)[0], actor.returncode), ("stopped\n", 130))
            self.check_file(moment)

    def test_a_second_one_ends_the_process_at_once(self):
        for turn in range(30):
            actor = self.start("deaf")
            moment = random.uniform(0, 0.02)
            time.sleep(moment)
            actor.terminate()
            time.sleep(0.01)
            self.assertIsNone(actor.poll(), "the first one ends it")
            for _ in range(1000):  # on a busy machine some come together, which are one
                actor.terminate()
                if actor.poll() is not None:
                    break
                time.sleep(0.01)
            self.assertEqual((actor.communicate(timeout=30)[0], actor.returncode), ("", -signal.SIGTERM))
            self.check_file(moment)

    def test_what_is_ignored_stays_ignored(self):
        actor = subprocess.Popen(["nohup", ACTOR, "save", self.file], stdout=subprocess.PIPE,
                                 stderr=subprocess.DEVNULL, text=True)
        self.assertEqual(actor.stdout.readline(), "saving\n")
        actor.send_signal(signal.SIGHUP)
        time.sleep(0.1)
        self.assertIsNone(actor.poll())
        actor.terminate()
        self.assertEqual(actor.wait(30), 130)
        actor.stdout.close()


if __name__ == "__main__":
    unittest.main()

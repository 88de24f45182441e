"""A terminal for the tests of programs."""
import fcntl
import os
import pty
import re
import struct
import subprocess
import termios
import threading
import unicodedata


def resize(terminal, columns):
    fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))


def columns(text):
    return sum(2 if unicodedata.east_asian_width(letter) in "WF" else 1 for letter in text)


class Screen:
    """Runs a program on a terminal and keeps what it writes."""

    def __init__(self, width, *command, control=False, environment=None):
        self.ours, theirs = pty.openpty()
        resize(self.ours, width)
        extra = {"preexec_fn": lambda: fcntl.ioctl(theirs, termios.TIOCSCTTY, 0)} if control else {}
        self.program = subprocess.Popen(command, env=environment, stdin=theirs, stdout=theirs, stderr=theirs,
                                        start_new_session=control, **extra)
        os.close(theirs)
        self.text = ""
        self.seen = threading.Condition()
        self.reader = threading.Thread(target=self.read)
        self.reader.start()

    def read(self):
        try:
            while piece := os.read(self.ours, 65536):
                with self.seen:
                    self.text += piece.decode(errors="replace")
                    self.seen.notify_all()
        except OSError:  # the end of a terminal
            pass

    def wait_for(self, pattern):
        with self.seen:
            assert self.seen.wait_for(lambda: re.search(pattern, self.text), 30), (pattern, self.text)

    def end(self, patience=30):
        code = self.program.wait(patience)
        self.reader.join(30)
        os.close(self.ours)
        return code

    def bars(self):
        return [line for line in re.split(r"[\r\n]+", self.text) if "[" in line]

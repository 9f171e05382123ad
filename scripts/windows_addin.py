"""The container of the Windows add-in, driven by real keys and mouse: a display, a process, and what is seen of both."""
import os
import queue
import re
import subprocess
import threading
import time

CONTAINER = "build/windows/tests/windows/quorvane-host32.exe"
ADD_IN = "build/windows/QuorvaneForVB6.dll"
LONGEST_WAIT = 60  # seconds until what is awaited counts as missing


class Missed(Exception):
    """Something that should have come did not; the text says what."""


class Window:
    """A visible window of the container as `windows` tells it; places are screen pixels."""

    def __init__(self, line):
        words = line.split(" ", 8)
        self.handle, self.kind = words[0], words[1]
        self.left, self.top, self.right, self.bottom = map(int, words[2:6])
        self.enabled, self.parent = words[6] == "enabled", words[7]
        self.title = words[8] if len(words) > 8 else ""

    def middle(self):
        return (self.left + self.right) // 2, (self.top + self.bottom) // 2


class Host:
    def __init__(self, locale, *options):
        command = ["scripts/wine", "--here", "--locale", locale, CONTAINER, *options]
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.lines = queue.Queue()
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.put(line.decode("utf-8", "replace").rstrip("\r\n"))
        self.lines.put(None)

    def send(self, line):
        self.process.stdin.write((line + "\n").encode())
        self.process.stdin.flush()

    def answer(self):
        told = []
        while True:
            try:
                line = self.lines.get(timeout=LONGEST_WAIT)
            except queue.Empty:
                raise Missed(f"the container does not answer; it told {told}") from None
            if line is None:
                raise Missed("the container has ended")
            if line.startswith("error "):
                raise Missed(line)
            if line == "ok" or line.startswith("ok "):
                return told + ([line[3:]] if line != "ok" else [])
            if not line.startswith("! "):
                told.append(line)

    def ask(self, line):
        self.send(line)
        return self.answer()

    def windows(self):
        return [Window(line) for line in self.ask("windows")]

    def window(self, title=None, kind=None, within=None):
        """The first window with this title (a regular expression) and class, below `within` where that is given."""
        everything = self.windows()
        inside = {within.handle} if within else set()
        for one in everything:
            if within and one.parent not in inside:
                continue
            inside.add(one.handle)
            if (title is None or re.search(title, one.title)) and (kind is None or re.fullmatch(kind, one.kind)):
                return one
        return None

    def end(self):
        """Ends the program; its exit status."""
        self.send("quit")
        try:
            return self.process.wait(LONGEST_WAIT)
        except subprocess.TimeoutExpired:
            self.process.kill()
            raise Missed("the container does not end") from None


def soon(what, look):
    """Waits until `look` gives something true and gives that; `what` names it when it never comes."""
    begin = time.monotonic()
    while True:
        seen = look()
        if seen:
            return seen
        if time.monotonic() - begin > LONGEST_WAIT:
            raise Missed(f"never seen: {what}")
        time.sleep(0.05)


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True)


def focused():
    """The title of the window that real keys go to."""
    told = subprocess.run(["xdotool", "getwindowfocus", "getwindowname"], capture_output=True, text=True, check=False)
    return told.stdout


def keys(*chords):
    """Real keys, as xdotool names them: "ctrl+q", "Return"."""
    xdotool("key", "--clearmodifiers", "--delay", "30", *chords)


def write(text):
    xdotool("type", "--delay", "30", text)


def point(x, y):
    xdotool("mousemove", x, y)


def click(place, button=1, times=1):
    point(*place)
    xdotool("click", "--repeat", times, "--delay", "80", button)


def drag(start, end):
    """Drags with the left button, over a few places between."""
    point(*start)
    xdotool("mousedown", 1)
    for step in range(1, 6):
        point(start[0] + (end[0] - start[0]) * step // 5, start[1] + (end[1] - start[1]) * step // 5)
        time.sleep(0.05)
    xdotool("mouseup", 1)


def picture(window, file):
    """A picture of that part of the screen."""
    size = f"{window.right - window.left}x{window.bottom - window.top}+{window.left}+{window.top}"
    os.makedirs(os.path.dirname(file) or ".", exist_ok=True)
    subprocess.run(["import", "-window", "root", "-crop", size, "+repage", file], check=True)

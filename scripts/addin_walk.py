"""The walk of scripts/test-windows-addin, step by step, as a user would go.

Each step acts by real keys and mouse and then asks the container what became of it. What comes late is awaited, never
slept for; what never comes is told in a sentence that names it.
"""
import copy
import os
import re
import shutil
import subprocess
import time

from windows_addin import ADD_IN, Host, Missed, click, drag, focused, keys, picture, point, soon, write

MATCHES = 9  # "price" in the container's own group, comments left out


class Walk:
    def __init__(self, locale, options, pictures, room):
        self.locale, self.options, self.pictures, self.room = locale, options, pictures, room
        self.host, self.step, self.checks = None, "start", 0
        self.add_in = shutil.copy(ADD_IN, room)  # it writes its own files beside itself, and reads two texts there
        for text in ("ReadMe.txt", "License.txt"):
            shutil.copy(os.path.join(os.path.dirname(ADD_IN), text), room)

    # What is looked at.
    def same(self, what, seen, wanted):
        self.checks += 1
        if seen != wanted:
            raise Missed(f"{what}: {seen!r}, not {wanted!r}")

    def becomes(self, what, look, wanted):
        """Waits until `look` gives what is wanted."""
        self.checks += 1
        last = []

        def seen():
            last[:] = [look()]
            return last[0] == wanted

        try:
            soon(what, seen)
        except Missed:
            raise Missed(f"{what}: {last[0]!r}, not {wanted!r}") from None

    def window(self, what, **wanted):
        self.checks += 1
        return soon(what, lambda: self.host.window(**wanted))

    def in_front(self, what, title):
        """Waits until the display gives the keys to a window of this title (a regular expression). A key that comes
        sooner is served too, but the display's late answer then wakes the main window, which takes the focus."""
        self.checks += 1
        soon(f"the keys go to {what}", lambda: re.search(title, focused()))

    def gone(self, what, **wanted):
        self.checks += 1
        soon(f"{what} goes", lambda: self.host.window(**wanted) is None)

    def show(self, name, window, margin=0):
        """A picture of a window, once it has painted."""
        if self.pictures is None:
            return
        time.sleep(0.7)
        window = copy.copy(window)
        window.left, window.top = window.left - margin, window.top - margin
        window.right, window.bottom = window.right + margin, window.bottom + margin
        if "Quorvane" in window.title and window.kind != "VbToolFrame":  # its frame is the window manager's, and less wide
            window.left, window.top, window.right, window.bottom = (window.left + 3, window.top + 3, window.right - 3,
                                                                    window.bottom - 3)
        picture(window, os.path.join(self.pictures, f"{name}.png"))

    # The windows of the add-in.
    def dialog(self):
        """The search dialog: the form around the window that holds its frame of areas."""
        area = self.window("the search dialog", kind="Button", title="^(范围|Area)$")
        above = {one.handle: one for one in self.host.windows()}
        return above[above[area.parent].parent]

    def list(self):
        """The list of the tab in front: the window that tells rows."""
        tool = self.window("the result window", kind="VbToolFrame")
        inside = {tool.handle}
        lists = []
        for one in self.host.windows():
            if one.parent in inside:
                inside.add(one.handle)
                if one.kind.endswith("_8"):
                    lists.append(one)
        if not lists:
            raise Missed("the result window has no list")
        return lists[-1]

    def rows(self):
        told = self.host.ask(f"rows {self.list().handle}")
        self.same("the number of rows", int(told[-1]), len(told) - 1)
        return told[:-1]

    def status(self):
        tool = self.window("the result window", kind="VbToolFrame")
        inside = {tool.handle}
        for one in self.host.windows():
            if one.parent in inside:
                inside.add(one.handle)
                if one.kind == "Static":
                    return one.title
        return ""

    def selection(self, module):
        return " ".join(self.host.ask(f"selection {module}"))

    def room_of_row(self, row):
        """Left, top, right and bottom of a row, in screen pixels."""
        return [int(number) for number in self.host.ask(f"row {self.list().handle} {row}")[-1].split()]

    def place_of_row(self, row):
        left, top, _, bottom = self.room_of_row(row)
        return left + 200, (top + bottom) // 2

    def rested(self):
        """Waits for the end of a search: the button that cancels goes."""
        self.gone("the button that cancels", kind="Button", title="^&Cancel")

    def press(self, title):
        """Clicks the middle of a button or option that is enabled and says this."""
        button = self.window(f"the button {title}", kind="Button", title=title)
        soon(f"{title} is enabled", lambda: self.host.window(kind="Button", title=title).enabled)
        click(button.middle())

    def find(self, text, chords=(), button="alt+s"):
        """Types what to find, chooses by accelerators, and starts."""
        keys("ctrl+q")
        self.dialog()
        keys("alt+f", "ctrl+a")
        write(text)
        keys(*chords, button)

    # The steps.
    def go(self):
        self.host = Host(self.locale, *self.options)
        for step in (self.connect, self.chinese, self.english, self.plain, self.code, self.drag_text, self.tool_tip,
                     self.hotkeys, self.patterns, self.tabs, self.preview, self.replace, self.about, self.disconnect, self.unload,
                     self.disconnect_from_a_search):
            self.step = step.__name__.replace("_", " ")
            step()

    def connect(self):
        self.host.ask("register " + self.add_in)
        self.same("the connection", self.host.ask("connect")[-1], "connected")
        self.same("the menu", self.host.ask("menu"), ["+Quorvane插件(&D)"])
        self.host.ask("show Shop.Prices")
        soon("the keys go to the container", lambda: "Quorvane" in focused())

    def chinese(self):
        keys("ctrl+q")
        dialog = self.dialog()
        self.becomes("the focus", lambda: self.host.ask("focus")[-1].split()[-1], "Edit")
        self.show("search-zh", dialog)
        self.find("price", ["alt+g"])
        self.becomes("the status", self.status, "模块:3 匹配:9 显示:9 全部工程,普通,排除注释")
        self.show("results-zh", self.window("the result window", kind="VbToolFrame"))
        self.move_results()
        self.look_at_about("zh")
        self.question_answered_no("zh")
        self.options_pages("zh")

    def move_results(self):
        """The result window, by its caption, to where it hides nothing."""
        before = self.window("the result window", kind="VbToolFrame")
        drag((before.left + 150, before.top + 11), (before.left + 150 + 60, before.top + 11 + 350))
        self.becomes("the place of the result window", lambda: self.host.window(kind="VbToolFrame").top > before.top + 300,
                     True)

    def open_menu(self):
        """The menu of the search dialog, where nothing modal stands before it."""
        soon("the main window is enabled", lambda: self.host.window(kind="wndclass_desked_gsk").enabled)
        dialog = self.dialog()
        click((dialog.right - 40, dialog.bottom - 40), 3)
        self.window("the menu", kind="#32768")

    def options_pages(self, language):
        """Opens the options from the dialog's menu, looks at the pages, and leaves them on the one of languages."""
        self.open_menu()
        keys("o")
        options = self.window("the options", title="^(Quorvane插件选项|Quorvane Options)$")
        self.in_front("the options", "^(Quorvane插件选项|Quorvane Options)$")
        for page in ("general", "filter", "hotkeys", "language"):
            self.show(f"options-{page}-{language}", options)
            if page != "language":
                keys("ctrl+Tab")
        self.window("the page of languages", kind="ComboBox", title="^(中文|English)")

    def english(self):
        keys("Tab", "Down")
        self.press("^(确定|&?O&?[Kk])")
        self.gone("the options", title="^Quorvane(插件选项| Options)$")
        self.window("the dialog in English", kind="Button", title="^Area$")
        dialog, main = self.dialog(), self.window("the main window", kind="wndclass_desked_gsk")
        self.same("whether the wider dialog lies in the main window", dialog.right <= main.right, True)
        self.same("the menu", self.host.ask("menu"), ["+Quorvan&e"])
        self.options_pages("en")
        self.press("^(&Cancel|Cance&l|Cancel)$")
        self.gone("the options", title="^Quorvane Options$")
        self.show("search-en", self.dialog())

    def plain(self):
        self.find("price", ["alt+g"])
        self.becomes("the matches", lambda: len(self.rows()), MATCHES)
        rows = self.rows()
        self.same("the first row", rows[0].split("]")[-1].strip(), "Private price As Currency")
        self.show("results-en", self.window("the result window", kind="VbToolFrame"))
        self.bold_matches(rows)
        keys("ctrl+q")
        self.dialog()
        comments = self.window("the box of comments", kind="Button", title="omment")
        for what, count in (("comments alone", 3), ("comments too", MATCHES + 3), ("no comments", MATCHES)):
            click(comments.middle())
            self.find("price")
            self.becomes(f"the matches with {what}", lambda: len(self.rows()), count)

    def bold_matches(self, rows):
        """In each row the stems of the match are two pixels wide, and those of nothing else."""
        found = []

        def all_bold():
            found[:] = self.bold_stems(len(rows))
            return all(found)

        soon(f"a match in bold in each row; stems seen so far: {found}", all_bold)
        for row, stems in enumerate(found):
            self.checks += 1
            if stems[-1] - stems[0] > 45:
                raise Missed(f"row {row} has more in bold than the match: pixels {stems[0]} to {stems[-1]}")

    def bold_stems(self, count):
        """For each of the first rows of the list the columns in pixels where an upright stroke is two pixels wide."""
        columns = []
        for row in range(count):
            left, top, right, bottom = self.room_of_row(row)
            gray = ["import", "-window", "root", "-crop", f"{right - left}x{bottom - top}+{left}+{top}", "-depth", "8"]
            pixels = subprocess.run([*gray, "gray:-"], check=True, capture_output=True).stdout
            width = right - left
            lines = [pixels[y * width:(y + 1) * width] for y in range(bottom - top)]
            columns.append([x for x in range(width - 1)
                            if longest(line[x] < 60 and line[x + 1] < 60 for line in lines) >= 5])
        return columns

    def code(self):
        self.rested()
        click(self.place_of_row(0), times=2)
        self.becomes("the module in front", lambda: self.host.ask("active")[-1], "Shop.Prices")
        self.becomes("the selection", lambda: self.selection("Shop.Prices"), "3 9 3 14")

    def drag_text(self):
        """The selected word, by the mouse, from the code to the box of what to find."""
        field = self.window("the code", kind="Edit", title="^Option Explicit")
        place = int(self.host.ask(f"send {field.handle} 0xD6 {self.offset(field, 3, 11)} 0")[-1])  # EM_POSFROMCHAR
        keys("ctrl+q", "alt+f", "ctrl+a")
        write("other")
        area = self.dialog()
        box = self.window("the box of what to find", kind="Edit", title="^other$")
        if point_in((field.left + place % 65536, field.top + place // 65536), area):
            raise Missed("the dialog hides the code")
        drag((field.left + place % 65536 + 2, field.top + place // 65536 + 5), box.middle())
        self.becomes("what to find", lambda: self.host.ask(f"title {box.handle}")[-1], "price")

    def offset(self, field, line, column):
        """The place of a line and column, both from 1, in a field, as it counts: characters from 0."""
        return int(self.host.ask(f"send {field.handle} 0xBB {line - 1} 0")[-1]) + column - 1  # EM_LINEINDEX

    def tool_tip(self):
        """The box of comments says what it is about while the mouse rests on it, and no longer."""
        comments = self.window("the box of comments", kind="Button", title="omment")
        point(*comments.middle())
        tip = self.window("its tool tip", kind="tooltips_class32")
        self.same("whether it says something", len(self.host.ask(f"title {tip.handle}")[-1]) > 10, True)
        point(comments.left, comments.top - 300)
        self.gone("the tool tip", kind="tooltips_class32")

    def hotkeys(self):
        keys("ctrl+period")
        self.becomes("the next match", lambda: self.selection("Shop.Prices"), "5 15 5 20")
        keys("ctrl+period")
        keys("ctrl+comma")
        self.becomes("the match before", lambda: self.selection("Shop.Prices"), "5 15 5 20")

    def patterns(self):
        self.find("pr*e =", ["alt+t"])
        self.becomes("the pattern's row", lambda: [one.split("]")[-1].strip() for one in self.rows()],
                     ["price = value ' price in euro"])
        self.find(r"\bprice$", ["alt+x"])
        self.becomes("the rows of the regular expression", lambda: [one.split("]")[-1].strip() for one in self.rows()],
                     ['Debug.Print "price: "; price', "items.Add price"])

    def tabs(self):
        """A tab more by its plus, and gone again by the middle button."""
        self.rested()
        strip = self.window("the tabs", kind="SysTabControl32")

        def count():
            return int(self.host.ask(f"send {strip.handle} 0x1304 0 0")[-1])  # TCM_GETITEMCOUNT

        def middle(tab):
            left, top, right, bottom = [int(number) for number in self.host.ask(f"tab {strip.handle} {tab}")[-1].split()]
            return (left + right) // 2, (top + bottom) // 2

        def resting(tab):
            """Where a tab is once it stays there: a search renames its tab, and those behind it move."""
            def seen():
                place = middle(tab)
                time.sleep(0.5)
                return place if middle(tab) == place else None
            return soon(f"tab {tab} rests", seen)

        before = count()
        click(resting(before - 1))
        self.becomes("tabs with one more", count, before + 1)
        click(resting(before - 1), 2)
        self.becomes("tabs with one less", count, before)

    def preview(self):
        self.find("price", ["alt+n"])
        self.becomes("the matches", lambda: len(self.rows()), MATCHES)
        self.rested()
        click(self.place_of_row(4), 3)
        self.window("the menu of the list", kind="#32768")
        keys("p")
        self.preview_at(5)
        self.show("preview", self.floating())
        left, top, _, bottom = self.room_of_row(4)
        point(left - 60, (top + bottom) // 2)
        soon("the preview goes", lambda: self.floating() is None)

    def preview_at(self, row):
        """Points at a row; the preview comes and shows something in red, as the match is shown."""
        point(*self.place_of_row(row))
        self.checks += 1
        soon("the preview with its match in red", lambda: self.floating() and self.reds(self.floating()) > 20)

    def floating(self):
        """The preview: a window of the add-in that has neither title nor owner's frame; None while there is none."""
        desk = self.window("the main window", kind="wndclass_desked_gsk").parent
        return next((one for one in self.host.windows()
                     if one.parent == desk and one.kind.startswith("Quorvane") and not one.title), None)

    def reds(self, window):
        """How many pixels of a window are red."""
        size = f"{window.right - window.left}x{window.bottom - window.top}+{window.left}+{window.top}"
        pixels = subprocess.run(["import", "-window", "root", "-crop", size, "-depth", "8", "rgb:-"], check=True,
                                capture_output=True).stdout
        return sum(1 for at in range(0, len(pixels), 3) if pixels[at] > 180 and max(pixels[at + 1:at + 3]) < 90)

    def replace(self):
        """The preview of the replacement, Replace All after its question, and each module's own undo."""
        before = {name: self.host.ask(f"text {name}") for name in ("Shop.Prices", "Shop.Basket", "Tests.TestPrices")}
        keys("ctrl+q")
        self.dialog()
        keys("alt+l", "ctrl+a")
        write("cost$1")
        self.find(r"\bprice\b( ?)", ["alt+x"])
        self.becomes("the matches", lambda: len(self.rows()), 7)
        self.rested()
        click(self.place_of_row(1), 3)
        self.window("the menu of the list", kind="#32768")
        keys("r")
        self.preview_at(2)
        self.show("preview-replacement", self.floating())
        self.question_answered_no("en")
        keys("alt+x")
        self.press("^Replace &All")
        self.window("the question", kind="#32770")
        self.in_front("the question", "^Quorvane(插件| add-in)$")
        keys("y")
        self.gone("the question", kind="#32770")
        self.becomes("a line of the replaced text", lambda: self.host.ask("text Shop.Basket")[3], "|    items.Add cost")
        for name, text in before.items():
            while self.host.ask(f"undo {name}")[-1] == "undone":
                pass
            self.same(f"{name} as it was", self.host.ask(f"text {name}"), text)

    def about(self):
        self.look_at_about("en")

    def look_at_about(self, language):
        self.open_menu()
        keys("a")
        about = self.window("the about box", title="^(关于|About) ")
        self.in_front("the about box", "^(关于|About) ")
        self.show(f"about-{language}", about)
        self.checks += 1
        if not any(one.kind == "Edit" and "Quorvane" in one.title for one in self.host.windows()):
            raise Missed("the about box does not show its texts")
        keys("Escape")
        self.gone("the about box", title="^(关于|About) ")

    def question_answered_no(self, language):
        """Replace All asks first; No leaves the code as it is."""
        before = self.host.ask("text Shop.Prices")
        keys("alt+x")
        self.press("^(全部替换|Replace &All)")
        question = self.window("the question", kind="#32770")
        self.in_front("the question", "^Quorvane(插件| add-in)$")
        self.show(f"replace-question-{language}", question)
        self.same("the main window behind the question", self.host.window(kind="wndclass_desked_gsk").enabled, False)
        keys("n")
        self.gone("the question", kind="#32770")
        self.same("the code after No", self.host.ask("text Shop.Prices"), before)
        soon("the main window is enabled", lambda: self.host.window(kind="wndclass_desked_gsk").enabled)
        keys("alt+n")
        common = self.window("the mode of plain text", kind="Button", title="^(普通|Commo)")
        self.becomes("the mode of plain text", lambda: self.host.ask(f"send {common.handle} 0xF0 0 0")[-1], "1")

    def disconnect(self):
        """Everything goes, nothing of the host is held, and the keys are the host's again."""
        self.host.ask("disconnect")
        self.same("what is held", self.host.ask("counts"), [""])
        self.same("the menu", self.host.ask("menu"), [""])
        self.gone("the dialog", kind="Button", title="^Area$")
        self.gone("the result window", kind="VbToolFrame")
        keys("ctrl+q")
        time.sleep(0.5)
        self.same("a dialog after the key", self.host.window(kind="Button", title="^Area$"), None)

    def unload(self):
        self.becomes("the file", lambda: self.host.ask("free")[-1], "unloaded")
        self.same("the end", self.host.end(), 0)

    def disconnect_from_a_search(self):
        """Over enough code a search is cut off by the disconnection; the next connection searches again."""
        code = "Sub Work%d()\r\n" + "    element = element + elements(here) ' every e\r\n" * 60 + "End Sub\r\n"
        file = os.path.join(self.room, "Large.bas")
        with open(file, "w", newline="", encoding="ascii") as large:
            large.write('Attribute VB_Name = "Large"\r\n' + "".join(code % number for number in range(1200)))
        self.host = Host(self.locale, *self.options, file)
        self.host.ask("register " + self.add_in)
        for time_of_it in ("first", "second"):
            self.host.ask("connect")
            soon("the keys go to the container", lambda: "Quorvane" in focused())
            self.find("e", ["alt+n", "alt+g"])
            self.window("the button that cancels", kind="Button", title="^&Cancel")
            self.becomes(f"rows while the {time_of_it} search runs", lambda: len(self.some_rows()) > 10, True)
            self.host.ask("disconnect")
            self.becomes("what is held", lambda: self.host.ask("counts"), [""])
            self.becomes("the file", lambda: self.host.ask("free")[-1], "unloaded")
        self.host.ask("unregister " + self.add_in)
        self.same("the end", self.host.end(), 0)

    def some_rows(self):
        return self.host.ask(f"rows {self.list().handle} 0 20")


def point_in(place, window):
    return window.left <= place[0] < window.right and window.top <= place[1] < window.bottom


def longest(holds):
    """The longest run of what holds."""
    best = run = 0
    for one in holds:
        run = run + 1 if one else 0
        best = max(best, run)
    return best

"""Measures quorvane against its limits; see scripts/bench.

Whole processes are timed from start to end, from the page cache. The programs that are compared take turns, run by run,
so that what else happens on the machine hits all of them; each figure is the median of its runs.
"""

import argparse
import datetime
import json
import os
import platform
import shutil
import statistics
import subprocess
import sys
import time
from pathlib import Path

KB = 1024
MB = 1024 * 1024


class Failure(Exception):
    """A measurement that cannot be made or does not measure what it should."""


class Row:
    """One line of the table: `ours` and `reference` as numbers of one unit, held against `limit` as their ratio.
    `instructions` are those of our whole run, in millions; they do not shake as times do."""

    def __init__(self, figure, unit, ours, reference, limit, instructions=None):
        self.figure, self.unit, self.ours, self.reference, self.limit = figure, unit, ours, reference, limit
        self.instructions = instructions
        self.ratio = ours / reference
        self.ok = self.ratio <= limit

    def markdown(self):
        cells = [self.figure, f"{self.ours:,.1f} {self.unit}", f"{self.reference:,.1f} {self.unit}",
                 f"{self.ratio:.2f}", f"{self.limit:g}", "yes" if self.ok else "**no**",
                 "" if self.instructions is None else f"{self.instructions:,.0f}"]
        return "| " + " | ".join(cells) + " |"


def run(command, output=os.devnull, statuses=(0,)):
    """Runs `command` with its standard output in a file; gives milliseconds and the peak of its memory in bytes."""
    with open(output, "wb") as out:
        start = time.perf_counter()
        process = subprocess.Popen(command, stdout=out, stderr=subprocess.PIPE)
        errors = process.stderr.read()
        _, status, usage = os.wait4(process.pid, 0)
        elapsed = (time.perf_counter() - start) * 1000
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode not in statuses:
        shown = " ".join(str(part) for part in command[:8])
        raise Failure(f"{shown} … ended with {process.returncode}: {errors.decode(errors='replace').strip()}")
    return elapsed, usage.ru_maxrss * KB


def interleaved(runs, commands, statuses=(0,)):
    """Runs each of {name: (command, output)} once to warm up, then `runs` times in turn; the medians of their times."""
    times = {name: [] for name in commands}
    for turn in range(runs + 1):
        for name, (command, output) in commands.items():
            elapsed, _ = run(command, output, statuses)
            if turn > 0:
                times[name].append(elapsed)
    return {name: statistics.median(values) for name, values in times.items()}


def expect(what, actual, wanted):
    if actual != wanted:
        raise Failure(f"{what}: {actual} instead of {wanted}")


class Bench:
    def __init__(self, options):
        self.runs = options.runs
        self.program = options.program
        self.counts = shutil.which("valgrind") is not None and not options.quick
        self.benches = Path(options.benches)
        self.windows = Path(options.windows)
        self.folder = Path("build/bench")
        self.folder.mkdir(parents=True, exist_ok=True)
        shutil.rmtree(self.folder / "group", ignore_errors=True)
        made = subprocess.run([self.benches / "MakeGroup", self.folder / "group"], check=True, capture_output=True)
        os.sync()
        self.group = json.loads(made.stdout)
        self.files = sorted(str(path) for suffix in ("bas", "cls", "frm")
                            for path in (self.folder / "group").glob(f"*/*.{suffix}"))
        expect("module files", len(self.files), self.group["modules"])

    def find(self, text, *options):
        return [self.program, "find", *options, text, self.group["group"]]

    def output(self, name):
        return str(self.folder / name)

    def lines_of(self, name):
        return Path(self.output(name)).read_bytes().count(b"\n")

    def check_counts(self):
        """The program must find what the group holds, or no figure means anything; this also warms the page cache."""
        for name in ("rare", "some", "many", "most"):
            text, count = self.group[name]["text"], self.group[name]["count"]
            run(self.find(text, "--format", "count"), self.output("count.txt"))
            expect(f"matches of {text}", int(Path(self.output("count.txt")).read_text()), count)

    def rg(self, text, *options):
        return ["rg", "--no-config", *options, text, *self.files]

    def instructions(self, command):
        """Millions of instructions of a run; none where the machine has no valgrind."""
        if not self.counts:
            return None
        told = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", *command],
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=False).stderr
        for line in told.splitlines():
            if "Collected :" in line:
                return int(line.split(":")[1]) / 1e6
        raise Failure(f"valgrind tells no instructions: {told[-200:]}")

    def rare_text(self):
        """Searches for what is hardly there: what they cost is reading, and looking once."""
        text = self.group["rare"]["text"]
        find = self.find(text, "--format", "lines")
        times = interleaved(self.runs, {"ours": (find, self.output("rare.txt")),
                                        "rg": (self.rg(text, "-i"), self.output("rare-rg.txt"))})
        expect("result lines", self.lines_of("rare.txt"), self.group["rare"]["count"])
        expect("lines of rg", self.lines_of("rare-rg.txt"), self.group["rare"]["count"])
        rows = [Row("a rare text, against `rg -i`", "ms", times["ours"], times["rg"], 1, self.instructions(find))]
        alone = self.rg(text, "-j1", "-i")
        words = "zzqq|xxyyq|qqrr"
        cases = {"as pattern": (self.find(text + "*", "-m", "pattern"), alone),
                 "as a whole word": (self.find(text, "-w"), self.rg(text, "-j1", "-i", "-w")),
                 "in this case": (self.find(text, "-c"), self.rg(text, "-j1")),
                 "in comments": (self.find(text, "--comments", "only"), alone),
                 "as regular expression": (self.find(text + r"\d*", "-m", "regexp"), alone),
                 "as alternatives": (self.find(words, "-m", "regexp"), self.rg(words, "-j1", "-i")),
                 "in code page 950": (self.find(text, "--codepage", "950"), alone)}
        for name, (ours, reference) in cases.items():
            times = interleaved(self.runs, {"ours": (ours, os.devnull), "rg": (reference, os.devnull)}, (0, 1))
            rows.append(Row(f"the same {name}, against `rg -j1`", "ms", times["ours"], times["rg"], 1.1,
                            self.instructions(ours)))
        return rows

    def result_lines(self):
        text, count = self.group["many"]["text"], self.group["many"]["count"]
        document = self.output("all.xml")
        run(self.find(text, "--format", "xml", "-o", document))
        style = str(self.folder / "group/default.xsl")
        find = self.find(text, "--format", "lines")
        times = interleaved(self.runs, {
            "ours": (find, self.output("lines.txt")),
            "rg": (self.rg(text, "--json"), self.output("rg.json")),
            "xsltproc": (["xsltproc", style, document], self.output("xsltproc.txt")),
        })
        rows = [Row(f"{count:,} matches to `lines`, against `rg --json` and then `xsltproc`", "ms", times["ours"],
                    times["rg"] + times["xsltproc"], 0.35, self.instructions(find))]
        expect("result lines", self.lines_of("lines.txt"), count)
        shown = Path(self.output("xsltproc.txt")).read_bytes()
        expect("matches that xsltproc shows", shown.count(text.encode()), count)
        hits = Path(self.output("rg.json")).read_bytes().count(b'{"type":"match"')
        expect("matches of rg", hits, count)
        for name, options, limit in (("count", ["--count-matches"], 2), ("vimgrep", ["--vimgrep"], 2),
                                     ("json", ["--json"], 3)):
            find = self.find(text, "--format", name)
            times = interleaved(self.runs, {"ours": (find, self.output("ours.txt")),
                                            "rg": (self.rg(text, *options), self.output("rg.txt"))})
            expect(f"lines of {name}", self.lines_of("ours.txt"), 1 if name == "count" else count)
            rows.append(Row(f"the same to `{name}`, against `rg {options[0]}`", "ms", times["ours"], times["rg"], limit,
                            self.instructions(find)))
        return rows

    def crowded(self):
        """Many matches in little room."""
        head = b'Attribute VB_Name = "Crowded"\r\n'
        line = self.folder / "line.bas"
        line.write_bytes(head + b"x" * 30_000 + b"\r\nEnd\r\n")
        module = self.folder / "module.bas"
        module.write_bytes(head + b"    x = y + 1\r\n" * 1_000_000)
        rows = []
        for figure, file, form, count, limit, room in (
                ("30,000 matches on one line to `count`", line, "count", 30_000, 300, 50 * MB),
                ("a million matches in one module to `lines`", module, "lines", 1_000_000, 1200, None),
                ("the same to `xml`", module, "xml", 1_000_000, 3000, module.stat().st_size + 200 * MB)):
            find = [self.program, "find", "--format", form, "x", str(file)]
            runs = [run(find, self.output("crowded.txt")) for _ in range(3)]
            # Line by line: a child's peak of memory begins with what this process held when it was made.
            with open(self.output("crowded.txt"), "rb") as shown:
                found = int(shown.read()) if form == "count" else sum(
                    form != "xml" or b"<MatchItem" in line for line in shown)
            expect(figure, found, count)
            times, peaks = zip(*runs)
            rows.append(Row(f"{figure}, against {limit:,} ms", "ms", statistics.median(times), limit, 1))
            if room is not None:
                rows.append(Row(f"its memory, against {room // MB} MB", "MB", max(peaks) / MB, room / MB, 1))
        return rows

    def replace(self):
        command = [self.program, "replace", "-m", "regexp", self.group["many"]["text"], "lngRowOfInvoice",
                   self.group["group"]]
        times = interleaved(self.runs, {"ours": (command, self.output("replace.diff"))})
        return [Row(f"replace of {self.group['many']['count']:,} to a diff, against 300 ms", "ms", times["ours"], 300, 1,
                    self.instructions(command))]

    def write(self):
        """Saving, against a copy of the files that it changes, each made durable by one fsync."""
        text = self.group["many"]["text"]
        root, copies = self.folder / "written", self.folder / "copied"
        times = {"ours": [], "copy": []}
        for turn in range(4):
            for folder in (root, copies):
                shutil.rmtree(folder, ignore_errors=True)
            shutil.copytree(self.folder / "group", root)
            changed = [path for path in sorted(root.rglob("*")) if path.suffix in (".bas", ".cls", ".frm")
                       and text.lower().encode() in path.read_bytes().lower()]
            copies.mkdir()
            os.sync()
            start = time.perf_counter()
            for index, path in enumerate(changed):
                with open(copies / str(index), "wb") as copy:
                    copy.write(path.read_bytes())
                    copy.flush()
                    os.fsync(copy.fileno())
            copied = (time.perf_counter() - start) * 1000
            os.sync()
            elapsed, _ = run([self.program, "replace", "-m", "regexp", text, "lngRowOfInvoice", "--write",
                              str(root / Path(self.group["group"]).relative_to(self.folder / "group"))])
            if turn > 0:
                times["ours"].append(elapsed)
                times["copy"].append(copied)
        left = sum(text.lower().encode() in path.read_bytes().lower() for path in changed)
        expect("files that still hold the replaced text", left, 0)
        for folder in (root, copies):
            shutil.rmtree(folder)
        return [Row(f"the same with `--write`, against a copy of the {len(changed):,} files with one fsync each", "ms",
                    statistics.median(times["ours"]), statistics.median(times["copy"]), 1.5)]

    def scale(self):
        """Groups of one, two and four million lines: a line costs the same in each."""
        commands, lines = {}, {}
        for factor in (1, 2, 4):
            folder = self.folder / f"scale{factor}"
            shutil.rmtree(folder, ignore_errors=True)
            made = subprocess.run([self.benches / "MakeGroup", "--modules", str(2_000 * factor), "--lines",
                                   str(1_000_000 * factor), folder], check=True, capture_output=True)
            group = json.loads(made.stdout)
            lines[factor] = group["lines"]
            commands[factor] = ([self.program, "find", "--format", "lines", group["rare"]["text"], group["group"]],
                                self.output(f"scale{factor}.txt"))
        os.sync()
        times = interleaved(self.runs, commands)
        rows = []
        for factor in (2, 4):
            expect("result lines", self.lines_of(f"scale{factor}.txt") > 0, True)
            rows.append(Row(f"a rare text, a line among {factor} million, against one among 1 million", "ns",
                            times[factor] / lines[factor] * 1e6, times[1] / lines[1] * 1e6, 1.15))
        for factor in (1, 2, 4):
            shutil.rmtree(self.folder / f"scale{factor}")
        return rows

    def tree(self):
        """The tree that QUORVANE_BENCH_TREE names; its limits are those of the generated group."""
        root = os.environ.get("QUORVANE_BENCH_TREE")
        if not root:
            return []
        suffixes = (".bas", ".cls", ".frm", ".ctl", ".pag", ".dob", ".dsr")
        files = sorted(str(path) for path in Path(root).rglob("*") if path.suffix.lower() in suffixes)
        if not files:
            raise Failure(f"QUORVANE_BENCH_TREE: no module files under {root}")
        cases = (("a rare text", "zzqqxxyyq", "lines", ["-i"], 1),
                 ("`String` to `count`", "String", "count", ["-i", "--count-matches"], 2),
                 ("`String` to `vimgrep`", "String", "vimgrep", ["-i", "--vimgrep"], 2),
                 ("`String` to `json`", "String", "json", ["-i", "--json"], 3))
        rows = []
        for name, text, form, options, limit in cases:
            find = [self.program, "find", "--format", form, text, *files]
            reference = ["rg", "--no-config", *options, text, *files]
            times = interleaved(self.runs, {"ours": (find, os.devnull), "rg": (reference, os.devnull)}, (0, 1))
            rows.append(Row(f"the named tree of {len(files):,} files, {name}, against `rg {' '.join(options)}`", "ms",
                            times["ours"], times["rg"], limit, self.instructions(find)))
        return rows

    def search_phase(self):
        """The search without process and files: how its time grows."""
        command = [self.benches / "SearchPhase", "--benchmark_format=json", f"--benchmark_repetitions={self.runs}",
                   "--benchmark_enable_random_interleaving=true", "--benchmark_report_aggregates_only=true"]
        run(command, self.output("phase.json"))
        medians = {}
        for entry in json.loads(Path(self.output("phase.json")).read_text())["benchmarks"]:
            if entry.get("error_occurred"):
                raise Failure(f"{entry['name']}: {entry['error_message']}")
            if entry["aggregate_name"] == "median":
                factor = {"ns": 1e-3, "us": 1, "ms": 1e3, "s": 1e6}[entry["time_unit"]]
                medians[entry["run_name"].removesuffix("/manual_time")] = entry["real_time"] * factor
        rows = [Row("search phase, a match among 100,000, against one among 1,000", "µs",
                    medians["Matches/100000"] / 100_000, medians["Matches/1000"] / 1_000, 1.3)]
        for name, figure in (("FindCommon", "find `common`"), ("FindPattern", "find `pattern`"),
                             ("FindRegExp", "find `regexp`"), ("ReplaceMultiLine", "replace, multi-line"),
                             ("ReplaceSingleLine", "replace, single-line")):
            rows.append(Row(f"{figure}: a module of 40,000 lines, against one of 4,000", "ms",
                            medians[f"{name}/40000"] / 1000, medians[f"{name}/4000"] / 1000, 12))
        return rows

    def window(self):
        """The same search from the search dialog in an open window: until the last row is there, painting included."""
        text, count = self.group["many"]["text"], self.group["many"]["count"]
        lines = self.find(text, "--format", "lines")
        window = [self.benches / "WindowSearch", self.group["group"], text, str(count)]
        times = {"window": [], "cancel": [], "opened": [], "restyled": [], "lines": []}
        os.environ["QT_QPA_PLATFORM"] = "offscreen"
        for turn in range(self.runs + 1):
            run(window, self.output("window.txt"))
            elapsed, _ = run(lines, self.output("lines.txt"))
            if turn > 0:
                whole, cancel, opened, restyled = Path(self.output("window.txt")).read_text().split()
                times["restyled"].append(float(restyled))
                times["opened"].append(float(opened))
                times["window"].append(float(whole))
                times["cancel"].append(float(cancel))
                times["lines"].append(elapsed)
        expect("result lines", self.lines_of("lines.txt"), count)
        return [Row(f"{count:,} matches in the window, against the command line's `lines`", "ms",
                    statistics.median(times["window"]), statistics.median(times["lines"]), 3),
                Row("Cancel in the midst of that search, worst run, against 100 ms", "ms", max(times["cancel"]), 100, 1),
                Row("the group in the window until its tree stands, against the 60 ms that a rare text once took", "ms",
                    statistics.median(times["opened"]), 60, 1.5),
                Row(f"a changed stylesheet over {count:,} rows in the window, against 300 ms", "ms",
                    statistics.median(times["restyled"]), 300, 1)]

    def bridge(self):
        """Searches whose host stands behind IDispatch, under Wine. No rows, said loudly, where that cannot run."""
        program = self.windows / "tests/windows/BridgeBench.exe"
        if not program.exists():
            print(f"scripts/bench: THE BRIDGE WAS NOT MEASURED: {program} was not built", file=sys.stderr)
            return []
        wine = subprocess.run(["scripts/wine", program], capture_output=True, text=True)
        if wine.returncode == 77:
            print(f"scripts/bench: THE BRIDGE WAS NOT MEASURED: {wine.stderr.strip()}", file=sys.stderr)
            return []
        if wine.returncode not in (0, 1):
            raise Failure(f"{program} ended with {wine.returncode}: {wine.stderr.strip()}")
        times = {}
        for line in wine.stdout.splitlines():
            mode, count, milliseconds, _ = line.split()
            times[mode, int(count)] = float(milliseconds)
        rows = []
        for mode in dict.fromkeys(mode for mode, _ in times):
            few, some, many = (times[mode, count] for count in (10_000, 35_000, 100_000))
            rows.append(Row(f"`{mode}`: 35,000 matches through the bridge, against 3.5 times 10,000", "ms",
                            some, few * 3.5, 1.3))
            rows.append(Row(f"`{mode}`: a match among 100,000 through the bridge, against one among 10,000", "µs",
                            many / 100, few / 10, 1.3))
        expect("kinds of searches through the bridge", len(rows), 6)
        return rows

    def memory(self):
        rows = []
        for name in ("rare", "many", "most"):
            text, count = self.group[name]["text"], self.group[name]["count"]
            peaks = [run(self.find(text, "--format", "lines"))[1] for _ in range(3)]
            allowed = 6 * self.group["bytes"] + 7 * KB * count
            rows.append(Row(f"peak memory with {count:,} matches, against 6 × the files and 7 KB a match", "MB",
                            max(peaks) / MB, allowed / MB, 1))
        return rows


def machine():
    cpu = next((line.split(":", 1)[1].strip() for line in Path("/proc/cpuinfo").read_text().splitlines()
                if line.startswith("model name")), platform.machine())
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / (KB * MB)
    system = next((line.split("=", 1)[1].strip('"') for line in Path("/etc/os-release").read_text().splitlines()
                   if line.startswith("PRETTY_NAME=")), platform.system())
    return f"{cpu}, {os.cpu_count()} cores, {memory:.0f} GB of memory, {system}"


def version(command):
    output = subprocess.run(command, capture_output=True, text=True, check=True).stdout
    return output.splitlines()[0].replace("Using", "xsltproc with")


def table(rows):
    head = ["| figure | ours | reference | ratio | limit | ok | million instructions |",
            "|---|---:|---:|---:|---:|---|---:|"]
    return "\n".join(head + [row.markdown() for row in rows])


def page(bench, rows):
    group = bench.group
    bridge = """The rows on the bridge come from `tests/windows/BridgeBench.cpp`, a 32-bit Windows program under Wine: searches of one
module in a host behind `IDispatch`, processor time, the best of three runs each."""
    if not any("bridge" in row.figure for row in rows):
        bridge = "The bridge of the Windows build was not measured in this run."
    return f"""# Performance

    scripts/bench --write

makes this page. It generates a group of {group['lines']:,} lines in {group['modules']:,} modules
({group['bytes'] / MB:.0f} MB) and measures with whole processes from the page cache; what is compared
takes turns, and each time is the median of {bench.runs} runs. The rows on the search phase and on single
modules come from `bench/SearchPhase.cpp`: processor time, without process start and files. The search in the
window is timed from the press of the button to the last row, painting included, with the group open; what it is held
against is the whole run of the command line. The group in the window is timed from the empty window until its tree is
painted. Typing in a long module is not measured yet.
{bridge}
A ratio is ours by reference; its limit is the most that it may be. Instructions are those of our own run, counted by
valgrind.

{datetime.date.today().isoformat()}, {machine()}; {version(['rg', '--version'])}, {version(['xsltproc', '--version'])}.

{table(rows)}
"""


def main():
    parser = argparse.ArgumentParser(prog="scripts/bench")
    parser.add_argument("--write", action="store_true", help="put the table into docs/performance.md")
    parser.add_argument("--quick", action="store_true", help="whole processes alone, and no instructions")
    parser.add_argument("--runs", type=int, default=7, help="of each measurement")
    parser.add_argument("--program", default="build/release/quorvane")
    parser.add_argument("--benches", default="build/release/bench")
    parser.add_argument("--windows", default="build/windows")
    options = parser.parse_args()
    bench = Bench(options)
    bench.check_counts()
    rows = bench.rare_text() + bench.result_lines() + bench.crowded() + bench.replace() + bench.write()
    rows += bench.scale() + bench.memory() + bench.tree()
    if not options.quick:
        rows += bench.window() + bench.search_phase() + bench.bridge()
    print(table(rows))
    if options.write:
        Path("docs/performance.md").write_text(page(bench, rows), encoding="utf-8")
    return 0 if all(row.ok for row in rows) else 1


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (Failure, OSError, subprocess.CalledProcessError) as error:
        print(f"scripts/bench: {error}", file=sys.stderr)
        sys.exit(2)

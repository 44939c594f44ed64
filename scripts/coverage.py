#!/usr/bin/env python3
"""Reads what gcov counted in build/coverage; scripts/coverage.sh runs the tests before it."""
import argparse
import json
import pathlib
import re
import subprocess
from collections import defaultdict

from reliability_page import replace_section

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "coverage"
REASONS = ROOT / "tests" / "coverage" / "reasons.txt"
KINDS = ["core", "suite, logic", "forms", "suite, windows"]
WITHOUT_WINDOWS = KINDS[:2]
WINDOWS = {"archivio_finestra", "stampa_finestra", "sistema_stampa", "tabellino_guida"}


def target(gcda):
    """The CMake target that an object belongs to."""
    return next(p[:-4] for p in gcda.parts if p.endswith(".dir"))


def kind(name):
    if name == "tabellino_forms":
        return "forms"
    if name in WINDOWS:
        return "suite, windows"
    return "core" if name == "tabellino_core" else "suite, logic"


def gcov(files):
    """One record of gcov's for each object file; nothing is written."""
    files = [str(f) for f in files]
    for i in range(0, len(files), 40):
        out = subprocess.run(["gcov", "--json-format", "--stdout", "--branch-probabilities",
                              *files[i:i + 40]], capture_output=True, text=True, check=True).stdout
        for line in out.splitlines():
            if line.startswith("{"):
                yield json.loads(line)


def real_branches(branches):
    """Without the ways that exceptions take, and without the other half of each such pair."""
    kept, i = [], 0
    while i < len(branches):
        pair = branches[i:i + 2]
        if len(pair) == 2 and any(b["throw"] for b in pair):
            i += 2
        elif pair[0]["throw"]:
            i += 1
        else:
            kept.append(pair[0]["count"])
            i += 1
    return kept


def ways(name):
    """How many ways lead on from each line of a file whose code becomes part of what calls it."""
    text = (ROOT / name).read_text(encoding="utf-8")
    if "PLATFORM_INCORPORATO" not in text:
        return {}
    return {number: 2 * (len(re.findall(r"&&|\|\||\?", line)) +
                         bool(re.search(r"\b(if|for|while) ", line)))
            for number, line in enumerate(text.splitlines(), 1)}


class Source:
    """Lines and branches of one source file, whatever objects they were compiled into."""

    def __init__(self, name):
        self.lines = defaultdict(int)
        self.branches = defaultdict(int)
        self.ways = ways(name)

    def add(self, line):
        number = line["line_number"]
        self.lines[number] += line["count"]
        found = real_branches(line["branches"])
        # Copies of a line that stand in one function count as one, as those in several do.
        once = self.ways.get(number, 0)
        once = once if once and len(found) % once == 0 else len(found)
        for i, count in enumerate(found):
            self.branches[number, once, i % once] += count

    def missed_lines(self):
        return sorted(n for n, count in self.lines.items() if count == 0)

    def missed_branches(self):
        """In lines that are reached; the others are missed with their line."""
        return sorted({n for (n, *_), count in self.branches.items()
                       if count == 0 and self.lines[n] > 0})


def own(path):
    """A source of the program as it is named from the root, or None."""
    try:
        relative = pathlib.Path(path).resolve().relative_to(ROOT)
    except ValueError:
        return None
    # An object may have been left behind by a source that went.
    if relative.parts[0] not in ("src", "suite") or not (ROOT / relative).exists():
        return None
    return str(relative)


def read():
    """The sources, and the kind of each: a header is of the deepest library that compiles it."""
    sources, kinds = {}, {}
    for gcno in sorted(BUILD.rglob("*.gcno")):
        of = target(gcno)
        mine = not of.startswith(("test_", "fuzz_"))
        gcda = gcno.with_suffix(".gcda")
        if not gcda.exists() and not mine:
            continue
        for record in gcov([gcda if gcda.exists() else gcno]):
            for file in record["files"]:
                name = own(file["file"])
                if name is None or name.endswith(".moc") or not file["lines"]:
                    continue
                if mine:
                    kinds[name] = min(kinds.get(name, "suite, windows"), kind(of), key=KINDS.index)
                if name not in sources:
                    sources[name] = Source(name)
                for line in file["lines"]:
                    sources[name].add(line)
    for name in sources:
        kinds.setdefault(name, "core" if name.startswith("src/") else "suite, logic")
    return sources, kinds


def table(sources, kinds):
    rows = defaultdict(lambda: [0, 0, 0, 0])
    for name, source in sources.items():
        room = name.split("/")[1]
        for key in ((kinds[name], room), (kinds[name], "")):
            row = rows[key]
            row[0] += len(source.lines)
            row[1] += sum(c > 0 for c in source.lines.values())
            row[2] += len(source.branches)
            row[3] += sum(c > 0 for c in source.branches.values())
    share = lambda part, whole: f"{100 * part / whole:.1f} %" if whole else "–"
    text = "| part | room | lines | reached | branches | reached |\n|---|---|---:|---:|---:|---:|\n"
    for key in sorted(rows, key=lambda k: (KINDS.index(k[0]), k[1] == "", k[1])):
        lines, hit, branches, taken = rows[key]
        room = key[1] or "**all**"
        text += (f"| {key[0]} | {room} | {lines} | {share(hit, lines)} | {branches} | "
                 f"{share(taken, branches)} |\n")
    return text


def reasons():
    """Why lines of a file are not reached, as told by hand: file and reason, parted by a bar."""
    if not REASONS.exists():
        return []
    lines = REASONS.read_text(encoding="utf-8").splitlines()
    return [tuple(part.strip() for part in line.split("|", 1))
            for line in lines if line and not line.startswith("#")]


def reasons_table(sources, kinds, rest_because):
    """The lines without a test, those of which a reason is told one by one."""
    missed = {name: len(source.missed_lines()) for name, source in sources.items()}
    rows = [(name, reason) for name, reason in reasons() if missed.get(name)]
    told = {name for name, _ in rows}
    text = "| not reached | lines | because |\n|---|---:|---|\n"
    for name, reason in rows:
        text += f"| {name} | {missed[name]} | {reason} |\n"
    for kind_ in KINDS:
        rest = sum(n for name, n in missed.items() if kinds[name] == kind_ and name not in told)
        if rest:
            text += f"| {kind_}, the rest | {rest} | {rest_because} |\n"
    return text


def ranges(numbers):
    text, i = [], 0
    while i < len(numbers):
        j = i
        while j + 1 < len(numbers) and numbers[j + 1] == numbers[j] + 1:
            j += 1
        text.append(str(numbers[i]) if i == j else f"{numbers[i]}-{numbers[j]}")
        i = j + 1
    return " ".join(text)


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--list", action="store_true")
    options.add_argument("--write", action="store_true")
    options.add_argument("--without-windows", action="store_true",
                         help="tells of the logic alone: the tests of windows were not run")
    chosen = options.parse_args()
    sources, kinds = read()
    if chosen.without_windows:
        sources = {name: s for name, s in sources.items() if kinds[name] in WITHOUT_WINDOWS}
    text = table(sources, kinds)
    print(text, end="")
    if chosen.list:
        for name in sorted(sources, key=lambda n: (KINDS.index(kinds[n]), n)):
            lines, branches = sources[name].missed_lines(), sources[name].missed_branches()
            if lines or branches:
                print(f"{name}: lines {ranges(lines)}; branches {ranges(branches)}")
    if chosen.write:
        which = "tests without windows" if chosen.without_windows else "tests"
        rest = "no test, or one of windows alone" if chosen.without_windows else "no test"
        replace_section("Coverage", f"Lines and branches that the {which} reach, counted by\n"
                        "`scripts/coverage.sh --write`; the ways of exceptions are left out, since none\n"
                        "leaves this code, and copies that a compiler makes of a line count as one.\n\n"
                        + text + "\n" + reasons_table(sources, kinds, rest))


if __name__ == "__main__":
    main()

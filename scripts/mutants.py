#!/usr/bin/env python3
"""Changes the core one thing at a time and looks whether a test notices.

scripts/mutants.py [--build FOLDER] [--sample N] [--seed S] [--rooms a,b] [--minutes M]
                   [--jobs N] [--quick] [--all] [--again] [--list] [--write]

Each mutant is one source file with one change, compiled beside the tree and linked before the library
that holds the original. The suites of test_core that are named after the file run first, then those of
its room, with --all all others too, the slow tests after the quick ones or, with --quick, not at all,
until one fails. What was found is kept in results.json of the build folder: a run goes on where the
last one ended, a changed line is tried anew, and with --again what was alive too.
Mutants that change nothing are listed, with the reason, in tests/mutants/equivalent.txt.
"""
import argparse
import json
import os
import pathlib
import random
import re
import resource
import shlex
import shutil
import signal
import subprocess
import tempfile
import time
from collections import defaultdict
from concurrent.futures import ThreadPoolExecutor

from reliability_page import replace_section

ROOT = pathlib.Path(__file__).resolve().parent.parent
EQUIVALENT = ROOT / "tests" / "mutants" / "equivalent.txt"
GOALS = {"printing": 92, "platform": 92}
# Seconds from which on a test waits until all quick ones have passed.
SLOW = 0.5
# Seconds with less than one in a hundred of work after which a test waits for what never comes.
WAITING = 30


# ---- what can be changed -------------------------------------------------------------------------

def blank(source):
    """The text with comments, literals of text and preprocessor lines made blank, places kept."""
    def spaces(match):
        return re.sub(r"[^\n]", " ", match.group())
    pattern = (r'R"\((?:.|\n)*?\)"|//[^\n]*|/\*(?:.|\n)*?\*/|"(?:\\.|[^"\\\n])*"|'
               r"'(?:\\.|[^'\\\n])'|^[ \t]*#[^\n]*")
    return re.sub(pattern, spaces, source, flags=re.M)


REPLACED = [
    (r" (<) ", ["<="]), (r" (<=) ", ["<"]), (r" (>) ", [">="]), (r" (>=) ", [">"]),
    (r" (==) ", ["!="]), (r" (!=) ", ["=="]), (r" (&&) ", ["||"]), (r" (\|\|) ", ["&&"]),
    (r"(?<=[\w)\]]) (\+) ", ["-"]), (r"(?<=[\w)\]]) (-) ", ["+"]),
    (r"(?<=[\w)\]]) (\*) (?=[\w(])", ["/"]), (r" (/) ", ["*"]), (r" (%) ", ["/"]),
    (r" (\+=) ", ["-="]), (r" (-=) ", ["+="]), (r" (\*=) ", ["/="]), (r" (/=) ", ["*="]),
    (r"(\+\+)", ["--"]), (r"(--)", ["++"]), (r" (<<) (?=\d|\w+\))", [">>"]), (r" (>>) ", ["<<"]),
    (r"\b(true)\b", ["false"]), (r"\b(false)\b", ["true"]),
    (r"\b(if|while) \((?!const |auto )", None),
    (r"(?<![\w.'])(\d[\d']*)[uUlL]*(?![\w.'])", None),
    (r"\breturn (?!\{)([^;{}\n]+);", None),
]
STATEMENT = re.compile(r"^[ \t]*((?:\+\+|--)?[a-zA-Z_][\w.:\[\]]*(?:->[\w.]+)*"
                       r"(?:\(| [-+*/|&%]?= |\+\+;|--;).*;)$")
NOT_DROPPED = re.compile(r"^(return|using|static|const|auto|if|for|while|else|throw|delete|typedef|"
                         r"namespace|case|default|do|struct|class|enum)\b|reserve\(|shrink_to_fit")
JUMP = re.compile(r"^[ \t]*(?:if \(.*\) )?(return;|break;|continue;)$")
SWAPPED = re.compile(r"(?:(?<=\()|(?<=, ))([a-zA-Z_][\w.]*), ([a-zA-Z_][\w.]*)(?=[,)])")


def parenthesis(text, start):
    """Where the parenthesis that opens at `start` closes."""
    depth = 0
    for i in range(start, len(text)):
        depth += {"(": 1, ")": -1}.get(text[i], 0)
        if depth == 0:
            return i
    return -1


def changes(source):
    """Every change of one thing, as (kind, from, to, new text)."""
    bare = blank(source)
    for pattern, replacements in REPLACED:
        for match in re.finditer(pattern, bare):
            start, end = match.span(1)
            word = match.group(1)
            if pattern.startswith(r"\breturn"):
                if word not in ("true", "false", "0", '""', "*this"):
                    yield "return", start, end, "{}"
            elif word in ("if", "while"):
                opened = bare.index("(", end)
                closed = parenthesis(bare, opened)
                if closed > 0 and ";" not in bare[opened:closed]:
                    yield "condition", opened + 1, closed, f"!({source[opened + 1:closed]})"
            elif word[0].isdigit():
                value = int(word.replace("'", ""))
                yield "constant", start, end, str(value + 1)
                if value > 0:
                    yield "constant", start, end, str(value - 1)
            elif replacements:
                for new in replacements:
                    yield "operator", start, end, new
    for match in re.finditer(r"^.*$", bare, re.M):
        line = match.group()
        found = STATEMENT.match(line)
        if (found and not NOT_DROPPED.search(found.group(1)) and line.count("(") == line.count(")")
                and line.count("{") == line.count("}")):
            yield "statement", match.start() + found.start(1), match.start() + found.end(1), ";"
        jump = JUMP.match(line)
        if jump:
            yield "statement", match.start() + jump.start(1), match.start() + jump.end(1), ";"
    for match in SWAPPED.finditer(bare):
        if match.group(1) != match.group(2) and "(" in bare[bare.rfind("\n", 0, match.start()):match.start()]:
            yield "arguments", match.start(), match.end(), f"{match.group(2)}, {match.group(1)}"


class Mutant:
    def __init__(self, name, source, kind, start, end, text):
        self.file, self.kind, self.start, self.end, self.text = name, kind, start, end, text
        self.line = source.count("\n", 0, start) + 1
        self.last = source.count("\n", 0, end) + 1
        first = source.rfind("\n", 0, start) + 1
        after = source.find("\n", end)
        self.before = " ".join(source[first:after].split())
        self.after = " ".join((source[first:start] + text + source[end:after]).split())
        # The line as it reads, not its number, tells a mutant from another.
        before = source[:first].count("\n" + source[first:after] + "\n")
        self.key = f"{name} | {self.before} | {self.after}" + (f" | {before}" if before else "")
        self.room = name.split("/")[1]


def core_sources():
    text = (ROOT / "src" / "CMakeLists.txt").read_text()
    block = text[text.index("add_library(tabellino_core"):]
    return ["src/" + s for s in re.findall(r"[\w/]+\.cpp", block[:block.index(")")])]


def code_lines(source):
    return sum(1 for line in blank(source).splitlines() if re.search(r"\w", line))


def sample(size, seed, rooms):
    """`size` mutants over the rooms, by their lines; the same for the same seed and sources."""
    of_room, lines = defaultdict(list), defaultdict(int)
    for name in core_sources():
        source = (ROOT / name).read_text(encoding="utf-8")
        room = name.split("/")[1]
        lines[room] += code_lines(source)
        by_line = defaultdict(list)
        for change in changes(source):
            mutant = Mutant(name, source, *change)
            by_line[mutant.line].append(mutant)
        of_room[room] += by_line.values()
    chosen = []
    for room in sorted(of_room):
        if rooms and room not in rooms:
            continue
        chance = random.Random(f"{seed} {room}")
        places = of_room[room]
        chance.shuffle(places)
        share = max(4, round(size * lines[room] / sum(lines.values())))
        # A line gives one mutant, those that are left over a second one.
        chosen += [chance.choice(line) for line in (places * 2)[:share]]
    unique = {m.key: m for m in chosen}
    return list(unique.values()), lines


# ---- building and running ------------------------------------------------------------------------

def run(command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          errors="replace", **options)


def build(folder):
    """Brings test_core up to date, in a build of its own when the folder is none yet."""
    if not (folder / "CMakeCache.txt").exists():
        linker = ["-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=mold"] if shutil.which("mold") else []
        configured = run(["cmake", "-S", ROOT, "-B", folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                          "-DCMAKE_CXX_FLAGS_DEBUG=-O1 -g0 -D_GLIBCXX_ASSERTIONS", *linker])
        if configured.returncode:
            raise SystemExit(configured.stdout)
    built = run(["cmake", "--build", folder, "--target", "test_core"])
    if built.returncode:
        raise SystemExit(built.stdout)


class Workshop:
    """Compiles, links and tries one mutant after another, in a folder of its own."""

    def __init__(self, folder, everything, quick):
        self.folder, self.everything, self.quick = folder, everything, quick
        commands = json.loads((folder / "compile_commands.json").read_text())
        self.compile = {os.path.relpath(c["file"], ROOT): c for c in commands}
        listed = run(["ninja", "-C", folder, "-t", "commands", "tests/test_core"]).stdout.splitlines()
        link = next(l for l in reversed(listed) if " -o tests/test_core " in l)
        # Nothing but the linking itself: the custom steps around it are for the real program.
        self.link = next(part for part in link.split(" && ") if " -o tests/test_core " in part)
        self.suites = defaultdict(set)
        for source in sorted((ROOT / "tests").glob("*/*_test.cpp")):
            if not source.stem.endswith("_form_test") and source.parent.name != "guasti":
                name = f"{source.parent.name}/{source.stem}"
                self.suites[name] |= set(re.findall(r"^(?:TEST|TEST_F|TEST_P)\((\w+),",
                                                    source.read_text(encoding="utf-8"), re.M))
        self.running = set()
        # Tests that go astray must not reach the tree.
        self.fence = ["unshare", "--mount", "--pid", "--fork", "--kill-child", "--mount-proc", "sh", "-c",
                      f"mount --bind {ROOT} {ROOT} && mount -o remount,bind,ro {ROOT} && "
                      f"cd {folder}/tests && {{ \"$@\"; exit $?; }}", "sh"]
        if run([*self.fence, "true"]).returncode:
            self.fence = []
        self.times = self.measured()

    def stages(self, file):
        """What to run and the seconds of the processor that it may take: the quick tests named after the
        file, those of its room, where asked all others, then the slow ones in the same order."""
        room, stem = file.split("/")[1], pathlib.Path(file).stem
        every = {suite for suites in self.suites.values() for suite in suites}
        near = {s for name, suites in self.suites.items() if name.startswith(f"{room}/{stem}")
                for s in suites}
        own = {s for name, suites in self.suites.items() if name.startswith(room + "/") for s in suites}
        found = []
        for slow in (False,) if self.quick else (False, True):
            for part in (near, own - near, every - own - near if self.everything else set()):
                tests = {test: spent for test, spent in self.times.items()
                         if (spent >= SLOW) == slow and part & set(test.split(".")[0].split("/"))}
                if tests:
                    found.append((":".join(tests), 5 + int(3 * sum(tests.values()))))
        return found

    def measured(self):
        """The seconds of each test without any change, kept until the program is built anew; a test that
        fails even so is not among them."""
        program, kept = self.folder / "tests" / "test_core", self.folder / "times.json"
        if not kept.exists() or kept.stat().st_mtime < program.stat().st_mtime:
            with tempfile.TemporaryDirectory(prefix="mutant") as name:
                told = pathlib.Path(name) / "told.json"
                self.test(program, "*", 3600, pathlib.Path(name), f"--gtest_output=json:{told}")
                shutil.copy(told, kept)
        times = {}
        for suite in json.loads(kept.read_text())["testsuites"]:
            for test in suite["testsuite"]:
                name = f"{suite['name']}.{test['name']}"
                if "failures" in test:
                    print(f"left out, since it fails without any change: {name}", flush=True)
                elif test["result"] == "COMPLETED":
                    times[name] = float(test["time"].rstrip("s"))
        return times

    def heard(self, child):
        """What the child says; TimeoutExpired when it waits for ever. On a busy machine the clock tells
        nothing, so its processes are looked at."""
        worked, since = -WAITING - 1, time.monotonic()
        while True:
            try:
                return child.communicate(timeout=5)[0]
            except subprocess.TimeoutExpired:
                ticks = sum(self.worked(child.pid))
                if ticks > worked + WAITING:
                    worked, since = ticks, time.monotonic()
                elif time.monotonic() - since > WAITING:
                    raise

    @staticmethod
    def worked(session):
        """Ticks of the processor of each process of the session."""
        for stat in pathlib.Path("/proc").glob("[0-9]*/stat"):
            try:
                fields = stat.read_text().rpartition(")")[2].split()
            except OSError:
                continue
            if int(fields[3]) == session:
                yield int(fields[11]) + int(fields[12])

    def test(self, program, chosen, limit, folder, *more):
        """The outcome of these tests – killed, timeout or alive – and what told it."""
        def bounds():
            os.setsid()
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
            resource.setrlimit(resource.RLIMIT_FSIZE, (16 << 30, 16 << 30))
            resource.setrlimit(resource.RLIMIT_AS, (6 << 30, 6 << 30))
            resource.setrlimit(resource.RLIMIT_CPU, (limit, limit + 1))
        # Some tests try what another user may do.
        scratch = tempfile.mkdtemp(dir=folder)
        folder.chmod(0o755)
        os.chmod(scratch, 0o777)
        child = subprocess.Popen(
            [*self.fence, program, f"--gtest_filter={chosen}", "--gtest_brief=1", *more],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
            errors="replace", cwd=self.folder / "tests", preexec_fn=bounds,
            env={**os.environ, "TMPDIR": scratch})
        self.running.add(child.pid)
        try:
            said = self.heard(child)
            failed = re.findall(r"FAILED  \] ([^,\s]+)", said)
            reason = " ".join(dict.fromkeys(failed)) or f"status {child.returncode}"
            if child.returncode == 0:
                return "alive", ""
            spent = not failed and child.returncode % 128 in (signal.SIGXCPU, signal.SIGKILL)
            return "timeout" if spent else "killed", reason
        except subprocess.TimeoutExpired:
            return "timeout", "waits for ever"
        finally:
            if child.poll() is None:
                os.killpg(child.pid, signal.SIGKILL)
                child.communicate()
            self.running.discard(child.pid)
            shutil.rmtree(scratch, ignore_errors=True)

    def make(self, file, text, folder):
        """Links the tests with this text in the place of the file; None when it does not compile."""
        source = folder / pathlib.Path(file).name
        source.write_text(text, encoding="utf-8")
        command = shlex.split(self.compile[file]["command"])
        command = [w for w in command if w != "-Werror" and "ccache" not in w]
        command[command.index("-o") + 1] = str(folder / "mutant.o")
        command[command.index("-c") + 1] = str(source)
        if run([*command, "-w", "-g0"], cwd=self.compile[file]["directory"]).returncode:
            return None
        words = shlex.split(self.link)
        words = [w for w in words if "ccache" not in w and w != ":"]
        words[words.index("-o") + 1] = str(folder / "test_core")
        library = next(i for i, w in enumerate(words) if w.endswith("libtabellino_core.a"))
        first = next(i for i, w in enumerate(words) if w.endswith(".a"))
        words.insert(min(first, library), str(folder / "mutant.o"))
        linked = run(words, cwd=self.folder)
        if linked.returncode:
            raise SystemExit(linked.stdout)
        return folder / "test_core"

    def attempt(self, mutant):
        """The outcome of a mutant, and what told it."""
        with tempfile.TemporaryDirectory(prefix="mutant") as name:
            folder = pathlib.Path(name)
            source = (ROOT / mutant.file).read_text(encoding="utf-8")
            program = self.make(mutant.file, source[:mutant.start] + mutant.text + source[mutant.end:],
                                folder)
            if program is None:
                return "invalid", ""
            for chosen, limit in self.stages(mutant.file):
                outcome, reason = self.test(program, chosen, limit, folder, "--gtest_fail_fast")
                if outcome != "alive":
                    return outcome, reason
            return "alive", ""

    def leave(self):
        """Ends at once, and takes the tests at work along."""
        for pid in list(self.running):
            os.killpg(pid, signal.SIGKILL)
        os._exit(130)


# ---- results -------------------------------------------------------------------------------------

def equivalents():
    """The mutants that no test can notice: lines of file | before | after, each under its reason."""
    listed = set()
    for line in EQUIVALENT.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            listed.add(line.strip())
    return listed


def table(mutants, results, lines):
    known = equivalents()
    rows = defaultdict(lambda: defaultdict(int))
    for mutant in mutants:
        outcome = results.get(mutant.key)
        if outcome in (None, "invalid"):
            continue
        if outcome == "alive" and mutant.key in known:
            outcome = "equivalent"
        for room in (mutant.room, ""):
            rows[room][outcome] += 1
    text = ("| room | lines | mutants | equivalent | killed | by the clock | alive | score | goal |\n"
            "|---|---:|---:|---:|---:|---:|---:|---:|---:|\n")
    for room in sorted(rows, key=lambda r: (r == "", r)):
        row = rows[room]
        counted = row["killed"] + row["timeout"] + row["alive"]
        score = f"{100 * (row['killed'] + row['timeout']) / counted:.1f} %" if counted else "–"
        size = lines[room] if room else sum(lines.values())
        goal = f"{GOALS.get(room, 96)} %" if room else ""
        text += (f"| {room or '**all**'} | {size} | {counted + row['equivalent']} | {row['equivalent']} | "
                 f"{row['killed']} | {row['timeout']} | {row['alive']} | {score} | {goal} |\n")
    return text


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--build", type=pathlib.Path, default=ROOT / "build" / "mutants")
    options.add_argument("--sample", type=int, default=600)
    options.add_argument("--seed", type=int, default=1)
    options.add_argument("--rooms", default="")
    options.add_argument("--minutes", type=float, default=0)
    options.add_argument("--jobs", type=int, default=1, help="mutants tried at a time")
    options.add_argument("--all", action="store_true", help="tries the tests of every room")
    options.add_argument("--quick", action="store_true", help="leaves the slow tests out, for a first look")
    options.add_argument("--again", action="store_true", help="tries those anew that were alive")
    options.add_argument("--list", action="store_true", help="tries nothing")
    options.add_argument("--write", action="store_true", help="renews the table in docs/reliability.md")
    chosen = options.parse_args()
    mutants, lines = sample(chosen.sample, chosen.seed, set(filter(None, chosen.rooms.split(","))))
    folder = chosen.build.resolve()
    kept = folder / "results.json"
    results = json.loads(kept.read_text()) if kept.exists() else {}
    if not chosen.list:
        build(folder)
        workshop = Workshop(folder, chosen.all, chosen.quick)
        # Whenever a run is broken off, what was tried is a fair sample of all rooms.
        random.Random(chosen.seed).shuffle(mutants)
        end = time.monotonic() + 60 * chosen.minutes if chosen.minutes else float("inf")
        waiting = [m for m in mutants
                   if m.key not in results or (chosen.again and results[m.key] == "alive")]

        def attempt(mutant):
            start = time.monotonic()
            return (*workshop.attempt(mutant), time.monotonic() - start) if start < end else None

        for sign in (signal.SIGTERM, signal.SIGINT):
            signal.signal(sign, lambda *_: workshop.leave())
        with ThreadPoolExecutor(chosen.jobs) as pool:
            for mutant, done in zip(waiting, pool.map(attempt, waiting)):
                if done is None:
                    break
                outcome, reason, seconds = done
                results[mutant.key] = outcome
                print(f"{outcome:8} {seconds:5.1f} s  {mutant.file}:{mutant.line}  {mutant.kind}  {reason}\n"
                      f"    {mutant.before}\n    {mutant.after}", flush=True)
                kept.write_text(json.dumps(results, indent=0))
    text = table(mutants, results, lines)
    print(text, end="")
    known = equivalents()
    for mutant in mutants:
        if results.get(mutant.key) == "alive" and mutant.key not in known:
            print(f"alive: {mutant.file}:{mutant.line}\n  {mutant.key}")
    if chosen.write:
        tried = sum(results.get(m.key, "invalid") != "invalid" for m in mutants)
        replace_section("Mutants", f"A sample of {tried} changes of one thing each, seed {chosen.seed}, by "
                        "the lines of each room of the core, and whether the\ntests of "
                        f"{'all rooms' if chosen.all else 'its room alone'} notice: "
                        "`scripts/mutants.py --write`. Those that change nothing stand with the reason in\n"
                        "`tests/mutants/equivalent.txt`.\n\n" + text)


if __name__ == "__main__":
    main()

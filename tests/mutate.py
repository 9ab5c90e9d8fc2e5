#!/usr/bin/env python3
"""Changes single tokens of the sources, one at a time, and asks whether a test notices. script/mutate runs it.

N changes are chosen at random in the sources of src, or in the FILEs alone, where headers may be named. The seed is
printed; with the same seed and sources the changes are the same. All happens in a copy of the tree, build/mutants/tree,
with the release preset; your own sources and builds are only read. A change that does not compile does not count. One
that does is killed when a test program fails or hangs, and survives otherwise. Ends with 1 when fewer than PERCENT were
killed.
"""
import argparse
import concurrent.futures
import contextlib
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
TREE = ROOT / "build" / "mutants" / "tree"
BUILD = TREE / "build" / "release"
MEMORY = 4 << 30  # of a test program; a change may well ask for all there is

# clang-format puts blanks around the operators that are meant, and around no bracket of a template.
CHANGES = [
    (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "), (r" >= ", " > "),
    (r" == ", " != "), (r" != ", " == "), (r" && ", " || "), (r" \|\| ", " && "),
    (r" \+ ", " - "), (r" - ", " + "), (r" \* ", " / "), (r" / ", " * "), (r" % ", " * "),
    (r" \+= ", " -= "), (r" -= ", " += "), (r"\+\+", "--"), (r"--", "++"),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r"(?<![\w.])0(?![\w.'])", "1"), (r"(?<![\w.])1(?![\w.'])", "0"),
    (r"(?<=[( ])!(?=[\w(])", ""),
    (r"\bstd::min\b", "std::max"), (r"\bstd::max\b", "std::min"),
    (r"\bbreak;", "continue;"), (r"\bcontinue;", "break;"),
    # A statement on a line of its own: a call, an assignment, a step.
    (r"(?<=^)( +)(?!return|delete|using|case|else|Q_|co_)[\w:.>\-\[\]*]+(\(.*\)| [+\-|&]?= [^;{]*);$", r"\1;"),
]
# No comments, no literals, no lines of the preprocessor; what an assertion says is not in a release build.
NO_CODE = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"\((?:.|\n)*?\)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\''
    r"|^ *#(?:[^\n]*\\\n)*[^\n]*|Q_ASSERT[^;]*;|static_assert[^;]*;", re.S | re.M)


class Change:
    def __init__(self, path, text, begin, end, new):
        self.path, self.text, self.begin, self.end, self.new = path, text, begin, end, new

    def changed(self):
        return self.text[:self.begin] + self.new + self.text[self.end:]

    def __str__(self):
        line = self.text.count("\n", 0, self.begin)
        old_line = self.text.split("\n")[line].strip()
        new_line = self.changed().split("\n")[line].strip()
        return f"{self.path}:{line + 1}: {old_line}  ->  {new_line}"


def changes_of(path):
    text = (TREE / path).read_text(encoding="utf-8")
    code = NO_CODE.sub(lambda match: re.sub(r"[^\n]", "\x01", match.group()), text)
    found = []
    for pattern, new in CHANGES:
        for match in re.finditer(pattern, code, re.M):
            if "\x01" not in match.group() or new == r"\1;":
                found.append(Change(path, text, match.start(), match.end(), match.expand(new)))
    return found


def copy_tree():
    """Files that are equal keep their times, so that what is built stays so."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT, check=True,
                            capture_output=True).stdout.decode().split("\0")
    wanted = {name for name in listed if name and (ROOT / name).is_file()}
    for name in wanted:
        source, copy = ROOT / name, TREE / name
        if copy.is_file() and copy.read_bytes() == source.read_bytes():
            continue
        copy.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(source, copy)
    for copy in TREE.rglob("*"):
        name = copy.relative_to(TREE)
        if name.parts[0] != "build" and copy.is_file() and str(name) not in wanted:
            copy.unlink()


def build(options):
    """What it said when it failed, or None."""
    targets = ["--target", *options.tests] if options.tests else []
    done = subprocess.run(["cmake", "--build", BUILD, f"-j{options.jobs}", *targets, "--", "--quiet"],
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return None if done.returncode == 0 else done.stdout


class TestRun:
    """The test programs at work, several at a time, until one of them fails."""

    def __init__(self, jobs):
        self.jobs = jobs
        self.lock = threading.Lock()
        self.running = set()
        self.failed = None
        self.seconds = {}

    def killer(self, programs, limits):
        """The program that failed and how, or None."""
        with concurrent.futures.ThreadPoolExecutor(self.jobs) as pool:
            for program in programs:
                pool.submit(self.run, program, limits.get(program, 600))
        return self.failed

    def run(self, program, limit):
        with self.lock:
            if self.failed:
                return
            process = subprocess.Popen(
                [program, "--gtest_fail_fast", "--gtest_brief=1"], cwd=BUILD / "tests", stdin=subprocess.DEVNULL,
                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
            with contextlib.suppress(ProcessLookupError):
                resource.prlimit(process.pid, resource.RLIMIT_AS, (MEMORY, MEMORY))
            self.running.add(process)
        start = time.monotonic()
        try:
            how = "failed" if process.wait(limit) else None
        except subprocess.TimeoutExpired:
            how = "hung"
            end(process)
        self.seconds[program] = time.monotonic() - start
        with self.lock:
            self.running.discard(process)
            if how and not self.failed:
                self.failed = f"{program.name} {how}"
                for other in self.running:
                    end(other)


def end(process):
    """Ends a program and what it started."""
    with contextlib.suppress(ProcessLookupError):
        os.killpg(process.pid, signal.SIGKILL)
    process.wait()


def programs_by_nearness(path, seconds):
    """First those whose folder is the changed file's, then the fast ones."""
    folders = path.parts[1:-1]
    words = {"_".join(folders[:length]) for length in range(1, len(folders) + 1)}
    return sorted(seconds, key=lambda program: (program.name.removeprefix("plotka_test_") not in words, seconds[program]))


def arguments():
    parser = argparse.ArgumentParser(prog="script/mutate", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--number", type=int, default=100, metavar="N", help="how many changes (100)")
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(1 << 31))
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--least", type=float, default=95, metavar="PERCENT", help="the score to reach (95)")
    parser.add_argument("--tests", nargs="+", default=[], metavar="PROGRAM",
                        help="builds and runs only these test programs, to try a change of one subject by day")
    parser.add_argument("files", nargs="*", metavar="FILE")
    return parser.parse_args()


def main():
    options = arguments()
    sys.stdout.reconfigure(line_buffering=True)
    named = [pathlib.Path(name).resolve().relative_to(ROOT) for name in options.files]

    copy_tree()
    subprocess.run(["cmake", "--preset", "release", "-Wno-dev", "-DPLOTKA_BUILD_BENCH=OFF"], cwd=TREE, check=True,
                   stdout=subprocess.DEVNULL)
    if output := build(options):
        sys.exit(f"mutate: the sources do not build\n{output}")
    programs = [path for path in sorted((BUILD / "tests").glob("plotka_test_*"))
                if path.is_file() and os.access(path, os.X_OK) and (not options.tests or path.name in options.tests)]
    unchanged = TestRun(options.jobs)
    if failed := unchanged.killer(programs, {}):
        sys.exit(f"mutate: {failed} without any change")
    limits = {program: 30 + 10 * seconds for program, seconds in unchanged.seconds.items()}

    paths = named or sorted(path.relative_to(TREE) for path in (TREE / "src").rglob("*.cpp"))
    places = [change for path in paths for change in changes_of(path)]
    print(f"seed {options.seed}, {len(places)} places in {len(paths)} files, {len(programs)} test programs")
    random.Random(options.seed).shuffle(places)

    killed, survivors, broken = 0, [], 0
    for change in places:
        if killed + len(survivors) == options.number:
            break
        file = TREE / change.path
        try:
            file.write_text(change.changed(), encoding="utf-8")
            if build(options):
                broken += 1
                continue
            order = programs_by_nearness(change.path, unchanged.seconds)
            killer = TestRun(options.jobs).killer(order, limits)
        finally:
            file.write_text(change.text, encoding="utf-8")
        if killer:
            killed += 1
            print(f"killed    {change}  ({killer})")
        else:
            survivors.append(change)
            print(f"SURVIVED  {change}")

    counted = killed + len(survivors)
    score = 100 * killed / counted if counted else 0
    print(f"\n{killed} of {counted} killed: {score:.1f} % (seed {options.seed}; {broken} more did not compile)")
    for change in survivors:
        print(f"  survived: {change}")
    sys.exit(score < options.least)


main()

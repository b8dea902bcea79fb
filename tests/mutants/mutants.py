# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

"""Makes mutants of the library, or of the kit, and lets the tests find them. Started by scripts/proofs/mutants.sh."""

import argparse
import concurrent.futures
import datetime
import hashlib
import json
import os
import re
import shlex
import shutil
import signal
import subprocess
import sys
import textwrap
import threading
import time

from schema import Schema
from syntax import Finder, named

ROOT = os.path.realpath(os.path.join(os.path.dirname(__file__), "..", ".."))
KIT = "--kit" in sys.argv  # Instead of the library below it.
LIBRARY = ["catalogue", "defaults", "log", "model", "platform", "values"]
FOLDERS = ["kit"] if KIT else LIBRARY
MIRRORED = ["CMakeLists.txt", "cmake", "docs/guide", "tests/CMakeLists.txt", "tests/internal", "tests/support"]
MIRRORED += [*LIBRARY, "tests/kit", "docs/mapping.md"] if KIT else []
WORK = os.path.join(ROOT, "build", "mutants-kit" if KIT else "mutants")
TREE = os.path.join(WORK, "tree")
BUILD = os.path.join(WORK, "build")
SCRATCH = os.path.join(WORK, "scratch")
SURVIVORS = os.path.join(ROOT, "tests", "mutants", "survivors-kit.txt" if KIT else "survivors.txt")
RESULTS = os.path.join(WORK, "results.txt")
TRIED = os.path.join(WORK, "tried.json")  # A line for each mutant that was tried, after one for the tree.

SEED = 1
DEFAULT_COUNT = 800
FEWEST_PER_FILE = 8
MOST_OF_CATALOGUE = 60
MOST_PER_FILE = 2000
QUOTA = 0.97
STEP = 50  # A line of progress after so many mutants.

# A mutant may loop, sleep or allocate without end.
SPARE_CPU_SECONDS = 3
SPARE_SECONDS = 20
SLOWNESS = 5
STEPS_OF_RANDOM_TESTS = "1000"  # Of the kit; those of the library are short.
MEMORY_KIB = 6 << 20
FILE_BLOCKS = 1 << 19


FIXED = {"QT_QPA_PLATFORM": "offscreen", "ZOKIT_STEPS": STEPS_OF_RANDOM_TESTS}


# --- The copy of the tree that is mutated


def write_if_changed(path, text):
    """Keeps the time of what stays the same, so that it is not compiled again."""
    data = text.encode("latin-1")
    if os.path.exists(path):
        with open(path, "rb") as file:
            if file.read() == data:
                return
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(data)


def text_of(path):
    with open(path, encoding="latin-1", newline="") as file:
        return file.read()


def files_below(*places):
    for place in places:
        path = os.path.join(ROOT, place)
        if os.path.isfile(path):
            yield place
        for folder, _, names in os.walk(path):
            for name in sorted(names):
                yield os.path.relpath(os.path.join(folder, name), ROOT)


def is_program_source(name):
    return os.path.dirname(name) == "tests" and name.endswith(".cpp")


def is_library_source(name):
    return name.split(os.sep)[0] in FOLDERS and name.endswith((".h", ".cpp"))


def is_mutated(name):
    """All but the public headers, which only declare; the catalogue is one header of data."""
    if os.path.basename(name).startswith("treecheck"):
        return False  # Runs along with the tests to check the rest, and is in no library that is shipped.
    return is_library_source(name) and (name.endswith((".cpp", "_p.h")) or name.startswith("catalogue"))


def mirror():
    wanted = set(files_below(*MIRRORED)) | set(filter(is_program_source, files_below("tests")))
    own = {name for name in files_below("tests/mutants") if name.endswith((".cpp", ".h", "CMakeLists.txt"))}
    library = set(files_below(*FOLDERS))
    for name in wanted | own:
        write_if_changed(os.path.join(TREE, name), text_of(os.path.join(ROOT, name)))
    for name in library:
        if not is_mutated(name) or not os.path.exists(os.path.join(TREE, name)):
            write_if_changed(os.path.join(TREE, name), text_of(os.path.join(ROOT, name)))
    for folder, _, names in os.walk(TREE):
        for name in names:
            path = os.path.join(folder, name)
            if os.path.relpath(path, TREE) not in wanted | own | library:
                os.remove(path)


def run_quietly(command, **options):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)
    if done.returncode != 0:
        sys.exit(f"{done.stdout}\nmutants: {shlex.join(command)} failed")


def configure():
    flags = "-O0 -g0 -w -ferror-limit=0 -fno-caret-diagnostics -include " + os.path.join("tests", "mutants", "mutant.h")
    flags = flags.replace("tests/", shlex.quote(TREE) + "/tests/")
    command = ["cmake", "-G", "Ninja", "-S", TREE, "-B", BUILD, "-DCMAKE_CXX_COMPILER=clang++"]
    command += ["-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG="]  # With the checks of Qt and of the trees.
    command += [f"-DCMAKE_CXX_FLAGS={flags}", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", "-DZOEFFECT_QT_MAJOR=5"]
    command += ["-DZOEFFECT_BUILD_TESTS=ON", "-DZOEFFECT_WARNINGS_AS_ERRORS=OFF"]
    command += ["-DZOEFFECT_TEST_PACKAGE=OFF", "-DZOEFFECT_TEST_SOURCES=OFF", "-DZOEFFECT_TEST_PROOFS=OFF"]
    command += [f"-DZOEFFECT_BUILD_KIT={'ON' if KIT else 'OFF'}", "-DZOEFFECT_BUILD_PROGRAMS=OFF"]
    command += ["-DZOEFFECT_BUILD_QUICK=OFF"]
    command += ["-DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON"]  # They would have to come before mutant.h.
    run_quietly(command)


# --- Which mutants are made


def parse_arguments(command):
    """The arguments for libclang, that reads the sources themselves instead of the mirrored ones."""
    kept = []
    words = iter(shlex.split(command)[1:])
    for word in words:
        if word in ("-o", "-c", "-include", "-MT", "-MF"):
            next(words)
        elif word != "-MD":
            kept.append(word.replace(TREE, ROOT))
    return [word for word in kept if not word.endswith(".cpp")]


def find_in_unit(name, command):
    finder = Finder(ROOT, is_mutated)
    finder.parse(os.path.join(ROOT, name), parse_arguments(command))
    return finder.sources, finder.mutants


def find_mutants():
    with open(os.path.join(BUILD, "compile_commands.json"), encoding="utf-8") as file:
        commands = {os.path.relpath(entry["file"], TREE): entry["command"] for entry in json.load(file)}
    names = sorted(filter(is_library_source, commands))
    sources, mutants = {}, []
    with concurrent.futures.ProcessPoolExecutor() as pool:
        for shown, found in pool.map(find_in_unit, names, [commands[name] for name in names]):
            fresh = set(shown) - set(sources)  # A header shows up in many units.
            sources.update({path: shown[path] for path in fresh})
            mutants += [m for m in found if m.path in fresh]
    mutants = named(mutants, sources)
    return sources, [m for m in mutants if not m.path.startswith("catalogue") or m.kind == "constant"]


def sample(mutants, count):
    """The same mutants every time, some of every file."""
    ranked = sorted(mutants, key=lambda m: m.rank(SEED))
    of_catalogue = [m for m in ranked if m.path.startswith("catalogue")][MOST_OF_CATALOGUE:]
    ranked = [m for m in ranked if m not in set(of_catalogue)]
    chosen, rest, per_file = [], [], {}
    for mutant in ranked:
        per_file[mutant.path] = per_file.get(mutant.path, 0) + 1
        (chosen if per_file[mutant.path] <= FEWEST_PER_FILE else rest).append(mutant)
    chosen = (chosen + rest)[:count]
    return sorted(chosen, key=lambda m: (m.path, m.edits[0].start, m.edits[0].end, m.edits[0].alternative))


def build(sources, mutants):
    """Compiles all mutants at once. Those that the compiler refuses are taken out; answers those that are left."""
    left = list(mutants)
    # By file, so that a change of one does not renumber, and compile again, the others.
    for index, name in enumerate(sorted(sources)):
        for position, mutant in enumerate(m for m in left if m.path == name):
            mutant.number = index * MOST_PER_FILE + position
    while True:
        schemas = {}
        for name in sorted(sources):
            schemas[name] = Schema(sources[name], [m for m in left if m.path == name])
            write_if_changed(os.path.join(TREE, name), schemas[name].text)
        targets = ["--target", *(test["name"] for test in listed_tests())] if KIT else []
        command = ["cmake", "--build", BUILD, *targets, "--", "-k", "0"]
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if done.returncode == 0:
            return left
        refused = refused_numbers(schemas, done.stdout)
        if not refused & {m.number for m in left}:
            sys.exit(f"{done.stdout}\nmutants: the mutated sources do not compile")
        left = [m for m in left if m.number not in refused]


def refused_numbers(schemas, output):
    refused = set()
    message = re.compile(r"^(.*?):(\d+):(\d+): (?:fatal )?(error|note): ")
    current = set()  # Of the error that was read last, until one of its notes tells better.
    for text in output.splitlines() + ["end:1:1: error: "]:
        found = message.match(text)
        if not found:
            continue
        name = os.path.relpath(os.path.join(BUILD, found[1]), TREE)  # ccache may make paths relative.
        place = (int(found[2]), int(found[3]))
        if found[4] == "error":
            refused |= current
            current = set()
            if name in schemas:
                current = schemas[name].numbers_at(*place) or schemas[name].numbers_near(place[0])
        elif name in schemas:
            current = schemas[name].constants_at(*place) or current
    return refused


# --- Running the tests


class Program:
    def __init__(self, name, command, folder):
        self.name = name
        self.command = command
        self.folder = folder
        self.seconds = 0.0
        self.reached = b""
        self.tried = {}
        self.killed = {}

    def cost(self, path):
        """Expected seconds until a mutant of this file falls."""
        killed = self.killed.get(path, 0) + 0.5
        return self.seconds * (self.tried.get(path, 0) + 1) / killed


def listed_tests():
    listing = subprocess.run(
        ["ctest", "--test-dir", BUILD, "--show-only=json-v1"], stdout=subprocess.PIPE, check=True, text=True
    )
    tests = json.loads(listing.stdout)["tests"]
    return [t for t in tests if not KIT or t["name"].startswith(("tst_kit_", "tst_regressions"))]


def programs():
    found = []
    for test in listed_tests():
        folder = next(p["value"] for p in test["properties"] if p["name"] == "WORKING_DIRECTORY")
        found.append(Program(test["name"], test["command"][0], folder))
    return found


class Outcome:
    def __init__(self, failure, seconds):
        self.failure = failure  # Empty when the program passed.
        self.seconds = seconds


def run_program(program, environment):
    """Runs a test program until its first failure."""
    scratch = os.path.join(SCRATCH, str(threading.get_ident()))
    shutil.rmtree(scratch, ignore_errors=True)
    os.makedirs(scratch)
    cpu = int(SPARE_CPU_SECONDS + SLOWNESS * program.seconds)
    limits = f'ulimit -t {cpu} -v {MEMORY_KIB} -f {FILE_BLOCKS} -c 0; exec "$0" -o -,txt'
    started = time.monotonic()
    process = subprocess.Popen(
        ["bash", "-c", limits, program.command],
        cwd=scratch,
        env=dict(os.environ, TMPDIR=scratch, HOME=scratch, **FIXED, **environment),
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        start_new_session=True,
    )
    timed_out = threading.Event()

    def kill():
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass

    def stop():
        timed_out.set()
        kill()

    timer = threading.Timer(SPARE_SECONDS + SLOWNESS * program.seconds, stop)
    timer.start()
    failure = ""
    for line in process.stdout:
        if line.startswith((b"FAIL!", b"XPASS")):
            failure = line.decode("utf-8", "replace").strip()
            break
    if failure:
        kill()
    process.stdout.close()
    code = process.wait()
    timer.cancel()
    kill()
    if not failure and code != 0:
        failure = "did not end in time" if timed_out.is_set() else f"ended with {code}"
    shutil.rmtree(scratch, ignore_errors=True)
    return Outcome(failure, time.monotonic() - started)


def measure(tests, count):
    """Runs every program as it is: it has to pass, and tells which mutants it comes to, and how long it takes."""
    for test in tests:
        path = os.path.join(WORK, "reached")
        with open(path, "wb") as file:
            file.write(bytes(count))
        test.seconds = 60.0  # A generous limit, for want of a better one: the machine may be busy.
        outcome = run_program(test, {"ZOEFFECT_MUTANTS_REACHED": path})
        if outcome.failure:
            sys.exit(f"mutants: {test.name} fails without a mutant: {outcome.failure}")
        test.seconds = outcome.seconds
        with open(path, "rb") as file:
            test.reached = file.read()


class Result:
    def __init__(self, mutant, program, failure, seconds):
        self.mutant = mutant
        self.program = program  # The one that failed, empty when none did.
        self.failure = failure
        self.seconds = seconds


def try_mutant(mutant, tests):
    started = time.monotonic()
    reaching = [test for test in tests if test.reached[mutant.number]]
    for test in sorted(reaching, key=lambda t: t.cost(mutant.path)):
        outcome = run_program(test, {"ZOEFFECT_MUTANT": str(mutant.number)})
        test.tried[mutant.path] = test.tried.get(mutant.path, 0) + 1
        if outcome.failure:
            test.killed[mutant.path] = test.killed.get(mutant.path, 0) + 1
            return Result(mutant, test.name, outcome.failure, time.monotonic() - started)
    failure = "" if reaching else "no test comes to it"
    return Result(mutant, "", failure, time.monotonic() - started)


def tree_name():
    """Date and commit, for the results; the commit's tree, with all that is changed in it, for --resume."""

    def git(*words):
        done = subprocess.run(["git", "-C", ROOT, *words], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        return done.stdout.strip()

    changes = git("diff", "HEAD", "--", *FOLDERS, "tests", f":!{os.path.relpath(SURVIVORS, ROOT)}")
    commit = (git("rev-parse", "--short", "HEAD") or "unknown") + ("+" if changes else "")
    trees = [git("rev-parse", f"HEAD:{folder}") for folder in FOLDERS]
    return f"{datetime.date.today()}, commit {commit}", hashlib.sha1("\n".join(trees + [changes]).encode()).hexdigest()


def tried_before(tree):
    """By key: the program that failed, how, and the seconds it took."""
    if not os.path.exists(TRIED):
        return {}
    with open(TRIED, encoding="utf-8") as file:
        lines = [json.loads(line) for line in file if line.endswith("\n")]
    if not lines or lines[0] != tree:
        sys.exit("mutants: nothing to resume: the last run was of another tree")
    return {tuple(key): rest for key, *rest in lines[1:]}


def try_all(mutants, tests, jobs, before, minutes):
    results = [Result(m, *before[as_utf8(m.key())]) for m in mutants if as_utf8(m.key()) in before]
    started = time.monotonic()
    # In the order of their rank, so that the programs that find most are known early for every file.
    order = sorted((m for m in mutants if as_utf8(m.key()) not in before), key=lambda m: m.rank(SEED))

    def attempt(mutant):
        is_late = minutes and time.monotonic() - started > 60 * minutes
        return None if is_late else try_mutant(mutant, tests)

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool, open(TRIED, "a", encoding="utf-8") as tried:
        for future in concurrent.futures.as_completed([pool.submit(attempt, m) for m in order]):
            result = future.result()
            if not result:
                continue
            results.append(result)
            key = as_utf8(result.mutant.key())
            print(json.dumps([key, result.program, result.failure, result.seconds]), file=tried, flush=True)
            if not result.program:
                print(f"   survived: {title(key)}\n      - {key[2]}\n      + {key[3]}", flush=True)
            if len(results) % STEP == 0:
                killed = sum(bool(r.program) for r in results)
                seconds = int(time.monotonic() - started)
                print(f"   {len(results)} of {len(mutants)}: {killed} found, {seconds} s", flush=True)
    return sorted(results, key=lambda r: r.mutant.number)


# --- What survived


def title(key):
    path, function, _, _, occurrence = key
    return f"{path}, {function}" + (f" ({occurrence})" if occurrence > 1 else "")


def read_survivors():
    """The reasons by the mutant's key. Blocks of lines: title, "- original", "+ mutated", reason."""
    reasons = {}
    with open(SURVIVORS, encoding="utf-8") as file:
        text = "\n".join(line for line in file.read().splitlines() if not line.startswith("#"))
    for block in filter(None, (b.strip() for b in re.split(r"\n\s*\n", text))):
        lines = block.splitlines()
        found = re.fullmatch(r"(.+?), (.*?)(?: \((\d+)\))?", lines[0])
        is_whole = found and len(lines) > 3 and lines[1].startswith("- ") and lines[2].startswith("+ ")
        if not is_whole:
            sys.exit(f"mutants: {SURVIVORS}: not understood:\n{block}")
        reason = " ".join(line.strip() for line in lines[3:])
        reasons[(found[1], found[2], lines[1][2:], lines[2][2:], int(found[3] or 1))] = reason
    return reasons


def as_utf8(key):
    return tuple(part.encode("latin-1").decode("utf-8", "replace") if isinstance(part, str) else part for part in key)


def update_survivors(results, all_keys):
    """Takes out what is found or gone, and puts in what survived. Its reasons are then still to be written: a block
    without one is not understood."""
    with open(SURVIVORS, encoding="utf-8") as file:
        head = file.read().split("\n\n", 2)[:2]
    found = {as_utf8(r.mutant.key()) for r in results if r.program}
    kept = {key: reason for key, reason in read_survivors().items() if key in all_keys and key not in found}
    for result in results:
        if not result.program:
            kept.setdefault(as_utf8(result.mutant.key()), "")
    with open(SURVIVORS, "w", encoding="utf-8") as file:
        file.write("\n\n".join(head) + "\n")
        for key, reason in sorted(kept.items()):
            file.write(f"\n{title(key)}\n- {key[2]}\n+ {key[3]}\n")
            file.write(textwrap.fill(reason, 100, initial_indent="  ", subsequent_indent="  ") + "\n" if reason else "")


def write_results(results, refused, name):
    with open(RESULTS, "w", encoding="utf-8") as file:
        file.write(f"{name}\n\n")
        for result in results:
            key = as_utf8(result.mutant.key())
            state = f"found by {result.program}: {result.failure}" if result.program else "SURVIVED"
            file.write(f"{title(key)}\n- {key[2]}\n+ {key[3]}\n")
            file.write(f"  {result.mutant.kind}, {state}, {result.seconds:.1f} s {'' if result.program else result.failure}\n\n")
        for mutant in refused:
            key = as_utf8(mutant.key())
            file.write(f"{title(key)}\n- {key[2]}\n+ {key[3]}\n  {mutant.kind}, not made: it does not compile\n\n")


def report(results, all_keys, is_whole_run):
    reasons = read_survivors()
    survivors = {as_utf8(r.mutant.key()): r for r in results if not r.program}
    unexplained = [key for key in survivors if key not in reasons]
    found = {as_utf8(r.mutant.key()): r for r in results if r.program}
    for key, reason in reasons.items():
        if key in found:
            print(f"   listed as a survivor, but found by {found[key].program}: {title(key)}\n      + {key[3]}")
        elif key not in all_keys:
            print(f"   listed as a survivor, but no mutant any more: {title(key)}\n      - {key[2]}\n      + {key[3]}")
    for key in unexplained:
        kind, failure = survivors[key].mutant.kind, survivors[key].failure
        print(f"FAIL!  : {title(key)}\n   - {key[2]}\n   + {key[3]}\n   {kind} {failure}")
    kinds = {}
    for result in results:
        made, killed = kinds.get(result.mutant.kind, (0, 0))
        kinds[result.mutant.kind] = (made + 1, killed + bool(result.program))
    for kind, (made, killed) in sorted(kinds.items()):
        print(f"   {kind}: {killed} of {made} found")
    equivalent = sum(reasons.get(key, "").startswith("Equivalent") for key in survivors)
    share = len(found) / max(1, len(results) - equivalent)
    print(f"   {len(found)} of {len(results)} found ({100 * len(found) / len(results):.1f} %)")
    print(f"   {len(survivors)} survived; without {equivalent} that change nothing, {100 * share:.1f} % were found")
    failed = len(unexplained)
    if is_whole_run and share < QUOTA:
        print(f"FAIL!  : fewer than {100 * QUOTA:.0f} % were found")
        failed += 1
    return len(results) - len(unexplained), failed


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("count", nargs="?", type=int, default=DEFAULT_COUNT)
    parser.add_argument("files", nargs="*")
    parser.add_argument("--kit", action="store_true")
    parser.add_argument("--new", action="store_true")
    parser.add_argument("--resume", action="store_true")
    parser.add_argument("--update", action="store_true")
    parser.add_argument("--minutes", type=float, default=0)
    options = parser.parse_args()

    name, tree = tree_name()
    print(f"== the mutants, {name}", flush=True)
    os.makedirs(WORK, exist_ok=True)
    before = tried_before(tree) if options.resume else {}
    if not before:
        with open(TRIED, "w", encoding="utf-8") as file:
            print(json.dumps(tree), file=file)
    mirror()
    configure()
    sources, mutants = find_mutants()
    chosen = sample(mutants, options.count)
    made = build(sources, chosen)
    left = {m.number for m in made}
    refused = [m for m in chosen if m.number not in left]
    print(f"   {len(mutants)} are possible; {len(chosen)} chosen, {len(refused)} of them do not compile", flush=True)

    if options.files:
        made = [m for m in made if m.path in options.files]
    if options.new:
        listed = read_survivors()
        made = [m for m in made if as_utf8(m.key()) not in listed]
    if not made:
        sys.exit("mutants: none to try")
    tests = programs()
    measure(tests, len(sources) * MOST_PER_FILE)
    seconds = sum(test.seconds for test in tests)
    print(f"== {len(made)} mutants, {len(tests)} test programs of {seconds:.1f} s in all", flush=True)
    results = try_all(made, tests, os.cpu_count() or 1, before, options.minutes)
    write_results(results, refused, name)
    all_keys = {as_utf8(m.key()) for m in mutants}
    is_whole = len(results) == len(made) and not (options.files or options.new)
    passed, failed = report(results, all_keys, is_whole)
    if len(results) < len(made):
        print(f"   {len(made) - len(results)} were not tried; --resume goes on with them")
    if options.update:
        update_survivors(results, all_keys)
    killed = sum(bool(r.program) for r in results)
    print(f"found: {killed} of {len(results)} mutants, of {len(mutants)} possible")
    print(f"{passed} passed, {failed} failed")
    sys.exit(1 if failed else 0)


main()

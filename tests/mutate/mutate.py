"""scripts/mutate: how many one-line faults in the given sources do the unit tests notice?

Makes the mutants of all given files in one copy of the sources (schemata.py), builds its unit tests
once, notes which test reaches which mutant, and then runs for each mutant only the tests that reach
it, until one fails. Results stay in build/mutate/state.json: a further run goes on where this one
ended, repeats only the survivors when tests have changed, and only the changed lines of a source.
"""

import argparse
import collections
import hashlib
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import time

import schemata

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "mutate"
TREE = BUILD / "tree"
STATE = BUILD / "state.json"
TESTS = BUILD / "cmake" / "orvelle_unit_tests"
SCRATCH = BUILD / "scratch"
CORE = ("Core", "Extensions", "Features", "Models", "Plugins", "Settings", "Views")
APP = ("AppDelegate", "CommandLine", "DefaultsCommand")
SCOPE = ("src/App", "src/Core", "src/Features", "src/Models", "src/Settings")
MEMORY = 4 << 30
FLAGS = (b"-w -Wno-c++11-narrowing -Wno-invalid-constexpr "
         b"-include ${CMAKE_SOURCE_DIR}/tests/unit/Mutants.h")


def is_core(path):
    name = str(path)
    return not ("Binding." in name or "/Views/Qt/" in name or "/Tour." in name)


def core_sources():
    sources = [ROOT / "src/App" / f"{name}.cpp" for name in APP]
    for folder in CORE:
        sources += sorted((ROOT / "src" / folder).rglob("*.cpp"))
    return [s for s in sources if is_core(s)]


def wanted_files(arguments):
    """Files and folders, relative to the project; by default all that the unit tests answer for."""
    paths = [pathlib.Path(a).resolve() for a in arguments] or [ROOT / s for s in SCOPE]
    files = set()
    for path in paths:
        if path.is_dir():
            files |= {p for p in path.rglob("*") if p.suffix in (".h", ".cpp")}
        else:
            files |= {path, path.with_suffix(".h")}
    known = {str(f.relative_to(ROOT)) for f in files if f.exists() and is_core(f)}
    return {f for f in known if not f.startswith("src/App/")
            or pathlib.Path(f).stem in (*APP, "Constants")}


def write(path, data):
    if not path.exists() or path.read_bytes() != data:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)


def copy_tree(mutated):
    """What the core's build needs; a file that is as it was keeps its time."""
    here = pathlib.Path(__file__).parent
    kept = set()
    sources = [ROOT / "CMakeLists.txt"]
    for folder in ("cmake", "src", "tests"):
        sources += [p for p in (ROOT / folder).rglob("*") if p.is_file() and "__pycache__" not in p.parts]
    for path in sources:
        name = str(path.relative_to(ROOT))
        data = mutated.get(name) or path.read_bytes()
        if name == "cmake/Targets.cmake": # mutants are no clean code
            data = re.sub(rb"-Wall[^)\n]*-Werror", FLAGS, data)
        write(TREE / name, data)
        kept.add(name)
    for name in ("Mutants.h", "Mutants.cpp"):
        write(TREE / "tests/unit" / name, (here / name).read_bytes())
        kept.add(f"tests/unit/{name}")
    for path in TREE.rglob("*"):
        if path.is_file() and str(path.relative_to(TREE)) not in kept:
            path.unlink()


def compile_errors():
    """(file, line, message) of what does not compile in the mutated core."""
    from clang import cindex
    sources = "".join(f'#include "{TREE / s.relative_to(ROOT)}"\n' for s in core_sources())
    unit = cindex.Index.create().parse(
        "unity.cpp", args=[*schemata.ARGUMENTS, "-Wno-invalid-constexpr", f"-I{TREE}/src",
                           "-include", str(TREE / "tests/unit/Mutants.h")],
        unsaved_files=[("unity.cpp", sources)])
    found = []
    for diagnostic in unit.diagnostics:
        if diagnostic.severity < cindex.Diagnostic.Error:
            continue
        for place in (diagnostic, *diagnostic.children):
            if place.location.file:
                name = pathlib.Path(place.location.file.name).resolve()
                if name.is_relative_to(TREE) and "Mutants.h" not in name.name:
                    found.append((str(name.relative_to(TREE)), place.location.line,
                                  diagnostic.spelling))
                    break
        else:
            found.append(("", 0, str(diagnostic)))
    return found


def make_tree(work, verbose):
    """Writes the copy, without the mutants that do not compile; returns those."""
    dropped = set()
    for _ in range(12):
        texts, places = work.apply(dropped)
        copy_tree(texts)
        errors = compile_errors()
        if not errors:
            return dropped
        culprits = set()
        for file, line, message in errors:
            at = places.get((file, line), set())
            culprits |= at
            if verbose:
                print(f"{file}:{line}: {message}: drops {len(at - dropped)}")
        if culprits <= dropped:
            raise SystemExit("The copy does not compile: " + "\n".join(map(str, errors[:10])))
        dropped |= culprits
    raise SystemExit("The copy still does not compile after twelve rounds.")


def build():
    configure = ["cmake", "-G", "Ninja", "-S", TREE, "-B", BUILD / "cmake", "-DORVELLE_DESKTOP=OFF",
                 "-DCMAKE_CXX_COMPILER=clang++-19", "-DCMAKE_BUILD_TYPE=Debug",
                 "-DCMAKE_CXX_FLAGS_DEBUG=-O1 -g0"]
    for command in (configure, ["ninja", "-C", BUILD / "cmake", "orvelle_unit_tests"]):
        done = subprocess.run(["nice", *map(str, command)], capture_output=True, text=True)
        if done.returncode != 0:
            raise SystemExit(done.stdout[-6000:] + done.stderr[-2000:])


def built(work, verbose):
    """Builds the copy unless it stands; returns the mutants that do not compile."""
    stamp = stamp_of("src", "tests/unit", "tests/Support", "tests/mutate", "cmake")
    record = BUILD / "built.json"
    known = json.loads(record.read_text()) if record.exists() else {}
    if known.get("stamp") != stamp:
        known = {"stamp": stamp, "dropped": sorted(make_tree(work, verbose)), "stands": False}
        record.write_text(json.dumps(known))  # a build that is broken off goes on from here
    if not known.get("stands") or not TESTS.exists():
        build()
        record.write_text(json.dumps({**known, "stands": True}))
    return set(known["dropped"])


def run_tests(tests, seconds, mutant=None, reached=None):
    """True when all pass, False when one fails, crashes or takes too long."""
    shutil.rmtree(SCRATCH, ignore_errors=True)
    SCRATCH.mkdir(parents=True)
    environment = {**os.environ, "HOME": str(SCRATCH), "TMPDIR": str(SCRATCH)}
    environment.pop("ORVELLE_MUTANT", None)
    if mutant is not None:
        environment["ORVELLE_MUTANT"] = str(mutant)
    if reached:
        environment["ORVELLE_REACHED"] = str(reached)
    # Not set between fork and exec: a fork copies the page tables of all that was parsed here.
    limits = ["prlimit", f"--as={MEMORY}", "--core=0"]
    command = ["nice", *limits, str(TESTS), "--gtest_brief=1", "--gtest_fail_fast"]
    if tests is not None:
        (BUILD / "flags").write_text("--gtest_filter=" + ":".join(tests))
        command.append(f"--gtest_flagfile={BUILD / 'flags'}")
    process = subprocess.Popen(command, cwd=SCRATCH, env=environment, start_new_session=True,
                               stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    try:
        return process.wait(seconds) == 0
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.wait()
        return False


def read_reached():
    """Per mutant the tests that reach it, those that reach least first; and what each test takes."""
    stamp = hashlib.sha256(TESTS.read_bytes()).hexdigest()
    record, mark = BUILD / "reached", BUILD / "reached.stamp"
    if not mark.exists() or mark.read_text() != stamp or not record.exists():
        if not run_tests(None, 300, reached=record):
            failed = subprocess.run(["nice", str(TESTS), "--gtest_brief=1"], cwd=SCRATCH,
                                    capture_output=True, text=True).stdout
            raise SystemExit("The tests fail without any mutant.\n" + failed[-4000:])
        mark.write_text(stamp)
    by_mutant, cost, breadth = collections.defaultdict(list), {}, {}
    for line in record.read_text().splitlines():
        name, milliseconds, ids = line.split("\t")
        cost[name] = int(milliseconds) / 1000
        ids = ids.split()
        breadth[name] = len(ids)
        for id in ids:
            by_mutant[int(id)].append(name)
    for tests in by_mutant.values():
        tests.sort(key=lambda name: breadth[name])
    return by_mutant, cost


def add_mentions(by_mutant, work, all_tests):
    """A test that reads a constant by itself reaches its mutants, too."""
    texts = [(p.read_text(), set()) for p in (ROOT / "tests/unit").rglob("*.cpp")]
    for text, suites in texts:
        suites |= set(re.findall(r"^TEST(?:_F|_P)?\((\w+),", text, re.MULTILINE))
    for variable in work.statics.values():
        if not variable.mutants:
            continue
        word = re.compile(rf"\b{variable.name}\b")
        suites = set().union(*(found for text, found in texts if word.search(text)))
        tests = [t for t in all_tests if suites & set(t.split(".")[0].split("/"))]
        for id in variable.mutants:
            known = set(by_mutant.get(id, ()))
            if tests or known:
                by_mutant[id] = by_mutant.get(id, []) + [t for t in tests if t not in known]


def stamp_of(*folders):
    digest = hashlib.sha256()
    for folder in folders:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.is_file() and "__pycache__" not in path.parts:
                digest.update(str(path.relative_to(ROOT)).encode() + path.read_bytes())
    return digest.hexdigest()


def suites_by_folder():
    """Of each suite the folder of its file below tests/unit, which is that of what it tests."""
    folders = {}
    for path in (ROOT / "tests/unit").rglob("*.cpp"):
        for suite in re.findall(r"(?:TEST(?:_F|_P)?\(|^class )(\w+)", path.read_text(), re.MULTILINE):
            folders.setdefault(suite, str(path.parent.relative_to(ROOT / "tests/unit")))
    return folders


def nearest(mutant, tests, folders):
    """Those of the same folder and those that are most about it; and the others."""
    parts = mutant.file.split("/")[1:-1]
    own = "/".join(parts[:2] if parts[0] == "Features" else parts[:1])
    near = [t for t in tests
            if any(folders.get(part, "") == own for part in t.split(".")[0].split("/"))]
    near += [t for t in tests[:15] if t not in near]
    known = set(near)
    return near, [t for t in tests if t not in known]


def is_killed(id, tests, cost):
    return bool(tests) and not run_tests(tests, 3 + 10 * sum(cost[t] for t in tests), mutant=id)


def report(work, dropped, results, survivors_shown):
    scores = collections.defaultdict(lambda: [0, 0, 0])
    survivors = []
    for id, mutant in enumerate(work.mutants):
        if id in dropped:
            continue
        parts = mutant.file.split("/")
        folders = {mutant.file, "/".join(parts[:2])}
        if parts[1] == "Features":
            folders.add("/".join(parts[:3]))
        result = results.get(mutant.key)
        for name in folders:
            scores[name][0] += result is not None and result["result"] == "killed"
            scores[name][1] += result is not None
            scores[name][2] += 1
        if result and result["result"] != "killed":
            survivors.append((mutant, result["result"]))
    if survivors_shown:
        for mutant, result in survivors:
            note = {"unreached": " (no test reaches it)",
                    "doubtful": " (farther tests still to try)"}.get(result, "")
            print(f"{mutant.file}:{mutant.line}: {mutant.old} -> {mutant.new or 'nothing'}{note}")
    for name in sorted(scores, key=lambda n: (n.count("."), n)):
        killed, tried, all_ = scores[name]
        rest = f", {all_ - tried} of {all_} still to try" if tried < all_ else ""
        print(f"{name}: {killed}/{tried} killed, {100 * killed / max(tried, 1):.0f} %{rest}")


def main():
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("files", nargs="*", help="sources or folders; all of the core by default")
    parser.add_argument("--seconds", type=float, default=600, help="how long to try mutants (600)")
    parser.add_argument("--list", action="store_true", help="only shows what earlier runs found")
    parser.add_argument("--retry", action="store_true", help="tries survivors again in any case")
    parser.add_argument("--scores", action="store_true", help="shows no survivors")
    parser.add_argument("--verbose", action="store_true", help="tells what does not compile")
    arguments = parser.parse_args()

    BUILD.mkdir(parents=True, exist_ok=True)
    state = json.loads(STATE.read_text()) if STATE.exists() else {}
    wanted = wanted_files(arguments.files)
    work = schemata.Schemata(ROOT, [str(s) for s in core_sources()], wanted)
    stamp = stamp_of("tests/unit", "tests/Support")

    if arguments.list:
        report(work, {id for id, m in enumerate(work.mutants)
                      if state.get(m.key, {}).get("result") == "does not compile"}, state,
               not arguments.scores)
        return
    # All mutants of the core stand in the copy, so that other files cost no other build.
    everything = schemata.Schemata(ROOT, [str(s) for s in core_sources()], wanted_files([]) | wanted)
    ids = {m.key: id for id, m in enumerate(everything.mutants)}
    dropped = built(everything, arguments.verbose)
    by_mutant, cost = read_reached()
    add_mentions(by_mutant, everything, cost)

    end = time.monotonic() + arguments.seconds
    folders = suites_by_folder()
    by_key = {m.key: m for m in work.mutants}
    first, second = [], []
    for mutant in work.mutants:
        id = ids[mutant.key]
        known = state.get(mutant.key)
        if id in dropped:
            state[mutant.key] = {"result": "does not compile"}
        elif id not in by_mutant:
            state[mutant.key] = {"result": "unreached", "tests": stamp}
        elif known is None or known["result"] in ("unreached", "does not compile") \
                or known["result"] != "killed" and (arguments.retry or known["tests"] != stamp):
            first.append((known is not None, id, mutant.key))
        elif known["result"] == "doubtful":
            second.append((True, id, mutant.key))
    first.sort(key=lambda d: d[0])
    # The tests that are far from a source seldom kill what the near ones do not, and take longer.
    due = [(False, *d[1:]) for d in first] + [(True, *d[1:]) for d in second]
    count = 0
    for is_far, id, key in due:
        if time.monotonic() > end:
            break
        near, far = nearest(by_key[key], by_mutant[id], folders)
        killed = is_killed(id, far if is_far else near, cost)
        lived = "lived" if is_far or not far else "doubtful"
        state[key] = {"result": "killed" if killed else lived, "tests": stamp}
        if lived == "doubtful" and not killed:
            due.append((True, id, key))
        count += 1
        if count % 50 == 0:
            STATE.write_text(json.dumps(state))
            print(f"{count} of {len(due)} tried", file=sys.stderr)
    STATE.write_text(json.dumps(state))
    report(work, {id for id, m in enumerate(work.mutants)
                  if state.get(m.key, {}).get("result") == "does not compile"}, state,
           not arguments.scores)


if __name__ == "__main__":
    main()

"""Which mutants a source has, and that each of them, and the copy that holds them all, is as told."""

import os
import pathlib
import subprocess
import sys
import tempfile

try:
    import schemata
except ImportError:
    print("Debian's python3-clang-19 is missing")
    sys.exit(77)

SOURCE = """#include <string>
struct Log { void info(int) const {} void error(int) const {} };
constexpr double limit = 5;
int calls = 0;
void first() { calls = calls * 2 + 1; }
void second() { calls = calls * 3; }
bool isOver(double value) { return value > limit; }
bool isOwn(const std::string& name) { return name != "." && !name.empty(); }
int run(bool twice) {
    const Log log;
    log.info(7);
    log.error(8);
    first();
    second();
    if (twice) return 2;
    return calls;
}
consteval int fixed(int value) { return value > 3 ? value + 1 : 0; }
int main(int, char** arguments) {
    calls = 0;
    const std::string what = arguments[1];
    if (what == "over") return isOver(5) ? 1 : 0;
    if (what == "own") return isOwn(".") ? 1 : 0;
    return run(false);
}
"""


def answer(program, what, mutant=None):
    environment = dict(os.environ)
    environment.pop("ORVELLE_MUTANT", None)
    if mutant is not None:
        environment["ORVELLE_MUTANT"] = str(mutant)
    return subprocess.run([program, what], env=environment, check=False).returncode


def main():
    here = pathlib.Path(__file__).resolve().parent
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder).resolve()
        (root / "src").mkdir()
        (root / "src/a.cpp").write_text(SOURCE)
        work = schemata.Schemata(root, [str(root / "src/a.cpp")], {"src/a.cpp"})
        found = {(m.line, m.old, m.new): id for id, m in enumerate(work.mutants)}
        assert not any(m.line == 11 for m in work.mutants), "a line of the log has mutants"
        assert not any("error" in m.old and m.new == "the other way round" for m in work.mutants)
        assert not any(m.line == 18 for m in work.mutants), "a consteval function has mutants"

        texts, places = work.apply(set())
        mutated = texts["src/a.cpp"]
        assert mutated.count(b"\n") == SOURCE.count("\n"), "lines have moved"
        assert found[(7, ">", ">=")] in places[("src/a.cpp", 7)]
        assert f"M_::touchNow({found[(3, '5', '6')]})".encode() in mutated, "a reader is not seen"
        (root / "b.cpp").write_bytes(mutated)
        program = root / "b"
        subprocess.run(["clang++-19", "-std=c++20", "-w", "-include", here / "Mutants.h",
                        root / "b.cpp", "-o", program], check=True)

        for what, right, mutants in (
                ("over", 0, {(7, ">", ">="): 1, (7, ">", "<="): 1, (3, "5", "6"): 0}),
                ("own", 0, {(8, "!=", "=="): 1, (8, "&&", "||"): 1, (8, "!", ""): 0}),
                ("run", 3, {(13, "first(); second();", "the other way round"): 1,
                            (13, "first();", ""): 0, (14, "second();", ""): 1,
                            (15, "twice", "!(twice)"): 2, (5, "*", "/"): 3})):
            assert answer(program, what) == right, f"{what} differs without a mutant"
            for mutant, expected in mutants.items():
                got = answer(program, what, found[mutant])
                assert got == expected, f"{mutant} answers {got}, not {expected}"

        without, _ = work.apply({found[(7, ">", ">=")]})
        assert b"value > " in without["src/a.cpp"], "a dropped mutant is still there"


if __name__ == "__main__":
    main()

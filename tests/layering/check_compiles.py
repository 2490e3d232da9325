"""check_compiles.py compiles|fails FILE COMPILER FLAGS...

A file that must fail has to fail for the reason in its first line, "// expect: TEXT": an error that
names TEXT, or a note to one.
"""

import re
import subprocess
import sys


def main():
    expectation, file, compiler, *flags = sys.argv[1:]
    result = subprocess.run(
        [compiler, "-fsyntax-only", *flags, file], capture_output=True, text=True, check=False
    )
    if expectation == "compiles":
        if result.returncode:
            sys.exit(f"{file} does not compile:\n{result.stderr}")
        return
    if not result.returncode:
        sys.exit(f"{file} compiles, but must not")
    with open(file, encoding="utf-8") as source:
        reason = re.match(r"// expect: (.+)", source.readline()).group(1)
    errors = [line for line in result.stderr.splitlines() if re.search("error:|note:", line)]
    if not any(re.search(reason, line) for line in errors):
        sys.exit(f"{file} fails for another reason than {reason!r}:\n{result.stderr}")


main()

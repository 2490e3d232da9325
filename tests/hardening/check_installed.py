"""check_installed.py SCRIPT BUILD: installs a build into a folder of its own and looks at the search
paths for libraries of what lies there."""

import pathlib
import subprocess
import sys
import tempfile

script, build = sys.argv[1:]
with tempfile.TemporaryDirectory() as prefix:
    subprocess.run(["cmake", "--install", build, "--prefix", prefix], check=True,
                   stdout=subprocess.DEVNULL)
    installed = [path for path in pathlib.Path(prefix).rglob("*")
                 if path.is_file() and path.read_bytes()[:4] == b"\x7fELF"]
    assert {path.name for path in installed} == {"orvelle", "liborvelle-camera.so"}, installed
    subprocess.run([script, "--paths", *installed], check=True)

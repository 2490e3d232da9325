"""check_release.py SCRIPT SOURCE FOLDER COMPILER: builds the sample with the flags of release builds and
looks at it with scripts/hardening."""

import pathlib
import subprocess
import sys

script, source, folder, compiler = sys.argv[1:]
subprocess.run(["cmake", "-S", source, "-B", folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                f"-DCMAKE_CXX_COMPILER={compiler}"], check=True, stdout=subprocess.DEVNULL)
subprocess.run(["cmake", "--build", folder], check=True)
samples = [str(pathlib.Path(folder) / name)
           for name in ("sample", "sample_of_views", "libsample_library.so")]
subprocess.run([script, *samples], check=True)
for sample in samples:
    symbols = subprocess.run(["readelf", "-sW", "--dyn-syms", sample], check=True, text=True,
                             capture_output=True).stdout
    if "__memcpy_chk" not in symbols:
        sys.exit(f"{sample}: a size known at run time is not checked (_FORTIFY_SOURCE=3)")

"""check_includes.py SRC: every include of every file against the layers.

Each layer lists the project folders that it may include, and whether system and toolkit headers are
allowed. The first layer whose pattern fits a file is the file's layer.
"""

import pathlib
import re
import sys

FOUNDATION = r"Foundation/"
PORTS = r"Platform/\w+\.h$"
ADAPTERS = r"Platform/(Qt|Linux|Icu|Ical)/"
CORE = r"(App/Constants\.h|(Core|Extensions|Features|Models|Plugins|Protocols|Settings|Views)/(?!Qt/)(?!.*Binding\.h))"
VIEWS = r"(Views/Qt/|(Features/\w+|Settings|Views)/\w+Binding\.h|Platform/Qt/QuickPanel\.h)"

STANDARD = (
    "algorithm any array atomic bit cctype cerrno charconv chrono cinttypes climits clocale cmath compare "
    "concepts condition_variable cstdarg cstddef cstdint cstdio cstdlib cstring ctime deque "
    "exception fstream functional future initializer_list iomanip iostream istream iterator limits list "
    "map memory mutex new numbers numeric optional ostream queue random ranges ratio regex set "
    "span sstream stack stdexcept stop_token streambuf string string_view system_error thread tuple "
    "type_traits typeindex unordered_map unordered_set utility variant vector version"
).split()
STANDARD_ONLY = "|".join(f"^{name}$" for name in STANDARD)
ANYTHING = r"."

# (name, files, project headers, system headers)
LAYERS = [
    ("foundation's public headers", r"^Foundation/.*\.h$", [FOUNDATION], STANDARD_ONLY),
    ("foundation", r"^Foundation/.*\.cpp$", [FOUNDATION], ANYTHING),
    ("ports", r"^Platform/\w+\.(h|cpp)$", [FOUNDATION, PORTS], STANDARD_ONLY),
    ("simulated platform", r"^Platform/Simulated/", [FOUNDATION, PORTS, r"Platform/(Simulated|Icu)/"], STANDARD_ONLY),
    ("calendar files", r"^Platform/Ical/", [FOUNDATION, PORTS, r"Platform/Ical/"], ANYTHING),
    ("camera library", r"^Platform/Camera/", [FOUNDATION, PORTS, r"Platform/Camera/"], ANYTHING),
    ("adapters", r"^Platform/(Qt|Linux|Icu)/", [FOUNDATION, PORTS, ADAPTERS], ANYTHING),
    ("views", r"^(Views/Qt/|(Features/\w+|Settings|Views)/\w+Binding\.)", [FOUNDATION, PORTS, CORE, VIEWS], ANYTHING),
    ("application core", r"^App/(AppDelegate|CommandLine|DefaultsCommand)\.",
     [FOUNDATION, PORTS, CORE, r"App/(AppDelegate|CommandLine|DefaultsCommand)\.h"], STANDARD_ONLY),
    ("core", r"^(App/Constants\.|(Core|Extensions|Features|Models|Plugins|Protocols|Settings|Views)/)",
     [FOUNDATION, PORTS, CORE], STANDARD_ONLY),
    ("composition root", r"^App/", [ANYTHING], ANYTHING),
]
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def layer_of(path):
    for layer in LAYERS:
        if re.match(layer[1], path):
            return layer
    return None


def complaints(root):
    files = sorted(p for p in root.rglob("*") if p.suffix in (".h", ".cpp"))
    if not files:
        yield f"{root}: no sources"
    for file in files:
        path = file.relative_to(root).as_posix()
        layer = layer_of(path)
        if not layer:
            yield f"{path}: belongs to no layer"
            continue
        name, _, project, system = layer
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            found = INCLUDE.match(line)
            if not found:
                continue
            kind, header = found.groups()
            allowed = project if kind == '"' else [system]
            if "../" in header or not any(re.match(rule, header) for rule in allowed):
                yield f"{path}:{number}: {name} may not include {header}"


def main():
    found = list(complaints(pathlib.Path(sys.argv[1])))
    if found:
        sys.exit("\n".join(found))


main()

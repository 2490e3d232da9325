"""Turns sources into ones that hold all their mutants, each selected at run time by its number.

Nothing is written twice and no line is added, so that a compiler's complaint about a line names the
mutants that do not compile. What the compiler must know (template arguments, cases, bounds, all of
a consteval function) and lines of the log below errors stay as they are; the order of a log line and
its neighbours does, too.
"""

import dataclasses
import pathlib
import re

import clang.cindex as cindex
from clang.cindex import CursorKind as K

cindex.Config.set_library_file("/usr/lib/llvm-19/lib/libclang-19.so.1")
ARGUMENTS = ["-std=c++20", "-resource-dir=/usr/lib/llvm-19/lib/clang/19", "-Wno-c++11-narrowing",
             "-ferror-limit=0", "-w"]

RELATIONS = {
    "<": ("less", ("<=", ">=")),
    "<=": ("lessOrEqual", ("<", ">")),
    ">": ("greater", (">=", "<=")),
    ">=": ("greaterOrEqual", (">", "<")),
    "==": ("equal", ("!=",)),
    "!=": ("unequal", ("==",)),
}
ARITHMETIC = {"+": ("plus", "-"), "-": ("minus", "+"), "*": ("times", "/"), "/": ("over", "*")}
NUMBERS = (K.INTEGER_LITERAL, K.FLOATING_LITERAL, K.CXX_BOOL_LITERAL_EXPR)
LOGGING = re.compile(r"\blog_?\.(debug|info)\(")
LOG_LINE = re.compile(r"log_?\.\w+\(")
# Room kept for what comes, and bytes that a message holds: nobody can tell the difference.
INDIFFERENT = re.compile(r"\.reserve\(|\.shrink_to_fit\(")
FUNCTIONS = (K.FUNCTION_DECL, K.CXX_METHOD, K.CONSTRUCTOR, K.CONVERSION_FUNCTION,
             K.FUNCTION_TEMPLATE)


@dataclasses.dataclass
class Mutant:
    file: str
    line: int
    text: str  # the whole line, stripped
    column: int  # in the stripped line
    old: str
    new: str
    key: str = ""


@dataclasses.dataclass
class Edit:
    """Replaces `length` characters at `offset`; of several at one place, closings stand first."""

    offset: int
    length: int
    text: str
    closes: bool
    order: int
    mutants: tuple


@dataclasses.dataclass
class Static:
    """A variable that is made once: who reads it reaches the mutants of its initialiser."""

    name: str
    file: str
    start: int
    end: int
    name_end: int
    constexpr_at: int  # of the keyword, or -1
    keyword: str  # what takes the keyword's place
    mutants: list = dataclasses.field(default_factory=list)
    reads: set = dataclasses.field(default_factory=set)  # other such variables


class Schemata:
    """Reads the given sources as one, as a unity build does."""

    def __init__(self, root, sources, wanted, first_id=0):
        self.root = str(root)
        self.wanted = wanted
        self.mutants = []
        self.edits = {}
        self.texts = {}
        self.statics = {}
        self.uses = []
        self.logging = {}
        self.macros = set()
        self.order = 0
        self.static = None  # the variable in whose initialiser the walk is
        self.seen = set()
        unity = "".join(f'#include "{source}"\n' for source in sources)
        self.unit = cindex.Index.create().parse(
            "unity.cpp", args=[*ARGUMENTS, f"-I{self.root}/src"],
            unsaved_files=[("unity.cpp", unity)],
            options=cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
        errors = [d for d in self.unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
        if errors:
            raise SystemExit("\n".join(map(str, errors[:10])))
        tops = [c for c in self.unit.cursor.get_children() if self.file_of(c)]
        for cursor in tops:
            if cursor.kind == K.MACRO_INSTANTIATION:
                self.macros.add((self.file_of(cursor), cursor.extent.start.offset))
        for cursor in tops:
            if not cursor.kind.is_preprocessing():
                self.visit(cursor, [], None)
        self.add_touches()
        self.name_mutants()
        self.unit = None  # a gigabyte

    # --- places

    def file_of(self, cursor):
        file = cursor.location.file
        if not file:
            return None
        name = str(pathlib.Path(file.name).resolve())
        if not name.startswith(self.root + "/src/"):
            return None
        return name[len(self.root) + 1:]

    def text(self, file):
        if file not in self.texts:
            self.texts[file] = pathlib.Path(self.root, file).read_bytes()
            self.logging[file] = [(m.start(), self.end_of_call(file, m.end() - 1))
                                  for m in re.finditer(LOGGING.pattern.encode(), self.texts[file])]
        return self.texts[file]

    def end_of_call(self, file, opening):
        depth, text = 0, self.texts[file]
        for at in range(opening, len(text)):
            depth += {40: 1, 41: -1}.get(text[at], 0)
            if depth == 0:
                return at
        return len(text)

    def source(self, file, start, end):
        return self.text(file)[start:end].decode()

    def span(self, cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def is_log(self, file, offset):
        self.text(file)
        return any(start <= offset <= end for start, end in self.logging[file])

    # --- making

    def mutant(self, file, offset, old, new):
        text = self.text(file)
        begin = text.rfind(b"\n", 0, offset) + 1
        end = text.find(b"\n", offset)
        line = text[begin:end].decode()
        indent = len(line) - len(line.lstrip())
        self.mutants.append(Mutant(file, text.count(b"\n", 0, offset) + 1, line.strip(),
                                   offset - begin - indent, old, new))
        if self.static is not None:
            self.statics[self.static].mutants.append(len(self.mutants) - 1)
        return len(self.mutants) - 1

    def edit(self, file, offset, length, text, closes, mutants):
        self.order += 1
        self.edits.setdefault(file, []).append(
            Edit(offset, length, text, closes, self.order, tuple(mutants)))

    def wrap(self, file, start, end, opening, closing, mutants):
        self.edit(file, start, 0, opening, False, mutants)
        self.edit(file, end, 0, closing, True, mutants)

    def between(self, file, first, second):
        start, end = first[1], second[0]
        return self.source(file, start, end) if start <= end else ""

    def name_mutants(self):
        counts = {}
        for mutant in self.mutants:
            base = "|".join((mutant.file, mutant.text, str(mutant.column), mutant.old, mutant.new))
            counts[base] = counts.get(base, 0) + 1
            mutant.key = f"{base}|{counts[base]}"

    # --- walking

    def visit(self, cursor, parents, static):
        kind = cursor.kind
        if kind in (K.STATIC_ASSERT, K.ENUM_DECL) or kind.is_attribute():
            return
        file = self.file_of(cursor)
        if file is None or (file, cursor.extent.start.offset) in self.macros:
            return
        if kind == K.CXX_METHOD and cursor.is_default_method():
            return
        if kind in FUNCTIONS and self.is_consteval(cursor, file):
            return
        if kind == K.VAR_DECL:
            static = self.static_of(cursor, file, parents) or static
        outer, self.static = self.static, static
        wanted = file in self.wanted and not self.is_log(file, cursor.extent.start.offset)
        kids = [k for k in cursor.get_children()]
        if wanted:
            self.consider(cursor, kids, parents, static, file)
        if kind == K.DECL_REF_EXPR:
            self.note_use(cursor, file, static, parents)
        skip_first = kind == K.CASE_STMT
        for index, kid in enumerate(kids):
            if not (skip_first and index == 0):
                self.visit(kid, [*parents, cursor], static)
        self.static = outer

    def is_consteval(self, cursor, file):
        """What runs in the compiler alone; no test can reach it."""
        return "consteval" in self.source(file, cursor.extent.start.offset, cursor.location.offset)

    def static_of(self, cursor, file, parents):
        start, end = self.span(cursor)
        name_end = cursor.location.offset + len(cursor.spelling)
        head = self.source(file, start, cursor.location.offset)
        at = head.find("constexpr")
        scope = cursor.semantic_parent.kind
        is_local = any(p.kind in (K.COMPOUND_STMT, K.LAMBDA_EXPR) for p in parents)
        is_static = not is_local or cursor.storage_class == cindex.StorageClass.STATIC
        if end == name_end or (at < 0 and not is_static):
            return None
        if is_local:
            keyword = "const" if "static" in head else "static const"
        elif scope in (K.CLASS_DECL, K.STRUCT_DECL) and "inline" not in head:
            keyword = "inline const"
        else:
            keyword = "const"
        if re.search(r"\bconst\b", head):
            keyword = keyword.replace("const", "").strip()
        identity = (file, cursor.location.offset)
        self.statics[identity] = Static(cursor.spelling, file, start, end, name_end,
                                        start + at if at >= 0 else -1, keyword)
        return identity

    def note_use(self, cursor, file, static, parents):
        target = cursor.referenced
        if target is None or target.kind != K.VAR_DECL:
            return
        target_file = self.file_of(target)
        if target_file:
            self.uses.append(((target_file, target.location.offset), file, self.span(cursor), static,
                              self.is_constexpr(file, parents)))

    def consider(self, cursor, kids, parents, static, file):
        kind = cursor.kind
        if kind in NUMBERS:
            self.number(cursor, parents, static, file)
        elif kind.is_expression():
            if self.operator(cursor, kids, file):
                pass
            elif kind == K.UNARY_OPERATOR and kids:
                self.negation(cursor, kids, file)
        if kind == K.COMPOUND_STMT:
            self.row(kids, file)
        if kind in (K.COMPOUND_STMT, K.CASE_STMT, K.DEFAULT_STMT):
            for kid in kids[1 if kind == K.CASE_STMT else 0:]:
                self.deletion(kid, file)
        elif kind in (K.IF_STMT, K.WHILE_STMT):
            condition = self.condition(cursor, kids, file)
            if condition:
                self.negate(condition, file)
            for kid in kids:
                if kid is not condition and kid.extent.start.offset >= self.body_start(cursor, file):
                    self.deletion(kid, file)
        elif kind in (K.FOR_STMT, K.CXX_FOR_RANGE_STMT) and kids:
            self.deletion(kids[-1], file)
        elif kind == K.CONDITIONAL_OPERATOR and kids:
            self.negate(kids[0], file)
        elif kind == K.RETURN_STMT and kids:
            if kids[0].type.get_canonical().kind == cindex.TypeKind.BOOL:
                self.negate(kids[0], file)

    # --- expressions

    def number(self, cursor, parents, static, file):
        start, end = self.span(cursor)
        old = self.source(file, start, end)
        if not re.fullmatch(r"true|false|[\d.'xXa-fA-FeE+-]+[uUlLfF]*", old):
            return
        parent = next((p for p in reversed(parents) if p.kind != K.UNEXPOSED_EXPR), None)
        if parent is not None:
            if parent.kind in (K.DECL_REF_EXPR, K.MEMBER_REF_EXPR, K.TYPE_REF, K.TEMPLATE_REF,
                               K.CLASS_TEMPLATE, K.FUNCTION_TEMPLATE, K.TEMPLATE_NON_TYPE_PARAMETER):
                return
            if parent.kind in (K.VAR_DECL, K.FIELD_DECL, K.PARM_DECL, K.FUNCTION_DECL, K.CXX_METHOD):
                if start < parent.location.offset:
                    return
                if self.source(file, 0, start).rstrip().endswith("["):
                    return
                if parent.kind == K.FIELD_DECL and parent.is_bitfield():
                    return
        if old in ("true", "false"):
            new = {"true": "false", "false": "true"}[old]
        elif cursor.kind == K.FLOATING_LITERAL:
            value = float(old.rstrip("fFlL"))
            new = f"{value * 1.1:g}" if 0 < value < 2 else f"{value + 1:g}"
        else:
            new = str(int(old.rstrip("uUlL").replace("'", ""), 0) + 1)
        id = self.mutant(file, start, old, new)
        is_default = parent is not None and parent.kind in (K.FIELD_DECL, K.PARM_DECL)
        name = "number" if is_default or self.is_constexpr(file, parents) else "once"
        self.wrap(file, start, end, f"M_::{name}({id}, ", ")", (id,))

    def is_constexpr(self, file, parents):
        """Whether the compiler may have to compute what stands here."""
        for parent in reversed(parents):
            if parent.kind in FUNCTIONS:
                head = self.source(file, parent.extent.start.offset, parent.location.offset)
                return bool(re.search(r"\bconst(expr|eval)\b", head))
        return False

    def operator(self, cursor, kids, file):
        start, end = self.span(cursor)
        spans = [self.span(k) for k in kids if k.kind.is_expression() or k.kind == K.LAMBDA_EXPR]
        left = next((s for s in spans if s[0] == start and s[1] < end), None)
        right = next((s for s in spans if s[1] == end and s[0] > start), None)
        if not left or not right or left[1] > right[0]:
            return False
        gap = self.between(file, left, right)
        op = gap.strip()
        at = left[1] + gap.find(op) if op else left[1]
        if (file, at) in self.seen:
            return op in RELATIONS or op in ("&&", "||")
        if op in RELATIONS:
            self.seen.add((file, at))
            name, others = RELATIONS[op]
            ids = [self.mutant(file, at, op, other) for other in others]
            self.edit(file, start, 0, f"M_::{name}({ids[0]}, ", False, ids)
            self.edit(file, at, len(op), ",", False, ids)
            self.edit(file, end, 0, ")", True, ids)
            return True
        if op in ("&&", "||"):
            self.seen.add((file, at))
            id = self.mutant(file, at, op, "||" if op == "&&" else "&&")
            self.edit(file, start, 0, f"M_::flip({id}, M_::side({id}, ", False, (id,))
            self.edit(file, left[1], 0, ")", True, (id,))
            self.edit(file, right[0], 0, f"M_::side({id}, ", False, (id,))
            self.edit(file, right[1], 0, "))", True, (id,))
            return True
        arithmetic = (cindex.TypeKind.DOUBLE, cindex.TypeKind.INT, cindex.TypeKind.LONG,
                      cindex.TypeKind.UINT, cindex.TypeKind.ULONG, cindex.TypeKind.FLOAT)
        if op in ARITHMETIC and cursor.kind == K.BINARY_OPERATOR \
                and all(k.type.get_canonical().kind in arithmetic for k in kids):
            self.seen.add((file, at))
            name, other = ARITHMETIC[op]
            id = self.mutant(file, at, op, other)
            self.edit(file, start, 0, f"M_::{name}({id}, ", False, (id,))
            self.edit(file, at, len(op), ",", False, (id,))
            self.edit(file, end, 0, ")", True, (id,))
        return False

    def negation(self, cursor, kids, file):
        start, end = self.span(cursor)
        if not self.is_negation(file, start) or (file, start) in self.seen:
            return
        self.seen.add((file, start))
        id = self.mutant(file, start, "!", "")
        self.edit(file, start, 1, f"M_::denied({id}, ", False, (id,))
        self.edit(file, end, 0, ")", True, (id,))

    def is_negation(self, file, start):
        """And not the `!=` that the compiler makes of an `operator==`."""
        return self.source(file, start, start + 1) == "!" \
            and self.source(file, start, start + 2) != "!="

    def negate(self, cursor, file):
        """A condition that no operator of its own turns round."""
        if not cursor.kind.is_expression() or self.is_operation(cursor, file):
            return
        start, end = self.span(cursor)
        if ("negate", file, start, end) in self.seen:
            return
        self.seen.add(("negate", file, start, end))
        old = " ".join(self.source(file, start, end).split())
        id = self.mutant(file, start, old, f"!({old})")
        self.wrap(file, start, end, f"M_::flip({id}, ", ")", (id,))

    def is_operation(self, cursor, file):
        """Whether an operator at its root has mutants of its own."""
        start, end = self.span(cursor)
        if cursor.kind in NUMBERS or self.is_negation(file, start):
            return True
        kids = list(cursor.get_children())
        if cursor.kind == K.PAREN_EXPR:
            return self.is_operation(kids[0], file)
        spans = [self.span(k) for k in kids]
        left = next((s for s in spans if s[0] == start and s[1] < end), None)
        right = next((s for s in spans if s[1] == end and s[0] > start), None)
        if left and right and self.between(file, left, right).strip() in (*RELATIONS, "&&", "||"):
            return True
        # What the compiler puts around an operation, or makes of a `!=`.
        inner = [k for kid in kids for k in (kid, *kid.get_children())
                 if self.span(k) == (start, end)]
        return len(kids) == 1 and any(self.is_operation(k, file) for k in inner)

    # --- statements

    def body_start(self, cursor, file):
        start, end = self.span(cursor)
        opening = self.source(file, start, end).find("(")
        return self.end_of_call(file, start + len(self.source(file, start, start + opening).encode()))

    def condition(self, cursor, kids, file):
        start, _ = self.span(cursor)
        if self.source(file, start, start + 14).startswith("if constexpr"):
            return None
        close = self.body_start(cursor, file)
        declared = [self.span(k) for k in kids if not k.kind.is_expression()]
        found = None
        for kid in kids:
            a, b = self.span(kid)
            if kid.kind.is_expression() and b <= close \
                    and not any(s <= a and b <= e for s, e in declared):
                found = kid
        return found

    def is_plain_statement(self, cursor, file):
        if not cursor.kind.is_expression():
            return False
        start, end = self.span(cursor)
        text = self.source(file, start, end)
        return not (self.is_log(file, start) or INDIFFERENT.search(text)
                    or (file, start) in self.macros)

    def deletion(self, cursor, file):
        start, end = self.span(cursor)
        if ("delete", file, start) in self.seen:
            return
        if cursor.kind == K.RETURN_STMT and not list(cursor.get_children()):
            self.seen.add(("delete", file, start))
            id = self.mutant(file, start, "return;", "")
            self.edit(file, start, 0, f"{{ if (!M_::on({id})) ", False, (id,))
            self.edit(file, self.semicolon(file, end), 0, " }", True, (id,))
            return
        if not self.is_plain_statement(cursor, file):
            return
        self.seen.add(("delete", file, start))
        old = " ".join(self.source(file, start, end).split())
        id = self.mutant(file, start, old + ";", "")
        self.wrap(file, start, end, f"M_::on({id}) ? void() : void(", ")", (id,))

    def semicolon(self, file, end):
        return self.text(file).index(b";", end) + 1

    def row(self, kids, file):
        """Neighbouring statements, each of which may change places with its next, a call at least."""
        row = []
        for kid in [*kids, None]:
            fits = kid is not None and self.is_plain_statement(kid, file)
            if fits and (not row or self.may_matter(row[-1], kid, file)):
                row.append(kid)
                continue
            if len(row) > 1:
                self.reorder(row, file)
            row = [kid] if fits else []

    def may_matter(self, first, second, file):
        """Two assignments: where somebody may look at the one object between them. A line of the log
        and what stands beside it: never, since nobody reads the log between them."""
        if any(LOG_LINE.match(self.source(file, *self.span(kid))) for kid in (first, second)):
            return False
        if not self.is_call(first) and not self.is_call(second):
            return False
        roots = [self.assigned(kid, file) for kid in (first, second)]
        return None in roots or (roots[0] == roots[1] and roots[0] != "")

    def assigned(self, cursor, file):
        """The object whose part an assignment changes; "" for a local one; None for other statements."""
        start, end = self.span(cursor)
        match = re.match(r"([\w()]+?)(?:\(\))?((?:\.|->)\w+)*\s*=[^=]", self.source(file, start, end))
        if not match:
            return None
        while True:
            kids = list(cursor.get_children())
            if not kids:
                break
            cursor = kids[0]
        local = cursor.kind == K.DECL_REF_EXPR and cursor.referenced is not None \
            and cursor.referenced.kind == K.VAR_DECL
        return "" if local else match.group(1)

    def is_call(self, cursor):
        """Of something of the program's own: what the library is asked for has no onlookers."""
        while cursor.kind == K.UNEXPOSED_EXPR:
            kids = list(cursor.get_children())
            if len(kids) != 1:
                return True
            cursor = kids[0]
        if cursor.kind != K.CALL_EXPR:
            return False
        callee = cursor.referenced
        return callee is None or callee.spelling == "operator()" or self.file_of(callee) is not None

    def reorder(self, row, file):
        ids = []
        for first, second in zip(row, row[1:]):
            old = " ".join(self.source(file, first.extent.start.offset,
                                       second.extent.end.offset).split())
            ids.append(self.mutant(file, first.extent.start.offset, old + ";", "the other way round"))
        for index, statement in enumerate(row):
            start, end = self.span(statement)
            opening = f"case {index}: "
            if index == 0:
                opening = (f"for (int m_ = 0; m_ < {len(row)}; ++m_) "
                           f"switch (M_::turn(m_, {len(row)}, {ids[0]})) {{ {opening}")
            self.edit(file, start, 0, opening, False, ids)
            closing = " break; }" if index == len(row) - 1 else " break;"
            self.edit(file, self.semicolon(file, end), 0, closing, True, ids)

    # --- variables that are made once

    def add_touches(self):
        for target, _, _, static, _ in self.uses:
            if static is not None and static != target and target in self.statics:
                self.statics[static].reads.add(target)
        changed = True
        while changed:
            changed = False
            for variable in self.statics.values():
                for other in variable.reads:
                    for id in self.statics[other].mutants:
                        if id not in variable.mutants:
                            variable.mutants.append(id)
                            changed = True
        for variable in self.statics.values():
            if variable.mutants and variable.constexpr_at >= 0:
                self.edit(variable.file, variable.constexpr_at, len("constexpr"), variable.keyword,
                          False, variable.mutants)
        for target, file, (start, end), _, is_constexpr in self.uses:
            variable = self.statics.get(target)
            if variable and variable.mutants and ("use", file, start) not in self.seen:
                self.seen.add(("use", file, start))
                ids = ", ".join(map(str, variable.mutants))
                touch = "touch" if is_constexpr else "touchNow"
                self.wrap(file, start, end, f"(M_::{touch}({ids}), ", ")", variable.mutants)

    # --- writing

    def apply(self, dropped):
        """The mutated text of each file, and per file and line the mutants that stand there."""
        texts, places = {}, {}
        for file, edits in self.edits.items():
            text = self.text(file)
            keep = [e for e in edits if self.survives(e, dropped)]
            # At one place inner closings stand before outer ones, and outer openings before inner.
            keep.sort(key=lambda e: (e.offset, not e.closes, -e.order if e.closes else e.order))
            out, at = [], 0
            for edit in keep:
                out.append(text[at:edit.offset])
                out.append(edit.text.encode())
                at = edit.offset + edit.length
                line = text.count(b"\n", 0, edit.offset) + 1
                places.setdefault((file, line), set()).update(edit.mutants)
            out.append(text[at:])
            texts[file] = b"".join(out)
        return texts, places

    def survives(self, edit, dropped):
        return not any(id in dropped for id in edit.mutants)

"""One-line faults that a C++ line can have, and where a line is found again after the file around it changed."""

import re

# Comments and texts. Numbers come first, for the marks between their digits.
NO_CODE = re.compile(r"""(?<!\w)\d[\w'.]*|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])*'"""
                     r"|//[^\n]*|/\*.*?\*/", re.DOTALL)
# What the compiler alone looks at; and lines of the call record, which only tests read.
NO_FAULT = re.compile(r"^\s*(#|static_assert|using\b|template\b|friend\b)|\bRecord\(|\) .*= (0|default|delete);$")
COMPARISON = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
NUMBER = re.compile(r"(?<![\w.])(0[xX][\da-fA-F]+|\d+(?:\.\d*)?(?:[eE][-+]?\d+)?)([uUlLzZfF]*)(?![\w.'])")
# A whole statement that declares nothing: there is no blank before its "=" or "(".
STATEMENT = re.compile(r"\s*((?:\*|\+\+|--)?\w(?:[\w.:]|->|\[[^][]*\]|\([^()]*\))*"
                       r"(?:\(.*\)| [-+*/%|&^]?= .*|\+\+|--)?;)$")
ATOM = r"([\w.:]+(?:->[\w.]+)*(?:\(\))?)"
ARGUMENTS = re.compile(rf"(?:[({{]|, ){ATOM}, {ATOM}(?=[,)}}])")


def other_numbers(digits, suffix):
    if digits[:2].lower() == "0x":
        return [f"0x{int(digits, 16) + 1:X}{suffix}"]
    value = float(digits) if re.search(r"[.eE]", digits) else int(digits)
    others = {value + 1} | ({value * 2 if isinstance(value, float) else value - 1} if value else set())
    return [f"{other}{suffix}" for other in sorted(others)]


def end_of_brackets(code, start):
    """Where the bracket that opens at `start` closes on this line; else None."""
    depth = 0
    for at in range(start, len(code)):
        depth += {"(": 1, ")": -1}.get(code[at], 0)
        if depth == 0:
            return at
    return None


def faults(line, code, after_statement):
    """(kind, start, end, replacement) of each fault a line can have. `code` is the line, blank where it is no code."""
    for match in re.finditer(r" (<=|>=|==|!=|<|>) ", code):
        yield "comparison", *match.span(1), COMPARISON[match[1]]
    for match in NUMBER.finditer(code):
        for other in other_numbers(*match.groups()):
            yield "constant", *match.span(), other
    for match in re.finditer(r"\b(true|false)\b", code):
        yield "constant", *match.span(), "false" if match[1] == "true" else "true"
    if after_statement and (match := STATEMENT.match(code)):
        yield "dropped", *match.span(1), ";"
    for match in ARGUMENTS.finditer(code):
        if match[1] != match[2]:
            yield "swapped", match.start(1), match.end(2), f"{match[2]}, {match[1]}"
    for match in re.finditer(r"\b(?:if|while) \(", code):
        end = end_of_brackets(code, match.end() - 1)
        if end and not re.search(r";| = ", code[match.end():end]):
            yield "inverted", match.end(), end, f"!({line[match.end():end]})"
    for match in re.finditer(r" (&&|\|\|) ", code):
        yield "inverted", *match.span(1), "||" if match[1] == "&&" else "&&"
    for match in re.finditer(r"!(?=[\w(*])", code):
        yield "inverted", *match.span(), ""


def blank(match):
    return match[0] if match[0][0].isdigit() else re.sub(r"[^\n]", " ", match[0])


def places(lines, text):
    return [index for index, line in enumerate(lines) if line.strip() == text]


def mutants_of(path, lines, rng):
    """One fault for each line that can have one."""
    before = ";"
    for index, code in enumerate(NO_CODE.sub(blank, "\n".join(lines)).split("\n")):
        code, line = code.rstrip(), lines[index]
        found = [] if NO_FAULT.search(code) else list(faults(line, code, before[-1] in ";{}:"))
        before = code or before
        if found:
            kind = rng.choice(sorted({fault[0] for fault in found}))  # otherwise numbers would crowd out all else
            _, start, end, new = rng.choice([fault for fault in found if fault[0] == kind])
            same = places(lines, line.strip())
            yield {"file": path, "text": line.strip(), "nth": same.index(index), "of": len(same), "kind": kind,
                   "by": (line[:start] + new + line[end:]).strip()}


def find(mutant, tree):
    """Where the mutant's line is now in the tree, by path the lines; None where that cannot be told."""
    there = places(tree.get(mutant["file"], ()), mutant["text"])
    if len(there) == mutant["of"]:
        return mutant["file"], there[mutant["nth"]]
    anywhere = [(path, index) for path, lines in tree.items() for index in places(lines, mutant["text"])]
    return anywhere[0] if not there and len(anywhere) == 1 else None

#!/usr/bin/env python3
"""Reads every #include and every CMakeLists.txt below src/ and reports what does not agree with the
picture of the layers (docs/architecture.md). Usage: check_layers.py SRC; exit code 1 with findings."""

import re
import sys
from pathlib import Path

# The picture: what each folder may include beside itself.
BELOW_BEHAVIOUR = {"base", "platform", "resources", "state", "document"}
BEHAVIOURS = {"view", "navigation", "collapse", "corrections", "search"}
CORE = BELOW_BEHAVIOUR | BEHAVIOURS | {"control"}
PICTURE = {
    "base": set(),
    "platform": {"base"},
    "resources": {"base"},
    "state": {"base", "platform", "resources"},
    "document": {"base", "platform", "resources", "state"},
    **{behaviour: BELOW_BEHAVIOUR for behaviour in BEHAVIOURS},
    "control": BELOW_BEHAVIOUR | BEHAVIOURS,
    "headless": CORE,
    "adapters": {"base", "platform"},
    "journal_tool": BELOW_BEHAVIOUR | {"corrections", "adapters"},
    "qt": CORE | {"adapters"},
    "viewer": CORE | {"adapters", "qt"},
    "designer": {"qt"},
}
# Libraries beyond the standard one, by the look of their headers, and the folders that may use them.
LIBRARIES = {
    "Qt": (re.compile(r"Q\w+(\.h)?|q[a-z]+\w*\.h|Qt\w*/.*"), {"qt", "viewer", "designer"}),
    "pugixml": (re.compile(r"pugixml\.hpp"), {"adapters"}),
    "Google Test": (re.compile(r"g(test|mock)/.*"), set()),
}

LONGEST_HEADER = 150
LONGEST_SOURCE = 400
# Files that may be longer, each with the reason why: {"folder/file.cpp": (lines, "reason")}.
LONGER = {"control/quorvale_box.h": (200, "33 members, each told in full")}

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]*)"|<([^>]*)>)', re.MULTILINE)
GENERATED = re.compile(r"(moc_\w+\.cpp|\w+\.moc|ui_\w+\.h)$")
# Made by CMake for each library that is installed; the folder in front is one of that library.
GENERATED_IN = re.compile(r"(base|headless|qt)/export\.h")
# Programs and plugins: what is in them is nobody's library.
ENDS = {"viewer", "designer", "journal_tool"}
FOLDER_CALL = re.compile(r"quorvale_folder\s*\(([^)]*)\)")


def without_comments(text):
    """The text with // and /* */ comments blanked, its line breaks kept, strings respected."""
    pattern = re.compile(r'"(?:\\.|[^"\\\n])*"|//[^\n]*|/\*.*?\*/', re.DOTALL)
    return pattern.sub(
        lambda found: found[0] if found[0][0] == '"' else re.sub(r"[^\n]", " ", found[0]), text)


def code_files(src):
    return sorted(path for path in src.rglob("*") if path.suffix in {".h", ".cpp"})


def check_size(name, text):
    lines = text.count("\n")
    limit = LONGEST_HEADER if name.endswith(".h") else LONGEST_SOURCE
    limit = LONGER.get(name, (limit,))[0]
    if lines > limit:
        yield f"src/{name}: {lines} lines, {limit} are allowed"


def check_own_include(src, name, folder, include):
    if GENERATED.search(include):
        return
    target = include.split("/")[0]
    exists = (src / include).is_file() or GENERATED_IN.fullmatch(include)
    if "/" not in include or not exists:
        yield f'src/{name}: "{include}" is no file below src/ (write "folder/file.h")'
    elif target != folder and target not in PICTURE[folder]:
        yield f'src/{name}: "{include}" points up or sideways: {folder}/ may not include {target}/'


def check_library_include(name, folder, include):
    for library, (pattern, users) in LIBRARIES.items():
        if pattern.fullmatch(include) and folder not in users:
            where = " and ".join(sorted(f"{user}/" for user in users)) or "the tests"
            yield f"src/{name}: <{include}>: {library} stays in {where}"


def find_cycle(graph):
    """One circle of files that include one another, or None."""
    state = {}  # a file that is being visited: True; one that is done: False

    def visit(node, path):
        state[node] = True
        for following in graph.get(node, ()):
            if state.get(following):
                return path[path.index(following):] + [following]
            if following not in state:
                circle = visit(following, path + [following])
                if circle:
                    return circle
        state[node] = False
        return None

    for start in sorted(graph):
        if start not in state:
            circle = visit(start, [start])
            if circle:
                return circle
    return None


def check_code(src):
    """Findings in the sources, and which folders each folder includes."""
    findings, graph, included = [], {}, {}
    for path in code_files(src):
        name = path.relative_to(src).as_posix()
        folder = name.split("/")[0]
        if folder not in PICTURE:
            findings.append(f"src/{name}: the folder {folder} is not in the picture")
            continue
        text = path.read_text(encoding="utf-8")
        findings += check_size(name, text)
        for own, library in INCLUDE.findall(without_comments(text)):
            if own:
                findings += check_own_include(src, name, folder, own)
                graph.setdefault(name, []).append(own)
                included.setdefault(folder, set()).add(own.split("/")[0])
            # A library's header stays one, with quotation marks too.
            findings += check_library_include(name, folder, own or library)
    circle = find_cycle(graph)
    if circle:
        findings.append("files include one another in a circle: " + " -> ".join(circle))
    return findings, included


def read_uses(src):
    """What every CMakeLists.txt says: {folder: set of the folders after USES}."""
    uses = {}
    for path in sorted(src.glob("*/CMakeLists.txt")):
        text = re.sub(r"#[^\n]*", "", path.read_text(encoding="utf-8"))
        for call in FOLDER_CALL.findall(text):
            words = call.split()
            after = words.index("USES") + 1 if "USES" in words else len(words)
            named = []
            for word in words[after:]:
                if word == "SOURCES":
                    break
                named.append(word)
            uses[words[0]] = set(named)
    return uses


def reachable(uses, folder):
    seen, waiting = set(), [folder]
    while waiting:
        for used in uses.get(waiting.pop(), ()):
            if used not in seen:
                seen.add(used)
                waiting.append(used)
    return seen


def check_targets(src, included):
    findings = []
    uses = read_uses(src)
    for folder in sorted(path.name for path in src.iterdir() if path.is_dir()):
        if folder not in PICTURE:
            findings.append(f"src/{folder}: the folder is not in the picture")
            continue
        linked = reachable(uses, folder)
        for used in sorted(uses.get(folder, set()) - PICTURE[folder]):
            findings.append(f"src/{folder}/CMakeLists.txt: USES {used}, which is not below it")
        if folder not in uses:
            if list((src / folder).glob("*.cpp")) and folder not in ENDS:
                findings.append(f"src/{folder}: no quorvale_folder({folder} ...) builds it")
            continue
        for target in sorted(included.get(folder, set()) & set(PICTURE) - linked - {folder}):
            findings.append(f"src/{folder}/CMakeLists.txt: includes {target}/ and does not USE it")
    return findings


def check_listed(src):
    """Every source is named in the CMakeLists.txt beside it, so that none is forgotten."""
    for path in sorted(src.glob("*/*.cpp")):
        listing = path.with_name("CMakeLists.txt")
        words = listing.read_text(encoding="utf-8") if listing.is_file() else ""
        if listing.is_file() and not re.search(rf"(?<![\w/.]){re.escape(path.name)}(?!\w)", words):
            yield f"src/{path.parent.name}/CMakeLists.txt: does not name {path.name}"


def check(src):
    src = Path(src)
    findings, included = check_code(src)
    return findings + check_targets(src, included) + list(check_listed(src))


def main(arguments):
    if len(arguments) != 2 or not Path(arguments[1]).is_dir():
        print(__doc__, file=sys.stderr)
        return 2
    files = len(code_files(Path(arguments[1])))
    if files == 0:
        print(f"{arguments[1]}: no sources found", file=sys.stderr)
        return 2
    findings = check(arguments[1])
    for finding in findings:
        print(finding)
    print(f"{files} files, {len(findings)} findings")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))

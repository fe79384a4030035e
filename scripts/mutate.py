#!/usr/bin/env python3
"""Breaks the library in small ways and asks whether the tests notice.

Takes a sample of mutants with a fixed seed, compiles each into a library of its own, and runs the
tests of the group it belongs to against that library until one fails: those named after the file
first, then the quick ones before the slow ones. A mutant whose code is the same as before after the
compiler is done is equivalent and does not count.

    scripts/mutate.py [--mutants N] [--seed S] [--groups layout,view] [--jobs J]
                      [--only ID] [--list] [--json FILE]

Builds the preset "dev" first.
"""

import argparse
import collections
import concurrent.futures
import difflib
import functools
import hashlib
import json
import os
import pathlib
import queue
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "dev"
GROUPS = ["geometry", "figure", "layout", "view", "connection", "decoration", "shape"]
# Shapes draw the polylines, connections hold the decorations: their tests are one. What a figure
# hands on to layouts, shapes and the screen shows only there.
TESTS_OF = {
    "figure": ["figure", "layout", "shape", "view"],
    "decoration": ["decoration", "connection"],
    "connection": ["connection", "decoration"],
}
COST = collections.defaultdict(float)  # seconds each test program took without any mutant
TIMEOUT = 90  # seconds for one test program; the slowest needs a few

Mutant = collections.namedtuple("Mutant", "id group file line operator before after text")


# --- finding places -----------------------------------------------------------------------------

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>^[ \t]*\#(?:[^\n\\]|\\.|\\\n)*)
      | (?P<string>(?:u8|u|U|L)?"(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)+')
      | (?P<number>(?:0[xX][0-9a-fA-F]+|\d+\.?\d*(?:[eE][+-]?\d+)?|\.\d+)[fFuUlL]*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<op><<=|>>=|<=>|->\*|\.\.\.|::|->|\+\+|--|<=|>=|==|!=|&&|\|\||\+=|-=|\*=|/=|%=|&=|\|=|<<|>>|[-+*/%<>=!&|^~?:;,.(){}\[\]])
      | (?P<space>\s+)""",
    re.X | re.S | re.M,
)

Token = collections.namedtuple("Token", "kind text start end")


def tokens_of(source):
    found = []
    position = 0
    while position < len(source):
        match = TOKEN.match(source, position)
        if not match:
            position += 1
            continue
        if match.lastgroup not in ("comment", "directive", "space"):
            found.append(Token(match.lastgroup, match.group(), match.start(), match.end()))
        position = match.end()
    return found


def closing(tokens, index):
    """The index of the bracket that closes the one at \a index."""
    pairs = {"(": ")", "{": "}", "[": "]"}
    depth = 0
    opener, closer = tokens[index].text, pairs[tokens[index].text]
    for i in range(index, len(tokens)):
        if tokens[i].text == opener:
            depth += 1
        elif tokens[i].text == closer:
            depth -= 1
            if depth == 0:
                return i
    return None


def depth_is_code(tokens):
    """True for each token inside the body of a function: after a brace that follows a parenthesis."""
    inside, stack, result = 0, [], []
    for i, token in enumerate(tokens):
        if token.text == "{":
            previous = tokens[i - 1].text if i else ""
            body = inside > 0 or previous in (")", "const", "override", "noexcept", "else", "do")
            stack.append(body)
            inside += body
        elif token.text == "}" and stack:
            inside -= stack.pop()
        result.append(inside > 0)
    return result


def is_comparison(tokens, i):
    """Whether < or > compares: both sides stand apart, as clang-format leaves them."""
    return tokens[i].start > tokens[i - 1].end and tokens[i + 1].start > tokens[i].end


COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
EXCHANGES = {"+": "-", "-": "+", "&&": "||", "||": "&&", "+=": "-=", "-=": "+=", "*": "/", "/": "*"}


def edits_of(source):
    """(operator, start, end, replacement) of every mutant of \a source."""
    tokens = tokens_of(source)
    code = depth_is_code(tokens)
    for i, token in enumerate(tokens):
        if not code[i] or i == 0 or i + 1 >= len(tokens):
            continue
        yield from operator_edits(tokens, i)
        yield from constant_edits(tokens, i)
        yield from condition_edits(source, tokens, i)
        yield from argument_edits(source, tokens, i)
        yield from statement_edits(source, tokens, i)


def operator_edits(tokens, i):
    token = tokens[i]
    if token.text in COMPARISONS and is_comparison(tokens, i):
        yield "flip a comparison", token.start, token.end, COMPARISONS[token.text]
    elif token.text in EXCHANGES and is_comparison(tokens, i):
        yield "exchange an operator", token.start, token.end, EXCHANGES[token.text]
    elif token.text in ("+", "-", "*") and tokens[i - 1].text in ("(", ",", "=", "return", "?"):
        if token.text == "-":
            yield "drop a sign", token.start, token.end, ""


def constant_edits(tokens, i):
    token = tokens[i]
    if token.kind == "number":
        if re.fullmatch(r"\d+", token.text):
            yield "off by one", token.start, token.end, str(int(token.text) + 1)
            if int(token.text) > 1:
                yield "off by one", token.start, token.end, str(int(token.text) - 1)
        elif re.fullmatch(r"\d*\.\d+", token.text):
            yield "change a constant", token.start, token.end, repr(float(token.text) * 1.5 + 0.25)
    elif token.text in ("true", "false"):
        other = "false" if token.text == "true" else "true"
        yield "change a constant", token.start, token.end, other


def condition_edits(source, tokens, i):
    if tokens[i].text not in ("if", "while") or tokens[i + 1].text != "(":
        return
    end = closing(tokens, i + 1)
    if end is None:
        return
    inner = [t.text for t in tokens[i + 2 : end]]
    start, stop = tokens[i + 1].end, tokens[end].start
    declares = "=" in inner and ";" not in inner
    if not declares and ";" not in inner:
        yield "negate a condition", start, stop, "!(" + source[start:stop] + ")"


def argument_edits(source, tokens, i):
    if tokens[i].text != "(" or tokens[i - 1].kind != "word":
        return
    if tokens[i - 1].text in ("if", "for", "while", "switch", "return", "sizeof", "decltype"):
        return
    end = closing(tokens, i)
    if end is None or end == i + 1:
        return
    parts, depth, start = [], 0, tokens[i].end
    for token in tokens[i + 1 : end]:
        if token.text in "([{":
            depth += 1
        elif token.text in ")]}":
            depth -= 1
        elif token.text == "," and depth == 0:
            parts.append((start, token.start))
            start = token.end
    parts.append((start, tokens[end].start))
    for (a, b), (c, d) in zip(parts, parts[1:]):
        first, second = source[a:b].strip(), source[c:d].strip()
        if first and second and first != second:
            swapped = source[a:d].replace(source[a:b], "\0", 1)
            swapped = source[a:b].replace(first, second, 1) + source[b:c]
            swapped += source[c:d].replace(second, first, 1)
            yield "swap arguments", a, d, swapped


def statement_edits(source, tokens, i):
    """Drops one expression statement that stands alone."""
    if tokens[i - 1].text not in (";", "{", "}", ")", "else", ":"):
        return
    if tokens[i].kind != "word" or tokens[i].text in (
        "if", "for", "while", "switch", "do", "else", "case", "default", "using", "static",
        "const", "auto", "constexpr", "class", "struct", "enum", "template", "typename", "goto",
    ):
        return
    if tokens[i - 1].text == ")" and not control_before(tokens, i - 1):
        return
    if tokens[i - 1].text == ":" and not (i > 2 and "case" in [t.text for t in tokens[i - 4 : i]]):
        return
    end = i
    while end < len(tokens) and tokens[end].text != ";":
        if tokens[end].text in "({[":
            end = closing(tokens, end) or len(tokens)
        elif tokens[end].text in ")}]":
            return
        end += 1
    if end >= len(tokens):
        return
    texts = [t.text for t in tokens[i:end]]
    if texts[0] in ("return", "break", "continue"):
        if texts[0] == "return" and len(texts) > 1:
            return
    elif len(texts) > 1 and tokens[i + 1].kind == "word" and texts[0] not in ("Q_EMIT", "delete"):
        return  # a declaration
    elif len(texts) > 2 and texts[1] in ("*", "&", "<", "::") and not calls(texts):
        return
    yield "drop a statement", tokens[i].start, tokens[end].end, ";"


def calls(texts):
    return "(" in texts or "=" in texts


def control_before(tokens, index):
    """Whether the parenthesis closed at \a index belongs to if, for or while."""
    depth = 0
    for i in range(index, -1, -1):
        if tokens[i].text == ")":
            depth += 1
        elif tokens[i].text == "(":
            depth -= 1
            if depth == 0:
                return tokens[i - 1].text in ("if", "for", "while")
    return False


def all_mutants(groups):
    for group in groups:
        for path in sorted((ROOT / "src" / group).iterdir()):
            if path.suffix not in (".cpp", ".h"):
                continue
            source = path.read_text()
            for operator, start, end, text in edits_of(source):
                line = source.count("\n", 0, start) + 1
                before = source[start:end]
                whole = source[:start] + text + source[end:]
                key = f"{path.name}:{line}:{operator}:{before}->{text}:{start}"
                name = hashlib.sha1(key.encode()).hexdigest()[:8]
                yield Mutant(name, group, path, line, operator, before, text, whole)


def sample(groups, wanted, seed):
    """The same number of each group as far as it has so many, in an order fixed by the seed."""
    pools = {}
    for group in groups:
        pool = list(all_mutants([group]))
        random.Random(f"{seed} {group}").shuffle(pool)
        pools[group] = pool
    share = -(-wanted // len(groups))
    return pools, share


# --- building and running -----------------------------------------------------------------------


def run(command, **kwargs):
    return subprocess.run(command, capture_output=True, text=True, check=False, **kwargs)


def prepare():
    step = run(["cmake", "--preset", "dev"], cwd=ROOT)
    if step.returncode == 0:
        step = run(["cmake", "--build", str(BUILD), "-j", str(os.cpu_count())], cwd=ROOT)
    if step.returncode:
        sys.exit(step.stdout[-3000:] + step.stderr[-3000:])


def compile_commands():
    commands = {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        path = pathlib.Path(entry["file"])
        entry["output"] = re.search(r" -o (\S+)", entry["command"]).group(1)
        if path.is_relative_to(ROOT / "src") and entry["output"].startswith("src/CMakeFiles/figura."):
            commands[path] = entry
    return commands


def link_command():
    step = run(["ninja", "-t", "commands", "src/libfigura.so"], cwd=BUILD)
    lines = [l for l in step.stdout.splitlines() if "-shared" in l and "libfigura.so" in l]
    line = lines[-1]
    return line[line.index("&&") + 2 : line.rindex("&&")].strip()


def tests_by_group():
    found = json.loads(run(["ctest", "--show-only=json-v1"], cwd=BUILD).stdout)["tests"]
    groups = collections.defaultdict(list)
    for test in found:
        command = test.get("command")
        if not command:
            continue
        properties = {p["name"]: p["value"] for p in test.get("properties", [])}
        if "package" in properties.get("LABELS", []) or "slow" in properties.get("LABELS", []):
            continue
        groups[group_of(properties)].append((test["name"], command, properties))
    return groups


def group_of(properties):
    """The folder below tests that a test lies in, however deep."""
    folder = pathlib.Path(properties.get("WORKING_DIRECTORY", "."))
    within = folder.relative_to(BUILD / "tests") if folder.is_relative_to(BUILD / "tests") else folder
    return within.parts[0] if within.parts else ""


class Bench:
    """A copy of the sources and a library of its own, used by one mutant at a time."""

    def __init__(self, commands, link):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="figura-mutant-"))
        shutil.copytree(ROOT / "src", self.folder / "src")
        self.commands, self.link = commands, link
        self.library = self.folder / "lib"
        self.library.mkdir()

    def close(self):
        shutil.rmtree(self.folder)

    def sources_with(self, path):
        """The sources to compile when \a path changes: itself, or all that include the header."""
        if path.suffix == ".cpp":
            return [path]
        return [c for c in self.commands if str(path) in dependencies(self.commands[c]["output"])]

    def compile(self, path):
        entry = self.commands[path]
        words = entry["command"]
        words = words[words.index("/c++ ") + 5 :]
        copy = self.folder / path.relative_to(ROOT)
        target = self.folder / (path.stem + ".o")
        words = words.replace(str(path), str(copy)).replace(entry["output"], str(target))
        words = words.replace(f"-I{ROOT / 'src'} ", f"-I{self.folder / 'src'} ")
        words = re.sub(r" -Werror\S*", "", words)
        step = run("c++ " + words + " -w -Wno-invalid-pch", shell=True, cwd=entry["directory"])
        return target if step.returncode == 0 else None

    def same_code(self, path, target):
        plain = BUILD / self.commands[path]["output"]
        return code_of(plain) == code_of(target)

    def build(self, mutant):
        """"broken", "equivalent" or "built"."""
        copy = self.folder / mutant.file.relative_to(ROOT)
        copy.write_text(mutant.text)
        try:
            objects = {}
            for source in self.sources_with(mutant.file):
                target = self.compile(source)
                if target is None:
                    return "broken"
                objects[source] = target
            if all(self.same_code(s, t) for s, t in objects.items()):
                return "equivalent"
            return self.relink(objects)
        finally:
            copy.write_text(mutant.file.read_text())

    def relink(self, objects):
        line = self.link
        for source, target in objects.items():
            line = line.replace(self.commands[source]["output"], str(target))
        output = self.library / "libfigura.so.1"
        line = re.sub(r"-o \S*libfigura\.so\S*", f"-o {output}", line)
        step = run(line, shell=True, cwd=BUILD)
        return "built" if step.returncode == 0 else "broken"


@functools.cache
def dependencies(output):
    """The files that an object was compiled from, headers of headers included."""
    found = run(["ninja", "-t", "deps", output], cwd=BUILD).stdout.splitlines()[1:]
    return {str(pathlib.Path(BUILD / line.strip()).resolve()) for line in found if line.strip()}


def code_of(path):
    """What the compiler made, without what tells lines and names of files."""
    with tempfile.NamedTemporaryFile(suffix=".o") as out:
        subprocess.run(["objcopy", "--strip-debug", "--strip-unneeded", str(path), out.name],
                       check=True)
        # All sections: what is inline, a template or a lambda has one of its own.
        text = subprocess.run(["objdump", "-d", "-r", "-s", "--no-show-raw-insn", out.name],
                              capture_output=True, check=False)
    return text.stdout.split(b"\n", 3)[-1]


def ordered(tests, mutant):
    """Those that bear the name of the file first: they are the likeliest to notice. Then the cheap."""
    stem = re.sub(r"(_p)?$", "", mutant.file.stem.lower())
    stem = re.sub(r"^freeform|factory$", "", stem)
    return sorted(tests, key=lambda test: (stem not in test[0], COST[test[0]]))


def environment(properties, library):
    values = dict(os.environ)
    for pair in properties.get("ENVIRONMENT", []):
        name, _, value = pair.partition("=")
        values[name] = value
    values["LD_LIBRARY_PATH"] = str(library)
    return values


def fails(command, properties, library):
    # A session of its own: a mutant that hangs takes its children along.
    process = subprocess.Popen(
        command, cwd=properties.get("WORKING_DIRECTORY"), env=environment(properties, library),
        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
    )
    try:
        return process.wait(TIMEOUT) != 0
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.wait()
        return True


def judge(mutant, benches, tests):
    bench = benches.get()
    try:
        state = bench.build(mutant)
        if state != "built":
            return mutant, state, ""
        for folder in TESTS_OF.get(mutant.group, [mutant.group]):
            for name, command, properties in ordered(tests[folder], mutant):
                if fails(command, properties, bench.library):
                    return mutant, "killed", name
        return mutant, "survived", ""
    finally:
        benches.put(bench)


def check_tests_pass(tests, groups):
    folders = {f for g in groups for f in TESTS_OF.get(g, [g])}
    for folder in sorted(folders):
        for name, command, properties in list(tests[folder]):
            start = time.monotonic()
            failed = fails(command, properties, BUILD / "src")
            COST[name] = time.monotonic() - start
            if failed:
                print(f"{name} fails without any mutant: left out", file=sys.stderr)
                tests[folder].remove((name, command, properties))


# --- telling ------------------------------------------------------------------------------------


def show(mutant):
    old = mutant.file.read_text().splitlines()
    new = mutant.text.splitlines()
    lines = [l for l in difflib.unified_diff(old, new, n=0, lineterm="") if l[:1] in "+-"]
    return "\n".join("    " + l for l in lines if l[:3] not in ("+++", "---"))


def table(results):
    rows = collections.defaultdict(collections.Counter)
    for mutant, state, _ in results:
        rows[mutant.group][state] += 1
        rows["all"][state] += 1
    print(f"{'group':12} {'killed':>7} {'survived':>9} {'score':>7} {'equivalent':>11}")
    for group, counts in rows.items():
        tried = counts["killed"] + counts["survived"]
        score = 100 * counts["killed"] / tried if tried else 100
        print(f"{group:12} {counts['killed']:7} {counts['survived']:9} {score:6.1f}% "
              f"{counts['equivalent']:11}")


def run_group(pool, share, workers, benches, tests):
    """Judges mutants of \a pool until \a share of them could be tried."""
    results, tried, position = [], 0, 0
    while tried < share and position < len(pool):
        batch = pool[position : position + max(1, share - tried)]
        position += len(batch)
        for result in workers.map(lambda m: judge(m, benches, tests), batch):
            results.append(result)
            tried += result[1] in ("killed", "survived")
            mutant, state, by = result
            where = f"{mutant.file.relative_to(ROOT)}:{mutant.line}"
            print(f"{state:10} {mutant.id} {where} {mutant.operator} {by}", flush=True)
            if state == "survived":
                print(show(mutant), flush=True)
    return results


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--mutants", type=int, default=350)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--groups", default=",".join(GROUPS))
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--only", help="the mutants with these ids, separated by commas")
    parser.add_argument("--list", action="store_true", help="name the sample and stop")
    parser.add_argument("--json", help="write the results to this file")
    arguments = parser.parse_args()
    groups = arguments.groups.split(",")
    unknown = sorted(set(groups) - set(GROUPS))
    if unknown:
        parser.error(f"no such group: {', '.join(unknown)}")

    pools, share = sample(groups, arguments.mutants, arguments.seed)
    if arguments.only:
        ids = set(arguments.only.split(","))
        pools = {g: [m for m in pool if m.id in ids] for g, pool in pools.items()}
    if arguments.list:
        for pool in pools.values():
            for mutant in pool[:share]:
                print(mutant.id, mutant.file.relative_to(ROOT), mutant.line, mutant.operator)
                print(show(mutant))
        return 0

    prepare()
    commands, link, tests = compile_commands(), link_command(), tests_by_group()
    check_tests_pass(tests, groups)
    benches = queue.Queue()
    for _ in range(arguments.jobs):
        benches.put(Bench(commands, link))
    results = []
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as workers:
        for pool in pools.values():
            results += run_group(pool, share, workers, benches, tests)
    while not benches.empty():
        benches.get().close()
    table(results)
    if arguments.json:
        rows = [{"id": m.id, "file": str(m.file.relative_to(ROOT)), "line": m.line,
                 "operator": m.operator, "state": s, "by": b} for m, s, b in results]
        pathlib.Path(arguments.json).write_text(json.dumps(rows, indent=1) + "\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())

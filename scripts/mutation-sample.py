#!/usr/bin/env python3
"""Plants small faults in the portable code, one at a time, and says which of them no test catches.

  scripts/mutation-sample.py [--count 80] [--seed 1] [--build CMD] [--test CMD] [--timeout S] [FILE...]

Each fault (a "mutant") is one change on one line: a comparison turned round, an operator swapped,
a constant moved by one, a condition negated, true and false swapped, a statement dropped. For each,
the native build is rebuilt and the native tests run: a failing (or overlong) test run has "killed"
the mutant, a passing one let it "survive". A mutant that does not compile is not counted. Survivors
are printed as file:line: what changed, then "N killed, M survived (score S%)".

A survivor is a fault no test sees, or a change that makes no difference (read it before writing a
test for it). The sources default to those CMake compiles into regvane_core for the native build
(read from build/native/compile_commands.json); the same seed and sources give the same mutants.
It takes many minutes (a rebuild and a test run per mutant). Sources are put back after every
mutant and when interrupted; only a hard kill (-9) can leave one changed: "git diff" shows it.
"""
import argparse
import json
import os
import random
import re
import signal
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD_DIR = "build/native"

# Binary operators are matched only with a blank either side, as our code is formatted: that keeps
# template brackets, pointers, references and unary minus out of reach.
SWAPS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&",
         "+": "-", "-": "+", "*": "/", "/": "*", "&": "|", "|": "&", "<<": ">>", ">>": "<<",
         "+=": "-=", "-=": "+=", "|=": "&=", "&=": "|="}
SWAP_AT = re.compile(r"(?<= )(%s)(?= )" % "|".join(map(re.escape, sorted(SWAPS, key=len, reverse=True))))
# Integer literals only (decimal or hex, with their suffix); floats and digits inside names stay.
NUMBER = re.compile(r"(?<![\w.])(0[xX][0-9a-fA-F]+|\d+)([uUlL]*)(?![\w.])")
BOOL = re.compile(r"\b(true|false)\b")
CONDITION = re.compile(r"\b(?:if|while) \(")
# A statement worth dropping: an assignment to a plain lvalue, or a call whose result is unused.
# Declarations ("int x = 1;", "Foo f(1);") have a blank after the type and do not match.
ASSIGNMENT = re.compile(r"^[\w.\[\]>*-]+ (?:[-+*/|&^]|<<|>>)?= ")
CALL = re.compile(r"^[\w:.>-]+\(.*\);$")
# Comments and string or character literals, found in one pass so that each hides the others.
NOT_CODE = re.compile(r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\"|'(?:\\.|[^'\\\n])*'", re.S)


def code_lines(text):
    """The file's lines with comments and literals blanked, columns kept: faults go into code only."""
    return NOT_CODE.sub(lambda m: re.sub(r"[^\n]", " ", m.group(0)), text).split("\n")


def closing_paren(code, start):
    depth = 0
    for i in range(start, len(code)):
        depth += {"(": 1, ")": -1}.get(code[i], 0)
        if depth == 0:
            return i
    return None  # the condition goes on to the next line: left alone


def mutants(path, text):
    """Every mutant of one file as (path, line index, what changed, new line), in file order."""
    found, previous = [], ";"
    for n, (line, code) in enumerate(zip(text.split("\n"), code_lines(text))):
        code = code.rstrip()
        stripped = code.strip()
        if not stripped or stripped.startswith(("#", "static_assert")):
            continue
        for m in SWAP_AT.finditer(code):
            old, new = m.group(1), SWAPS[m.group(1)]
            found.append((path, n, f"{old} to {new}", line[:m.start()] + new + line[m.end():]))
        for m in NUMBER.finditer(code):
            digits = m.group(1)
            if digits[:2].lower() == "0x":
                hexdigits = format(int(digits, 16) + 1, "X" if digits[2:].isupper() else "x")
                moved = digits[:2] + hexdigits.zfill(len(digits) - 2)
            else:
                moved = str(int(digits) + 1)
            found.append((path, n, f"{digits} to {moved}",
                          line[:m.start()] + moved + line[m.end(1):]))
        for m in BOOL.finditer(code):
            new = "false" if m.group(1) == "true" else "true"
            found.append((path, n, f"{m.group(1)} to {new}", line[:m.start()] + new + line[m.end():]))
        for m in CONDITION.finditer(code):
            close = closing_paren(code, m.end() - 1)
            if close is not None:
                found.append((path, n, "condition negated",
                              line[:m.end()] + "!(" + line[m.end():close] + ")" + line[close:]))
        # Only a whole statement on its own line, after another statement or a brace: never the
        # tail of a longer statement nor the lone body of an if without braces.
        if (stripped.endswith(";") and previous[-1] in ";{}:" and stripped.count("(") == stripped.count(")")
                and (ASSIGNMENT.match(stripped) or CALL.match(stripped))
                and not stripped.startswith(("return", "delete", "throw"))):
            found.append((path, n, f"dropped {line[:len(code)].strip()}", line[:len(line) - len(line.lstrip())]))
        previous = stripped
    return found


def run(command, timeout):
    """Exit status of a shell command, its output, and whether it overran; the whole process group
    is killed on a timeout or an interruption, so no test program outlives the run."""
    proc = subprocess.Popen(command, shell=True, cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            start_new_session=True)
    try:
        out, _ = proc.communicate(timeout=timeout)
        return proc.returncode, out.decode(errors="replace"), False
    except BaseException as e:
        os.killpg(proc.pid, signal.SIGKILL)
        proc.wait()
        if isinstance(e, subprocess.TimeoutExpired):
            return None, "", True
        raise


def core_sources():
    """The portable sources: what CMake compiles into regvane_core for the native build."""
    with open(os.path.join(ROOT, BUILD_DIR, "compile_commands.json")) as f:
        entries = json.load(f)
    # Sources the build generates (the compiled-in English file) are data, not code to test.
    files = {os.path.relpath(os.path.join(e["directory"], e["file"]), ROOT) for e in entries
             if "CMakeFiles/regvane_core.dir/" in e.get("command", " ".join(e.get("arguments", [])))}
    files = {f for f in files if not f.startswith(BUILD_DIR + os.sep)}
    if not files:
        sys.exit(f"mutation-sample: no regvane_core source in {BUILD_DIR}/compile_commands.json")
    return sorted(files)


def ensure_passes(step, command, timeout):
    status, out, overran = run(command, timeout)
    if status != 0:
        tail = "\n".join(out.splitlines()[-40:])
        sys.exit(f"{tail}\nmutation-sample: '{command}' {'overran' if overran else 'failed'} on the unchanged "
                 f"sources, so no mutant could be judged: {step} first")


def interrupted(signum, frame):
    raise KeyboardInterrupt  # so the sources are put back by the finally below


def main():
    ap = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    ap.add_argument("--count", type=int, default=80, help="mutants to judge (compiling ones); default 80")
    ap.add_argument("--seed", type=int, default=1, help="which sample of mutants; default 1")
    ap.add_argument("--build", default=f"cmake --build {BUILD_DIR} -j2", help="command that rebuilds the tests")
    ap.add_argument("--test", default=f"ctest --test-dir {BUILD_DIR} -j2 --timeout 60",
                    help="command that runs the tests; a non-zero exit kills the mutant")
    ap.add_argument("--timeout", type=int, default=300, help="seconds for one test run; overrunning kills the mutant")
    ap.add_argument("files", nargs="*", help="sources to mutate; default the regvane_core ones")
    args = ap.parse_args()
    files = sorted({os.path.relpath(os.path.abspath(f), ROOT) for f in args.files})

    for signum in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(signum, interrupted)
    if not os.path.isdir(os.path.join(ROOT, BUILD_DIR)):
        ensure_passes("fix the configuration", "cmake --preset native", 600)
    ensure_passes("fix the build", args.build, 3600)
    ensure_passes("fix the tests", args.test, args.timeout)

    originals = {}
    candidates = []
    for path in files or core_sources():
        with open(os.path.join(ROOT, path), encoding="utf-8", errors="surrogateescape", newline="") as f:
            originals[path] = f.read()
        candidates += mutants(path, originals[path])
    random.Random(args.seed).shuffle(candidates)

    def write(path, text):
        with open(os.path.join(ROOT, path), "w", encoding="utf-8", errors="surrogateescape", newline="") as f:
            f.write(text)

    killed = survived = uncompiled = 0
    start = time.time()
    try:
        for path, n, what, new_line in candidates:
            if killed + survived >= args.count:
                break
            lines = originals[path].split("\n")
            lines[n] = new_line
            write(path, "\n".join(lines))
            try:
                # The build's own timeout is generous: a compiler stuck on a mutant is not a test's catch.
                if run(args.build, 3600)[0] != 0:
                    uncompiled += 1
                    verdict = "does not compile"
                else:
                    status, _, overran = run(args.test, args.timeout)
                    if status != 0 or overran:
                        killed += 1
                        verdict = "killed"
                    else:
                        survived += 1
                        verdict = "SURVIVED"
                        shown = "" if what.startswith("dropped") else f": {new_line.strip()}"
                        print(f"{path}:{n + 1}: {what}{shown}", flush=True)
            finally:
                write(path, originals[path])
            print(f"[{killed + survived}/{args.count}] {verdict}: {path}:{n + 1}: {what}", file=sys.stderr, flush=True)
    except KeyboardInterrupt:
        print("mutation-sample: interrupted; the sources are put back, the build is not rebuilt", file=sys.stderr)
        raise SystemExit(130)
    finally:
        # A second Ctrl-C or kill must not stop the sources being put back.
        for signum in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            signal.signal(signum, signal.SIG_IGN)
        for path, text in originals.items():
            write(path, text)
    run(args.build, 3600)  # so the build tree holds no mutant for whoever runs the tests next

    judged = killed + survived
    seconds = time.time() - start
    print(f"{judged + uncompiled} mutants in {seconds:.0f} s ({seconds / max(judged + uncompiled, 1):.1f} s each), "
          f"{uncompiled} did not compile, {len(candidates)} possible")
    print(f"{killed} killed, {survived} survived (score {100 * killed / judged if judged else 0:.0f}%)")


if __name__ == "__main__":
    main()

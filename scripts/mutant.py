#!/usr/bin/env python3
"""Breaks one line of the code, runs the tests that reach it, and says which
fail: the proof a test needs before it is dropped as covered by a neighbour.

    scripts/mutant.py FILE LINE OLD NEW [--also EXE:TEST]... [--e2e SCENARIO]...

OLD is replaced by NEW (once) on line LINE of FILE (a path from the project's
root). The tests run are those scripts/test-coverage.sh found reaching that
line, the ones named with --also, and the end-to-end scenarios named with
--e2e; they run from build/test, rebuilt with the change. The file is put
back and build/test rebuilt whatever happens."""
import argparse
import os
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD = os.path.join(ROOT, "build", "test")
LINES = os.path.join(ROOT, "build", "cov", "lines")


def reaching(place):
    found = []
    for name in sorted(os.listdir(LINES)):
        with open(os.path.join(LINES, name)) as f:
            if place in f.read().split():
                found.append(name[:-len(".txt")])
    return found


def run_test(key):
    """True when the test fails, None when the executable has no such test."""
    exe, test = key.split("__", 1)
    args = [f"--gtest_filter={test}"] if "." in test else [test]
    done = subprocess.run([os.path.join(BUILD, "tests", exe)] + args, capture_output=True, text=True, errors="replace",
                          env=dict(os.environ, QT_QPA_PLATFORM="offscreen"), timeout=900)
    said = done.stdout + done.stderr
    if "Unknown test function" in said or "Running 0 tests" in said:
        return None
    return done.returncode != 0


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("file")
    parser.add_argument("line", type=int)
    parser.add_argument("old")
    parser.add_argument("new")
    parser.add_argument("--also", action="append", default=[], help="EXE:TEST to run as well")
    parser.add_argument("--e2e", action="append", default=[], help="end-to-end scenario to run as well")
    a = parser.parse_args()

    path = os.path.join(ROOT, a.file)
    with open(path) as f:
        original = f.read()
    lines = original.split("\n")
    if a.old not in lines[a.line - 1]:
        sys.exit(f"{a.old!r} is not on line {a.line}: {lines[a.line - 1]}")
    lines[a.line - 1] = lines[a.line - 1].replace(a.old, a.new, 1)
    tests = reaching(f"{a.file}:{a.line}") + [t.replace(":", "__", 1) for t in a.also]
    killed, survived = [], []
    try:
        with open(path, "w") as f:
            f.write("\n".join(lines))
        # Only what runs: the test executables and the program they start.
        targets = sorted({"tests/" + key.split("__", 1)[0] for key in tests} | {"platewell"})
        build = subprocess.run(["ninja", "-C", BUILD] + targets, capture_output=True, text=True, errors="replace")
        if build.returncode != 0:
            sys.exit("the mutant does not build:\n" + build.stdout[-3000:])
        for key in tests:
            failed = run_test(key)
            if failed is not None:
                (killed if failed else survived).append(key)
        for scenario in a.e2e:
            done = subprocess.run(["ctest", "-R", f"^e2e_{scenario}$"], cwd=BUILD, capture_output=True)
            (killed if done.returncode else survived).append("e2e_" + scenario)
    finally:
        with open(path, "w") as f:
            f.write(original)
        subprocess.run(["ninja", "-C", BUILD], capture_output=True)
    print(f"{a.file}:{a.line} {a.old!r} -> {a.new!r}")
    print("  caught by:", " ".join(killed) or "nothing")
    print(f"  {len(survived)} other tests pass")


if __name__ == "__main__":
    main()

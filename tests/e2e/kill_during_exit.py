#!/usr/bin/env python3
"""Kills the program with SIGKILL at a random moment of its exit saves and
checks that data.dat, pw.ini and default.pwp are each whole: either the old
content or the new, never torn. Counts the temporary files a killed save
leaves and those still there after the next start.

    xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" dbus-run-session -- kill_during_exit.py --exe build/platewell \
        --delivered build [--iterations 200] [--seed 1] [--data old/data.dat]

A data.dat in an earlier format is written anew at every exit, so that its
old and new contents differ too.

Not a ctest test: it runs for many minutes.
"""
import argparse
import os
import random
import signal
import sys
import time

sys.dont_write_bytecode = True  # nothing written into the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from desktop import ProgramFolder, Runner, ensure_display, ensure_window_manager, find_window, run, wait_until  # noqa: E402
from failure_paths import PROFILE_AS_TYPED  # noqa: E402

FILES = ("data.dat", "pw.ini", "default.pwp")


def reset(folder, old):
    for name in os.listdir(folder.path):
        if name not in ("platewell", "tips.txt", "pw.hlp"):
            os.remove(folder.file(name))
    for name, content in old.items():
        folder.write(name, content)


def start_until_main(folder):
    """Starts the program and clicks its splash away, as a user may."""
    r = Runner(folder)
    r.start()
    splash = find_window(r.pid, "splash", None, 30)
    run(["xdotool", "mousemove", "--window", splash.id, "20", "20", "click", "1"], check_rc=False)
    find_window(r.pid, "normal", "Platewell", 30)
    time.sleep(0.5)
    return r


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--exe", required=True)
    parser.add_argument("--delivered", required=True)
    parser.add_argument("--iterations", type=int, default=200)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--data", help="the data.dat to start from (default: the delivered one)")
    args = parser.parse_args()
    rng = random.Random(args.seed)
    ensure_display()
    wm = ensure_window_manager()

    files = {"default.pwp": PROFILE_AS_TYPED}
    if args.data:
        with open(args.data, "rb") as f:
            files["data.dat"] = f.read()
    folder = ProgramFolder(args.exe, args.delivered, files)
    old = {name: folder.read(name) for name in FILES}

    # The new content and the length of an exit, from uninterrupted runs.
    durations = []
    for _ in range(3):
        reset(folder, old)
        r = start_until_main(folder)
        began = time.monotonic()
        r.signal(signal.SIGTERM)
        wait_until("exit", lambda: not r.running(), 30, step=0.005)
        durations.append(time.monotonic() - began)
        assert r.wait_exit() == 0, "a clean exit failed"
        r.close()
    new = {name: folder.read(name) for name in FILES}
    exit_time = sorted(durations)[1]
    print("exit takes %.3f s; changed by an exit: %s" % (
        exit_time, " ".join(n for n in FILES if new[n] != old[n]) or "none"), flush=True)

    torn = {name: 0 for name in FILES}
    seen = {name: {"old": 0, "new": 0} for name in FILES}
    killed_during = left_after_kill = left_after_start = 0
    for i in range(args.iterations):
        reset(folder, old)
        r = start_until_main(folder)
        r.signal(signal.SIGTERM)
        time.sleep(rng.uniform(0, 1.2 * exit_time))
        if r.running():
            killed_during += 1
            r.signal(signal.SIGKILL)
        r.wait_exit()
        r.close()
        for name in FILES:
            content = folder.read(name) if os.path.exists(folder.file(name)) else None
            if content == old[name]:
                seen[name]["old"] += 1
            elif content == new[name]:
                seen[name]["new"] += 1
            else:
                torn[name] += 1
                print("iteration %d: %s torn (%s bytes)" % (i, name, None if content is None else len(content)))
        left = folder.temp_files()
        left_after_kill += len(left)
        again = start_until_main(folder)
        remaining = folder.temp_files()
        left_after_start += len(remaining)
        again.signal(signal.SIGTERM)
        again.wait_exit()
        again.close()
        if (i + 1) % 20 == 0:
            print("%d iterations, %d killed during the exit, torn %r, temporary files left by the kills %d,"
                  " still there after the next start %d" % (i + 1, killed_during, torn, left_after_kill,
                                                            left_after_start), flush=True)

    print("RESULT iterations %d; killed during the exit %d; files torn %d %r; old/new %r;"
          " temporary files left by the kills %d; left after the next start %d" % (
              args.iterations, killed_during, sum(torn.values()), torn, seen, left_after_kill, left_after_start))
    folder.remove()
    if wm:
        wm.terminate()
    return 1 if sum(torn.values()) or left_after_start else 0


if __name__ == "__main__":
    sys.exit(main())

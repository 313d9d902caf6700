#!/usr/bin/env python3
"""The program's failure paths, run on the built executable under X with a
window manager and the real message boxes.

    xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" dbus-run-session -- failure_paths.py \
        --exe build/platewell --delivered build [--shots DIR] [scenario ...]

Each scenario copies the executable into a temporary program folder, starts
it, finds its windows, checks that a message box is painted (dark text on a
light face, its icon's colour) and what it says (its title, texts and buttons
read over the accessibility bus, as a screen reader reads them), answers it
with a key, a click on a button or the window manager's close, and checks
the exit status and the folder's files. Exit status 0 when every chosen
scenario passes.
"""
import argparse
import os
import signal
import sys
import time
import traceback

sys.dont_write_bytecode = True  # nothing written into the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from desktop import (Accessibility, Failure, ProgramFolder, Runner, activate, answer,  # noqa: E402
                     box_content, check, check_painted, ensure_display, ensure_window_manager,
                     find_window, keys, run, type_text, unchanged, wait_until,
                     window_manager_running, windows_of)

PROFILE = b"NAME:Test\r\nYOB:80\r\nMEASUREMENT:0\r\nHEIGHT:70\r\nWEIGHT:160\r\nSEX:0\r\nLIFESTYLE:0\r\n"
# The same profile as the program does not write it: keys in another order
# and lower case, so a rewritten file is told from the old one.
PROFILE_AS_TYPED = b"lifestyle:0\r\nsex:0\r\nweight:160\r\nheight:70\r\nmeasurement:0\r\nyob:80\r\nname:Test\r\n"
SCREEN = (1280, 1024)
OVERFLOW = "Run-time error '6':\n\nOverflow"
SUBSCRIPT = "Run-time error '9':\n\nSubscript out of range"
INVALID_CALL = "Run-time error '5':\n\nInvalid procedure call or argument"


def profile_written(content):
    """default.pwp as the program writes it: the keys in their order, upper case."""
    keys = [line.split(b":", 1)[0] for line in content.split(b"\r\n") if line]
    return keys == [b"NAME", b"YOB", b"MEASUREMENT", b"HEIGHT", b"WEIGHT", b"SEX", b"LIFESTYLE"] \
        and b"WEIGHT:160\r\n" in content


def int16_sum(data):
    total = sum(data)
    check(-32768 <= total <= 32767, "character sum out of 16-bit range")
    return total


def data_with_record_count(data, count):
    """A copy of a data file whose header announces count records, with the
    last record repeated to match. The scramble shifts of the first header
    positions are learnt from the file's own scrambled last index."""
    lines = data.split(b"\r\n")
    version, last_field, sum_field = lines[0], lines[1], lines[2]
    records = [line for line in lines[3:] if line]
    old_last = str(len(records) - 1).encode()
    check(len(last_field) == len(old_last), "header does not hold the record count")
    shifts = [s - p for s, p in zip(last_field, old_last)]
    old_sum = bytes(c - s for c, s in zip(sum_field, shifts))
    check(len(sum_field) <= len(shifts) and int(old_sum) == int16_sum(version + old_last),
          "could not learn the header's shifts")
    new_last = str(count - 1).encode()
    new_sum = str(int16_sum(version + new_last)).encode()
    check(len(new_last) <= len(shifts) and len(new_sum) <= len(shifts), "shifts too short")
    scramble = lambda text: bytes(c + s for c, s in zip(text, shifts))  # noqa: E731
    records += [records[-1]] * (count - len(records))
    return b"\r\n".join([version, scramble(new_last), scramble(new_sum)] + records) + b"\r\n"


class Context:
    def __init__(self, args, name):
        self.args = args
        self.name = name
        self.runners = []
        self.folder = None

    def shot(self, label):
        if not self.args.shots:
            return None
        os.makedirs(self.args.shots, exist_ok=True)
        return os.path.join(self.args.shots, "%s-%s.png" % (self.name, label))

    def make_folder(self, files=None):
        self.folder = ProgramFolder(self.args.exe, self.args.delivered, files)
        return self.folder

    def runner(self, namespace=False):
        r = Runner(self.folder, namespace)
        self.runners.append(r)
        return r

    def close(self):
        for r in self.runners:
            r.close()
        if self.folder:
            self.folder.remove()


def main_window(runner, timeout=25):
    """The main window once shown, with a moment for its load to finish."""
    w = find_window(runner.pid, "normal", "Platewell", timeout)
    time.sleep(1.0)
    return w


def wait_exit(runner, timeout=20):
    try:
        return runner.wait_exit(timeout)
    except Failure:
        raise Failure("the program did not end; its windows: %r" % windows_of(runner.pid))


def only_box(runner, title=None, timeout=25):
    box = find_window(runner.pid, "dialog", title, timeout=timeout)
    time.sleep(0.5)  # a second box, if any, would be up by now
    dialogs = [w for w in windows_of(runner.pid) if w.kind == "dialog" and title in (None, w.name)]
    check(len(dialogs) == 1, "expected one message box, saw %r" % dialogs)
    return box


def lock_files(snapshot):
    """The lock a running copy holds on its folder, whatever its name."""
    return tuple(name for name in snapshot if "lock" in name.lower())


# ---- run-time errors -------------------------------------------------------------

def runtime_error(ctx, files, how, expect, provoke=None):
    """A run-time error: one painted critical box titled Platewell naming the
    error (its text starts with expect), answered by how; then exit status 1
    and no file written."""
    folder = ctx.make_folder(files)
    before = folder.snapshot()
    r = ctx.runner()
    r.start()
    if provoke:
        provoke(ctx, r)
    box = only_box(r, "Platewell")
    check_painted(box, "critical", ctx.shot("box"))
    content = box_content(ctx.a11y, r.pid, box)
    check(content["title"] == "Platewell", "box title %r" % content["title"])
    check(content["text"].startswith(expect), "box text %r, expected %r" % (content["text"], expect))
    check(content["buttons"] == ["OK"], "box buttons %r" % content["buttons"])
    answer(box, how, ctx.a11y, r.pid)
    rc = wait_exit(r)
    check(rc == 1, "exit status %d after the run-time error, expected 1" % rc)
    after = folder.snapshot()
    changes = unchanged(before, after, exclude=lock_files(after))
    check(not changes, "files touched after the run-time error: %s" % changes)
    left = " (left behind: %s)" % " ".join(lock_files(after)) if lock_files(after) else ""
    return content["text"].replace("\n", " ") + left


def type_weight(ctx, r):
    activate(main_window(r))
    keys("alt+g", "ctrl+a")
    type_text("99999")


def tips(count):
    return b"".join(b"Tip number %d.\r\n" % i for i in range(1, count + 1))


def delivered_data(ctx):
    with open(os.path.join(ctx.args.delivered, "data.dat"), "rb") as f:
        return f.read()


def data_with_broken_record(data):
    """The data file with its third record's fields run together: the header
    still checks out, the record does not."""
    lines = data.split(b"\r\n")
    lines[5] = b"no tabs here"
    return b"\r\n".join(lines)


# ---- saves at exit that fail -------------------------------------------------------

REASONS = {"readonly": "Read-only file system", "full": "No space left on device"}
SAVE_FAILED = ("Platewell could not save the file\n%s\n\nThe system says: %s.\n\nFree some disk space or correct the "
               "folder's permissions, then choose Retry. Cancel goes on without saving this file; its previous version "
               "is kept.")


def exit_save_fails(ctx, cause, response):
    """The folder turns read-only or full while the program runs; at exit each
    failed save shows a painted exclamation box naming the file and the
    system's reason, with Retry and Cancel. Retry after the cause is gone
    writes the files; Cancel or Escape leaves every old file whole."""
    folder = ctx.make_folder({"default.pwp": PROFILE_AS_TYPED})
    size_kib = sum(os.path.getsize(os.path.join(folder.path, n)) for n in os.listdir(folder.path)) // 1024
    r = ctx.runner(namespace=True)
    p = folder.path
    r.must("cp -a '%s' '%s.source' && mount -t tmpfs -o size=%dk pwtest '%s' && cp -a '%s.source/.' '%s/'"
           % (p, p, size_kib + 2048, p, p, p))
    r.start()
    main_window(r)
    before = folder.snapshot()
    if cause == "readonly":  # a read-only mount over the folder; the open lock stays below it
        r.must("mount --bind '%s' '%s' && mount -o remount,bind,ro '%s'" % (p, p, p))
    else:
        r.do("cat /dev/zero > '%s/filler' 2>/dev/null" % p)
    r.signal(signal.SIGTERM)

    boxes, answered = [], set()
    while True:
        box = wait_until("a save message or the end",
                         lambda: [w for w in windows_of(r.pid) if w.kind == "dialog" and w.id not in answered]
                         or not r.running(), 30)
        if box is True:
            break
        box = box[0]
        answered.add(box.id)
        check_painted(box, "warning", ctx.shot("box%d" % len(boxes)))
        content = box_content(ctx.a11y, r.pid, box)
        boxes.append(content)
        said = [SAVE_FAILED % (os.path.join(p, n), REASONS[cause]) for n in ("default.pwp", "pw.ini", "data.dat")]
        check(content["text"] in said, "the box does not name a file and the system's reason: %r" % content["text"])
        check("Retry" in content["buttons"] and "Cancel" in content["buttons"],
              "buttons %r, expected Retry and Cancel" % content["buttons"])
        if response == "retry":
            check(len(boxes) == 1, "a second box after Retry: %r" % content)
            if cause == "readonly":
                r.must("mount -o remount,bind,rw '%s'" % p)
            else:
                r.must("rm '%s/filler'" % p)
            answer(box, "click:Retry", ctx.a11y, r.pid)
        else:
            check(len(boxes) <= 3, "more boxes than files: %r" % boxes)
            answer(box, "Escape" if cause == "readonly" else "click:Cancel", ctx.a11y, r.pid)
            time.sleep(0.5)
    check(boxes, "no message about the failed save")
    rc = wait_exit(r)
    after = folder.snapshot()
    check(not folder.temp_files(), "temporary files left: %r" % folder.temp_files())
    if response == "retry":
        check(rc == 0, "exit status %d after a successful Retry" % rc)
        check(profile_written(after["default.pwp"][1]), "default.pwp not written: %r" % (after["default.pwp"][1],))
        check(after["pw.ini"][1].count(b"\r\n") == 25, "pw.ini not written")
        check(after["data.dat"][1] == before["data.dat"][1] and after["data.dat"][3] != before["data.dat"][3],
              "data.dat not saved again")
    else:
        check(len(boxes) == 3, "one box for each of the three files, saw %d" % len(boxes))
        check(rc == 1, "exit status %d after a file was left unsaved, expected 1" % rc)
        changes = unchanged(before, after, exclude=("filler",) + lock_files(before) + lock_files(after))
        check(not changes, "files changed after Cancel: %s" % changes)
    return "%d box(es), exit %d; first: %s" % (len(boxes), rc, boxes[0]["text"].replace("\n", " "))


# ---- one program per folder --------------------------------------------------------

def second_copy(ctx):
    folder = ctx.make_folder({"default.pwp": PROFILE})
    first = ctx.runner()
    first.start()
    main_window(first)
    before = folder.snapshot()
    second = ctx.runner()
    second.start()
    box = only_box(second)
    others = [w for w in windows_of(second.pid) if w.kind != "dialog"]
    check(not [w for w in others if w.kind == "normal"], "the second copy opened its main window")
    check_painted(box, None, ctx.shot("box"))
    content = box_content(ctx.a11y, second.pid, box)
    check("already running" in content["text"] and folder.path in content["text"],
          "box text %r does not say it runs from this folder" % content["text"])
    answer(box, "Return")
    rc = wait_exit(second)
    check(rc != 0, "the second copy ended with status 0")
    check(first.running(), "the first copy ended")
    changes = unchanged(before, folder.snapshot())
    check(not changes, "the second copy touched files: %s" % changes)
    first.signal(signal.SIGTERM)
    check(wait_exit(first) == 0, "the first copy's exit failed")
    check(profile_written(folder.read("default.pwp")), "the first copy's profile not written")
    return "second copy exit %d%s: %s" % (rc, " (its splash shown)" if others else "",
                                         content["text"].replace("\n", " "))


def stale_lock(ctx):
    folder = ctx.make_folder({"default.pwp": PROFILE})
    killed = ctx.runner()
    killed.start()
    main_window(killed)
    killed.signal(signal.SIGKILL)
    wait_exit(killed)
    after_kill = sorted(os.listdir(folder.path))
    again = ctx.runner()
    again.start()
    main_window(again)
    check(not [w for w in windows_of(again.pid) if w.kind == "dialog"], "a box at the start after kill -9")
    again.signal(signal.SIGTERM)
    check(wait_exit(again) == 0, "exit failed")
    return "folder after kill -9: %s" % " ".join(after_kill)


# ---- what a save keeps ----------------------------------------------------------------

def saves_keep_file(ctx):
    """0600 files stay 0600, a symlinked data.dat stays a link whose target
    is replaced."""
    folder = ctx.make_folder({"default.pwp": PROFILE_AS_TYPED})
    store = os.path.join(folder.root, "store")
    os.mkdir(store)
    os.rename(folder.file("data.dat"), os.path.join(store, "data.dat"))
    os.symlink("../store/data.dat", folder.file("data.dat"))
    for path in (os.path.join(store, "data.dat"), folder.file("default.pwp"), folder.file("pw.ini")):
        os.chmod(path, 0o600)
    target_before = os.stat(os.path.join(store, "data.dat"))
    with open(os.path.join(store, "data.dat"), "rb") as f:
        data_before = f.read()
    r = ctx.runner()
    r.start()
    main_window(r)
    r.signal(signal.SIGTERM)
    check(wait_exit(r) == 0, "exit failed")
    check(os.path.islink(folder.file("data.dat")) and os.readlink(folder.file("data.dat")) == "../store/data.dat",
          "data.dat is no longer the link")
    target = os.stat(os.path.join(store, "data.dat"))
    with open(os.path.join(store, "data.dat"), "rb") as f:
        check(f.read() == data_before, "the link's target lost its records")
    check(target.st_ino != target_before.st_ino, "the link's target was not saved")
    check(profile_written(folder.read("default.pwp")), "default.pwp not saved")
    modes = {name: oct(os.stat(path).st_mode & 0o777) for name, path in
             (("target", os.path.join(store, "data.dat")), ("default.pwp", folder.file("default.pwp")),
              ("pw.ini", folder.file("pw.ini")))}
    check(set(modes.values()) == {"0o600"}, "permission bits not kept: %r" % modes)
    leftovers = [n for n in os.listdir(store) + os.listdir(folder.path) if ".tmp" in n]
    check(not leftovers, "temporary files left: %r" % leftovers)
    return "modes %r" % modes


def sigterm_with_list(ctx):
    """Started on a saved list as a file manager starts it and ended by
    SIGTERM through the one way out: the list's profile becomes the default
    one, pw.ini is written whole and data.dat keeps its bytes."""
    folder = ctx.make_folder({"day.pwl": PROFILE.replace(b"NAME:Test", b"NAME:Bob")})
    data_before = folder.read("data.dat")
    r = ctx.runner()
    r.start(args=[folder.file("day.pwl")])
    find_window(r.pid, "normal", "Platewell - " + folder.file("day.pwl"), 25)  # the list's name in the caption
    time.sleep(1.0)
    r.signal(signal.SIGTERM)
    check(wait_exit(r) == 0, "exit failed")
    check(folder.read("default.pwp").startswith(b"NAME:Bob\r\n"), "the list's profile was not the default one")
    ini = folder.read("pw.ini").split(b"\r\n")
    check(ini[-1] == b"" and len(ini) == 26 and ini[3] == b"FIRST RUN:False", "pw.ini not written whole: %r" % ini)
    check(folder.read("data.dat") == data_before, "data.dat changed")
    return "pw.ini %d lines" % (len(ini) - 1)


def temp_files_removed(ctx):
    own = {"data.dat.tmp4242": b"x" * 5000, "pw.ini.tmp17": b"FIRST", "default.pwp.tmp99999": b"NAME:"}
    others = {"data.dat.tmp": b"a", "data.dat.tmp12x": b"b", "notes.txt.tmp123": b"c", "data.dat.bak": b"d"}
    folder = ctx.make_folder(dict(own, **others))
    r = ctx.runner()
    r.start()
    main_window(r)
    left = [n for n in own if os.path.exists(folder.file(n))]
    lost = [n for n in others if not os.path.exists(folder.file(n))]
    r.signal(signal.SIGTERM)
    check(wait_exit(r) == 0, "exit failed")
    check(not left, "temporary files not removed at start: %r" % left)
    check(not lost, "files removed that are not the program's: %r" % lost)
    return "removed %d, kept %d" % (len(own), len(others))


def huge_window(ctx):
    """Run without a window manager, which would shrink the window itself."""
    ini = (b"FIRST RUN:False\r\nSHOW TIPS:False\r\nREMEMBER WINDOW SIZE:True\r\n"
           b"WINDOW WIDTH:2000000000\r\nWINDOW HEIGHT:2000000000\r\n")
    ctx.make_folder({"pw.ini": ini})
    r = ctx.runner()
    r.start()
    main_window(r)
    w = find_window(r.pid, "normal", "Platewell")
    if ctx.shot("screen"):
        run(["import", "-window", "root", ctx.shot("screen")], timeout=15)
    check(w.x >= 0 and w.y >= 0 and w.x + w.width <= SCREEN[0] and w.y + w.height <= SCREEN[1],
          "window %dx%d at %d,%d not on the %dx%d screen" % (w.width, w.height, w.x, w.y, SCREEN[0], SCREEN[1]))
    r.signal(signal.SIGTERM)
    check(wait_exit(r) == 0, "exit failed")
    return "window %dx%d at %d,%d" % (w.width, w.height, w.x, w.y)


# ---- files from others ---------------------------------------------------------

MARKUP_FOOD = (b'<h1>Your food database is damaged</h1><a href="http://x.example/">Repair</a>',
               b'<img src="file:///dev/zero">', b"<table><tr><td>" * 3000, b"1 cup")
MARKUP_NAME = "<h1>Big <u>title.pwl"
# A memory limit (KB) far below what an image of /dev/zero or a layout of
# 3,000 nested tables takes, far above what the program needs.
MEMORY_LIMIT = 1500000


def vm_rss_kb(pid):
    with open("/proc/%d/status" % pid) as f:
        for line in f:
            if line.startswith("VmRSS:"):
                return int(line.split()[1])
    return 0


def hostile_list(ctx):
    """A list whose food texts and file name are markup: each box shows them
    literally, nothing is loaded or followed, the program stays up."""
    item = b"ITEM: 0 \t1\t" + b"\t".join(MARKUP_FOOD) + b"\r\n"
    folder = ctx.make_folder({"default.pwp": PROFILE, MARKUP_NAME: PROFILE + item + b"\x01 a bad line\r\n"})
    r = ctx.runner()
    r.must("ulimit -v %d" % MEMORY_LIMIT)
    r.start(args=(folder.file(MARKUP_NAME),))
    box = only_box(r, "Open foodlist/analysis")
    check_painted(box, None, ctx.shot("food"))
    content = box_content(ctx.a11y, r.pid, box)
    for text in MARKUP_FOOD[:2]:
        check(text.decode() in content["text"], "the food's text is not shown literally: %r" % content["text"][:300])
    answer(box, "Return")
    box = only_box(r, "Error")
    content = box_content(ctx.a11y, r.pid, box)
    check(folder.file(MARKUP_NAME) + "\nis not a valid Platewell" in content["text"],
          "the file's name is not shown literally: %r" % content["text"])
    answer(box, "Return")
    time.sleep(1.0)
    check(r.running(), "the program ended")
    rss = vm_rss_kb(r.pid)
    r.signal(signal.SIGTERM)
    check(wait_exit(r) == 0, "exit failed")
    check("pw.lock" not in os.listdir(folder.view), "pw.lock left behind")
    return "both boxes literal, %d MB resident" % (rss // 1024)


HOSTILE_HELP = (b'<h1><a name="context-0"></a>Help</h1><p>'
                b'<a href="mailto:a@x?attach=/root/.ssh/id_rsa">mail</a> <a href="#deep">deep</a> '
                b'<img src="file:///usr/share/pixmaps/debian-logo.png"><img src="file:///dev/zero"></p>'
                b'<h1><a name="deep"></a>Deep</h1>' + b"<ul><li>" * 20000 + b"<table><tr><td>" * 3000)


def hostile_help(ctx):
    """A help file whose page asks for outside pictures and holds a mail link,
    and whose next page nests 23,000 deep: the pages are shown (the deep one
    as text), nothing outside is loaded, the mail link is refused with its
    address shown and nothing reaches the desktop."""
    folder = ctx.make_folder({"default.pwp": PROFILE, "pw.hlp": HOSTILE_HELP})
    fake_bin = os.path.join(folder.root, "bin")
    os.mkdir(fake_bin)
    handed = os.path.join(folder.root, "handed.txt")
    with open(os.path.join(fake_bin, "xdg-open"), "w") as f:
        f.write("#!/bin/sh\necho \"$@\" >> '%s'\n" % handed)
    os.chmod(os.path.join(fake_bin, "xdg-open"), 0o755)
    r = ctx.runner()
    r.must("ulimit -v %d" % MEMORY_LIMIT)
    r.start(env={"PATH": fake_bin + ":" + os.environ.get("PATH", "/usr/bin:/bin")})
    w = main_window(r)
    activate(w)
    keys("F1")
    helpw = find_window(r.pid, "dialog", "Platewell Help", timeout=20)
    time.sleep(1.5)
    check(r.running(), "the program ended on the page")
    # The page's links, reached by the keyboard from the page itself.
    activate(helpw)
    run(["xdotool", "mousemove", str(helpw.x + helpw.width // 2), str(helpw.y + helpw.height - 30)])
    run(["xdotool", "click", "1"])
    keys("Tab", "Return")
    box = only_box(r, "Help", timeout=10)
    content = box_content(ctx.a11y, r.pid, box)
    check("mailto:a@x?attach=/root/.ssh/id_rsa" in content["text"], "box %r" % content["text"])
    answer(box, "Return")
    time.sleep(0.5)
    activate(helpw)
    keys("Tab", "Return")  # the next link: the deep page
    time.sleep(2.0)
    if ctx.shot("deep"):
        run(["import", "-window", "root", ctx.shot("deep")], timeout=15)
    check(r.running(), "the program ended on the deep page")
    rss = vm_rss_kb(r.pid)
    check(not os.path.exists(handed), "handed to the desktop: %r" % (open(handed).read() if os.path.exists(handed) else ""))
    r.signal(signal.SIGTERM)
    check(wait_exit(r) == 0, "exit failed")
    return "pages shown, %d MB resident, mail link refused: %s" % (rss // 1024, content["text"].replace("\n", " "))


def lock_unwritable(ctx):
    """pw.lock cannot be made: the first copy runs on a lock in the runtime
    folder, a second copy is still refused."""
    folder = ctx.make_folder({"default.pwp": PROFILE})
    os.mkdir(os.path.join(folder.path, "pw.lock"))
    first = ctx.runner()
    first.start()
    main_window(first)
    second = ctx.runner()
    second.start()
    box = only_box(second)
    content = box_content(ctx.a11y, second.pid, box)
    check("already running" in content["text"], "box %r" % content["text"])
    answer(box, "Return")
    check(wait_exit(second) != 0, "the second copy ended with status 0")
    check(first.running(), "the first copy ended")
    first.signal(signal.SIGTERM)
    check(wait_exit(first) == 0, "the first copy's exit failed")
    return "second copy refused: %s" % content["text"].replace("\n", " ")


def foreign_lock(ctx):
    """A lock written on another computer: named, with the choice to start;
    No ends, Yes starts."""
    lock = b"PLATEWELL LOCK\r\n4242\r\nkitchen-laptop\r\n"
    folder = ctx.make_folder({"default.pwp": PROFILE, "pw.lock": lock})
    r = ctx.runner()
    r.start()
    box = only_box(r, "Platewell")
    content = box_content(ctx.a11y, r.pid, box)
    check("in use on kitchen-laptop" in content["text"] and folder.path in content["text"], "box %r" % content["text"])
    answer(box, "Escape")  # No
    check(wait_exit(r) != 0, "No started the program")
    check(folder.read("pw.lock") == lock, "the lock was changed after No")
    r = ctx.runner()
    r.start()
    answer(only_box(r, "Platewell"), "Return")  # Yes
    main_window(r)
    r.signal(signal.SIGTERM)
    check(wait_exit(r) == 0, "exit failed")
    return content["text"].replace("\n", " ")


# Scenarios run before the window manager starts.
BARE = {"huge_window"}

SCENARIOS = {
    # Run-time errors, each answered another way.
    "rte_splash_current_tip": lambda ctx: runtime_error(
        ctx, {"pw.ini": b"FIRST RUN:False\r\nSHOW TIPS:False\r\nCURRENT TIP:99999\r\n"}, "Return", OVERFLOW),
    "rte_profile_weight": lambda ctx: runtime_error(
        ctx, {"default.pwp": PROFILE.replace(b"WEIGHT:160", b"WEIGHT:1e30")}, "Escape", OVERFLOW),
    "rte_typed_weight": lambda ctx: runtime_error(ctx, {"default.pwp": PROFILE}, "close", OVERFLOW, type_weight),
    "rte_data_4001_records": lambda ctx: runtime_error(
        ctx, {"data.dat": data_with_record_count(delivered_data(ctx), 4001)}, "click:OK", SUBSCRIPT),
    "rte_data_broken_record": lambda ctx: runtime_error(
        ctx, {"data.dat": data_with_broken_record(delivered_data(ctx))}, "Return", INVALID_CALL),
    "rte_tips_101_lines": lambda ctx: runtime_error(
        ctx, {"pw.ini": b"FIRST RUN:False\r\nSHOW TIPS:True\r\n", "tips.txt": tips(101)}, "Return", SUBSCRIPT),
    # Saves at exit.
    "exit_readonly_retry": lambda ctx: exit_save_fails(ctx, "readonly", "retry"),
    "exit_readonly_cancel": lambda ctx: exit_save_fails(ctx, "readonly", "cancel"),
    "exit_full_retry": lambda ctx: exit_save_fails(ctx, "full", "retry"),
    "exit_full_cancel": lambda ctx: exit_save_fails(ctx, "full", "cancel"),
    # One program per folder.
    "second_copy": second_copy,
    "stale_lock": stale_lock,
    # Files.
    "saves_keep_file": saves_keep_file,
    "temp_files_removed": temp_files_removed,
    "sigterm_with_list": sigterm_with_list,
    "huge_window": huge_window,
    # Files from others, and the lock.
    "hostile_list": hostile_list,
    "hostile_help": hostile_help,
    "lock_unwritable": lock_unwritable,
    "foreign_lock": foreign_lock,
}


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--exe", required=True)
    parser.add_argument("--delivered", required=True, help="folder with data.dat, tips.txt, pw.hlp")
    parser.add_argument("--shots", help="folder for the screenshots")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("scenarios", nargs="*")
    args = parser.parse_args()
    if args.list:
        print("\n".join(SCENARIOS))
        return 0
    unknown = [s for s in args.scenarios if s not in SCENARIOS]
    if unknown:
        print("unknown scenarios: %s" % " ".join(unknown))
        return 2
    server = ensure_display()
    if server:
        print("note: the display given was not reachable; running on Xvfb %s" % os.environ["DISPLAY"])
    chosen = args.scenarios or list(SCENARIOS)
    if window_manager_running():
        print("note: a window manager runs already; %s run under it" % " ".join(BARE & set(chosen)))
    a11y = Accessibility()
    wm = None
    failed = 0
    try:
        for name in sorted(chosen, key=lambda n: n not in BARE):
            if name not in BARE and wm is None:
                wm = ensure_window_manager() or False
            ctx = Context(args, name)
            ctx.a11y = a11y
            started = time.monotonic()
            try:
                note = SCENARIOS[name](ctx)
                print("PASS %s (%.1f s): %s" % (name, time.monotonic() - started, note), flush=True)
            except Exception as e:  # a scenario's fault is reported, the next runs
                failed += 1
                print("FAIL %s (%.1f s): %s" % (name, time.monotonic() - started, e), flush=True)
                if not isinstance(e, Failure):
                    traceback.print_exc()
            finally:
                ctx.close()
    finally:
        a11y.close()
        for process in (wm, server):
            if process:
                process.terminate()
                process.wait(5)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())

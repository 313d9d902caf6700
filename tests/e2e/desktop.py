"""Drives the built program on a real X display: a copied program folder,
the program's windows found through the window manager, screenshots checked
for paint, keys sent as a user would press them.

Runs under xvfb-run and dbus-run-session; starts openbox when no window
manager is running and the accessibility bus. Needs xdotool, xprop
(x11-utils), import (imagemagick), gdbus and at-spi2-core.
"""
import ast
import os
import random
import re
import shutil
import signal
import subprocess
import tempfile
import time

TEMP_NAME = re.compile(r"^(data\.dat|pw\.ini|default\.pwp)\.tmp[0-9]+$", re.IGNORECASE)
QUIET_INI = b"FIRST RUN:False\r\nSHOW TIPS:False\r\n"


class Failure(Exception):
    pass


def check(condition, message):
    if not condition:
        raise Failure(message)


def run(args, timeout=10, check_rc=True, **kw):
    done = subprocess.run(args, capture_output=True, timeout=timeout, **kw)
    if check_rc and done.returncode != 0:
        raise Failure("%s failed: %s" % (" ".join(args), done.stderr.decode(errors="replace").strip()))
    return done.stdout


def wait_until(what, probe, timeout=20.0, step=0.1):
    """Calls probe until it returns something true; returns that value."""
    end = time.monotonic() + timeout
    while True:
        value = probe()
        if value:
            return value
        if time.monotonic() > end:
            raise Failure("timed out waiting for " + what)
        time.sleep(step)


# ---- the window manager -------------------------------------------------------

def display_reachable():
    return bool(os.environ.get("DISPLAY")) and subprocess.run(
        ["xprop", "-root", "-len", "0"], capture_output=True, timeout=10).returncode == 0


def ensure_display():
    """Starts an Xvfb of our own when the display given is not reachable
    (xvfb-run -a started at the same moment by another job may have taken
    the same number); the server picks a free display itself."""
    if display_reachable():
        return None
    read_end, write_end = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1280x1024x24",
                               "-nolisten", "tcp", "-noreset"], pass_fds=(write_end,),
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(write_end)
    with os.fdopen(read_end) as f:
        number = f.readline().strip()
    check(number.isdigit(), "Xvfb did not start")
    os.environ["DISPLAY"] = ":" + number
    os.environ.pop("XAUTHORITY", None)
    wait_until("the X server", display_reachable, timeout=15)
    return server


def window_manager_running():
    return b"window id" in run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], check_rc=False)


def ensure_window_manager():
    """Starts openbox unless a window manager already owns the screen."""
    if window_manager_running():
        return None
    for _ in range(3):  # a server started without -noreset is unreachable while it resets
        log = tempfile.TemporaryFile()
        wm = subprocess.Popen(["openbox"], stdout=log, stderr=log)
        try:
            wait_until("openbox", lambda: window_manager_running() or wm.poll() is not None, timeout=30)
        except Failure:
            pass
        if window_manager_running():
            return wm
        time.sleep(1)
    log.seek(0)
    raise Failure("openbox did not start (status %s): %s" % (wm.poll(), log.read().decode(errors="replace")))


# ---- windows ----------------------------------------------------------------

class Window:
    def __init__(self, wid):
        self.id = str(wid)
        self.name = run(["xdotool", "getwindowname", self.id], check_rc=False).decode("latin-1").strip()
        types = run(["xprop", "-id", self.id, "_NET_WM_WINDOW_TYPE"], check_rc=False).decode()
        self.kind = ("dialog" if "_DIALOG" in types else "splash" if "_SPLASH" in types
                     else "normal" if "_NORMAL" in types else "other")
        geo = run(["xdotool", "getwindowgeometry", "--shell", self.id], check_rc=False).decode()
        values = dict(line.split("=", 1) for line in geo.split() if "=" in line)
        self.x, self.y = int(values.get("X", 0)), int(values.get("Y", 0))
        self.width, self.height = int(values.get("WIDTH", 0)), int(values.get("HEIGHT", 0))

    def __repr__(self):
        return "<%s %s %r %dx%d>" % (self.kind, self.id, self.name, self.width, self.height)


def windows_of(pid):
    out = run(["xdotool", "search", "--onlyvisible", "--pid", str(pid)], check_rc=False)
    return [Window(w.decode()) for w in out.split()]


def find_window(pid, kind, name=None, timeout=20.0):
    def probe():
        for w in windows_of(pid):
            if w.kind == kind and (name is None or w.name == name) and w.width > 0:
                return w
        return None
    return wait_until("a %s window %s" % (kind, name or ""), probe, timeout)


def activate(window):
    run(["xdotool", "windowactivate", "--sync", window.id], check_rc=False, timeout=5)
    run(["xdotool", "windowfocus", "--sync", window.id], check_rc=False, timeout=5)
    time.sleep(0.2)


def keys(*names):
    """Keys pressed on the keyboard, reaching the window that has the focus."""
    run(["xdotool", "key", "--delay", "60"] + list(names))


def type_text(text):
    run(["xdotool", "type", "--delay", "80", text])


# ---- screenshots ---------------------------------------------------------------

def grab(window, keep_as=None):
    """The window's pixels as (width, height, rgb bytes); saved as PNG too."""
    ppm = run(["import", "-window", window.id, "-depth", "8", "ppm:-"], timeout=15)
    if keep_as:
        run(["convert", "ppm:-", keep_as], input=ppm, timeout=15)
    parts = ppm.split(maxsplit=4)
    check(parts[0] in (b"P5", b"P6") and parts[3] == b"255", "unexpected screenshot format")
    pixels = parts[4] if parts[0] == b"P6" else bytes(v for v in parts[4] for _ in range(3))
    return int(parts[1]), int(parts[2]), pixels


def paint_report(window, keep_as=None):
    """Counts what a painted message box shows: dark text on a light face and a
    coloured icon. An unpainted window is one flat colour."""
    width, height, rgb = grab(window, keep_as)
    n = width * height
    dark = light = red = yellow = blue = 0
    colours = set()
    for i in range(0, len(rgb) - 2, 3):
        r, g, b = rgb[i], rgb[i + 1], rgb[i + 2]
        colours.add((r >> 3, g >> 3, b >> 3))
        luma = (299 * r + 587 * g + 114 * b) // 1000
        if luma < 90:
            dark += 1
        elif luma > 180:
            light += 1
        if r > 150 and g < 100 and b < 100:
            red += 1
        elif r > 180 and g > 130 and b < 90:
            yellow += 1
        elif b > 150 and r < 110:
            blue += 1
    return {"pixels": n, "dark": dark, "light": light, "colours": len(colours),
            "red": red, "yellow": yellow, "blue": blue}


def check_painted(window, icon, keep_as=None):
    """icon: 'critical' (red), 'warning' (yellow), or None for any."""
    p = paint_report(window, keep_as)
    painted = (p["colours"] >= 8 and p["light"] > p["pixels"] // 2
               and p["pixels"] // 1000 < p["dark"] < p["pixels"] // 3)
    check(painted, "box %r not painted: %r" % (window, p))
    if icon == "critical":
        check(p["red"] > 60 and p["red"] > 4 * p["yellow"], "no critical (red) icon: %r" % p)
    elif icon == "warning":
        check(p["yellow"] > 60 and p["yellow"] > 4 * p["red"], "no exclamation (yellow) icon: %r" % p)
    return p


# ---- what a box says: the accessibility bus -----------------------------------------

class Accessibility:
    """Reads the texts of a program's windows over the accessibility bus, as a
    screen reader would. Needs a session bus (dbus-run-session); starts the
    accessibility bus and tells the programs to join it."""

    ENV = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def __init__(self):
        check(os.environ.get("DBUS_SESSION_BUS_ADDRESS"), "no session bus: run under dbus-run-session")
        self.launcher = subprocess.Popen([shutil.which("at-spi-bus-launcher") or "/usr/libexec/at-spi-bus-launcher",
                                          "--launch-immediately"],
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

        def address():
            out = subprocess.run(["gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path",
                                  "/org/a11y/bus", "--method", "org.a11y.Bus.GetAddress"],
                                 capture_output=True, text=True, timeout=10).stdout
            found = re.search(r"'([^']+)'", out)
            return found.group(1) if found else None
        self.address = wait_until("the accessibility bus", address, timeout=15, step=0.3)

    def call(self, dest, path, method, *args):
        return run(["gdbus", "call", "--address", self.address, "--dest", dest, "--object-path", path,
                    "--method", method] + list(args), timeout=10).decode()

    def children(self, dest, path):
        out = self.call(dest, path, "org.a11y.atspi.Accessible.GetChildren")
        return re.findall(r"\('([^']*)', (?:objectpath )?'(/[^']*)'\)", out)

    def name(self, dest, path):
        out = self.call(dest, path, "org.freedesktop.DBus.Properties.Get", "org.a11y.atspi.Accessible", "Name")
        found = re.match(r"^\(<(.*)>,\)\s*$", out, re.S)
        return ast.literal_eval(found.group(1)) if found else ""

    def role(self, dest, path):
        return ast.literal_eval(self.call(dest, path, "org.a11y.atspi.Accessible.GetRoleName").strip())[0]

    def is_dialog(self, dest, path, title):
        return self.role(dest, path) in ("dialog", "alert", "alert message") and self.name(dest, path) == title

    def application(self, pid):
        for dest, _ in self.children("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"):
            out = self.call("org.freedesktop.DBus", "/org/freedesktop/DBus",
                            "org.freedesktop.DBus.GetConnectionUnixProcessID", dest)
            if re.search(r"\b%d\b" % pid, out):
                return dest
        return None

    def dialog(self, pid, title):
        """Texts and button names of the program's shown dialog with this title."""
        dest = wait_until("the program on the accessibility bus", lambda: self.application(pid), 15, 0.3)
        for _, path in self.children(dest, "/org/a11y/atspi/accessible/root"):
            if self.is_dialog(dest, path, title):
                texts, buttons = [], []
                pending = [path]
                while pending:
                    for _, child in self.children(dest, pending.pop()):
                        role, name = self.role(dest, child), self.name(dest, child)
                        if role == "push button":
                            buttons.append((name, child))
                        elif name:
                            texts.append(name)
                        pending.append(child)
                return {"title": title, "text": "\n".join(texts), "buttons": [b for b, _ in buttons]}
        return None

    def button_centre(self, pid, title, button):
        """Screen position of the middle of a dialog's button."""
        dest = self.application(pid)
        for _, path in self.children(dest, "/org/a11y/atspi/accessible/root"):
            if not self.is_dialog(dest, path, title):
                continue
            pending = [path]
            while pending:
                for _, child in self.children(dest, pending.pop()):
                    if self.role(dest, child) == "push button" and self.name(dest, child) == button:
                        out = self.call(dest, child, "org.a11y.atspi.Component.GetExtents", "uint32 0")
                        x, y, w, h = (int(n) for n in re.findall(r"-?\d+", out)[:4])
                        return x + w // 2, y + h // 2
                    pending.append(child)
        raise Failure("no button %r in %r" % (button, title))

    def close(self):
        self.launcher.terminate()
        self.launcher.wait(5)


def box_content(accessibility, pid, window):
    """Title, texts and buttons of a shown message box."""
    return wait_until("the box on the accessibility bus", lambda: accessibility.dialog(pid, window.name), 15, 0.5)


def answer(window, how, accessibility=None, pid=None):
    """Answers a box: a key ('Return', 'Escape'), 'close' (the window
    manager's close, as the title bar's close box) or 'click:<button>'."""
    activate(window)
    if how == "close":
        keys("alt+F4")
    elif how.startswith("click:"):
        x, y = accessibility.button_centre(pid, window.name, how[6:])
        run(["xdotool", "mousemove", str(x), str(y)])
        time.sleep(0.2)
        run(["xdotool", "click", "1"])
    else:
        keys(how)


# ---- the program folder ----------------------------------------------------------

class ProgramFolder:
    """A temporary program folder: the executable with the delivered files."""

    def __init__(self, exe, delivered, files=None):
        self.root = tempfile.mkdtemp(prefix="pw-e2e-")
        self.path = os.path.join(self.root, "program")
        os.mkdir(self.path)
        shutil.copy2(exe, os.path.join(self.path, "platewell"))
        for name in ("data.dat", "tips.txt", "pw.hlp"):
            source = os.path.join(delivered, name)
            if os.path.exists(source):
                shutil.copyfile(source, os.path.join(self.path, name))
        self.write("pw.ini", QUIET_INI)
        for name, content in (files or {}).items():
            self.write(name, content)
        self.view = self.path  # where the driver sees the folder (see Runner)

    def file(self, name):
        return os.path.join(self.view, name)

    def write(self, name, content):
        with open(os.path.join(self.path, name), "wb") as f:
            f.write(content)

    def read(self, name):
        with open(self.file(name), "rb") as f:
            return f.read()

    def snapshot(self):
        """Every entry: its bytes (or link target), permission bits and inode."""
        state = {}
        for name in sorted(os.listdir(self.view)):
            path = self.file(name)
            st = os.lstat(path)
            if os.path.islink(path):
                state[name] = ("link", os.readlink(path), 0, st.st_ino)
            elif os.path.isfile(path) and name != "platewell":
                state[name] = ("file", self.read(name), st.st_mode & 0o7777, st.st_ino)
            else:
                state[name] = ("other", None, st.st_mode & 0o7777, st.st_ino)
        return state

    def temp_files(self):
        return sorted(n for n in os.listdir(self.view) if TEMP_NAME.match(n))

    def remove(self):
        shutil.rmtree(self.root, ignore_errors=True)


def unchanged(before, after, exclude=()):
    """Names whose bytes, bits or identity differ, and names added or lost."""
    changes = []
    for name in sorted(set(before) | set(after)):
        if name in exclude:
            continue
        if name not in after:
            changes.append("lost " + name)
        elif name not in before:
            changes.append("new " + name)
        elif before[name] != after[name]:
            changes.append("changed " + name)
    return changes


# ---- running the program -----------------------------------------------------

# Reads shell commands on stdin, one a line, and answers each with a marker
# line; run inside `unshare -r -m` it can mount a small or read-only folder
# for the program it starts.
RUNNER = r'''
while IFS= read -r line; do
  eval "$line"
  echo "@done $?"
done
'''


class Runner:
    """A shell, optionally in its own user and mount namespace, that starts
    the program and changes its folder's mounts on request."""

    def __init__(self, folder, namespace=False):
        self.folder = folder
        args = ["sh", "-c", RUNNER]
        if namespace:
            args = ["unshare", "-r", "-m"] + args
        self.shell = subprocess.Popen(args, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                      stderr=subprocess.DEVNULL, text=True, bufsize=1)
        if namespace:
            self.do("true")  # the namespace exists once the shell answers
            folder.view = "/proc/%d/root%s" % (self.shell.pid, folder.path)
        self.pid = None
        self.exit_code = None

    def do(self, command):
        self.shell.stdin.write(command.replace("\n", " ") + "\n")
        self.shell.stdin.flush()
        lines = []
        while True:
            line = self.shell.stdout.readline()
            check(line, "runner shell ended")
            if line.startswith("@done "):
                return int(line.split()[1]), lines
            lines.append(line.rstrip("\n"))

    def must(self, command):
        rc, lines = self.do(command)
        check(rc == 0, "runner: %r failed (%d)" % (command, rc))
        return lines

    def start(self, env=None, args=()):
        """Starts the program copy in the folder with args; returns its pid."""
        env = dict(Accessibility.ENV, **(env or {}))
        env_text = " ".join("%s=%s" % (k, v) for k, v in env.items())
        exe = os.path.join(self.folder.path, "platewell")
        log = os.path.join(self.folder.root, "stderr-%d.txt" % random.randrange(1 << 30))
        arg_text = " ".join("'%s'" % a for a in args)
        lines = self.must("cd /; env -u QT_QPA_PLATFORM %s '%s' %s 2>'%s' & echo @pid $!"
                          % (env_text, exe, arg_text, log))
        self.pid = int(lines[-1].split()[1])
        return self.pid

    def running(self):
        return os.path.exists("/proc/%d" % self.pid) and not self._zombie()

    def _zombie(self):
        try:
            with open("/proc/%d/stat" % self.pid) as f:
                return f.read().rsplit(")", 1)[1].split()[0] == "Z"
        except OSError:
            return True

    def wait_exit(self, timeout=20.0):
        """Waits for the program's end and returns its exit status."""
        wait_until("the program to end", lambda: not self.running(), timeout)
        lines = self.must("wait %d; echo @exit $?" % self.pid)
        self.exit_code = int(lines[-1].split()[1])
        return self.exit_code

    def signal(self, sig):
        os.kill(self.pid, sig)

    def close(self):
        if self.pid and self.running():
            self.signal(signal.SIGKILL)
        try:
            self.shell.stdin.close()
        except OSError:
            pass
        try:
            self.shell.wait(10)
        except subprocess.TimeoutExpired:
            self.shell.kill()

# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""The desktop that the item is shown on: the user's own, or a virtual one."""

import os
import pwd
import re
import shutil
from pathlib import Path

from . import accessibility
from .item import WATCHER, connect, has_owner
from .picture import Area, Picture
from .processes import Failure, Processes, becomes, run, wait_for

TOOLS = str(Path(__file__).absolute().parents[1])
NOTIFICATIONS = "org.freedesktop.Notifications"
PYTHON = ["/usr/bin/python3", "-B", "-u", "-m"]

# Processes of other users may use it: one of the sessions is another user's.
BUS_SETTINGS = """\
<busconfig><type>session</type><listen>unix:dir={folder}</listen>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/>
<allow own="*"/><allow user="*"/></policy>{services}</busconfig>
"""

# Long enough for a picture of two, short enough not to pile up, and not in a panel's way.
DAEMON_SETTINGS = """\
[global]
font = DejaVu Sans 10
origin = bottom-left
offset = 12x12
width = 320
icon_theme = Adwaita
enable_recursive_icon_lookup = true
format = "<b>%s</b>\\n%b"
frame_width = 1
frame_color = "#5a5a5a"
corner_radius = 6
[urgency_normal]
background = "#2d2d2d"
foreground = "#f2f2f2"
timeout = 8
"""

# The output takes the display whole, and the first lines printed tell who waits where.
SWAY_SETTINGS = """\
xwayland force
output X11-1 mode --custom {}x{}
default_border none
exec 'echo "$DISPLAY"; echo "$WAYLAND_DISPLAY"'
"""

# Any user may open windows there: the program is not the compositor's.
OPEN_SERVER = "#!/bin/sh\nexec Xwayland -ac \"$@\"\n"

def own_session():
    """The environment of the user's session, in which a panel is up already."""
    environment = dict(os.environ)
    environment.setdefault(
        "DBUS_SESSION_BUS_ADDRESS", f"unix:path={os.environ.get('XDG_RUNTIME_DIR')}/bus")
    wait_for(lambda: has_owner(WATCHER, environment), "a panel that shows status items")
    return environment


class Desktop:
    """A virtual desktop, put together part by part: a session bus first, or a display and then a
    bus. `environment` names what is there so far, for programs to start in."""

    def __init__(self, folder):
        self.folder = folder
        self.processes = Processes(folder / "log")
        self.environment = dict(os.environ) | {
            "HOME": str(folder), "LC_ALL": "C.UTF-8", "LANGUAGE": "", "QT_QPA_PLATFORM": "offscreen",
            "GSETTINGS_BACKEND": "keyfile", "NO_AT_BRIDGE": "1", "PYTHONPATH": TOOLS,
        }
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "SESSION_MANAGER", "SWAYSOCK"):
            self.environment.pop(name, None)
        for name, part in (("CONFIG_HOME", "config"), ("DATA_HOME", "data"),
                           ("CACHE_HOME", "cache"), ("RUNTIME_DIR", "run")):
            (folder / part).mkdir(mode=0o700 if part == "run" else 0o755)
            self.environment[f"XDG_{name}"] = str(folder / part)
        self.kind = None
        self.panel = []
        self.user = []

    def end(self):
        self.processes.end()

    def start(self, name, command):
        """Starts a program of the session."""
        return self.processes.start(name, [*self.user, *command], self.environment)

    def start_tool(self, module, **options):
        """Starts a module of this package as a process of its own."""
        return self.processes.start(
            module, [*PYTHON, f"Desktop.{module}"], self.environment, **options)

    def configure(self, path, text):
        """Writes a file below the folder of all settings."""
        file = self.folder / "config" / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)
        return file

    def start_bus(self, services=""):
        """A session bus, which is the machine's too; nobody is on either."""
        self.folder.chmod(0o755)
        file = self.configure(
            "bus.conf", BUS_SETTINGS.format(folder=self.folder, services=services))
        bus = self.start(
            "bus", ["dbus-daemon", f"--config-file={file}", "--print-address", "--nofork"])
        for name in ("SESSION", "SYSTEM"):
            self.environment[f"DBUS_{name}_BUS_ADDRESS"] = bus.first_lines()[0]
        return bus

    def connect(self):
        return connect(self.environment)

    def start_display(self, width=1280, height=800):
        """An empty display in memory."""
        self.screen = Area(0, 0, width, height)
        # Else a client that comes while the server resets itself, after the last one before has
        # gone, is turned away.
        server = self.processes.start(
            "display", ["Xvfb", "-displayfd", "1", "-screen", "0", f"{width}x{height}x24",
                        "-nolisten", "tcp", "-ac", "-noreset"], self.environment)
        del self.environment["QT_QPA_PLATFORM"]
        self.environment["DISPLAY"] = ":" + server.first_lines()[0]
        self.outside = dict(self.environment)

    def start_session(self, kind):
        """A bus with the installed services, and the windows' managers, for a panel of that kind."""
        self.kind = kind
        self.environment |= {"XDG_CURRENT_DESKTOP": kind.desktop_name,
                             "XDG_SESSION_TYPE": "wayland" if kind.is_on_wayland else "x11"}
        if kind.is_desktop:
            self._become_ordinary()
            self.give_away()
        self.start_bus("<standard_session_servicedirs/>")
        for path, text in kind.files.items():
            self.configure(path, text)
        if kind.is_desktop:
            self.environment |= kind.variables
            self.give_away()
        elif kind.is_on_wayland:
            self._start_wayland()
        else:
            self.start("window-manager", ["openbox", "--sm-disable"])
            self.start("compositor", ["picom", "--backend", "xrender"])

    def start_accessibility(self):
        """The bus of assistive technology; programs that start from now on are on it."""
        self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        self.start("accessibility", ["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"])

    def start_panel(self):
        self.panel = [self.start(f"panel-{number}", command)
                      for number, command in enumerate(self.kind.commands)]
        if self.kind.is_desktop:
            wait_for(lambda: has_owner(self.kind.ready, self.environment), "the desktop", 60,
                     self.panel[-1])
        elif self.panel:
            wait_for(lambda: has_owner(WATCHER, self.environment), "the panel", 20, self.panel[-1])

    def end_panel(self):
        """Ends all of its processes at once."""
        for process in self.panel:
            process.popen.kill()
            self.processes.stop(process)
        self.panel = []

    def start_daemon(self):
        """A real notification daemon."""
        settings = self.configure("dunstrc", DAEMON_SETTINGS)
        daemon = self.start("daemon", ["dunst", "-conf", settings])
        wait_for(lambda: has_owner(NOTIFICATIONS, self.environment), "the daemon", 20, daemon)
        return daemon

    def _start_wayland(self):
        """A compositor whose one output is the display, with an X server for those who want one. It
        refuses to run as root: there it is another user's, and so is what starts after it."""
        self.configure("sway/config", SWAY_SETTINGS.format(*self.screen[2:]))
        server = self.configure("Xwayland", OPEN_SERVER)
        server.chmod(0o755)
        self.environment |= {"WLR_BACKENDS": "x11", "WLR_RENDERER": "pixman",
                             "WLR_XWAYLAND": str(server)}
        self._become_ordinary()
        inner, socket = self.start("window-manager", ["sway"]).first_lines(2)
        self.environment |= {"DISPLAY": inner, "WAYLAND_DISPLAY":
                             f"{self.environment['XDG_RUNTIME_DIR']}/{socket}"}

    def _become_ordinary(self):
        """What starts from now on is an ordinary user's: some programs refuse to be root's."""
        if os.geteuid() != 0:
            return
        user = pwd.getpwnam("nobody")
        for name in ("run", "cache", "data"):
            os.chown(self.folder / name, user.pw_uid, user.pw_gid)
        self.environment["HOME"] = self.environment["XDG_RUNTIME_DIR"]
        # Changing the user takes back that the process ends with its parent.
        self.user = ["setpriv", f"--reuid={user.pw_uid}", f"--regid={user.pw_gid}",
                     "--clear-groups", "--pdeathsig=KILL", "--"]

    def give_away(self):
        """Lets the ordinary user write to all that there is: desktops write their settings, too."""
        if self.user:
            user = pwd.getpwnam("nobody")
            for path in [self.folder, *self.folder.rglob("*")]:
                os.chown(path, user.pw_uid, user.pw_gid, follow_symlinks=False)

    def add_data(self, place, folder):
        """Puts a folder of the build among the user's data."""
        shutil.copytree(folder, self.folder / "data" / place)

    def picture(self, area):
        """What is on that part of the display now."""
        return Picture(area, self.outside)

    def do(self, *words):
        """Sends events to the display itself: the environment may name one inside of it."""
        return run(["xdotool", *words], self.outside)

    def move(self, point):
        self.do("mousemove", *point)

    def click(self, point, button=1):
        """Clicks there: 1 is the left button, 3 the right one."""
        self.do("mousemove", *point, "click", button)

    def drag(self, start, end):
        """Moves the pointer by several steps with the left button held."""
        self.do("mousemove", *start, "mousedown", 1)
        for step in range(1, 9):
            self.do("mousemove", *(a + (b - a) * step // 8 for a, b in zip(start, end)))
        self.do("mouseup", 1)

    def press(self, *keys):
        """Types the keys as xdotool names them."""
        self.do("key", *keys)

    def type(self, text):
        self.do("type", text)

    def active_window(self, title):
        """The number of the window with the keyboard, if it is one with that title."""
        answer = run(["xdotool", "getactivewindow", "getwindowname"], self.environment, check=False)
        if not re.fullmatch(title, answer.strip()):
            return None
        return run(["xdotool", "getactivewindow"], self.environment, check=False).strip()

    def parts(self):
        """What assistive technology reads of the program's open windows."""
        return accessibility.read(self.environment)

    def part(self, role, name, seconds=10):
        """The part of that role whose name begins so, once it is there."""
        def find():
            return next((part for part in self.parts()
                         if part.role == role and part.name.startswith(name)), None)
        found = becomes(find, seconds)
        if not found:
            raise Failure(f"there is no {role} \"{name}\", only\n" +
                          "\n".join(map(str, self.parts())))
        return found

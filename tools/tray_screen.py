"""The tray, the balloons and the second start, as a user has them: with real clicks on a tray of the
older kind, with a server of notifications, with a tray on the bus, and with none of these.

    tools/on_screen tools/tray_screen.py PROGRAM SERVICE [FOLDER]     # for pictures
"""

import http.client
import os
import re
import signal
import socket
import struct
import subprocess
import sys
import time
import urllib.parse

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from tour import Tour, wait_for  # noqa: E402

TRAY = (1256, 0, 24, 24)  # trayer's place for one icon on a screen that is 1280 wide


# The three pictures, by a pixel that only one of them has.
def PERSONAL(red, green, blue):
    return (red, green, blue) == (0xFF, 0xC3, 0x21)


def MENTION(red, green, blue):
    return (red, green, blue) == (0xD8, 0x1E, 0x1E)


def WINDOW(red, green, blue):
    return blue > red + 80


NOTIFICATIONS = """<node><interface name="org.freedesktop.Notifications">
<method name="GetCapabilities"><arg direction="out" type="as"/></method>
<method name="Notify"><arg direction="in" type="s"/><arg direction="in" type="u"/>
<arg direction="in" type="s"/><arg direction="in" type="s"/><arg direction="in" type="s"/>
<arg direction="in" type="as"/><arg direction="in" type="a{sv}"/><arg direction="in" type="i"/>
<arg direction="out" type="u"/></method>
<method name="CloseNotification"><arg direction="in" type="u"/></method>
<signal name="ActionInvoked"><arg type="u"/><arg type="s"/></signal>
</interface></node>"""

WATCHER = """<node><interface name="org.kde.StatusNotifierWatcher">
<method name="RegisterStatusNotifierItem"><arg direction="in" type="s"/></method>
<method name="RegisterStatusNotifierHost"><arg direction="in" type="s"/></method>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
<signal name="StatusNotifierHostRegistered"/><signal name="StatusNotifierHostUnregistered"/>
</interface></node>"""


def check(what, is_so):
    if not is_so:
        sys.exit(f"tray_screen: {what}")
    print(f"ok: {what}", flush=True)


def run(*command):
    return subprocess.run(command, capture_output=True, text=True).stdout


def pump():
    while GLib.MainContext.default().iteration(False):
        pass


class OnTheBus:
    """A service of the desktop on the session's bus."""

    name = path = xml = None

    def __init__(self):
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(self.xml).interfaces[0]
        self.object = self.bus.register_object(
            self.path, interface, self.called, lambda *question: self.property(question[4])
        )
        self.call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName",
                  GLib.Variant("(su)", (self.name, 4)))

    def call(self, name, path, interface, method, arguments=None):
        return self.bus.call_sync(name, path, interface, method, arguments, None, 0, 5000)

    def leave(self):
        self.call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "ReleaseName",
                  GLib.Variant("(s)", (self.name,)))
        self.bus.unregister_object(self.object)

    def property(self, name):
        return None

    def called(self, bus, sender, path, interface, method, arguments, invocation):
        answer = getattr(self, method)(sender, *arguments.unpack())
        invocation.return_value(answer)


class Notifications(OnTheBus):
    name, path = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
    xml = NOTIFICATIONS

    def __init__(self):
        self.shown, self.closed = [], []
        super().__init__()

    def GetCapabilities(self, sender):
        return GLib.Variant("(as)", (["body", "body-markup", "actions"],))

    def Notify(self, sender, app, replaces, icon, title, text, *rest):
        self.shown.append((title, text))
        return GLib.Variant("(u)", (replaces or 7,))

    def CloseNotification(self, sender, number):
        self.closed.append(number)

    def click(self):
        self.bus.emit_signal(None, self.path, self.name, "ActionInvoked",
                             GLib.Variant("(us)", (7, "default")))


class BusTray(OnTheBus):
    """The watcher of tray icons, with a host that knows one of them."""

    name, path = "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher"
    xml = WATCHER

    def __init__(self):
        self.item = None
        super().__init__()

    def RegisterStatusNotifierItem(self, sender, service):
        self.item = sender

    def RegisterStatusNotifierHost(self, sender, service):
        pass

    def property(self, name):
        if name == "IsStatusNotifierHostRegistered":
            return GLib.Variant("b", True)
        if name == "ProtocolVersion":
            return GLib.Variant("i", 0)
        return GLib.Variant("as", [])

    def activate(self):
        self.bus.call(self.item, "/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate",
                      GLib.Variant("(ii)", (0, 0)), None, 0, 5000, None, None)

    def ask(self, name):
        return self.call(self.item, "/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
                         GLib.Variant("(ss)", ("org.kde.StatusNotifierItem", name))).unpack()[0]

    def menu(self):
        """The items that show: their numbers by their captions."""
        layout = self.call(self.item, "/MenuBar", "com.canonical.dbusmenu", "GetLayout",
                           GLib.Variant("(iias)", (0, -1, []))).unpack()[1]
        return {
            item[1]["label"].replace("_", ""): item[0]
            for item in layout[2]
            if "label" in item[1] and item[1].get("visible", True)
        }

    def choose(self, caption):
        self.bus.call(self.item, "/MenuBar", "com.canonical.dbusmenu", "Event",
                      GLib.Variant("(isvu)", (self.menu()[caption], "clicked",
                                              GLib.Variant("s", ""), 0)),
                      None, 0, 5000, None, None)


class Friend:
    """Somebody else on the chat."""

    def __init__(self, port, channel):
        self.port, self.fields = port, {"username": "harbour", "passwd": "x", "channel": channel}
        page = self.ask("/", self.fields)
        self.fields["ticket"] = re.search(r"ticket=(\w+)", page).group(1)
        del self.fields["passwd"]
        self.frame = socket.create_connection(("localhost", port))
        self.frame.sendall(f"GET {self.query('/pframe', self.fields)} HTTP/1.0\r\n\r\n".encode())

    def query(self, path, fields):
        return path + "?" + urllib.parse.urlencode(fields, encoding="koi8-r")

    def ask(self, path, fields):
        connection = http.client.HTTPConnection("localhost", self.port)
        connection.request("GET", self.query(path, fields))
        return connection.getresponse().read().decode("koi8-r")

    def say(self, text):
        self.ask("/newmsg_t", {**self.fields, "msgtext": text})

    def write(self, to, text):
        self.ask("/newmsg_pm", {**self.fields, "xtouser": to, "msgtext": text})


class TrayScreen(Tour):
    def __init__(self, program, service, folder):
        self.program = program
        self.tray = None
        super().__init__(program, service, folder)

    def service_options(self):
        return ["--quiet", "--history", "0"]

    # ---- hands and eyes ----

    def start_client(self):
        self.client = subprocess.Popen([self.program])
        wait_for("the window", self.on_screen)

    def start_tray(self):
        self.tray = subprocess.Popen(
            ["trayer", "--edge", "top", "--align", "right", "--widthtype", "request",
             "--heighttype", "pixel", "--height", "24"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def end_tray(self):
        self.tray.terminate()
        self.tray.wait()

    def window(self):
        """The main window's number; None while it is hidden."""
        for number in re.findall(r"0x[0-9a-f]+", run("xprop", "-root", "_NET_CLIENT_LIST")):
            if "- Parlorwire" in run("xprop", "-id", number, "_NET_WM_NAME"):
                return number
        return None

    def state(self):
        return run("xprop", "-id", self.window() or "0", "_NET_WM_STATE", "WM_STATE")

    def on_screen(self):
        window = self.window()
        return window and "Normal" in run("xprop", "-id", window, "WM_STATE")

    def in_front(self):
        active = run("xprop", "-root", "_NET_ACTIVE_WINDOW")
        return self.on_screen() and re.search(rf"{self.window()}\b", active)

    def colours(self, x, y, width, height):
        path = os.path.join(os.path.dirname(self.program), "box.bmp")
        run("maim", "-u", "-f", "bmp", "-g", f"{width}x{height}+{x}+{y}", path)
        with open(path, "rb") as file:
            data = file.read()
        start, = struct.unpack_from("<I", data, 10)
        depth, = struct.unpack_from("<H", data, 28)
        row = (width * depth // 8 + 3) // 4 * 4
        return {
            tuple(reversed(data[start + y * row + x * depth // 8 :][:3]))
            for y in range(height) for x in range(width)
        }

    def icon_shows(self, picture):
        pump()
        return any(picture(*colour) for colour in self.colours(*TRAY))

    def click_icon(self, button=1):
        run("xdotool", "mousemove", "1268", "12", "click", str(button))

    def wait_until_hidden(self):
        wait_for("the window to hide", lambda: not self.window())

    def wait_until_in_front(self):
        wait_for("the window in front", self.in_front)

    def see(self, name):
        if self.folder:
            self.picture(name)

    # ---- the scenes ----

    def play(self):
        wait_for("the window", self.in_front)
        self.press("button_connect_main")
        for field in ("Логин", "Пароль", "Канал"):
            self.wait_for_focus(field)
            self.keys("Return")
        self.wait_for_line("s9.")
        self.friend = Friend(self.port, "Гостиная")
        time.sleep(3.2)  # lines of a fresh connection call nobody
        self.without_a_tray()
        self.with_an_older_tray()
        self.with_a_server_of_notifications()
        self.another_start()
        self.the_end_of_the_session()
        self.with_a_tray_on_the_bus()

    def without_a_tray(self):
        run("xdotool", "windowminimize", self.window())
        wait_for("the minimized window", lambda: "Iconic" in self.state())
        time.sleep(0.5)
        check("without a tray a minimized window stays in the task bar", self.window())
        self.friend.say("newcomer: look here")
        wait_for("the call", lambda: "DEMANDS_ATTENTION" in self.state())
        check("a mention marks it in the task bar", True)
        self.see("own-balloon")
        balloon = run("xdotool", "search", "--onlyvisible", "--name", "^Parlorwire$").split()
        check("its balloon is a window of our own", len(balloon) == 1)
        check("which takes no focus", "DEMANDS_ATTENTION" in self.state())
        run("xdotool", "mousemove", "1150", "740", "click", "1")
        self.wait_until_in_front()
        check("a click on it brings the window up", True)

    def with_an_older_tray(self):
        self.start_tray()
        wait_for("the icon", lambda: self.icon_shows(WINDOW))
        check("a tray that comes late gets the icon", True)
        time.sleep(0.6)  # longer than a double click takes
        self.click_icon()
        self.wait_until_hidden()
        check("a click on the icon hides the window", True)
        self.friend.say("newcomer: and here <b>&")
        wait_for("the blink", lambda: self.icon_shows(MENTION))
        self.see("mention-older-tray")
        wait_for("the other picture", lambda: self.icon_shows(WINDOW))
        check("a mention makes it blink", True)
        run("xdotool", "mousemove", "1180", "60", "click", "1")
        self.wait_until_in_front()
        check("a click on the balloon at the icon brings the window up", True)
        time.sleep(1.2)
        check("the icon is still then", not self.icon_shows(MENTION))

        self.maximize()
        run("xdotool", "windowminimize", self.window())
        self.wait_until_hidden()
        check("a minimized window goes to the tray", True)
        self.friend.write("newcomer", "psst")
        wait_for("the blink", lambda: self.icon_shows(PERSONAL))
        self.see("personal-older-tray")
        check("a personal message blinks with the other picture", True)
        self.click_icon()
        self.wait_until_in_front()
        check("the window comes back maximized", "MAXIMIZED_VERT" in self.state())
        time.sleep(0.6)
        self.keys("ctrl+h")
        self.wait_until_hidden()
        check("a key puts the window into the tray", True)
        self.end_tray()
        self.wait_until_in_front()
        check("a tray that goes brings the window back", "MAXIMIZED_VERT" in self.state())
        self.maximize(False)  # its title would lie where the icon goes
        self.start_tray()
        wait_for("the icon", lambda: self.icon_shows(WINDOW))
        check("a tray that comes back is used", True)

    def maximize(self, maximized=True):
        place = run("xwininfo", "-id", self.window())
        left, top = (
            int(re.search(rf"Absolute upper-left {axis}: +(-?\d+)", place).group(1)) for axis in "XY"
        )
        run("xdotool", "mousemove", str(left + 300), str(top - 10))
        run("xdotool", "click", "--repeat", "2", "--delay", "50", "1")
        wait_for("the size", lambda: ("MAXIMIZED_VERT" in self.state()) == maximized)

    def with_a_server_of_notifications(self):
        server = Notifications()
        self.click_icon()
        self.wait_until_hidden()
        self.friend.say("newcomer: 1 < 2 & <b>so</b>")
        wait_for("the notification", lambda: pump() or server.shown)
        title, text = server.shown[-1]
        check("the server is given the title", title == "Parlorwire")
        check("the text is plain", "1 &lt; 2 &amp; &lt;b&gt;so&lt;/b&gt;" in text)
        check("it says for whom and where", "Ник: newcomer\nКанал: Гостиная" in text)
        server.click()
        pump()
        self.wait_until_in_front()
        check("a click on it brings the window up", True)
        server.leave()

    def another_start(self):
        time.sleep(0.6)
        self.click_icon()
        self.wait_until_hidden()
        second = subprocess.run([self.program], timeout=20)
        check("a second start ends with 0", second.returncode == 0)
        self.wait_until_in_front()
        check("it brings the first one's window out of the tray", True)

    def the_end_of_the_session(self):
        self.client.kill()
        self.client.wait()
        self.start_client()
        check("a killed one does not stand in the way", True)
        wait_for("the icon", lambda: self.icon_shows(WINDOW))
        self.click_icon()
        self.wait_until_hidden()
        self.client.send_signal(signal.SIGTERM)
        check("from the tray the session's end is an end with 0", self.client.wait(20) == 0)
        self.end_tray()

    def with_a_tray_on_the_bus(self):
        tray = BusTray()
        self.client = subprocess.Popen([self.program])
        wait_for("the icon", lambda: pump() or tray.item)
        self.wait_until_in_front()
        time.sleep(0.3)
        pump()
        check("a tray on the bus gets the icon", tray.ask("IconPixmap"))
        check("with its tip", "Неподключен - Parlorwire" in tray.ask("ToolTip"))
        check("its menu puts the window away", "Убрать в трей" in tray.menu())
        tray.choose("Убрать в трей")
        wait_for("the window to hide", lambda: pump() or not self.window())
        wait_for("the other item", lambda: pump() or "Восстановить" in tray.menu())
        check("and shows the other item then", "Убрать в трей" not in tray.menu())
        tray.activate()
        wait_for("the window in front", lambda: pump() or self.in_front())
        check("a click brings it back", True)
        time.sleep(0.6)
        tray.activate()
        wait_for("the window to hide", lambda: pump() or not self.window())
        tray.leave()
        wait_for("the window in front", lambda: pump() or self.in_front())
        check("a tray that goes from the bus brings the window back", True)
        again = BusTray()
        wait_for("the icon", lambda: pump() or again.item)
        check("one that comes back gets the icon", True)
        time.sleep(0.3)
        pump()
        again.choose("Выход")
        wait_for("the end", lambda: pump() or self.client.poll() is not None)
        check("the menu ends the program", self.client.returncode == 0)


def main():
    folder = sys.argv[3] if len(sys.argv) > 3 else None
    screen = TrayScreen(sys.argv[1], sys.argv[2], folder)
    try:
        screen.play()
    except SystemExit:
        print("the client:", screen.client.poll(), flush=True)
        screen.see("failed")
        raise
    finally:
        screen.client.kill()
        screen.stop_service()
        if screen.tray:
            screen.tray.kill()


if __name__ == "__main__":
    main()

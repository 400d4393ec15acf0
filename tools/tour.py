"""The tour: drives the client through the accessibility interface, as a user with a screen reader
and a keyboard would, and takes a picture at each stop."""

import os
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

PATIENCE = 60  # seconds for anything to happen


def wait_for(what, probe):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            found = probe()
            if found:
                return found
        except Exception:  # a control that went away while it was looked at
            pass
        time.sleep(0.1)
    sys.exit(f"tour: waited in vain for {what}")


def below(control):
    yield control
    for i in range(control.get_child_count()):
        child = control.get_child_at_index(i)
        if child is not None:
            yield from below(child)


SETTINGS = """[Main]\r
ChatHostByName=localhost\r
ChatPort={port}\r
Logins=1\r
Login0=newcomer\r
Passw0=welcome\r
Channel0=Гостиная\r
"""


class Tour:
    def __init__(self, program, service, folder):
        self.service = service
        self.folder = folder
        self.pictures = 0
        self.port = 0
        self.start_service()
        config = os.path.join(self.settings_folder(program), "config.ini")
        with open(config, "w", encoding="cp1251", newline="") as file:
            file.write(SETTINGS.format(port=self.port))
        self.client = subprocess.Popen([program])
        Atspi.init()

    def start_service(self):
        """On the port of the last time, or on a free one at first."""
        self.chat = subprocess.Popen(
            [self.service, "--port", str(self.port), *self.service_options()],
            stdout=subprocess.PIPE,
            text=True,
        )
        self.port = int(self.chat.stdout.readline().rsplit(":", 1)[1])

    def service_options(self):
        return []

    def settings_folder(self, program):
        return os.path.dirname(program)

    def stop_service(self):
        self.chat.terminate()
        self.chat.wait()

    # ---- hands and eyes ----

    def application(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child is not None and child.get_name() == "parlorwire":
                return child
        return None

    def find(self, name):
        """The control with this name of its own, shown at this moment."""
        for control in below(self.application()):
            if control.get_description() == name and control.get_state_set().contains(
                Atspi.StateType.SHOWING
            ):
                return control
        return None

    def control(self, name):
        return wait_for(name, lambda: self.find(name))

    def wait_for_focus(self, spoken_name):
        def probe():
            for control in below(self.application()):
                if control.get_state_set().contains(Atspi.StateType.FOCUSED):
                    if control.get_name() == spoken_name:
                        return control
            return None

        wait_for(f"the focus on {spoken_name}", probe)
        time.sleep(0.3)  # the window manager has its say, too

    def text(self, name):
        return Atspi.Text.get_text(self.control(name), 0, -1)

    def press(self, name):
        Atspi.Action.do_action(self.control(name), 0)

    def menu(self, *captions):
        for caption in captions[:-1]:
            Atspi.Action.do_action(self.item(caption), 0)
        Atspi.Action.do_action(self.item(captions[-1]), 0)

    def item(self, caption):
        def probe():
            for control in below(self.application()):
                if control.get_name() == caption and "menu" in control.get_role_name():
                    return control
            return None

        return wait_for(f"the menu {caption}", probe)

    def keys(self, *keys):
        subprocess.run(["xdotool", "key", "--delay", "60", *keys], check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "20", text], check=True)

    def wait_for_line(self, line, pane="Rich_0"):
        wait_for(line, lambda: line in self.text(pane))

    def picture(self, name, settle=0.7):
        time.sleep(settle)
        self.pictures += 1
        path = os.path.join(self.folder, f"{self.pictures:02}-{name}.png")
        subprocess.run(["maim", path], check=True)
        print(path, flush=True)

    # ---- the stops ----

    def play(self):
        self.control("button_connect_main")
        self.picture("main-window")
        self.press("button_connect_main")
        self.control("connection_form")
        self.picture("login")
        self.press("connect_param")
        self.control("sett_conn")
        self.picture("proxy")
        self.keys("Escape")
        wait_for("the proxy dialog to go", lambda: not self.find("sett_conn"))
        for field in ("Логин", "Пароль", "Канал"):
            self.wait_for_focus(field)
            self.keys("Return")

        self.wait_for_line("s9.")
        self.picture("channel", settle=6)
        self.wait_for_focus("Сообщение")
        self.type("Hello, everybody")
        self.keys("Return")
        self.wait_for_line("Hello, everybody")
        self.type("Привет всем!")
        self.keys("Return")
        self.wait_for_line("Привет всем!")
        self.picture("talking", settle=3)
        self.keys("Up")
        self.picture("history")
        self.keys("ctrl+a", "BackSpace")

        self.stop_service()
        self.wait_for_line("Ошибка")
        self.picture("service-gone")
        self.start_service()
        checked = "Проверка установленного стиля... s9."
        wait_for("the reconnect", lambda: self.text("Rich_0").count(checked) > 1)
        self.picture("reconnected", settle=3)

        self.menu("Настройки", "Язык", "English")
        self.picture("english")
        self.press("button_connect_main")
        self.control("connection_form")
        self.picture("login-english")
        self.press("connect_param")
        self.control("sett_conn")
        self.picture("proxy-english")
        self.keys("Escape")
        wait_for("the proxy dialog to go", lambda: not self.find("sett_conn"))
        self.keys("Escape")
        wait_for("the login dialog to go", lambda: not self.find("connection_form"))
        self.menu("File", "Exit")
        status = self.client.wait(timeout=PATIENCE)
        if status != 0:
            sys.exit(f"tour: the client ended with {status}")


def main():
    tour = Tour(*sys.argv[1:4])
    try:
        tour.play()
    except SystemExit:
        tour.picture("failed")
        raise
    finally:
        if tour.client.poll() is None:
            tour.client.kill()
        tour.stop_service()


if __name__ == "__main__":
    main()

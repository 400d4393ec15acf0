"""Uses the installed client once: enters a channel, says a line with a smile, and leaves."""

import os
import sys

from tour import PATIENCE, Tour

DATA = os.path.join(os.environ["XDG_DATA_HOME"], "parlorwire")
LINE = "Installed, *:) indeed"


class Installed(Tour):
    def settings_folder(self, program):
        os.makedirs(DATA)
        return DATA

    def play(self):
        self.press("button_connect_main")
        for field in ("Логин", "Пароль", "Канал"):
            self.wait_for_focus(field)
            self.keys("Return")
        self.wait_for_line("s9.")
        self.wait_for_focus("Сообщение")
        self.type(LINE)
        self.keys("Return")
        self.wait_for_line(LINE.replace("*:)", "\ufffc"))  # its picture
        self.picture("installed")
        self.menu("Файл", "Выход")
        status = self.client.wait(timeout=PATIENCE)
        if status != 0 or not os.path.isdir(os.path.join(DATA, "Logs")):
            sys.exit(f"installed: the client ended with {status} and left {os.listdir(DATA)}")


if __name__ == "__main__":
    installed = Installed(sys.argv[1], sys.argv[2], sys.argv[3])
    try:
        installed.play()
    finally:
        installed.client.kill()
        installed.stop_service()

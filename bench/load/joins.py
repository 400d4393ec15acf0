"""The crowd: logs a tab in by keyboard as the first one on a channel, an operator therefore; lets
people come from addresses of their own, half of them from ones that the log knows; and measures."""

import os
import re
import socket
import threading
import time
import urllib.parse

from load import PATIENCE, Load, main, wait_for, window

ENTRIES = 10_000
ADDRESSES = 100_000
CHANNEL = "room0"
STAY = 5  # seconds; in a crowd the list of users is late
LIMIT = 16  # ms: a turn of the event loop that can be felt
BOT = "[Bot]\r\nAutoKick=True\r\nSayIPAndFlags=True\r\n"


def address(number):
    """Of this machine, a different one for each number."""
    return f"127.{1 + number // 40_000}.{number // 200 % 200}.{1 + number % 200}"


def kicks():
    for i in range(ENTRIES):
        mask = f"172.{i // 200}.*.{i % 200}" if i % 2 else f"spammer{i}*"
        yield f"{mask}\thall;{CHANNEL}\tgo away, and stay there\tfriend{i};another"


class Joins(Load):
    def __init__(self, program, service, probe, seconds, rate):
        folder = os.path.dirname(program)
        log = "".join(
            f"\r\n{address(i)} visitor_{i} guest_{i} mask_{i}" for i in range(ADDRESSES)
        )
        for name, text in (("AutoKick.lst", "\r\n".join(kicks())), ("IPlog.log", log)):
            with open(os.path.join(folder, name), "w", encoding="cp1251", newline="") as file:
                file.write(text)
        self.turned_away = []
        super().__init__(program, service, probe, seconds, rate)

    def settings(self):
        return super().settings() + BOT

    def service_options(self):
        return ["--quiet", "--grace", "1"]

    def ask(self, source, path, **fields):
        body = urllib.parse.urlencode(fields).encode("ascii")
        head = f"POST {path} HTTP/1.0\r\nContent-Length: {len(body)}\r\n\r\n"
        asked = socket.create_connection(("127.0.0.1", self.port), PATIENCE, (source, 0))
        asked.sendall(head.encode("ascii") + body)
        return asked

    def visit(self, number):
        """Comes, stays for a while, and goes."""
        nick = f"crowd{number}"
        # A known address and a new one in turn.
        source = address(number if number % 2 else ADDRESSES + number)
        try:
            login = {"username": nick, "passwd": "word", "channel": CHANNEL, "chpwd": ""}
            with self.ask(source, "/", **login) as asked:
                page = b"".join(iter(lambda: asked.recv(65536), b""))
            ticket = page.split(b"&ticket=", 1)[1].split(b"'", 1)[0].decode("ascii")
            seat = {"username": nick, "ticket": ticket, "channel": CHANNEL, "chpwd": ""}
            with self.ask(source, "/pframe", **seat):
                time.sleep(STAY)
        except (OSError, IndexError) as why:
            self.turned_away.append((nick, why))

    def crowd(self):
        start = time.monotonic()
        visits = []
        for number in range(self.lines):
            time.sleep(max(0, start + number / self.rate - time.monotonic()))
            visits.append(threading.Thread(target=self.visit, args=(number,)))
            visits[-1].start()
        for visit in visits:
            visit.join()
        return time.monotonic() - start

    def logged(self):
        with open(os.path.join(self.folder, "IPlog.log"), encoding="cp1251", newline="") as file:
            return len(set(re.findall(r" (crowd\d+)\b", file.read())))

    def run(self):
        wait_for("the main window", lambda: window("Parlorwire"))
        time.sleep(2)
        self.log_in(0)
        time.sleep(5)  # the burst of the start is over, and the bot is armed
        self.reset_turns()
        cpu = self.stat()
        took = self.crowd()
        time.sleep(4)
        cpu = self.stat() - cpu
        turns, worst_wall, worst_cpu, wall_over, cpu_over = self.turns(LIMIT)
        print(f"{self.lines} came in {took - STAY:.1f} s; turned away: {len(self.turned_away)}")
        print(f"in the log: {self.logged()}")
        print(f"CPU: {cpu / self.lines * 1000:.1f} ms for each")
        print(f"turns of the event loop: {turns}")
        print(f"  longest by the clock {worst_wall / 1e6:.1f} ms; over {LIMIT} ms: {wall_over}")
        print(f"  longest by the thread's own time {worst_cpu / 1e6:.1f} ms; over {LIMIT} ms: {cpu_over}")
        print(f"memory: {self.memory():.0f} MB")
        return len(self.turned_away)


if __name__ == "__main__":
    main(Joins)

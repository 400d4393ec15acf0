"""The load run: logs ten tabs in by keyboard, as a user does, lets the service talk, and measures.
It uses no accessibility interface while it measures: a client that is read out works more."""

import glob
import os
import re
import struct
import subprocess
import sys
import time
import urllib.parse
import urllib.request

TABS = 10
PATIENCE = 60  # seconds for anything to happen
STARTED = "s9.".encode("cp1251")
NUMBER = re.compile(rb": #(\d{8}) ")
SETTINGS = "[Main]\r\nChatHostByName=localhost\r\nChatPort={port}\r\nLanguage=English\r\n"
PROBE = struct.Struct("4Q64Q64Q")  # the record of event_probe.cpp


def wait_for(what, probe, patience=PATIENCE):
    end = time.monotonic() + patience
    while time.monotonic() < end:
        found = probe()
        if found:
            return found
        time.sleep(0.1)
    sys.exit(f"load: waited in vain for {what}")


def keys(*names):
    subprocess.run(["xdotool", "key", "--delay", "30", *names], check=True)


def type_line(text):
    subprocess.run(["xdotool", "type", "--delay", "10", text], check=True)
    keys("Return")
    time.sleep(0.3)


def window(title):
    found = subprocess.run(
        ["xdotool", "search", "--onlyvisible", "--name", title],
        stdout=subprocess.PIPE,
        stderr=subprocess.DEVNULL,
        text=True,
    ).stdout.split()
    return found[0] if found else None


def activate(title):
    subprocess.run(["xdotool", "windowactivate", "--sync", wait_for(title, lambda: window(title))])


class Load:
    def __init__(self, program, service, probe, seconds, rate):
        folder = self.folder = os.path.dirname(program)
        self.seconds = seconds
        self.rate = rate
        self.lines = seconds * rate
        self.chat = subprocess.Popen(
            [service, "--history", "0", "--keepalive", "90", "--seed", "1", "--channels", "lobby"]
            + self.service_options(),
            stdout=subprocess.PIPE,
            text=True,
        )
        self.port = int(self.chat.stdout.readline().rsplit(":", 1)[1])
        with open(os.path.join(folder, "config.ini"), "w", encoding="cp1251", newline="") as file:
            file.write(self.settings())
        self.set_style()
        self.probe_file = os.path.join(folder, "event_probe")
        environment = dict(os.environ, EVENT_PROBE=self.probe_file)
        environment["LD_PRELOAD"] = probe
        environment.pop("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", None)
        self.client = subprocess.Popen([program], env=environment)

    def settings(self):
        return SETTINGS.format(port=self.port)

    def service_options(self):
        talk = ["--talk", str(self.rate), "--talk-lines", str(self.lines)]
        return talk + ["--talk-frames", str(TABS)]

    def post(self, path, **fields):
        body = urllib.parse.urlencode(fields).encode("ascii")
        with urllib.request.urlopen(f"http://127.0.0.1:{self.port}{path}", body) as answer:
            return answer.read().decode("koi8-r")

    def set_style(self):
        """So that no tab has to change its style, and to connect again, when the talk begins."""
        page = self.post("/", username="alice", passwd="secret", channel="lobby", chpwd="")
        ticket = page.split("&ticket=", 1)[1].split("'", 1)[0]
        self.post(
            "/newmsg_t", username="alice", ticket=ticket, channel="lobby", msgtext="/set s 9"
        )

    # ---- the client, from outside ----

    def log(self, tab, last=None):
        """The day logs of a tab's channel; their last bytes if only so many are wanted."""
        content = b""
        for name in sorted(glob.glob(os.path.join(self.folder, "Logs", f"room{tab}", "*.log"))):
            with open(name, "rb") as file:
                if last is not None:
                    file.seek(max(0, os.path.getsize(name) - last))
                content += file.read()
        return content

    def log_in(self, tab):
        keys("ctrl+t", "alt+l")
        for text in ("alice", "secret", f"room{tab}"):
            time.sleep(0.3)
            keys("ctrl+a")
            type_line(text)
        wait_for(f"tab {tab}", lambda: STARTED in self.log(tab))
        time.sleep(0.3)

    def stat(self):
        with open(f"/proc/{self.client.pid}/stat", encoding="ascii") as file:
            fields = file.read().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def wake_ups(self):
        count = 0
        for name in glob.glob(f"/proc/{self.client.pid}/task/*/status"):
            with open(name, encoding="ascii") as file:
                count += int(re.search(r"^voluntary_ctxt_switches:\s+(\d+)", file.read(), re.M)[1])
        return count

    def memory(self):
        with open(f"/proc/{self.client.pid}/status", encoding="ascii") as file:
            return int(re.search(r"^VmRSS:\s+(\d+)", file.read(), re.M)[1]) / 1024

    def turns(self, limit=50):
        """How many, the longest in ns, how many above the limit in ms: by the clock and by the
        thread."""
        with open(self.probe_file, "rb") as file:
            record = PROBE.unpack(file.read(PROBE.size))
        by_ms, by_cpu_ms = record[4:68], record[68:132]
        return record[0], record[2], record[3], sum(by_ms[limit:]), sum(by_cpu_ms[limit:])

    def reset_turns(self):
        with open(self.probe_file, "r+b") as file:
            file.write(bytes(PROBE.size))

    # ---- the run ----

    def has_last_line(self, tab):
        return b"#%08d " % self.lines in self.log(tab, last=4096)

    def measure_load(self):
        start, cpu = time.monotonic(), self.stat()
        wait_for(
            "the last lines",
            lambda: all(self.has_last_line(tab) for tab in range(TABS)),
            self.seconds * 3 + PATIENCE,
        )
        took, cpu = time.monotonic() - start, self.stat() - cpu
        time.sleep(0.5)
        turns, worst_wall, worst_cpu, wall_over, cpu_over = self.turns()
        print(f"{TABS} tabs x {self.rate} lines/s for {self.seconds} s: took {took:.1f} s")
        print(f"CPU: {cpu / took * 100:.0f} %, {cpu / (TABS * self.lines) * 1e6:.1f} us a line")
        print(f"turns of the event loop: {turns}")
        print(f"  longest by the clock {worst_wall / 1e6:.1f} ms; over 50 ms: {wall_over}")
        print(f"  longest by the thread's own time {worst_cpu / 1e6:.1f} ms; over 50 ms: {cpu_over}")
        print(f"memory: {self.memory():.0f} MB")

    def measure_idle(self, what):
        time.sleep(4)  # the last timer that a line starts runs for three seconds
        cpu, count = self.stat(), self.wake_ups()
        time.sleep(10)
        cpu, count = self.stat() - cpu, self.wake_ups() - count
        print(f"idle for 10 s, {what}: CPU {cpu * 10:.1f} %, {count} voluntary wake-ups")

    def missing(self, text):
        """What of 1 to the last number does not stand in the text exactly once, in order."""
        numbers = [int(number) for number in NUMBER.findall(text)]
        if numbers == list(range(1, self.lines + 1)):
            return None
        return f"{len(numbers)} lines, {len(set(numbers))} different, of {self.lines}"

    def pane(self, tab):
        keys("ctrl+" + str((tab + 1) % 10))
        time.sleep(0.5)
        main = wait_for("the window", lambda: window("room"))
        subprocess.run(["xdotool", "mousemove", "--window", main, "500", "200", "click", "1"])
        time.sleep(0.2)
        keys("ctrl+a", "ctrl+c")
        time.sleep(1)
        command = ["xclip", "-selection", "clipboard", "-o"]
        return subprocess.run(command, stdout=subprocess.PIPE, timeout=PATIENCE).stdout

    def compare(self):
        wrong = 0
        for tab in range(TABS):
            for where, text in (("log", self.log(tab)), ("pane", self.pane(tab))):
                lost = self.missing(text)
                if lost:
                    wrong += 1
                    print(f"room{tab}: the {where} has {lost}")
        print("every line stands once in each log and pane" if wrong == 0 else "LINES ARE LOST")
        return wrong

    def run(self):
        wait_for("the main window", lambda: window("Parlorwire"))
        time.sleep(2)
        for tab in range(TABS - 1):
            self.log_in(tab)
        self.reset_turns()
        self.log_in(TABS - 1)
        self.measure_load()
        beside = subprocess.Popen(["xmessage", "-name", "beside", "something else"])
        activate("beside")
        self.measure_idle("another window has the focus")
        activate("room")
        self.measure_idle("the input box has the focus")
        beside.kill()
        beside.wait()
        return self.compare()


def main(run=Load):
    load = run(*sys.argv[1:4], int(sys.argv[4]), int(sys.argv[5]))
    try:
        sys.exit(1 if load.run() else 0)
    except SystemExit as end:
        if isinstance(end.code, str):
            subprocess.run(["maim", "load-failed.png"])
        raise
    finally:
        for process in (load.client, load.chat):
            process.kill()
            process.wait()


if __name__ == "__main__":
    main()

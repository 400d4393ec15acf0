"""Uses a pane as a screen reader does: reads its last lines, finds a nick, its colour and its place
on the screen, moves the caret, selects, and follows the new lines as they come."""

import os
import struct
import subprocess
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from tour import PATIENCE, Tour, wait_for  # noqa: E402

LINES = 60
NICK = "nordwind:"  # one of the inhabitants; he is nothing special on the channel
NICK_COLOUR = (207, 207, 255)


def check(what, is_so):
    if not is_so:
        sys.exit(f"screen_reader: {what}")
    print(f"ok: {what}", flush=True)


class ScreenReader(Tour):
    def __init__(self, program, service, folder):
        self.options = ["--talk", "10", "--talk-lines", str(LINES), "--history", "0"]
        super().__init__(program, service, folder)
        self.heard = []
        self.listener = Atspi.EventListener.new(self.hear)
        self.listener.register("object:text-changed:insert")

    def service_options(self):
        return self.options

    # ---- ears ----

    def hear(self, event):
        if event.source.get_description() == "Rich_0":
            self.heard.append(str(event.any_data))

    def listen(self, until):
        """Handles events until it is so."""
        loop = GLib.MainLoop()
        end = GLib.get_monotonic_time() + PATIENCE * 1_000_000

        def look():
            if until() or GLib.get_monotonic_time() > end:
                loop.quit()
            return True

        timer = GLib.timeout_add(50, look)
        loop.run()
        GLib.source_remove(timer)

    def number(self, i):
        return f"#{i:08}"

    # ---- eyes ----

    def pixels(self, box):
        """The colours of the screen there."""
        area = f"{box.width}x{box.height}+{box.x}+{box.y}"
        path = os.path.join(self.folder, "box.bmp")
        subprocess.run(["maim", "-u", "-f", "bmp", "-g", area, path], check=True)
        with open(path, "rb") as file:
            data = file.read()
        start, = struct.unpack_from("<I", data, 10)
        width, height = struct.unpack_from("<ii", data, 18)
        depth, = struct.unpack_from("<H", data, 28)
        row = (width * depth // 8 + 3) // 4 * 4
        colours = set()
        for y in range(abs(height)):
            for x in range(width):
                blue, green, red = data[start + y * row + x * depth // 8 :][:3]
                colours.add((red, green, blue))
        return colours

    def play(self):
        self.press("button_connect_main")
        for field in ("Логин", "Пароль", "Канал"):
            self.wait_for_focus(field)
            self.keys("Return")
        self.control("Rich_0")
        self.listen(lambda: self.number(LINES) in "".join(self.heard))
        pane = self.control("Rich_0")
        self.follows_new_lines()
        self.reads_the_last_lines(pane)
        nick = self.finds_a_nick_and_its_colour(pane)
        self.knows_where_characters_are(pane, nick)
        self.moves_the_caret(pane, nick)
        self.selects(pane, nick)

    def follows_new_lines(self):
        heard = "".join(self.heard)
        at = 0
        for i in range(1, LINES + 1):
            at = heard.find(self.number(i), at)
            if at < 0:
                sys.exit(f"screen_reader: line {i} was not told, or out of its order")
        check("each new line is told once and in order", heard.count("#000000") == LINES)
        check("a line is told with its time and its nick", f"] {NICK} " in heard)

    def reads_the_last_lines(self, pane):
        self.count = Atspi.Text.get_character_count(pane)
        self.text = Atspi.Text.get_text(pane, 0, -1)
        check("the text is as long as it says", len(self.text) == self.count)
        end = Atspi.Text.get_text(pane, max(0, self.count - 400), self.count)
        last = end.rstrip().splitlines()[-1]
        check("the last line is the last that came", self.number(LINES) in last)
        check("the line ahead of it is there, too", self.number(LINES - 1) in end)
        at = self.text.rfind(self.number(LINES))
        # The newer get_string_at_offset is not offered by the toolkit.
        line = Atspi.Text.get_text_at_offset(pane, at, Atspi.TextBoundaryType.LINE_START)
        check("the line at a place is the one there", self.number(LINES) in line.content)

    def finds_a_nick_and_its_colour(self, pane):
        nick = self.text.rfind(NICK)
        check("a nick is found in the text", nick > 0)
        attributes, start, end = Atspi.Text.get_attribute_run(pane, nick + 1, False)
        run = self.text[start:end].strip()
        check("the run at the nick is the nick", run == NICK)
        colour = tuple(int(part) for part in attributes["fg-color"].split(","))
        check(f"the nick's colour is {NICK_COLOUR}", colour == NICK_COLOUR)
        check("the nick is underlined", attributes.get("underline") == "single")
        behind, _, _ = Atspi.Text.get_attribute_run(pane, end + 1, False)
        check("what the nick says is of another format", behind != attributes)
        return nick

    def knows_where_characters_are(self, pane, nick):
        whole = Atspi.Component.get_extents(pane, Atspi.CoordType.SCREEN)
        boxes = [
            Atspi.Text.get_character_extents(pane, nick + i, Atspi.CoordType.SCREEN)
            for i in range(len(NICK))
        ]
        check("characters have a size", all(box.width > 0 and box.height > 0 for box in boxes))
        check(
            "they stand within the pane",
            all(
                whole.x <= box.x and box.x + box.width <= whole.x + whole.width
                and whole.y <= box.y and box.y + box.height <= whole.y + whole.height
                for box in boxes
            ),
        )
        check(
            "they stand side by side",
            all(one.x + one.width <= two.x + 1 for one, two in zip(boxes, boxes[1:])),
        )
        under = [
            Atspi.Text.get_offset_at_point(
                pane, box.x + box.width // 2, box.y + box.height // 2, Atspi.CoordType.SCREEN
            )
            for box in boxes
        ]
        there = [*range(nick, nick + len(NICK))]
        check("the character under a point is the one there", under == there)
        box = Atspi.Text.get_range_extents(pane, nick, nick + len(NICK) - 1, Atspi.CoordType.SCREEN)
        check("the box of the nick is around its characters", box.x <= boxes[0].x and box.width > 0)
        check("the nick is painted there in its colour", NICK_COLOUR in self.pixels(boxes[0]))

    def moves_the_caret(self, pane, nick):
        check("the caret goes where it is told", Atspi.Text.set_caret_offset(pane, nick))
        wait_for("the caret", lambda: Atspi.Text.get_caret_offset(pane) == nick)
        check("and is there", True)

    def selects(self, pane, nick):
        end = nick + len(NICK) - 1
        Atspi.Text.add_selection(pane, nick, end)
        check("there is one selection", Atspi.Text.get_n_selections(pane) == 1)
        chosen = Atspi.Text.get_selection(pane, 0)
        check("it is what was selected", (chosen.start_offset, chosen.end_offset) == (nick, end))
        self.stop_service()
        wait_for("a new line", lambda: Atspi.Text.get_character_count(pane) > self.count)
        chosen = Atspi.Text.get_selection(pane, 0)
        still = (chosen.start_offset, chosen.end_offset) == (nick, end)
        check("it stays where it is while lines come", still)
        Atspi.Text.remove_selection(pane, 0)
        check("it goes", Atspi.Text.get_n_selections(pane) == 0)


def main():
    reader = ScreenReader(sys.argv[1], sys.argv[2], os.path.dirname(sys.argv[1]))
    try:
        reader.play()
    except SystemExit:
        if len(sys.argv) > 3:
            subprocess.run(["maim", sys.argv[3]])
        raise
    finally:
        reader.client.kill()
        reader.stop_service()


if __name__ == "__main__":
    main()

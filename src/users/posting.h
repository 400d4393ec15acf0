// What the user says to a channel: one line, one post, one connection of Winsock2. The line comes
// back through the frame like any other; the answer's sentence shows in Rich_Server.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;

// An entry of the list `intonacia`, and the value that a post sends for it.
struct Tone {
  std::string_view label;  // Windows-1251; there is no English form
  int action;
};

// In the order of the list. The first is the tone of every message that asks for no other.
inline constexpr std::array<Tone, 7> kTones = {{{W<"Обычным тоном">, 200},
                                                {W<"Внутренним голосом">, 201},
                                                {W<"Смеется">, 202},
                                                {W<"Задумчиво">, 203},
                                                {W<"Уныло">, 204},
                                                {W<"Напевает">, 205},
                                                {W<"Ворчливо">, 206}}};

// The value of a label; 0 for a label that is not in the table.
int ToneAction(std::string_view label);

// The left button let go over `button_say`, or Enter in `msg`: posts what `msg` holds, even if that
// is nothing, and empties the box. A message that is still on its way is dropped.
void button_say_MouseUp(Client& client, int tab);

// The path and query of a post of `text`, without a tone. Escapes the tab's own fields in place;
// `text` goes out twice and equal.
Text PostUrl(Client& client, const Text& text, int tab);

// The events of Winsock2. There is none for an error: a post that fails leaves no trace.
void Winsock2_Connect(Client& client, int tab);
void Winsock2_DataArrival(Client& client, int tab, std::size_t bytes_total);
void Winsock2_Close(Client& client, int tab);

}  // namespace parlorwire

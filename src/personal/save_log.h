// The log of a personal window: what stands in its pane, as a file.
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire {

class RichTextBox;
struct Client;
struct PersonalWindow;

// What the user is asked for, in both languages.
inline constexpr std::string_view kSaveLogQuestion =
    W<"Выберите каталог, в котором сохранятся лог:">;

// Windows-1251. Each line ends in CR LF, and pictures are told by their codes.
Text LogOf(const RichTextBox& pane);

// A click on `save_log`: asks for a folder, writes "log.txt" there, and says whether that went
// well.
void save_log(Client& client, PersonalWindow& window);

}  // namespace parlorwire

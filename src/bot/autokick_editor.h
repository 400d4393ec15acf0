// The editor of the list of kicks, `bot_autokick`: what it decides. Its window shows the rows in
// `Grid1`, and tells what the user does. Nothing of it reaches `AutoKickText` or the file but by
// ApplyAutoKickEditor.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace parlorwire {

struct Client;

// A row. Its number, in column 0, is its place in the list, from 1.
struct AutoKickRow {
  Text mask;
  Text channels;  // ";" between them, or "All"
  Text reason;
  Text exceptions;  // nicks, ";" between them

  bool operator==(const AutoKickRow&) const = default;
};

// The columns of `Grid1` that can be edited, by their numbers.
enum class AutoKickColumn { kMask = 1, kChannels = 2, kReason = 3, kExceptions = 4 };

struct AutoKickEditor {
  std::vector<AutoKickRow> rows;
};

Text CellText(const AutoKickEditor& editor, std::size_t row, AutoKickColumn column);

// The rows of the list as it stands. A line without a TAB is a failure, of which a message box
// tells; it becomes a row without channels, so that applying loses nothing. A line without a reason
// has the default one.
AutoKickEditor OpenAutoKickEditor(Client& client);

// The button `button_add`, with the text of `input_field`. True: there is a new row at the end, and
// the field is to be emptied. A mask with a blank in it, one with a "." that is none of addresses,
// and one that stands in the table are refused with a message box.
bool AddAutoKickRow(Client& client, AutoKickEditor& editor, std::string_view input_field);

// `text` leaves the cell over which it was laid. True if the cell has taken what was typed, as the
// rules of its column make it; else, which a message box may tell of, it keeps what it had.
bool EditAutoKickCell(Client& client, AutoKickEditor& editor, std::size_t row,
                      AutoKickColumn column, std::string_view typed);

// The delete key on a row: asks. True if the row is gone; those behind it have moved up.
bool DeleteAutoKickRow(Client& client, AutoKickEditor& editor, std::size_t row);

// The menu of a nick has put one on the list while the editor is open, for a channel or for "All":
// the rows take that up, so that applying doesn't lose it. The row with this nick as its mask, in
// any case, gets the channel behind its own, or "All" in their place, unless it has that already;
// if there is none, it becomes a row at the end.
void TakeUpAutoKick(AutoKickEditor& editor, std::string_view nick, std::string_view channel);

// The button `button_apply`: the list becomes what the rows say, and is saved; the window closes.
// Comments of the list are gone then.
void ApplyAutoKickEditor(Client& client, const AutoKickEditor& editor);

// A list made of rows, and rows made of a list. A row whose mask begins with "//" is a comment in
// the list, which is no row any more. `failed` is set by a line without a TAB.
Text BuildAutoKickText(const std::vector<AutoKickRow>& rows);
std::vector<AutoKickRow> ReadAutoKickRows(std::string_view list, bool& failed);

// ---- the window's texts; each has this form only ----

// The title, by the caption of the active tab; the window asks anew when the tab changes.
Text AutoKickEditorTitle(const Client& client);

// The headers of the columns 0 to 4.
inline constexpr std::array<std::string_view, 5> kAutoKickHeaders = {
    W<"№">, W<"Ник или IP*">, W<"Забаненные каналы**">, W<"Причина">, W<"Ники-исключение">};
inline constexpr std::string_view kAutoKickInputLabel = W<"Введите ник или IP*:">;
inline constexpr std::string_view kAutoKickNote =
    W<"*Вы можете использовать символы-маску \"*\", \"?\", \"#\"\r\n"
      "**Каналы разделяются точкой с запятой, All означает все каналы">;

}  // namespace parlorwire

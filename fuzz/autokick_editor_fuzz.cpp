// The editor of the list of kicks: what it writes it reads again, whatever the list held,
// whatever was typed, and whoever was put on the list from the menu of a nick meanwhile. The parts
// of the input are separated by NULs: the list, and then what is in turn typed into the field for
// new masks, the nick of a menu, and what is typed into a cell.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "bot/autokick.h"
#include "bot/autokick_editor.h"
#include "support/simulated_platform.h"
#include "text/cut.h"
#include "text/one_line.h"

using namespace parlorwire;

namespace {

void Check(bool holds) {
  if (!holds) std::abort();
}

// The rows that are no comments in the list.
std::vector<AutoKickRow> Entries(std::vector<AutoKickRow> rows) {
  std::erase_if(rows, [](const AutoKickRow& row) { return row.mask.starts_with("//"); });
  return rows;
}

void CheckThatItComesIn(Client& client, const AutoKickEditor& editor) {
  ApplyAutoKickEditor(client, editor);
  Check(OpenAutoKickEditor(client).rows == Entries(editor.rows));
  LoadAutoKick(client);
  Check(OpenAutoKickEditor(client).rows == Entries(editor.rows));
}

void CheckAdding(Client& client, AutoKickEditor& editor, std::string_view typed) {
  const std::size_t rows = editor.rows.size();
  const bool added = AddAutoKickRow(client, editor, typed);
  Check(editor.rows.size() == rows + (added ? 1 : 0));
}

// The menu tells of one line each.
void CheckTakingUp(AutoKickEditor& editor, const Text& nick, const Text& channel) {
  const std::size_t rows = editor.rows.size();
  TakeUpAutoKick(editor, nick, channel);
  const auto row = std::ranges::find_if(
      editor.rows, [&](const AutoKickRow& each) { return EqualsNoCase(each.mask, nick); });
  Check(row != editor.rows.end());
  Check(Lists(row->channels, channel) || Lists(row->channels, kAllChannels));
  const std::vector<AutoKickRow> once = editor.rows;
  Check(once.size() <= rows + 1);
  TakeUpAutoKick(editor, nick, channel);
  Check(editor.rows == once);
}

void CheckEditing(Client& client, AutoKickEditor& editor, std::size_t turn,
                  std::string_view typed) {
  const auto column = static_cast<AutoKickColumn>(1 + turn / 2 % 4);
  const std::size_t row = turn % editor.rows.size();
  const Text old = CellText(editor, row, column);
  const bool taken = EditAutoKickCell(client, editor, row, column, typed);
  const Text now = CellText(editor, row, column);
  Check(taken || now == old);
  Check(!taken || now.find_first_of("\t\r\n") == Text::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4000) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const auto parts = Split(input, std::string_view("\0", 1));
  if (parts.empty()) return 0;
  SimulatedPlatform platform;
  Client client(platform.Ports());
  client.app.AutoKickText = parts[0];
  AutoKickEditor editor = OpenAutoKickEditor(client);
  CheckThatItComesIn(client, editor);

  for (std::size_t i = 1; i < parts.size(); ++i) {
    const bool for_all = i % 2 == 0;
    if (i % 3 == 2)
      CheckTakingUp(editor, OneLine(parts[i]),
                    for_all ? Text(kAllChannels) : OneLine(parts[i - 1]));
    else if (i % 3 == 1 || editor.rows.empty())
      CheckAdding(client, editor, parts[i]);
    else
      CheckEditing(client, editor, i, parts[i]);
  }
  CheckThatItComesIn(client, editor);
  return 0;
}

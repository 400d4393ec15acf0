// The editor of the list of kicks: what it writes it reads again, whatever the list held and
// whatever was typed. The parts of the input are separated by NULs: the list, and then what is
// typed in turn into the field for new masks and into the cells.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "bot/autokick.h"
#include "bot/autokick_editor.h"
#include "support/simulated_platform.h"
#include "text/cut.h"

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
    const std::size_t rows = editor.rows.size();
    if (i % 2 == 1 || rows == 0) {
      const bool added = AddAutoKickRow(client, editor, parts[i]);
      Check(editor.rows.size() == rows + (added ? 1 : 0));
    } else {
      const auto column = static_cast<AutoKickColumn>(1 + i / 2 % 4);
      const std::size_t row = i % rows;
      const Text old = CellText(editor, row, column);
      const bool taken = EditAutoKickCell(client, editor, row, column, parts[i]);
      const Text now = CellText(editor, row, column);
      Check(taken || now == old);
      Check(!taken || now.find_first_of("\t\r\n") == Text::npos);
    }
  }
  CheckThatItComesIn(client, editor);
  return 0;
}

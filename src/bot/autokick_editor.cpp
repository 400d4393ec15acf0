#include "bot/autokick_editor.h"

#include "bot/autokick.h"
#include "session/client.h"
#include "text/cut.h"
#include "text/one_line.h"

namespace parlorwire {
namespace {

template <class Editor>
auto& Cell(Editor& editor, std::size_t row, AutoKickColumn column) {
  auto& cells = editor.rows.at(row);
  switch (column) {
    case AutoKickColumn::kMask:
      return cells.mask;
    case AutoKickColumn::kChannels:
      return cells.channels;
    case AutoKickColumn::kReason:
      return cells.reason;
    case AutoKickColumn::kExceptions:
      break;
  }
  return cells.exceptions;
}

constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

// The first row other than `except` that has the mask, in any case; kNoRow if none has.
std::size_t RowWithMask(const AutoKickEditor& editor, std::string_view mask, std::size_t except) {
  for (std::size_t row = 0; row < editor.rows.size(); ++row)
    if (row != except && EqualsNoCase(editor.rows[row].mask, mask)) return row;
  return kNoRow;
}

// Why the mask can't stand in a row; "" if it can.
Text Objection(const AutoKickEditor& editor, const Text& mask, std::size_t row) {
  const bool address = Contains(mask, ".");
  if (Contains(mask, " ")) return "Ник или IP не должен содержать пробелы!"_w;
  if (address && !IsAddressMask(mask)) return "Ошибка в наборе IP!"_w;
  if (RowWithMask(editor, mask, row) == kNoRow) return {};
  return address ? "Такой IP уже есть в списке!"_w : "Такой ник уже есть в списке!"_w;
}

Text AsMask(std::string_view typed) {
  return Trim(Replace(OneLine(typed), ":", ""));
}

// "a; b" as "a;b".
Text AsList(std::string_view typed) {
  return Trim(Replace(OneLine(typed), "; ", ";"));
}

bool Refuse(Client& client, const Text& objection) {
  client.platform.desktop.MessageBox(objection, BoxIcon::kExclamation);
  return false;
}

AutoKickRow RowOf(std::string_view line) {
  const std::vector<std::string_view> fields = Split(line, "\t");
  AutoKickRow row{Text(fields[0]), "", Text(kDefaultReason), ""};
  if (fields.size() > 1) row.channels = fields[1];
  const bool reason = fields.size() > 3 || (fields.size() == 3 && !fields[2].empty());
  if (reason) row.reason = fields[2];
  // Whatever stands behind the third TAB.
  if (fields.size() > 3)
    row.exceptions = line.substr(fields[0].size() + fields[1].size() + fields[2].size() + 3);
  return row;
}

}  // namespace

Text CellText(const AutoKickEditor& editor, std::size_t row, AutoKickColumn column) {
  return Cell(editor, row, column);
}

AutoKickEditor OpenAutoKickEditor(Client& client) {
  bool failed = false;
  AutoKickEditor editor{ReadAutoKickRows(client.app.AutoKickText, failed)};
  if (failed)
    client.platform.desktop.MessageBox("Произошла ошибка при построении списка автокика!"_w,
                                       BoxIcon::kExclamation);
  return editor;
}

bool AddAutoKickRow(Client& client, AutoKickEditor& editor, std::string_view input_field) {
  const Text mask = AsMask(input_field);
  if (mask.empty()) return false;
  const Text objection = Objection(editor, mask, kNoRow);
  if (!objection.empty()) return Refuse(client, objection);
  editor.rows.push_back({mask, Text(kAllChannels), Text(kDefaultReason), ""});
  return true;
}

bool EditAutoKickCell(Client& client, AutoKickEditor& editor, std::size_t row,
                      AutoKickColumn column, std::string_view typed) {
  Text& cell = Cell(editor, row, column);
  switch (column) {
    case AutoKickColumn::kMask: {
      const Text mask = AsMask(typed);
      if (mask.empty()) return false;
      const Text objection = Objection(editor, mask, row);
      if (!objection.empty()) return Refuse(client, objection);
      cell = mask;
      return true;
    }
    case AutoKickColumn::kChannels: {
      const Text channels = AsList(typed);
      cell = channels.empty() ? Text(kAllChannels) : channels;
      return true;
    }
    case AutoKickColumn::kReason: {
      const Text reason = Trim(OneLine(typed));
      cell = reason.empty() ? Text(kDefaultReason) : reason;
      return true;
    }
    case AutoKickColumn::kExceptions: {
      const Text nicks = AsList(typed);
      if (Contains(nicks, " ")) return Refuse(client, "Ник  не должен содержать пробелы!"_w);
      cell = nicks;
      return true;
    }
  }
  return false;
}

bool DeleteAutoKickRow(Client& client, AutoKickEditor& editor, std::size_t row) {
  const Text question =
      "Вы действительно хотите удалить информацию о "_w + editor.rows.at(row).mask + "?";
  if (!client.platform.desktop.AskYesNo(question, BoxIcon::kQuestion)) return false;
  editor.rows.erase(editor.rows.begin() + static_cast<std::ptrdiff_t>(row));
  return true;
}

void TakeUpAutoKick(AutoKickEditor& editor, std::string_view nick, std::string_view channel) {
  const std::size_t row = RowWithMask(editor, nick, kNoRow);
  if (row == kNoRow) {
    editor.rows.push_back({Text(nick), Text(channel), Text(kDefaultReason), ""});
    return;
  }
  Text& channels = editor.rows[row].channels;
  if (Lists(channels, kAllChannels) || Lists(channels, channel)) return;
  if (EqualsNoCase(channel, kAllChannels))
    channels = channel;
  else
    channels.append(";").append(channel);
}

void ApplyAutoKickEditor(Client& client, const AutoKickEditor& editor) {
  client.app.AutoKickText = BuildAutoKickText(editor.rows);
  SaveAutoKick(client);
}

Text BuildAutoKickText(const std::vector<AutoKickRow>& rows) {
  Text list;
  for (const AutoKickRow& row : rows) {
    if (!list.empty()) list += "\r\n";
    list.append(row.mask).append("\t").append(row.channels).append("\t");
    list.append(row.reason).append("\t").append(row.exceptions);
  }
  return list;
}

std::vector<AutoKickRow> ReadAutoKickRows(std::string_view list, bool& failed) {
  std::vector<AutoKickRow> rows;
  for (const std::string_view line : Split(list, "\r\n")) {
    if (line.empty() || line.starts_with("//")) continue;
    failed = failed || !Contains(line, "\t");
    rows.push_back(RowOf(line));
  }
  return rows;
}

Text AutoKickEditorTitle(const Client& client) {
  const Desktop& desktop = client.platform.desktop;
  return desktop.TabCaption(desktop.ActiveTab()) + " - Настройки бота"_w;
}

}  // namespace parlorwire

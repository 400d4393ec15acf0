#include "shell/qt/log_hits.h"

#include <QDate>
#include <array>
#include <iterator>

#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"

namespace parlorwire {
namespace {

constexpr std::array<BothLanguages, LogHits::kColumns> kHeads = {
    {{W<"День">, "Day"}, {W<"Канал">, "Channel"}, {W<"Строка">, "Line"}}};

}  // namespace

QString DayText(const LogDay& day) {
  return QDate(day.year, day.month, day.day).toString(QStringLiteral("dd.MM.yyyy"));
}

void LogHits::Clear() {
  beginResetModel();
  hits_.clear();
  endResetModel();
}

void LogHits::Add(std::vector<LogHit> hits) {
  if (hits.empty()) return;
  const int row = rowCount();
  beginInsertRows({}, row, row + static_cast<int>(hits.size()) - 1);
  hits_.insert(hits_.end(), std::make_move_iterator(hits.begin()),
               std::make_move_iterator(hits.end()));
  endInsertRows();
}

void LogHits::SetLanguage(UiLanguage language) {
  language_ = language;
  emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
}

int LogHits::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(hits_.size());
}

int LogHits::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int{kColumns};
}

QVariant LogHits::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || role != Qt::DisplayRole) return {};
  const LogHit& hit = At(index.row());
  switch (index.column()) {
    case kDay:
      return DayText(hit.log.day);
    case kChannel:
      return ToQString(hit.log.channel);
    default:
      return ToQString(hit.line);
  }
}

QVariant LogHits::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return ToQString(kHeads[static_cast<std::size_t>(section)].In(language_));
}

}  // namespace parlorwire

// The table of what a search through the day logs has found.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "display/log_search.h"
#include "platform/desktop.h"

namespace parlorwire {

class LogHits : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kDay, kChannel, kLine, kColumns };

  using QAbstractTableModel::QAbstractTableModel;

  void Clear();
  void Add(std::vector<LogHit> hits);
  const LogHit& At(int row) const { return hits_[static_cast<std::size_t>(row)]; }
  void SetLanguage(UiLanguage language);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<LogHit> hits_;
  UiLanguage language_ = UiLanguage::kRussian;
};

// As dd.MM.yyyy.
QString DayText(const LogDay& day);

}  // namespace parlorwire

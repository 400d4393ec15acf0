// `Grid1`: the table of the list of kicks.
#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <functional>

#include "bot/autokick_editor.h"

namespace parlorwire {

struct Client;

// What the table shows: the rows of the editor as they stood at the last call.
class AutoKickModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  AutoKickModel(const Client& client, const AutoKickEditor& editor, QObject* parent);

  // The editor has been opened anew; has got rows at its end; has lost one; has another text in a
  // cell, or in any.
  void Reset();
  void Grown();
  void Lost(int row);
  void Changed(int row, AutoKickColumn column);
  void ChangedAnywhere();
  // The headers are said in another language.
  void ChangedLanguage();

  // A cell was left with a new text.
  std::function<void(int row, AutoKickColumn column, const QString& typed)> Typed;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
  const Client& client_;
  const AutoKickEditor& editor_;
  int rows_ = 0;
};

// A click on a cell, Enter, F2 or a letter lays `text` over it. There Enter and Tab put the text
// into the cell, Tab goes on to the next cell that can be edited, and Escape leaves the cell as it
// was; `text` stays open while another window has the focus. Outside of it Tab leaves the table.
class AutoKickGrid : public QTableView {
  Q_OBJECT

 public:
  explicit AutoKickGrid(QWidget* parent);

  // Ends the editing of a cell; what was typed goes to the model.
  void LeaveCell();

  std::function<void(int row)> Delete;  // the delete key on a row

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

 private:
  void EditAt(const QModelIndex& index);
};

}  // namespace parlorwire

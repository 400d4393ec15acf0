#include "shell/qt/autokick_grid.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyledItemDelegate>
#include <array>

#include "platform/qt/text_conversion.h"
#include "session/client.h"
#include "shell/qt/control_names.h"
#include "shell/qt/one_line_only.h"

namespace parlorwire {
namespace {

constexpr int kColumns = static_cast<int>(kAutoKickHeaders.size());
constexpr std::array<int, kColumns> kWidths = {48, 130, 190, 250, 130};  // pixels
constexpr int kRowPadding = 8;
constexpr int kNumberAlignment = Qt::AlignRight | Qt::AlignVCenter;

// What the Russian headers mean.
constexpr std::array<const char*, kColumns> kMeanings = {"Number", "Nick or IP", "Banned channels",
                                                         "Reason", "Nicks that are spared"};

// Marks the cell that keys have reached, makes `text`, and lets it stay while the focus is in
// another window.
class CellDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex& index) const override {
    auto* text = new QLineEdit(parent);
    text->setFrame(false);
    text->setValidator(new OneLineOnly(text));
    NameControl(text, QStringLiteral("text"));
    const QAbstractItemModel* model = index.model();
    QString column =
        model->headerData(index.column(), Qt::Horizontal, Qt::AccessibleTextRole).toString();
    if (column.isEmpty())
      column = model->headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString();
    SayControl(text, column);
    return text;
  }

  // The mark of the toolkit can't be seen in a selected row.
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    if (!(option.state & QStyle::State_HasFocus)) return;
    painter->setPen(option.palette.color(QPalette::Active, QPalette::HighlightedText));
    painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason)
      return false;
    return QStyledItemDelegate::eventFilter(watched, event);
  }
};

}  // namespace

// ---- the model ----

AutoKickModel::AutoKickModel(const Client& client, const AutoKickEditor& editor, QObject* parent)
    : QAbstractTableModel(parent), client_(client), editor_(editor) {}

void AutoKickModel::Reset() {
  beginResetModel();
  rows_ = static_cast<int>(editor_.rows.size());
  endResetModel();
}

void AutoKickModel::Grown() {
  const int rows = static_cast<int>(editor_.rows.size());
  if (rows == rows_) return;
  beginInsertRows({}, rows_, rows - 1);
  rows_ = rows;
  endInsertRows();
}

void AutoKickModel::Lost(int row) {
  beginRemoveRows({}, row, row);
  --rows_;
  endRemoveRows();
  if (row < rows_) emit dataChanged(index(row, 0), index(rows_ - 1, 0));
}

// The cell and no more: a `text` that is open over another one would be set anew.
void AutoKickModel::Changed(int row, AutoKickColumn column) {
  const QModelIndex cell = index(row, static_cast<int>(column));
  emit dataChanged(cell, cell);
}

void AutoKickModel::ChangedAnywhere() {
  if (rows_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, kColumns - 1));
}

void AutoKickModel::ChangedLanguage() {
  emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
}

int AutoKickModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int AutoKickModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant AutoKickModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::TextAlignmentRole && index.column() == 0) return kNumberAlignment;
  if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
  if (index.column() == 0) return index.row() + 1;
  const auto row = static_cast<std::size_t>(index.row());
  if (row >= editor_.rows.size()) return {};  // a row that is going
  return ToQString(CellText(editor_, row, static_cast<AutoKickColumn>(index.column())));
}

QVariant AutoKickModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= kColumns) return {};
  if (role == Qt::TextAlignmentRole && section == 0) return kNumberAlignment;
  const auto column = static_cast<std::size_t>(section);
  if (role == Qt::DisplayRole) return ToQString(kAutoKickHeaders[column]);
  const bool meaning = role == Qt::ToolTipRole || role == Qt::AccessibleTextRole;
  if (meaning && client_.app.Language == UiLanguage::kEnglish)
    return QString::fromLatin1(kMeanings[column]);
  return {};
}

Qt::ItemFlags AutoKickModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  return index.column() > 0 ? flags | Qt::ItemIsEditable : flags;
}

bool AutoKickModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  // A cell that was only passed through keeps what it has, whatever the rules say of it.
  if (role != Qt::EditRole || value == data(index, role)) return false;
  Typed(index.row(), static_cast<AutoKickColumn>(index.column()), value.toString());
  return true;
}

// ---- the view ----

AutoKickGrid::AutoKickGrid(QWidget* parent) : QTableView(parent) {
  setItemDelegate(new CellDelegate(this));
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(EditKeyPressed | AnyKeyPressed);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setFont(LabelFont());
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
  horizontalHeader()->setFont(LabelFont());
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  horizontalHeader()->setStretchLastSection(true);
  connect(this, &QAbstractItemView::clicked, this, &AutoKickGrid::EditAt);
  // The columns get their widths when the model tells of them.
  connect(horizontalHeader(), &QHeaderView::sectionCountChanged, this, [this](int before, int now) {
    for (int column = before; column < now && column < kColumns; ++column)
      setColumnWidth(column, kWidths[static_cast<std::size_t>(column)]);
  });
}

void AutoKickGrid::LeaveCell() {
  auto* text = findChild<QLineEdit*>(QStringLiteral("text"));
  if (state() != EditingState || text == nullptr) return;
  commitData(text);
  closeEditor(text, QAbstractItemDelegate::NoHint);
}

void AutoKickGrid::EditAt(const QModelIndex& index) {
  if (index.flags() & Qt::ItemIsEditable) edit(index);
}

void AutoKickGrid::keyPressEvent(QKeyEvent* event) {
  const bool in_text = !hasFocus();
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (in_text || !plain || !currentIndex().isValid()) return QTableView::keyPressEvent(event);
  switch (event->key()) {
    case Qt::Key_Delete:
      return Delete(currentIndex().row());
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return EditAt(currentIndex());
    default:
      return QTableView::keyPressEvent(event);
  }
}

QModelIndex AutoKickGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (action != MoveNext && action != MovePrevious)
    return QTableView::moveCursor(action, modifiers);
  int row = currentIndex().row();
  int column = currentIndex().column() + (action == MoveNext ? 1 : -1);
  if (column >= kColumns) {
    column = 1;
    ++row;
  } else if (column < 1) {
    column = kColumns - 1;
    --row;
  }
  return model()->index(row, column);
}

}  // namespace parlorwire

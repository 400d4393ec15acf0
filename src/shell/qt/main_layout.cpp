#include "shell/qt/main_layout.h"

#include <QCheckBox>
#include <QLabel>
#include <initializer_list>
#include <vector>

#include "pane/qt/fonts.h"
#include "session/fault_trap.h"
#include "shell/qt/graphic_button.h"
#include "shell/qt/ground.h"
#include "shell/qt/line_razdel.h"
#include "shell/qt/link_label.h"
#include "shell/qt/pane_widget.h"
#include "shell/qt/ss_tab.h"
#include "shell/qt/twips.h"
#include "text/number.h"

namespace parlorwire {
namespace {

constexpr int kConnectLeft = 110;  // twips, as the two rows
constexpr int kConnectTop = 100;
constexpr int kUpperRow = 70;
constexpr int kLowerRow = 300;
constexpr int kRowLeft = 120;
constexpr int kStripHeight = 26;  // pixels, as all below
constexpr int kBesideConnect = 12;
constexpr int kBesideAddTab = 10;
constexpr int kRowGap = 18;  // between the controls of the row under the tab

QWidget* UsersHolder(const TabControls& tab) {
  return HolderOf(tab.Rich_Users);
}

}  // namespace

MainLayout::MainLayout(const MainControls& controls, Client& client)
    : controls_(controls), client_(client) {
  for (int slot = 0; slot < kTabCount; ++slot)
    WireSplitter(slot);
}

// The window itself still goes, and may end a drag by that.
MainLayout::~MainLayout() {
  for (const TabControls& tab : controls_.tabs) {
    tab.line_razdel->Drag = nullptr;
    tab.line_razdel->Up = nullptr;
  }
}

void MainLayout::PlaceAll() {
  const MainControls& c = controls_;
  const int panel_row = c.panels[0]->parentWidget()->height();
  shared_ = PlaceShared(MeasuresAround(Twips(c.ground->width()), Twips(c.ground->height()),
                                       Twips(panel_row), Twips(kStripHeight)),
                        shared_);
  PlaceTop();
  PutAt(c.BackColorTab, shared_.BackColorTab);
  PutAt(c.SSTab, shared_.strip);
  c.ground->PageAt(PixelsOf(shared_.page));
  for (int slot = 0; slot < kTabCount; ++slot) {
    slot_places(slot) = PlacesOf(slot);
    client_.tab(slot).Rich.Width(slot_places(slot).Rich.width);
  }
  const int active = c.SSTab->Tab();
  client_.tab(active).Rich_Users.RightMargin(slot_places(active).Rich_Users_right_margin);
  PlaceTabControls(c.tab(active), shared_, slot_places(active));
  PlaceRow(c.tab(active));
  if (c.Pict->isVisible()) c.Pict->setGeometry(c.tab(active).line_razdel->geometry());
}

SlotPlaces MainLayout::PlacesOf(int slot) {
  Text& kept = client_.tab(slot).TabSplitPercent;
  Split& split = splits_[static_cast<std::size_t>(slot)];
  if (kept != split.kept) split.wanted = kept;  // the user has moved it, or the file says so
  double wanted = kDesignedSplitPercent;
  PassOverFault([&] { wanted = ToDouble(split.wanted); });
  const SlotPlaces places = PlaceSlot(shared_, wanted, slot_places(slot));
  kept = places.split_percent != wanted ? NumberText(places.split_percent) : split.wanted;
  split.kept = kept;
  return places;
}

void MainLayout::PlaceTop() {
  const MainControls& c = controls_;
  const QSize button = c.button_connect_main->sizeHint();
  c.button_connect_main->setGeometry(Pixels(kConnectLeft), Pixels(kConnectTop), button.width(),
                                     button.height());
  const QSize add = c.AddTab->sizeHint();
  c.AddTab->setGeometry(c.button_connect_main->geometry().right() + kBesideConnect,
                        Pixels(kConnectTop) + (button.height() - add.height()) / 2, add.width(),
                        add.height());

  const QSize bracket = c.Label1[0]->sizeHint();
  const int left = Twips(c.AddTab->geometry().right() + kBesideAddTab);
  auto label = c.Label1.begin();
  const auto place = [&](std::initializer_list<LinkLabel*> links, int top) {
    std::vector<int> widths;
    for (const LinkLabel* link : links)
      widths.push_back(Twips(link->sizeHint().width()));
    const std::vector<LinkPlace> places =
        PlaceLinks(widths, Twips(bracket.width()), left, shared_.strip.Right());
    auto at = places.begin();
    for (LinkLabel* link : links) {
      const QSize size = link->sizeHint();
      (*label++)->setGeometry(Pixels(at->opening), Pixels(top), bracket.width(), size.height());
      link->setGeometry(Pixels(at->link), Pixels(top), size.width(), size.height());
      (*label++)->setGeometry(Pixels(at->closing), Pixels(top), bracket.width(), size.height());
      ++at;
    }
  };
  place({c.logout, c.logoff, c.close_tab}, kUpperRow);
  place({c.sp_opers, c.sp_bans, c.hist_topic, c.letogr, c.search_label}, kLowerRow);
}

// The row under SSTab: each control behind the one before it.
void MainLayout::PlaceRow(const TabControls& tab) {
  int left = Pixels(kRowLeft);
  const auto put = [&](QWidget* control, int top) {
    const int width = control->sizeHint().width();
    // All are as high above the middle of the row as below it, so that their words are level.
    const int height = kFirstRowHeight - 2 * (top - shared_.StopScroll_top);
    PutAt(control, {Twips(left), top, Twips(width), height});
    left += width + kRowGap;
  };
  put(tab.StopScroll, shared_.StopScroll_top);
  put(controls_.SayUseOp, shared_.StopScroll_top);
  put(tab.pers, shared_.pers_top);
  put(controls_.perecodirovka_label, shared_.perecodirovka_label_top);
  put(controls_.button_smiles, shared_.Picture1_top);
}

void MainLayout::WireSplitter(int slot) {
  LineRazdel* splitter = controls_.tab(slot).line_razdel;
  splitter->Down = [this, slot] { BeginDrag(slot); };
  splitter->Drag = [this, slot](int left) { Drag(slot, left); };
  splitter->Up = [this, slot](bool keep) { EndDrag(slot, keep); };
  splitter->Key = [this, slot](SplitKey key) { MoveByKey(slot, key); };
}

void MainLayout::BeginDrag(int slot) {
  const TabControls& tab = controls_.tab(slot);
  split_before_ = client_.tab(slot).TabSplitPercent;
  focus_before_ = nullptr;
  for (QWidget* hidden : {UsersHolder(tab), static_cast<QWidget*>(tab.frame_button_update)}) {
    QWidget* focus = hidden->window()->focusWidget();
    if (focus != nullptr && hidden->isAncestorOf(focus)) focus_before_ = focus;
    hidden->hide();
  }
  controls_.ground->PageColour(ToQColor(client_.tab(slot).Rich_Users.BackColor()));
  controls_.Pict->setGeometry(tab.line_razdel->geometry());
  controls_.Pict->raise();
  controls_.Pict->show();
  tab.line_razdel->raise();
}

void MainLayout::Drag(int slot, int left) {
  const SlotPlaces& places = slot_places(slot);
  const int origin = places.line_razdel.left - SplitterLeft(places);
  const auto percent = DragSplit(shared_.SSTab.width, Twips(left) - origin);
  if (!percent) return;
  QWidget* splitter = controls_.tab(slot).line_razdel;
  splitter->move(left, splitter->y());
  client_.tab(slot).TabSplitPercent = NumberText(*percent);
}

void MainLayout::EndDrag(int slot, bool keep) {
  const TabControls& tab = controls_.tab(slot);
  if (!keep) client_.tab(slot).TabSplitPercent = split_before_;
  controls_.Pict->hide();
  controls_.ground->PageColour();
  PlaceAll();
  if (!tab.line_razdel->isVisibleTo(controls_.ground)) return;  // another slot is about to show
  UsersHolder(tab)->show();
  tab.frame_button_update->show();
  if (focus_before_ != nullptr) focus_before_->setFocus();
}

void MainLayout::MoveByKey(int slot, SplitKey key) {
  const auto percent = KeySplit(shared_.SSTab.width, SplitterLeft(slot_places(slot)), key);
  if (!percent) return;
  client_.tab(slot).TabSplitPercent = NumberText(*percent);
  PlaceAll();
}

}  // namespace parlorwire

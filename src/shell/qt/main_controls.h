// The controls of the main window.
#pragma once

#include <array>
#include <vector>

#include "session/client.h"
#include "shell/qt/tab_controls.h"

class QCheckBox;
class QLabel;
class QStatusBar;
class QWidget;

namespace parlorwire {

class GraphicButton;
class Ground;
class LinkLabel;
class SSTab;

// All are owned by the window.
struct MainControls {
  Ground* ground = nullptr;  // the client area, on which the others stand
  GraphicButton* button_connect_main = nullptr;
  LinkLabel* AddTab = nullptr;
  // The upper row of links, and the lower one.
  LinkLabel *logout = nullptr, *logoff = nullptr, *close_tab = nullptr;
  LinkLabel *sp_opers = nullptr, *sp_bans = nullptr, *hist_topic = nullptr, *letogr = nullptr,
            *search_label = nullptr;
  std::vector<QLabel*> Label1;  // the brackets around the links, "[" and "]" in turn, from 1 on
  parlorwire::SSTab* SSTab = nullptr;
  QWidget* BackColorTab = nullptr;  // the ground of the strip of tabs
  QWidget* Pict = nullptr;          // stands where a splitter was, while it is dragged
  std::array<TabControls, kTabCount> tabs;
  QCheckBox* SayUseOp = nullptr;  // one for all tabs
  LinkLabel* perecodirovka_label = nullptr;
  GraphicButton* button_smiles = nullptr;
  std::array<QLabel*, 3> panels{};

  TabControls& tab(int slot) { return tabs[static_cast<std::size_t>(slot)]; }
  const TabControls& tab(int slot) const { return tabs[static_cast<std::size_t>(slot)]; }
};

MainControls NewMainControls(Client& client, QWidget* ground_owner, QStatusBar* panels);

// The order in which Tab walks the window.
void OrderMainControls(const MainControls& controls);

// Shows the controls of one slot and hides those of the others; -1 shows none.
void ShowSlot(const MainControls& controls, int slot);

// The texts that have a form in each language.
void SetMainLanguage(const MainControls& controls, UiLanguage language);

// What the panels say of the client.
void ShowPanels(const MainControls& controls, const Client& client);

}  // namespace parlorwire

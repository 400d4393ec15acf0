// The controls of one tab slot on the main window.
#pragma once

class QCheckBox;
class QFrame;
class QLabel;
class QWidget;

#include "pane/units.h"
#include "platform/desktop.h"

namespace parlorwire {

class GraphicButton;
class LineRazdel;
class LinkLabel;
class MsgBox;
class RichTextView;
class ToneBox;
struct SharedPlaces;
struct SlotPlaces;
struct TabSession;

// All are children of the window's ground and are deleted by it.
struct TabControls {
  RichTextView* Rich = nullptr;
  RichTextView* Rich_Users = nullptr;
  RichTextView* Rich_Server = nullptr;
  LineRazdel* line_razdel = nullptr;
  QFrame* frame_button_update = nullptr;
  GraphicButton* button_update = nullptr;
  QLabel* users_num = nullptr;
  QCheckBox* StopScroll = nullptr;
  LinkLabel* pers = nullptr;
  ToneBox* intonacia = nullptr;
  MsgBox* msg = nullptr;
  GraphicButton* button_say = nullptr;
  GraphicButton* button_clear = nullptr;
};

TabControls NewTabControls(QWidget* ground, TabSession& tab, int slot);

void ShowTabControls(const TabControls& controls, bool visible);

// What a tab without a connection can't use; `msg` is locked.
void EnableTabControls(const TabControls& controls, bool enabled);

// The ground of the button and the number above the user list; 0x00BBGGRR.
void PaintFrame(const TabControls& controls, PaneColour ground);

// The texts and spoken names that have a form in each language.
void SetTabLanguage(const TabControls& controls, UiLanguage language);

// All but the row under the tab.
void PlaceTabControls(const TabControls& controls, const SharedPlaces& shared,
                      const SlotPlaces& slot);

}  // namespace parlorwire

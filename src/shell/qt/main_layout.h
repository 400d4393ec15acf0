// Puts the controls of the main window at their places, and moves the splitters.
#pragma once

#include <array>

#include "session/client.h"
#include "shell/client_main_layout.h"
#include "shell/qt/main_controls.h"

class QWidget;

namespace parlorwire {

class MainLayout {
 public:
  // Both are kept, and must outlive it. The splitters move as long as it exists.
  MainLayout(const MainControls& controls, Client& client);
  ~MainLayout();
  MainLayout(const MainLayout&) = delete;
  MainLayout& operator=(const MainLayout&) = delete;

  // Puts everything at its place on the ground, as large as that is now. Splitters that stand too
  // far to one side are moved in every slot, and the session keeps their new place; controls are
  // touched in the active slot only.
  void PlaceAll();

 private:
  void WireSplitter(int slot);
  void BeginDrag(int slot);
  void Drag(int slot, int left);
  void EndDrag(int slot, bool keep);
  void MoveByKey(int slot, SplitKey key);

  void PlaceTop();
  void PlaceRow(const TabControls& tab);
  SlotPlaces PlacesOf(int slot);
  SlotPlaces& slot_places(int slot) { return slots_[static_cast<std::size_t>(slot)]; }

  const MainControls& controls_;
  Client& client_;
  SharedPlaces shared_;
  std::array<SlotPlaces, kTabCount> slots_;

  // Where a splitter was put, and where the window's size has moved it to.
  struct Split {
    Text wanted;
    Text kept;
  };
  std::array<Split, kTabCount> splits_;

  // Of the drag that goes on:
  Text split_before_;
  QWidget* focus_before_ = nullptr;  // what had the focus and was hidden
};

}  // namespace parlorwire

// An evening on which everything goes wrong that can: one client with ten tabs on ten channels, and
// a network and a service that fail at random, by a seed. Every line is said once and bears a
// number; what of them came whole to which tab is witnessed beside the client.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <string>

#include "conversation/evening.h"
#include "support/frame_witness.h"
#include "support/scripted_view.h"

namespace parlorwire {

class RoughEvening : public Evening {
 public:
  explicit RoughEvening(std::uint32_t seed);

  // Time passes, people talk, things go wrong, and the user takes care of tabs that stand idle.
  void Live(std::int64_t milliseconds);
  // The same, but nothing goes wrong any more.
  void LiveInPeace(std::int64_t milliseconds);

  // The service ends, with all that it knew of nicks, and refuses connections until it is back.
  void StopService();
  void StartService();

  // What a pane or the logs of a tab's channel lack or have too much; "" if they are right.
  Text WrongInPane(int tab);
  Text WrongInLog(int tab);

  // What contradicts the rules of sockets and timers; "" if nothing does.
  std::string WrongState(int tab);

  // Panes and files emptied, and what was expected of them forgotten.
  void ClearAll();

  Guest& guest() { return *guests[0]; }
  TabSession& tab(int index) { return guest().tab(index); }

  bool garbage = true;
  int said = 0;                        // lines, by everybody
  int shown = 0;                       // lines that came whole to a tab
  std::map<std::string, int> mishaps;  // by their names

 protected:
  bool Accept(SimulatedSocket& socket) override;
  bool Carry(SimulatedSocket& socket, std::string_view bytes) override;

 private:
  struct Expected;
  struct Line {  // a line of the network: one of the client's sockets
    int tab = 0;
    int number = 0;    // 1 to 5, of the Winsock
    int stalled = -1;  // the connection that brings nothing any more, by its number
    int decided = -1;  // the connection whose beginning is decided
    std::int64_t hangs_until = 0;
  };
  // Sees a pane being emptied.
  class PaneWatch : public ScriptedView {
   public:
    PaneWatch(RichTextBox& pane, Expected& expected) : ScriptedView(pane), expected_(expected) {}
    void TextChanged(const TextChange& change) override;
    void Scroll(PaneScroll) override {}

   private:
    Expected& expected_;
  };
  struct Expected {
    LineCounts pane;
    LineCounts log;
    int clears = 0;          // how often the pane was emptied
    int clears_allowed = 0;  // and may have been
    FrameWitness witness;
    int connects = 0;  // the connection that the witness sees
    std::int64_t idle_since = 0;
  };

  int Dice(int sides) { return static_cast<int>(engine_() % static_cast<unsigned>(sides)); }
  bool Happens(int in_ten_thousand) { return trouble_ && Dice(10000) < in_ten_thousand; }
  bool Note(const char* mishap) { return ++mishaps[mishap], true; }

  void Step();
  void Talk();
  void MakeTrouble();
  void PressKeys(int index);
  void TakeCare();
  void ConnectAsUser(int index);
  Expected& ExpectedOf(int index) { return expected_.at(static_cast<std::size_t>(index)); }
  bool IsFrame(const Line& line, const SimulatedSocket& socket) const;
  void DeliverChunk(Line& line, SimulatedSocket& socket, std::string_view bytes);
  void DeliverPart(Line& line, SimulatedSocket& socket, std::string_view bytes);
  std::string Garbage();
  SimulatedSocket& Winsock1(int index) { return Simulated(tab(index).Winsock1); }

  std::mt19937 engine_;
  bool trouble_ = true;
  bool running_ = true;
  std::int64_t back_at_ = 0;
  std::map<SimulatedSocket*, Line> lines_;
  std::array<Expected, kTabCount> expected_;
  std::array<std::unique_ptr<PaneWatch>, kTabCount> watches_;
};

}  // namespace parlorwire

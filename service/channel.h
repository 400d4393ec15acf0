// A channel: who is on it, with what rights, and what its readers are shown. Everything here
// concerns one channel alone; how one comes and goes is told in presence.h.
#pragma once

#include <cstdint>
#include <deque>
#include <limits>
#include <map>
#include <set>
#include <string_view>
#include <vector>

#include "service/account.h"
#include "service/frame.h"
#include "service/line.h"
#include "service/moment.h"
#include "text/text.h"

namespace parlorwire::service {

// The end, in milliseconds, of what doesn't end by itself.
inline constexpr std::int64_t kForever = std::numeric_limits<std::int64_t>::max();

// Where somebody comes from.
struct Origin {
  Text address;    // of the connection
  Text forwarded;  // what a proxy said of the address behind it, or ""
};

// Somebody who is on the channel.
struct Member {
  Account* account = nullptr;  // never none
  Frame* frame = nullptr;      // none for an inhabitant, and while a broken frame may come back
  Text address;                // what /chl and bans see; "" if it is hidden
  Text via;                    // of the proxy that told that address, or ""
  Text shown_address;  // what stands in brackets behind "приходит на канал"; "": no brackets
  bool oper = false;
  bool admin = false;               // an administrator of the chat, on every channel
  std::int64_t gone_ms = kForever;  // when the presence ends, unless the frame comes back
};

// What an operator has taken from somebody.
struct Penalty {
  Text of;  // a nick; of a ban a mask of nicks or addresses, see MaskMatches
  Text reason;
  Text by;                           // nick
  std::int64_t local = 0;            // when, in seconds of the local wall clock
  std::int64_t until_ms = kForever;  // counts no more from then on
};

// What can be taken from one who stays.
enum class Right {
  kVoice,
  kCapitals,  // without it one writes small letters only
};

struct TopicChange {
  Text topic;
  Text by;                 // nick
  std::int64_t local = 0;  // when, in seconds of the local wall clock
};

struct Channel {
  Text name;
  Text password;
  bool permanent = false;           // stays when nobody is on it
  std::vector<Member> members;      // in the order in which they came
  std::set<Text> opers;             // keys of nicks, also of such as are not there
  std::vector<Penalty> bans;        // the newest last; a kick is one that ends soon
  std::map<Text, Penalty> muted;    // without kVoice, by the keys of the nicks; they may be away
  std::map<Text, Penalty> lowered;  // without kCapitals; the same
  std::deque<Line> history;         // at most 200, the newest last
  std::size_t history_bytes = std::numeric_limits<std::size_t>::max();  // that it may hold
  std::size_t history_held = 0;                                         // that it holds
  std::deque<TopicChange> topics;                                       // the newest last
};

// The member of that nick, in any case of letters; none if he isn't there. It stays valid until
// somebody comes or goes.
Member* FindMember(Channel& channel, std::string_view nick);

// Whether somebody is there who is no inhabitant.
bool HasPeople(const Channel& channel);

// Whether a member may say the commands of operators.
bool IsOperator(const Member& member);

// Whether no operator may act against a member.
bool IsProtected(const Member& member);

// "[+o-t]", as the user frame shows them; "[]" if there are none.
Text FlagsOf(const Channel& channel, const Member& member);

// Whether a ban holds for a nick or for where it comes from. Nobody is kept out by a ban of his
// own.
bool IsKeptOut(const Channel& channel, const Account& account, const Origin& origin,
               const Moment& now);

// From whom a right is taken.
std::map<Text, Penalty>& TakenFrom(Channel& channel, Right right);

// Gives a right back; the channel is told, if the nick is there. False if he had it.
bool GiveBack(Frames& frames, Channel& channel, Right right, std::string_view nick,
              const Moment& now);

// Shows a line to everybody, and keeps it for those who come later; what is said to operators is
// shown to them and to its speaker, and not kept. The line's time is set here.
void Broadcast(Frames& frames, Channel& channel, Line line, const Moment& now);
void BroadcastSystem(Frames& frames, Channel& channel, const Text& text, const Moment& now);

// The last lines, as many as the account wants and as go into history_bytes, in its looks.
// Windows-1251.
Text HistoryOf(const Channel& channel, const Account& account, const Moment& now);

// Whether somebody may be told what a channel keeps for those who are let in: that he is there, or
// has the password if there is one.
bool MayRead(Channel& channel, std::string_view nick, const Text& password);

// Whether a mask of nicks and addresses means a member, or the proxy that he comes by.
bool Means(std::string_view mask, const Member& member);

// Forgets bans, mutes and the like that have run their time; those who are there and concerned are
// told.
void EndPeriods(Frames& frames, Channel& channel, const Moment& now);

// When EndPeriods has somebody to tell of, in ms; kForever if never.
std::int64_t NextEndOfPeriod(const Channel& channel);

}  // namespace parlorwire::service

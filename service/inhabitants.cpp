#include "service/inhabitants.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "service/accounts.h"
#include "service/names.h"
#include "service/posting.h"
#include "service/presence.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

constexpr std::int64_t kTalkPeriodMs = 20;
constexpr std::int64_t kGreetAfterMs = 1500;
constexpr std::size_t kMuchWaiting = 256 * 1024;  // bytes
constexpr std::size_t kBytesInLine = 64;          // at least

struct Persona {
  std::string_view nick;
  std::string_view address;  // "" hides it
  std::string_view behind;   // the address behind that of a proxy; "" if it is none
  std::string_view status;
};

// They live on their channels. The first is the robot, who operates and never leaves.
constexpr std::array<Persona, 6> kResidents = {{
    {W<"Операторша">, "192.0.2.1", "", W<"слежу за порядком">},
    {W<"Василиса">, "192.0.2.14", "", ""},
    {W<"Фонарщик">, "192.0.2.23", "", W<"на маяке">},
    {W<"Шкипер">, "198.51.100.7", "", ""},
    {W<"nordwind">, "198.51.100.112", "", "away"},
    {W<"Ёжик">, "203.0.113.9", "", ""},
}};

// They come for a while. The lighthouse has one address, and so has the reading room, with more
// nicks than a list of them would name.
constexpr std::array<Persona, 16> kVisitors = {{
    {W<"Сверчок">, "192.0.2.23", "", ""},
    {W<"Росинка">, "192.0.2.23", "", W<"в гостях на маяке">},
    {W<"Почтальон">, "198.51.100.80", "10.20.30.40", ""},
    {W<"Невидимка">, "", "", ""},
    {W<"Абзац">, "203.0.113.40", "", W<"в читальном зале">},
    {W<"Буквоед">, "203.0.113.40", "", ""},
    {W<"Глава">, "203.0.113.40", "", ""},
    {W<"Закладка">, "203.0.113.40", "", ""},
    {W<"Корешок">, "203.0.113.40", "", ""},
    {W<"Листок">, "203.0.113.40", "", ""},
    {W<"Обложка">, "203.0.113.40", "", ""},
    {W<"Переплет">, "203.0.113.40", "", ""},
    {W<"Строка">, "203.0.113.40", "", ""},
    {W<"Том">, "203.0.113.40", "", ""},
    {W<"Формат">, "203.0.113.40", "", ""},
    {W<"Эпиграф">, "203.0.113.40", "", ""},
}};
constexpr std::int64_t kMostVisitors = 5;  // at a time

constexpr std::array<std::string_view, 12> kPhrases = {
    W<"кто-нибудь видел сегодня закат?">,
    W<"чай остыл, пойду поставлю новый">,
    W<"у нас второй день дождь, а у вас?">,
    W<"говорят, завтра обещают снег">,
    W<"кто помнит, как звали того капитана?">,
    W<"тише, тише, соседи спят">,
    W<"тогда решено: 2 < 3, значит, идем втроем">,
    W<"\"не может быть\", сказал он и ушел">,
    W<"nobody said it would be easy">,
    W<"опять клавиатура чудит">,
    W<"а помните, как в прошлом году? *n вот и я не помню">,
    W<"ну и ладно">,
};

// What a client makes pictures of.
constexpr std::array<std::string_view, 8> kPhrasesWithSmiles = {
    W<"я за, но только после обеда *:)">,
    W<"спокойной ночи тем, кто уже спит *rose">,
    W<"а я вчера пирог испекла *sweet с яблоками">,
    W<"*:D это надо записать">,
    W<"кто еще не допил? *coffe *beer">,
    W<"опять понедельник *:(">,
    W<"никому не говорите *;) но завтра выходной">,
    W<"первый снег! *sneg *sneg *sneg">,
};

// What can be clicked.
constexpr std::array<std::string_view, 6> kPhrasesWithLinks = {
    W<"посмотрите http://www.example.org/ & скажите, что думаете">,
    W<"погода на неделю: www.example.org/weather?city=3.">,
    W<"фотографии с маяка https://example.net/lighthouse/, там и рассвет есть">,
    W<"карта лежит на ftp://files.example.com/maps">,
    W<"с 192.0.2.* опять кто-то шумит">,
    W<"почтовая станция теперь на 198.51.100.80, не перепутайте">,
};

constexpr std::array<std::string_view, 5> kActions = {
    W<"задумчиво смотрит в окно">, W<"наливает всем чаю">, W<"напевает">, W<"зевает">,
    W<"листает старую книгу">,
};

constexpr std::array<std::string_view, 4> kGreetings = {
    W<"привет! *:)">,
    W<"добрый вечер *rose">,
    W<"о, кто пришел! *hi">,
    W<"здравствуй, проходи *coffe наши правила: http://www.example.org/rules.html">,
};

constexpr std::array<std::string_view, 6> kMoods = {
    "", "", "", W<"смеется">, W<"задумчиво">, W<"напевает">};

template <class Array>
const auto& Pick(Chat& chat, const Array& array) {
  return array[static_cast<std::size_t>(chat.random() % array.size())];
}

// Of a hundred lines 15 have a smile and 8 a link or an address.
std::string_view PickPhrase(Chat& chat) {
  const auto dice = chat.random() % 100;
  if (dice < 15) return Pick(chat, kPhrasesWithSmiles);
  if (dice < 23) return Pick(chat, kPhrasesWithLinks);
  return Pick(chat, kPhrases);
}

void Register(Chat& chat, const Persona& persona) {
  Account& account = AddAccount(chat, Text(persona.nick), {});
  account.status = persona.status;
  account.robot = true;
  account.timer = false;
}

Account& AccountOf(Chat& chat, std::string_view nick) {
  return chat.accounts.at(NickKey(nick));
}

bool IsThere(Channel& channel, const Persona& persona) {
  return FindMember(channel, persona.nick) != nullptr;
}

void Come(Chat& chat, const Persona& persona, const Text& channel, bool announced,
          const Moment& now) {
  const bool oper = &persona == kResidents.data();
  Settle(chat, AccountOf(chat, persona.nick), channel,
         {Text(persona.address), Text(persona.behind)}, oper, announced, now);
}

void Speak(Chat& chat, std::string_view nick, const Text& channel, const Text& text,
           std::string_view tone, const Moment& now) {
  Post(chat, AccountOf(chat, nick), channel, text, Text(tone), {}, now);
}

// The nick of one who is there; the robot always is.
Text SomebodyThere(Chat& chat, const Channel& channel) {
  std::vector<Text> nicks;
  for (const Member& member : channel.members)
    if (member.account->robot) nicks.push_back(member.account->nick);
  return nicks.empty() ? Text(kResidents[0].nick) : Pick(chat, nicks);
}

// Greets one who came since the last time; false if there is none.
bool Greet(Inhabitants& inhabitants, Chat& chat, Channel& channel, const Moment& now) {
  auto& greeted = inhabitants.greeted[channel.name];
  for (const Member& member : channel.members) {
    const Text nick = member.account->nick;
    if (member.account->robot || greeted.contains(NickKey(nick))) continue;
    greeted.insert(NickKey(nick));
    Speak(chat, SomebodyThere(chat, channel), channel.name,
          nick + ": " + Text(Pick(chat, kGreetings)), "", now);
    return true;
  }
  return false;
}

bool HasNewcomer(Inhabitants& inhabitants, Channel& channel) {
  auto& greeted = inhabitants.greeted[channel.name];
  std::erase_if(greeted, [&](const Text& nick) { return FindMember(channel, nick) == nullptr; });
  return std::any_of(channel.members.begin(), channel.members.end(), [&](const Member& member) {
    return !member.account->robot && !greeted.contains(NickKey(member.account->nick));
  });
}

// One comes or goes. Visitors come more often than residents leave, but not too many at a time.
void ComeOrGo(Chat& chat, Channel& channel, const Moment& now) {
  const auto crowd = std::count_if(kVisitors.begin(), kVisitors.end(),
                                   [&](const Persona& each) { return IsThere(channel, each); });
  const std::uint64_t dice = chat.random() % 6;
  const Persona* persona = &Pick(chat, kVisitors);
  if (dice == 0)
    persona = &kResidents[1 + chat.random() % (kResidents.size() - 1)];
  else if (crowd >= kMostVisitors || (dice == 1 && crowd > 0))
    while (!IsThere(channel, *persona))
      persona = persona == &kVisitors.back() ? kVisitors.data() : persona + 1;
  if (IsThere(channel, *persona))
    PartMember(chat, channel, persona->nick, FrameEnd::kNone, now);
  else
    Come(chat, *persona, channel.name, true, now);
}

void DoSomething(Inhabitants& inhabitants, Chat& chat, Channel& channel, const Moment& now) {
  if (Greet(inhabitants, chat, channel, now)) return;
  const auto dice = chat.random() % 100;
  if (dice < 14) {
    ComeOrGo(chat, channel, now);
    return;
  }
  const Text nick = SomebodyThere(chat, channel);
  if (dice < 24)
    Speak(chat, nick, channel.name, "/me " + Text(Pick(chat, kActions)), "", now);
  else
    Speak(chat, nick, channel.name, Text(PickPhrase(chat)), Pick(chat, kMoods), now);
}

// Comings and goings by the clock, if they are wanted; when the next is due.
std::int64_t VisitByTheClock(Inhabitants& inhabitants, Chat& chat, Channel& channel,
                             const Moment& now) {
  const std::int64_t period = inhabitants.options.visit_ms;
  if (period == 0) return kForever;
  auto [due, is_new] = inhabitants.next_visit.try_emplace(channel.name, now.ms + period);
  if (due->second <= now.ms) {
    ComeOrGo(chat, channel, now);
    due->second = now.ms + period;
  }
  return due->second;
}

// The deeds of one channel; when the next is due.
std::int64_t LiveOnChannel(Inhabitants& inhabitants, Chat& chat, Channel& channel,
                           const Moment& now) {
  if (!HasPeople(channel)) {
    inhabitants.next_deed.erase(channel.name);
    inhabitants.next_visit.erase(channel.name);
    return kForever;
  }
  auto [due, is_new] = inhabitants.next_deed.try_emplace(channel.name, now.ms + kGreetAfterMs);
  if (HasNewcomer(inhabitants, channel))
    due->second = std::min(due->second, now.ms + kGreetAfterMs);
  if (due->second <= now.ms) {
    DoSomething(inhabitants, chat, channel, now);
    due->second = now.ms + 4000 + static_cast<std::int64_t>(chat.random() % 9000);
    if (HasNewcomer(inhabitants, channel)) due->second = now.ms + kGreetAfterMs;
  }
  return std::min(due->second, VisitByTheClock(inhabitants, chat, channel, now));
}

// How many lines the slowest reader is still to be given.
std::int64_t RoomForLines(const Channel& channel) {
  std::size_t waiting = 0;
  for (const Member& member : channel.members)
    if (member.frame != nullptr)
      waiting = std::max(waiting, member.frame->waiting + member.frame->out.size());
  return static_cast<std::int64_t>((kMuchWaiting - std::min(waiting, kMuchWaiting)) / kBytesInLine);
}

// The load of one channel: its lines are numbered, so that a reader can tell whether one is
// missing.
void TalkOnChannel(Inhabitants& inhabitants, Chat& chat, Channel& channel, const Moment& now) {
  auto& load = inhabitants.loads[channel.name];
  if (load.from_ms < 0) {
    load = {now.ms, 0};
    for (const Persona& persona : kResidents)
      Come(chat, persona, channel.name, false, now);
  }
  const std::int64_t due = (now.ms - load.from_ms) * inhabitants.options.talk / 1000;
  // After a pause the arrears are made up in portions.
  std::int64_t last = std::min(due, load.said + inhabitants.options.talk / 2 + 1);
  if (inhabitants.options.talk_lines > 0) last = std::min(last, inhabitants.options.talk_lines);
  if (inhabitants.options.patient) last = std::min(last, load.said + RoomForLines(channel));
  for (; load.said < last; ++load.said) {
    Text number = std::to_string(load.said + 1);
    number.insert(0, number.size() < 8 ? 8 - number.size() : 0, '0');
    const Persona& persona = kResidents[static_cast<std::size_t>(load.said) % kResidents.size()];
    Text text = "#" + number + " " + Text(PickPhrase(chat));
    while (std::ssize(text) < inhabitants.options.talk_length)
      text.append(" ").append(Pick(chat, kPhrases));
    Speak(chat, persona.nick, channel.name, text, "", now);
  }
}

bool HasSaidAll(const Inhabitants& inhabitants, const Channel& channel) {
  const auto load = inhabitants.loads.find(channel.name);
  return inhabitants.options.talk_lines > 0 && load != inhabitants.loads.end() &&
         load->second.said >= inhabitants.options.talk_lines;
}

void Talk(Inhabitants& inhabitants, Chat& chat, const Moment& now) {
  inhabitants.next_ms = kForever;
  if (chat.frames.open.size() >= inhabitants.options.talk_frames) inhabitants.talking = true;
  if (!inhabitants.talking) return;
  bool goes_on = false;
  for (auto& [key, channel] : chat.channels) {
    const bool has_reader = std::any_of(channel.members.begin(), channel.members.end(),
                                        [](const Member& each) { return each.frame != nullptr; });
    if (has_reader)
      TalkOnChannel(inhabitants, chat, channel, now);
    else
      inhabitants.loads.erase(channel.name);
    goes_on = goes_on || (has_reader && !HasSaidAll(inhabitants, channel));
  }
  if (goes_on) inhabitants.next_ms = now.ms + kTalkPeriodMs;
}

}  // namespace

Inhabitants MoveIn(Chat& chat, const InhabitantOptions& options, const Moment& now) {
  Inhabitants inhabitants;
  inhabitants.options = options;
  if (!options.present) return inhabitants;
  for (const Persona& persona : kResidents)
    Register(chat, persona);
  for (const Persona& persona : kVisitors)
    Register(chat, persona);
  for (const Text& name : options.channels) {
    Channel& channel = chat.channels[NickKey(name)];
    channel.name = name;
    channel.history_bytes = chat.options.limits.history_bytes;
    channel.permanent = true;
    channel.topics.push_back({"Добро пожаловать"_w, Text(kResidents[0].nick), now.local});
    for (const Persona& persona : kResidents)
      Come(chat, persona, name, false, now);
    for (int i = 0; i < 6; ++i)
      Speak(chat, SomebodyThere(chat, channel), name, Text(Pick(chat, kPhrases)), "", now);
  }
  return inhabitants;
}

void LiveOn(Inhabitants& inhabitants, Chat& chat, const Moment& now) {
  if (!inhabitants.options.present) return;
  if (inhabitants.options.talk > 0) {
    const bool is_early = inhabitants.next_ms != kForever && now.ms < inhabitants.next_ms;
    if (!is_early) Talk(inhabitants, chat, now);
    return;
  }
  std::int64_t next = kForever;
  for (const Text& name : inhabitants.options.channels)
    if (Channel* channel = FindChannel(chat, name))
      next = std::min(next, LiveOnChannel(inhabitants, chat, *channel, now));
  inhabitants.next_ms = next;
}

}  // namespace parlorwire::service

#include "service/site.h"

#include <algorithm>
#include <array>

#include "service/accounts.h"
#include "service/ascii.h"
#include "service/form.h"
#include "service/lists.h"
#include "service/names.h"
#include "service/pages.h"
#include "service/personal.h"
#include "service/posting.h"
#include "service/presence.h"
#include "service/presentation.h"
#include "service/whois.h"
#include "text/charset.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

constexpr std::string_view kHtml = "text/html; charset=koi8-r";
constexpr std::string_view kPlain = "text/plain; charset=koi8-r";
constexpr std::size_t kMostMessageDigits = 17;  // of the number of a personal message

Text ToWire(std::string_view text) {
  return ConvertCharset(Text(text), Charset::kWindows1251, Charset::kKoi);
}

// A frame's header names no length: it ends with the connection.
std::string Header(int status, std::string_view type, std::string_view more = {}) {
  return "HTTP/1.0 " + std::to_string(status) + " " + std::string(ReasonPhrase(status)) +
         "\r\nContent-Type: " + std::string(type) +
         "\r\nCache-Control: no-store\r\nConnection: close\r\n" + std::string(more) + "\r\n";
}

std::string Ended(int status, std::string_view type, std::string_view text,
                  std::string_view more = {}) {
  const Text wire = ToWire(text);
  const std::string length =
      "Content-Length: " + std::to_string(wire.size()) + "\r\nX-Content-Type-Options: nosniff\r\n";
  return Header(status, type, length + std::string(more)) + wire;
}

std::string HtmlAnswer(std::string_view text) {
  return Ended(200, kHtml, text);
}

// What every handler needs.
struct Visit {
  Chat& chat;
  const Request& request;
  const Origin& origin;
  const Moment& now;
  Form form;
  Visitor visitor;
  Account* account = nullptr;  // whose ticket came with the request
};

// Personal pages are asked for with a nick that is not in the wire's character set.
Account* FindAccountOfVisit(Chat& chat, const Form& form) {
  const Text& nick = form["username"];
  Account* account = FindAccount(chat, nick, form["ticket"]);
  return account != nullptr ? account : FindAccount(chat, ToWire(nick), form["ticket"]);
}

Answer ChannelPage(const Visit& visit) {
  if (visit.account->style == kRobotStyle) return {Ended(200, kPlain, ChannelList(visit.chat)), {}};
  return {HtmlAnswer(SelectionPage(visit.chat, visit.visitor)), {}};
}

Answer LogInAnswer(const Visit& visit) {
  Visitor visitor = visit.visitor;
  const Login login = LogIn(visit.chat, visitor.nick, visit.form["passwd"], visitor.channel,
                            visit.origin, visit.now);
  switch (login.result) {
    case LoginResult::kWelcome:
      visitor.ticket = login.ticket;
      return {HtmlAnswer(WelcomePage(visitor)), {}};
    case LoginResult::kWrongPassword:
      return {HtmlAnswer(WrongPasswordPage()), {}};
    case LoginResult::kWait:
      return {HtmlAnswer(WaitPage()), {}};
    case LoginResult::kRefused:
      return {HtmlAnswer(RefusedPage()), {}};
    case LoginResult::kFull:
      break;
  }
  return {ErrorAnswer(503), {}};
}

Answer Root(const Visit& visit) {
  if (visit.form.Has("passwd")) return LogInAnswer(visit);
  if (!visit.form.Has("ticket")) return {HtmlAnswer(LoginPage()), {}};
  if (visit.account == nullptr) return {HtmlAnswer(WrongPasswordPage()), {}};
  return ChannelPage(visit);
}

Answer MessageFrame(const Visit& visit) {
  if (!HasRoomForFrame(visit.chat, *visit.account, NickKey(visit.visitor.channel), visit.origin))
    return {ErrorAnswer(503), {}};
  const Frame* frame = Enter(visit.chat, *visit.account, visit.visitor.channel,
                             visit.visitor.password, visit.origin, visit.now, Header(200, kHtml));
  if (frame == nullptr) return ChannelPage(visit);
  return {{}, frame->id};
}

Answer UsersAnswer(const Visit& visit) {
  Channel* channel = FindChannel(visit.chat, visit.visitor.channel);
  if (channel == nullptr || FindMember(*channel, visit.account->nick) == nullptr)
    return ChannelPage(visit);
  if (visit.account->style == kRobotStyle)
    return {
        HtmlAnswer(UserFrame(*channel, *visit.account, visit.visitor, visit.chat.options.form_b)),
        {}};
  return {HtmlAnswer(UserPage(*channel, *visit.account, visit.visitor)), {}};
}

Text TooOften() {
  return "Слишком часто, сообщение не отправлено"_w;
}

bool MaySay(const Visit& visit, Bucket& of_nick, std::int64_t rate) {
  Place& place = PlaceAt(visit.chat, PlaceOf(visit.origin), visit.now);
  return Take(of_nick, rate, visit.now.ms) &&
         Take(place.posts, visit.chat.options.limits.posts_of_address, visit.now.ms);
}

Answer PostAnswer(const Visit& visit) {
  if (!visit.form.Has("msgtext")) return {HtmlAnswer(PostPage(visit.visitor, {})), {}};
  if (!MaySay(visit, visit.account->posts, visit.chat.options.limits.posts))
    return {HtmlAnswer(PostPage(visit.visitor, TooOften())), {}};
  const Text sentence =
      Post(visit.chat, *visit.account, visit.visitor.channel, visit.form["msgtext"],
           ToneOfAction(visit.form["action"]), visit.form["reqnum"], visit.now);
  const Text page = PostPage(visit.visitor, sentence);
  // Nothing is lost where the answer says no more than that.
  if (sentence != kMessageSent || !TakeUntold(*visit.account)) return {HtmlAnswer(page), {}};
  const Text signal =
      PersonalSignal(PersonalAddress(visit.visitor.nick, visit.visitor.ticket)) + page;
  // Robots look for the script at the very start of what comes.
  if (visit.account->style == kRobotStyle) return {ToWire(signal), {}};
  return {HtmlAnswer(signal), {}};
}

Answer LogOffAnswer(const Visit& visit) {
  LogOff(visit.chat, *visit.account, visit.now);
  return {HtmlAnswer(GoodbyePage(visit.account->nick)), {}};
}

Answer LeaveAnswer(const Visit& visit) {
  Leave(visit.chat, *visit.account, visit.visitor.channel, visit.now);
  return ChannelPage(visit);
}

// The host that the links of personal messages name; a blank in it would break their lines.
std::string SafeHost(const std::string& host) {
  const bool is_safe = !host.empty() && std::all_of(host.begin(), host.end(), [](char c) {
    return IsAlphanumeric(c) || c == '.' || c == '-' || c == ':';
  });
  return is_safe && host.size() <= kLongestHost ? host : "localhost";
}

Answer PersonalFrame(const Visit& visit) {
  if (!HasRoomForFrame(visit.chat, *visit.account, {}, visit.origin)) return {ErrorAnswer(503), {}};
  Frame& frame = EnterPersonal(visit.chat, *visit.account, visit.now, Header(200, kHtml),
                               SafeHost(visit.request.host));
  frame.place = PlaceOf(visit.origin);
  return {{}, frame.id};
}

Answer PersonalPost(const Visit& visit) {
  if (!visit.form.Has("msgtext")) return {HtmlAnswer(PersonalPostPage(visit.visitor, {})), {}};
  if (!MaySay(visit, visit.account->personal_posts, visit.chat.options.limits.personal))
    return {HtmlAnswer(PersonalPostPage(visit.visitor, TooOften())), {}};
  // One reading only: by another one the words might reach somebody else.
  const Text to = visit.request.method == "POST"
                      ? DecodeUnrecoded(EncodedValue(visit.request.body, "xtouser"))
                      : visit.form["xtouser"];
  const Text sentence =
      SendPersonal(visit.chat, *visit.account, Trim(to), visit.form["msgtext"], visit.now);
  return {HtmlAnswer(PersonalPostPage(visit.visitor, sentence)), {}};
}

Answer AcknowledgeAnswer(const Visit& visit) {
  const auto number = ReadNumber(visit.form["pm_msgnum"], kMostMessageDigits);
  if (!number || !Acknowledge(*visit.account, *number)) return {ErrorAnswer(404), {}};
  return {HtmlAnswer("<html>\n<body>\nok\n</body>\n</html>\n"), {}};
}

Answer OfChannel(const Visit& visit, Text (*page)(const Visit&, const Channel&)) {
  Channel* channel = FindChannel(visit.chat, visit.visitor.channel);
  if (channel == nullptr) return {HtmlAnswer(NoSuchChannelPage(visit.visitor.channel)), {}};
  if (!MayRead(*channel, visit.account->nick, visit.visitor.password))
    return {HtmlAnswer(LockedChannelPage(channel->name)), {}};
  return {HtmlAnswer(page(visit, *channel)), {}};
}

Answer BanList(const Visit& visit) {
  return OfChannel(visit, [](const Visit& v, const Channel& c) { return BanListPage(c, v.now); });
}

Answer OperatorList(const Visit& visit) {
  return OfChannel(visit,
                   [](const Visit& v, const Channel& c) { return OperatorListPage(v.chat, c); });
}

Answer TopicHistory(const Visit& visit) {
  return OfChannel(visit,
                   [](const Visit& v, const Channel& c) { return TopicHistoryPage(c, v.now); });
}

Answer Room(const Visit& visit) {
  return {HtmlAnswer(RoomPage(visit.visitor)), {}};
}

Answer Rules(const Visit&) {
  return {HtmlAnswer(RulesPage()), {}};
}

Answer Whois(const Visit& visit) {
  return {HtmlAnswer(WhoisPage(visit.form["server"])), {}};
}

// What a link of a personal message leads to. It stands behind the field's name as it is, with all
// that an address may hold: only what begins otherwise is a field's value like others.
Text TargetOf(const Visit& visit) {
  constexpr std::string_view kField = "msgtext=";
  const std::string_view form =
      visit.request.method == "POST" ? visit.request.body : visit.request.query;
  const std::string_view rest =
      form.starts_with(kField) ? form.substr(kField.size()) : std::string_view();
  return IsAddressOfPage(rest) ? Text(rest) : visit.form["msgtext"];
}

// Links of personal messages lead through here, so that no page elsewhere learns a ticket. The page
// names where it leads, and only a click goes on: nobody can make the service's name lead elsewhere
// unseen.
Answer Redirect(const Visit& visit) {
  const Text target = TargetOf(visit);
  const bool is_clean = std::none_of(target.begin(), target.end(), [](char c) {
    return static_cast<unsigned char>(c) <= 0x20 || static_cast<unsigned char>(c) >= 0x7F;
  });
  if (!IsAddressOfPage(target) || !is_clean) return {ErrorAnswer(400), {}};
  return {Ended(200, kHtml, WayOutPage(target), "Referrer-Policy: no-referrer\r\n"), {}};
}

struct Route {
  std::string_view path;
  bool needs_ticket;
  Answer (*handler)(const Visit&);
};

constexpr std::array<Route, 16> kRoutes = {{
    {"/", false, Root},
    {"/pframe", true, MessageFrame},
    {"/chl", true, UsersAnswer},
    {"/newmsg_t", true, PostAnswer},
    {"/room", true, Room},
    {"/logoff", true, LogOffAnswer},
    {"/leave", true, LeaveAnswer},
    {kPersonalPage, true, PersonalFrame},
    {kPersonalPostPage, true, PersonalPost},
    {kAcknowledgePage, true, AcknowledgeAnswer},
    {"/banlist", true, BanList},
    {"/oplist", true, OperatorList},
    {"/topic_hist", true, TopicHistory},
    {"/rulez.html", false, Rules},
    {"/redirect", false, Redirect},
    {kWhoisPage, false, Whois},
}};

}  // namespace

std::string ErrorAnswer(int status) {
  return Ended(status, kHtml, ErrorPage(status));
}

bool IsTrusted(const ChatOptions& options, const std::string& address) {
  return std::any_of(options.trusted_proxies.begin(), options.trusted_proxies.end(),
                     [&](const Text& mask) { return MaskMatches(mask, address); });
}

Origin OriginOf(const ChatOptions& options, const std::string& peer, const Request& request) {
  if (!IsTrusted(options, peer)) return {peer, {}};
  // Each proxy on the way has put down its own peer last.
  const Text last = Trim(request.forwarded_for.substr(request.forwarded_for.rfind(',') + 1));
  return {peer, IsAddress(last) ? last : Text()};
}

Answer Handle(Chat& chat, const Request& request, const Origin& origin, const Moment& now) {
  const auto route = std::find_if(kRoutes.begin(), kRoutes.end(),
                                  [&](const Route& each) { return each.path == request.path; });
  if (route == kRoutes.end()) return {ErrorAnswer(404), {}};
  if (request.method == "HEAD" && route->needs_ticket) return {ErrorAnswer(405), {}};
  Visit visit{chat, request, origin, now, {}, {}, nullptr};
  visit.form = request.method == "POST" ? DecodeForm(request.body, FormBytes::kKoi)
                                        : DecodeForm(request.query, FormBytes::kKoiOrUtf8);
  // Cut behind the first character that is too many: what is refused is not kept or sent, either.
  visit.visitor = {visit.form["username"].substr(0, kLongestNick + 1), visit.form["ticket"],
                   Trim(visit.form["channel"]).substr(0, kLongestChannel + 1),
                   visit.form["chpwd"].substr(0, kLongestPassword + 1)};
  visit.account = FindAccountOfVisit(chat, visit.form);
  if (visit.account != nullptr) {
    visit.visitor.nick = visit.account->nick;
    visit.account->used_ms = now.ms;
  }
  if (route->needs_ticket && visit.account == nullptr)
    return {HtmlAnswer(route->path == kPersonalPage
                           ? NoPersonalFramePage(TimeText(now.local, now.local))
                           : WrongPasswordPage()),
            {}};
  Answer answer = route->handler(visit);
  if (request.method == "HEAD") answer.bytes.resize(answer.bytes.find("\r\n\r\n") + 4);
  return answer;
}

}  // namespace parlorwire::service

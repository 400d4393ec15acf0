// The pages that tell of no channel: forms and answers. HTML in Windows-1251; the header and the
// wire's character set come in the site. The texts they are given are not escaped.
#pragma once

#include <string_view>

#include "service/markup.h"
#include "text/text.h"

namespace parlorwire::service {

// The form that logs in.
Text LoginPage();
// Holds a link that ends in "&ticket=VALUE'".
Text WelcomePage(const Visitor& visitor);
// Title "error auth page".
Text WrongPasswordPage();
// The same where a personal frame was asked for: a line as of a message that came at that time, so
// that who reads frames alone can see it.
Text NoPersonalFramePage(std::string_view time);
// The same for who has to wait, since wrong passwords came before.
Text WaitPage();
// Title "authorization failed!".
Text RefusedPage();
// The frames of a channel for a browser.
Text RoomPage(const Visitor& visitor);
// The form that posts a message; the sentence stands in "<font size=1>".
Text PostPage(const Visitor& visitor, std::string_view sentence);
// The same for a personal message.
Text PersonalPostPage(const Visitor& visitor, std::string_view sentence);
Text GoodbyePage(std::string_view nick);
// The status of an answer that tells of a failure, in words.
Text ErrorPage(int status);
Text RulesPage();
Text NoSuchChannelPage(std::string_view name);
Text LockedChannelPage(std::string_view name);
// Names an address elsewhere, and leads there by a click.
Text WayOutPage(std::string_view target);

}  // namespace parlorwire::service

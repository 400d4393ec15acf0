// Pages in the user's browser.
#pragma once

#include "text/text.h"

namespace parlorwire {

// Hands the page to the desktop's own opener. Only http, https and ftp addresses are opened; one
// without a scheme that begins with "www." is taken as http.
void OpenUrl(const Text& url);

}  // namespace parlorwire

// Pages in the user's browser, folders in his file manager.
#pragma once

#include <string>

#include "text/text.h"

namespace parlorwire {

// Hands the page to the desktop's own opener. Only http, https and ftp addresses are opened; one
// without a scheme that begins with "www." is taken as http.
void OpenUrl(const Text& url);

// Shows a folder, an absolute path as the system names it, in the desktop's own file manager.
void OpenFolder(const std::string& path);

}  // namespace parlorwire

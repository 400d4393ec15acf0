// Reads and writes keys in any text: what was written is read back, what was not stays, and no call
// faults.
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "platform/profile_file.h"
#include "text/cut.h"

using namespace parlorwire;

namespace {

void Check(bool holds) {
  if (!holds) std::abort();
}

Text Read(std::string_view file, std::string_view section, std::string_view key) {
  return ReadProfileValue(file, section, key, file.size() + 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view file(reinterpret_cast<const char*>(data), size);

  // A value of the text itself, at every length of the buffer.
  const Text whole = Read(file, "Main", "Language");
  for (std::size_t buffer = 0; buffer <= whole.size() + 1; ++buffer) {
    const Text value = ReadProfileValue(file, "main", " LANGUAGE ", buffer);
    Check(value == whole.substr(0, buffer == 0 ? 0 : buffer - 1));
  }

  const Text written = WriteProfileValue(file, "Main", "Language", "a value");
  Check(Read(written, "Main", "Language") == "a value");
  Check(WriteProfileValue(written, "Main", "Language", "a value") == written);
  for (const std::string_view key : {"Logins", "Login0", ""})
    Check(Read(written, "Main", key) == Read(file, "Main", key));
  Check(Read(written, "Bot", "AutoKick") == Read(file, "Bot", "AutoKick"));

  // A value made of the input, as a user may type it.
  Text typed;
  for (const char c : file.substr(0, 50))
    if (c != '\r' && c != '\n') typed += c;
  const Text saved = WriteProfileValue(file, "ProxySettings", "Proxy_pass", typed);
  Check(Contains(saved, "=" + typed));
  Check(Read(saved, "Main", "Language") == whole);
  return 0;
}

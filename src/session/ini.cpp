#include "session/ini.h"

#include "platform/profile_file.h"
#include "session/client.h"
#include "session/fault_trap.h"

namespace parlorwire {
namespace {

constexpr const char* kConfigIni = "config.ini";

bool TooLarge(const Files& files) {
  return files.Size(kConfigIni) > kLargestConfigFile;
}

}  // namespace

Text ReadIni(Client& client, std::string_view section, std::string_view key) {
  Files& files = client.platform.files;
  Text value;
  PassOverFault([&] {
    if (!files.Exists(kConfigIni)) files.Replace(kConfigIni, "");
    if (TooLarge(files)) return;
    const Text file = files.Read(kConfigIni);
    value = ReadProfileValue(file, section, key, file.size());
  });
  return value;
}

void WriteIni(Client& client, std::string_view section, std::string_view key,
              std::string_view value) {
  // An event may change the texts that the views stand for.
  const Text section_name(section);
  const Text key_name(key);
  const Text new_value(value);
  client.platform.desktop.YieldToEvents();
  Files& files = client.platform.files;
  PassOverFault([&] {
    Text file;
    if (files.Exists(kConfigIni)) {
      if (TooLarge(files)) return;
      file = files.Read(kConfigIni);
    }
    const Text updated = WriteProfileValue(file, section_name, key_name, new_value);
    if (updated != file) files.Replace(kConfigIni, updated);
  });
}

}  // namespace parlorwire

#include "support/qt/qt_test.h"

#include <cstdio>
#include <filesystem>
#include <map>
#include <string>

namespace parlorwire {
namespace {

std::map<std::string, QtTestMain>& Files() {
  static std::map<std::string, QtTestMain> files;
  return files;
}

}  // namespace

QtTestFile::QtTestFile(const char* file, QtTestMain main) {
  const std::string name = std::filesystem::path(file).stem().string();
  if (!Files().emplace(name, main).second) qFatal("two test files are called %s", name.c_str());
}

}  // namespace parlorwire

int main(int argc, char** argv) {
  // A screen that is large enough for every window of a test.
  if (qgetenv("QT_QPA_PLATFORM") == "offscreen")
    qputenv("QT_QPA_PLATFORM",
            "offscreen:configfile=" QT_TESTCASE_SOURCEDIR "/support/qt/screen.json");
  const auto& files = parlorwire::Files();
  const auto file = files.find(argc > 1 ? argv[1] : "");
  if (file == files.end()) {
    std::puts("qt_tests FILE [FUNCTION ...], with a FILE of these:");
    for (const auto& [name, main] : files)
      std::puts(name.c_str());
    return 2;
  }
  argv[1] = argv[0];
  return file->second(argc - 1, argv + 1);
}

// Day logs without files.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/day_logs.h"

namespace parlorwire {

// Not to be changed while they are read.
class MemoryLogs : public DayLogs {
 public:
  class MemoryReader : public Reader {
   public:
    MemoryReader(const Text& content, std::atomic<std::int64_t>& read)
        : content_(content), read_(read) {}

    std::size_t Read(std::span<char> bytes) override {
      const std::size_t size = std::min(bytes.size(), content_.size() - at_);
      std::copy_n(content_.begin() + static_cast<std::ptrdiff_t>(at_), size, bytes.begin());
      at_ += size;
      read_ += static_cast<std::int64_t>(size);
      return size;
    }

   private:
    const Text& content_;
    std::atomic<std::int64_t>& read_;
    std::size_t at_ = 0;
  };

  std::string Folder() const override { return folder; }

  std::vector<DayLog> List() const override {
    std::vector<DayLog> all = unreadable;
    for (const auto& [name, content] : contents)
      all.push_back({name.second, name.first});
    std::reverse(all.begin(), all.end());  // in no order
    return all;
  }

  std::unique_ptr<Reader> Open(const DayLog& log) const override {
    const auto found = contents.find({log.day, log.channel});
    if (found == contents.end()) return nullptr;
    return std::make_unique<MemoryReader>(found->second, read);
  }

  std::map<std::pair<LogDay, Text>, Text> contents;
  std::vector<DayLog> unreadable;
  std::string folder;
  mutable std::atomic<std::int64_t> read = 0;  // bytes that were read
};

}  // namespace parlorwire

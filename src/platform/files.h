// The port to the files beside the program.
#pragma once

#include <cstdint>

#include "text/text.h"

namespace parlorwire {

// Files by name, relative to the application folder, with "\" between folders: "Logs\chan\x.log".
// A name is Windows-1251 and stands on the disk in UTF-8.
//
// Each part of a name must be one that the classic file system takes: not empty, not "." or "..",
// not ending in a blank or a dot, without control characters and without any of / : * ? " < > |.
// Other names are refused with Fault 52, so no name leads out of the application folder.
//
// Every failure is a Fault: 53 file not found, 61 disk full, 70 permission denied, 76 path not
// found, 75 for the rest. What a call has written is with the system when it returns, and no file
// stays open when the event in which it was written is over.
class Files {
 public:
  virtual ~Files() = default;

  virtual bool Exists(const Text& name) const = 0;

  // The size in bytes.
  virtual std::int64_t Size(const Text& name) const = 0;

  virtual Text Read(const Text& name) const = 0;

  // Gives the file this content and no other. Atomic: after a failure, or if the process dies at
  // any moment, the file has either its old content or the new one, whole.
  virtual void Replace(const Text& name, const Text& content) = 0;

  // The same without waiting for the disk, for a large file that changes often: a process that dies
  // leaves old or new, whole. A machine that fails may leave neither.
  virtual void ReplaceUnflushed(const Text& name, const Text& content) = 0;

  // Writes `bytes` into the file from position `at` on, 1-based, creating it if need be. What
  // stands behind the written bytes stays. at < 1: Fault 63. A gap is filled with zeros.
  virtual void WriteAt(const Text& name, std::int64_t at, const Text& bytes) = 0;

  // Puts `bytes` behind the last byte, creating the file if need be.
  virtual void Append(const Text& name, const Text& bytes) = 0;

  // Creates a folder whose parent exists; nothing if it exists.
  virtual void MakeFolder(const Text& name) = 0;
};

// Whether the port takes a name, by the rules above.
bool IsLegalFileName(std::string_view name);

}  // namespace parlorwire

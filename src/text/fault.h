// A fault of the run-time kind: what a procedure of this program fails with.
#pragma once

#include <exception>

#include "text/text.h"

namespace parlorwire {

// A numbered failure with the classic run-time text. Never shown to the user: it ends in error.log.
struct Fault : std::exception {
  explicit Fault(int fault_number);
  Fault(int fault_number, Text fault_description);

  const char* what() const noexcept override { return description.c_str(); }

  int number;
  Text description;
};

// The numbers in use.
namespace fault {
inline constexpr int kInvalidCall = 5;      // a cut with a negative length, a position below 1
inline constexpr int kOverflow = 6;         // a number too large for its type
inline constexpr int kOutOfMemory = 7;      // a result too large to be meant
inline constexpr int kSubscript = 9;        // an element that a list doesn't have
inline constexpr int kTypeMismatch = 13;    // a text that is no number
inline constexpr int kErrorInLibrary = 48;  // a resource library that cannot be read
inline constexpr int kInternal = 51;        // an exception of the language's library
inline constexpr int kBadFileName = 52;     // a name that no file can have
inline constexpr int kFileNotFound = 53;
inline constexpr int kDiskFull = 61;
inline constexpr int kBadRecordNumber = 63;  // a position in a file below 1
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathFileAccess = 75;  // any other failure of the file system
inline constexpr int kPathNotFound = 76;
inline constexpr int kAlreadyLoaded = 360;    // never logged
inline constexpr int kInvalidProperty = 380;  // a value that a property can't have
}  // namespace fault

// The classic description of a number; "Application-defined or object-defined error" for others.
Text FaultDescription(int number);

}  // namespace parlorwire

#include "text/fault.h"

#include <utility>

namespace parlorwire {

Fault::Fault(int fault_number) : Fault(fault_number, FaultDescription(fault_number)) {}

Fault::Fault(int fault_number, Text fault_description)
    : number(fault_number), description(std::move(fault_description)) {}

Text FaultDescription(int number) {
  switch (number) {
    case fault::kInvalidCall:
      return "Invalid procedure call or argument";
    case fault::kOverflow:
      return "Overflow";
    case fault::kOutOfMemory:
      return "Out of memory";
    case fault::kSubscript:
      return "Subscript out of range";
    case fault::kTypeMismatch:
      return "Type mismatch";
    case fault::kErrorInLibrary:
      return "Error in loading DLL";
    case fault::kInternal:
      return "Internal error";
    case fault::kBadFileName:
      return "Bad file name or number";
    case fault::kFileNotFound:
      return "File not found";
    case fault::kDiskFull:
      return "Disk full";
    case fault::kBadRecordNumber:
      return "Bad record number";
    case fault::kPermissionDenied:
      return "Permission denied";
    case fault::kPathFileAccess:
      return "Path/File access error";
    case fault::kPathNotFound:
      return "Path not found";
    case fault::kAlreadyLoaded:
      return "Object already loaded";
    case fault::kInvalidProperty:
      return "Invalid property value";
    default:
      return "Application-defined or object-defined error";
  }
}

}  // namespace parlorwire

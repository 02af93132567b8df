#include "core/platform/runtime_error.h"

namespace fiscalon {

namespace {

struct StandardError {
  int32_t number = 0;
  std::string_view description = {};
};

constexpr StandardError kStandardErrors[] = {
    {error_number::kInvalidProcedureCall, "Invalid procedure call or argument"},
    {error_number::kOverflow, "Overflow"},
    {error_number::kSubscriptOutOfRange, "Subscript out of range"},
    {error_number::kTypeMismatch, "Type mismatch"},
    {error_number::kFileNotFound, "File not found"},
    {error_number::kDiskFull, "Disk full"},
    {error_number::kPermissionDenied, "Permission denied"},
    {error_number::kPathFileAccessError, "Path/File access error"},
    {error_number::kPathNotFound, "Path not found"},
    {error_number::kObjectNotSet, "Object variable or With block variable not set"},
    {error_number::kAlreadyShown, "Form already displayed; can't show modally"},
    {error_number::kDuplicateKey, "This key is already associated with an element of this collection"},
};

}  // namespace

RuntimeError::RuntimeError(int32_t number, std::string_view description, std::string_view source)
    : number_(number), description_(description), source_(source) {}

void Raise(int32_t number) {
  for (const StandardError& error : kStandardErrors)
    if (error.number == number)
      throw RuntimeError(number, error.description);
  throw RuntimeError(number, "Application-defined or object-defined error");
}

}  // namespace fiscalon

#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace fiscalon {

/// A run-time failure of the platform's kind: a number, a description and the source that raised it. Hosts see
/// all three; handlers with the resume-next policy swallow this type and no other.
class RuntimeError : public std::exception {
 public:
  RuntimeError(int32_t number, std::string_view description, std::string_view source = "Fiscalon");

  int32_t Number() const { return number_; }
  const std::string& Description() const { return description_; }
  const std::string& Source() const { return source_; }

  /// The description.
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  int32_t number_;
  std::string description_;
  std::string source_;
};

/// The numbers that hosts may meet, to be compared with `RuntimeError::Number()`, in a `switch` too.
namespace error_number {

inline constexpr int32_t kInvalidProcedureCall = 5;
inline constexpr int32_t kOverflow = 6;
inline constexpr int32_t kSubscriptOutOfRange = 9;
inline constexpr int32_t kTypeMismatch = 13;
inline constexpr int32_t kFileNotFound = 53;
inline constexpr int32_t kDiskFull = 61;
inline constexpr int32_t kPermissionDenied = 70;
inline constexpr int32_t kPathFileAccessError = 75;
inline constexpr int32_t kPathNotFound = 76;
inline constexpr int32_t kObjectNotSet = 91;
inline constexpr int32_t kAlreadyShown = 400;
inline constexpr int32_t kDuplicateKey = 457;
/// 0x80040001, of a session that is asked for a screen that it does not have.
inline constexpr int32_t kInvalidScreenType = static_cast<int32_t>(0x80040001);

}  // namespace error_number

/// Throws the `RuntimeError` of that number with its standard description, e.g. 6 "Overflow".
[[noreturn]] void Raise(int32_t number);

}  // namespace fiscalon

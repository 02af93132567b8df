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
  /// Of a number that `error_number` has, or of the host's own. Texts are in the code page.
  RuntimeError(int32_t number, std::string_view description, std::string_view source = "Fiscalon");

  /// One of `error_number`; a host's own handlers may raise others.
  int32_t Number() const { return number_; }
  /// What happened, such as "Overflow".
  const std::string& Description() const { return description_; }
  /// Who raised it: "Fiscalon", or "Fiscalon.ShowLevyraScreen" where a screen was asked for.
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

inline constexpr int32_t kInvalidProcedureCall = 5;  ///< a value that the call can't take, an unknown key
inline constexpr int32_t kOverflow = 6;              ///< a number that its place can't hold
inline constexpr int32_t kSubscriptOutOfRange = 9;   ///< a position where the collection has no member
inline constexpr int32_t kTypeMismatch = 13;         ///< a text that had to be a number
inline constexpr int32_t kFileNotFound = 53;         ///< the file is not there
inline constexpr int32_t kDiskFull = 61;             ///< no room for the records
inline constexpr int32_t kPermissionDenied = 70;     ///< an old file that can't be deleted
inline constexpr int32_t kPathFileAccessError = 75;  ///< a file that can't be opened or written
inline constexpr int32_t kPathNotFound = 76;         ///< the folder of the file is not there
inline constexpr int32_t kObjectNotSet = 91;         ///< no forms toolkit, or no records to check
inline constexpr int32_t kAlreadyShown = 400;        ///< the form is up already
inline constexpr int32_t kDuplicateKey = 457;        ///< a key that another member of the collection has
/// 0x80040001, of a session that is asked for a screen that it does not have.
inline constexpr int32_t kInvalidScreenType = static_cast<int32_t>(0x80040001);

}  // namespace error_number

/// Throws the `RuntimeError` of that number with its standard description, e.g. 6 "Overflow".
[[noreturn]] void Raise(int32_t number);

}  // namespace fiscalon

#pragma once

#include <windows.h>

#include <iterator>

namespace fiscalon {

/// Another value among the user's locale settings on Windows, which all programs see, for as long as the object lives.
class UsersSetting {
 public:
  UsersSetting(LCTYPE what, const wchar_t* value) : what_(what) {
    ::GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, what, before_, static_cast<int>(std::size(before_)));
    ::SetLocaleInfoW(LOCALE_USER_DEFAULT, what, value);
  }
  ~UsersSetting() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, what_, before_); }
  UsersSetting(const UsersSetting&) = delete;
  UsersSetting& operator=(const UsersSetting&) = delete;

 private:
  LCTYPE what_;
  wchar_t before_[16] = {};
};

}  // namespace fiscalon

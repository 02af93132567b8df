#include "bindings/c/answer.h"
#include "core/host_setup.h"
#include "core/platform/code_page.h"
#include "core/session.h"
#include "core/values/calendar.h"

/// What is set once for the process, what the library says of itself, and its code page.
namespace fiscalon::c {

namespace {

/// Gives a text that was made of bytes of the host, in a place of the host's, with a zero behind.
int GiveText(std::string (*make)(std::string_view), const char* bytes, size_t size, char* place, size_t capacity,
             size_t* needed) noexcept {
  if (needed != nullptr)
    *needed = 0;
  return AnswerAnyTime([&] {
    if (needed == nullptr || (bytes == nullptr && size > 0))
      Fail(FISCALON_ERROR_NULL_POINTER, "NULL was given for a text, or for the place of its size.");
    const std::string text = make({bytes, size});
    *needed = text.size();
    if (place == nullptr || capacity <= text.size())
      return;
    text.copy(place, text.size());
    place[text.size()] = '\0';
  });
}

bool IsBetween(int32_t number, int32_t from, int32_t to) {
  return number >= from && number <= to;
}

}  // namespace

}  // namespace fiscalon::c

using namespace fiscalon::c;

extern "C" {

const char* fiscalon_version(void) {
  return FISCALON_VERSION;
}

int32_t fiscalon_c_interface(void) {
  return FISCALON_C_INTERFACE;
}

int fiscalon_last_error(fiscalon_error* error) {
  if (error == nullptr || error->size != sizeof(fiscalon_error))
    return -1;
  *error = LastFailure();
  return 0;
}

int fiscalon_use_fixed_clock(int32_t year, int32_t month, int32_t day, int32_t hour, int32_t minute, int32_t second) {
  return Answer([&] {
    ExpectNoBatch();
    const bool isTime = IsBetween(hour, 0, 23) && IsBetween(minute, 0, 59) && IsBetween(second, 0, 59);
    const bool isDate = IsBetween(year, 100, 9999) && IsBetween(month, 1, 12) && IsBetween(day, 1, 31) &&
                        day <= fiscalon::DaysOfMonth(year, month);
    if (!isTime || !isDate)
      Fail(FISCALON_ERROR_INVALID_PROCEDURE_CALL, "There is no such moment.");
    fiscalon::UseFixedClock(
        {.date = {.year = year, .month = month, .day = day}, .hour = hour, .minute = minute, .second = second});
  });
}

int fiscalon_use_locale(const char* name) {
  return Answer([&] {
    ExpectNoBatch();
    fiscalon::UseLocale(FromHost(name));
  });
}

int fiscalon_use_language(const char* name) {
  return Answer([&] { fiscalon::UseLanguage(FromHost(name)); });
}

int fiscalon_set_play_by_play_enabled(int32_t flag) {
  return Answer([&] { fiscalon::Levyra::PlayByPlayEnabled(flag); });
}

int fiscalon_set_main_path(const char* path) {
  return Answer([&] { fiscalon::Levyra::MainPath(FromHost(path)); });
}

int fiscalon_set_session_number(double number) {
  return Answer([&] { fiscalon::Levyra::SessionNumber(number); });
}

int fiscalon_to_utf8(const char* bytes, size_t size, char* utf8, size_t capacity, size_t* needed) {
  return GiveText(fiscalon::ToUtf8, bytes, size, utf8, capacity, needed);
}

int fiscalon_from_utf8(const char* utf8, size_t size, char* bytes, size_t capacity, size_t* needed) {
  return GiveText(FromHost, utf8, size, bytes, capacity, needed);
}

}  // extern "C"

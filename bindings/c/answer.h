#pragma once

#include <string>
#include <utility>

#include "bindings/c/failure.h"
#include "bindings/c/handles.h"
#include "bindings/c/texts.h"
#include "bindings/c/turn.h"

/// What all functions of the interface do alike.
namespace fiscalon::c {

/// Runs a call of the host without a turn, and lets no exception out.
template <typename Act>
int AnswerAnyTime(Act&& act, std::string_view source = kSource) noexcept {
  try {
    act();
    return 0;
  } catch (...) {
    KeepFailure(source);
    return -1;
  }
}

/// Runs one call of the host in its turn.
template <typename Act>
int Answer(Act&& act, std::string_view source = kSource) noexcept {
  return AnswerAnyTime(
      [&] {
        const Turn turn;
        act();
      },
      source);
}

/// The same for a call that gives a result, at a place that stays empty where it fails.
template <typename Result, typename Act>
int AnswerAt(Result* place, Act&& act, std::string_view source = kSource) noexcept {
  if (place != nullptr)
    *place = Result{};
  return Answer(
      [&] {
        if (place == nullptr)
          Fail(FISCALON_ERROR_NULL_POINTER, "NULL was given for the place of a result.");
        *place = act();
      },
      source);
}

/// A text of the object behind a handle, kept there until the next call with it.
template <typename Handle, typename Get>
int GetText(Handle* handle, const char** place, Get&& get) noexcept {
  return AnswerAt(place, [&] {
    const auto object = Of(handle);
    object->text = ToHost(get(*object));
    return object->text.c_str();
  });
}

template <typename Handle, typename Let>
int LetText(Handle* handle, const char* text, Let&& let) noexcept {
  return Answer([&] {
    const auto object = Of(handle);
    let(*object, FromHost(text));
  });
}

/// On any thread at any time.
template <typename Handle>
int Destroy(Handle** handle) noexcept {
  return AnswerAnyTime([&] {
    if (handle == nullptr)
      Fail(FISCALON_ERROR_NULL_POINTER, "NULL was given for the address of a handle.");
    if (*handle == nullptr)
      return;
    TheHandles().Remove(*handle, &kKind<Handle>);
    *handle = nullptr;
  });
}

/// Throws FISCALON_ERROR_STRUCT_SIZE for a struct that is of no version of the interface, 1001 for none.
template <typename Struct>
void ExpectStruct(const Struct* given) {
  if (given == nullptr)
    Fail(FISCALON_ERROR_NULL_POINTER, "NULL was given for a struct.");
  if (given->size != sizeof(Struct))
    Fail(FISCALON_ERROR_STRUCT_SIZE, "The size of a struct is not set, or not one that this library knows.");
}

}  // namespace fiscalon::c

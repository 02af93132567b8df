#pragma once

#include "bindings/c/answer.h"

// The pair of functions of a text of an object that the host owns, by the pair of overloads that it is in the library.
#define FISCALON_TEXT_PROPERTY(handle, name, property)                                                       \
  int handle##_get_##name(handle* object, const char** text) {                                               \
    return GetText(object, text, [](auto& owned) { return owned.core.property(); });                         \
  }                                                                                                          \
  int handle##_set_##name(handle* object, const char* text) {                                                \
    return LetText(object, text, [](auto& owned, const std::string& value) { owned.core.property(value); }); \
  }

// The same of a collection that others may hold too; NULL for none.
#define FISCALON_COLLECTION_PROPERTY(handle, name, property, collection)                          \
  int handle##_get_##name(handle* object, collection** place) {                                   \
    return AnswerAt(place, [&] { return NewHandleTo<collection>(Of(object)->core.property()); }); \
  }                                                                                               \
  int handle##_set_##name(handle* object, collection* given) {                                    \
    return Answer([&] {                                                                           \
      const auto owned = Of(object);                                                              \
      owned->core.property(SharedBy(given));                                                      \
    });                                                                                           \
  }

#include "bindings/c/answer.h"
#include "bindings/c/handle_objects.h"

/// The records, their fields and their collections.
namespace fiscalon::c {

namespace {

template <typename Handle>
int Create(Handle** handle) noexcept {
  using Core = typename decltype(HandleOf<Handle>::Object::core)::element_type;
  return AnswerAt(handle, [] { return NewHandleTo<Handle>(std::make_shared<Core>()); });
}

/// What the three collections do alike.
template <typename Handle>
struct Collection {
  using Member = typename HandleOf<Handle>::Member;

  static int Count(Handle* handle, int32_t* count) noexcept {
    return AnswerAt(count, [&] { return Of(handle)->core->Count(); });
  }
  static int Item(Handle* handle, int64_t position, Member** item) noexcept {
    return AnswerAt(item, [&] { return NewHandleTo<Member>(Of(handle)->core->Kept(position)); });
  }
  static int Item(Handle* handle, const char* key, Member** item) noexcept {
    return AnswerAt(item, [&] { return NewHandleTo<Member>(Of(handle)->core->Kept(FromHost(key))); });
  }
  static int Remove(Handle* handle, int64_t position) noexcept {
    return Answer([&] { Of(handle)->core->Remove(position); });
  }
  static int Remove(Handle* handle, const char* key) noexcept {
    return Answer([&] { Of(handle)->core->Remove(FromHost(key)); });
  }
  static int Clear(Handle* handle) noexcept {
    return Answer([&] { Of(handle)->core->Clear(); });
  }
  static int IsSame(Handle* handle, Handle* other, int32_t* same) noexcept {
    return AnswerAt(same, [&] { return Of(handle)->core == Of(other)->core ? 1 : 0; });
  }

  /// Appends a member of those texts, the last of which is the key. Where its handle can't be made there is no member.
  template <typename... Texts>
  static int Add(Handle* handle, Member** added, Texts... texts) {
    if (added != nullptr)
      *added = nullptr;
    return Answer([&] {
      const auto core = Of(handle)->core;
      core->Add(FromHostOrEmpty(texts)...);
      if (added == nullptr)
        return;
      const int32_t position = core->Count();
      try {
        *added = NewHandleTo<Member>(core->Kept(position));
      } catch (...) {
        core->Remove(position);
        throw;
      }
    });
  }
};

}  // namespace

}  // namespace fiscalon::c

using namespace fiscalon::c;

// The pair of functions of a text that a record holds.
#define FISCALON_FIELD(handle, name, property)                                                                      \
  int handle##_get_##name(handle* object, const char** text) {                                                      \
    return GetText(object, text, [](auto& shared) { return shared.core->property(); });                             \
  }                                                                                                                 \
  int handle##_set_##name(handle* object, const char* text) {                                                       \
    return LetText(object, text, [](auto& shared, std::string value) { shared.core->property(std::move(value)); }); \
  }

// What the three kinds of collections have alike.
#define FISCALON_COLLECTION(handle, member)                               \
  int handle##_create(handle** object) {                                  \
    return Create(object);                                                \
  }                                                                       \
  int handle##_destroy(handle** object) {                                 \
    return Destroy(object);                                               \
  }                                                                       \
  int handle##_count(handle* object, int32_t* count) {                    \
    return Collection<handle>::Count(object, count);                      \
  }                                                                       \
  int handle##_item_at(handle* object, int64_t position, member** item) { \
    return Collection<handle>::Item(object, position, item);              \
  }                                                                       \
  int handle##_item_of(handle* object, const char* key, member** item) {  \
    return Collection<handle>::Item(object, key, item);                   \
  }                                                                       \
  int handle##_remove_at(handle* object, int64_t position) {              \
    return Collection<handle>::Remove(object, position);                  \
  }                                                                       \
  int handle##_remove_of(handle* object, const char* key) {               \
    return Collection<handle>::Remove(object, key);                       \
  }                                                                       \
  int handle##_clear(handle* object) {                                    \
    return Collection<handle>::Clear(object);                             \
  }                                                                       \
  int handle##_is_same(handle* object, handle* other, int32_t* same) {    \
    return Collection<handle>::IsSame(object, other, same);               \
  }

extern "C" {

FISCALON_FIELD(fiscalon_record, the_date, TheDate)
FISCALON_FIELD(fiscalon_record, amount, Amount)
FISCALON_FIELD(fiscalon_record, description, Description)
int fiscalon_record_destroy(fiscalon_record** record) {
  return Destroy(record);
}

FISCALON_COLLECTION(fiscalon_records, fiscalon_record)
int fiscalon_records_add(fiscalon_records* records, const char* the_date, const char* amount, const char* description,
                         const char* key, fiscalon_record** added) {
  return Collection<fiscalon_records>::Add(records, added, the_date, amount, description, key);
}

FISCALON_FIELD(fiscalon_gov_format, period_start_date, PeriodStartDate)
FISCALON_FIELD(fiscalon_gov_format, period_end_date, PeriodEndDate)
FISCALON_FIELD(fiscalon_gov_format, period_due_date, PeriodDueDate)
FISCALON_FIELD(fiscalon_gov_format, filler1, Filler1)
FISCALON_FIELD(fiscalon_gov_format, contact_name, ContactName)
FISCALON_FIELD(fiscalon_gov_format, contact_title, ContactTitle)
FISCALON_FIELD(fiscalon_gov_format, filler2, Filler2)
int fiscalon_gov_format_create(fiscalon_gov_format** format) {
  return Create(format);
}
int fiscalon_gov_format_destroy(fiscalon_gov_format** format) {
  return Destroy(format);
}

FISCALON_COLLECTION(fiscalon_gov_formats, fiscalon_gov_format)
int fiscalon_gov_formats_add(fiscalon_gov_formats* formats, const char* period_start_date, const char* period_end_date,
                             const char* period_due_date, const char* filler1, const char* contact_name,
                             const char* contact_title, const char* filler2, const char* key,
                             fiscalon_gov_format** added) {
  return Collection<fiscalon_gov_formats>::Add(formats, added, period_start_date, period_end_date, period_due_date,
                                               filler1, contact_name, contact_title, filler2, key);
}

FISCALON_FIELD(fiscalon_free_format, field_num, FieldNum)
FISCALON_FIELD(fiscalon_free_format, field_value, FieldValue)
int fiscalon_free_format_create(fiscalon_free_format** format) {
  return Create(format);
}
int fiscalon_free_format_destroy(fiscalon_free_format** format) {
  return Destroy(format);
}

FISCALON_COLLECTION(fiscalon_free_formats, fiscalon_free_format)
int fiscalon_free_formats_add(fiscalon_free_formats* formats, const char* field_num, const char* field_value,
                              const char* key, fiscalon_free_format** added) {
  return Collection<fiscalon_free_formats>::Add(formats, added, field_num, field_value, key);
}

}  // extern "C"

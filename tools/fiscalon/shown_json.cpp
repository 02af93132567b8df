#include "tools/fiscalon/shown_json.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "core/platform/code_page.h"

namespace fiscalon {
namespace {

using Json = nlohmann::ordered_json;

std::string_view NameOf(Sense sense) {
  switch (sense) {
    case Sense::Blank:
      return "blank";
    case Sense::Text:
      return "text";
    case Sense::Cents:
      return "cents";
    case Sense::Digits:
      return "digits";
    case Sense::Date:
      return "date";
    case Sense::Month:
      return "month";
    case Sense::FieldNumber:
      return "number";
    case Sense::Missing:
      return "missing";
    case Sense::Wrong:
      return "wrong";
  }
  return {};
}

Json ToJson(const ShownField& field) {
  return {{"name", field.name},         {"from", field.from},           {"to", field.to},
          {"text", ToUtf8(field.text)}, {"sense", NameOf(field.sense)}, {"meaning", field.meaning}};
}

/// Columns are null for what concerns the record as a whole.
Json ToJson(const Note& note) {
  const bool hasPlace = note.from > 0;
  return {
      {"from", hasPlace ? Json(note.from) : Json()}, {"to", hasPlace ? Json(note.to) : Json()}, {"text", note.text}};
}

Json ToJson(const ShownRecord& record);

template <class Part>
Json ListOf(const std::vector<Part>& parts) {
  Json list = Json::array();
  for (const Part& part : parts) list.push_back(ToJson(part));
  return list;
}

/// Kind and sequence are null for a line that is no record.
Json ToJson(const ShownRecord& record) {
  const char letter = static_cast<char>(record.kind);
  return {{"line", record.number},
          {"kind", record.isRecord ? Json(ToUtf8(std::string_view(&letter, 1))) : Json()},
          {"seq", record.isRecord ? Json(ToUtf8(record.seq)) : Json()},
          {"length", record.record.size()},
          {"text", ToUtf8(record.record)},
          {"fields", ListOf(record.fields)},
          {"problems", ListOf(record.problems)},
          {"oddities", ListOf(record.oddities)}};
}

}  // namespace

void PrintJson(std::ostream& out, const std::string& file, const LaunchRow* screen,
               const std::vector<ShownRecord>& records) {
  const Json screenJson = screen == nullptr ? Json() : Json{{"code", screen->code}, {"form", screen->form}};
  const Json document = {{"file", file}, {"screen", screenJson}, {"records", ListOf(records)}};
  constexpr int kIndent = 2;
  out << document.dump(kIndent, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace fiscalon

#include "tools/fiscalon/commands/shown_json.h"

#include <nlohmann/json.hpp>

#include "core/values/text.h"
#include "tools/reading/record_meaning.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {
namespace {

using Json = nlohmann::json;

std::string_view NameOf(Sense sense) {
  switch (sense) {
    case Sense::Blank:
      return "blank";
    case Sense::Text:
      return "text";
    case Sense::Cents:
      return "cents";
    case Sense::Dollars:
      return "dollars";
    case Sense::Digits:
      return "digits";
    case Sense::Count:
      return "count";
    case Sense::Date:
      return "date";
    case Sense::Month:
      return "month";
    case Sense::Year:
      return "year";
    case Sense::FieldNumber:
      return "number";
    case Sense::Missing:
      return "missing";
    case Sense::Wrong:
      return "wrong";
  }
  return {};
}

/// Whether a text can stand in JSON as it is.
bool StandsAsItIs(std::string_view text) {
  return IsPlain(text) && text.find('"') == text.npos && text.find('\\') == text.npos;
}

void AppendQuoted(std::string& out, std::string_view text) {
  out += '"';
  out += text;
  out += '"';
}

/// Appends a text of the code page. `stands` is whether it is known to stand in JSON as it is.
void AppendText(std::string& out, std::string_view text, bool stands) {
  if (stands || StandsAsItIs(text))
    return AppendQuoted(out, text);
  std::string utf8;
  AppendUtf8(utf8, text);
  AppendJsonString(out, utf8);
}

void AppendMember(std::string& out, std::string_view name, uint64_t number) {
  out.append(name);
  AppendNumber(out, number);
}

/// `,{"name":"FieldValue","from":11,"to":28,"text":`; the first has no comma.
PrintedFields::Fronts JsonFrontsOf(const ShownRecord& record) {
  PrintedFields::Fronts fronts;
  for (const ShownField& field : record.fields) {
    std::string& front = fronts.emplace_back(fronts.empty() ? "" : ",").append(R"({"name":")").append(field.name);
    AppendMember(front, R"(","from":)", static_cast<uint64_t>(field.from));
    AppendMember(front, R"(,"to":)", static_cast<uint64_t>(field.to));
    front += R"(,"text":)";
  }
  return fronts;
}

/// Appends what stands in a field and what it is. `stands` is that of the whole record.
void AppendField(std::string& out, const ShownField& field, std::string_view text, bool stands) {
  AppendText(out, text, stands);
  out.append(R"(,"sense":")").append(NameOf(field.sense)).append(R"(","meaning":)");
  if (field.sense == Sense::Text) {
    AppendText(out, Trim(text), stands);
  } else {
    // Numbers, dates and names of fields need no escape.
    out += '"';
    AppendMeaning(out, field, text);
    out += '"';
  }
  out += '}';
}

/// Columns are null for what concerns the record as a whole.
void AppendNote(std::string& out, const Note& note) {
  if (note.from > 0) {
    AppendMember(out, R"({"from":)", static_cast<uint64_t>(note.from));
    AppendMember(out, R"(,"to":)", static_cast<uint64_t>(note.to));
  } else {
    out += R"({"from":null,"to":null)";
  }
  out += R"(,"text":)";
  AppendJsonString(out, note.In({}));
  out += '}';
}

template <typename Things, typename AppendThing>
void AppendList(std::string& out, std::string_view name, const Things& things, AppendThing&& append) {
  out.append(name).append("[");
  for (const auto& thing : things) {
    append(thing);
    out += ',';
  }
  if (!things.empty())
    out.pop_back();
  out += ']';
}

}  // namespace

void AppendJsonString(std::string& out, std::string_view utf8) {
  if (StandsAsItIs(utf8))
    AppendQuoted(out, utf8);
  else
    out += Json(utf8).dump(-1, ' ', false, Json::error_handler_t::replace);
}

JsonPrinter::JsonPrinter() : fields_(JsonFrontsOf) {}

/// Kind and sequence are null for a line that is no record.
void JsonPrinter::Append(std::string& out, const ShownRecord& record) {
  const bool stands = StandsAsItIs(record.record);
  const char letter = static_cast<char>(record.kind);
  AppendMember(out, R"({"line":)", record.number);
  out += R"(,"kind":)";
  if (record.isRecord)
    AppendText(out, {&letter, 1}, stands);
  else
    out += "null";
  out += R"(,"seq":)";
  if (record.isRecord)
    AppendText(out, record.Seq(), stands);
  else
    out += "null";
  AppendMember(out, R"(,"length":)", record.length);
  out += R"(,"text":)";
  AppendText(out, record.record, stands);
  out += R"(,"fields":[)";
  fields_.Append(out, record, [&](std::string& print, const ShownField& field, const std::string& front) {
    print += front;
    AppendField(print, field, record.TextOf(field), stands);
  });
  out += ']';
  AppendList(out, R"(,"problems":)", record.problems, [&](const Note& note) { AppendNote(out, note); });
  AppendList(out, R"(,"oddities":)", record.oddities, [&](const Note& note) { AppendNote(out, note); });
  out += '}';
}

}  // namespace fiscalon

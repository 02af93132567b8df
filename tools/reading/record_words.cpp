#include "tools/reading/record_words.h"

#include "tools/reading/utf8_words.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {

std::string HeadingOf(const ShownRecord& record) {
  const std::string number = std::to_string(record.number);
  if (record.isInvoice)
    return Utf8Words("Record {1}: invoice", {number});
  if (!record.isRecord)
    return Utf8Words("Line {1}: no record", {number});
  const char letter = static_cast<char>(record.kind);
  const std::string_view name = NameOf(record.kind);
  return Utf8Words(
      "Record {1}: {2}, sequence \"{3}\"",
      {number, name.empty() ? VisibleText({&letter, 1}) : Utf8Words(name), VisibleText(WithDots(record.Seq()))});
}

std::string PlaceOf(int from, int to) {
  if (from == 0)
    return {};
  return from == to ? std::to_string(from) : std::to_string(from) + "-" + std::to_string(to);
}

}  // namespace fiscalon

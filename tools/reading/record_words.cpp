#include "tools/reading/record_words.h"

#include "tools/reading/visible_text.h"

namespace fiscalon {

std::string HeadingOf(const ShownRecord& record) {
  const std::string number = std::to_string(record.number);
  if (record.isInvoice)
    return "Record " + number + ": invoice";
  if (!record.isRecord)
    return "Line " + number + ": no record";
  const char letter = static_cast<char>(record.kind);
  const std::string_view name = NameOf(record.kind);
  return "Record " + number + ": " + (name.empty() ? VisibleText({&letter, 1}) : std::string(name)) + ", sequence " +
         DottedText(record.Seq());
}

std::string PlaceOf(int from, int to) {
  if (from == 0)
    return {};
  return from == to ? std::to_string(from) : std::to_string(from) + "-" + std::to_string(to);
}

}  // namespace fiscalon

#include "tools/reading/shown_record.h"

#include <utility>

#include "core/records/record_reader.h"
#include "tools/reading/record_taker.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {
namespace {

/// Takes all of them apart, each by `take`.
template <typename Things, typename Take>
std::vector<ShownRecord> TakeAll(const Things& things, Take&& take) {
  std::vector<ShownRecord> shown;
  for (const auto& thing : things) take(thing, shown.emplace_back());
  return shown;
}

}  // namespace

std::string Note::In(const Language& language) const {
  return VisibleText(text.In(language));
}

std::string_view ShownRecord::Seq() const {
  return isRecord ? TextIn(record, FieldNamed(kRecordHead, "SeqNumber")) : std::string_view();
}

std::vector<ShownRecord> TakeApart(std::string_view bytes, const LaunchRow* screen) {
  RecordTaker taker(screen);
  return TakeAll(RecordLinesOf(bytes), [&](const RecordLine& line, ShownRecord& shown) { taker.Take(line, 0, shown); });
}

std::vector<ShownRecord> TakeApart(const std::vector<std::string>& records, const LaunchRow* screen) {
  RecordTaker taker(screen);
  return TakeAll(records, [&](const std::string& record, ShownRecord& shown) { taker.Take(record, shown); });
}

std::vector<ShownRecord> TakeApart(const PC4s& records, const LaunchRow* screen) {
  RecordTaker taker(screen);
  return TakeAll(records, [&](const PC4& member, ShownRecord& shown) { taker.Take(member, shown); });
}

std::string_view NameOf(RecordKind kind) {
  switch (kind) {
    case RecordKind::Government:
      return "government format";
    case RecordKind::FreeFormat:
      return "free format";
    case RecordKind::GenericDetails:
      return "generic details";
    case RecordKind::PrintableLine:
      return "printable line";
    case RecordKind::InvoiceRow:
      return "invoice row";
    case RecordKind::StatementRow:
      return "statement row";
  }
  return {};
}

}  // namespace fiscalon

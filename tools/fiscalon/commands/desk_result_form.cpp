#include "tools/fiscalon/commands/desk_result_form.h"

#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "tools/reading/field_remark.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {
namespace {

constexpr size_t kNameColumns = 20;
constexpr size_t kPlaceColumns = 9;

std::string Padded(std::string text, size_t columns) {
  if (text.size() < columns)
    text.append(columns - text.size(), ' ');
  return text + ' ';
}

std::string PlaceOf(int from, int to) {
  if (from == 0)
    return {};
  return from == to ? std::to_string(from) : std::to_string(from) + "-" + std::to_string(to);
}

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

std::string NoteRow(const char* heading, const Note& note) {
  return "  " + Padded(heading, kNameColumns) + Padded(PlaceOf(note.from, note.to), kPlaceColumns) + note.text;
}

}  // namespace

void frmDeskResult::Set(const std::string& words, const std::vector<ShownRecord>& records) {
  words_ = words;
  rows_.clear();
  for (const ShownRecord& record : records) {
    rows_.push_back(HeadingOf(record));
    for (const ShownField& field : record.fields) {
      if (!IsWorthALine(field))
        continue;
      const std::string remark = RemarkOn(record, field, TheModule().locale);
      rows_.push_back("  " + Padded(std::string(field.name), kNameColumns) +
                      Padded(PlaceOf(field.from, field.to), kPlaceColumns) + DottedText(record.TextOf(field)) +
                      (remark.empty() ? "" : "  " + remark));
    }
    for (const Note& problem : record.problems) rows_.push_back(NoteRow("wrong", problem));
    for (const Note& oddity : record.oddities) rows_.push_back(NoteRow("odd", oddity));
  }
}

void frmDeskResult::Form_Load() {
  lblWords.Caption(FromUtf8(words_));
  for (const std::string& row : rows_) lstFields.AddItem(FromUtf8(row));
  lstFields.Visible(!rows_.empty());
}

}  // namespace fiscalon

#include "tools/fiscalon/commands/desk_result_form.h"

#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "core/values/text.h"
#include "tools/reading/field_remark.h"
#include "tools/reading/record_words.h"
#include "tools/reading/utf8_words.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {
namespace {

constexpr size_t kNameColumns = 20;
constexpr size_t kPlaceColumns = 9;

std::string RowOf(std::string_view name, int from, int to, const std::string& text) {
  return "  " + PaddedTo(kNameColumns, name) + " " + PaddedTo(kPlaceColumns, PlaceOf(from, to)) + " " + text;
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
      rows_.push_back(RowOf(field.name, field.from, field.to,
                            DottedText(record.TextOf(field)) + (remark.empty() ? "" : "  " + remark)));
    }
    for (const Note& problem : record.problems)
      rows_.push_back(RowOf(Utf8Words("wrong"), problem.from, problem.to, problem.In(TheModule().language)));
    for (const Note& oddity : record.oddities)
      rows_.push_back(RowOf(Utf8Words("odd"), oddity.from, oddity.to, oddity.In(TheModule().language)));
  }
}

void frmDeskResult::Form_Load() {
  // A label shows line ends as characters.
  lblWords.Caption(AsGiven(OnOneLine(FromUtf8(words_))));
  for (const std::string& row : rows_) lstFields.AddItem(AsGiven(FromUtf8(row)));
  lstFields.Visible(!rows_.empty());
}

}  // namespace fiscalon

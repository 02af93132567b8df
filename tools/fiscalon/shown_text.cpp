#include "tools/fiscalon/shown_text.h"

#include <algorithm>
#include <array>
#include <ostream>

#include "core/values/text.h"
#include "tools/fiscalon/field_remark.h"
#include "tools/fiscalon/visible_text.h"

namespace fiscalon {
namespace {

constexpr size_t kMostShown = 400;
constexpr std::string_view kMargin = "    ";

void Mark(std::string& marks, const std::vector<Note>& notes, char mark) {
  for (const Note& note : notes)
    for (int column = note.from; column > 0 && column <= note.to; ++column)
      if (static_cast<size_t>(column) <= marks.size())
        marks[static_cast<size_t>(column) - 1] = mark;
}

/// A line of as many columns as the record shows, with a mark under each column that something is odd about or wrong
/// with.
std::string MarksOf(const ShownRecord& record, size_t columns) {
  std::string marks(columns, ' ');
  Mark(marks, record.oddities, '~');
  Mark(marks, record.problems, '^');
  return std::string(TrimRight(marks));
}

class RecordPrinter {
 public:
  RecordPrinter(std::ostream& out, const ShownStyle& style) : out_(out), style_(style) {}

  void Print(const ShownRecord& record) {
    PrintHeading(record);
    PrintRuled(record);
    PrintFields(record);
    for (const Note& problem : record.problems)
      out_ << style_.paint.Bad(std::string(kMargin) + "! " + PlaceOf(problem) + problem.text) << '\n';
    for (const Note& oddity : record.oddities)
      out_ << style_.paint.Aside(std::string(kMargin) + "~ " + PlaceOf(oddity) + oddity.text) << '\n';
    out_ << '\n';
  }

 private:
  void PrintHeading(const ShownRecord& record) {
    std::string heading = std::string(style_.countedAs) + " " + std::to_string(record.number) + ": ";
    if (!record.isRecord) {
      heading += "no record";
    } else {
      const char letter = static_cast<char>(record.kind);
      heading += VisibleText(std::string_view(&letter, 1));
      heading += LayoutOf(record.kind).empty() ? "" : ", " + std::string(NameOf(record.kind));
      heading += ", sequence " + DottedText(record.seq);
    }
    out_ << style_.paint.Heading(heading) << '\n';
  }

  void PrintRuled(const ShownRecord& record) {
    const std::string_view text = std::string_view(record.record).substr(0, kMostShown);
    const std::string ruler = Ruler(text.size());
    const std::string marks = MarksOf(record, text.size());
    const size_t fold = FoldAt();
    for (size_t from = 0; from < text.size(); from += std::min(fold, text.size())) {
      out_ << style_.paint.Aside(std::string(kMargin) + " " + ruler.substr(from, fold)) << '\n';
      out_ << kMargin << '|' << VisibleText(text.substr(from, fold)) << "|\n";
      if (from < marks.size() && marks.find_first_not_of(' ', from) < from + fold)
        out_ << PaintMarks(std::string(kMargin) + " " + marks.substr(from, fold)) << '\n';
    }
    if (record.record.size() > kMostShown)
      out_ << kMargin << "... and " << Counted(record.record.size() - kMostShown, "more character") << '\n';
  }

  std::string PaintMarks(const std::string& marks) const {
    return marks.find('^') == std::string::npos ? style_.paint.Aside(marks) : style_.paint.Bad(marks);
  }

  /// A whole number of tens, so that each piece of the ruler ends with its label.
  size_t FoldAt() const {
    constexpr size_t kStep = 10;
    if (!style_.width)
      return kMostShown;
    const size_t taken = kMargin.size() + 2;
    return std::max(*style_.width - std::min(*style_.width, taken), kStep) / kStep * kStep;
  }

  void PrintFields(const ShownRecord& record) {
    size_t nameWidth = 0, textWidth = 0;
    for (const ShownField& field : record.fields) {
      if (!IsWorthALine(field))
        continue;
      nameWidth = std::max(nameWidth, field.name.size());
      textWidth = std::max(textWidth, ColumnsOf(DottedText(field.text)));
    }
    for (const ShownField& field : record.fields) {
      if (!IsWorthALine(field))
        continue;
      const std::string columns = std::to_string(field.from) + "-" + std::to_string(field.to);
      constexpr size_t kColumnsWidth = 7;
      const std::string line = std::string(kMargin) +
                               std::string(kColumnsWidth - std::min(kColumnsWidth, columns.size()), ' ') + columns +
                               "  " + PaddedTo(nameWidth, field.name) + "  " +
                               PaddedTo(textWidth, DottedText(field.text)) + "  " + RemarkOn(field, style_.locale);
      out_ << TrimRight(line) << '\n';
    }
  }

  static std::string PlaceOf(const Note& note) {
    if (note.from == 0)
      return "";
    if (note.from == note.to)
      return "column " + std::to_string(note.from) + ": ";
    return "columns " + std::to_string(note.from) + "-" + std::to_string(note.to) + ": ";
  }

  std::ostream& out_;
  const ShownStyle& style_;
};

}  // namespace

void PrintRecords(std::ostream& out, const std::vector<ShownRecord>& records, const ShownStyle& style) {
  RecordPrinter printer(out, style);
  for (const ShownRecord& record : records) printer.Print(record);
}

}  // namespace fiscalon

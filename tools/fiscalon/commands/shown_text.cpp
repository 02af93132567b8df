#include "tools/fiscalon/commands/shown_text.h"

#include <algorithm>
#include <ostream>

#include "core/values/text.h"
#include "tools/reading/visible_text.h"

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
  if (record.oddities.empty() && record.problems.empty())
    return {};
  std::string marks(columns, ' ');
  Mark(marks, record.oddities, '~');
  Mark(marks, record.problems, '^');
  return std::string(TrimRight(marks));
}

std::string PlaceOf(const Note& note) {
  if (note.from == 0)
    return "";
  if (note.from == note.to)
    return "column " + std::to_string(note.from) + ": ";
  return "columns " + std::to_string(note.from) + "-" + std::to_string(note.to) + ": ";
}

std::string_view RulerTo(size_t columns) {
  static const std::string ruler = Ruler(kMostShown);
  return std::string_view(ruler).substr(0, columns);
}

/// A whole number of tens, so that each piece of the ruler ends with its label.
size_t FoldAt(const std::optional<size_t>& width) {
  constexpr size_t kStep = 10;
  if (!width)
    return kMostShown;
  const size_t taken = kMargin.size() + 2;
  return std::max(*width - std::min(*width, taken), kStep) / kStep * kStep;
}

/// "  11-28", at the right of seven columns.
void AppendPlace(std::string& out, const ShownField& field) {
  constexpr size_t kPlaceWidth = 7;
  const size_t start = out.size();
  AppendNumber(out, static_cast<uint64_t>(field.from));
  out += '-';
  AppendNumber(out, static_cast<uint64_t>(field.to));
  const size_t width = out.size() - start;
  out.insert(start, kPlaceWidth - std::min(kPlaceWidth, width), ' ');
}

/// "      11-28  FieldValue  ", the names of all fields at one width.
PrintedFields::Fronts TextFrontsOf(const ShownRecord& record) {
  PrintedFields::Fronts fronts;
  size_t nameWidth = 0;
  for (const ShownField& field : record.fields) nameWidth = std::max(nameWidth, field.name.size());
  for (const ShownField& field : record.fields) {
    std::string& front = fronts.emplace_back(kMargin);
    AppendPlace(front, field);
    front.append("  ").append(field.name).append(nameWidth - field.name.size() + 2, ' ');
  }
  return fronts;
}

/// Of the texts of those fields that have a line.
size_t WidthOfTexts(const ShownRecord& record) {
  size_t width = 0;
  for (const ShownField& field : record.fields)
    if (IsWorthALine(field))
      width = std::max(width, record.TextOf(field).size());
  return width;
}

}  // namespace

RecordPrinter::RecordPrinter(const ShownStyle& style)
    : style_(style), money_(style.locale), fold_(FoldAt(style.width)), fields_(TextFrontsOf) {}

void RecordPrinter::Append(std::string& out, const ShownRecord& record) {
  AppendHeading(out, record);
  AppendRuled(out, record);
  AppendFields(out, record);
  for (const Note& problem : record.problems)
    out.append(style_.paint.Bad(std::string(kMargin) + "! " + PlaceOf(problem) + problem.In({}))).append("\n");
  for (const Note& oddity : record.oddities)
    out.append(style_.paint.Aside(std::string(kMargin) + "~ " + PlaceOf(oddity) + oddity.In({}))).append("\n");
  out += '\n';
}

void RecordPrinter::AppendHeading(std::string& out, const ShownRecord& record) const {
  const size_t start = out.size();
  out.append(style_.countedAs).append(" ");
  AppendNumber(out, record.number);
  out += ": ";
  if (record.isInvoice) {
    out += "invoice";
  } else if (!record.isRecord) {
    out += "no record";
  } else {
    const char letter = static_cast<char>(record.kind);
    AppendVisible(out, std::string_view(&letter, 1));
    if (const std::string_view name = NameOf(record.kind); !name.empty())
      out.append(", ").append(name);
    out += ", sequence ";
    AppendDotted(out, record.Seq());
  }
  style_.paint.Heading(out, start);
  out += '\n';
}

void RecordPrinter::AppendRuled(std::string& out, const ShownRecord& record) const {
  const std::string_view text = std::string_view(record.record).substr(0, kMostShown);
  const std::string_view ruler = RulerTo(text.size());
  const std::string marks = MarksOf(record, text.size());
  for (size_t from = 0; from < text.size(); from += std::min(fold_, text.size())) {
    const size_t start = out.size();
    out.append(kMargin).append(" ").append(ruler.substr(from, fold_));
    style_.paint.Aside(out, start);
    out.append("\n").append(kMargin).append("|");
    AppendVisible(out, text.substr(from, fold_));
    out += "|\n";
    if (from < marks.size() && marks.find_first_not_of(' ', from) < from + fold_)
      out.append(PaintMarks(std::string(kMargin) + " " + marks.substr(from, fold_))).append("\n");
  }
  if (record.length > kMostShown)
    out.append(kMargin).append("... and ").append(Counted(record.length - kMostShown, "more character")).append("\n");
}

std::string RecordPrinter::PaintMarks(const std::string& marks) const {
  return marks.find('^') == std::string::npos ? style_.paint.Aside(marks) : style_.paint.Bad(marks);
}

void RecordPrinter::AppendFields(std::string& out, const ShownRecord& record) {
  size_t textWidth = 0;
  fields_.Append(out, record, [&](std::string& print, const ShownField& field, const std::string& front) {
    if (!IsWorthALine(field))
      return;
    if (textWidth == 0)
      textWidth = WidthOfTexts(record);
    const std::string_view text = record.TextOf(field);
    print += front;
    if (field.sense == Sense::Blank)
      AppendDottedBlanks(print, text.size());
    else
      AppendDotted(print, text);
    print.append(textWidth - text.size() + 2, ' ');
    AppendRemark(print, field, text, money_);
    print.resize(TrimRight(print).size());
    print += '\n';
  });
}

void PrintRecords(std::ostream& out, const std::vector<ShownRecord>& records, const ShownStyle& style) {
  RecordPrinter printer(style);
  std::string text;
  for (const ShownRecord& record : records) printer.Append(text, record);
  out << text;
}

}  // namespace fiscalon

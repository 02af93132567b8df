#include "frontends/scripted/text_picture.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

#include "core/forms/button.h"
#include "core/forms/laid_out.h"
#include "core/forms/list_control.h"
#include "core/forms/text_field.h"
#include "core/platform/code_page.h"

namespace fiscalon {
namespace {

constexpr size_t kGap = 2;

size_t Width(const std::string& text) {
  return static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::string Padded(const std::string& text, size_t width) {
  return text + std::string(width - std::min(width, Width(text)), ' ');
}

std::string Repeated(std::string_view mark, size_t times) {
  std::string line;
  for (size_t i = 0; i < times; ++i) line += mark;
  return line;
}

std::string CaptionOf(const Captioned& button) {
  return ToUtf8(button.PlainCaption());
}

/// The lines of a field behind each other, with a mark where one ends.
std::string OnOneLine(std::string text) {
  for (size_t at = text.find('\r'); at != std::string::npos; at = text.find('\r', at))
    text.replace(at, text.compare(at, 2, "\r\n") == 0 ? 2 : 1, "\n");
  for (size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at)) text.replace(at, 1, "\u21B5");
  return text;
}

std::string DrawTextField(const TextField& field) {
  constexpr int kUnlimitedWidth = 30;
  constexpr int kWidest = 50;
  const int limit = field.MaxLength() == FieldDesign::kNoLimit ? kUnlimitedWidth : field.MaxLength();
  const std::string text = OnOneLine(ToUtf8(field.Text()));
  const size_t width = std::max(static_cast<size_t>(std::min(limit, kWidest)), Width(text));
  const std::string blanks(width - Width(text), ' ');
  const std::string content = field.Designed().alignment == Alignment::Right ? blanks + text : text + blanks;
  return field.Locked() ? "\u2039" + content + "\u203A" : "[" + content + "]";
}

std::string DrawControl(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::TextField:
      return DrawTextField(static_cast<const TextField&>(control));
    case ControlKind::CheckBox:
    case ControlKind::OptionButton: {
      const auto& toggle = static_cast<const ToggleButton&>(control);
      const bool round = control.Kind() == ControlKind::OptionButton;
      return std::string(round ? "(" : "[") + (toggle.Value() ? (round ? "o" : "x") : " ") + (round ? ") " : "] ") +
             CaptionOf(toggle);
    }
    case ControlKind::Button:
      return "[ " + CaptionOf(static_cast<const Button&>(control)) + " ]";
    case ControlKind::DropDownList:
      return "[" + Padded(ToUtf8(static_cast<const DropDownList&>(control).ShownText()), 30) + "\u25BC]";
    case ControlKind::Label:
    case ControlKind::Frame:
      // Labels have no access key: what a host names "Smith & Sons" is read so.
      return ToUtf8(static_cast<const Captioned&>(control).ShownCaption());
    case ControlKind::ListBox:
      // Its rows stand beneath the row that it lies in.
      break;
  }
  return ToUtf8(static_cast<const ListBox&>(control).ShownText());
}

/// The drawn parts of one cell: the caption, and the field with its hint beside it.
struct DrawnCell {
  std::array<std::string, 2> parts = {};
};
using DrawnRow = std::vector<DrawnCell>;

class FormPicture {
 public:
  explicit FormPicture(Form& form) : form_(form) {}

  std::string Draw() {
    std::map<int, std::vector<std::string>> columns;
    for (const LaidOutGroup& group : LaidOut(form_)) {
      std::vector<std::string>& column = columns[group.column];
      if (!column.empty())
        column.emplace_back();
      for (std::string& line : DrawGroup(group)) column.push_back(std::move(line));
    }
    std::vector<std::string> lines = SideBySide(columns);
    lines.emplace_back();
    lines.push_back(DrawButtons());
    if (const std::string status = ToUtf8(StatusOf(form_)); !status.empty())
      lines.push_back(status);
    return Framed(lines);
  }

 private:
  std::string DrawPart(const Control* control, bool isField) const {
    if (control == nullptr)
      return {};
    const std::string drawn = DrawControl(*control);
    const std::string mark = isField ? (control == form_.ActiveControl() ? "> " : "  ") : "";
    return control->VisibleInFrames() ? mark + drawn : std::string(Width(mark + drawn), ' ');
  }

  std::string DrawFieldWithHint(const LaidOutCell& cell) const {
    const std::string field = DrawPart(cell.field, true);
    return cell.hint == nullptr ? field : field + " " + DrawPart(cell.hint, false);
  }

  std::vector<std::string> DrawGroup(const LaidOutGroup& group) const {
    std::vector<std::string> lines;
    if (group.heading != nullptr)
      lines.push_back(DrawPart(group.heading, false));
    std::vector<DrawnRow> rows;
    for (const LaidOutRow& row : group.rows) {
      rows.emplace_back();
      for (const LaidOutCell& cell : row) {
        const std::string caption = DrawPart(cell.caption, false);
        if (cell.isClose)
          rows.back().back().parts.back() += (caption.empty() ? "" : "  " + caption) + DrawFieldWithHint(cell);
        else
          rows.back().push_back({{caption, DrawFieldWithHint(cell)}});
      }
    }
    const std::vector<size_t> widths = PartWidths(rows);
    for (size_t i = 0; i < rows.size(); ++i) {
      lines.push_back(DrawRow(rows[i], widths));
      for (std::string& line : DrawListRows(group.rows[i])) lines.push_back(std::move(line));
    }
    return lines;
  }

  static std::vector<size_t> PartWidths(const std::vector<DrawnRow>& rows) {
    std::vector<size_t> widths;
    for (const DrawnRow& row : rows)
      for (size_t cell = 0; cell < row.size(); ++cell)
        for (size_t part = 0; part < row[cell].parts.size(); ++part) {
          const size_t at = cell * row[cell].parts.size() + part;
          widths.resize(std::max(widths.size(), at + 1));
          widths[at] = std::max(widths[at], Width(row[cell].parts[part]));
        }
    return widths;
  }

  static std::string DrawRow(const DrawnRow& row, const std::vector<size_t>& widths) {
    std::string line;
    size_t at = 0;
    for (const DrawnCell& cell : row)
      for (const std::string& part : cell.parts) {
        const size_t width = widths[at++];
        if (width > 0)
          line += Padded(part, width) + std::string(kGap, ' ');
      }
    return line;
  }

  static std::vector<std::string> DrawListRows(const LaidOutRow& row) {
    std::vector<std::string> lines;
    for (const LaidOutCell& cell : row) {
      const auto* list = dynamic_cast<const ListBox*>(cell.field);
      if (list == nullptr || !list->VisibleInFrames())
        continue;
      for (int i = 0; i < list->ListCount(); ++i)
        lines.push_back((i == list->ListIndex() ? "  * " : "    ") + ToUtf8(list->ShownRow(i)));
    }
    return lines;
  }

  static std::vector<std::string> SideBySide(const std::map<int, std::vector<std::string>>& columns) {
    std::vector<std::string> lines;
    size_t left = 0;
    for (const auto& [number, column] : columns) {
      lines.resize(std::max(lines.size(), column.size()));
      size_t widest = 0;
      for (size_t i = 0; i < column.size(); ++i) {
        lines[i] = Padded(lines[i], left) + column[i];
        widest = std::max(widest, Width(lines[i]));
      }
      left = std::max(left, widest) + kGap;
    }
    return lines;
  }

  std::string DrawButtons() const {
    std::string line;
    for (const Button* button : form_.FormLayout().buttons) line += (line.empty() ? "" : "  ") + DrawPart(button, true);
    return line;
  }

  std::string Framed(const std::vector<std::string>& lines) {
    const std::string title = ToUtf8(form_.ShownCaption());
    size_t width = Width(title) + kGap;
    for (const std::string& line : lines) width = std::max(width, Width(line));
    std::string picture = "\u250C\u2500 " + title + " " + Repeated("\u2500", width + 1 - Width(title)) + "\u2510\n";
    for (const std::string& line : lines) picture += "\u2502  " + Padded(line, width) + "  \u2502\n";
    return picture + "\u2514" + Repeated("\u2500", width + 4) + "\u2518\n";
  }

  Form& form_;
};

std::string ButtonRow(const BoxRequest& box, MessageAnswer answer) {
  const auto button = [&](MessageAnswer means) {
    const std::string caption = ToUtf8(WithoutAccessMarks(ButtonCaption(means, box.language)));
    return std::string(means == answer ? ">" : " ") + "[ " + caption + " ]";
  };
  switch (box.buttons) {
    case MessageButtons::YesNo:
      return button(MessageAnswer::Yes) + "  " + button(MessageAnswer::No);
    case MessageButtons::OkCancel:
      return button(MessageAnswer::Ok) + "  " + button(MessageAnswer::Cancel);
    default:
      return button(MessageAnswer::Ok);
  }
}

}  // namespace

std::string DrawForm(Form& form) {
  return FormPicture(form).Draw();
}

std::string DrawMessageBox(const BoxRequest& box, MessageAnswer answer) {
  constexpr std::array<const char*, 5> kIcons = {"", "(x) ", "(?) ", "(!) ", "(i) "};
  std::vector<std::string> lines;
  std::string rest = kIcons[static_cast<size_t>(box.style)] + ToUtf8(box.text);
  std::erase(rest, '\r');
  for (size_t end = rest.find('\n'); end != std::string::npos; end = rest.find('\n')) {
    lines.push_back(rest.substr(0, end));
    rest.erase(0, end + 1);
  }
  lines.push_back(rest);
  lines.push_back(ButtonRow(box, answer));
  const std::string title = box.title.empty() ? std::string("Fiscalon") : ToUtf8(box.title);
  size_t width = Width(title) + kGap;
  for (const std::string& line : lines) width = std::max(width, Width(line));
  std::string picture = "  \u2554\u2550 " + title + " " + Repeated("\u2550", width - Width(title) - 1) + "\u2557\n";
  for (const std::string& line : lines) picture += "  \u2551 " + Padded(line, width) + " \u2551\n";
  return picture + "  \u255A" + Repeated("\u2550", width + 2) + "\u255D\n";
}

}  // namespace fiscalon

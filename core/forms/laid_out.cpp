#include "core/forms/laid_out.h"

#include <array>
#include <map>
#include <utility>

#include "core/forms/button.h"
#include "core/forms/form_misuse.h"
#include "core/forms/label.h"
#include "core/wording/places.h"

namespace fiscalon {
namespace {

/// The one that ends no line among them.
constexpr std::string_view kBlanks = " \xA0";

std::string WithoutBlanksAround(const std::string& text) {
  const size_t first = text.find_first_not_of(kBlanks);
  return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

/// The caption as it reads.
std::string CaptionOf(const Control* control) {
  const auto* captioned = dynamic_cast<const Captioned*>(control);
  return captioned == nullptr ? std::string() : WithoutBlanksAround(captioned->PlainCaption());
}

const Frame* FrameOf(const Group& group) {
  if (group.heading != nullptr) {
    const auto* frame = dynamic_cast<const Frame*>(group.heading);
    return frame != nullptr ? frame : group.heading->EnclosingFrame();
  }
  for (const Row& row : group.rows)
    for (const Cell& cell : row.cells)
      if (const Control* control = cell.field != nullptr ? cell.field : cell.caption)
        return control->EnclosingFrame();
  return nullptr;
}

bool IsBold(const Control* control) {
  const auto* label = dynamic_cast<const Label*>(control);
  return label != nullptr && label->Designed().bold;
}

LaidOutCell CellOf(const Cell& cell, const std::string& name) {
  LaidOutCell result = {.caption = cell.caption, .field = cell.field, .hint = cell.hint};
  result.standsOut = IsBold(cell.caption);
  const bool captioned = !CaptionOf(cell.field).empty();
  if (!captioned)
    result.name = name;
  result.description = CaptionOf(cell.hint);
  if (result.description.empty() && captioned && cell.caption != nullptr)
    result.description = name;
  return result;
}

bool IsList(const Cell& cell) {
  return cell.field != nullptr && cell.field->Kind() == ControlKind::ListBox && cell.caption == nullptr &&
         cell.hint == nullptr;
}

/// A caption that is alone in its row; null for other rows.
Control* LoneCaption(const Row& row) {
  const bool alone = row.cells.size() == 1 && row.cells.front().field == nullptr && row.cells.front().hint == nullptr;
  return alone ? row.cells.front().caption : nullptr;
}

/// A list's columns are headed by what stands above it, with blanks between their names.
void PutBelow(Control* head, LaidOutCell& list) {
  std::string names;
  for (const char character : CaptionOf(head))
    if (character != ' ' || !names.ends_with(' '))
      names += character;
  list.head = head;
  (list.name.empty() ? list.name : list.description) = names;
}

LaidOutGroup GroupOf(const Group& group) {
  LaidOutGroup result = {.heading = group.heading, .frame = FrameOf(group), .column = group.column};
  Control* above = nullptr;
  for (const Row& row : group.rows) {
    std::string name = WithoutColon(CaptionOf(group.heading));
    LaidOutRow& cells = result.rows.emplace_back();
    for (const Cell& cell : row.cells) {
      if (const std::string caption = WithoutColon(CaptionOf(cell.caption)); !caption.empty())
        name = caption;
      cells.push_back(CellOf(cell, name));
      cells.back().isClose = cell.isClose && cells.size() > 1;
    }
    if (above != nullptr && row.cells.size() == 1 && IsList(row.cells.front()))
      PutBelow(above, cells.back());
    above = LoneCaption(row);
  }
  return result;
}

/// A field with what stands around it, from near to far.
struct NamedField {
  LaidOutCell* cell = nullptr;
  std::array<std::string, 2> around = {};
};

template <class Text>
bool AreTold(const std::vector<NamedField>& fields, Text&& apartBy) {
  std::set<std::string> texts;
  for (const NamedField& field : fields) texts.insert(apartBy(field));
  return texts.size() == fields.size();
}

std::string NameAndNumber(const std::string& name, size_t number, size_t fields, const Language& language) {
  const auto digits = [](size_t value) { return AsGiven(std::to_string(value)); };
  return Filled("{1}, {2} of {3}", AsGiven(name), digits(number), digits(fields)).In(language);
}

/// Fields that would have one name are told apart by what stands around them; where that is the same too, by number.
void TellApart(const std::vector<NamedField>& fields, const Language& language) {
  for (size_t i = 0; i < fields.front().around.size(); ++i) {
    if (!AreTold(fields, [i](const NamedField& field) { return field.around[i]; }))
      continue;
    for (const NamedField& field : fields)
      if (const std::string& where = field.around[i]; !where.empty() && where != field.cell->name)
        field.cell->name = where + ", " + field.cell->name;
    return;
  }
  if (AreTold(fields, [](const NamedField& field) { return field.cell->description; })) {
    for (const NamedField& field : fields)
      if (const std::string hint = std::exchange(field.cell->description, {}); !hint.empty())
        field.cell->name += " (" + hint + ")";
    return;
  }
  for (size_t i = 0; i < fields.size(); ++i)
    fields[i].cell->name = NameAndNumber(fields[i].cell->name, i + 1, fields.size(), language);
}

void TellApart(std::vector<LaidOutGroup>& groups, const Language& language) {
  std::map<std::string, std::vector<NamedField>> named;
  for (LaidOutGroup& group : groups)
    for (LaidOutRow& row : group.rows)
      for (LaidOutCell& cell : row)
        if (cell.field != nullptr && !cell.name.empty())
          named[cell.name].push_back(
              {&cell, {WithoutColon(CaptionOf(row.front().caption)), WithoutColon(CaptionOf(group.heading))}});
  for (const auto& [name, fields] : named)
    if (fields.size() > 1)
      TellApart(fields, language);
}

void RefuseFrameWithin(const Form& form, const Frame* outer, const Control* inner) {
  if (outer != nullptr && inner != nullptr && inner != outer && inner->Kind() == ControlKind::Frame)
    throw FormMisuse(form.Name(), inner->Name(), "is a frame within the frame " + outer->Name());
}

/// What the form calls a control that takes entries, with its hint.
std::string NameOf(const Control& control, const Form& form) {
  for (const LaidOutGroup& group : LaidOut(form))
    for (const LaidOutRow& row : group.rows)
      for (const LaidOutCell& cell : row)
        if (cell.field == &control && !cell.name.empty())
          return cell.description.empty() ? cell.name : cell.name + " (" + cell.description + ")";
  return CaptionOf(&control);
}

}  // namespace

std::vector<LaidOutGroup> LaidOut(const Form& form) {
  std::vector<LaidOutGroup> groups;
  std::set<const Control*> placed(form.FormLayout().buttons.begin(), form.FormLayout().buttons.end());
  for (const Group& group : form.FormLayout().groups) {
    const LaidOutGroup& laidOut = groups.emplace_back(GroupOf(group));
    placed.insert(group.heading);
    for (const Row& row : group.rows)
      for (const Cell& cell : row.cells)
        for (const Control* control : {cell.caption, cell.field, cell.hint}) {
          RefuseFrameWithin(form, laidOut.frame, control);
          placed.insert(control);
        }
  }
  Group forgotten;
  // A frame without a place is no box: it only hides and disables what lies in it.
  for (Control* control : form.Controls())
    if (!placed.contains(control) && control->Kind() != ControlKind::Frame)
      forgotten.rows.push_back({.cells = {{.field = control}}});
  if (!forgotten.rows.empty()) {
    LaidOutGroup& last = groups.emplace_back(GroupOf(forgotten));
    last.frame = nullptr;
  }
  TellApart(groups, form.ShownIn());
  return groups;
}

std::set<const Control*> StandingOut(const Form& form) {
  std::set<const Control*> controls;
  for (const LaidOutGroup& group : LaidOut(form)) {
    if (group.heading != nullptr)
      controls.insert(group.heading);
    for (const LaidOutRow& row : group.rows)
      for (const LaidOutCell& cell : row)
        if (cell.standsOut && cell.field != nullptr)
          controls.insert(cell.field);
  }
  return controls;
}

std::vector<ToldField> ToldFields(const Form& form) {
  std::vector<ToldField> told;
  const Control* const waiting = form.WaitingControl();
  for (const LaidOutGroup& group : LaidOut(form))
    for (const LaidOutRow& row : group.rows)
      for (const LaidOutCell& cell : row)
        if (cell.field != nullptr)
          told.push_back({cell.field, cell.name, cell.field == waiting ? StatusOf(form) : cell.description});
  return told;
}

std::string StatusOf(const Form& form) {
  const Control* const waiting = form.WaitingControl();
  if (waiting == nullptr)
    return {};
  const std::string name = NameOf(*waiting, form);
  const Wording status =
      name.empty() ? Wording("Please correct this entry.") : Filled("Please correct this entry: {1}", AsGiven(name));
  return status.In(form.ShownIn());
}

}  // namespace fiscalon

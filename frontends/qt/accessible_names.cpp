#include "frontends/qt/accessible_names.h"

#include <QString>

#include "core/forms/captioned.h"
#include "core/forms/keys.h"
#include "frontends/qt/qt_text.h"

namespace fiscalon {
namespace {

QString Caption(const Control* control) {
  const auto* captioned = dynamic_cast<const Captioned*>(control);
  if (captioned == nullptr)
    return {};
  const bool plain = control->Kind() == ControlKind::Label || control->Kind() == ControlKind::Frame;
  // A button's caption marks its access key; a label's has no marks.
  return ToQt(plain ? captioned->Caption() : WithoutAccessMarks(captioned->Caption())).trimmed();
}

QString WithoutColon(QString caption) {
  while (caption.endsWith(u':')) caption = caption.chopped(1).trimmed();
  return caption;
}

/// A field is read by the name that stands before it and described by its hint. What has a caption of its own is read
/// by that, and what stands before it says more.
void NameField(const Cell& cell, const QString& name, QWidget& field) {
  const bool captioned = !Caption(cell.field).isEmpty();
  if (!captioned)
    field.setAccessibleName(name);
  const QString hint = Caption(cell.hint);
  const QString more = captioned && cell.caption != nullptr ? name : QString();
  field.setAccessibleDescription(hint.isEmpty() ? more : hint);
}

}  // namespace

void NameFields(const Form& form, const std::function<QWidget&(const Control&)>& widgetOf) {
  for (const Group& group : form.FormLayout().groups) {
    for (const Row& row : group.rows) {
      QString name = WithoutColon(Caption(group.heading));
      for (const Cell& cell : row.cells) {
        if (const QString caption = WithoutColon(Caption(cell.caption)); !caption.isEmpty())
          name = caption;
        if (cell.field != nullptr)
          NameField(cell, name, widgetOf(*cell.field));
      }
    }
  }
}

}  // namespace fiscalon

#include "frontends/qt/accessible_names.h"

#include <QAbstractItemView>
#include <QComboBox>

#include "frontends/qt/qt_text.h"

namespace fiscalon::qt {
namespace {

// Qt tells each setting to whoever reads the form aloud, of the same text too.

void Name(QWidget& widget, const QString& name) {
  if (widget.accessibleName() != name)
    widget.setAccessibleName(name);
}

void Describe(QWidget& widget, const QString& description) {
  if (widget.accessibleDescription() != description)
    widget.setAccessibleDescription(description);
}

}  // namespace

void NameFields(const Form& form, const std::function<QWidget&(const Control&)>& widgetOf) {
  const Control* const waiting = form.WaitingControl();
  const std::string status = StatusOf(form);
  for (const LaidOutGroup& group : LaidOut(form))
    for (const LaidOutRow& row : group.rows)
      for (const LaidOutCell& cell : row) {
        if (cell.field == nullptr)
          continue;
        QWidget& field = widgetOf(*cell.field);
        Name(field, ToQt(cell.name));
        if (const auto* list = qobject_cast<QComboBox*>(&field))
          Name(*list->view(), ToQt(cell.name));
        Describe(field, ToQt(cell.field == waiting ? status : cell.description));
      }
}

}  // namespace fiscalon::qt

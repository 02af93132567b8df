#include "frontends/qt/accessible_names.h"

#include <QAbstractItemView>
#include <QComboBox>

#include "frontends/qt/qt_text.h"

namespace fiscalon::qt {
namespace {

/// Qt tells each setting to whoever reads the form aloud, of the same name too.
void Name(QWidget& widget, const QString& name) {
  if (widget.accessibleName() != name)
    widget.setAccessibleName(name);
}

}  // namespace

void NameFields(const Form& form, const std::function<QWidget&(const Control&)>& widgetOf) {
  for (const LaidOutGroup& group : LaidOut(form))
    for (const LaidOutRow& row : group.rows)
      for (const LaidOutCell& cell : row) {
        if (cell.field == nullptr)
          continue;
        QWidget& field = widgetOf(*cell.field);
        Name(field, ToQt(cell.name));
        if (const auto* list = qobject_cast<QComboBox*>(&field))
          Name(*list->view(), ToQt(cell.name));
        const std::string status = cell.field == form.WaitingControl() ? StatusOf(form) : std::string();
        if (const QString told = ToQt(status.empty() ? cell.description : status);
            field.accessibleDescription() != told)
          field.setAccessibleDescription(told);
      }
}

}  // namespace fiscalon::qt

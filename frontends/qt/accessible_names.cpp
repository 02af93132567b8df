#include "frontends/qt/accessible_names.h"

#include "frontends/qt/qt_text.h"

namespace fiscalon::qt {

void NameFields(const Form& form, const std::function<QWidget&(const Control&)>& widgetOf) {
  for (const LaidOutGroup& group : LaidOut(form))
    for (const LaidOutRow& row : group.rows)
      for (const LaidOutCell& cell : row) {
        if (cell.field == nullptr)
          continue;
        QWidget& field = widgetOf(*cell.field);
        // Qt tells each setting to whoever reads the form aloud, of the same name too.
        if (const QString name = ToQt(cell.name); field.accessibleName() != name)
          field.setAccessibleName(name);
        const std::string status = cell.field == form.WaitingControl() ? StatusOf(form) : std::string();
        if (const QString told = ToQt(status.empty() ? cell.description : status);
            field.accessibleDescription() != told)
          field.setAccessibleDescription(told);
      }
}

}  // namespace fiscalon::qt

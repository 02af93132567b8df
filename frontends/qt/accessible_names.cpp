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
        field.setAccessibleName(ToQt(cell.name));
        const std::string status = cell.field == form.WaitingControl() ? StatusOf(form) : std::string();
        field.setAccessibleDescription(ToQt(status.empty() ? cell.description : status));
      }
}

}  // namespace fiscalon::qt

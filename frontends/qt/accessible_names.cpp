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
  for (const ToldField& told : ToldFields(form)) {
    QWidget& field = widgetOf(*told.field);
    Name(field, ToQt(told.name));
    if (const auto* list = qobject_cast<QComboBox*>(&field))
      Name(*list->view(), ToQt(told.name));
    Describe(field, ToQt(told.description));
  }
}

}  // namespace fiscalon::qt

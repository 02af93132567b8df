#include "frontends/qt/notice.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <new>

#include "frontends/qt/form_dialog.h"

namespace fiscalon::qt {
namespace {

constexpr const char* kIsNotice = "fiscalonNotice";

QAccessibleInterface* ToldAsNotice(const QString& /*className*/, QObject* object) {
  if (!object->isWidgetType() || !object->property(kIsNotice).toBool())
    return nullptr;
  auto* const widget = static_cast<QWidget*>(object);
  try {
    return new QAccessibleWidget(widget, QAccessible::Notification);
  } catch (const std::bad_alloc&) {
    // Qt is in between.
    EndFormOf(*widget);
    return nullptr;
  }
}

void Tell(QWidget& notice, QAccessible::Event what) {
  QAccessibleEvent event(&notice, what);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

void MakeNotice(QWidget& widget) {
  QAccessible::installFactory(&ToldAsNotice);
  widget.setProperty(kIsNotice, true);
}

void Announce(QWidget& notice, const QString& words) {
  notice.setAccessibleName(words);
  // Qt tells by itself that something hidden appears.
  if (notice.isVisible())
    Tell(notice, QAccessible::ObjectShow);
  notice.show();
  Tell(notice, QAccessible::Alert);
}

}  // namespace fiscalon::qt

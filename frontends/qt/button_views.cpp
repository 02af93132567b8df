#include "frontends/qt/button_views.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <utility>

#include "core/forms/form.h"
#include "core/forms/scoped_value.h"
#include "core/forms/watched_acts.h"
#include "frontends/qt/qt_text.h"

namespace fiscalon::qt {
namespace {

QAbstractButton& NewPushButton(QWidget& parent) {
  auto* button = new QPushButton(&parent);
  // Enter is the form's: no button becomes the default one by having the focus.
  button->setAutoDefault(false);
  return *button;
}

/// A click leaves the state of the widget alone: the form changes it. What else changes it is an assistive program.
template <class Native>
class FormsToggle final : public Native {
 public:
  using Native::Native;

 protected:
  void nextCheckState() override {}
};

QAbstractButton& NewToggle(const ToggleButton& toggle, QWidget& parent) {
  if (toggle.Kind() == ControlKind::CheckBox)
    return *new FormsToggle<QCheckBox>(&parent);
  auto* button = new FormsToggle<QRadioButton>(&parent);
  // Which options exclude each other is the form's to say: each is in a group of its own. One that would exclude none
  // by itself would be told as a check box.
  auto* group = new QButtonGroup(button);
  group->setExclusive(false);
  group->addButton(button);
  return *button;
}

}  // namespace

AnyButtonView::AnyButtonView(Captioned& button, QAbstractButton& native, WatchedActs& acts)
    : ControlView(button, native, acts), button_(button), native_(native) {
  QObject::connect(&native, &QAbstractButton::clicked, &native, Safely([this](const auto&...) { Clicked(); }));
}

bool AnyButtonView::MousePressed(QMouseEvent& event) {
  interrupted_ = false;
  const AfterPress after = event.button() == Qt::LeftButton ? Press() : AfterPress::Over;
  if (after != AfterPress::Interrupted)
    return after == AfterPress::Over;
  // A check has shown a box and let the focus go: the click is completed where the button came up meanwhile.
  interrupted_ = QGuiApplication::mouseButtons().testFlag(Qt::LeftButton);
  if (!interrupted_)
    Clicked();
  return true;
}

void AnyButtonView::ReleasedLate(QPoint globalPosition) {
  if (std::exchange(interrupted_, false) && native_.rect().contains(native_.mapFromGlobal(globalPosition)))
    Clicked();
}

void AnyButtonView::Clicked() {
  Acts().Clicked(button_);
}

void AnyButtonView::Refresh() {
  ControlView::Refresh();
  const QString caption = ToQt(button_.ShownCaption());
  if (native_.text() != caption)
    native_.setText(caption);
}

ShownControl AnyButtonView::Content() const {
  return {.text = FromQt(native_.text()), .checked = native_.isChecked()};
}

ButtonView::ButtonView(Button& button, QWidget& parent, WatchedActs& acts)
    : AnyButtonView(button, NewPushButton(parent), acts) {}

ToggleView::ToggleView(ToggleButton& toggle, QWidget& parent, WatchedActs& acts)
    : AnyButtonView(toggle, NewToggle(toggle, parent), acts), toggle_(toggle) {
  QObject::connect(&Native(), &QAbstractButton::toggled, &Native(), Safely([this](const auto&...) { Toggled(); }));
}

void ToggleView::Toggled() {
  if (refreshing_)
    return;
  Acts().Click(toggle_);
  // The form may have other ideas, such as those of an option that is already chosen.
  if (toggle_.Owner().IsUp())
    Refresh();
}

void ToggleView::Refresh() {
  const ScopedValue refreshing(refreshing_, true);
  AnyButtonView::Refresh();
  Native().setCheckable(true);
  Native().setChecked(toggle_.Value());
}

QPoint ToggleView::PointToPress() const {
  // On its mark.
  return {Native().height() / 2, Native().height() / 2};
}

}  // namespace fiscalon::qt

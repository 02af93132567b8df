#include "frontends/qt/control_view.h"

#include <QApplication>
#include <QMouseEvent>

#include "core/forms/form.h"
#include "core/forms/watched_acts.h"
#include "frontends/qt/button_views.h"
#include "frontends/qt/caption_views.h"
#include "frontends/qt/form_dialog.h"
#include "frontends/qt/list_views.h"
#include "frontends/qt/text_view.h"

namespace fiscalon::qt {

ShownControl ControlView::Shown() const {
  ShownControl shown = Content();
  shown.enabled = widget_.isEnabled();
  shown.visible = widget_.isVisibleTo(widget_.window());
  return shown;
}

void ControlView::Refresh() {
  widget_.setEnabled(control_.EnabledInFrames());
  widget_.setVisible(control_.VisibleInFrames());
}

bool ControlView::MousePressed(QMouseEvent& event) {
  return event.button() != Qt::LeftButton || Press() != AfterPress::Goes;
}

ControlView::AfterPress ControlView::Press() {
  const int before = acts_.Interruptions();
  if (!acts_.Press(control_))
    return AfterPress::Over;
  return acts_.Interruptions() == before ? AfterPress::Goes : AfterPress::Interrupted;
}

void ControlView::HasFailed() const {
  EndFormOf(widget_);
}

QFont ControlView::Font() const {
  QFont font = QApplication::font();
  font.setBold(bold_);
  return font;
}

bool ControlView::IsActive() const {
  return control_.Owner().IsUp() && control_.Owner().ActiveControl() == &control_;
}

std::unique_ptr<ControlView> MakeView(Control& control, QWidget& parent, WatchedActs& acts) {
  switch (control.Kind()) {
    case ControlKind::Label:
      return std::make_unique<LabelView>(static_cast<Label&>(control), parent, acts);
    case ControlKind::Frame:
      return std::make_unique<FrameView>(static_cast<Frame&>(control), parent, acts);
    case ControlKind::Button:
      return std::make_unique<ButtonView>(static_cast<Button&>(control), parent, acts);
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
      return std::make_unique<ToggleView>(static_cast<ToggleButton&>(control), parent, acts);
    case ControlKind::DropDownList:
      return std::make_unique<DropDownView>(static_cast<DropDownList&>(control), parent, acts);
    case ControlKind::ListBox:
      return std::make_unique<ListBoxView>(static_cast<ListBox&>(control), parent, acts);
    case ControlKind::TextField:
      break;
  }
  auto& field = static_cast<TextField&>(control);
  if (field.IsMultiLine())
    return std::make_unique<MultiLineView>(field, parent, acts);
  return std::make_unique<LineView>(field, parent, acts);
}

}  // namespace fiscalon::qt

#pragma once

#include <QFont>
#include <QWidget>
#include <memory>
#include <utility>

#include "core/forms/control.h"
#include "core/forms/shown_control.h"
#include "core/forms/user_acts.h"

class QKeyEvent;
class QMouseEvent;

namespace fiscalon {
class WatchedActs;
}

namespace fiscalon::qt {

/// One control of a form as a widget: shows what the control holds, and makes acts of what the user does to it.
/// The dialog filters the widget's events and asks the view first.
class ControlView {
 public:
  ControlView(Control& control, QWidget& widget, WatchedActs& acts) : control_(control), widget_(widget), acts_(acts) {}
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;
  virtual ~ControlView() = default;

  Control& Model() const { return control_; }
  QWidget& Widget() const { return widget_; }
  /// Where the mouse points at the control: the widget, or the part of it that scrolls.
  virtual QWidget& MouseArea() const { return widget_; }

  /// What a user sees of the control, read off the widget.
  ShownControl Shown() const;
  /// Where a user points at the control, in its mouse area.
  virtual QPoint PointToPress() const { return MouseArea().rect().center(); }

  /// Brings the widget in line with the control. The form must be up.
  virtual void Refresh();
  /// Takes sizes and colours from the theme anew.
  virtual void Restyle() {}
  /// For headings, and for the field of a caption that stands out, such as a total.
  void StandOut() {
    bold_ = true;
    Restyle();
  }

  /// Keys that belong to the widget alone, such as those that drop a list down.
  virtual bool KeepsKey(const QKeyEvent& /*event*/) const { return false; }
  /// The native editing of a key that the form has let through.
  virtual void Edit(const KeyOutcome& /*outcome*/, QKeyEvent& /*event*/) {}
  /// The native editing of a composed character that the form has let through.
  virtual void Insert(char /*character*/) {}

  /// A mouse button goes down, the mouse moves with it, or it comes up. True: nothing is left for the widget to do.
  virtual bool MousePressed(QMouseEvent& event);
  virtual bool MouseMoved() { return false; }
  virtual bool MouseReleased(QMouseEvent& /*event*/) { return false; }
  /// A mouse button comes up that Qt gives to no widget, since another window was up while it was down.
  virtual void ReleasedLate(QPoint /*globalPosition*/) {}
  virtual bool WheelTurned() const { return false; }

 protected:
  /// What the widget shows but for its being there and enabled.
  virtual ShownControl Content() const = 0;

  WatchedActs& Acts() const { return acts_; }
  /// What hears a signal of the widget's, for Qt to call: what it throws ends the form, and never crosses Qt.
  template <class Hearer>
  auto Safely(Hearer hearer) {
    return [this, hearer = std::move(hearer)](const auto&... told) {
      try {
        hearer(told...);
      } catch (...) {
        HasFailed();
      }
    };
  }
  /// The theme's font, bold where the control stands out.
  QFont Font() const;
  bool IsActive() const;
  /// What became of a press that the form has dealt with.
  enum class AfterPress {
    /// The focus is elsewhere: nothing more comes of it.
    Over,
    /// The widget may go on with it.
    Goes,
    /// Another window was up meanwhile: for Qt the press is over, and the button is still down or came up there.
    Interrupted,
  };
  AfterPress Press();

 private:
  /// With the exception that is being handled.
  void HasFailed() const;

  Control& control_;
  QWidget& widget_;
  WatchedActs& acts_;
  bool bold_ = false;
};

std::unique_ptr<ControlView> MakeView(Control& control, QWidget& parent, WatchedActs& acts);

}  // namespace fiscalon::qt

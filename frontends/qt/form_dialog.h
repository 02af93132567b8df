#pragma once

#include <QDialog>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "core/forms/form.h"
#include "core/forms/watched_acts.h"
#include "frontends/qt/control_view.h"
#include "frontends/qt/dialog_layout.h"

class QEventLoop;
class QScrollArea;

namespace fiscalon::qt {

class StatusLine;

/// A form as a modal dialog, made from its controls and its layout alone. Keys, mouse and focus go to the form
/// first; text editing stays native. No exception crosses Qt: acts on a form do not throw, and what the dialog itself
/// throws, such as that memory is out, ends the form.
class FormDialog final : public QDialog, private FormObserver {
 public:
  /// The form must be up. It is observed until the dialog goes. The watcher, if any, hears of all acts.
  FormDialog(Form& form, QWidget* parent, ActWatcher* watcher = nullptr);
  ~FormDialog() override;

  /// Shows the dialog and makes it the active window.
  void Present();
  /// Serves the user until the form is no longer up, or the application quits.
  void Serve();
  /// Ends the form with the exception that is being handled, for `Rethrow` to throw behind Qt.
  void HasFailed();
  void Rethrow() const;

  /// The language of the form.
  const Language& ShownIn() const { return form_.ShownIn(); }

  ControlView& ViewOf(const Control& control) const { return *views_.at(&control); }
  /// The widget of a control.
  QWidget& WidgetOf(const Control& control) const { return ViewOf(control).Widget(); }
  /// The control of a widget; null for a widget that is none's.
  Control* ControlOf(const QObject* widget) const;

  /// The window closes for a reason that windows do not tell, such as the end of the session.
  void CloseFor(CloseReason reason);

  /// Hears of each handler that is about to run, such as "txtAmountPayable", "Change".
  std::function<void(std::string_view object, std::string_view event)> onHandler = {};

  // Escape and the close box come in as a key and as a close event.
  void reject() override {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  QSize sizeHint() const override;

 private:
  // FormObserver
  void ControlChanged(const Control& control) override;
  void FocusMoved(const Control& control, FocusBy by) override;
  void CaptionChanged() override;
  void ShowEnded() override;
  void HandlerRuns(std::string_view object, std::string_view event) override;

  /// The host's window, over which the dialog stands, goes.
  void GoOnAlone();
  void MakeViews();
  void LayOut();
  void SetTabOrder();

  bool Hear(QObject* watched, QEvent* event);
  bool PressKey(ControlView* view, QKeyEvent& event);
  bool Compose(ControlView* view, QEvent& event);
  void FocusArrived(const ControlView& view, const QFocusEvent& event);
  /// The focus is where the form has it, whatever Qt made of it meanwhile.
  void AlignFocus();
  void ShowStatus();
  void GrowToFit();

  ControlView* ViewOfWatched(const QObject* watched) const;

  Form& form_;
  WatchedActs acts_;
  std::map<const Control*, std::unique_ptr<ControlView>> views_;
  std::map<const QObject*, ControlView*> watched_;
  QScrollArea* scroller_ = nullptr;
  std::optional<DialogLayout> layout_;
  StatusLine* status_ = nullptr;
  QEventLoop* loop_ = nullptr;
  bool movingFocus_ = false;
  std::exception_ptr failure_;
};

/// Ends the form that a widget is of, if it is one's, with the exception that is being handled.
void EndFormOf(const QWidget& widget);

}  // namespace fiscalon::qt

#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/forms/control.h"
#include "core/forms/event_queue.h"
#include "core/forms/focus.h"
#include "core/forms/form_observer.h"
#include "core/forms/layout.h"
#include "core/forms/pass_key.h"
#include "core/forms/toolkit.h"
#include "core/forms/user_acts.h"
#include "core/wording/wording.h"

namespace fiscalon {

/// A modal form: controls, a layout and handlers. The form decides everything that a forms toolkit would
/// otherwise decide (focus, keys, clicks, the order of events), so that every front end behaves the same.
/// The user's acts come in through `Acts`. docs/architecture.md tells the order of events.
class Form {
 public:
  /// The name stands in the names of handlers and in scenarios; the caption is the window's title at first.
  Form(std::string_view name, Wording caption) : name_(name), designedCaption_(std::move(caption)) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  /// The name that handlers and scenarios know.
  const std::string& Name() const { return name_; }

  /// The title of the form's window, in English.
  std::string Caption() { return WordedCaption().English(); }
  void Caption(Wording caption);
  const Wording& WordedCaption();  ///< with its words in each language
  /// The same in the language of the form.
  std::string ShownCaption() { return WordedCaption().In(language_); }

  /// How front ends lay it out.
  virtual const Layout& FormLayout() const = 0;
  /// The title of the form's message boxes; empty for the name of the host application.
  virtual Wording BoxTitle() const { return {}; }
  /// All controls, as they are declared.
  const std::vector<Control*>& Controls() const { return controls_; }
  /// The control of that name, or null. For scenarios and front ends; handlers use the members.
  Control* FindControl(std::string_view name) const;
  /// The same, but throws `FormMisuse` where the form has none.
  Control& ControlNamed(std::string_view name) const;

  /// Returns all controls to their design and runs `Form_Load`; where that fails, the form is not loaded. Does nothing
  /// on a loaded form.
  void Load();
  /// Error 400 while the form is being shown. Whoever sets a form up for a show asks before anything of it changes.
  void RefuseSecondShow() const;
  /// Shows the form in a language and serves the user until it hides or unloads. Throws what left a handler: a form
  /// that was loaded then stays so. Error 400 while it is being shown.
  void ShowModal(Toolkit& toolkit, const Language& language = {});
  /// The language of the present show or, between shows, of the last one.
  const Language& ShownIn() const { return language_; }
  /// Drops pending events and ends the modal show; the controls keep their state.
  void Hide();
  /// Destroys the controls' state; own fields of a form stay. Does nothing on an unloaded form.
  void Unload();

  /// Whether the controls have their state.
  bool IsLoaded() const { return phase_ != Phase::Unloaded; }
  /// Whether the user has it.
  bool IsUp() const { return phase_ == Phase::Up; }
  /// Loaded, and not shown since.
  bool IsYetToBeShown() const { return phase_ == Phase::Loaded; }

  /// The control that has the focus, or null. Inside a `LostFocus` handler that is the control which took it.
  Control* ActiveControl() const { return focus_.Active(); }

  /// The control that keeps the focus in silence: a handler holds the user there who asked to go on, and no box says
  /// why. Null for none. Front ends tell it in their own way, by the text of `StatusOf` (laid_out.h).
  Control* WaitingControl() const { return focus_.Waiting(); }
  /// A box has told the user something while the form is up: whatever keeps the focus does so no longer in silence.
  void UserWasTold() { focus_.UserWasTold(); }

  /// The controls that Tab stops at and others that take the focus, in tab order.
  std::vector<Control*> TabOrder() const { return focus_.Order(); }

  /// What the user does to the form.
  UserActs& Acts() { return acts_; }

  /// The front end that shows the form, set when its toolkit hears that the form opens; null takes it away. The end
  /// of the show takes it away too.
  void Observe(FormObserver* observer) { observer_ = observer; }

  // What the form does for its controls, their focus and the user's acts: only they can ask for it.

  void Register(PassKey<Control> /*key*/, Control& control) { controls_.push_back(&control); }
  void ControlChanged(PassKey<Control> key, const Control& control);
  /// Runs a handler of a control's event.
  template <class Call>
  void Fire(PassKey<Control> key, std::string_view control, std::string_view event, Call&& call);
  void SetFocus(PassKey<Control> /*key*/, Control& control) { focus_.Set(control); }
  void KeepFocus(PassKey<Control> /*key*/) { focus_.Keep(); }

  void FocusMoved(PassKey<Focus> key, const Control& control, FocusBy by);

  void FireKeyDown(PassKey<UserActs> key, int& keyCode, int shift);
  void FireKeyPress(PassKey<UserActs> key, int& character);
  bool MayUnload(PassKey<UserActs> key, CloseReason reason);
  void RunPosted(PassKey<UserActs> /*key*/) { RunPosted(); }
  /// Ends the show and keeps the error, the first one, for `ShowModal` to throw.
  void Fail(PassKey<UserActs> /*key*/, std::exception_ptr failure) { Fail(std::move(failure)); }

 protected:
  /// The form has been loaded: its first handler.
  virtual void Form_Load() {}
  /// The form is up, and has its first focus.
  virtual void Form_Activate() {}
  /// A key went down on any control, before the control's own handler; 0 ends its way.
  virtual void Form_KeyDown(int& /*keyCode*/, int /*shift*/) {}
  /// A character comes to any control, before the control's own handler; 0 drops it.
  virtual void Form_KeyPress(int& /*character*/) {}
  /// The window is to close; true keeps it.
  virtual void Form_QueryUnload(bool& /*cancel*/, CloseReason /*reason*/) {}
  /// A handler is about to run: of an event of the form ("Form", "Load"), or of a control's that has one ("txtQPP",
  /// "Change"). Object, underscore and event are the handler's name.
  virtual void Begins(std::string_view /*object*/, std::string_view /*event*/) {}
  /// For what a form holds open while it is loaded.
  virtual void Unloaded() {}

  /// Runs what has been posted so far, in the middle of a handler.
  void DoEvents();
  /// Posts keystrokes: "{TAB}" or a tab character. Error 5 for any other text.
  void SendKeys(std::string_view keys);

  /// A member function of the form as a handler of one of its controls.
  template <class F, class... Args>
  auto On(void (F::*handler)(Args...)) {
    return [form = static_cast<F*>(this), handler](Args... args) { (form->*handler)(std::forward<Args>(args)...); };
  }

 private:
  enum class Phase { Unloaded, Loaded, Up, Hidden };

  /// Runs a handler; when it was the outermost one, what it posted runs afterwards.
  template <class Call>
  void Run(std::string_view object, std::string_view event, Call&& call);
  void RunPosted();
  /// Puts a loaded form up: the first focus, `Form_Activate`, and what they posted.
  void Open();
  void EndShow(Phase next);
  void Fail(std::exception_ptr failure);

  std::string name_;
  Wording designedCaption_;
  Wording caption_;
  Language language_;
  std::vector<Control*> controls_;
  Phase phase_ = Phase::Unloaded;
  EventQueue queue_;
  Focus focus_{*this, queue_};
  UserActs acts_{*this, focus_, queue_};
  int runningHandlers_ = 0;
  bool runningPosted_ = false;
  bool showing_ = false;
  std::exception_ptr failure_;
  FormObserver* observer_ = nullptr;
};

}  // namespace fiscalon

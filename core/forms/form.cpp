#include "core/forms/form.h"

#include <utility>

#include "core/forms/form_events.h"
#include "core/forms/form_misuse.h"
#include "core/platform/runtime_error.h"

namespace fiscalon {

const Wording& Form::WordedCaption() {
  Load();
  return caption_;
}

void Form::Caption(Wording caption) {
  Load();
  caption_ = std::move(caption);
  if (observer_ != nullptr && IsUp())
    observer_->CaptionChanged();
}

Control* Form::FindControl(std::string_view name) const {
  for (Control* control : controls_)
    if (control->Name() == name)
      return control;
  return nullptr;
}

Control& Form::ControlNamed(std::string_view name) const {
  if (Control* control = FindControl(name))
    return *control;
  throw FormMisuse(name_, std::string(name), "the form has no such control");
}

void Form::ControlChanged(PassKey<Control> /*key*/, const Control& control) {
  if (observer_ != nullptr && IsUp())
    observer_->ControlChanged(control);
}

void Form::FocusMoved(PassKey<Focus> /*key*/, const Control& control, FocusBy by) {
  if (observer_ != nullptr)
    observer_->FocusMoved(control, by);
}

void Form::FireKeyDown(PassKey<UserActs> /*key*/, int& keyCode, int shift) {
  Run("Form", "KeyDown", [&] { Form_KeyDown(keyCode, shift); });
}

void Form::FireKeyPress(PassKey<UserActs> /*key*/, int& character) {
  Run("Form", "KeyPress", [&] { Form_KeyPress(character); });
}

bool Form::MayUnload(PassKey<UserActs> /*key*/, CloseReason reason) {
  bool cancel = false;
  Run("Form", "QueryUnload", [&] { Form_QueryUnload(cancel, reason); });
  return !cancel;
}

void Form::Load() {
  if (phase_ != Phase::Unloaded)
    return;
  phase_ = Phase::Loaded;
  caption_ = designedCaption_;
  for (Control* control : controls_) control->Reset({});
  try {
    Run("Form", "Load", [this] { Form_Load(); });
  } catch (...) {
    // Half a form must not meet the next show.
    Unload();
    throw;
  }
}

void Form::RefuseSecondShow() const {
  if (showing_)
    Raise(error_number::kAlreadyShown);
}

void Form::ShowModal(Toolkit& toolkit, const Language& language) {
  RefuseSecondShow();
  const ScopedValue showing(showing_, true);
  language_ = language;
  try {
    toolkit.Opening(*this);
    Load();
    // Form_Load may have unloaded the form again: then there is nothing to show.
    if (IsLoaded())
      Open();
    if (IsUp())
      toolkit.ServeModal(*this);
  } catch (...) {
    Fail(std::current_exception());
  }
  if (IsUp())
    Hide();
  // The front end may be gone before the form is shown again.
  observer_ = nullptr;
  if (failure_)
    std::rethrow_exception(std::exchange(failure_, nullptr));
}

void Form::Open() {
  phase_ = Phase::Up;
  focus_.Forget();
  acts_.Open({}, [this] { Run("Form", "Activate", [this] { Form_Activate(); }); });
}

void Form::Fail(std::exception_ptr failure) {
  if (!failure_)
    failure_ = std::move(failure);
  if (IsUp())
    Hide();
}

void Form::Hide() {
  if (IsLoaded())
    EndShow(Phase::Hidden);
}

void Form::EndShow(Phase next) {
  const bool wasUp = IsUp();
  queue_.Drop();
  phase_ = next;
  if (wasUp && observer_ != nullptr)
    observer_->ShowEnded();
}

void Form::Unload() {
  if (!IsLoaded())
    return;
  EndShow(Phase::Unloaded);
  focus_.Forget();
  Unloaded();
}

void Form::DoEvents() {
  RunPosted();
}

void Form::SendKeys(std::string_view keys) {
  if (keys != "{TAB}" && keys != "\t")
    Raise(error_number::kInvalidProcedureCall);
  if (IsUp())
    queue_.Post(PostedKey{.stroke = *StrokeNamed("Tab")});
}

void Form::RunPosted() {
  const ScopedValue running(runningPosted_, true);
  while (const auto event = queue_.Take()) {
    if (const auto* left = std::get_if<PostedLostFocus>(&*event))
      left->control->FireLostFocus({});
    else
      acts_.PostedStroke({}, std::get<PostedKey>(*event).stroke);
  }
}

}  // namespace fiscalon

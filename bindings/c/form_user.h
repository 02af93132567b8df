#pragma once

#include "bindings/c/handles.h"
#include "core/forms/form.h"
#include "frontends/played/user_driver.h"

namespace fiscalon::c {

/// A form that is up, and its user, as a host's routine has them.
struct FormUser {
  Form& form;
  UserDriver& user;
  /// What was last read of it.
  std::string text = {};
  std::string controlName = {};
  std::string controlText = {};
  std::string controlSelection = {};
};

template <>
struct HandleOf<fiscalon_form> {
  using Object = FormUser;
};

/// A handle that the host has while its routine runs.
class FormHandle {
 public:
  FormHandle(Form& form, UserDriver& user)
      : handle_(NewHandle<fiscalon_form>(std::make_shared<FormUser>(FormUser{.form = form, .user = user}))) {}
  ~FormHandle() { TheHandles().Remove(handle_, &kKind<fiscalon_form>); }
  FormHandle(const FormHandle&) = delete;
  FormHandle& operator=(const FormHandle&) = delete;

  fiscalon_form* Get() const { return handle_; }

 private:
  fiscalon_form* handle_;
};

}  // namespace fiscalon::c

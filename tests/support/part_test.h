#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "core/screen.h"
#include "tests/support/module_test.h"
#include "tests/support/raises.h"
#include "tests/support/test_form.h"

namespace fiscalon {

/// A small screen with one part, or a few, under test.
class PartForm : public Screen {
 public:
  PartForm() : Screen("frmPart", "A form with a part under test") {}

  const Layout& FormLayout() const override { return layout_; }

  using Screen::Payment;

  /// Whether a handler has run since the form was made: "txtA_LostFocus".
  bool HasRun(std::string_view handler) const { return std::find(ran_.begin(), ran_.end(), handler) != ran_.end(); }

 private:
  void Begins(std::string_view object, std::string_view event) override {
    ran_.push_back(std::string(object).append("_").append(event));
  }

  std::vector<std::string> ran_;
  Layout layout_;
};

/// Shows the small screen and plays a user at it.
template <class FormClass>
class PartTest : public ModuleTest {
 protected:
  void WhileUp(const std::function<void(FormUser& user)>& acts) { PlayAt(form, acts); }

  std::string FocusName() const { return form.ActiveControl() == nullptr ? "" : form.ActiveControl()->Name(); }

  /// The texts of the boxes since they were last taken.
  std::vector<std::string> TakeTexts() {
    std::vector<std::string> texts;
    for (const auto& box : toolkit.boxes) texts.push_back(box.text);
    toolkit.boxes.clear();
    return texts;
  }

  FormClass form;
};

}  // namespace fiscalon

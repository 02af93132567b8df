#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/forms/button.h"
#include "tests/support/screen_test.h"

namespace fiscalon {

/// One thing that the OK button of a form refuses.
template <class FormClass>
struct OkRow {
  std::string name = {};
  /// Makes a valid form wrong in this one respect.
  std::function<void(FormClass& form)> spoil = {};
  /// Empty where the refusal is silent.
  std::string message = {};
  std::string focus = {};
  MessageStyle style = MessageStyle::Critical;
  std::string title = {};
};

/// The OK path of a screen: a valid form, and the rows that refuse it in the order in which they are met. Rows further
/// up are spoiled last, so that rows of one field can stand in one table: what spoils the earlier row is what the
/// field then holds.
template <class FormClass>
class OkPathTest : public ScreenTest {
 protected:
  using Row = OkRow<FormClass>;

  virtual std::string Code() const = 0;
  virtual const std::vector<Row>& Rows() const = 0;
  virtual void FillValid(FormClass& form, UserDriver& user) const = 0;
  virtual Button& OkButton(FormClass& form) const = 0;

  void ExpectEachRowRefuses() {
    for (const Row& row : Rows()) ExpectRefusal(row, {&row});
  }

  void ExpectEachRowIsMetBeforeLaterOnes() {
    for (size_t first = 0; first < Rows().size(); ++first)
      for (size_t second = first + 1; second < Rows().size(); ++second)
        ExpectRefusal(Rows()[first], {&Rows()[second], &Rows()[first]});
  }

  /// With everything wrong, mending what each refusal is about: the messages on the way to the accepted form, empty
  /// for a silent refusal.
  std::vector<std::string> MessagesWhileMending() {
    std::vector<std::string> messages;
    for (size_t mended = 0; mended <= Rows().size(); ++mended) {
      std::vector<const Row*> wrong;
      for (size_t i = Rows().size(); i-- > mended;) wrong.push_back(&Rows()[i]);
      const Pressed pressed = PressOk(wrong);
      for (const BoxRequest& box : pressed.boxes) messages.push_back(box.text);
      if (pressed.boxes.empty() && pressed.stayedUp)
        messages.emplace_back();
    }
    return messages;
  }

  void ExpectAValidFormIsAccepted() {
    const Pressed pressed = PressOk({});
    EXPECT_TRUE(pressed.boxes.empty());
    EXPECT_FALSE(pressed.stayedUp);
    EXPECT_TRUE(pressed.result);
  }

 private:
  struct Pressed {
    std::vector<BoxRequest> boxes = {};
    std::string focus = {};
    bool stayedUp = false;
    bool result = false;
  };

  Pressed PressOk(const std::vector<const Row*>& wrong) {
    Pressed pressed;
    pressed.result = Show<FormClass>(Code(), [&](FormClass& form, UserDriver& user) {
      FillValid(form, user);
      user.PressMouse(OkButton(form));
      EXPECT_TRUE(TakeBoxes().empty()) << "the valid form is not valid";
      for (const Row* row : wrong) row->spoil(form);
      user.Click(OkButton(form));
      pressed.boxes = TakeBoxes();
      pressed.stayedUp = form.IsUp();
      pressed.focus = user.FocusName();
    });
    return pressed;
  }

  void ExpectRefusal(const Row& row, const std::vector<const Row*>& wrong) {
    std::string name = row.name;
    if (wrong.front() != &row)
      name += " before " + wrong.front()->name;
    SCOPED_TRACE(name);
    const Pressed pressed = PressOk(wrong);
    EXPECT_EQ(pressed.focus, row.focus);
    EXPECT_TRUE(pressed.stayedUp);
    EXPECT_FALSE(pressed.result);
    ASSERT_EQ(pressed.boxes.size(), row.message.empty() ? 0U : 1U);
    if (row.message.empty())
      return;
    EXPECT_EQ(pressed.boxes[0].text, row.message);
    EXPECT_EQ(pressed.boxes[0].style, row.style);
    EXPECT_EQ(pressed.boxes[0].title, row.title);
  }
};

}  // namespace fiscalon

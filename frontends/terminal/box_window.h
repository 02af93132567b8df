#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/forms/toolkit.h"
#include "frontends/terminal/window.h"
#include "frontends/terminal/wrapped_text.h"

namespace fiscalon::terminal {

/// A message box over the form. Tab and the arrow keys go from button to button, Enter presses one, so do the letters
/// that are underlined, and Escape closes the box.
class BoxWindow final : public Window {
 public:
  /// `untitled` is the title of a box that has none.
  BoxWindow(const BoxRequest& box, const std::string& untitled);

  void Draw(Screen& screen) override;
  void Take(const Input& input) override;
  const Language& ShownIn() const override { return box_.language; }

  std::optional<MessageAnswer> Answer() const { return answer_; }

  /// What a user sees of it, read off the cells. The whole text must be in sight.
  BoxRequest Read(const Screen& seen) const;
  /// Where a button stands, as it was drawn last.
  Point PlaceOf(MessageAnswer answer) const;

 private:
  struct Choice {
    MessageAnswer answer;
    Rect place = {};
  };

  void LayOut(Size screen);
  void TakeKey(const KeyStroke& stroke);
  void GoOn(int step);

  BoxRequest box_;
  std::string title_;
  std::vector<Choice> choices_;
  size_t focused_ = 0;
  std::optional<MessageAnswer> answer_;
  std::vector<WrappedLine> lines_;
  Rect window_ = {};
  Rect text_ = {};
  /// The first line that is seen, where the box is higher than the screen.
  int first_ = 0;
};

}  // namespace fiscalon::terminal

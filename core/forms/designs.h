#pragma once

#include "core/wording/wording.h"

namespace fiscalon {

class Frame;

/// Controls without a tab index, the buttons of most forms, come last in tab order.
constexpr int kNoTabIndex = -1;

enum class Alignment { Left, Right };

// Controls as the form's definition has them: the state to which loading the form returns them. A control has the
// options of its kind and no others.

struct LabelDesign {
  Wording caption = {};
  Alignment alignment = Alignment::Left;
  bool enabled = true;
  bool visible = true;
  /// A caption that stands out, such as the label of a total.
  bool bold = false;
  /// The frame that the control lies in; it hides and disables with the frame.
  const Frame* frame = nullptr;
};

/// Frames lie on the form itself: none has a frame around it.
struct FrameDesign {
  Wording caption = {};
  bool enabled = true;
  bool visible = true;
};

struct FieldDesign {
  static constexpr int kNoLimit = 0;

  int tabIndex = kNoTabIndex;
  /// Characters that can be typed or pasted.
  int maxLength = kNoLimit;
  Alignment alignment = Alignment::Left;
  bool tabStop = true;
  bool enabled = true;
  bool visible = true;
  /// The user can't change the text. Shown shaded.
  bool locked = false;
  bool multiLine = false;
  const Frame* frame = nullptr;
};

struct ButtonDesign {
  /// A "&" marks the access key.
  Wording caption = {};
  int tabIndex = kNoTabIndex;
  bool tabStop = true;
  bool enabled = true;
  bool visible = true;
  /// Escape presses the button.
  bool cancel = false;
  const Frame* frame = nullptr;
};

/// A check box or an option button.
struct ToggleDesign {
  Wording caption = {};
  int tabIndex = kNoTabIndex;
  /// Ticked, or the option that is on. At most one option of a group is.
  bool value = false;
  bool tabStop = true;
  bool enabled = true;
  bool visible = true;
  const Frame* frame = nullptr;
};

struct ListDesign {
  int tabIndex = kNoTabIndex;
  bool tabStop = true;
  bool enabled = true;
  bool visible = true;
  /// All characters of one width, for rows that make columns.
  bool fixedPitch = false;
  const Frame* frame = nullptr;
};

/// The options that kinds have in common.
struct CommonDesign {
  int tabIndex = kNoTabIndex;
  bool tabStop = true;
  bool enabled = true;
  bool visible = true;
  const Frame* frame = nullptr;

  template <class Design>
  static CommonDesign Of(const Design& design) {
    CommonDesign common = {.enabled = design.enabled, .visible = design.visible};
    if constexpr (requires { design.tabIndex; }) {
      common.tabIndex = design.tabIndex;
      common.tabStop = design.tabStop;
    }
    if constexpr (requires { design.frame; })
      common.frame = design.frame;
    return common;
  }
};

}  // namespace fiscalon

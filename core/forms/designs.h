#pragma once

#include "core/wording/wording.h"

namespace fiscalon {

class Frame;

/// Controls without a tab index, the buttons of most forms, come last in tab order.
constexpr int kNoTabIndex = -1;

/// To which side a text stands.
enum class Alignment { Left, Right };

// Controls as the form's definition has them: the state to which loading the form returns them. A control has the
// options of its kind and no others.

/// A label.
struct LabelDesign {
  Wording caption = {};                   ///< what it reads
  Alignment alignment = Alignment::Left;  ///< within its place
  bool enabled = true;                    ///< not shown as out of use
  bool visible = true;                    ///< is there at all
  /// A caption that stands out, such as the label of a total.
  bool bold = false;
  /// The frame that the control lies in; it hides and disables with the frame.
  const Frame* frame = nullptr;
};

/// Frames lie on the form itself: none has a frame around it.
struct FrameDesign {
  Wording caption = {};  ///< its heading; may be empty
  bool enabled = true;   ///< with all that lies in it
  bool visible = true;   ///< with all that lies in it
};

/// A field for text.
struct FieldDesign {
  static constexpr int kNoLimit = 0;  ///< any number of characters

  int tabIndex = kNoTabIndex;  ///< the place in tab order, from 0
  /// Characters that can be typed or pasted.
  int maxLength = kNoLimit;
  Alignment alignment = Alignment::Left;  ///< of the text
  bool tabStop = true;                    ///< Tab stops here
  bool enabled = true;                    ///< takes input
  bool visible = true;                    ///< is there at all
  /// The user can't change the text. Shown shaded.
  bool locked = false;
  bool multiLine = false;        ///< takes line ends
  const Frame* frame = nullptr;  ///< the frame that it lies in
};

/// A push button.
struct ButtonDesign {
  /// A "&" marks the access key.
  Wording caption = {};
  int tabIndex = kNoTabIndex;  ///< the place in tab order, from 0
  bool tabStop = true;         ///< Tab stops here
  bool enabled = true;         ///< takes input
  bool visible = true;         ///< is there at all
  /// Escape presses the button.
  bool cancel = false;
  const Frame* frame = nullptr;  ///< the frame that it lies in
};

/// A check box or an option button.
struct ToggleDesign {
  Wording caption = {};        ///< a "&" marks the access key
  int tabIndex = kNoTabIndex;  ///< the place in tab order, from 0
  /// Ticked, or the option that is on. At most one option of a group is.
  bool value = false;
  bool tabStop = true;           ///< Tab stops here
  bool enabled = true;           ///< takes input
  bool visible = true;           ///< is there at all
  const Frame* frame = nullptr;  ///< the frame that it lies in
};

/// A list that drops down, or a box of rows.
struct ListDesign {
  int tabIndex = kNoTabIndex;  ///< the place in tab order, from 0
  bool tabStop = true;         ///< Tab stops here
  bool enabled = true;         ///< takes input
  bool visible = true;         ///< is there at all
  /// All characters of one width, for rows that make columns.
  bool fixedPitch = false;
  const Frame* frame = nullptr;  ///< the frame that it lies in
};

/// The options that kinds have in common.
struct CommonDesign {
  int tabIndex = kNoTabIndex;    ///< the place in tab order, from 0
  bool tabStop = true;           ///< Tab stops here
  bool enabled = true;           ///< takes input
  bool visible = true;           ///< is there at all
  const Frame* frame = nullptr;  ///< the frame that it lies in

  /// Those of a design of any kind; what the kind does not have is as it is for most.
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

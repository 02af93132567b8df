#pragma once

#include "core/forms/toolkit.h"
#include "core/wording/wording.h"

/// How screens and routines tell the user something.
namespace fiscalon {

/// A message box before it is put into words.
struct Message {
  Wording text = {};
  MessageStyle style = MessageStyle::Plain;
  MessageButtons buttons = MessageButtons::Ok;
  DefaultButton defaultButton = DefaultButton::First;
  /// Empty: the host application's own name is shown.
  Wording title = {};
};

/// Shows a message box and returns its answer. Forms that are up know by it that their user was told something, and
/// the box has the language of the topmost.
MessageAnswer ShowMessage(const Message& message);
/// The same for a box without a title.
MessageAnswer ShowMessage(const Wording& text, MessageStyle style);

}  // namespace fiscalon

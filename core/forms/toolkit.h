#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/wording/language.h"

namespace fiscalon {

class Form;

/// The picture beside a box's text.
enum class MessageStyle { Plain, Critical, Question, Exclamation, Information };
/// The buttons of a box.
enum class MessageButtons { Ok, OkCancel, YesNo };
/// The button that closed a box.
enum class MessageAnswer { Ok, Cancel, Yes, No };

/// Which of a box's buttons Enter presses.
enum class DefaultButton { First, Second };

/// A message box that a screen asks for. Texts are in the code page.
struct BoxRequest {
  std::string text = {};                               ///< what the box says
  MessageStyle style = MessageStyle::Plain;            ///< its picture
  MessageButtons buttons = MessageButtons::Ok;         ///< its buttons
  DefaultButton defaultButton = DefaultButton::First;  ///< the button that Enter presses
  /// Empty: the host application's own name is shown.
  std::string title = {};
  /// Of text and title; buttons that the front end captions itself have their words in it too (`ButtonCaption`).
  Language language = {};

  /// Whether the box has a button with that answer.
  bool Offers(MessageAnswer answer) const;
  /// What Enter answers: the first button, unless the second is the default one.
  MessageAnswer DefaultAnswer() const;
  /// What a box answers that was closed without a button: the most careful of its answers.
  MessageAnswer ClosedAnswer() const;
};

/// What stands on a box's button, with its access key.
std::string ButtonCaption(MessageAnswer answer, const Language& language);

/// What the library needs of a front end. A host installs one with `UseToolkit` before it shows a screen.
class Toolkit {
 public:
  virtual ~Toolkit() = default;

  /// A form is about to be shown; it may not be loaded yet. A front end that observes forms begins here.
  virtual void Opening(Form& /*form*/) {}

  /// Serves the user until the form is no longer up. The form is loaded, active and has its focus when
  /// this is called; acts of the user go to the form's own members and never throw.
  virtual void ServeModal(Form& form) = 0;

  /// Shows a box over the active form and waits for its answer.
  virtual MessageAnswer ShowMessage(const BoxRequest& box) = 0;

  /// The system's sound for an entry that is refused.
  virtual void Beep() = 0;

  /// Opens a help file at a context number. Says so where the file does not exist.
  virtual void OpenHelp(std::string_view file, int32_t context) = 0;
};

}  // namespace fiscalon

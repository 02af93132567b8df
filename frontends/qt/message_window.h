#pragma once

#include <QMessageBox>
#include <memory>

#include "core/forms/toolkit.h"

namespace fiscalon::qt {

/// A message box as a window over its parent: icon, plain text, buttons, default button and title.
std::unique_ptr<QMessageBox> NewMessageWindow(const BoxRequest& box, QWidget* parent);

/// What a user sees in such a window, read back from it once it is shown.
BoxRequest ShownIn(const QMessageBox& window);

/// The button that gives an answer; null where the window has none.
QAbstractButton* ButtonFor(const QMessageBox& window, MessageAnswer answer);

/// The answer that closed the window. One that was closed without a button answers the most careful thing it can.
MessageAnswer AnswerOf(const QMessageBox& window, const BoxRequest& box);

}  // namespace fiscalon::qt

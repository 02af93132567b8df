#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <functional>

#include "frontends/qt/form_dialog.h"
#include "frontends/qt/played_qt_toolkit.h"
#include "tests/support/every_kind_form.h"

namespace fiscalon::qt {

/// A form shown by real widgets, and a played user at it.
class PlayedForm {
 public:
  PlayedQtToolkit toolkit;

  /// Shows the form and lets the user act. What left a handler is thrown.
  template <class Widget = QWidget>
  static Widget& In(const FormDialog& dialog, const Control& control) {
    return dynamic_cast<Widget&>(dialog.WidgetOf(control));
  }

  void Show(Form& form, const std::function<void(FormDialog& dialog, UserDriver& user)>& act) {
    toolkit.onForm = [&](Form&, UserDriver& user) { act(*toolkit.Dialog(), user); };
    form.ShowModal(toolkit);
  }

  static void Type(UserDriver& user, std::string_view text) {
    for (const char character : text) user.Type(character);
  }
  static void Press(UserDriver& user, std::string_view key) { user.PressKey(*StrokeNamed(key)); }
};

}  // namespace fiscalon::qt

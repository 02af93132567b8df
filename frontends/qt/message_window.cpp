#include "frontends/qt/message_window.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QPushButton>
#include <QWindow>
#include <algorithm>
#include <array>

#include "frontends/qt/qt_text.h"

namespace fiscalon::qt {
namespace {

struct StyleRow {
  MessageStyle style;
  QMessageBox::Icon icon;
};
constexpr std::array kStyles = {
    StyleRow{MessageStyle::Plain, QMessageBox::NoIcon},
    StyleRow{MessageStyle::Critical, QMessageBox::Critical},
    StyleRow{MessageStyle::Question, QMessageBox::Question},
    StyleRow{MessageStyle::Exclamation, QMessageBox::Warning},
    StyleRow{MessageStyle::Information, QMessageBox::Information},
};

struct AnswerRow {
  MessageAnswer answer;
  QMessageBox::StandardButton button;
};
constexpr std::array kAnswers = {
    AnswerRow{MessageAnswer::Ok, QMessageBox::Ok},
    AnswerRow{MessageAnswer::Cancel, QMessageBox::Cancel},
    AnswerRow{MessageAnswer::Yes, QMessageBox::Yes},
    AnswerRow{MessageAnswer::No, QMessageBox::No},
};

QMessageBox::StandardButton ButtonOf(MessageAnswer answer) {
  return std::find_if(kAnswers.begin(), kAnswers.end(), [&](const AnswerRow& row) { return row.answer == answer; })
      ->button;
}

QMessageBox::StandardButtons ButtonsOf(const BoxRequest& box) {
  QMessageBox::StandardButtons buttons;
  for (const AnswerRow& row : kAnswers) buttons.setFlag(row.button, box.Offers(row.answer));
  return buttons;
}

}  // namespace

std::unique_ptr<QMessageBox> NewMessageWindow(const BoxRequest& box, QWidget* parent) {
  auto window = std::make_unique<QMessageBox>(parent);
  window->setWindowModality(Qt::ApplicationModal);
  window->setAttribute(Qt::WA_QuitOnClose, false);
  window->setTextFormat(Qt::PlainText);
  window->setText(WithPlainLineEnds(ToQt(box.text)));
  window->setWindowTitle(AsTitle(box.title.empty() ? QGuiApplication::applicationDisplayName() : ToQt(box.title)));
  window->setIcon(
      std::find_if(kStyles.begin(), kStyles.end(), [&](const StyleRow& row) { return row.style == box.style; })->icon);
  window->setStandardButtons(ButtonsOf(box));
  // Qt has its own words for them, in the language of the desktop.
  if (!box.language.IsEnglish())
    for (const AnswerRow& row : kAnswers)
      if (QAbstractButton* const button = window->button(row.button))
        button->setText(ToQt(ButtonCaption(row.answer, box.language)));
  window->setDefaultButton(ButtonOf(box.DefaultAnswer()));
  return window;
}

BoxRequest ShownIn(const QMessageBox& window) {
  const auto buttons = window.standardButtons();
  BoxRequest shown = {.text = FromQt(window.text()),
                      .style = std::find_if(kStyles.begin(), kStyles.end(),
                                            [&](const StyleRow& row) { return row.icon == window.icon(); })
                                   ->style,
                      .buttons = buttons.testFlag(QMessageBox::Yes)      ? MessageButtons::YesNo
                                 : buttons.testFlag(QMessageBox::Cancel) ? MessageButtons::OkCancel
                                                                         : MessageButtons::Ok,
                      .title = FromQt(window.windowHandle()->title())};
  if (window.defaultButton() != ButtonFor(window, shown.DefaultAnswer()))
    shown.defaultButton = DefaultButton::Second;
  return shown;
}

QAbstractButton* ButtonFor(const QMessageBox& window, MessageAnswer answer) {
  return window.button(ButtonOf(answer));
}

MessageAnswer AnswerOf(const QMessageBox& window, const BoxRequest& box) {
  const auto clicked = window.standardButton(window.clickedButton());
  for (const AnswerRow& row : kAnswers)
    if (row.button == clicked)
      return row.answer;
  return box.ClosedAnswer();
}

}  // namespace fiscalon::qt

#include "frontends/qt/message_window.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QPushButton>

namespace fiscalon::qt {
namespace {

TEST(MessageWindow, ShowsTextIconAndTitle) {
  const auto window = NewMessageWindow(
      {.text = "Soci\xE9t\xE9 <b>A</b> && B\r\nNext", .style = MessageStyle::Critical, .title = "Date Warning"},
      nullptr);
  EXPECT_EQ(window->text(), QString::fromUtf8("Société <b>A</b> && B\nNext"));
  EXPECT_EQ(window->textFormat(), Qt::PlainText);
  EXPECT_EQ(window->icon(), QMessageBox::Critical);
  EXPECT_EQ(window->windowTitle(), "Date Warning");
  EXPECT_TRUE(window->isModal());
}

TEST(MessageWindow, CarriesTheApplicationsNameWithoutATitle) {
  const QString before = QGuiApplication::applicationDisplayName();
  QGuiApplication::setApplicationDisplayName("Bill Desk");
  EXPECT_EQ(NewMessageWindow({.text = "x"}, nullptr)->windowTitle(), "Bill Desk");
  QGuiApplication::setApplicationDisplayName(before);
}

TEST(MessageWindow, ShowsTheMarksOfItsTitle) {
  for (const char* title : {"[*]", "Blue [*] Sky", "[*][*]Blue[*]", "[[*]*]"}) {
    const auto window = NewMessageWindow({.text = "x", .title = title}, nullptr);
    window->show();
    EXPECT_EQ(ShownIn(*window).title, title);
  }
}

TEST(MessageWindow, HasTheIconOfEachStyle) {
  const auto iconOf = [](MessageStyle style) {
    return NewMessageWindow({.text = "x", .style = style}, nullptr)->icon();
  };
  EXPECT_EQ(iconOf(MessageStyle::Plain), QMessageBox::NoIcon);
  EXPECT_EQ(iconOf(MessageStyle::Question), QMessageBox::Question);
  EXPECT_EQ(iconOf(MessageStyle::Exclamation), QMessageBox::Warning);
  EXPECT_EQ(iconOf(MessageStyle::Information), QMessageBox::Information);
}

TEST(MessageWindow, HasItsButtonsAndDefault) {
  const auto defaultOf = [](const QMessageBox& window) {
    return window.standardButton(const_cast<QMessageBox&>(window).defaultButton());
  };
  const auto ok = NewMessageWindow({.text = "x"}, nullptr);
  EXPECT_EQ(ok->standardButtons(), QMessageBox::Ok);
  EXPECT_EQ(defaultOf(*ok), QMessageBox::Ok);
  const auto okCancel = NewMessageWindow({.text = "x", .buttons = MessageButtons::OkCancel}, nullptr);
  EXPECT_EQ(okCancel->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
  EXPECT_EQ(defaultOf(*okCancel), QMessageBox::Ok);
  const auto yesNo = NewMessageWindow({.text = "x", .buttons = MessageButtons::YesNo}, nullptr);
  EXPECT_EQ(yesNo->standardButtons(), QMessageBox::Yes | QMessageBox::No);
  EXPECT_EQ(defaultOf(*yesNo), QMessageBox::Yes);
  const auto careful = NewMessageWindow(
      {.text = "x", .buttons = MessageButtons::YesNo, .defaultButton = DefaultButton::Second}, nullptr);
  EXPECT_EQ(defaultOf(*careful), QMessageBox::No);
}

TEST(MessageWindow, AnswersByTheButtonThatClosesIt) {
  const BoxRequest box{.text = "x", .buttons = MessageButtons::YesNo};
  for (const MessageAnswer answer : {MessageAnswer::Yes, MessageAnswer::No}) {
    const auto window = NewMessageWindow(box, nullptr);
    window->show();
    ButtonFor(*window, answer)->click();
    EXPECT_EQ(AnswerOf(*window, box), answer);
    EXPECT_FALSE(window->isVisible());
  }
}

TEST(MessageWindow, AnswersWithCareWhenNoButtonClosesIt) {
  const auto answerOf = [](MessageButtons buttons) {
    const BoxRequest box{.text = "x", .buttons = buttons};
    return AnswerOf(*NewMessageWindow(box, nullptr), box);
  };
  EXPECT_EQ(answerOf(MessageButtons::Ok), MessageAnswer::Ok);
  EXPECT_EQ(answerOf(MessageButtons::OkCancel), MessageAnswer::Cancel);
  EXPECT_EQ(answerOf(MessageButtons::YesNo), MessageAnswer::No);
}

TEST(MessageWindow, ReadsBackWhatItShows) {
  const BoxRequest box{.text = "Is the year right?",
                       .style = MessageStyle::Question,
                       .buttons = MessageButtons::YesNo,
                       .defaultButton = DefaultButton::Second,
                       .title = "Date Warning"};
  const auto window = NewMessageWindow(box, nullptr);
  window->show();
  const BoxRequest shown = ShownIn(*window);
  EXPECT_EQ(shown.text, box.text);
  EXPECT_EQ(shown.style, box.style);
  EXPECT_EQ(shown.buttons, box.buttons);
  EXPECT_EQ(shown.defaultButton, box.defaultButton);
  EXPECT_EQ(shown.title, box.title);
}

TEST(MessageWindow, CaptionsItsButtonsInTheLanguageOfTheForm) {
  const auto caption = [](MessageButtons buttons, MessageAnswer answer) {
    const auto window = NewMessageWindow({.text = "?", .buttons = buttons, .language = *NamedLanguage("fr")}, nullptr);
    return ButtonFor(*window, answer)->text();
  };
  EXPECT_EQ(caption(MessageButtons::YesNo, MessageAnswer::Yes), QStringLiteral("&Oui"));
  EXPECT_EQ(caption(MessageButtons::YesNo, MessageAnswer::No), QStringLiteral("&Non"));
  EXPECT_EQ(caption(MessageButtons::OkCancel, MessageAnswer::Cancel), QStringLiteral("Annuler"));
}

}  // namespace
}  // namespace fiscalon::qt

#include "core/forms/toolkit.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

TEST(BoxRequest, OffersTheAnswersOfItsButtons) {
  struct Row {
    MessageButtons buttons;
    bool ok, cancel, yes, no;
  };
  for (const Row& row :
       {Row{MessageButtons::Ok, true, false, false, false}, Row{MessageButtons::OkCancel, true, true, false, false},
        Row{MessageButtons::YesNo, false, false, true, true}}) {
    const BoxRequest box{.buttons = row.buttons};
    EXPECT_EQ(box.Offers(MessageAnswer::Ok), row.ok);
    EXPECT_EQ(box.Offers(MessageAnswer::Cancel), row.cancel);
    EXPECT_EQ(box.Offers(MessageAnswer::Yes), row.yes);
    EXPECT_EQ(box.Offers(MessageAnswer::No), row.no);
  }
}

TEST(BoxRequest, IsAPlainBoxUnlessItSaysMore) {
  EXPECT_EQ(BoxRequest().style, MessageStyle::Plain);
}

TEST(ButtonCaption, IsWhatStandsOnTheButtonWithItsAccessKey) {
  EXPECT_EQ(ButtonCaption(MessageAnswer::Ok, {}), "OK");
  EXPECT_EQ(ButtonCaption(MessageAnswer::Cancel, {}), "Cancel");
  EXPECT_EQ(ButtonCaption(MessageAnswer::Yes, {}), "&Yes");
  EXPECT_EQ(ButtonCaption(MessageAnswer::No, {}), "&No");
}

TEST(BoxRequest, AnswersByItsFirstButtonUnlessTheSecondIsTheDefaultOne) {
  const auto answerOf = [](MessageButtons buttons, DefaultButton button) {
    return BoxRequest{.buttons = buttons, .defaultButton = button}.DefaultAnswer();
  };
  EXPECT_EQ(BoxRequest().DefaultAnswer(), MessageAnswer::Ok);
  EXPECT_EQ(answerOf(MessageButtons::OkCancel, DefaultButton::First), MessageAnswer::Ok);
  EXPECT_EQ(answerOf(MessageButtons::OkCancel, DefaultButton::Second), MessageAnswer::Cancel);
  EXPECT_EQ(answerOf(MessageButtons::YesNo, DefaultButton::First), MessageAnswer::Yes);
  EXPECT_EQ(answerOf(MessageButtons::YesNo, DefaultButton::Second), MessageAnswer::No);
  EXPECT_EQ(answerOf(MessageButtons::Ok, DefaultButton::Second), MessageAnswer::Ok) << "it has no second button";
}

TEST(BoxRequest, AnswersWithCareWhenNoButtonClosesIt) {
  const auto answerOf = [](MessageButtons buttons) { return BoxRequest{.buttons = buttons}.ClosedAnswer(); };
  EXPECT_EQ(answerOf(MessageButtons::Ok), MessageAnswer::Ok);
  EXPECT_EQ(answerOf(MessageButtons::OkCancel), MessageAnswer::Cancel);
  EXPECT_EQ(answerOf(MessageButtons::YesNo), MessageAnswer::No);
}

}  // namespace
}  // namespace fiscalon

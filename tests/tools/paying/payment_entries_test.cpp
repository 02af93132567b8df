#include "tools/paying/payment_entries.h"

#include <gtest/gtest.h>

#include <cctype>
#include <set>

namespace fiscalon {
namespace {

TEST(NameOf, IsTheCaptionAsItIsRead) {
  EXPECT_EQ(NameOf(PaymentEntry::Sequence), "Sequence");
  EXPECT_EQ(NameOf(PaymentEntry::Cents), "Amount in cents");
  EXPECT_EQ(NameOf(PaymentEntry::OnHold), "On hold, without a fixed date");
  EXPECT_EQ(NameOf(PaymentEntry::File), "Record file");
}

TEST(WordsOf, HasNoAccessKeyTwice) {
  std::set<char> keys;
  for (auto entry = PaymentEntry::CustomerNumber; entry < PaymentEntry::File;
       entry = PaymentEntry(static_cast<int>(entry) + 1)) {
    const std::string_view caption = WordsOf(entry).caption;
    ASSERT_NE(caption.find('&'), caption.npos) << caption;
    const auto key = static_cast<char>(std::toupper(static_cast<unsigned char>(caption[caption.find('&') + 1])));
    EXPECT_TRUE(keys.insert(key).second) << caption;
  }
}

}  // namespace
}  // namespace fiscalon

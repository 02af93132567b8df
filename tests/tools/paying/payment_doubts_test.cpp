#include "tools/paying/payment_doubts.h"

#include <gmock/gmock.h>

#include "tests/support/module_test.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A payment against which nothing speaks, whose records go to a file in a folder of the test's own.
class PaymentDoubts : public ModuleTest {
 protected:
  PaymentDoubts() {
    payment.destination = Payment::Destination::File;
    payment.file = folder.Path("payment.pc4");
  }

  /// What is told of the payment: "! " stands before what stops it.
  std::vector<std::string> Told() const {
    std::vector<std::string> told;
    for (const Doubt& doubt : DoubtsAbout(payment))
      told.push_back((doubt.weight == Doubt::Weight::Stops ? "! " : "") + SentenceOf(doubt));
    return told;
  }

  TemporaryFolder folder;
  Payment payment = ExamplePayment();
};

TEST_F(PaymentDoubts, AreNoneOfAGoodPayment) {
  EXPECT_THAT(Told(), IsEmpty());
  payment.dollars = "";
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(PaymentDoubts, NameWhatRecordsDoNotBearByItsCaption) {
  payment.sequence = "12345";
  payment.enteredBy = std::string(31, 'x');
  payment.title = std::string(21, 'x');
  EXPECT_THAT(Told(), ElementsAre("Sequence: 5 characters instead of four, which shifts the columns of all records.",
                                  "Entered by: 31 characters, and a record has room for 30: shorten it.",
                                  "Title: 21 characters, and a record has room for 20: shorten it."));
}

TEST_F(PaymentDoubts, CountCharactersAndNotBytes) {
  payment.enteredBy = " ééééééééééééééééééééééééééééxx ";
  payment.sequence = "é";
  EXPECT_THAT(Told(), ElementsAre("Sequence: 1 character instead of four, which shifts the columns of all records."));
}

TEST_F(PaymentDoubts, StopAnAmountThatIsNone) {
  payment.cents = "abc";
  EXPECT_THAT(Told(), ElementsAre("! Amount in cents: \"abc\" is no amount in cents: up to 15 digits and nothing else, "
                                  "such as 12345."));
  for (const char* cents : {"1e400", "123.45", "1 000", "1234567890123456"}) {
    payment.cents = cents;
    EXPECT_EQ(Told().size(), 1U) << cents;
  }
}

TEST_F(PaymentDoubts, StopDollarsThatAreNoneWhateverTheCentsAre) {
  for (const std::string dollars : {"12.3456", "$5.00", "1 234.50", "abc"}) {
    payment.dollars = dollars;
    EXPECT_THAT(Told(), ElementsAre("! In dollars: \"" + dollars +
                                    "\" is no amount in dollars: digits, and at most two of them behind a point, such "
                                    "as 123.45."));
  }
}

TEST_F(PaymentDoubts, TellOfNoAmountAndGoOn) {
  payment.cents = payment.dollars = " ";
  EXPECT_THAT(Told(), ElementsAre("Amount in cents: nothing, which screens take for $0.00."));
}

TEST_F(PaymentDoubts, StopADateThatIsNone) {
  payment.date = "2026-02-29";
  EXPECT_THAT(Told(),
              ElementsAre("! Payment date: \"2026-02-29\" is no date: year, month and day, such as 2026-06-15."));
}

TEST_F(PaymentDoubts, TellOfLettersThatAreLost) {
  payment.enteredBy = "Łukasz";
  EXPECT_THAT(Told(), ElementsAre("Entered by: \"Łukasz\" becomes \"?ukasz\": forms and records know Western European "
                                  "letters alone."));
}

TEST_F(PaymentDoubts, StopAtAFileThatCantBe) {
  payment.file = "";
  EXPECT_THAT(Told(), ElementsAre("! Record file: no file is named."));
  payment.file = folder.Path();
  EXPECT_THAT(Told(), ElementsAre("! Record file: \"" + folder.Path() + "\" is a folder: name a file in it."));
}

TEST_F(PaymentDoubts, LookAtNoFileWhereRecordsAreHandedBack) {
  payment.file = folder.Path();
  payment.destination = Payment::Destination::Collection;
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(PaymentDoubts, AskBeforeAnythingButRecordsIsReplaced) {
  EXPECT_EQ(QuestionAbout(payment), "");
  folder.Write("payment.pc4", "Dear Ms Roy,");
  EXPECT_EQ(QuestionAbout(payment), "\"" + folder.Path("payment.pc4") +
                                        "\" is no record file. It has 12 bytes, and begins with \"Dear Ms Roy,\".\n\n"
                                        "Shall the records of this payment take its place?");
  payment.destination = Payment::Destination::Collection;
  EXPECT_EQ(QuestionAbout(payment), "");
}

}  // namespace
}  // namespace fiscalon

#include "tools/reading/payment_advice.h"

#include <gtest/gtest.h>

#include "core/platform/code_page.h"
#include "tests/support/module_test.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

/// A payment whose records go to a file in a folder of the test's own, where nothing is wrong with it.
class PaymentAdvice : public ModuleTest {
 protected:
  PaymentAdvice() {
    session.SeqNumber("0001");
    session.EnterName(FromUtf8("Hélène Côté"));
    session.EnterTitle("Clerk");
    session.GovFilename(folder.Path("payment.pc4"));
    session.WriteFile(true);
  }

  std::string On(int32_t number) const { return AdviceOn(RuntimeError(number, "words of the library"), session); }

  TemporaryFolder folder;
  Levyra session;
};

TEST_F(PaymentAdvice, NamesTheFolderThatIsMissing) {
  const std::string path = folder.Path("no/such/payment.pc4");
  session.GovFilename(path);
  EXPECT_EQ(On(76), "GovFilename is \"" + path + "\", and there is no folder \"" + folder.Path("no/such") +
                        "\": make it, or name another file.");
}

TEST_F(PaymentAdvice, NamesTheFolderOfTheLogsWhereTheFilesIsThere) {
  Levyra::MainPath(folder.Path("logs"));
  EXPECT_EQ(On(76), "MainPath is \"" + folder.Path("logs") +
                        "\", and there is no such folder for error.log: make it, or name another.");
}

TEST_F(PaymentAdvice, TellsAnEmptyNameAFolderAndAFileThatCantBeWrittenApart) {
  EXPECT_EQ(On(75), "GovFilename is \"" + folder.Path("payment.pc4") +
                        "\", and that file can't be written: look at its permissions and its folder's.");
  session.GovFilename(folder.Path());
  EXPECT_EQ(On(75), "GovFilename is \"" + folder.Path() + "\", which is a folder: name a file in it.");
  session.GovFilename("");
  EXPECT_EQ(On(75), "GovFilename is empty, and WriteFile is True: name the file that the records go to.");
}

TEST_F(PaymentAdvice, NamesTheFileWhoseDiskIsFullAndTheOneThatStays) {
  EXPECT_EQ(On(61), "GovFilename is \"" + folder.Path("payment.pc4") +
                        "\", and its disk is full: make room, then show the payment again.");
  EXPECT_EQ(On(70), "GovFilename is \"" + folder.Path("payment.pc4") +
                        "\", and the older file of that name can't be deleted: look at the permissions of its folder.");
}

TEST_F(PaymentAdvice, NamesThePropertyThatIsTooLong) {
  EXPECT_EQ(On(5), "");
  session.EnterTitle(std::string(21, 'x'));
  EXPECT_EQ(On(5), "EnterTitle has 21 characters, and a record has room for 20: shorten it.");
  // Accents are one character each; blanks around a name don't go into a record.
  session.EnterName(" " + FromUtf8("é") + std::string(30, 'x') + " ");
  EXPECT_EQ(On(5), "EnterName has 31 characters, and a record has room for 30: shorten it.");
}

TEST_F(PaymentAdvice, ShowsTheAmountAsTheLibraryHasIt) {
  session.PaidAmount("12345");
  EXPECT_EQ(On(13),
            "PaidAmount is \"123.45\", in dollars: it, or an amount that was typed, is no number or too large. Correct "
            "it; shown again, the screen goes on with what was typed.");
}

TEST_F(PaymentAdvice, SaysNothingWhereTheErrorSaysAll) {
  for (const int32_t number : {91, 400, 9, 457}) EXPECT_EQ(On(number), "") << number;
}

TEST_F(PaymentAdvice, CallsThePropertiesAsItIsTold) {
  session.EnterName(std::string(31, 'x'));
  const RuntimeError tooLong(5, "words of the library");
  EXPECT_EQ(AdviceOn(tooLong, session, {.enterName = "Entered by"}),
            "Entered by has 31 characters, and a record has room for 30: shorten it.");
}

}  // namespace
}  // namespace fiscalon

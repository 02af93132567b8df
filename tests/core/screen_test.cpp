#include "core/screen.h"

#include <gmock/gmock.h>

#include "core/module_to_change.h"
#include "core/platform/runtime_error.h"
#include "tests/support/memory_files.h"
#include "tests/support/module_test.h"
#include "tests/support/raises.h"
#include "tests/support/ruled_record.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

class BareScreen : public Screen {
  using Self = BareScreen;

 public:
  BareScreen() : Screen("frmBare", "A screen under test") {}

  // clang-format off
  TextField txtA      {*this, "txtA",      {.tabIndex = 0, .maxLength = 3}};
  TextField txtB      {*this, "txtB",      {.tabIndex = 1}};
  Button    cmdOK     {*this, "cmdOK",     {.caption = "&OK"}, {.click = OnOk(&Self::IsValid, &Self::Write)}};
  Button    cmdCancel {*this, "cmdCancel", {.caption = "Cancel", .cancel = true}, {}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

  using Screen::Accepted;
  using Screen::BeginRecords;
  using Screen::Cancelled;
  using Screen::CancelOnClosing;
  using Screen::Chosen;
  using Screen::EndRecords;
  using Screen::FreeRecord;
  using Screen::GovernmentRecord;
  using Screen::Payment;
  using Screen::SendRecord;

  void Press(Button& button) { FormUser(*this).acts.Click(button); }

  mutable std::vector<std::string> accesses;
  std::vector<std::string> calls;
  bool isValid = true;
  bool outputFails = false;

 protected:
  void Accessed(std::string_view access, std::string_view property) const override {
    accesses.push_back(std::string(access) + " " + std::string(property));
  }

 private:
  bool IsValid() {
    calls.emplace_back("IsValid");
    return isValid;
  }
  void Write() {
    if (outputFails)
      Raise(error_number::kDiskFull);
    calls.emplace_back(Chosen() == kTrue ? "Write, chosen" : "Write, not chosen");
  }

  Layout layout_;
};

class ScreenContract : public ModuleTest {
 protected:
  ScreenContract() { ModuleToChange().files = files; }

  /// Shows the screen and runs code while it is up.
  void WhileUp(const std::function<void()>& act) {
    ServingToolkit frontEnd;
    frontEnd.serve = act;
    screen.ShowModal(frontEnd);
  }

  void WriteTo(std::string_view path) {
    screen.WriteFile(kTrue);
    screen.GovFilename(path);
  }

  std::vector<std::string> Collected() {
    std::vector<std::string> records;
    for (const PC4& record : *screen.PC4Records())
      records.push_back(record.TheDate() + "|" + record.Amount() + "|" + record.Description());
    return records;
  }

  std::shared_ptr<MemoryFiles> files = std::make_shared<MemoryFiles>();
  BareScreen screen;
};

TEST_F(ScreenContract, PropertiesBeginEmpty) {
  EXPECT_EQ(screen.SeqNumber() + screen.EnterName() + screen.EnterTitle() + screen.GovFilename() + screen.CompName() +
                screen.PaidAmount() + screen.PaidDate() + screen.CompCode(),
            "");
  EXPECT_EQ(screen.WriteFile(), 0);
  EXPECT_EQ(screen.APHoldFlg(), 0);
  EXPECT_EQ(screen.Chosen(), 0);
}

TEST_F(ScreenContract, PropertiesKeepWhatIsSet) {
  screen.SeqNumber("seq");
  screen.EnterName("name");
  screen.EnterTitle("title");
  screen.GovFilename("file");
  screen.CompName("biller");
  screen.PaidAmount("1.5");
  screen.PaidDate("date");
  screen.CompCode("code");
  screen.APHoldFlg(255);
  screen.WriteFile(-2);
  EXPECT_EQ(screen.SeqNumber(), "seq");
  EXPECT_EQ(screen.EnterName(), "name");
  EXPECT_EQ(screen.EnterTitle(), "title");
  EXPECT_EQ(screen.GovFilename(), "file");
  EXPECT_EQ(screen.CompName(), "biller");
  EXPECT_EQ(screen.PaidAmount(), "1.5");
  EXPECT_EQ(screen.PaidDate(), "date");
  EXPECT_EQ(screen.CompCode(), "code");
  EXPECT_EQ(screen.APHoldFlg(), 255);
  EXPECT_EQ(screen.WriteFile(), -2);
}

TEST_F(ScreenContract, EachAccessFromOutsideIsHeard) {
  screen.SeqNumber("1");
  screen.SeqNumber();
  screen.Chosen();
  screen.PC4Records();
  EXPECT_THAT(screen.accesses, ElementsAre("Let SeqNumber", "Get SeqNumber", "Get Chosen", "Get PC4Records"));
}

TEST_F(ScreenContract, TouchingAPropertyDoesNotLoadTheForm) {
  screen.CompName("biller");
  screen.PC4Records();
  EXPECT_FALSE(screen.IsLoaded());
}

TEST_F(ScreenContract, CollectionIsMadeOnceAndOnFirstUse) {
  const auto first = screen.PC4Records();
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->Count(), 0);
  EXPECT_EQ(screen.PC4Records(), first);
}

TEST_F(ScreenContract, PaidDateIsRearrangedWhateverIsThere) {
  const std::pair<const char*, const char*> rows[] = {
      {"06152026", "15/06/2026"}, {"", "//"},           {"0", "/0/"},
      {"061", "1/06/"},           {"06152", "15/06/2"}, {"abcdefghij", "cd/ab/efgh"}};
  for (const auto& [given, shown] : rows) {
    screen.PaidDate(given);
    EXPECT_EQ(screen.Payment().ShownDate(), shown);
  }
}

TEST_F(ScreenContract, PaymentIsHeldByAFlagOfOneAlone) {
  const std::pair<uint8_t, bool> rows[] = {{uint8_t{0}, false}, {uint8_t{1}, true}, {uint8_t{2}, false}};
  for (const auto& [flag, held] : rows) {
    screen.APHoldFlg(flag);
    EXPECT_EQ(screen.Payment().IsHeld(), held) << int{flag};
  }
}

TEST_F(ScreenContract, AcceptanceAnswersTrueAndHides) {
  WhileUp([&] {
    screen.Accepted();
    EXPECT_FALSE(screen.IsUp());
  });
  EXPECT_EQ(screen.Chosen(), kTrue);
  EXPECT_TRUE(screen.IsLoaded());
}

TEST_F(ScreenContract, OkJudgesThenWritesThenAccepts) {
  WhileUp([&] {
    screen.Press(screen.cmdOK);
    EXPECT_FALSE(screen.IsUp());
  });
  EXPECT_THAT(screen.calls, ElementsAre("IsValid", "Write, not chosen"));
  EXPECT_EQ(screen.Chosen(), kTrue);
}

TEST_F(ScreenContract, OkDoesNothingMoreOnAFormThatIsRefused) {
  screen.isValid = false;
  WhileUp([&] {
    screen.Press(screen.cmdOK);
    EXPECT_TRUE(screen.IsUp());
  });
  EXPECT_THAT(screen.calls, ElementsAre("IsValid"));
  EXPECT_EQ(screen.Chosen(), kFalse);
}

TEST_F(ScreenContract, OkLetsAFailedOutputOut) {
  screen.outputFails = true;
  EXPECT_EQ(ErrorOf([&] { WhileUp([&] { screen.Press(screen.cmdOK); }); }), 61);
  EXPECT_EQ(screen.Chosen(), kFalse);
  EXPECT_TRUE(screen.IsLoaded());
}

TEST_F(ScreenContract, CancelAnswersFalseAndHides) {
  screen.Chosen(kTrue);
  WhileUp([&] {
    screen.Cancelled();
    EXPECT_FALSE(screen.IsUp());
  });
  EXPECT_EQ(screen.Chosen(), kFalse);
  EXPECT_TRUE(screen.IsLoaded());
}

TEST_F(ScreenContract, ClosingCancelsForTheWindowTheSystemAndTheTaskManager) {
  for (const int reason : {0, 2, 3}) {
    screen.Chosen(kTrue);
    WhileUp([&] { screen.CancelOnClosing(static_cast<CloseReason>(reason)); });
    EXPECT_EQ(screen.Chosen(), kFalse) << reason;
  }
  for (const int reason : {1, 4, 5}) {
    screen.Chosen(kTrue);
    WhileUp([&] {
      screen.CancelOnClosing(static_cast<CloseReason>(reason));
      EXPECT_TRUE(screen.IsUp());
    });
    EXPECT_EQ(screen.Chosen(), kTrue) << reason;
  }
}

TEST_F(ScreenContract, ChosenIsNotResetByLoading) {
  screen.Chosen(kTrue);
  WhileUp([] {});
  screen.Unload();
  WhileUp([] {});
  EXPECT_EQ(screen.Chosen(), kTrue);
}

TEST_F(ScreenContract, RecordsGoToTheFileInQuotedLines) {
  WriteTo("f");
  screen.BeginRecords();
  EXPECT_EQ(files->openFiles, 1);
  screen.SendRecord("first \"quoted\"");
  screen.SendRecord("second");
  screen.EndRecords();
  EXPECT_EQ(files->contents["f"], "\"first \"quoted\"\"\r\n\"second\"\r\n");
  EXPECT_EQ(files->openFiles, 0);
  EXPECT_EQ(screen.PC4Records()->Count(), 0);
}

TEST_F(ScreenContract, OutputDeletesTheOldFile) {
  files->contents["f"] = "old";
  files->contents["other"] = "stays";
  WriteTo("f");
  screen.BeginRecords();
  EXPECT_EQ(files->contents["f"], "");
  EXPECT_EQ(files->contents["other"], "stays");
}

TEST_F(ScreenContract, FileThatCannotBeDeletedFailsTheOutput) {
  files->contents["f"] = "old";
  files->deletingFails = true;
  WriteTo("f");
  EXPECT_EQ(ErrorOf([&] { screen.BeginRecords(); }), 70);
  EXPECT_EQ(files->contents["f"], "old");
  EXPECT_EQ(files->openFiles, 0);
}

TEST_F(ScreenContract, RecordsGoToTheCollectionUnlessWriteFileIsExactlyTrue) {
  screen.GovFilename("f");
  for (const int16_t value : {int16_t{0}, int16_t{1}, int16_t{-2}}) {
    screen.WriteFile(value);
    screen.BeginRecords();
    screen.SendRecord("first");
    screen.SendRecord("second");
    screen.EndRecords();
    EXPECT_THAT(Collected(), ElementsAre("||first", "||second")) << value;
  }
  EXPECT_TRUE(files->contents.empty());
}

TEST_F(ScreenContract, OutputEmptiesTheSameCollection) {
  const auto held = screen.PC4Records();
  held->Add("", "", "old");
  screen.BeginRecords();
  EXPECT_EQ(held->Count(), 0);
  EXPECT_EQ(screen.PC4Records(), held);
}

TEST_F(ScreenContract, FileOutputLeavesTheCollectionAlone) {
  screen.PC4Records()->Add("", "", "old");
  WriteTo("f");
  screen.BeginRecords();
  screen.EndRecords();
  EXPECT_THAT(Collected(), ElementsAre("||old"));
}

TEST_F(ScreenContract, FullDiskLeavesTheFileOpenUntilTheNextOutput) {
  files->printsLeft = 1;
  WriteTo("f");
  screen.BeginRecords();
  screen.SendRecord("first");
  EXPECT_EQ(ErrorOf([&] { screen.SendRecord("second"); }), 61);
  EXPECT_EQ(files->openFiles, 1);
  EXPECT_EQ(files->contents["f"], "\"first\"\r\n");
  screen.WriteFile(kFalse);
  screen.BeginRecords();
  EXPECT_EQ(files->openFiles, 0);
  screen.SendRecord("third");
  screen.EndRecords();
  EXPECT_THAT(Collected(), ElementsAre("||third"));
}

TEST_F(ScreenContract, FileLeftOpenIsClosedWhenTheFormUnloads) {
  WriteTo("f");
  WhileUp([&] { screen.BeginRecords(); });
  EXPECT_EQ(files->openFiles, 1);
  screen.Unload();
  EXPECT_EQ(files->openFiles, 0);
}

TEST_F(ScreenContract, GovernmentRecordCarriesTheContactTrimmed) {
  screen.SeqNumber("0001");
  screen.EnterName("  Jane Doe ");
  screen.EnterTitle(" Clerk ");
  // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
  EXPECT_EQ(screen.GovernmentRecord({.periodDueDate = "202612"}),
            Ruled("PC40001T                202612          Jane Doe                      Clerk"));
  EXPECT_EQ(screen.GovernmentRecord(),
            Ruled("PC40001T                                Jane Doe                      Clerk"));
}

TEST_F(ScreenContract, ContactThatIsTooLongFailsTheRecord) {
  screen.SeqNumber("0001");
  screen.EnterName(std::string(30, 'n'));
  screen.EnterTitle(std::string(20, 't'));
  EXPECT_EQ(screen.GovernmentRecord().size(), 160U);
  screen.EnterName(std::string(31, 'n'));
  EXPECT_EQ(ErrorOf([&] { screen.GovernmentRecord(); }), 5);
  screen.EnterName("");
  screen.EnterTitle(std::string(21, 't'));
  EXPECT_EQ(ErrorOf([&] { screen.GovernmentRecord(); }), 5);
}

TEST_F(ScreenContract, FreeRecordCarriesTheSequence) {
  screen.SeqNumber("0001");
  EXPECT_EQ(screen.FreeRecord({{"01", "000000000000012345"}, {"02", "2026"}}),
            // head  |number and value    |number and value    |
            Ruled("PC40001F01000000000000012345022026"));
}

}  // namespace
}  // namespace fiscalon

#include "core/logging.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/module_to_change.h"
#include "tests/support/module_test.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

class Logs : public ModuleTest {
 protected:
  Logs() {
    std::filesystem::create_directory(folder.Path("Zelmor"));
    ModuleToChange().mainPath = folder.Path();
    ModuleToChange().playByPlayEnabled = -1;
    ModuleToChange().customerNumber = " 10077 ";
    ModuleToChange().sessionNumber = 456;
  }

  std::string PlayByPlay() const { return folder.Read("Zelmor/PBP.txt"); }
  std::string ErrorLog() const { return folder.Read("error.log"); }

  TemporaryFolder folder;
};

using WritePlayByPlayTest = Logs;
using ShowErrorTest = Logs;

TEST_F(WritePlayByPlayTest, AppendsOneLineForEachEvent) {
  WritePlayByPlay("modLevyra - RecalcFormQueRevSrcDeduct");
  WritePlayByPlay("frmQue_Rev_SourceDeduct - Form_Load");
  EXPECT_EQ(PlayByPlay(),
            "2026-06-15 1:05:09 p.m. FISCALON - modLevyra - RecalcFormQueRevSrcDeduct\r\n"
            "2026-06-15 1:05:09 p.m. FISCALON - frmQue_Rev_SourceDeduct - Form_Load\r\n");
}

TEST_F(WritePlayByPlayTest, ShowsTheDateInTheUsersForm) {
  SetLocale(EnglishUnitedStates());
  WritePlayByPlay("x");
  EXPECT_EQ(PlayByPlay(), "6/15/2026 1:05:09 PM FISCALON - x\r\n");
}

TEST_F(WritePlayByPlayTest, DropsWhatTheFileHeldWhenToldTo) {
  WritePlayByPlay("first");
  WritePlayByPlay("second", LogReset::Drop);
  EXPECT_EQ(PlayByPlay(), "2026-06-15 1:05:09 p.m. FISCALON - second\r\n");
}

TEST_F(WritePlayByPlayTest, AnyValueButZeroTurnsItOn) {
  ModuleToChange().playByPlayEnabled = 1;
  WritePlayByPlay("x");
  EXPECT_NE(PlayByPlay(), "");
}

TEST_F(WritePlayByPlayTest, TouchesNoFileWhenItIsOff) {
  ModuleToChange().playByPlayEnabled = 0;
  WritePlayByPlay("x");
  EXPECT_FALSE(std::filesystem::exists(folder.Path("Zelmor/PBP.txt")));
}

TEST_F(WritePlayByPlayTest, TouchesNoFileWithoutAMainPath) {
  ModuleToChange().mainPath = "  ";
  WritePlayByPlay("x");
  EXPECT_FALSE(std::filesystem::exists(folder.Path("Zelmor/PBP.txt")));
}

TEST_F(WritePlayByPlayTest, IgnoresAMissingFolder) {
  ModuleToChange().mainPath = folder.Path("nowhere");
  EXPECT_EQ(ErrorOf([] { WritePlayByPlay("x"); }), 0);
}

TEST_F(ShowErrorTest, WritesOneLineOfElevenPieces) {
  ModuleToChange().playByPlayEnabled = 0;
  ShowError(13, "Type mismatch", "clsValidateAddInfo.IsInfoValid at line 0", Silent::Yes);
  EXPECT_EQ(ErrorLog(),
            "2026-06-15 1:05:09 p.m.,Fiscalon,10077,456,13,\"Type mismatch\","
            "\"clsValidateAddInfo.IsInfoValid at line 0\"\r\n");
}

TEST_F(ShowErrorTest, AppendsToAnOlderLog) {
  folder.Write("error.log", "older\r\n");
  ShowError(6, "Overflow", "x", Silent::Yes);
  EXPECT_EQ(ErrorLog(), "older\r\n2026-06-15 1:05:09 p.m.,Fiscalon,10077,456,6,\"Overflow\",\"x\"\r\n");
}

TEST_F(ShowErrorTest, ALineEndWithinATextStandsAsBlanks) {
  ShowError(5, "first\r\nsecond", "form\nroutine", Silent::Yes);
  EXPECT_EQ(ErrorLog(), "2026-06-15 1:05:09 p.m.,Fiscalon,10077,456,5,\"first  second\",\"form routine\"\r\n");
}

TEST_F(ShowErrorTest, LeavesQuotesInsideATextAsTheyAre) {
  ShowError(-2147221503, "a \"b\", c", "p", Silent::Yes);
  EXPECT_EQ(ErrorLog(), "2026-06-15 1:05:09 p.m.,Fiscalon,10077,456,-2147221503,\"a \"b\", c\",\"p\"\r\n");
}

TEST_F(ShowErrorTest, ShowsACriticalBoxUnlessSilent) {
  ShowError(5, "Invalid procedure call or argument", "frmQue_Rev_SourceDeduct.DoWrite", Silent::No);
  ASSERT_EQ(toolkit.boxes.size(), 1u);
  EXPECT_EQ(toolkit.boxes[0].text,
            "The following error: 'Invalid procedure call or argument (Error 5)' occurred in procedure "
            "'frmQue_Rev_SourceDeduct.DoWrite'.");
  EXPECT_EQ(toolkit.boxes[0].style, MessageStyle::Critical);
  EXPECT_EQ(toolkit.boxes[0].title, "");
  ShowError(5, "x", "y", Silent::Yes);
  EXPECT_EQ(toolkit.boxes.size(), 1u);
}

TEST_F(ShowErrorTest, LogsItsOwnEntryInThePlayByPlay) {
  ShowError(6, "Overflow", "x", Silent::Yes);
  EXPECT_EQ(PlayByPlay(), "2026-06-15 1:05:09 p.m. FISCALON - BULK - ShowError\r\n");
}

TEST_F(ShowErrorTest, AFolderThatIsMissingIsTheCallersError) {
  ModuleToChange().mainPath = folder.Path("nowhere");
  EXPECT_EQ(ErrorOf([] { ShowError(6, "Overflow", "x", Silent::Yes); }), 76);
}

TEST_F(ShowErrorTest, WithoutAMainPathTheLogIsInTheCurrentFolder) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  ModuleToChange().mainPath.clear();
  ShowError(6, "Overflow", "x", Silent::Yes);
  std::filesystem::current_path(before);
  EXPECT_NE(ErrorLog(), "");
}

TEST(ErrorReason, NamesNumberAndDescription) {
  EXPECT_EQ(ErrorReason(RuntimeError(13, "Type mismatch")), "Error 13 - Type mismatch");
}

}  // namespace
}  // namespace fiscalon

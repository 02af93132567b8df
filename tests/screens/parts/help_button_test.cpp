#include "screens/parts/help_button.h"

#include "core/platform/files.h"
#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;
using testing::Pair;

class HelpForm : public PartForm {
 public:
  HelpButton cmdHelp{*this, "cmdHelp", {.caption = "&Help"}, {.mouseDown = [this] { ++pressed; }}};
  int pressed = 0;

 private:
  void Form_Load() override { cmdHelp.FindFolder(Payment().govFilename); }
};

class HelpButtonTest : public PartTest<HelpForm> {};

TEST_F(HelpButtonTest, OpensTheFileThreeFoldersAboveTheRecords) {
  form.GovFilename(NativePath("\\pay\\ZELMOR\\0001\\gov\\payment.pc4"));
  WhileUp([&](FormUser& user) { user.acts.Click(form.cmdHelp); });
  EXPECT_THAT(toolkit.help, ElementsAre(Pair(NativePath("\\pay\\ZELMOR\\ZELMOR.CHM>ShowTopic"), 100000004)));
}

TEST_F(HelpButtonTest, OpensTheBareFileWhereThereAreFewerFolders) {
  form.GovFilename("payment.pc4");
  WhileUp([&](FormUser& user) { user.acts.Click(form.cmdHelp); });
  EXPECT_THAT(toolkit.help, ElementsAre(Pair("ZELMOR.CHM>ShowTopic", 100000004)));
}

TEST_F(HelpButtonTest, KeepsTheFolderThatItFoundAtLoad) {
  form.GovFilename("payment.pc4");
  WhileUp([&](FormUser& user) {
    form.GovFilename(NativePath("\\a\\b\\c\\d"));
    user.acts.Click(form.cmdHelp);
  });
  EXPECT_THAT(toolkit.help, ElementsAre(Pair("ZELMOR.CHM>ShowTopic", 100000004)));
}

TEST_F(HelpButtonTest, HasTheFormsOwnHandlersToo) {
  WhileUp([&](FormUser& user) {
    user.acts.Click(form.cmdHelp);
    EXPECT_TRUE(form.IsUp());
  });
  EXPECT_EQ(form.pressed, 1);
}

}  // namespace
}  // namespace fiscalon

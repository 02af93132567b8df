#include <gmock/gmock.h>

#include "tests/screens/quebec/source_deductions_entries.h"
#include "tests/support/memory_files.h"

namespace fiscalon::quebec_source_deductions_play_by_play_test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

// The play-by-play log of an act, without what stands before each text.
class QuebecSourceDeductionsPlayByPlay : public ScreenTest {
 protected:
  QuebecSourceDeductionsPlayByPlay() {
    ModuleToChange().files = files;
    Levyra::MainPath("logs");
    Levyra::PlayByPlayEnabled(kTrue);
    session.PaidAmount("1500");
  }

  std::vector<std::string> TakeLines() {
    const std::string head = "2026-06-15 1:05:09 p.m. FISCALON - ";
    std::string& log = files->contents["logs/Zelmor/PBP.txt"];
    std::vector<std::string> lines;
    for (size_t from = 0, end = 0; from < log.size(); from = end + 2) {
      end = log.find("\r\n", from);
      EXPECT_EQ(log.substr(from, head.size()), head);
      lines.push_back(log.substr(from + head.size(), end - from - head.size()));
    }
    log.clear();
    return lines;
  }

  std::shared_ptr<MemoryFiles> files = std::make_shared<MemoryFiles>();

  /// The log of leaving an amount that changes as it is shown.
  static std::vector<std::string> LinesOfLeaving(const std::string& field) {
    return {"frmQue_Rev_SourceDeduct - " + field + "_LostFocus", "frmQue_Rev_SourceDeduct - CheckValues",
            "frmQue_Rev_SourceDeduct - " + field + "_Change", "modLevyra - RecalcFormQueRevSrcDeduct"};
  }
};

TEST_F(QuebecSourceDeductionsPlayByPlay, TellsTheLaunchAndTheClosing) {
  session.CompCode("001051");
  Show<frmQue_Rev_SourceDeduct>("20", [&](frmQue_Rev_SourceDeduct&, UserDriver&) {
    EXPECT_THAT(TakeLines(),
                ElementsAre("frmQue_Rev_SourceDeduct - Let CompName", "frmQue_Rev_SourceDeduct - Let PaidAmount",
                            "frmQue_Rev_SourceDeduct - Let PaidDate", "frmQue_Rev_SourceDeduct - Let EnterName",
                            "frmQue_Rev_SourceDeduct - Let EnterTitle", "frmQue_Rev_SourceDeduct - Let GovFilename",
                            "frmQue_Rev_SourceDeduct - Let SeqNumber", "frmQue_Rev_SourceDeduct - Let APHoldFlg",
                            "frmQue_Rev_SourceDeduct - Let CompCode", "frmQue_Rev_SourceDeduct - Let WriteFile",
                            // The launch calls the routine; the first control that it touches loads the form.
                            "frmQue_Rev_SourceDeduct - SetupForm", "frmQue_Rev_SourceDeduct - Form_Load",
                            "frmQue_Rev_SourceDeduct - SetupForm"));
  });
  EXPECT_THAT(TakeLines(),
              ElementsAre("frmQue_Rev_SourceDeduct - Form_QueryUnload", "frmQue_Rev_SourceDeduct - Get Chosen"));
}

TEST_F(QuebecSourceDeductionsPlayByPlay, TellsTypingAndMovingOn) {
  Show<frmQue_Rev_SourceDeduct>("20", [&](frmQue_Rev_SourceDeduct&, UserDriver& user) {
    TakeLines();
    Type(user, "2");
    EXPECT_THAT(TakeLines(), ElementsAre("frmQue_Rev_SourceDeduct - Form_KeyDown",
                                         "frmQue_Rev_SourceDeduct - txtRemittancePeriod_Change"));
    // The filter changes the text once more.
    Type(user, "x");
    EXPECT_THAT(TakeLines(), ElementsAre("frmQue_Rev_SourceDeduct - Form_KeyDown",
                                         "frmQue_Rev_SourceDeduct - txtRemittancePeriod_Change",
                                         "frmQue_Rev_SourceDeduct - txtRemittancePeriod_Change"));
    Type(user, "0260");
    TakeLines();
    Type(user, "6");
    EXPECT_THAT(TakeLines(), ElementsAre("frmQue_Rev_SourceDeduct - Form_KeyDown",
                                         "frmQue_Rev_SourceDeduct - txtRemittancePeriod_Change",
                                         "frmQue_Rev_SourceDeduct - txtRemittancePeriod_LostFocus",
                                         "modLevyra - IsValidRemittancePeriodQueRevSrcDeduct"));
    user.PressKey(*StrokeNamed("Tab"));
    TakeLines();
    // Dialog keys are no one's but the form's.
    user.PressKey(*StrokeNamed("Shift+Tab"));
    EXPECT_THAT(TakeLines(), ElementsAreArray(LinesOfLeaving("txtQPP")));
    user.PressKey(*StrokeNamed("Left"));
    EXPECT_THAT(TakeLines(), ElementsAre("frmQue_Rev_SourceDeduct - Form_KeyDown"));
    user.PressKey(*StrokeNamed("Escape"));
    EXPECT_THAT(TakeLines(), ElementsAre("frmQue_Rev_SourceDeduct - cmdCancel_Click"));
  });
}

TEST_F(QuebecSourceDeductionsPlayByPlay, TellsTheAmounts) {
  Show<frmQue_Rev_SourceDeduct>("20", [&](frmQue_Rev_SourceDeduct& form, UserDriver& user) {
    Type(user, "202606");
    for (const TextField* amount :
         {&form.txtIncomeTaxWithheld, &form.txtQPP, &form.txtHealthFund, &form.txtQPIP, &form.txtCSST}) {
      TakeLines();
      Type(user, "5");
      EXPECT_THAT(TakeLines(), ElementsAre("frmQue_Rev_SourceDeduct - Form_KeyDown",
                                           "frmQue_Rev_SourceDeduct - " + amount->Name() + "_Change"));
      user.PressKey({.keyCode = key::kEnter, .character = key::kEnter});
      std::vector<std::string> lines = LinesOfLeaving(amount->Name());
      lines.insert(lines.begin(), "frmQue_Rev_SourceDeduct - Form_KeyDown");
      EXPECT_THAT(TakeLines(), ElementsAreArray(lines));
    }
    EXPECT_EQ(user.FocusName(), "cmdOK");
    EXPECT_EQ(form.txtAmountPayable.Text(), "0.25");
  });
}

TEST_F(QuebecSourceDeductionsPlayByPlay, TellsSteppingBackAndARefusal) {
  Show<frmQue_Rev_SourceDeduct>("20", [&](frmQue_Rev_SourceDeduct& form, UserDriver& user) {
    Type(user, "202606-5");
    TakeLines();
    user.PressMouse(form.txtRemittancePeriod);
    EXPECT_THAT(TakeLines(), ElementsAre("frmQue_Rev_SourceDeduct - txtIncomeTaxWithheld_LostFocus"));
    user.PressKey(*StrokeNamed("Tab"));
    TakeLines();
    user.PressMouse(form.cmdOK);
    EXPECT_THAT(TakeLines(), ElementsAre("frmQue_Rev_SourceDeduct - txtIncomeTaxWithheld_LostFocus",
                                         "frmQue_Rev_SourceDeduct - CheckValues"));
    EXPECT_EQ(TakeBoxes().size(), 1U);
  });
}

TEST_F(QuebecSourceDeductionsPlayByPlay, TellsAChoiceAndOk) {
  session.CompCode("001052");
  Show<frmQue_Rev_SourceDeduct>("20", [&](frmQue_Rev_SourceDeduct& form, UserDriver& user) {
    FillIn(form, user);
    TakeLines();
    user.Choose(form.cmbRemittanceType, 1);
    EXPECT_THAT(TakeLines(), ElementsAre("frmQue_Rev_SourceDeduct - cmbRemittanceType_Click"));
    user.Click(form.cmdOK);
    EXPECT_THAT(TakeLines(),
                ElementsAre("frmQue_Rev_SourceDeduct - cmdOK_Click", "frmQue_Rev_SourceDeduct - ValidateForm",
                            "modLevyra - RecalcFormQueRevSrcDeduct", "frmQue_Rev_SourceDeduct - DoWrite"));
  });
  EXPECT_THAT(TakeLines(),
              ElementsAre("frmQue_Rev_SourceDeduct - Get Chosen", "frmQue_Rev_SourceDeduct - Get PC4Records"));
}

TEST_F(QuebecSourceDeductionsPlayByPlay, TellsAFailedOutput) {
  session.CompCode("001051");
  session.EnterName("abcdefghijklmnopqrstuvwxyz12345");
  Show<frmQue_Rev_SourceDeduct>("20", [&](frmQue_Rev_SourceDeduct& form, UserDriver& user) {
    FillIn(form, user);
    TakeLines();
    user.Click(form.cmdOK);
    EXPECT_THAT(
        TakeLines(),
        ElementsAre("frmQue_Rev_SourceDeduct - cmdOK_Click", "frmQue_Rev_SourceDeduct - ValidateForm",
                    "modLevyra - RecalcFormQueRevSrcDeduct", "frmQue_Rev_SourceDeduct - DoWrite", "BULK - ShowError"));
    EXPECT_EQ(TakeBoxes().size(), 1U);
  });
}

TEST_F(QuebecSourceDeductionsPlayByPlay, TellsEveryReading) {
  frmQue_Rev_SourceDeduct form;
  form.CompName();
  form.PaidAmount();
  form.PaidDate();
  form.EnterName();
  form.EnterTitle();
  form.GovFilename();
  form.SeqNumber();
  form.APHoldFlg();
  form.CompCode();
  form.WriteFile();
  form.PC4Records();
  form.Chosen();
  EXPECT_THAT(TakeLines(),
              ElementsAre("frmQue_Rev_SourceDeduct - Get CompName", "frmQue_Rev_SourceDeduct - Get PaidAmount",
                          "frmQue_Rev_SourceDeduct - Get PaidDate", "frmQue_Rev_SourceDeduct - Get EnterName",
                          "frmQue_Rev_SourceDeduct - Get EnterTitle", "frmQue_Rev_SourceDeduct - Get GovFilename",
                          "frmQue_Rev_SourceDeduct - Get SeqNumber", "frmQue_Rev_SourceDeduct - Get APHoldFlg",
                          "frmQue_Rev_SourceDeduct - Get CompCode", "frmQue_Rev_SourceDeduct - Get WriteFile",
                          "frmQue_Rev_SourceDeduct - Get PC4Records", "frmQue_Rev_SourceDeduct - Get Chosen"));
}

TEST_F(QuebecSourceDeductionsPlayByPlay, IsSilentWhenItIsOff) {
  Levyra::PlayByPlayEnabled(kFalse);
  session.CompCode("001051");
  EXPECT_TRUE(Show<frmQue_Rev_SourceDeduct>("20", [](frmQue_Rev_SourceDeduct& form, UserDriver& user) {
    FillIn(form, user);
    user.Click(form.cmdOK);
  }));
  EXPECT_FALSE(files->Exists("logs/Zelmor/PBP.txt"));
}

}  // namespace
}  // namespace fiscalon::quebec_source_deductions_play_by_play_test

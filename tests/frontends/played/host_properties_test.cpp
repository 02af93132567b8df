#include "frontends/played/host_properties.h"

#include <gtest/gtest.h>

#include "tests/support/module_test.h"

namespace fiscalon {
namespace {

class HostProperties : public ModuleTest {
 protected:
  void Set(const std::string& name, const std::string& value) {
    ASSERT_EQ(ComplaintAboutHostProperty(name, value), "");
    SetHostProperty(session, name, value);
  }

  Levyra session;
};

TEST_F(HostProperties, AreEveryLetOfTheSession) {
  for (const char* name : {"ZelmorNumber", "CompCode", "CompName", "AccountNumber", "PaidDate", "NumberOfInfoCollect",
                           "GovFilename", "EnterName", "EnterTitle", "SeqNumber", "BusinessName", "MainPath"})
    Set(name, std::string("the ") + name);
  EXPECT_EQ(session.ZelmorNumber(), "the ZelmorNumber");
  EXPECT_EQ(session.CompCode(), "the CompCode");
  EXPECT_EQ(session.CompName(), "the CompName");
  EXPECT_EQ(session.AccountNumber(), "the AccountNumber");
  EXPECT_EQ(session.PaidDate(), "the PaidDate");
  EXPECT_EQ(session.NumberOfInfoCollect(), "the NumberOfInfoCollect");
  EXPECT_EQ(session.GovFilename(), "the GovFilename");
  EXPECT_EQ(session.EnterName(), "the EnterName");
  EXPECT_EQ(session.EnterTitle(), "the EnterTitle");
  EXPECT_EQ(session.SeqNumber(), "the SeqNumber");
  EXPECT_EQ(session.BusinessName(), "the BusinessName");
  EXPECT_EQ(TheModule().mainPath, "the MainPath");
  Set("PaidAmount", "12345");
  EXPECT_EQ(session.PaidAmount(), "123.45");
}

TEST_F(HostProperties, AreToldWithWhatTheyAre) {
  constexpr const char* kTypes[] = {"text", "boolean", "byte", "float"};
  std::string told;
  for (const HostPropertyHelp& each : fiscalon::HostProperties())
    told.append(each.name).append(" (").append(kTypes[static_cast<int>(each.type)]).append("): ").append(each.help) +=
        '\n';
  EXPECT_EQ(told,
            "ZelmorNumber (text): The host's customer number\n"
            "CompCode (text): Biller code, such as 001052\n"
            "CompName (text): Biller name, shown on the screens\n"
            "AccountNumber (text): Account number; no screen receives it\n"
            "PaidAmount (text): Amount of the payment in cents: 12345 is 123.45\n"
            "PaidDate (text): Payment date: month, day, year in 8 digits\n"
            "NumberOfInfoCollect (text): How many items screen 07 collects, 1 to 12\n"
            "GovFilename (text): Record file to write\n"
            "EnterName (text): The person entering, up to 30 characters\n"
            "EnterTitle (text): That person's title, up to 20 characters\n"
            "APHoldFlg (byte): 1: the payment is on hold, without a fixed date\n"
            "SeqNumber (text): Four characters that head each record\n"
            "BusinessName (text): Name offered on screen 10\n"
            "WriteFile (boolean): True: records go to the file; False: they are printed\n"
            "PlayByPlayEnabled (boolean): True: keep a play-by-play log\n"
            "MainPath (text): Folder of the logs\n"
            "SessionNumber (float): The host's session number, for the error log\n");
}

TEST_F(HostProperties, TextsComeInUtf8) {
  Set("EnterName", "Hélène");
  EXPECT_EQ(session.EnterName(), "H\xe9l\xe8ne");
  Set("EnterName", "Ω");
  EXPECT_EQ(session.EnterName(), "?");
}

TEST_F(HostProperties, BooleansAreWordsOrNumbers) {
  Set("WriteFile", "True");
  EXPECT_EQ(session.WriteFile(), -1);
  Set("WriteFile", "False");
  EXPECT_EQ(session.WriteFile(), 0);
  Set("WriteFile", "1");
  EXPECT_EQ(session.WriteFile(), 1);
  Set("WriteFile", "0x7FFF");
  EXPECT_EQ(session.WriteFile(), 32767);
  Set("PlayByPlayEnabled", "True");
  EXPECT_EQ(TheModule().playByPlayEnabled, -1);
}

TEST_F(HostProperties, NumbersAreDecimalOrHexadecimal) {
  Set("APHoldFlg", "255");
  EXPECT_EQ(session.APHoldFlg(), 255);
  Set("APHoldFlg", "0x10");
  EXPECT_EQ(session.APHoldFlg(), 16);
  Set("SessionNumber", "123456");
  EXPECT_EQ(TheModule().sessionNumber, 456);
  Set("SessionNumber", "0x7D1");
  EXPECT_EQ(TheModule().sessionNumber, 1);
  Set("SessionNumber", "1234.5");
  EXPECT_EQ(TheModule().sessionNumber, 234);
  Set("SessionNumber", "-1e3");
  EXPECT_EQ(TheModule().sessionNumber, 0);
}

TEST_F(HostProperties, BadValuesAreNamed) {
  const std::string byte = "APHoldFlg takes a whole number from 0 to 255, not ";
  for (const char* value : {"256", "-1", "1.5", "x", "", "nan", "inf", "1e300"})
    EXPECT_EQ(ComplaintAboutHostProperty("APHoldFlg", value), byte + '"' + value + '"');
  const std::string number = "SessionNumber takes a number, not ";
  for (const char* value : {"x", "", "1 ", "+1", "nan", "inf"})
    EXPECT_EQ(ComplaintAboutHostProperty("SessionNumber", value), number + '"' + value + '"');
  const std::string boolean = "PlayByPlayEnabled takes True, False or a number from -32768 to 32767, not ";
  for (const char* value : {"yes", "", "40000"})
    EXPECT_EQ(ComplaintAboutHostProperty("PlayByPlayEnabled", value), boolean + '"' + value + '"');
}

TEST_F(HostProperties, UnknownPropertiesAreToldWithTheKnownOnes) {
  EXPECT_EQ(ComplaintAboutHostProperty("compname", "x"),
            "\"compname\" is no property that a host sets; there are ZelmorNumber, CompCode, CompName, AccountNumber, "
            "PaidAmount, PaidDate, NumberOfInfoCollect, GovFilename, EnterName, EnterTitle, APHoldFlg, SeqNumber, "
            "BusinessName, WriteFile, PlayByPlayEnabled, MainPath, SessionNumber");
  EXPECT_NE(ComplaintAboutHostProperty("ShowGST58", "True"), "") << "it can only be read";
}

}  // namespace
}  // namespace fiscalon

#include <string>
#include <thread>

#include "core/host_setup.h"
#include "core/module_state.h"
#include "core/module_to_change.h"
#include "core/value_routines.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "tests/component/host.h"
#include "tests/support/users_setting.h"

namespace fiscalon::component {
namespace {

using SessionTest = Component;

struct TextProperty {
  const wchar_t* name = nullptr;
  HRESULT (STDMETHODCALLTYPE _Levyra::*get)(BSTR*) = nullptr;
  HRESULT (STDMETHODCALLTYPE _Levyra::*put)(BSTR) = nullptr;
};

// All but the amount, which is read in dollars.
constexpr TextProperty kTexts[] = {
    {L"ZelmorNumber", &_Levyra::get_ZelmorNumber, &_Levyra::put_ZelmorNumber},
    {L"CompCode", &_Levyra::get_CompCode, &_Levyra::put_CompCode},
    {L"CompName", &_Levyra::get_CompName, &_Levyra::put_CompName},
    {L"AccountNumber", &_Levyra::get_AccountNumber, &_Levyra::put_AccountNumber},
    {L"PaidDate", &_Levyra::get_PaidDate, &_Levyra::put_PaidDate},
    {L"NumberOfInfoCollect", &_Levyra::get_NumberOfInfoCollect, &_Levyra::put_NumberOfInfoCollect},
    {L"GovFilename", &_Levyra::get_GovFilename, &_Levyra::put_GovFilename},
    {L"EnterName", &_Levyra::get_EnterName, &_Levyra::put_EnterName},
    {L"EnterTitle", &_Levyra::get_EnterTitle, &_Levyra::put_EnterTitle},
    {L"SeqNumber", &_Levyra::get_SeqNumber, &_Levyra::put_SeqNumber},
    {L"BusinessName", &_Levyra::get_BusinessName, &_Levyra::put_BusinessName},
};

/// The session of a host whose user fills screen "15" as told.
struct ShownSession {
  ShownSession() {
    UseToolkit(&toolkit);
    session->put_PaidAmount(HostText(L"12345"));
    session->put_SeqNumber(HostText(L"0001"));
  }
  ~ShownSession() { UseToolkit(nullptr); }
  ShownSession(const ShownSession&) = delete;
  ShownSession& operator=(const ShownSession&) = delete;

  VARIANT_BOOL Show() {
    VARIANT_BOOL chosen = 77;
    EXPECT_EQ(session->ShowLevyraScreen(HostText(L"15"), &chosen), S_OK);
    return chosen;
  }
  Reference<_PC4s> Records() {
    Reference<_PC4s> records;
    EXPECT_EQ(session->get_PC4Records(records.Place()), S_OK);
    return records;
  }

  ScriptedToolkit toolkit = {};
  Reference<_Levyra> session = NewSession();
};

void FillAndConfirm(Form& form, UserDriver& user) {
  for (const char key : std::string("202612")) user.Type(key);
  for (const char key : std::string("12345")) user.Type(key);
  user.Click(form.ControlNamed("cmdOK"));
}

TEST_F(SessionTest, KeepsEachText) {
  const Reference<_Levyra> session = NewSession();
  for (const TextProperty& property : kTexts) {
    EXPECT_EQ(TextOf(session.Get(), property.get), L"") << property.name;
    EXPECT_EQ((session.Get()->*property.put)(HostText(property.name)), S_OK);
  }
  for (const TextProperty& property : kTexts) EXPECT_EQ(TextOf(session.Get(), property.get), property.name);
}

TEST_F(SessionTest, KeepsEachTextByName) {
  const Reference<_Levyra> session = NewSession();
  for (const TextProperty& property : kTexts)
    EXPECT_EQ(Put(session.Get(), property.name, property.name).code, S_OK) << property.name;
  for (const TextProperty& property : kTexts) EXPECT_EQ(Get(session.Get(), property.name).value.Text(), property.name);
}

TEST_F(SessionTest, MembersHaveTheirNumbersInTheOrderOfTheirSlots) {
  const Reference<_Levyra> session = NewSession();
  const wchar_t* const names[] = {L"ZelmorNumber", L"CompCode",          L"CompName",         L"AccountNumber",
                                  L"PaidDate",     L"PaidAmount",        L"EnterTitle",       L"APHoldFlg",
                                  L"SeqNumber",    L"ShowGST58",         L"ShowLevyraScreen", L"WriteFile",
                                  L"PC4Records",   L"PlayByPlayEnabled", L"MainPath",         L"SessionNumber"};
  const DISPID ids[] = {1, 2, 3, 4, 6, 5, 10, 11, 12, 13, 15, 16, 17, 18, 19, 20};
  for (size_t each = 0; each < std::size(names); ++each) EXPECT_EQ(MemberNamed(session.Get(), names[each]), ids[each]);
}

TEST_F(SessionTest, AmountIsWrittenInCentsAndReadInDollars) {
  const Reference<_Levyra> session = NewSession();
  const std::pair<const wchar_t*, const wchar_t*> amounts[] = {
      {L"12345", L"123.45"}, {L"1200", L"12"}, {L"5", L".05"}, {L"99", L".99"}, {L"abc", L"0"}};
  for (const auto& [cents, dollars] : amounts) {
    EXPECT_EQ(session->put_PaidAmount(HostText(cents)), S_OK);
    EXPECT_EQ(TextOf(session.Get(), &_Levyra::get_PaidAmount), dollars);
  }
  EXPECT_EQ(Put(session.Get(), L"PaidAmount", 12345).code, S_OK);
  EXPECT_EQ(Get(session.Get(), L"PaidAmount").value.Text(), L"123.45");
}

TEST_F(SessionTest, AmountBeyondAllFloatsIsError6) {
  const Reference<_Levyra> session = NewSession();
  EXPECT_EQ(FailureOf(session->put_PaidAmount(HostText(L"1E400"))), RunTimeError(6, L"Overflow"));
}

TEST_F(SessionTest, HoldFlagIsAByte) {
  const Reference<_Levyra> session = NewSession();
  unsigned char flag = 9;
  EXPECT_EQ(session->get_APHoldFlg(&flag), S_OK);
  EXPECT_EQ(flag, 0);
  EXPECT_EQ(session->put_APHoldFlg(255), S_OK);
  EXPECT_EQ(session->get_APHoldFlg(&flag), S_OK);
  EXPECT_EQ(flag, 255);
  EXPECT_EQ(FailureOf(Put(session.Get(), L"APHoldFlg", 256).code), (Failed{DISP_E_OVERFLOW, L"Fiscalon", L"Overflow"}));
  EXPECT_EQ(Get(session.Get(), L"APHoldFlg").value.Type(), VT_UI1);
}

TEST_F(SessionTest, GST58IsNeverShown) {
  const Reference<_Levyra> session = NewSession();
  VARIANT_BOOL shown = VARIANT_TRUE;
  EXPECT_EQ(session->get_ShowGST58(&shown), S_OK);
  EXPECT_EQ(shown, VARIANT_FALSE);
  EXPECT_EQ(Get(session.Get(), L"ShowGST58").value.Type(), VT_BOOL);
}

TEST_F(SessionTest, ATruthThatIsAnotherNumberStaysThatNumber) {
  const Reference<_Levyra> session = NewSession();
  VARIANT_BOOL flag = 77;
  EXPECT_EQ(session->get_WriteFile(&flag), S_OK);
  EXPECT_EQ(flag, VARIANT_FALSE);
  EXPECT_EQ(session->put_WriteFile(1), S_OK);
  EXPECT_EQ(session->get_WriteFile(&flag), S_OK);
  EXPECT_EQ(flag, 1);
  // By name a number is turned into a truth first.
  EXPECT_EQ(Put(session.Get(), L"WriteFile", 1).code, S_OK);
  EXPECT_EQ(session->get_WriteFile(&flag), S_OK);
  EXPECT_EQ(flag, VARIANT_TRUE);
}

TEST_F(SessionTest, WhatHoldsForTheProcessIsWrittenAlone) {
  const Reference<_Levyra> session = NewSession();
  EXPECT_EQ(session->put_PlayByPlayEnabled(VARIANT_TRUE), S_OK);
  EXPECT_EQ(session->put_MainPath(HostText(L"C:\\logs")), S_OK);
  EXPECT_EQ(session->put_SessionNumber(123456.0), S_OK);
  EXPECT_EQ(TheModule().playByPlayEnabled, -1);
  EXPECT_EQ(TheModule().mainPath, "C:\\logs");
  EXPECT_EQ(TheModule().sessionNumber, 456);
  EXPECT_EQ(Get(session.Get(), L"MainPath").code, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(FailureOf(session->put_SessionNumber(1e10)), RunTimeError(6, L"Overflow"));
}

TEST_F(SessionTest, ANewSessionAsksForTheDecimalSeparator) {
  UseLocale("fr-CA");
  ModuleToChange().decimalSeparator = "?";
  NewSession();
  EXPECT_EQ(TheModule().decimalSeparator, ",");
}

TEST_F(SessionTest, ANewSessionFollowsTheUsersSettings) {
  UseLocale("system");
  {
    const UsersSetting now(LOCALE_SDECIMAL, L";");
    NewSession();
    EXPECT_EQ(TheModule().decimalSeparator, ";");
    EXPECT_EQ(KeepNumericChars("1,2;3.4"), "12;34");
  }
  EXPECT_NE(KeepNumericChars("1,2;3.4"), "12;34");
  EXPECT_EQ(TheModule().decimalSeparator, ";");
  NewSession();
  EXPECT_NE(TheModule().decimalSeparator, ";");
}

TEST_F(SessionTest, TextsAreOfTheCodePageInside) {
  const Reference<_Levyra> session = NewSession();
  // An accent has its place there, a check mark and a character of two units have none.
  session->put_EnterName(HostText(L"H\u00E9l\u00E8ne \u2713 \U0001F600 \u20AC"));
  EXPECT_EQ(TextOf(session.Get(), &_Levyra::get_EnterName), L"H\u00E9l\u00E8ne ? ? \u20AC");
  session->put_EnterName(nullptr);
  EXPECT_EQ(TextOf(session.Get(), &_Levyra::get_EnterName), L"");
  session->put_EnterName(HostText(std::wstring_view(L"a\0b", 3)));
  EXPECT_EQ(TextOf(session.Get(), &_Levyra::get_EnterName), std::wstring(L"a\0b", 3));
  const std::wstring longText(100 * 1024, L'\u00E9');
  session->put_EnterName(HostText(longText));
  EXPECT_EQ(TextOf(session.Get(), &_Levyra::get_EnterName), longText);
}

TEST_F(SessionTest, AResultWithoutAPlaceIsRefused) {
  const Reference<_Levyra> session = NewSession();
  const Failed refused{E_POINTER, L"Fiscalon", L"The call returns a value, and NULL was given for its place."};
  for (const TextProperty& property : kTexts)
    EXPECT_EQ(FailureOf((session.Get()->*property.get)(nullptr)), refused) << property.name;
  EXPECT_EQ(FailureOf(session->get_PaidAmount(nullptr)), refused);
  EXPECT_EQ(FailureOf(session->get_APHoldFlg(nullptr)), refused);
  EXPECT_EQ(FailureOf(session->get_ShowGST58(nullptr)), refused);
  EXPECT_EQ(FailureOf(session->get_WriteFile(nullptr)), refused);
  EXPECT_EQ(FailureOf(session->get_PC4Records(nullptr)), refused);
  EXPECT_EQ(FailureOf(session->ShowLevyraScreen(HostText(L"15"), nullptr)), refused);
}

TEST_F(SessionTest, AnUnknownScreenIsAnErrorOfItsOwn) {
  ShownSession host;
  const Failed unknown{static_cast<HRESULT>(0x80040001), L"Fiscalon.ShowLevyraScreen", L"Invalid Screen Type"};
  for (const wchar_t* code : {L"12", L"09", L" 15", L"15 ", L"", L"1"}) {
    VARIANT_BOOL chosen = VARIANT_TRUE;
    EXPECT_EQ(FailureOf(host.session->ShowLevyraScreen(HostText(code), &chosen)), unknown);
    EXPECT_EQ(chosen, VARIANT_FALSE);
    const Called called = Do(host.session.Get(), L"ShowLevyraScreen", {code});
    EXPECT_EQ(called.code, DISP_E_EXCEPTION);
    EXPECT_EQ(called.failed, unknown);
  }
}

TEST_F(SessionTest, AFailureOfTheFormIsTheHosts) {
  ShownSession host;
  host.toolkit.onForm = FillAndConfirm;
  host.session->put_EnterName(HostText(L"A name that is longer than thirty"));
  VARIANT_BOOL chosen = VARIANT_TRUE;
  EXPECT_EQ(
      FailureOf(host.session->ShowLevyraScreen(HostText(L"15"), &chosen)),
      (Failed{static_cast<HRESULT>(0x800A0005), L"Fiscalon.ShowLevyraScreen", L"Invalid procedure call or argument"}));
  EXPECT_EQ(chosen, VARIANT_FALSE);
}

TEST_F(SessionTest, WhatIsUnforeseenIsSaid) {
  ShownSession host;
  host.toolkit.onForm = [](Form&, UserDriver&) { throw std::bad_alloc(); };
  VARIANT_BOOL chosen = VARIANT_TRUE;
  EXPECT_EQ(FailureOf(host.session->ShowLevyraScreen(HostText(L"15"), &chosen)),
            (Failed{E_OUTOFMEMORY, L"Fiscalon", L"Out of memory"}));
  ResetModule();
  UseToolkit(&host.toolkit);
  host.toolkit.onForm = [](Form&, UserDriver&) { throw std::logic_error("broken"); };
  EXPECT_EQ(FailureOf(host.session->ShowLevyraScreen(HostText(L"15"), &chosen)),
            (Failed{E_FAIL, L"Fiscalon", L"An unforeseen failure: broken"}));
}

TEST_F(SessionTest, ASuccessLeavesNoOldErrorBehind) {
  const Reference<_Levyra> session = NewSession();
  session->put_SessionNumber(1e10);
  EXPECT_EQ(FailureOf(session->put_SessionNumber(1)), Failed{});
}

TEST_F(SessionTest, HandsBackTheRecordsOfTheScreen) {
  ShownSession host;
  EXPECT_FALSE(host.Records());
  host.toolkit.onForm = FillAndConfirm;
  EXPECT_EQ(host.Show(), VARIANT_TRUE);
  const Reference<_PC4s> records = host.Records();
  LONG count = 0;
  EXPECT_EQ(records->get_Count(&count), S_OK);
  EXPECT_EQ(count, 2);
  const Called first = Get(records.Get(), L"Item", {1});
  EXPECT_EQ(Get(first.value.Object(), L"Description").value.Text().substr(0, 30), L"PC40001T                202612");
}

TEST_F(SessionTest, TheSameRecordsAreTheSameObject) {
  ShownSession host;
  host.toolkit.onForm = FillAndConfirm;
  host.Show();
  const Reference<_PC4s> records = host.Records();
  EXPECT_EQ(host.Records().Get(), records.Get());
  Reference<_Levyra> other = NewSession();
  std::swap(host.session, other);
  host.session->put_PaidAmount(HostText(L"12345"));
  host.Show();
  // It is the form's own collection, whoever shows the form.
  EXPECT_EQ(host.Records().Get(), records.Get());
}

TEST_F(SessionTest, TheNextOutputEmptiesTheRecordsButNotAHostsRecord) {
  ShownSession host;
  host.toolkit.onForm = FillAndConfirm;
  host.Show();
  const Reference<_PC4s> records = host.Records();
  Reference<_PC4> kept;
  records->get_Item(HostValue(1).Raw(), kept.Place());
  const std::wstring description = TextOf(kept.Get(), &_PC4::get_Description);
  host.session->put_SeqNumber(HostText(L"0002"));
  host.Show();
  LONG count = 0;
  records->get_Count(&count);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(description.substr(0, 8), L"PC40001T");
  EXPECT_EQ(TextOf(kept.Get(), &_PC4::get_Description), description);
  Reference<_PC4> now;
  records->get_Item(HostValue(1).Raw(), now.Place());
  EXPECT_EQ(TextOf(now.Get(), &_PC4::get_Description).substr(0, 8), L"PC40002T");
}

TEST_F(SessionTest, ACancelledScreenLeavesTheRecordsAlone) {
  ShownSession host;
  const Reference<_PC4s> own = NewRecords();
  EXPECT_EQ(host.session->putref_PC4Records(own.Get()), S_OK);
  host.toolkit.onForm = [](Form& form, UserDriver& user) { user.Click(form.ControlNamed("cmdCancel")); };
  EXPECT_EQ(host.Show(), VARIANT_FALSE);
  EXPECT_EQ(host.Records().Get(), own.Get());
}

TEST_F(SessionTest, AHostsOwnRecordsComeBackAsTheyAre) {
  const Reference<_Levyra> session = NewSession();
  const Reference<_PC4s> own = NewRecords();
  EXPECT_EQ(Put(session.Get(), L"PC4Records", own.Get(), DISPATCH_PROPERTYPUTREF).code, S_OK);
  EXPECT_EQ(Get(session.Get(), L"PC4Records").value.Object(), own.Get());
  EXPECT_EQ(session->putref_PC4Records(nullptr), S_OK);
  EXPECT_EQ(Get(session.Get(), L"PC4Records").value.Object(), nullptr);
}

TEST_F(SessionTest, AnObjectOfSomebodyElsesIsAMismatch) {
  const Reference<_Levyra> session = NewSession();
  ForeignObject foreign;
  EXPECT_EQ(Put(session.Get(), L"PC4Records", &foreign, DISPATCH_PROPERTYPUTREF).code, DISP_E_TYPEMISMATCH);
  // Also one that claims to have every interface, and one of ours of another class.
  foreign.claimsAll = true;
  EXPECT_EQ(FailureOf(session->putref_PC4Records(reinterpret_cast<_PC4s*>(&foreign))),
            RunTimeError(13, L"Type mismatch"));
  EXPECT_EQ(Put(session.Get(), L"PC4Records", session.Get(), DISPATCH_PROPERTYPUTREF).code, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(Put(session.Get(), L"PC4Records", L"text", DISPATCH_PROPERTYPUTREF).code, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(foreign.references, 1U);
}

/// Hosts of many languages put an object as they put a value.
TEST_F(SessionTest, AnObjectIsSetByReferenceHoweverItIsPut) {
  const Reference<_Levyra> session = NewSession();
  const Reference<_PC4s> own = NewRecords();
  EXPECT_EQ(Put(session.Get(), L"PC4Records", own.Get(), DISPATCH_PROPERTYPUT).code, S_OK);
  Reference<_PC4s> records;
  ASSERT_EQ(session->get_PC4Records(records.Place()), S_OK);
  EXPECT_EQ(records.Get(), own.Get());
  EXPECT_EQ(Put(session.Get(), L"PC4Records", session.Get(), DISPATCH_PROPERTYPUT).code, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(Put(session.Get(), L"PC4Records", L"text", DISPATCH_PROPERTYPUT).code, DISP_E_MEMBERNOTFOUND);
}

TEST_F(SessionTest, OutlivesAHostThatLetsGoWhileTheFormIsUp) {
  ShownSession host;
  _Levyra* const session = host.session.Detach();
  host.toolkit.onForm = [&](Form& form, UserDriver& user) {
    session->Release();
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    FillAndConfirm(form, user);
  };
  VARIANT_BOOL chosen = VARIANT_FALSE;
  EXPECT_EQ(session->ShowLevyraScreen(HostText(L"15"), &chosen), S_OK);
  EXPECT_EQ(chosen, VARIANT_TRUE);
  EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST_F(SessionTest, AHostMayCallWhileTheFormIsUp) {
  ShownSession host;
  host.toolkit.onForm = [&](Form& form, UserDriver& user) {
    EXPECT_EQ(TextOf(host.session.Get(), &_Levyra::get_PaidAmount), L"123.45");
    VARIANT_BOOL chosen = VARIANT_TRUE;
    EXPECT_EQ(FailureOf(host.session->ShowLevyraScreen(HostText(L"15"), &chosen)).code,
              static_cast<HRESULT>(0x800A0000 + 400));
    FillAndConfirm(form, user);
  };
  EXPECT_EQ(host.Show(), VARIANT_TRUE);
}

TEST_F(SessionTest, AnotherThreadIsTurnedAwayWhileTheFormIsUp) {
  ShownSession host;
  const Reference<_Levyra> other = NewSession();
  host.toolkit.onForm = [&](Form&, UserDriver&) {
    std::thread([&] {
      const Failed turnedAway = {RPC_E_SERVERCALL_RETRYLATER, L"Fiscalon",
                                 L"A screen is open on another thread of this program. Call again when it is closed."};
      EXPECT_EQ(FailureOf(other->put_MainPath(HostText(L"x"))), turnedAway);
      HostText text;
      EXPECT_EQ(FailureOf(other->get_SeqNumber(text.Place())), turnedAway);
      Reference<IClassFactory> factory;
      EXPECT_EQ(
          FailureOf(DllGetClassObject(__uuidof(Levyra), IID_IClassFactory, reinterpret_cast<void**>(factory.Place()))),
          turnedAway);
    }).join();
  };
  host.Show();
  std::thread([&] { EXPECT_EQ(other->put_MainPath(HostText(L"x")), S_OK); }).join();
}

TEST_F(SessionTest, IsCalledFromAnotherApartment) {
  const Reference<_Levyra> session = NewSession();
  Reference<IStream> stream;
  ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, session.Get(), stream.Place()), S_OK);
  const DWORD thisThread = GetCurrentThreadId();
  std::thread host([&] {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    {
      Reference<IDispatch> proxy;
      EXPECT_EQ(CoGetInterfaceAndReleaseStream(stream.Detach(), IID_IDispatch, reinterpret_cast<void**>(proxy.Place())),
                S_OK);
      EXPECT_EQ(Put(proxy.Get(), L"PaidAmount", L"12345").code, S_OK);
      EXPECT_EQ(Get(proxy.Get(), L"PaidAmount").value.Text(), L"123.45");
      const Called unknown = Do(proxy.Get(), L"ShowLevyraScreen", {L"12"});
      EXPECT_EQ(unknown.code, DISP_E_EXCEPTION);
      EXPECT_EQ(unknown.failed.description, L"Invalid Screen Type");
    }
    CoUninitialize();
    PostThreadMessageW(thisThread, WM_QUIT, 0, 0);
  });
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  host.join();
}

}  // namespace
}  // namespace fiscalon::component

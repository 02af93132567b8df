#include <filesystem>

#include "core/module_state.h"
#include "core/module_to_change.h"
#include "tests/component/host.h"

namespace fiscalon::component {
namespace {

class ValidatorTest : public Component {
 protected:
  void SetUp() override {
    Component::SetUp();
    std::filesystem::create_directory(logs_);
    ModuleToChange().mainPath = logs_.string();
  }
  void TearDown() override {
    check_ = {};
    std::filesystem::remove_all(logs_);
    Component::TearDown();
  }
  VARIANT_BOOL IsValid() {
    VARIANT_BOOL valid = 77;
    EXPECT_EQ(check_->IsInfoValid(&valid), S_OK);
    return valid;
  }
  std::wstring Reason() { return TextOf(check_.Get(), &_clsValidateAddInfo::get_InvalidReason); }

  const std::filesystem::path logs_ = std::filesystem::temp_directory_path() / "fiscalon component test";
  Reference<_clsValidateAddInfo> check_ = NewCheck();
};

TEST_F(ValidatorTest, KeepsEachText) {
  for (const wchar_t* name :
       {L"ScreenCode", L"NumberOfFields", L"BillerCode", L"BillerName", L"PaymentDate", L"InvalidReason"}) {
    EXPECT_EQ(Get(check_.Get(), name).value.Text(), L"") << name;
    EXPECT_EQ(Put(check_.Get(), name, name).code, S_OK) << name;
  }
  EXPECT_EQ(TextOf(check_.Get(), &_clsValidateAddInfo::get_ScreenCode), L"ScreenCode");
  EXPECT_EQ(TextOf(check_.Get(), &_clsValidateAddInfo::get_NumberOfFields), L"NumberOfFields");
  EXPECT_EQ(TextOf(check_.Get(), &_clsValidateAddInfo::get_BillerCode), L"BillerCode");
  EXPECT_EQ(TextOf(check_.Get(), &_clsValidateAddInfo::get_BillerName), L"BillerName");
  EXPECT_EQ(TextOf(check_.Get(), &_clsValidateAddInfo::get_PaymentDate), L"PaymentDate");
  EXPECT_EQ(Reason(), L"InvalidReason");
}

TEST_F(ValidatorTest, AmountIsWrittenInCentsAndReadInDollars) {
  EXPECT_EQ(check_->put_PaymentAmount(HostText(L"12345")), S_OK);
  EXPECT_EQ(TextOf(check_.Get(), &_clsValidateAddInfo::get_PaymentAmount), L"123.45");
}

TEST_F(ValidatorTest, MembersHaveTheirNumbersInTheOrderOfTheirSlots) {
  const std::pair<const wchar_t*, DISPID> members[] = {
      {L"ScreenCode", 1},           {L"NumberOfFields", 2},        {L"BillerCode", 3},
      {L"BillerName", 4},           {L"PaymentDate", 5},           {L"PaymentAmount", 6},
      {L"PC4Records", 7},           {L"PlayByPlayEnabled", 8},     {L"InvalidReason", 9},
      {L"PC4GovFormatRecords", 10}, {L"PC4FreeFormatRecords", 11}, {L"IsInfoValid", 12}};
  for (const auto& [name, id] : members) EXPECT_EQ(MemberNamed(check_.Get(), name), id) << name;
}

TEST_F(ValidatorTest, SaysWhyAPaymentIsInvalid) {
  const Reference<_PC4s> records = NewRecords();
  check_->putref_PC4Records(records.Get());
  check_->put_ScreenCode(HostText(L"03"));
  EXPECT_EQ(IsValid(), VARIANT_FALSE);
  EXPECT_EQ(Reason(), L"Record for required fields is missing");
  check_->put_ScreenCode(HostText(L"04"));
  EXPECT_EQ(Do(check_.Get(), L"IsInfoValid").value.Number(), VARIANT_FALSE);
  EXPECT_EQ(Reason(), L"Invalid or not supported Screen Type");
}

TEST_F(ValidatorTest, WithoutRecordsTheErrorIsTheReason) {
  check_->put_ScreenCode(HostText(L"03"));
  EXPECT_EQ(IsValid(), VARIANT_FALSE);
  EXPECT_EQ(Reason(), L"Error 91 - Object variable or With block variable not set");
  EXPECT_TRUE(std::filesystem::exists(logs_ / "error.log"));
}

TEST_F(ValidatorTest, ALogThatCannotBeWrittenIsTheHostsError) {
  check_->put_PlayByPlayEnabled(VARIANT_TRUE);
  EXPECT_EQ(TheModule().playByPlayEnabled, -1);
  ModuleToChange().mainPath = (logs_ / "none").string();
  VARIANT_BOOL valid = VARIANT_TRUE;
  const HRESULT code = check_->IsInfoValid(&valid);
  EXPECT_EQ(FailureOf(code), RunTimeError(76, L"Path not found"));
  EXPECT_EQ(valid, VARIANT_FALSE);
}

TEST_F(ValidatorTest, CollectionsOfAHostComeBackAndAreReplacedByACheck) {
  const auto government = New<clsPC4GovFormats, _clsPC4GovFormats>();
  const auto free = New<clsPC4FreeFormats, _clsPC4FreeFormats>();
  const auto records = NewRecords();
  IDispatch* const objects[] = {records.Get(), government.Get(), free.Get()};
  const wchar_t* const names[] = {L"PC4Records", L"PC4GovFormatRecords", L"PC4FreeFormatRecords"};
  for (size_t each = 0; each < 3; ++each) {
    EXPECT_EQ(Get(check_.Get(), names[each]).value.Object(), nullptr);
    EXPECT_EQ(Put(check_.Get(), names[each], objects[each], DISPATCH_PROPERTYPUTREF).code, S_OK);
    EXPECT_EQ(Get(check_.Get(), names[each]).value.Object(), objects[each]);
    IDispatch* const wrong = objects[(each + 1) % 3];
    EXPECT_EQ(Put(check_.Get(), names[each], wrong, DISPATCH_PROPERTYPUTREF).code, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Get(check_.Get(), names[each]).value.Object(), objects[each]);
  }
  IsValid();
  EXPECT_EQ(Get(check_.Get(), L"PC4Records").value.Object(), records.Get());
  EXPECT_EQ(Get(check_.Get(), L"PC4GovFormatRecords").value.Object(), nullptr);
  EXPECT_EQ(Get(check_.Get(), L"PC4FreeFormatRecords").value.Object(), nullptr);
}

}  // namespace
}  // namespace fiscalon::component

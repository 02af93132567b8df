#include "tests/component/host.h"

namespace fiscalon::component {
namespace {

struct Collection {
  const char* name = nullptr;
  Reference<IDispatch> (*make)() = nullptr;
  /// The members' fields, in their order.
  std::vector<const wchar_t*> fields = {};
};

template <typename CoClass, typename Interface>
Reference<IDispatch> MakeCollection() {
  return New<CoClass, Interface>();
}

class CollectionTest : public Component, public testing::WithParamInterface<Collection> {
 protected:
  /// A member whose fields are named like themselves with `mark` behind, under that key.
  Called Add(const wchar_t* mark, const wchar_t* key = L"") {
    std::vector<HostValue> arguments;
    for (const wchar_t* field : GetParam().fields) arguments.emplace_back((std::wstring(field) + mark).c_str());
    arguments.emplace_back(key);
    return Do(collection_.Get(), L"Add", arguments);
  }
  void TearDown() override {
    collection_ = {};
    Component::TearDown();
  }
  int Count() { return Get(collection_.Get(), L"Count").value.Number(); }
  /// The first field of each member, as a for-each loop meets them.
  std::wstring Walked() {
    std::wstring walked;
    Called called = Call(collection_.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET | DISPATCH_METHOD);
    EXPECT_EQ(called.code, S_OK);
    Reference<IEnumVARIANT> members;
    EXPECT_EQ(called.value.Raw().punkVal->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(members.Place())),
              S_OK);
    HostValue member;
    while (members->Next(1, &member.Set(VT_EMPTY), nullptr) == S_OK) walked += FirstField(member.Object()) + L";";
    return walked;
  }
  std::wstring FirstField(IDispatch* member) {
    return std::wstring(Get(member, GetParam().fields.front()).value.Text());
  }
  std::wstring First(const wchar_t* mark) { return std::wstring(GetParam().fields.front()) + mark; }
  /// What `Item` and `Remove` both say of that key.
  Called Look(HostValue key) {
    const Called removed = Do(collection_.Get(), L"Remove", {key});
    Called found = Get(collection_.Get(), L"Item", {key});
    EXPECT_EQ(removed.code, found.code);
    EXPECT_EQ(removed.failed, found.failed);
    return found;
  }

  Reference<IDispatch> collection_ = GetParam().make();
};

TEST_P(CollectionTest, AddsAMemberOfThoseFields) {
  const Called added = Add(L"1");
  ASSERT_EQ(added.code, S_OK);
  for (const wchar_t* field : GetParam().fields)
    EXPECT_EQ(Get(added.value.Object(), field).value.Text(), std::wstring(field) + L"1");
  EXPECT_EQ(Count(), 1);
}

TEST_P(CollectionTest, EachTextIsOptional) {
  ASSERT_EQ(Do(collection_.Get(), L"Add").code, S_OK);
  HostValue missing;
  missing.Set(VT_ERROR).scode = DISP_E_PARAMNOTFOUND;
  ASSERT_EQ(Do(collection_.Get(), L"Add", {missing, L"second"}).code, S_OK);
  const Called first = Get(collection_.Get(), L"Item", {1});
  const Called second = Get(collection_.Get(), L"Item", {2});
  for (const wchar_t* field : GetParam().fields) EXPECT_EQ(Get(first.value.Object(), field).value.Text(), L"");
  EXPECT_EQ(FirstField(second.value.Object()), L"");
  EXPECT_EQ(Get(second.value.Object(), GetParam().fields[1]).value.Text(), L"second");
}

TEST_P(CollectionTest, TextsOfScriptsComeByReference) {
  HostValue text = L"by reference";
  HostValue reference;
  reference.Set(VT_BYREF | VT_VARIANT).pvarVal = &text.Raw();
  EXPECT_EQ(FirstField(Do(collection_.Get(), L"Add", {reference}).value.Object()), L"by reference");
  HostValue number = 1;
  reference.Set(VT_BYREF | VT_VARIANT).pvarVal = &number.Raw();
  EXPECT_EQ(FirstField(Get(collection_.Get(), L"Item", {reference}).value.Object()), L"by reference");
}

TEST_P(CollectionTest, ANumberOfAnyKindIsAPosition) {
  Add(L"1");
  Add(L"2");
  const Called second = Get(collection_.Get(), L"Item", {2});
  for (const VARTYPE type :
       {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_I8, VT_UI8, VT_INT, VT_UINT, VT_R4, VT_R8, VT_CY, VT_DECIMAL}) {
    HostValue position = 2;
    ASSERT_EQ(VariantChangeType(&position.Raw(), &position.Raw(), 0, type), S_OK);
    EXPECT_EQ(Get(collection_.Get(), L"Item", {position}).value.Object(), second.value.Object()) << type;
  }
  // A fraction is rounded, halves to even.
  for (const double position : {1.5, 2.5, 2.4}) {
    EXPECT_EQ(Get(collection_.Get(), L"Item", {position}).value.Object(), second.value.Object()) << position;
  }
  LONG number = 2;
  HostValue reference;
  reference.Set(VT_BYREF | VT_I4).plVal = &number;
  EXPECT_EQ(Get(collection_.Get(), L"Item", {reference}).value.Object(), second.value.Object());
}

TEST_P(CollectionTest, ATextIsAKey) {
  const Called first = Add(L"1", L"2");
  Add(L"2", L"k");
  EXPECT_EQ(Get(collection_.Get(), L"Item", {L"2"}).value.Object(), first.value.Object());
  EXPECT_EQ(Do(collection_.Get(), L"Remove", {L"2"}).code, S_OK);
  EXPECT_EQ(Walked(), First(L"2") + L";");
}

TEST_P(CollectionTest, ItemIsTheDefaultMember) {
  const Called first = Add(L"1");
  EXPECT_EQ(MemberNamed(collection_.Get(), L"Item"), DISPID_VALUE);
  const Called called = Call(collection_.Get(), DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {1});
  EXPECT_EQ(called.value.Object(), first.value.Object());
}

TEST_P(CollectionTest, PropertiesAreReadByWhoCallsThemAsMethods) {
  const Called first = Add(L"1");
  EXPECT_EQ(Do(collection_.Get(), L"Item", {1}).value.Object(), first.value.Object());
  EXPECT_EQ(Do(collection_.Get(), L"Item", {2}).failed, RunTimeError(9, L"Subscript out of range"));
  EXPECT_EQ(Do(collection_.Get(), L"Count").value.Number(), 1);
  EXPECT_EQ(Call(collection_.Get(), DISPID_NEWENUM, DISPATCH_METHOD).value.Type(), VT_UNKNOWN);
  EXPECT_EQ(Call(collection_.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET).value.Type(), VT_UNKNOWN);
}

TEST_P(CollectionTest, NoMethodRunsForWhoReadsAProperty) {
  Add(L"1");
  EXPECT_EQ(Get(collection_.Get(), L"Clear").code, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Count(), 1);
}

TEST_P(CollectionTest, AnUnknownPositionIsError9) {
  Add(L"1");
  for (const HostValue& position :
       {HostValue(0), HostValue(2), HostValue(-1), HostValue(1e10), HostValue(4294967297.0), HostValue(0.5)})
    EXPECT_EQ(Look(position).failed, RunTimeError(9, L"Subscript out of range"));
}

TEST_P(CollectionTest, AnUnknownKeyIsError5) {
  Add(L"1", L"k");
  for (const wchar_t* key : {L"K", L"1", L"", L"kk"})
    EXPECT_EQ(Look(key).failed, RunTimeError(5, L"Invalid procedure call or argument"));
  HostValue noText;
  noText.Set(VT_BSTR).bstrVal = nullptr;
  EXPECT_EQ(Look(noText).failed, RunTimeError(5, L"Invalid procedure call or argument"));
}

TEST_P(CollectionTest, WhatIsNeitherNumberNorTextIsError13) {
  Add(L"1");
  HostValue null;
  null.Set(VT_NULL);
  HostValue array;
  array.Set(VT_ARRAY | VT_VARIANT).parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
  HostValue date;
  date.Set(VT_DATE).date = 1;
  for (const HostValue& key : {HostValue(), null, array, date, HostValue(true), HostValue(collection_.Get()),
                               HostValue(static_cast<IDispatch*>(nullptr))})
    EXPECT_EQ(Look(key).failed, RunTimeError(13, L"Type mismatch")) << key.Type();
}

TEST_P(CollectionTest, ATakenKeyIsError457AndAddsNothing) {
  Add(L"1", L"k");
  const Called again = Add(L"2", L"k");
  EXPECT_EQ(again.code, DISP_E_EXCEPTION);
  EXPECT_EQ(again.failed, RunTimeError(457, L"This key is already associated with an element of this collection"));
  EXPECT_EQ(again.value.Object(), nullptr);
  EXPECT_EQ(Count(), 1);
}

TEST_P(CollectionTest, IsWalkedInOrderAndAsItWas) {
  EXPECT_EQ(Walked(), L"");
  Add(L"1");
  Add(L"2");
  Add(L"3");
  EXPECT_EQ(Walked(), First(L"1") + L";" + First(L"2") + L";" + First(L"3") + L";");
  const Called called = Call(collection_.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET);
  Reference<IEnumVARIANT> members;
  HostValue held = called.value;
  held.Raw().punkVal->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(members.Place()));
  Do(collection_.Get(), L"Clear");
  HostValue items[4];
  ULONG given = 99;
  EXPECT_EQ(members->Next(4, &items[0].Raw(), &given), S_FALSE);
  EXPECT_EQ(given, 3U);
  EXPECT_EQ(FirstField(items[2].Object()), First(L"3"));
}

TEST_P(CollectionTest, AWalkSkipsResetsAndForks) {
  Add(L"1");
  Add(L"2");
  HostValue called = Call(collection_.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET).value;
  Reference<IEnumVARIANT> members;
  called.Raw().punkVal->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(members.Place()));
  EXPECT_EQ(members->Skip(1), S_OK);
  Reference<IEnumVARIANT> fork;
  EXPECT_EQ(members->Clone(fork.Place()), S_OK);
  HostValue item;
  EXPECT_EQ(members->Next(1, &item.Raw(), nullptr), S_OK);
  EXPECT_EQ(FirstField(item.Object()), First(L"2"));
  EXPECT_EQ(members->Next(1, &item.Set(VT_EMPTY), nullptr), S_FALSE);
  EXPECT_EQ(fork->Next(1, &item.Set(VT_EMPTY), nullptr), S_OK);
  EXPECT_EQ(FirstField(item.Object()), First(L"2"));
  EXPECT_EQ(members->Reset(), S_OK);
  EXPECT_EQ(members->Skip(3), S_FALSE);
  EXPECT_EQ(members->Next(1, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(members->Next(2, &item.Set(VT_EMPTY), nullptr), E_POINTER);
  EXPECT_EQ(members->Clone(nullptr), E_POINTER);
}

TEST_P(CollectionTest, AMemberIsOneObjectThatOutlivesItsPlace) {
  const Called added = Add(L"1");
  Called found = Get(collection_.Get(), L"Item", {1});
  EXPECT_EQ(found.value.Object(), added.value.Object());
  EXPECT_EQ(Put(found.value.Object(), GetParam().fields[1], L"changed").code, S_OK);
  EXPECT_EQ(Do(collection_.Get(), L"Clear").code, S_OK);
  EXPECT_EQ(Count(), 0);
  EXPECT_EQ(FirstField(found.value.Object()), First(L"1"));
  EXPECT_EQ(Get(added.value.Object(), GetParam().fields[1]).value.Text(), L"changed");
}

TEST_P(CollectionTest, ClearOfNothingFailsNothing) {
  EXPECT_EQ(Do(collection_.Get(), L"Clear").code, S_OK);
  EXPECT_EQ(Count(), 0);
}

TEST_P(CollectionTest, TheWrongNumberOfArgumentsIsSaid) {
  EXPECT_EQ(Get(collection_.Get(), L"Item").code, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Get(collection_.Get(), L"Item", {1, 2}).code, DISP_E_BADPARAMCOUNT);
}

INSTANTIATE_TEST_SUITE_P(
    Each, CollectionTest,
    testing::Values(Collection{"PC4s", MakeCollection<PC4s, _PC4s>, {L"TheDate", L"Amount", L"Description"}},
                    Collection{"clsPC4GovFormats",
                               MakeCollection<clsPC4GovFormats, _clsPC4GovFormats>,
                               {L"PeriodStartDate", L"PeriodEndDate", L"PeriodDueDate", L"Filler1", L"ContactName",
                                L"ContactTitle", L"Filler2"}},
                    Collection{"clsPC4FreeFormats",
                               MakeCollection<clsPC4FreeFormats, _clsPC4FreeFormats>,
                               {L"FieldNum", L"FieldValue"}}),
    [](const auto& instance) { return std::string(instance.param.name); });

using RecordsTest = Component;

TEST_F(RecordsTest, ResultsWithoutAPlaceAreRefusedAndLeaveNothingBehind) {
  const Failed refused{E_POINTER, L"Fiscalon", L"The call returns a value, and NULL was given for its place."};
  const Reference<_PC4s> records = NewRecords();
  EXPECT_EQ(FailureOf(records->Add(nullptr, nullptr, nullptr, nullptr, nullptr)), refused);
  LONG count = 99;
  EXPECT_EQ(records->get_Count(&count), S_OK);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(FailureOf(records->get_Item(HostValue(1).Raw(), nullptr)), refused);
  EXPECT_EQ(FailureOf(records->get_Count(nullptr)), refused);
  EXPECT_EQ(FailureOf(records->get_NewEnum(nullptr)), refused);
}

TEST_F(RecordsTest, AReferenceToNothingIsError13) {
  const Reference<_PC4s> records = NewRecords();
  HostValue nothing;
  nothing.Set(VT_BYREF | VT_VARIANT).pvarVal = nullptr;
  EXPECT_EQ(FailureOf(records->Remove(nothing.Raw())), RunTimeError(13, L"Type mismatch"));
}

TEST_F(RecordsTest, AFailedCallEmptiesThePlaceOfItsResult) {
  const Reference<_PC4s> records = NewRecords();
  auto* member = reinterpret_cast<_PC4*>(records.Get());
  EXPECT_EQ(FailureOf(records->get_Item(HostValue(1).Raw(), &member)), RunTimeError(9, L"Subscript out of range"));
  EXPECT_EQ(member, nullptr);
}

TEST_F(RecordsTest, ATextOf100KilobytesIsKept) {
  const Reference<_PC4s> records = NewRecords();
  const std::wstring text(100 * 1024, L'\u00E9');
  Reference<_PC4> member;
  ASSERT_EQ(records->Add(nullptr, nullptr, HostText(text), HostText(text), member.Place()), S_OK);
  EXPECT_EQ(TextOf(member.Get(), &_PC4::get_Description), text);
  Reference<_PC4> found;
  EXPECT_EQ(records->get_Item(HostValue(text.c_str()).Raw(), found.Place()), S_OK);
  EXPECT_EQ(found.Get(), member.Get());
}

TEST_F(RecordsTest, FieldsAreMadeAndSetAlone) {
  const auto fields = New<clsPC4GovFormat, _clsPC4GovFormat>();
  EXPECT_EQ(TextOf(fields.Get(), &_clsPC4GovFormat::get_ContactName), L"");
  EXPECT_EQ(fields->put_ContactName(HostText(L"Ann")), S_OK);
  EXPECT_EQ(TextOf(fields.Get(), &_clsPC4GovFormat::get_ContactName), L"Ann");
  const auto slot = New<clsPC4FreeFormat, _clsPC4FreeFormat>();
  EXPECT_EQ(slot->put_FieldNum(HostText(L"01")), S_OK);
  EXPECT_EQ(TextOf(slot.Get(), &_clsPC4FreeFormat::get_FieldNum), L"01");
  EXPECT_EQ(TextOf(slot.Get(), &_clsPC4FreeFormat::get_FieldValue), L"");
}

}  // namespace
}  // namespace fiscalon::component

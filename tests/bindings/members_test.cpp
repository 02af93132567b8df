// Every call of bindings/members.json as a host in C++ makes it, with good arguments and bad ones.

#include <fiscalon/fiscalon.h>

#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>

#include "tests/support/module_test.h"

namespace fiscalon {
namespace {

using Json = nlohmann::json;

const Json& Table() {
  static const Json table = Json::parse(std::ifstream(FISCALON_SOURCE_DIR "/bindings/members.json"));
  return table;
}

const Json& Named(const Json& rows, const std::string& name) {
  for (const Json& row : rows)
    if (row["name"] == name)
      return row;
  throw std::out_of_range(name);
}

/// "number source description" of the error that a call ends with, or nothing.
std::string ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return std::to_string(error.Number()) + " " + error.Source() + " " + error.Description();
  }
  return {};
}

/// The error of a bad value, `[value, number]`, in its usual words, or in those that stand behind them.
std::string Told(const Json& bad, const std::string& source = "Fiscalon") {
  const std::string number = bad[1].dump();
  if (bad.size() > 2)
    return number + " " + source + " " + bad[2].get<std::string>();
  for (const Json& row : Table()["errors"])
    if (row["number"] == bad[1])
      return number + " " + source + " " + row["description"].get<std::string>();
  throw std::out_of_range(number);
}

/// What C++ has for a member that is read, written or both. Texts are UTF-8.
template <class Class>
struct Property {
  std::function<Json(const Class&)> get = nullptr;
  std::function<void(Class&, const Json&)> let = nullptr;
};

template <class Class>
using Properties = std::map<std::string, Property<Class>>;

template <class Class, class Text>
Property<Class> TextOf(std::string (Class::*get)() const, void (Class::*let)(Text)) {
  return {.get = [get](const Class& object) { return Json(ToUtf8((object.*get)())); },
          .let = [let](Class& object, const Json& value) { (object.*let)(FromUtf8(value.get<std::string>())); }};
}

/// A truth or a number, as the value of the table is.
Boolean BooleanOf(const Json& value) {
  return value.is_boolean() ? Boolean(value.get<bool>()) : Boolean(value.get<int64_t>());
}

Properties<Levyra> PropertiesOfLevyra() {
  return {
      {"ZelmorNumber", TextOf(&Levyra::ZelmorNumber, &Levyra::ZelmorNumber)},
      {"CompCode", TextOf(&Levyra::CompCode, &Levyra::CompCode)},
      {"CompName", TextOf(&Levyra::CompName, &Levyra::CompName)},
      {"AccountNumber", TextOf(&Levyra::AccountNumber, &Levyra::AccountNumber)},
      {"PaidAmount", TextOf(&Levyra::PaidAmount, &Levyra::PaidAmount)},
      {"PaidDate", TextOf(&Levyra::PaidDate, &Levyra::PaidDate)},
      {"NumberOfInfoCollect", TextOf(&Levyra::NumberOfInfoCollect, &Levyra::NumberOfInfoCollect)},
      {"GovFilename", TextOf(&Levyra::GovFilename, &Levyra::GovFilename)},
      {"EnterName", TextOf(&Levyra::EnterName, &Levyra::EnterName)},
      {"EnterTitle", TextOf(&Levyra::EnterTitle, &Levyra::EnterTitle)},
      {"APHoldFlg",
       {.get = [](const Levyra& payment) { return Json(payment.APHoldFlg()); },
        .let = [](Levyra& payment, const Json& value) { payment.APHoldFlg(value.get<int64_t>()); }}},
      {"SeqNumber", TextOf(&Levyra::SeqNumber, &Levyra::SeqNumber)},
      {"ShowGST58", {.get = [](const Levyra& payment) { return Json(payment.ShowGST58() ? -1 : 0); }}},
      {"BusinessName", TextOf(&Levyra::BusinessName, &Levyra::BusinessName)},
      {"WriteFile",
       {.get = [](const Levyra& payment) { return Json(int16_t{payment.WriteFile()}); },
        .let = [](Levyra& payment, const Json& value) { payment.WriteFile(BooleanOf(value)); }}},
      {"PlayByPlayEnabled",
       {.let = [](Levyra& payment, const Json& value) { payment.PlayByPlayEnabled(BooleanOf(value)); }}},
      {"MainPath", {.let = [](Levyra& payment, const Json& value) { payment.MainPath(value.get<std::string>()); }}},
      {"SessionNumber",
       {.let = [](Levyra& payment, const Json& value) { payment.SessionNumber(value.get<double>()); }}},
  };
}

Properties<clsValidateAddInfo> PropertiesOfTheCheck() {
  using Check = clsValidateAddInfo;
  return {
      {"ScreenCode", TextOf(&Check::ScreenCode, &Check::ScreenCode)},
      {"NumberOfFields", TextOf(&Check::NumberOfFields, &Check::NumberOfFields)},
      {"BillerCode", TextOf(&Check::BillerCode, &Check::BillerCode)},
      {"BillerName", TextOf(&Check::BillerName, &Check::BillerName)},
      {"PaymentDate", TextOf(&Check::PaymentDate, &Check::PaymentDate)},
      {"PaymentAmount", TextOf(&Check::PaymentAmount, &Check::PaymentAmount)},
      {"PlayByPlayEnabled",
       {.let = [](Check& check, const Json& value) { check.PlayByPlayEnabled(BooleanOf(value)); }}},
      {"InvalidReason", TextOf(&Check::InvalidReason, &Check::InvalidReason)},
  };
}

Properties<PC4> PropertiesOfARecord() {
  return {{"TheDate", TextOf(&PC4::TheDate, &PC4::TheDate)},
          {"Amount", TextOf(&PC4::Amount, &PC4::Amount)},
          {"Description", TextOf(&PC4::Description, &PC4::Description)}};
}

Properties<clsPC4GovFormat> PropertiesOfAGovFormat() {
  using Format = clsPC4GovFormat;
  return {{"PeriodStartDate", TextOf(&Format::PeriodStartDate, &Format::PeriodStartDate)},
          {"PeriodEndDate", TextOf(&Format::PeriodEndDate, &Format::PeriodEndDate)},
          {"PeriodDueDate", TextOf(&Format::PeriodDueDate, &Format::PeriodDueDate)},
          {"Filler1", TextOf(&Format::Filler1, &Format::Filler1)},
          {"ContactName", TextOf(&Format::ContactName, &Format::ContactName)},
          {"ContactTitle", TextOf(&Format::ContactTitle, &Format::ContactTitle)},
          {"Filler2", TextOf(&Format::Filler2, &Format::Filler2)}};
}

Properties<clsPC4FreeFormat> PropertiesOfAFreeFormat() {
  return {{"FieldNum", TextOf(&clsPC4FreeFormat::FieldNum, &clsPC4FreeFormat::FieldNum)},
          {"FieldValue", TextOf(&clsPC4FreeFormat::FieldValue, &clsPC4FreeFormat::FieldValue)}};
}

/// Writes and reads a property with the values of its row, or with the texts that any text property takes. One that is
/// written alone reads as null.
template <class Class>
void TryProperty(const Json& row, const Property<Class>& property, Class& object) {
  SCOPED_TRACE(row["name"].get<std::string>());
  const auto value = [&] { return property.get ? property.get(object) : Json(); };
  EXPECT_EQ(value(), row.value("start", property.get ? Json("") : Json()));
  if (!property.let)
    return;
  Json cases = row.value("cases", Json::array());
  if (cases.empty())
    for (const Json& text : Table()["texts"]) cases.push_back({text, text});
  for (const Json& each : cases) {
    property.let(object, each[0]);
    EXPECT_EQ(value(), each.size() > 1 ? each[1] : Json()) << each[0];
  }
  const Json kept = value();
  for (const Json& each : row.value("bad", Json::array())) {
    EXPECT_EQ(ErrorOf([&] { property.let(object, each[0]); }), Told(each)) << each[0];
    EXPECT_EQ(value(), kept) << each[0];
  }
}

/// Tries each property of a class; what is called, and what is a collection, has tests of its own.
template <class Class>
void TryProperties(const std::string& name, const Properties<Class>& properties, Class& object) {
  SCOPED_TRACE(name);
  size_t tried = 0;
  for (const Json& row : Named(Table()["classes"], name)["members"]) {
    const std::string type = row["type"];
    if (row["kinds"][0] == "call" || type.starts_with("PC4") || type.starts_with("cls"))
      continue;
    const auto property = properties.find(row["name"]);
    ASSERT_NE(property, properties.end()) << row;
    TryProperty(row, property->second, object);
    ++tried;
  }
  EXPECT_EQ(tried, properties.size());
}

using Members = ModuleTest;

TEST_F(Members, OfAPaymentTakeAndRefuseWhatTheTableSays) {
  Levyra payment;
  TryProperties("Levyra", PropertiesOfLevyra(), payment);
  EXPECT_EQ(payment.PC4Records(), nullptr);
  const auto records = std::make_shared<PC4s>();
  payment.PC4Records(records);
  EXPECT_EQ(payment.PC4Records(), records);
}

TEST_F(Members, OfACheckTakeAndRefuseWhatTheTableSays) {
  clsValidateAddInfo check;
  TryProperties("clsValidateAddInfo", PropertiesOfTheCheck(), check);
  EXPECT_EQ(check.PC4Records(), nullptr);
  EXPECT_EQ(check.PC4GovFormatRecords(), nullptr);
  EXPECT_EQ(check.PC4FreeFormatRecords(), nullptr);
}

TEST_F(Members, OfARecordTakeWhatTheTableSays) {
  PC4s records;
  TryProperties("PC4", PropertiesOfARecord(), records.Add());
  clsPC4GovFormat govFormat;
  TryProperties("clsPC4GovFormat", PropertiesOfAGovFormat(), govFormat);
  clsPC4FreeFormat freeFormat;
  TryProperties("clsPC4FreeFormat", PropertiesOfAFreeFormat(), freeFormat);
}

TEST_F(Members, ShowLevyraScreenRaisesWhatTheTableSays) {
  UseToolkit(nullptr);
  Levyra payment;
  const Json& row = Named(Named(Table()["classes"], "Levyra")["members"], "ShowLevyraScreen");
  for (const Json& each : row["bad"])
    EXPECT_EQ(ErrorOf([&] { payment.ShowLevyraScreen(each[0].get<std::string>()); }), Told(each, row["source"]))
        << each;
}

/// What is set once for the process, by a name. Whose words an error has is its own affair.
void TryNames(const std::string& routine, const std::function<void(const std::string&)>& use) {
  const Json& row = Named(Table()["process"], routine);
  for (const Json& name : row["cases"]) EXPECT_EQ(ErrorOf([&] { use(name); }), "") << name;
  for (const Json& each : row["bad"])
    EXPECT_TRUE(ErrorOf([&] { use(each[0]); }).starts_with(each[1].dump() + " Fiscalon ")) << each;
}

TEST_F(Members, UseLocaleAndUseLanguageTakeTheNamesOfTheTableAlone) {
  TryNames("UseLocale", [](const std::string& name) { UseLocale(name); });
  TryNames("UseLanguage", [](const std::string& name) { UseLanguage(name); });
}

/// The position or the key that stands in the table.
template <class Call>
void WithPlace(const Json& place, const Call& call) {
  if (place.is_string())
    call(place.get<std::string>());
  else
    call(place.get<int64_t>());
}

template <class Collection>
void TryCollection() {
  Collection members;
  members.Add();
  auto& second = members.Add("text", "", "second");
  EXPECT_EQ(members.Count(), 2);
  for (const Json& each : Named(Table()["collection"], "Item")["bad"])
    WithPlace(each[0], [&](const auto& place) {
      EXPECT_EQ(ErrorOf([&] { static_cast<void>(members.Item(place)); }), Told(each)) << each;
    });
  for (const Json& each : Named(Table()["collection"], "Remove")["bad"])
    WithPlace(each[0],
              [&](const auto& place) { EXPECT_EQ(ErrorOf([&] { members.Remove(place); }), Told(each)) << each; });
  EXPECT_EQ(&members.Item(2), &second);
  EXPECT_EQ(&*std::next(members.begin()), &second);
  members.Clear();
  EXPECT_EQ(members.Count(), 0);
  EXPECT_TRUE(members.begin() == members.end());
}

TEST_F(Members, OfCollectionsRaiseWhatTheTableSays) {
  TryCollection<PC4s>();
  TryCollection<clsPC4GovFormats>();
  TryCollection<clsPC4FreeFormats>();
}

TEST_F(Members, AddRaisesWhatTheTableSaysForAKeyThatIsTaken) {
  PC4s records;
  records.Add("", "", "", "key");
  EXPECT_EQ(ErrorOf([&] { records.Add("", "", "", "key"); }), Told({"key", 457}));
  clsPC4GovFormats govFormats;
  govFormats.Add("", "", "", "", "", "", "", "key");
  EXPECT_EQ(ErrorOf([&] { govFormats.Add("", "", "", "", "", "", "", "key"); }), Told({"key", 457}));
  clsPC4FreeFormats freeFormats;
  freeFormats.Add("", "", "key");
  EXPECT_EQ(ErrorOf([&] { freeFormats.Add("", "", "key"); }), Told({"key", 457}));
}

}  // namespace
}  // namespace fiscalon

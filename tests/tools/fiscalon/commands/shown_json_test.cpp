#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/support/ruled_record.h"
#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using Json = nlohmann::json;

class ShownJson : public CommandLine {
 protected:
  Json Shown(const std::string& bytes, const std::string& options = "") const {
    Write("a.pc4", bytes);
    return Json::parse(Run("fiscalon show --json a.pc4 " + options).out);
  }

  // In Windows-1252.
  const std::string government_ = Ruled("PC40001T                202612          H\xE9l\xE8ne C\xF4t\xE9");
  const std::string free_ = Ruled("PC40001F01000000000000012345022026");
};

TEST_F(ShownJson, IsOneDocumentOfTheWholeFile) {
  const Json document = Shown(Line(government_) + Line(free_));
  EXPECT_EQ(document.at("file"), "a.pc4");
  EXPECT_EQ(document.at("screen"), nullptr);
  ASSERT_EQ(document.at("records").size(), 2U);
  const Json& record = document.at("records").at(0);
  EXPECT_EQ(record.at("line"), 1);
  EXPECT_EQ(record.at("kind"), "T");
  EXPECT_EQ(record.at("seq"), "0001");
  EXPECT_EQ(record.at("length"), 160);
  EXPECT_EQ(record.at("text"), "PC40001T                202612          Hélène Côté" + std::string(109, ' '));
  EXPECT_EQ(record.at("problems"), Json::array());
}

TEST_F(ShownJson, NamesPlacesTextsAndMeanings) {
  const Json document = Shown(Line(government_) + Line(free_), "--screen 15");
  EXPECT_EQ(document.at("screen"), Json::parse(R"({"code": "15", "form": "frmDueDateAmount"})"));
  const Json& government = document.at("records").at(0).at("fields");
  ASSERT_EQ(government.size(), 8U);
  EXPECT_EQ(government.at(0), Json::parse(R"({"name": "PeriodStartDate", "from": 9, "to": 16, "text": "        ",
                                              "sense": "blank", "meaning": ""})"));
  EXPECT_EQ(government.at(2), Json::parse(R"({"name": "PeriodDueDate", "from": 25, "to": 32, "text": "202612  ",
                                              "sense": "month", "meaning": "2026-12"})"));
  EXPECT_EQ(government.at(4), Json::parse(R"({"name": "ContactName", "from": 41, "to": 70,
                                              "text": "Hélène Côté                   ",
                                              "sense": "text", "meaning": "Hélène Côté"})"));
  EXPECT_EQ(government.at(7).at("name"), "");
  EXPECT_EQ(government.at(7).at("from"), 101);
  const Json& free = document.at("records").at(1).at("fields");
  ASSERT_EQ(free.size(), 10U);
  EXPECT_EQ(free.at(0), Json::parse(R"({"name": "FieldNum", "from": 9, "to": 10, "text": "01",
                                        "sense": "number", "meaning": "Amount payable"})"));
  EXPECT_EQ(free.at(1), Json::parse(R"({"name": "FieldValue", "from": 11, "to": 28, "text": "000000000000012345",
                                        "sense": "cents", "meaning": "123.45"})"));
  const Json unknown = Shown(Line(government_) + Line(free_)).at("records").at(1).at("fields");
  EXPECT_EQ(unknown.at(1).at("sense"), "digits");
  EXPECT_EQ(unknown.at(3), Json::parse(R"({"name": "FieldValue", "from": 31, "to": 48, "text": "2026              ",
                                           "sense": "text", "meaning": "2026"})"));
}

TEST_F(ShownJson, MeansWhatTheFieldsOfTheScreenAre) {
  const auto values = [&](const std::string& slots, const std::string& screen) {
    std::string told;
    const Json record =
        Shown(Line(government_) + Line(Ruled("PC40001F" + slots)), "--screen " + screen).at("records").at(1);
    for (const Json& field : record.at("fields"))
      if (field.at("name") == "FieldValue")
        told += field.at("sense").get<std::string>() + " " + field.at("meaning").get<std::string>() + "; ";
    return told;
  };
  EXPECT_EQ(values("010000000000000123450220260331          0300000000000500000004000000000000000012", "03"),
            "cents 123.45; date 2026-03-31; dollars 50000.00; count 12; ");
  EXPECT_EQ(values("012026              02-00000000000000001", "04"), "year 2026; cents -0.01; blank ; blank ; ");
  EXPECT_EQ(values("01202612            ", "27"), "month 2026-12; blank ; blank ; blank ; ");
  EXPECT_EQ(values("0100000000000000000002000000000000000000", "14"), "count 0; count 0; blank ; blank ; ");
}

TEST_F(ShownJson, MeansTheSameUnderAnyLocale) {
  EXPECT_EQ(Shown(Line(government_) + Line(free_), "--locale fr-CA"), Shown(Line(government_) + Line(free_)));
}

TEST_F(ShownJson, PlacesProblems) {
  const Json records = Shown(Line(Ruled("PC40001T20261301") + "x") + "hello\r\n").at("records");
  EXPECT_EQ(records.at(0).at("problems"),
            Json::parse(R"([{"from": null, "to": null, "text": "161 characters long, not 160: 1 too many"},
                            {"from": 9, "to": 16,
                             "text": "PeriodStartDate: \"20261301\" is no date YYYYMMDD or YYYYMM"}])"));
  EXPECT_EQ(records.at(0).at("fields").at(0).at("sense"), "wrong");
  EXPECT_EQ(records.at(1), Json::parse(R"({"line": 2, "kind": null, "seq": null, "length": 5, "text": "hello",
             "fields": [], "problems": [{"from": null, "to": null,
             "text": "no record: the line begins with \"hello\", not with \"PC4\""}],
             "oddities": []})"));
}

TEST_F(ShownJson, TellsOdditiesFromProblems) {
  const std::string refund = "PC40001F08-000000000000005000" + std::string(132, ' ');
  const Json record = Shown(Line(government_) + Line(refund)).at("records").at(1);
  EXPECT_EQ(record.at("length"), 161);
  EXPECT_EQ(record.at("problems"), Json::array());
  EXPECT_EQ(record.at("oddities"), Json::parse(R"([{"from": 11, "to": 29, "text":
                "FieldValue: a minus sign and 18 digits take 1 column more than the field has; what follows stands as much further right"}])"));
  EXPECT_EQ(record.at("fields").at(1), Json::parse(R"({"name": "FieldValue", "from": 11, "to": 29,
                "text": "-000000000000005000", "sense": "digits", "meaning": "-50.00"})"));
  EXPECT_EQ(record.at("fields").at(2).at("from"), 30);
  EXPECT_EQ(Run("fiscalon show --json a.pc4").status, 0);
}

TEST_F(ShownJson, NamesTheFieldsOfEveryKind) {
  // clang-format off
  const Json records = Shown(Line(government_) +
      Line(Ruled("PC40001G000000000000001250Late fee")) +
      Line(Ruled("PC40002PNAME: ANNE LEE")) +
      Line(Ruled("PC40003R20260615 000012345A-17                       20260616-000000500B")) +
      Line(Ruled("PC40004I20260615000012345A-17         20260616000000500B"))).at("records");
  // clang-format on
  const auto field = [&](size_t record, size_t i) {
    const Json& shown = records.at(record).at("fields").at(i);
    return shown.at("name").get<std::string>() + " " + shown.at("sense").get<std::string>() + " " +
           shown.at("meaning").get<std::string>();
  };
  EXPECT_EQ(field(1, 0), "Amount cents 12.50");
  EXPECT_EQ(field(1, 1), "Details text Late fee");
  EXPECT_EQ(field(2, 0), "Line text NAME: ANNE LEE");
  EXPECT_EQ(field(3, 0), "InvoiceDate date 2026-06-15");
  EXPECT_EQ(field(3, 1), "InvoiceAmount cents 123.45");
  EXPECT_EQ(field(3, 2), "InvoiceNumber text A-17");
  EXPECT_EQ(field(3, 3), "InvoiceDate date 2026-06-16");
  EXPECT_EQ(field(3, 4), "InvoiceAmount cents -5.00");
  EXPECT_EQ(field(3, 5), "InvoiceNumber text B");
  EXPECT_EQ(field(4, 0), "Item1 text 20260615");
  EXPECT_EQ(field(4, 1), "Amount cents 123.45");
  EXPECT_EQ(field(4, 2), "Item2 text A-17");
  EXPECT_EQ(field(4, 4), "Item1 text 20260616");
  for (const Json& record : records) EXPECT_EQ(record.at("problems"), Json::array());
}

TEST_F(ShownJson, CarriesControlCharacters) {
  std::string record = government_;
  record[44] = '\0';
  EXPECT_EQ(Shown(Line(record)).at("records").at(0).at("fields").at(4).at("meaning"),
            std::string("H\u00E9l\u00E8\0e C\u00F4t\u00E9", 15));
}

TEST_F(ShownJson, EndsAsThePrintedFormDoes) {
  Write("good.pc4", Line(government_));
  Write("bad.pc4", "hello\n");
  Write("empty.pc4", "");
  EXPECT_EQ(Run("fiscalon show --json good.pc4").status, 0);
  EXPECT_EQ(Run("fiscalon show --json bad.pc4").status, 1);
  EXPECT_EQ(Run("fiscalon show --json nowhere.pc4").status, 2);
  EXPECT_EQ(Run("fiscalon show --json empty.pc4").status, 2);
}

TEST_F(ShownJson, IsOneLineForEachRecordOrADocument) {
  const std::string bytes = Line(government_) + "hello\n" + Line(free_);
  const Json records = Shown(bytes).at("records");
  const std::string lines = Run("fiscalon show --json-lines a.pc4").out;
  std::istringstream rest(lines);
  std::vector<Json> read;
  for (std::string line; std::getline(rest, line);) read.push_back(Json::parse(line));
  EXPECT_EQ(Json(read), records);
  EXPECT_TRUE(lines.ends_with("}\n"));
  EXPECT_EQ(Shown(bytes, "--seq 9999").at("records"), Json::array());
}

TEST_F(ShownJson, IsJsonWhateverTheBytesAre) {
  // Every byte but LF, in texts that are quoted as such, as records and as none; in a name that is no UTF-8.
  std::string every;
  for (int byte = 255; byte >= 0; --byte)
    if (byte != '\n')
      every += static_cast<char>(byte);
  const std::string name = "a\"\\\xE9.pc4";
  Write(name, every + "\n" + Line("PC40001T" + every) + Line("PC4" + every.substr(0, 157)) +
                  Line(Ruled("PC4\"\\\x01\xFF"
                             "F")) +
                  Line("PC40001" + std::string(1, '\0') + every) + "\xEF\xBB\xBF\n");
  for (const std::string form : {"--json", "--json-lines"}) {
    const Outcome seen = Run("fiscalon show " + form + " a*.pc4");
    EXPECT_EQ(seen.status, 1) << seen.err;
    std::istringstream rest(seen.out);
    if (form == "--json") {
      const Json document = Json::parse(seen.out);
      EXPECT_EQ(document.at("file"), "a\"\\\uFFFD.pc4");
      EXPECT_EQ(document.at("records").at(1).at("length"), 263);
      EXPECT_EQ(document.at("records").at(3).at("seq"), "\"\\\x01\u00FF");
      EXPECT_EQ(document.at("records").size(), 6U);
    } else {
      size_t lines = 0;
      for (std::string line; std::getline(rest, line); ++lines) EXPECT_TRUE(Json::accept(line)) << line;
      EXPECT_EQ(lines, 6U);
    }
  }
}

TEST_F(ShownJson, HasNoColoursAndNoRuler) {
  Write("a.pc4", Line(government_));
  EXPECT_THAT(Run("fiscalon show --json a.pc4").out, testing::AllOf(testing::StartsWith("{\n  \"file\": \"a.pc4\",\n"),
                                                                    testing::Not(testing::HasSubstr("....+"))));
}

}  // namespace
}  // namespace fiscalon

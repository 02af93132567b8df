#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>

#include "core/launch.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "tests/support/good_sessions.h"
#include "tests/support/module_test.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

using Codes = std::set<std::string>;

/// What a payment comes to on its screen: all that is seen when the form opens, and the records behind OK.
struct Outcome {
  std::string seen;
  std::string records;

  friend bool operator==(const Outcome&, const Outcome&) = default;
};

/// The table of which screen needs which property, beside the screens' pictures.
class PageOfTheScreens : public ModuleTest {
 protected:
  using Change = std::function<void(Levyra& payment)>;

  /// The screens of each property, as the table has them.
  static std::map<std::string, Codes> Table() {
    std::ifstream file(FISCALON_SOURCE_DIR "/docs/screens/README.md");
    std::map<std::string, Codes> table;
    bool isThere = false;
    for (std::string line; std::getline(file, line);) {
      if (line.starts_with("#"))
        isThere = line == "## Which screen needs what";
      if (!isThere || !line.starts_with("| `"))
        continue;
      std::istringstream cells(line);
      std::string cell, names, screens;
      std::getline(cells, cell, '|');
      std::getline(cells, names, '|');
      std::getline(cells, screens, '|');
      for (size_t at = 0; (at = names.find('`', at)) != names.npos;) {
        const size_t end = names.find('`', at + 1);
        table[names.substr(at + 1, end - at - 1)] = CodesIn(screens);
        at = end + 1;
      }
    }
    return table;
  }

  /// The codes of "01 to 08, 10", of "all" and of "none".
  static Codes CodesIn(const std::string& text) {
    Codes codes;
    std::istringstream words(text);
    std::string first, last;
    for (std::string word; words >> word;) {
      if (word == "to") {
        words >> last;
      } else {
        first = last = word;
      }
      for (const LaunchRow& row : LaunchTable())
        if (word == "all" || (row.code >= first.substr(0, 2) && row.code <= last.substr(0, 2)))
          codes.emplace(row.code);
    }
    return codes;
  }

  Outcome Play(const GoodSession& good, const Change& change) {
    ResetModule();
    SetToday({2026, 6, 15});
    SetLocale(EnglishCanada());
    ScriptedToolkit scripted;
    Outcome outcome;
    scripted.onMessage = [](const BoxRequest& box) { return box.DefaultAnswer(); };
    scripted.onForm = [&](Form& form, UserDriver& user) {
      outcome.seen = user.Title();
      for (const Control* control : form.Controls())
        if (user.Visible(*control))
          outcome.seen += '\n' + user.Text(*control) + (user.Enabled(*control) ? "" : " closed");
      FillIn(good, form, user);
      if (form.IsUp())
        user.Click(form.ControlNamed(good.ok));
    };
    UseToolkit(&scripted);
    Levyra payment;
    fiscalon::SetUp(good, payment);
    change(payment);
    if (payment.ShowLevyraScreen(good.code) && payment.PC4Records() != nullptr)
      for (const PC4& record : *payment.PC4Records())
        outcome.records += record.TheDate() + record.Amount() + record.Description() + '\n';
    UseToolkit(nullptr);
    return outcome;
  }

  /// The screens on which any of the changes is seen, or comes into a record.
  Codes WhereSeen(const std::vector<Change>& changes) {
    Codes codes;
    for (const GoodSession& good : kGoodSessions) {
      const Outcome as = Play(good, [](Levyra&) {});
      for (const Change& change : changes)
        if (Play(good, change) != as)
          codes.emplace(good.code);
    }
    return codes;
  }
};

TEST_F(PageOfTheScreens, TellsOnWhichScreensEachPropertyCounts) {
  const TemporaryFolder folder;
  const auto toFile = [&](Levyra& payment) {
    payment.GovFilename(folder.Path("records.pc4"));
    payment.WriteFile(true);
  };
  const auto code = [](const char* text) { return [text](Levyra& payment) { payment.CompCode(text); }; };
  const std::map<std::string, std::vector<Change>> properties = {
      {"PaidAmount", {[](Levyra& payment) { payment.PaidAmount("777"); }}},
      {"PaidDate", {[](Levyra& payment) { payment.PaidDate("07162026"); }}},
      {"APHoldFlg", {[](Levyra& payment) { payment.APHoldFlg(1); }}},
      {"CompName", {[](Levyra& payment) { payment.CompName("Another Payee"); }}},
      {"SeqNumber", {[](Levyra& payment) { payment.SeqNumber("9999"); }}},
      {"EnterName", {[](Levyra& payment) { payment.EnterName("John Roe"); }}},
      {"EnterTitle", {[](Levyra& payment) { payment.EnterTitle("Manager"); }}},
      {"CompCode", {code(""), code("001051"), code("001052"), code("001053"), code("001055")}},
      {"NumberOfInfoCollect", {[](Levyra& payment) { payment.NumberOfInfoCollect("2"); }}},
      {"BusinessName", {[](Levyra& payment) { payment.BusinessName("Summit Books"); }}},
      {"GovFilename", {toFile}},
      {"WriteFile", {toFile}},
      {"ZelmorNumber", {[](Levyra& payment) { payment.ZelmorNumber("7654321"); }}},
      {"AccountNumber", {[](Levyra& payment) { payment.AccountNumber("7654321"); }}},
      // Nothing sets it.
      {"ShowGST58", {}},
  };
  const auto table = Table();
  for (const auto& [name, changes] : properties) {
    ASSERT_TRUE(table.contains(name)) << name << " is not in the table";
    EXPECT_EQ(table.at(name), WhereSeen(changes)) << name;
  }
  EXPECT_EQ(table.size(), properties.size());
}

}  // namespace
}  // namespace fiscalon

#include <gtest/gtest.h>

#include <vector>

#include "core/found_records.h"
#include "core/launch.h"
#include "core/records/field_names.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "tests/support/good_sessions.h"
#include "tests/support/module_test.h"
#include "tools/reading/shown_record.h"

namespace fiscalon {
namespace {

/// What a good session leaves behind, taken apart as records of its screen: the table of field names holds against what
/// screens write.
class WrittenFields : public ModuleTest {
 protected:
  std::vector<ShownRecord> RecordsOf(const GoodSession& good) {
    Levyra session;
    fiscalon::SetUp(good, session);
    ScriptedToolkit user;
    user.onForm = [&good](Form& form, UserDriver& acts) {
      FillIn(good, form, acts);
      acts.Click(form.ControlNamed(good.ok));
    };
    UseToolkit(&user);
    EXPECT_TRUE(session.ShowLevyraScreen(good.code)) << good.code;
    UseToolkit(&toolkit);
    const FoundRecords found = FindRecords(session);
    const LaunchRow* screen = FindLaunchRow(good.code);
    return found.collection != nullptr ? TakeApart(*found.collection, screen) : TakeApart(found.records, screen);
  }
};

TEST_F(WrittenFields, AreWithoutAProblem) {
  for (const GoodSession& good : kGoodSessions) {
    const std::vector<ShownRecord> records = RecordsOf(good);
    EXPECT_EQ(records.size(), static_cast<size_t>(good.records)) << good.code;
    for (const ShownRecord& record : records)
      for (const Note& problem : record.problems)
        ADD_FAILURE() << "screen " << good.code << ", record " << record.number << ": " << problem.In({}) << "\n"
                      << record.record;
  }
}

// Numbers that no field has fill records up, with values of zeros.
TEST_F(WrittenFields, HaveNamesOnTheirScreen) {
  for (const GoodSession& good : kGoodSessions) {
    int named = 0;
    for (const ShownRecord& record : RecordsOf(good))
      for (size_t i = 0; i + 1 < record.fields.size(); ++i) {
        const ShownField& number = record.fields[i];
        const std::string_view value = record.TextOf(record.fields[i + 1]);
        if (number.sense != Sense::FieldNumber || value.find_first_not_of("0 ") == value.npos)
          continue;
        EXPECT_NE(number.nameOnScreen, "") << good.code << ": " << record.TextOf(number) << "\n" << record.record;
        ++named;
      }
    EXPECT_EQ(named > 0, !FieldNamesOf(good.code).empty()) << good.code;
  }
}

}  // namespace
}  // namespace fiscalon

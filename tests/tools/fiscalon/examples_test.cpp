#include <gmock/gmock.h>

#include <filesystem>
#include <set>

#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;
using testing::IsSupersetOf;

class Examples : public CommandLine {
 protected:
  static std::set<std::string> Scenarios() {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(FISCALON_SOURCE_DIR "/examples"))
      if (entry.path().extension() == ".scenario")
        names.insert(entry.path().filename().string());
    return names;
  }
};

TEST_F(Examples, TourAndFourMore) {
  EXPECT_THAT(Scenarios(), IsSupersetOf({"due_date_amount.scenario", "cancel.scenario", "record_file.scenario",
                                         "french_user.scenario", "several.scenario"}));
}

TEST_F(Examples, Pass) {
  for (const std::string& name : Scenarios()) {
    const Outcome seen = Run("fiscalon play '" FISCALON_SOURCE_DIR "/examples/" + name + "'");
    EXPECT_EQ(seen.status, 0) << seen.out << seen.err;
  }
}

TEST_F(Examples, BeginWithWhatTheyShow) {
  for (const std::string& name : Scenarios())
    EXPECT_EQ(Run("head -c 2 '" FISCALON_SOURCE_DIR "/examples/" + name + "'").out, "# ") << name;
}

// The tour is what ./run shows a newcomer: the form, the box, and records in which nothing is wrong.
TEST_F(Examples, TourShowsFormBoxAndRecords) {
  const Outcome seen = Run("fiscalon play --narrate '" FISCALON_SOURCE_DIR "/examples/due_date_amount.scenario'");
  EXPECT_EQ(seen.status, 0);
  for (const char* each : {"┌─ Summit Levies ", "(x) 'Taxation year ends on' must be", "the host gets: result True",
                           "The host finds 2 records", "\"000000000000012345\"  $123.45", "1 passed, 0 failed"})
    EXPECT_THAT(seen.out, HasSubstr(each));
  EXPECT_THAT(seen.out, testing::Not(HasSubstr("    ! ")));
}

}  // namespace
}  // namespace fiscalon

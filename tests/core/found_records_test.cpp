#include "core/found_records.h"

#include <gmock/gmock.h>

#include "core/boolean.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FindRecordsTest : public testing::Test {
 protected:
  FindRecordsTest() {
    session.GovFilename(folder.Path("payment.pc4"));
    const auto members = std::make_shared<PC4s>();
    members->Add("", "", "PC40001T");
    members->Add("20260615", " 000012345", "A-17");
    session.PC4Records(members);
    folder.Write("payment.pc4", "\"PC40002T\"\r\n\"PC40002F\"\r\n");
  }

  const TemporaryFolder folder;
  Levyra session;
};

TEST_F(FindRecordsTest, LooksIntoTheCollection) {
  EXPECT_THAT(FindRecords(session).records, ElementsAre("PC40001T", "A-17"));
  session.PC4Records(nullptr);
  EXPECT_THAT(FindRecords(session).records, IsEmpty());
}

TEST_F(FindRecordsTest, LooksIntoTheFileWhereWriteFileIsExactlyTrue) {
  session.WriteFile(kTrue);
  EXPECT_THAT(FindRecords(session).records, ElementsAre("PC40002T", "PC40002F"));
  EXPECT_FALSE(FindRecords(session).foreignLine);
  for (const int value : {1, 2, -2}) {
    session.WriteFile(static_cast<int16_t>(value));
    EXPECT_THAT(FindRecords(session).records, ElementsAre("PC40001T", "A-17")) << value;
  }
}

TEST_F(FindRecordsTest, FindsNothingWhereThereIsNoFile) {
  session.WriteFile(kTrue);
  for (const std::string& name : {folder.Path("nowhere"), folder.Path(), std::string()}) {
    session.GovFilename(name);
    EXPECT_THAT(FindRecords(session).records, IsEmpty()) << name;
    EXPECT_FALSE(FindRecords(session).foreignLine) << name;
  }
}

TEST_F(FindRecordsTest, NamesTheFirstLineThatNoScreenWrote) {
  session.WriteFile(kTrue);
  folder.Write("payment.pc4", "\"PC40002T\"\r\nPC40002F\r\n\"PC40002F\"\n");
  const FoundRecords found = FindRecords(session);
  EXPECT_THAT(found.records, ElementsAre("PC40002T", "PC40002F", "PC40002F"));
  EXPECT_EQ(found.foreignLine, "PC40002F");
}

}  // namespace
}  // namespace fiscalon

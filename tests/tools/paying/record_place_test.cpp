#include "tools/paying/record_place.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

const std::string kRecord = "PC40001T                202605" + std::string(130, ' ');

class RecordPlace : public testing::Test {
 protected:
  std::string Lost(std::string_view bytes) const { return WhatWouldBeLost(folder.Write("there", bytes)); }
  std::string There(std::string_view words) const {
    return "\"" + folder.Path("there") + "\" is no record file. " + std::string(words);
  }

  TemporaryFolder folder;
};

TEST_F(RecordPlace, MayBeAFileThatIsThereOrNot) {
  EXPECT_EQ(WhyNoFileCanBe(folder.Path("new.pc4")), "");
  EXPECT_EQ(WhyNoFileCanBe(folder.Write("old.pc4", "")), "");
  EXPECT_EQ(WhyNoFileCanBe("in_the_current_folder.pc4"), "");
  EXPECT_EQ(WhyNoFileCanBe(folder.Path("payé.pc4")), "");
}

TEST_F(RecordPlace, HasAName) {
  EXPECT_EQ(WhyNoFileCanBe(""), "no file is named.");
  EXPECT_EQ(WhyNoFileCanBe(" "), "no file is named.");
}

TEST_F(RecordPlace, IsNoFolder) {
  EXPECT_EQ(WhyNoFileCanBe(folder.Path()), "\"" + folder.Path() + "\" is a folder: name a file in it.");
}

TEST_F(RecordPlace, HasAFolderThatIsThere) {
  EXPECT_EQ(WhyNoFileCanBe(folder.Path("no/such/file.pc4")),
            "there is no folder \"" + folder.Path("no/such") + "\": make it, or name another file.");
  folder.Write("file", "");
  EXPECT_EQ(WhyNoFileCanBe(folder.Path("file/in.pc4")),
            "there is no folder \"" + folder.Path("file") + "\": make it, or name another file.");
}

TEST_F(RecordPlace, IsNoDeviceAndIsNotWaitedFor) {
  EXPECT_EQ(WhyNoFileCanBe("/dev/null"), "\"/dev/null\" is a device or a pipe, which can't hold records: name a file.");
  const std::string pipe = folder.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(WhyNoFileCanBe(pipe), "\"" + pipe + "\" is a device or a pipe, which can't hold records: name a file.");
  EXPECT_EQ(WhatWouldBeLost(pipe), "");
}

TEST_F(RecordPlace, KnowsWhyItCantLook) {
  const std::string name(300, 'x');
  EXPECT_EQ(WhyNoFileCanBe(folder.Path(name)), "\"" + folder.Path(name) + "\" can't be looked at: File name too long.");
}

TEST_F(RecordPlace, IsNamedInLettersThatTheLibraryKnows) {
  EXPECT_EQ(WhyNoFileCanBe("Łódź.pc4"), "\"Łódź.pc4\" would become \"?ód?.pc4\": name it in Western European letters.");
}

TEST_F(RecordPlace, LosesNothingButRecords) {
  EXPECT_EQ(WhatWouldBeLost(folder.Path("none")), "");
  EXPECT_EQ(Lost(""), "");
  EXPECT_EQ(Lost("\"" + kRecord + "\"\r\n"), "");
  EXPECT_EQ(Lost(kRecord + "\n" + kRecord), "");
}

// The last line that is looked at is cut, wherever that falls.
TEST_F(RecordPlace, KnowsALargeRecordFile) {
  std::string records;
  for (int i = 0; i < 1000; ++i) records += "\"" + kRecord + "\"\r\n";
  EXPECT_EQ(Lost(records), "");
}

TEST_F(RecordPlace, TellsWhatIsThere) {
  EXPECT_EQ(Lost("Dear Ms Roy,\nthe rent"), There("It has 21 bytes, and begins with \"Dear Ms Roy,\"."));
  EXPECT_EQ(Lost("x"), There("It has 1 byte, and begins with \"x\"."));
  EXPECT_EQ(Lost(kRecord + "\nand a note\n"),
            There("It has 172 bytes, and begins with \"PC40001T                202605          ...\"."));
  EXPECT_EQ(Lost(std::string(39, 'e') + "éf"),
            There("It has 42 bytes, and begins with \"" + std::string(39, 'e') + "é...\"."));
}

TEST_F(RecordPlace, TellsAFileThatIsNoText) {
  EXPECT_EQ(Lost(std::string_view("\x89PNG\r\n\x1A\n\0\0", 10)),
            There("It has 10 bytes, and begins with \"\uFFFDPNG\"."));
  EXPECT_EQ(Lost(std::string_view("\0\0", 2)), There("It has 2 bytes, and does not begin as a text."));
  EXPECT_EQ(Lost("\n"), There("It has 1 byte, and does not begin as a text."));
}

TEST_F(RecordPlace, IsAskedAboutWhereTheFileCantBeRead) {
  const std::string path = folder.Write("secret", "x");
  std::filesystem::permissions(path, std::filesystem::perms::none);
  const std::string lost = WhatWouldBeLost(path);
  // An administrator reads everything.
  EXPECT_TRUE(lost == "\"" + path + "\" is there and can't be read: it may be no record file." ||
              lost == "\"" + path + "\" is no record file. It has 1 byte, and begins with \"x\".")
      << lost;
}

}  // namespace
}  // namespace fiscalon

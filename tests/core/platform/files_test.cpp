#include "core/platform/files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "tests/core/platform/system_files_test.h"

namespace fiscalon {
namespace {

using namespace std::string_literals;

TEST_F(SystemFilesTest, AFileExistsEvenIfItIsEmpty) {
  EXPECT_TRUE(files.Exists(folder.Write("records.txt", "PC4")));
  EXPECT_TRUE(files.Exists(folder.Write("empty.txt", "")));
}

TEST_F(SystemFilesTest, NothingElseExists) {
  EXPECT_FALSE(files.Exists(folder.Path("missing.txt")));
  EXPECT_FALSE(files.Exists(folder.Path()));
  EXPECT_FALSE(files.Exists(""));
  EXPECT_FALSE(files.Exists(folder.Path("missing/records.txt")));
  EXPECT_FALSE(files.Exists(folder.Write("records.txt", "PC4") + "\0.txt"s));
}

TEST_F(SystemFilesTest, OutputStartsTheFileAfresh) {
  folder.Write("records.txt", "what was there before");
  const auto file = files.Open(folder.Path("records.txt"), OpenMode::Output);
  file->Print("one\r\n");
  file->Print("two\r\n");
  file->Close();
  EXPECT_EQ(folder.Read("records.txt"), "one\r\ntwo\r\n");
}

TEST_F(SystemFilesTest, AppendGoesOnBehindWhatIsThere) {
  files.Open(folder.Path("error.log"), OpenMode::Append)->Print("one\r\n");
  files.Open(folder.Path("error.log"), OpenMode::Append)->Print("two\r\n");
  EXPECT_EQ(folder.Read("error.log"), "one\r\ntwo\r\n");
}

TEST_F(SystemFilesTest, ALineIsWithTheSystemWhenPrintReturns) {
  const auto file = files.Open(folder.Path("records.txt"), OpenMode::Output);
  file->Print("one\r\n");
  EXPECT_EQ(folder.Read("records.txt"), "one\r\n");
  file->Print("two\r\n");
  EXPECT_EQ(folder.Read("records.txt"), "one\r\ntwo\r\n");
}

TEST_F(SystemFilesTest, APathIsInTheCodePage) {
  files.Open(FromUtf8(folder.Path("Côté.txt")), OpenMode::Output)->Print("x");
  EXPECT_EQ(folder.Read("Côté.txt"), "x");
  EXPECT_TRUE(files.Exists(FromUtf8(folder.Path("Côté.txt"))));
  files.Delete(FromUtf8(folder.Path("Côté.txt")));
  EXPECT_FALSE(files.Exists(FromUtf8(folder.Path("Côté.txt"))));
}

TEST_F(SystemFilesTest, PrintAfterCloseIsAnErrorAndASecondCloseIsNone) {
  const auto file = files.Open(folder.Path("records.txt"), OpenMode::Output);
  file->Close();
  EXPECT_EQ(ErrorOf([&] { file->Print("x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { file->Close(); }), 0);
}

TEST_F(SystemFilesTest, OpenTellsAMissingFolderFromOtherFailures) {
  folder.Write("file.txt", "");
  EXPECT_EQ(OpenError(folder.Path("missing/records.txt")), 76);
  EXPECT_EQ(OpenError(folder.Path("file.txt/records.txt")), 76);
  EXPECT_EQ(OpenError(""), 75);
  EXPECT_EQ(OpenError(folder.Path()), 75);
  EXPECT_EQ(OpenError(folder.Path("a\0b"s)), 75);
}

TEST_F(SystemFilesTest, DeleteRemovesAFile) {
  const std::string path = folder.Write("records.txt", "x");
  files.Delete(path);
  EXPECT_FALSE(files.Exists(path));
}

TEST_F(SystemFilesTest, DeleteRefusesWhatIsNoFile) {
  folder.Write("file.txt", "");
  std::filesystem::create_directory(folder.Path("inner"));
  EXPECT_EQ(DeleteError(folder.Path("missing.txt")), 53);
  EXPECT_EQ(DeleteError(folder.Path("missing/records.txt")), 53);
  EXPECT_EQ(DeleteError(""), 53);
  EXPECT_EQ(DeleteError(folder.Path("file.txt/records.txt")), 76);
  EXPECT_EQ(DeleteError(folder.Path("inner")), 75);
  EXPECT_EQ(DeleteError(folder.Path("file.txt") + "\0x"s), 75);
  EXPECT_TRUE(files.Exists(folder.Path("file.txt")));
}

TEST(ParentFolder, IsThePathWithoutItsLastPart) {
  EXPECT_EQ(Files::ParentFolder("/a/b/c"), "/a/b");
  EXPECT_EQ(Files::ParentFolder("a/b"), "a");
  EXPECT_EQ(Files::ParentFolder("C:\\levies\\out.txt"), "C:\\levies");
  EXPECT_EQ(Files::ParentFolder("a\\b/c"), "a\\b");
  EXPECT_EQ(Files::ParentFolder("/a/b/"), "/a");
  EXPECT_EQ(Files::ParentFolder("a//b"), "a");
}

TEST(ParentFolder, OfAnEntryOfTheRootIsTheRoot) {
  EXPECT_EQ(Files::ParentFolder("/a"), "/");
  EXPECT_EQ(Files::ParentFolder("//a"), "/");
  EXPECT_EQ(Files::ParentFolder("C:\\out.txt"), "C:\\");
  EXPECT_EQ(Files::ParentFolder("C:/out.txt"), "C:/");
}

TEST(ParentFolder, IsEmptyWhereThereIsNone) {
  EXPECT_EQ(Files::ParentFolder("x"), "");
  EXPECT_EQ(Files::ParentFolder("x/"), "");
  EXPECT_EQ(Files::ParentFolder("/"), "");
  EXPECT_EQ(Files::ParentFolder("C:\\"), "");
  EXPECT_EQ(Files::ParentFolder(""), "");
}

TEST(JoinPath, WithAnEmptySideIsTheOther) {
  EXPECT_EQ(Files::JoinPath("", "error.log"), "error.log");
  EXPECT_EQ(Files::JoinPath("/logs", ""), "/logs");
}

TEST(CurrentFolder, IsTheFolderOfTheProcess) {
  EXPECT_EQ(Files::CurrentFolder(), FromUtf8(Utf8Of(std::filesystem::current_path())));
}

}  // namespace
}  // namespace fiscalon

#include "core/platform/runtime_error.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

std::string DescriptionOf(int32_t number) {
  try {
    Raise(number);
  } catch (const RuntimeError& error) {
    return std::to_string(error.Number()) + " " + error.Description();
  }
}

TEST(Raise, ThrowsTheStandardDescription) {
  EXPECT_EQ(DescriptionOf(error_number::kInvalidProcedureCall), "5 Invalid procedure call or argument");
  EXPECT_EQ(DescriptionOf(error_number::kOverflow), "6 Overflow");
  EXPECT_EQ(DescriptionOf(error_number::kSubscriptOutOfRange), "9 Subscript out of range");
  EXPECT_EQ(DescriptionOf(error_number::kTypeMismatch), "13 Type mismatch");
  EXPECT_EQ(DescriptionOf(error_number::kFileNotFound), "53 File not found");
  EXPECT_EQ(DescriptionOf(error_number::kDiskFull), "61 Disk full");
  EXPECT_EQ(DescriptionOf(error_number::kPermissionDenied), "70 Permission denied");
  EXPECT_EQ(DescriptionOf(error_number::kPathFileAccessError), "75 Path/File access error");
  EXPECT_EQ(DescriptionOf(error_number::kPathNotFound), "76 Path not found");
  EXPECT_EQ(DescriptionOf(error_number::kObjectNotSet), "91 Object variable or With block variable not set");
  EXPECT_EQ(DescriptionOf(error_number::kDuplicateKey),
            "457 This key is already associated with an element of this collection");
}

TEST(RuntimeError, CarriesNumberDescriptionAndSource) {
  const RuntimeError error(13, "Type mismatch", "Levyra");
  EXPECT_EQ(error.Number(), 13);
  EXPECT_EQ(error.Description(), "Type mismatch");
  EXPECT_EQ(error.Source(), "Levyra");
  EXPECT_STREQ(error.what(), "Type mismatch");
}

}  // namespace
}  // namespace fiscalon

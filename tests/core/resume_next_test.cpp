#include "core/resume_next.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace fiscalon {
namespace {

TEST(ResumeNext, SkipsAStatementThatFails) {
  int steps = 0;
  ResumeNext::Run([&] {
    ++steps;
    Raise(error_number::kTypeMismatch);
    ++steps;
  });
  EXPECT_EQ(steps, 1);
}

TEST(ResumeNext, GoesOnInsideTheBranchWhereTheTestFails) {
  EXPECT_TRUE(ResumeNext::Holds([]() -> bool { Raise(error_number::kTypeMismatch); }));
}

TEST(ResumeNext, AnswersTheConditionOtherwise) {
  EXPECT_TRUE(ResumeNext::Holds([] { return true; }));
  EXPECT_FALSE(ResumeNext::Holds([] { return false; }));
}

TEST(ResumeNext, CheckThatCannotBeMadeFails) {
  EXPECT_TRUE(ResumeNext::Fails([] { return false; }));
  EXPECT_TRUE(ResumeNext::Fails([]() -> bool { Raise(error_number::kTypeMismatch); }));
  EXPECT_FALSE(ResumeNext::Fails([] { return true; }));
}

TEST(ResumeNext, AttemptSkipsOrLetsOutAsItsPolicySays) {
  const auto fails = [] { Raise(error_number::kTypeMismatch); };
  EXPECT_NO_THROW(Attempt(Failures::Skipped, fails));
  EXPECT_THROW(Attempt(Failures::Leave, fails), RuntimeError);
  int runs = 0;
  Attempt(Failures::Skipped, [&] { ++runs; });
  Attempt(Failures::Leave, [&] { ++runs; });
  EXPECT_EQ(runs, 2);
}

TEST(ResumeNext, SwallowsRunTimeErrorsAlone) {
  EXPECT_THROW(ResumeNext::Run([] { throw std::logic_error("defect"); }), std::logic_error);
  EXPECT_THROW(ResumeNext::Holds([]() -> bool { throw std::logic_error("defect"); }), std::logic_error);
  EXPECT_THROW(ResumeNext::Fails([]() -> bool { throw std::logic_error("defect"); }), std::logic_error);
  EXPECT_THROW(Attempt(Failures::Skipped, [] { throw std::logic_error("defect"); }), std::logic_error);
}

}  // namespace
}  // namespace fiscalon

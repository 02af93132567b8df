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

TEST(ResumeNext, SwallowsRunTimeErrorsAlone) {
  EXPECT_THROW(ResumeNext::Run([] { throw std::logic_error("defect"); }), std::logic_error);
  EXPECT_THROW(ResumeNext::Holds([]() -> bool { throw std::logic_error("defect"); }), std::logic_error);
}

}  // namespace
}  // namespace fiscalon

#include "screens/parts/joined_events.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace fiscalon {
namespace {

using testing::ElementsAre;

TEST(JoinedEvents, RunTheFormsHandlerAndThenTheParts) {
  std::vector<std::string> ran;
  const FieldEvents joined = Joined(FieldEvents{.change = [&] { ran.emplace_back("form"); }},
                                    FieldEvents{.change = [&] { ran.emplace_back("part"); }});
  joined.change();
  EXPECT_THAT(ran, ElementsAre("form", "part"));
}

TEST(JoinedEvents, PassTheCharacterOn) {
  int seen = 0;
  const FieldEvents joined = Joined(FieldEvents{.keyPress = [](int& character) { character = 'b'; }},
                                    FieldEvents{.keyPress = [&](int& character) { seen = character; }});
  int character = 'a';
  joined.keyPress(character);
  EXPECT_EQ(seen, 'b');
}

TEST(JoinedEvents, AreNoneWhereNeitherHasOne) {
  int left = 0;
  const FieldEvents joined = Joined(FieldEvents{.lostFocus = [&] { ++left; }}, FieldEvents{});
  EXPECT_EQ(joined.change, nullptr);
  EXPECT_EQ(joined.keyDown, nullptr);
  joined.lostFocus();
  EXPECT_EQ(left, 1);
}

}  // namespace
}  // namespace fiscalon

#include "screens/parts/entry_rows.h"

#include <cstddef>
#include <type_traits>
#include <vector>

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

class RowsForm : public PartForm {
 public:
  Wording BoxTitle() const override { return "Rows"; }

  TextField Field{*this, "Field", {.tabIndex = 0}};
  TextField Other{*this, "Other", {.tabIndex = 1}};
};

/// A field with notes of the rows that were gone through.
struct NotedEntry {
  TextField& Field() const { return *field; }
  Failures Policy() const { return policy; }

  TextField* field = nullptr;
  std::vector<std::string>* notes = nullptr;
  Failures policy = Failures::Skipped;
};

bool Steps(NotedEntry& entry) {
  entry.notes->emplace_back("step");
  return false;
}
bool Meets(NotedEntry& entry) {
  entry.notes->emplace_back("met");
  return true;
}

// A row that tests nothing is refused by the compiler.
static_assert(!std::is_default_constructible_v<EntryRow<NotedEntry>>);
static_assert(!std::is_constructible_v<EntryRow<NotedEntry>, std::nullptr_t>);
static_assert(!std::is_constructible_v<EntryRow<NotedEntry>, bool (*)(NotedEntry&)>);
static_assert(std::is_constructible_v<EntryRow<NotedEntry>, bool (&)(NotedEntry&)>);

class Rows : public PartTest<RowsForm> {
 protected:
  /// The result for a field that holds "12" while the focus is elsewhere.
  bool Passed(const std::vector<EntryRow<NotedEntry>>& rows) {
    bool passed = false;
    WhileUp([&](FormUser&) {
      form.Field.Text("12");
      form.Other.SetFocus();
      passed = PassesRows(NotedEntry{&form.Field, &notes}, rows);
      text = form.Field.Text();
      focus = FocusName();
    });
    form.Unload();
    return passed;
  }

  std::vector<std::string> notes;
  std::string text;
  std::string focus;
};

TEST_F(Rows, PassAFieldThatMeetsNone) {
  EXPECT_TRUE(Passed({{Steps, "No."}, {Steps}}));
  EXPECT_THAT(notes, ElementsAre("step", "step"));
  EXPECT_EQ(focus, "Other");
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(Rows, EndWithTheFirstThatIsMet) {
  EXPECT_FALSE(Passed({{Steps}, {Meets, "No."}, {Meets, "Never."}}));
  EXPECT_THAT(notes, ElementsAre("step", "met"));
  EXPECT_THAT(TakeTexts(), ElementsAre("No."));
  EXPECT_EQ(focus, "Field");
  EXPECT_EQ(text, "12");
}

TEST_F(Rows, AreSilentWithoutAMessage) {
  EXPECT_FALSE(Passed({{Meets}}));
  EXPECT_TRUE(toolkit.boxes.empty());
  EXPECT_EQ(focus, "Field");
}

TEST_F(Rows, ShowTheirStyleOfBox) {
  EXPECT_FALSE(Passed({{Meets, "No.", Reaction::Focus, MessageStyle::Plain}}));
  EXPECT_FALSE(Passed({{Meets, "No."}}));
  ASSERT_EQ(toolkit.boxes.size(), 2U);
  EXPECT_EQ(toolkit.boxes[0].style, MessageStyle::Plain);
  EXPECT_EQ(toolkit.boxes[0].title, "Rows");
  EXPECT_EQ(toolkit.boxes[1].style, MessageStyle::Critical);
}

TEST_F(Rows, EmptyTheField) {
  EXPECT_FALSE(Passed({{Meets, "No.", Reaction::Empties}}));
  EXPECT_EQ(text, "");
  EXPECT_EQ(focus, "Field");
}

TEST_F(Rows, SelectTheWholeText) {
  WhileUp([&](FormUser&) {
    form.Field.Text("12");
    constexpr EntryRow<NotedEntry> kSelecting[] = {{Meets, "", Reaction::Selects}};
    EXPECT_FALSE(PassesRows(NotedEntry{&form.Field, &notes}, kSelecting));
    EXPECT_EQ(form.Field.Selected(), (Selection{.start = 0, .length = 2}));
  });
}

TEST_F(Rows, StopWhereTheyAreOrPass) {
  EXPECT_FALSE(Passed({{Meets, "", Reaction::Stops}, {Steps}}));
  EXPECT_EQ(focus, "Other");
  EXPECT_TRUE(Passed({{Meets, "", Reaction::Passes}, {Meets, "Never."}}));
  EXPECT_EQ(focus, "Other");
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(Rows, SkipOrLetOutAFocusThatCannotBeMoved) {
  WhileUp([&](FormUser&) {
    constexpr EntryRow<NotedEntry> kMet[] = {{Meets}};
    form.Field.Enabled(false);
    EXPECT_FALSE(PassesRows(NotedEntry{&form.Field, &notes}, kMet));
    EXPECT_EQ(ErrorOf([&] { PassesRows(NotedEntry{&form.Field, &notes, Failures::Leave}, kMet); }), 5);
  });
}

}  // namespace
}  // namespace fiscalon

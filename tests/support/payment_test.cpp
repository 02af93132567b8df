#include "tests/support/payment_test.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "core/module_to_change.h"
#include "core/records/record_reader.h"
#include "tests/support/good_sessions.h"
#include "tests/support/raises.h"
#include "tests/support/ruled_record.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

/// Puts another text in place of the first one, where that stands.
void Replace(std::string& record, std::string_view old, std::string_view text) {
  if (const size_t at = record.find(old); at != std::string::npos)
    record.replace(at, text.size(), text);
}

constexpr std::string_view kFile = "payment.pc4";

constexpr SharedTest kOkPathTests[] = {
    {"EachRowRefusesWithItsMessageAndFocus", &AnyPaymentTest::EachRowRefusesWithItsMessageAndFocus},
    {"EachRowIsMetBeforeEveryLaterRow", &AnyPaymentTest::EachRowIsMetBeforeEveryLaterRow},
    {"TheRowsAreAllThereInOrder", &AnyPaymentTest::TheRowsAreAllThereInOrder},
    {"AcceptsAValidForm", &AnyPaymentTest::AcceptsAValidForm},
};

constexpr SharedTest kRecordsTests[] = {
    {"AreWhatWasEntered", &AnyPaymentTest::AreWhatWasEntered},
    {"AreQuotedLinesInTheFile", &AnyPaymentTest::AreQuotedLinesInTheFile},
    {"LieInAClosedFileAsSoonAsTheFormHides", &AnyPaymentTest::LieInAClosedFileAsSoonAsTheFormHides},
    {"AreReadBackAsTheyWereWritten", &AnyPaymentTest::AreReadBackAsTheyWereWritten},
    {"TakeANameOf30AndATitleOf20", &AnyPaymentTest::TakeANameOf30AndATitleOf20},
    {"HaveNoRoomForANameOf31", &AnyPaymentTest::HaveNoRoomForANameOf31},
    {"HaveNoRoomForATitleOf21", &AnyPaymentTest::HaveNoRoomForATitleOf21},
    {"AreIncompleteOnAFullDiskUntilTheNextOutput", &AnyPaymentTest::AreIncompleteOnAFullDiskUntilTheNextOutput},
    {"KeepTheirFileOpenOnAFullDiskUntilTheFormUnloads",
     &AnyPaymentTest::KeepTheirFileOpenOnAFullDiskUntilTheFormUnloads},
    {"OfALaterLaunchStandInTheCollectionOfTheFirst", &AnyPaymentTest::OfALaterLaunchStandInTheCollectionOfTheFirst},
    {"LeaveAPlayByPlayLogWhereTheScreenWritesOne", &AnyPaymentTest::LeaveAPlayByPlayLogWhereTheScreenWritesOne},
};

}  // namespace

std::span<const SharedTest> OkPathTests() {
  return kOkPathTests;
}

std::span<const SharedTest> RecordsTests() {
  return kRecordsTests;
}

AnyPaymentTest::AnyPaymentTest(std::string_view cents) {
  session.SeqNumber("0001");
  session.PaidAmount(cents);
  session.EnterName("Jane Doe");
  session.EnterTitle("Clerk");
}

std::vector<std::string> AnyPaymentTest::ExpectedInTheCollection() const {
  std::vector<std::string> records = Expected();
  for (std::string& record : records) record = Ruled(record);
  return records;
}

bool AnyPaymentTest::ShowForm(const Acts& acts) {
  return Show<Form>(Code(), acts);
}

bool AnyPaymentTest::EnterAndPressOk(const std::function<void(Form& form)>& change) {
  return ShowForm([&](Form& form, UserDriver& user) {
    FillInForm(form, user);
    if (change)
      change(form);
    user.Click(OkOf(form));
    focusBehindOk = user.FocusName();
    openBehindOk = files->openFiles;
  });
}

void AnyPaymentTest::WriteToMemory() {
  ModuleToChange().files = files;
  session.WriteFile(kTrue);
  session.GovFilename(kFile);
}

std::string AnyPaymentTest::LinesOf(const std::vector<std::string>& records) {
  std::string lines;
  for (const std::string& record : records) lines += '"' + Ruled(record) + "\"\r\n";
  return lines;
}

AnyPaymentTest::Pressed AnyPaymentTest::PressOkWith(const std::vector<size_t>& wrongRows) {
  Pressed pressed;
  pressed.result = ShowForm([&](Form& form, UserDriver& user) {
    FillInForm(form, user);
    user.PressMouse(OkOf(form));
    EXPECT_TRUE(TakeBoxes().empty()) << "the valid form is not valid";
    for (const size_t row : wrongRows) Spoil(row, form);
    user.Click(OkOf(form));
    pressed.boxes = TakeBoxes();
    pressed.stayedUp = form.IsUp();
    pressed.focus = user.FocusName();
  });
  return pressed;
}

void AnyPaymentTest::ExpectRefusalOf(size_t row, const std::vector<size_t>& wrongRows) {
  const Refusal refusal = RefusalOf(row);
  std::string name(refusal.name);
  if (wrongRows.front() != row)
    name.append(" before ").append(RefusalOf(wrongRows.front()).name);
  SCOPED_TRACE(name);
  const Pressed pressed = PressOkWith(wrongRows);
  EXPECT_EQ(pressed.focus, refusal.focus);
  EXPECT_TRUE(pressed.stayedUp);
  EXPECT_FALSE(pressed.result);
  ASSERT_EQ(pressed.boxes.size(), refusal.message.empty() ? 0U : 1U);
  if (refusal.message.empty())
    return;
  EXPECT_EQ(pressed.boxes[0].text, refusal.message);
  EXPECT_EQ(pressed.boxes[0].style, refusal.style);
  EXPECT_EQ(pressed.boxes[0].title, refusal.title);
}

void AnyPaymentTest::EachRowRefusesWithItsMessageAndFocus() {
  ASSERT_GT(RowCount(), 0U);
  for (size_t row = 0; row < RowCount(); ++row) ExpectRefusalOf(row, {row});
}

void AnyPaymentTest::EachRowIsMetBeforeEveryLaterRow() {
  for (size_t first = 0; first < RowCount(); ++first)
    for (size_t second = first + 1; second < RowCount(); ++second) ExpectRefusalOf(first, {second, first});
}

// With everything wrong, mending what each refusal is about leads to the accepted form, past the rows' messages and no
// others. A silent refusal counts as an empty message.
void AnyPaymentTest::TheRowsAreAllThereInOrder() {
  std::vector<std::string> told;
  std::vector<std::string> messages;
  for (size_t mended = 0; mended <= RowCount(); ++mended) {
    std::vector<size_t> wrong;
    for (size_t row = RowCount(); row-- > mended;) wrong.push_back(row);
    const Pressed pressed = PressOkWith(wrong);
    for (const BoxRequest& box : pressed.boxes) messages.push_back(box.text);
    if (pressed.boxes.empty() && pressed.stayedUp)
      messages.emplace_back();
    if (mended < RowCount())
      told.emplace_back(RefusalOf(mended).message);
  }
  EXPECT_EQ(messages, told);
}

void AnyPaymentTest::AcceptsAValidForm() {
  const Pressed pressed = PressOkWith({});
  EXPECT_TRUE(pressed.boxes.empty());
  EXPECT_FALSE(pressed.stayedUp);
  EXPECT_TRUE(pressed.result);
}

void AnyPaymentTest::AreWhatWasEntered() {
  ASSERT_FALSE(Expected().empty());
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(Records(), ExpectedInTheCollection());
}

void AnyPaymentTest::AreQuotedLinesInTheFile() {
  const TemporaryFolder folder;
  ModuleToChange().files = std::make_shared<SystemFiles>();
  session.WriteFile(kTrue);
  session.GovFilename(folder.Path(kFile));
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(folder.Read(kFile), LinesOf(Expected()));
  EXPECT_EQ(session.PC4Records(), nullptr);
}

void AnyPaymentTest::LieInAClosedFileAsSoonAsTheFormHides() {
  WriteToMemory();
  EXPECT_TRUE(ShowForm([&](Form& form, UserDriver& user) {
    FillInForm(form, user);
    user.Click(OkOf(form));
    EXPECT_FALSE(form.IsUp());
    EXPECT_EQ(files->openFiles, 0);
    EXPECT_EQ(files->contents[std::string(kFile)], LinesOf(Expected()));
  }));
}

// Fields of their whole widths are, one behind the other, the record that they were cut from.
void AnyPaymentTest::AreReadBackAsTheyWereWritten() {
  EXPECT_TRUE(EnterAndPressOk());
  clsPC4GovFormats government;
  clsPC4FreeFormats free;
  CutRecords(*session.PC4Records(), government, free);
  int governmentRecords = 0;
  int slots = 0;
  for (const std::string& record : ExpectedInTheCollection()) {
    size_t column = 8;
    const auto next = [&](size_t width) { return record.substr(std::exchange(column, column + width), width); };
    if (record[7] == 'T') {
      ASSERT_LT(governmentRecords, government.Count());
      const clsPC4GovFormat& fields = government.Item(++governmentRecords);
      EXPECT_EQ(fields.PeriodStartDate(), next(8));
      EXPECT_EQ(fields.PeriodEndDate(), next(8));
      EXPECT_EQ(fields.PeriodDueDate(), next(8));
      EXPECT_EQ(fields.Filler1(), next(8));
      EXPECT_EQ(fields.ContactName(), next(30));
      EXPECT_EQ(fields.ContactTitle(), next(20));
      EXPECT_EQ(fields.Filler2(), next(10));
    } else if (record[7] == 'F') {
      for (int slot = 0; slot < 4; ++slot) {
        ASSERT_LT(slots, free.Count());
        const clsPC4FreeFormat& fields = free.Item(++slots);
        EXPECT_EQ(fields.FieldNum() + fields.FieldValue(), next(20));
      }
    }
  }
  EXPECT_EQ(government.Count(), governmentRecords);
  EXPECT_EQ(free.Count(), slots);
}

void AnyPaymentTest::TakeANameOf30AndATitleOf20() {
  session.EnterName("   abcdefghijklmnopqrstuvwxyz1234   ");
  session.EnterTitle(" ABCDEFGHIJKLMNOPQRST ");
  EXPECT_TRUE(EnterAndPressOk());
  std::vector<std::string> expected = ExpectedInTheCollection();
  for (std::string& record : expected)
    // contact name                  |contact title       |
    Replace(record, "Jane Doe                      Clerk               ",
            "abcdefghijklmnopqrstuvwxyz1234ABCDEFGHIJKLMNOPQRST");
  EXPECT_EQ(Records(), expected);
}

void AnyPaymentTest::HaveNoRoomForANameOf31() {
  session.EnterName("abcdefghijklmnopqrstuvwxyz12345");
  ExpectNoRoomForTheContact();
}

void AnyPaymentTest::HaveNoRoomForATitleOf21() {
  session.EnterTitle("ABCDEFGHIJKLMNOPQRSTU");
  ExpectNoRoomForTheContact();
}

void AnyPaymentTest::ExpectNoRoomForTheContact() {
  if (Good().kinds.front() != 'T') {
    // Nobody is named here.
    EXPECT_TRUE(EnterAndPressOk());
    EXPECT_EQ(Records(), ExpectedInTheCollection());
    return;
  }
  if (Good().failure == OutputFailure::ReachesHost) {
    EXPECT_EQ(ErrorOf([&] { EnterAndPressOk(); }), 5);
    EXPECT_EQ(session.PC4Records(), nullptr);
    return;
  }
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(TakeBoxes().size(), Good().failure == OutputFailure::IsReported ? 1U : 0U);
  ASSERT_NE(session.PC4Records(), nullptr);
  EXPECT_EQ(session.PC4Records()->Count(), 0);
}

void AnyPaymentTest::ExpectAFullDiskBehind(size_t recordsThatFit) {
  files->printsLeft = static_cast<int>(recordsThatFit);
  size_t boxes = 0;
  // By the time of a report, somebody has made room.
  frontEnd.onMessage = [&](const BoxRequest& box) {
    ++boxes;
    files->printsLeft = 1000;
    return box.DefaultAnswer();
  };
  if (Good().failure == OutputFailure::ReachesHost)
    EXPECT_EQ(ErrorOf([&] { EnterAndPressOk(); }), 61);
  else
    EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(boxes, Good().failure == OutputFailure::IsReported ? 1U : 0U);
  EXPECT_EQ(openBehindOk, 1);
  std::vector<std::string> records = Expected();
  records.resize(recordsThatFit);
  EXPECT_EQ(files->contents[std::string(kFile)], LinesOf(records));
  files->printsLeft = 1000;
}

void AnyPaymentTest::AreIncompleteOnAFullDiskUntilTheNextOutput() {
  WriteToMemory();
  for (size_t fit = 0; fit < Expected().size(); ++fit) {
    SCOPED_TRACE(fit);
    ExpectAFullDiskBehind(fit);
    // A form whose show has ended with an error is still loaded, and filled in.
    if (Good().failure == OutputFailure::ReachesHost)
      EXPECT_TRUE(ShowForm([&](Form& form, UserDriver& user) { user.Click(OkOf(form)); }));
    else
      EXPECT_TRUE(EnterAndPressOk());
    EXPECT_EQ(files->openFiles, 0);
    EXPECT_EQ(files->contents[std::string(kFile)], LinesOf(Expected()));
  }
}

void AnyPaymentTest::KeepTheirFileOpenOnAFullDiskUntilTheFormUnloads() {
  WriteToMemory();
  for (size_t fit = 0; fit < Expected().size(); ++fit) {
    SCOPED_TRACE(fit);
    ExpectAFullDiskBehind(fit);
    if (Good().failure == OutputFailure::ReachesHost) {
      EXPECT_EQ(files->openFiles, 1);
      EXPECT_FALSE(ShowForm([](Form& /*form*/, UserDriver& /*user*/) {}));
    }
    EXPECT_EQ(files->openFiles, 0);
  }
}

void AnyPaymentTest::OfALaterLaunchStandInTheCollectionOfTheFirst() {
  EXPECT_TRUE(EnterAndPressOk());
  const std::shared_ptr<PC4s> first = session.PC4Records();
  session.SeqNumber("0002");
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(session.PC4Records(), first);
  std::vector<std::string> expected = ExpectedInTheCollection();
  for (std::string& record : expected) Replace(record, "PC40001", "PC40002");
  EXPECT_EQ(Records(), expected);
}

void AnyPaymentTest::LeaveAPlayByPlayLogWhereTheScreenWritesOne() {
  ModuleToChange().files = files;
  Levyra::MainPath("logs");
  Levyra::PlayByPlayEnabled(kTrue);
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(files->contents.empty(), !WritesAPlayByPlayLog());
}

const GoodSession& AnyPaymentTest::Good() const {
  return *std::ranges::find(kGoodSessions, Code(), &GoodSession::code);
}

}  // namespace fiscalon

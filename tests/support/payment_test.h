#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/forms/button.h"
#include "tests/support/memory_files.h"
#include "tests/support/screen_test.h"

namespace fiscalon {

struct GoodSession;

/// How OK refuses a form.
struct Refusal {
  std::string_view name = {};
  /// Empty where the refusal is silent.
  std::string_view message = {};
  std::string_view focus = {};
  MessageStyle style = MessageStyle::Critical;
  std::string_view title = {};
};

/// What every screen's tests share: the tests of `PaymentTest`, but for the form's own type.
class AnyPaymentTest : public ScreenTest {
 public:
  // OK refuses one thing after the other.
  void EachRowRefusesWithItsMessageAndFocus();
  void EachRowIsMetBeforeEveryLaterRow();
  void TheRowsAreAllThereInOrder();
  void AcceptsAValidForm();

  // OK writes records, or fails to.
  void AreWhatWasEntered();
  void AreQuotedLinesInTheFile();
  void LieInAClosedFileAsSoonAsTheFormHides();
  void AreReadBackAsTheyWereWritten();
  void TakeANameOf30AndATitleOf20();
  void HaveNoRoomForANameOf31();
  void HaveNoRoomForATitleOf21();
  void AreIncompleteOnAFullDiskUntilTheNextOutput();
  void KeepTheirFileOpenOnAFullDiskUntilTheFormUnloads();
  void OfALaterLaunchStandInTheCollectionOfTheFirst();
  void LeaveAPlayByPlayLogWhereTheScreenWritesOne();

 protected:
  using Acts = std::function<void(Form& form, UserDriver& user)>;

  /// A payment by Jane Doe, a clerk.
  explicit AnyPaymentTest(std::string_view cents);

  virtual std::string Code() const = 0;
  /// The whole lines of the file.
  virtual std::vector<std::string> Expected() const { return {}; }
  /// The records that a host finds in the collection: whole ones, but of invoices, whose fields stand side by side.
  virtual std::vector<std::string> ExpectedInTheCollection() const;
  virtual bool WritesAPlayByPlayLog() const { return false; }

  /// Shows the screen, fills it in, changes it as told, and presses OK.
  bool EnterAndPressOk(const std::function<void(Form& form)>& change = {});
  /// From now on the records go to "payment.pc4" in `files`.
  void WriteToMemory();
  /// The file that holds these records.
  static std::string LinesOf(const std::vector<std::string>& records);

  std::shared_ptr<MemoryFiles> files = std::make_shared<MemoryFiles>();
  std::string focusBehindOk = {};
  int openBehindOk = 0;

 private:
  struct Pressed {
    std::vector<BoxRequest> boxes = {};
    std::string focus = {};
    bool stayedUp = false;
    bool result = false;
  };

  virtual void FillInForm(Form& form, UserDriver& user) const = 0;
  virtual Button& OkOf(Form& form) const = 0;
  virtual size_t RowCount() const = 0;
  virtual Refusal RefusalOf(size_t row) const = 0;
  virtual void Spoil(size_t row, Form& form) const = 0;

  Pressed PressOkWith(const std::vector<size_t>& wrongRows);
  void ExpectRefusalOf(size_t row, const std::vector<size_t>& wrongRows);
  void ExpectNoRoomForTheContact();
  void ExpectAFullDiskBehind(size_t recordsThatFit);
  bool ShowForm(const Acts& acts);
  /// What is known of a good payment on this screen.
  const GoodSession& Good() const;
};

/// One thing that the OK button of a form refuses.
template <class FormClass>
struct OkRow {
  std::string_view name = {};
  /// Makes a valid form wrong in this one respect.
  void (*spoil)(FormClass& form) = nullptr;
  /// Empty where the refusal is silent.
  std::string_view message = {};
  std::string_view focus = {};
  MessageStyle style = MessageStyle::Critical;
  std::string_view title = {};
};

/// A payment on a screen: what is filled in, what OK refuses, and which records it writes. A suite adds the tests that
/// all screens pass with `AddOkPathTests` and `AddRecordsTests`.
///
/// OK refuses the rows in the order in which they are met. Rows further up are spoiled last, so that rows of one field
/// can stand in one table: what spoils the earlier row is what the field then holds.
template <class FormClass>
class PaymentTest : public AnyPaymentTest {
 protected:
  using AnyPaymentTest::AnyPaymentTest;
  using Row = OkRow<FormClass>;

  virtual void FillIn(FormClass& form, UserDriver& user) const = 0;
  virtual Button& OkButton(FormClass& form) const = 0;
  virtual std::span<const Row> Rows() const { return {}; }

  bool EnterAndPressOk(const std::function<void(FormClass& form)>& change = {}) {
    return AnyPaymentTest::EnterAndPressOk([&](Form& form) {
      if (change)
        change(static_cast<FormClass&>(form));
    });
  }

 private:
  void FillInForm(Form& form, UserDriver& user) const final { FillIn(static_cast<FormClass&>(form), user); }
  Button& OkOf(Form& form) const final { return OkButton(static_cast<FormClass&>(form)); }
  size_t RowCount() const final { return Rows().size(); }
  Refusal RefusalOf(size_t row) const final {
    const Row& told = Rows()[row];
    return {told.name, told.message, told.focus, told.style, told.title};
  }
  void Spoil(size_t row, Form& form) const final { Rows()[row].spoil(static_cast<FormClass&>(form)); }
};

/// A test that all screens pass.
struct SharedTest {
  const char* name;
  void (AnyPaymentTest::*body)();
};

/// What holds of every OK path that has rows, and of every screen's records.
std::span<const SharedTest> OkPathTests();
std::span<const SharedTest> RecordsTests();

/// Adds tests to a suite whose fixture is `Payment`.
template <class Payment>
bool AddSharedTests(const char* suite, std::span<const SharedTest> tests) {
  class Runner : public Payment {
   public:
    explicit Runner(void (AnyPaymentTest::*body)()) : body_(body) {}
    void TestBody() override { (this->*body_)(); }

   private:
    void (AnyPaymentTest::*body_)();
  };
  for (const SharedTest& test : tests)
    testing::RegisterTest(suite, test.name, nullptr, nullptr, __FILE__, __LINE__,
                          [body = test.body]() -> Payment* { return new Runner(body); });
  return true;
}

template <class Payment>
bool AddOkPathTests(const char* suite) {
  return AddSharedTests<Payment>(suite, OkPathTests());
}

template <class Payment>
bool AddRecordsTests(const char* suite) {
  return AddSharedTests<Payment>(suite, RecordsTests());
}

}  // namespace fiscalon

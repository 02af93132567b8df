#include "screens/general/invoice_payments.h"

#include <algorithm>

#include "tests/screens/general/invoice_payments_entries.h"
#include "tests/support/payment_test.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/told_form.h"

namespace fiscalon::invoice_payments_test {
namespace {

const bool kFormTold =
    Tell({.codes = {"08", "11"},
          .routine = "ShowInvPaymentsForm",
          .form = "InvoicePayments",
          .controls = {"1 InvoiceStatementOnly(0)", "2 InvoiceStatementOnly(1)", "3 InvoiceDate", "4 InvoiceNumber",
                       "5 InvoiceAmount", "6 InvoicePaymentList", "7 CancelInvoice", "19 InvoicePayeeName", "20 cmdOK",
                       "21 cmdCancel", "22 cmdHelp"}});

constexpr const char* kTitle = "Invoice Payments Details";
constexpr const char* kAskDate = "Please enter invoice date.";
constexpr const char* kBadDate = "Invalid date value.";
constexpr const char* kAskNumber = "Please enter invoice number or description.";
constexpr const char* kAskAmount = "Please enter amount of invoice.";
constexpr const char* kOtherTotal = "Amount to be paid does not equal total amount of invoices.";

// clang-format off
const std::string kInvoice =
    // head  |date    |amount   |number                     |date    |amount   |number                     |
    "PC40001R20260601 000012345INV-100                    ";
const std::string kInvoiceAndAFurtherOne =
    // head  |date    |amount   |number                     |date    |amount   |number                     |
    "PC40001R20260601 000005000INV-100                    20260602 000007345INV-101                    ";
// clang-format on

// An amount over the largest one is not among the rows: what settles the payment is never above what remains of it, so
// that the test before it meets every other amount first.
class InvoicePaymentsFirstInvoice : public PaymentTest<InvoicePayments> {
 protected:
  InvoicePaymentsFirstInvoice() : PaymentTest("12345") {}

  std::string Code() const override { return "08"; }

  void FillIn(InvoicePayments& form, UserDriver& user) const override {
    user.Click(form.InvoiceStatementOnly[1]);
    Begin(user, {.amount = "12345"});
  }

  Button& OkButton(InvoicePayments& form) const override { return form.cmdOK; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "date is missing",
         .spoil = [](InvoicePayments& form) { form.InvoiceDate.Text("  "); },
         .message = kAskDate,
         .focus = "InvoiceDate",
         .title = kTitle},
        {.name = "date is short",
         .spoil = [](InvoicePayments& form) { form.InvoiceDate.Text(" 2026060"); },
         .focus = "InvoiceDate"},
        {.name = "date is none",
         .spoil = [](InvoicePayments& form) { form.InvoiceDate.Text("20260431"); },
         .message = kBadDate,
         .focus = "InvoiceDate",
         .title = kTitle},
        {.name = "number is missing",
         .spoil = [](InvoicePayments& form) { form.InvoiceNumber.Text("  "); },
         .message = kAskNumber,
         .focus = "InvoiceNumber",
         .title = kTitle},
        {.name = "amount is missing",
         .spoil = [](InvoicePayments& form) { form.InvoiceAmount.Text("  "); },
         .message = kAskAmount,
         .focus = "InvoiceAmount",
         .title = kTitle},
        {.name = "amount is none",
         .spoil = [](InvoicePayments& form) { form.InvoiceAmount.Text("-123.45"); },
         .focus = "InvoiceAmount"},
        {.name = "amount is more than remains",
         .spoil = [](InvoicePayments& form) { form.InvoiceAmount.Text("12346"); },
         .focus = "InvoiceAmount"},
        {.name = "amount leaves a rest",
         .spoil = [](InvoicePayments& form) { form.InvoiceAmount.Text("12344"); },
         .message = kOtherTotal,
         .focus = "InvoiceDate",
         .title = kTitle},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kInvoice}; }
  std::vector<std::string> ExpectedInTheCollection() const override { return {"INV-100                    "}; }
};

const bool kFirstInvoiceTestsAdded = AddOkPathTests<InvoicePaymentsFirstInvoice>("InvoicePaymentsFirstInvoice") &&
                                     AddRecordsTests<InvoicePaymentsFirstInvoice>("InvoicePaymentsFirstInvoiceRecords");

// Behind the first invoice a missing amount means that no entry is in progress: it is none of the rows. A short date is
// told here.
class InvoicePaymentsFurtherInvoice : public PaymentTest<InvoicePayments> {
 protected:
  InvoicePaymentsFurtherInvoice() : PaymentTest("12345") {}

  std::string Code() const override { return "11"; }

  void FillIn(InvoicePayments& form, UserDriver& user) const override {
    user.Click(form.InvoiceStatementOnly[1]);
    Enter(form, user, {{.amount = "50.00"}});
    Begin(user, {.date = "20260602", .number = "INV-101", .amount = "7345"});
  }

  Button& OkButton(InvoicePayments& form) const override { return form.cmdOK; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "date is missing",
         .spoil = [](InvoicePayments& form) { form.InvoiceDate.Text("  "); },
         .message = kAskDate,
         .focus = "InvoiceDate",
         .title = kTitle},
        {.name = "date is short",
         .spoil = [](InvoicePayments& form) { form.InvoiceDate.Text(" 2026060"); },
         .message = kBadDate,
         .focus = "InvoiceDate",
         .title = kTitle},
        {.name = "date is none",
         .spoil = [](InvoicePayments& form) { form.InvoiceDate.Text("20260431"); },
         .message = kBadDate,
         .focus = "InvoiceDate",
         .title = kTitle},
        {.name = "number is missing",
         .spoil = [](InvoicePayments& form) { form.InvoiceNumber.Text("  "); },
         .message = kAskNumber,
         .focus = "InvoiceNumber",
         .title = kTitle},
        {.name = "amount is none",
         .spoil = [](InvoicePayments& form) { form.InvoiceAmount.Text("-73.45"); },
         .focus = "InvoiceAmount"},
        {.name = "amount is more than remains",
         .spoil = [](InvoicePayments& form) { form.InvoiceAmount.Text("7346"); },
         .focus = "InvoiceAmount"},
        {.name = "amount leaves a rest",
         .spoil = [](InvoicePayments& form) { form.InvoiceAmount.Text("7344"); },
         .message = kOtherTotal,
         .focus = "InvoiceDate",
         .title = kTitle},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kInvoiceAndAFurtherOne}; }
  std::vector<std::string> ExpectedInTheCollection() const override {
    return {"INV-100                    ", "INV-101                    "};
  }
};

const bool kFurtherInvoiceTestsAdded =
    AddOkPathTests<InvoicePaymentsFurtherInvoice>("InvoicePaymentsFurtherInvoice") &&
    AddRecordsTests<InvoicePaymentsFurtherInvoice>("InvoicePaymentsFurtherInvoiceRecords");

class InvoicePaymentsRecords : public ScreenTest {
 protected:
  InvoicePaymentsRecords() {
    session.SeqNumber("0001");
    session.PaidAmount("12345");
  }

  bool EnterAndPressOk(const std::vector<Invoice>& invoices) {
    return Show<InvoicePayments>("08", [&](InvoicePayments& form, UserDriver& user) {
      Enter(form, user, invoices);
      user.Click(form.cmdOK);
    });
  }

  /// Enters invoices for the file; its bytes.
  std::string FileOf(const std::vector<Invoice>& invoices) {
    const TemporaryFolder folder;
    session.WriteFile(kTrue);
    session.GovFilename(folder.Path("payment.pc4"));
    EXPECT_TRUE(EnterAndPressOk(invoices));
    return folder.Read("payment.pc4");
  }
};

TEST_F(InvoicePaymentsFurtherInvoice, StandsInTheColumnsOfTheFirst) {
  const InvoicePayments form;
  EXPECT_TRUE(form.InvoicePaymentList.Designed().fixedPitch);
}

TEST_F(InvoicePaymentsRecords, AreMembersOfThreeFieldsInTheCollection) {
  EXPECT_TRUE(EnterAndPressOk(
      {{.amount = "50.00"}, {.date = "20260602", .number = " ABCDEFGHIJKLMNOPQRSTUVWXYZ", .amount = "73.45"}}));
  const auto& members = session.PC4Records();
  ASSERT_NE(members, nullptr);
  ASSERT_EQ(members->Count(), 2);
  EXPECT_EQ(members->Item(1).TheDate(), "20260601");
  EXPECT_EQ(members->Item(1).Amount(), " 000005000");
  EXPECT_EQ(members->Item(1).Description(), "INV-100                    ");
  EXPECT_EQ(members->Item(2).TheDate(), "20260602");
  EXPECT_EQ(members->Item(2).Amount(), " 000007345");
  EXPECT_EQ(members->Item(2).Description(), "ABCDEFGHIJKLMNOPQRSTUVWXYZ ");
}

// clang-format off
const std::string kTwoInvoices =
    // head  |date    |amount   |number                     |date    |amount   |number                     |
    "PC40001R20260601 000005000INV-100                    20260602 000002345ABCDEFGHIJKLMNOPQRSTUVWXYZ1";
const std::string kOneInvoice =
    "PC40001R20260603 000005000INV-102                    ";
const std::string kCreditAndInvoice =
    "PC40001R20260601-000000500CREDIT                     20260602 000012845INV-100                    ";
// clang-format on

TEST_F(InvoicePaymentsRecords, AreTwoInvoicesInALineOfTheFile) {
  EXPECT_EQ(FileOf({{.amount = "50.00"},
                    {.date = "20260602", .number = "ABCDEFGHIJKLMNOPQRSTUVWXYZ1", .amount = "23.45"},
                    {.date = "20260603", .number = "INV-102", .amount = "50.00"}}),
            Line(kTwoInvoices) + Line(kOneInvoice));
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(InvoicePaymentsRecords, HaveTheSignOfACreditInPlaceOfTheBlank) {
  EXPECT_EQ(FileOf({{.number = "CREDIT", .amount = "-5.00"}, {.date = "20260602", .amount = "128.45"}}),
            Line(kCreditAndInvoice));
}

// Nothing is cut off a credit that is wider than its columns: it moves what follows.
TEST_F(InvoicePaymentsRecords, AreLongerForACreditOfTenDigits) {
  const std::string credit =
      "PC40001R20260601-1000000000CREDIT                     20260602 999999999INV-100                    ";
  EXPECT_EQ(FileOf({{.number = "CREDIT", .amount = "-10000000.00"},
                    {.date = "20260602", .amount = "9999999.99"},
                    {.date = "20260603", .amount = "123.46"}}),
            '"' + credit + std::string(62, ' ') + "\"\r\n" + Line("PC40001R20260603 000012346INV-100"));
}

TEST_F(InvoicePaymentsRecords, HoldABlankForEachControlCharacter) {
  const auto enter = [](InvoicePayments& form, UserDriver& user) {
    Enter(form, user, {{.amount = "50.00"}});
    form.InvoiceDate.Text("20260602");
    form.InvoiceNumber.Text("A\tB\r\nC");
    user.Click(form.cmdOK);
  };
  EXPECT_TRUE(Show<InvoicePayments>("08", enter));
  ASSERT_NE(session.PC4Records(), nullptr);
  ASSERT_EQ(session.PC4Records()->Count(), 2);
  EXPECT_EQ(session.PC4Records()->Item(2).Description(), "A B  C                     ");

  const TemporaryFolder folder;
  session.WriteFile(kTrue);
  session.GovFilename(folder.Path("payment.pc4"));
  EXPECT_TRUE(Show<InvoicePayments>("08", enter));
  EXPECT_EQ(folder.Read("payment.pc4"),
            Line("PC40001R20260601 000005000INV-100                    20260602 000007345A B  C"));
}

class InvoicePaymentsStore : public InvoicePaymentsRecords {
 protected:
  /// Plays acts that fail; the error that the host gets.
  RuntimeError ErrorBehind(const std::function<void(InvoicePayments& form, UserDriver& user)>& acts) {
    try {
      Show<InvoicePayments>("08", acts);
    } catch (const RuntimeError& error) {
      return error;
    }
    return {0, "no error"};
  }
};

TEST_F(InvoicePaymentsStore, TakesFiftyOneInvoices) {
  session.PaidAmount("5100");
  std::string lines;
  for (int i = 1; i <= 51; i += 2) {
    std::string line = "PC40001R";
    for (int invoice = i; invoice <= std::min(i + 1, 51); ++invoice) {
      std::string number = std::to_string(invoice);
      number.resize(27, ' ');
      line += "20260601 000000100" + number;
    }
    lines += Line(line);
  }
  EXPECT_EQ(FileOf(Dollars(51)), lines);
}

TEST_F(InvoicePaymentsStore, FailsAtTheFiftySecondInvoice) {
  session.PaidAmount("5200");
  int rows = 0;
  const RuntimeError error = ErrorBehind([&](InvoicePayments& form, UserDriver& user) {
    Enter(form, user, Dollars(51));
    EXPECT_TRUE(form.IsUp());
    Enter(form, user, Dollars(1));
    EXPECT_FALSE(form.IsUp());
    rows = form.InvoicePaymentList.ListCount();
  });
  EXPECT_EQ(error.Number(), 9);
  EXPECT_EQ(error.Description(), "Subscript out of range");
  EXPECT_EQ(error.Source(), "Fiscalon.ShowLevyraScreen");
  EXPECT_EQ(rows, 51);
}

TEST_F(InvoicePaymentsStore, FailsAtTheFiftySecondInvoiceByOkToo) {
  session.PaidAmount("5200");
  int rows = 0;
  const RuntimeError error = ErrorBehind([&](InvoicePayments& form, UserDriver& user) {
    Enter(form, user, Dollars(51));
    Begin(user, {.number = "52", .amount = "1.00"});
    user.Click(form.cmdOK);
    EXPECT_FALSE(form.IsUp());
    rows = form.InvoicePaymentList.ListCount();
  });
  EXPECT_EQ(error.Number(), 9);
  EXPECT_EQ(rows, 51);
  EXPECT_EQ(session.PC4Records(), nullptr);
}

// The lines behind the deleted one move up, and there is none to move into the last.
TEST_F(InvoicePaymentsStore, FailsToDeleteAnInvoiceWhenItIsFull) {
  session.PaidAmount("5200");
  int rows = 0;
  const RuntimeError error = ErrorBehind([&](InvoicePayments& form, UserDriver& user) {
    Enter(form, user, Dollars(51));
    user.Choose(form.InvoicePaymentList, 50);
    user.Click(form.CancelInvoice);
    EXPECT_FALSE(form.IsUp());
    rows = form.InvoicePaymentList.ListCount();
  });
  EXPECT_EQ(TakeBoxes().size(), 1U);
  EXPECT_EQ(error.Number(), 9);
  EXPECT_EQ(error.Description(), "Subscript out of range");
  EXPECT_EQ(rows, 51);
}

// The lines had begun to move up when that failed, while the rows stayed: what OK then writes has the last line twice.
TEST_F(InvoicePaymentsStore, HasMovedItsLinesWhenADeletionFails) {
  session.PaidAmount("5100");
  const RuntimeError error = ErrorBehind([&](InvoicePayments& form, UserDriver& user) {
    Enter(form, user, Dollars(51));
    user.Choose(form.InvoicePaymentList, 48);
    user.Click(form.CancelInvoice);
  });
  EXPECT_EQ(TakeBoxes().size(), 1U);
  EXPECT_EQ(error.Number(), 9);
  EXPECT_TRUE(Show<InvoicePayments>("08", [](InvoicePayments& form, UserDriver& user) {
    EXPECT_EQ(form.InvoicePaymentList.ListCount(), 51);
    EXPECT_EQ(form.InvoiceAmount.Text(), "0.00");
    user.Click(form.cmdOK);
  }));
  const std::vector<std::string> records = Records();
  ASSERT_EQ(records.size(), 51U);
  EXPECT_EQ(records[47], "48                         ");
  EXPECT_EQ(records[48], "50                         ");
  EXPECT_EQ(records[49], "51                         ");
  EXPECT_EQ(records[50], "51                         ");
}

TEST_F(InvoicePaymentsStore, DeletesAnyOfFiftyInvoices) {
  session.PaidAmount("5100");
  EXPECT_FALSE(Show<InvoicePayments>("08", [&](InvoicePayments& form, UserDriver& user) {
    Enter(form, user, Dollars(50));
    user.Choose(form.InvoicePaymentList, 49);
    user.Click(form.CancelInvoice);
    user.Choose(form.InvoicePaymentList, 0);
    user.Click(form.CancelInvoice);
    EXPECT_TRUE(form.IsUp());
    EXPECT_EQ(TakeBoxes().size(), 2U);
    EXPECT_EQ(form.InvoicePaymentList.ListCount(), 48);
    EXPECT_EQ(form.InvoicePaymentList.List(0), "20260601      2                                   1.00");
    EXPECT_EQ(form.InvoiceAmount.Text(), "3.00");
  }));
}

class InvoicePaymentsForm : public ScreenTest {};

TEST_F(InvoicePaymentsForm, FieldsFitTheirEntries) {
  const InvoicePayments form;
  EXPECT_EQ(form.InvoiceDate.MaxLength(), 8);
  EXPECT_EQ(form.InvoiceNumber.MaxLength(), 27);
  EXPECT_EQ(form.InvoiceAmount.MaxLength(), 12);
  EXPECT_EQ(form.InvoiceStatementOnly.Size(), 2);
}

TEST_F(InvoicePaymentsForm, EachEntryFieldHasItsCaption) {
  const InvoicePayments form;
  for (const char* caption : {"Invoice date [YYYYMMDD]", "Invoice No./Description", "Amount"})
    EXPECT_EQ(std::count_if(form.Controls().begin(), form.Controls().end(),
                            [&](const Control* control) {
                              const auto* label = dynamic_cast<const Label*>(control);
                              return label != nullptr && label->Designed().caption.English() == caption;
                            }),
              1)
        << caption;
}

TEST_F(InvoicePaymentsForm, IsToldTheCustomerNumber) {
  session.PaidAmount("12345");
  session.ZelmorNumber(" 4711 ");
  Show<InvoicePayments>("08",
                        [](InvoicePayments& form, UserDriver& /*user*/) { EXPECT_EQ(form.ZelmorNumber(), " 4711 "); });
}

TEST_F(InvoicePaymentsForm, HasACollectionBeforeAnyOutput) {
  session.PaidAmount("12345");
  Show<InvoicePayments>("08", [](InvoicePayments& form, UserDriver& /*user*/) {
    ASSERT_NE(form.PC4Records(), nullptr);
    EXPECT_EQ(form.PC4Records()->Count(), 0);
  });
}

TEST_F(InvoicePaymentsForm, ChoosingLeavesADisabledDateAlone) {
  session.PaidAmount("12345");
  EXPECT_FALSE(Show<InvoicePayments>("08", [](InvoicePayments& form, UserDriver& user) {
    user.Click(form.InvoiceStatementOnly[1]);
    form.InvoiceDate.Enabled(false);
    user.Click(form.InvoiceStatementOnly[0]);
    EXPECT_TRUE(form.IsUp());
    EXPECT_TRUE(form.InvoiceStatementOnly[0].Value());
    EXPECT_EQ(user.FocusName(), "InvoiceStatementOnly(0)");
  }));
}

}  // namespace
}  // namespace fiscalon::invoice_payments_test

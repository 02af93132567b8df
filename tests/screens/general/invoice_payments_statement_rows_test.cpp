#include <filesystem>
#include <system_error>

#include "screens/general/invoice_payments.h"
#include "tests/screens/general/invoice_payments_entries.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon::invoice_payments_statement_rows_test {
namespace {

/// The process's current folder for the time of a test.
class CurrentFolder {
 public:
  explicit CurrentFolder(const std::string& path) : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(path);
  }
  ~CurrentFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;

 private:
  std::filesystem::path before_;
};

// No event leads to these rows; a host's programmer may call them.
class InvoicePaymentsStatementRows : public ScreenTest {
 protected:
  InvoicePaymentsStatementRows() {
    std::filesystem::create_directories(folder.Path("ZELMOR/4711"));
    session.SeqNumber("0001");
    session.PaidAmount("100000");
    session.ZelmorNumber("4711");
    session.GovFilename("rows.pc4");
  }

  /// Enters invoices and writes their statement rows.
  void Write(const std::vector<Invoice>& invoices) {
    Show<InvoicePayments>("08", [&](InvoicePayments& form, UserDriver& user) {
      Enter(form, user, invoices);
      form.WriteInvoiceStatementRows();
    });
  }

  std::string RowsOf(const std::vector<Invoice>& invoices) {
    Write(invoices);
    return folder.Read("ZELMOR/4711/rows.pc4");
  }

  const TemporaryFolder folder;
  const CurrentFolder currentFolder{folder.Path()};
};

// clang-format off
const std::string kOneInvoice =
    // head  |date    |amount  |number    |  |date    |amount  |number    |  |date    |amount  |number    |  |
    "PC40001I20260601000005000INV-100                                                                  ";
const std::string kThreeInvoices =
    "PC40001I20260601000005000INV-100      20260602000000005INV-101      20260603000012345INV-102      ";
const std::string kFirstThreeOfFive =
    "PC40001I20260601000000100A            20260601000000200B            20260601000000300C            ";
const std::string kLastTwoOfFive =
    "PC40001I20260604000000400D            20260605000000500E                                          ";
const std::string kLongNumbers =
    "PC40001I20260601000000100ABCDEFGHIJ   20260601000000200INV 7        20260601000000300ABCDEFGHIJ   ";
// clang-format on

TEST_F(InvoicePaymentsStatementRows, HaveBlanksInPlaceOfMissingInvoices) {
  EXPECT_EQ(RowsOf({{.amount = "50.00"}}), Line(kOneInvoice));
}

TEST_F(InvoicePaymentsStatementRows, HoldThreeInvoicesEach) {
  EXPECT_EQ(RowsOf({{.amount = "50.00"},
                    {.date = "20260602", .number = "INV-101", .amount = "0.05"},
                    {.date = "20260603", .number = "INV-102", .amount = "123.45"}}),
            Line(kThreeInvoices));
}

TEST_F(InvoicePaymentsStatementRows, GoOnInTheNextLineWithTheFourth) {
  EXPECT_EQ(RowsOf({{.number = "A", .amount = "1.00"},
                    {.number = "B", .amount = "2.00"},
                    {.number = "C", .amount = "3.00"},
                    {.date = "20260604", .number = "D", .amount = "4.00"},
                    {.date = "20260605", .number = "E", .amount = "5.00"}}),
            Line(kFirstThreeOfFive) + Line(kLastTwoOfFive));
}

TEST_F(InvoicePaymentsStatementRows, TrimNumbersAndCutThemToTenColumns) {
  EXPECT_EQ(RowsOf({{.number = "  ABCDEFGHIJKLM", .amount = "1.00"},
                    {.number = " INV 7 ", .amount = "2.00"},
                    {.number = "ABCDEFGHIJ", .amount = "3.00"}}),
            Line(kLongNumbers));
}

// These amounts have no column for a sign, so that a credit moves what follows it.
TEST_F(InvoicePaymentsStatementRows, AreLongerForACredit) {
  const std::string credit = "PC40001I20260601-000000500CREDIT       20260602000000100INV-100      ";
  EXPECT_EQ(RowsOf({{.number = "CREDIT", .amount = "-5.00"}, {.date = "20260602", .amount = "1.00"}}),
            '"' + credit + std::string(30 + 62, ' ') + "\"\r\n");
}

TEST_F(InvoicePaymentsStatementRows, TakeThePlaceOfAnOldFile) {
  folder.Write("ZELMOR/4711/rows.pc4", std::string(1000, 'x'));
  EXPECT_EQ(RowsOf({{.amount = "50.00"}}), Line(kOneInvoice));
}

TEST_F(InvoicePaymentsStatementRows, LieInTheFolderOfTheTrimmedCustomerNumber) {
  session.ZelmorNumber("  4711 ");
  EXPECT_EQ(RowsOf({{.amount = "50.00"}}), Line(kOneInvoice));
  EXPECT_FALSE(std::filesystem::exists(folder.Path("rows.pc4")));
}

TEST_F(InvoicePaymentsStatementRows, FailWithoutTheFolder) {
  session.ZelmorNumber("4712");
  EXPECT_EQ(ErrorOf([&] { Write({{.amount = "50.00"}}); }), 76);
}

TEST_F(InvoicePaymentsStatementRows, AreNotWrittenByOk) {
  session.PaidAmount("12345");
  EXPECT_TRUE(Show<InvoicePayments>("08", [](InvoicePayments& form, UserDriver& user) {
    Enter(form, user, {{.amount = "123.45"}});
    user.Click(form.cmdOK);
  }));
  EXPECT_FALSE(std::filesystem::exists(folder.Path("ZELMOR/4711/rows.pc4")));
}

}  // namespace
}  // namespace fiscalon::invoice_payments_statement_rows_test

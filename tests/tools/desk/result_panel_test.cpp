#include "tools/desk/result_panel.h"

#include <gtest/gtest.h>

#include <QAccessible>

#include "core/host_setup.h"

namespace fiscalon {
namespace {

class ResultPanelTest : public testing::Test {
 protected:
  ResultPanelTest() { UseLocale(EnglishCanada()); }
  ~ResultPanelTest() override { ResetModule(); }

  const QTreeWidget& Fields() const { return *panel.findChild<QTreeWidget*>(QStringLiteral("fields")); }

  /// The columns of a row, " | " between them.
  static std::string Row(const QTreeWidgetItem& item) {
    std::string row = item.text(0).toStdString();
    for (int column = 1; column < 4; ++column) row += " | " + item.text(column).toStdString();
    return row;
  }

  ResultPanel panel;
};

TEST_F(ResultPanelTest, ShowsInvoicesOfACollectionByFields) {
  PC4s invoices;
  invoices.Add("20260615", " 000012345", "A-17                       ");
  panel.ShowRecords(QStringLiteral("Accepted."), TakeApart(invoices, nullptr));
  ASSERT_EQ(Fields().topLevelItemCount(), 1);
  const QTreeWidgetItem& invoice = *Fields().topLevelItem(0);
  EXPECT_EQ(invoice.text(0).toStdString(), "Record 1: invoice");
  ASSERT_EQ(invoice.childCount(), 3);
  EXPECT_EQ(Row(*invoice.child(0)), "InvoiceDate | 1-8 | \"20260615\" | 2026-06-15");
  EXPECT_EQ(Row(*invoice.child(1)), "InvoiceAmount | 9-18 | \"·000012345\" | $123.45");
  EXPECT_EQ(Row(*invoice.child(2)), "InvoiceNumber | 19-45 | \"A-17·······················\" | 4 of 27 characters");
}

TEST_F(ResultPanelTest, TellsWhatIsOddFromWhatIsWrong) {
  PC4s records;
  records.Add("", "", "PC40001T" + std::string(152, ' '));
  records.Add("", "", "PC40001F08-000000000000005000" + std::string(132, ' '));
  records.Add("", "", "PC40001X" + std::string(152, ' '));
  panel.ShowRecords(QStringLiteral("Accepted."), TakeApart(records, nullptr));
  ASSERT_EQ(Fields().topLevelItemCount(), 3);
  const QTreeWidgetItem& refund = *Fields().topLevelItem(1);
  EXPECT_EQ(Row(*refund.child(refund.childCount() - 1)),
            "Odd | 11-29 |  | FieldValue: a minus sign and 18 digits take 1 column more than the field has; what "
            "follows stands as much further right");
  const QTreeWidgetItem& unknown = *Fields().topLevelItem(2);
  EXPECT_EQ(unknown.child(unknown.childCount() - 1)->text(0).toStdString(), "Wrong");
}

TEST_F(ResultPanelTest, IsANotificationOfWhatItSays) {
  panel.Say(QStringLiteral("Cancelled. Nothing was written."));
  QWidget* said = panel.findChild<QWidget*>(QStringLiteral("words"))->parentWidget();
  EXPECT_EQ(QAccessible::queryAccessibleInterface(said)->role(), QAccessible::Notification);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(said)->text(QAccessible::Name), "Cancelled. Nothing was written.");
}

}  // namespace
}  // namespace fiscalon

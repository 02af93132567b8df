#include "tools/desk/desk_window.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QTreeWidget>
#include <filesystem>
#include <map>
#include <utility>

#include "core/forms/form.h"
#include "core/host_setup.h"
#include "core/launch.h"
#include "tests/support/temporary_folder.h"
#include "tests/tools/desk/shown_desk.h"

namespace fiscalon {
namespace {

constexpr const char* kRulerOfRecord =
    "....+....1....+....2....+....3....+....4....+....5....+....6....+....7....+....8"
    "....+....9....+...10....+...11....+...12....+...13....+...14....+...15....+...16";
constexpr const char* kRecord1 = "PC40001T                202605          Hélène Côté                   Clerk";
constexpr const char* kRecord2 =
    "PC40001F01000000000000012345020000000000000000000300000000000000000004000000000000000000";

/// A desk whose user is played.
class PaymentDesk : public ShownDesk {
 protected:
  PaymentDesk() {
    Open(QString::fromStdString(pages_.Path("operators.md")));
    toolkit_.onForm = [](Form&, UserDriver& user) { user.CloseWindow(CloseReason::CloseBox); };
  }

  void Press(const char* button) { QTest::mouseClick(&Find<QAbstractButton>(button), Qt::LeftButton); }
  void Retype(const char* field, const QString& text) {
    auto& line = Find<QLineEdit>(field);
    line.setFocus();
    line.selectAll();
    QTest::keyClicks(&line, text);
  }
  void WriteToFile(const std::string& path) {
    Press("toFile");
    Retype("file", QString::fromStdString(path));
  }
  std::string Words() const { return Find<QPlainTextEdit>("words").toPlainText().toStdString(); }
  bool ShowsRecords() const { return Find<QTreeWidget>("fields").isVisible(); }
  QStringList Lines() const { return Find<QPlainTextEdit>("lines").toPlainText().split('\n'); }

  static void Accept(Form& form, UserDriver& user) {
    for (const char character : std::string_view("20260512345")) user.Type(character);
    user.Click(*form.FindControl("cmdOK"));
  }

  static QTextBrowser* OpenPage() {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (auto* page = qobject_cast<QTextBrowser*>(window); page != nullptr && page->isVisible())
        return page;
    return nullptr;
  }

  TemporaryFolder pages_;
};

QStringList Row(const QTreeWidgetItem& item) {
  return {item.text(0), item.text(1), item.text(2), item.text(3)};
}

TEST_F(PaymentDesk, OpensWithAFormOnePressAway) {
  std::string form;
  toolkit_.onForm = [&](Form& shown, UserDriver& user) {
    form = shown.Name();
    user.CloseWindow(CloseReason::CloseBox);
  };
  QTest::keyClick(desk_->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(form, "frmDueDateAmount");
}

TEST_F(PaymentDesk, SaysNothingOfAResultBeforeThereIsOne) {
  EXPECT_EQ(
      Words(),
      "Nothing has been shown yet. Change the payment if you like, choose a screen, and show it. F1 tells how forms "
      "are filled.");
  EXPECT_FALSE(ShowsRecords());
}

TEST_F(PaymentDesk, ShowsTheChosenScreen) {
  std::string form;
  toolkit_.onForm = [&](Form& shown, UserDriver& user) {
    form = shown.Name();
    user.CloseWindow(CloseReason::CloseBox);
  };
  auto& screens = Find<QTreeWidget>("screens");
  screens.setCurrentItem(screens.findItems("03", Qt::MatchExactly).at(0));
  Press("show");
  EXPECT_EQ(form, "GOVSOURCEDEDUCTION");
}

TEST_F(PaymentDesk, ShowsTheScreenByEnterFromEachEntry) {
  int shown = 0;
  toolkit_.onForm = [&](Form&, UserDriver& user) {
    ++shown;
    user.CloseWindow(CloseReason::CloseBox);
  };
  int asked = 0;
  for (const char* entry : {"customerNumber", "sequence", "billerName", "billerCode", "cents", "dollars", "date",
                            "onHold", "enteredBy", "title", "businessName", "items", "toCollection"})
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      Find<QWidget>(entry).setFocus();
      QTest::keyClick(desk_->focusWidget(), key, key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
      EXPECT_EQ(shown, ++asked) << entry;
    }
  const TemporaryFolder folder;
  WriteToFile(folder.Path("payment.pc4"));
  for (const char* entry : {"toFile", "file"}) {
    Find<QWidget>(entry).setFocus();
    QTest::keyClick(desk_->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(shown, ++asked) << entry;
  }
}

TEST_F(PaymentDesk, LeavesEnterWithOtherKeysAlone) {
  toolkit_.onForm = [](Form&, UserDriver&) { FAIL() << "the screen was shown"; };
  for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::AltModifier})
    QTest::keyClick(&Find<QCheckBox>("onHold"), Qt::Key_Return, modifier);
}

TEST_F(PaymentDesk, ListsAllScreensWithWhatTheyCollect) {
  const auto& screens = Find<QTreeWidget>("screens");
  ASSERT_EQ(screens.topLevelItemCount(), static_cast<int>(LaunchTable().size()));
  for (int i = 0; i < screens.topLevelItemCount(); ++i) {
    const LaunchRow& row = LaunchTable()[static_cast<size_t>(i)];
    EXPECT_EQ(screens.topLevelItem(i)->text(0).toStdString(), row.code);
    EXPECT_EQ(screens.topLevelItem(i)->text(1).toStdString(), row.collects);
  }
}

TEST_F(PaymentDesk, TakesRecordsApartByFieldName) {
  toolkit_.onForm = Accept;
  Press("show");
  ASSERT_TRUE(ShowsRecords());
  const auto& fields = Find<QTreeWidget>("fields");
  ASSERT_EQ(fields.topLevelItemCount(), 2);
  const QTreeWidgetItem& first = *fields.topLevelItem(0);
  EXPECT_EQ(first.text(0), "Record 1: government format, sequence \"0001\"");
  EXPECT_EQ(Row(*first.child(2)), QStringList({"PeriodDueDate", "25-32", "\"202605··\"", "2026-05"}));
  EXPECT_EQ(Row(*first.child(4)),
            QStringList({"ContactName", "41-70", "\"Hélène Côté···················\"", "11 of 30 characters"}));
  const QTreeWidgetItem& second = *fields.topLevelItem(1);
  EXPECT_EQ(second.text(0), "Record 2: free format, sequence \"0001\"");
  EXPECT_EQ(Row(*second.child(0)), QStringList({"FieldNum", "9-10", "\"01\"", "Amount payable"}));
  EXPECT_EQ(Row(*second.child(1)), QStringList({"FieldValue", "11-28", "\"000000000000012345\"", "$123.45"}));
}

TEST_F(PaymentDesk, ShowsEachRawLineAboveARuler) {
  toolkit_.onForm = Accept;
  Press("show");
  const QStringList lines = Lines();
  ASSERT_EQ(lines.size(), 4);
  EXPECT_EQ(lines[0].size(), 160);
  EXPECT_EQ(lines[0].trimmed(), kRecord1);
  EXPECT_EQ(lines[1], kRulerOfRecord);
  EXPECT_EQ(lines[2].trimmed(), kRecord2);
  EXPECT_EQ(lines[3], kRulerOfRecord);
}

TEST_F(PaymentDesk, MarksTheChosenFieldInTheRawLine) {
  toolkit_.onForm = Accept;
  Press("show");
  auto& fields = Find<QTreeWidget>("fields");
  const auto marked = [&](int record, int field) {
    fields.setCurrentItem(fields.topLevelItem(record)->child(field));
    const auto marks = Find<QPlainTextEdit>("lines").extraSelections();
    return marks.size() == 1 ? marks[0].cursor.selectedText().toStdString() : "no single mark";
  };
  EXPECT_EQ(marked(0, 5), "Clerk               ");
  EXPECT_EQ(marked(1, 1), "000000000000012345");
}

TEST_F(PaymentDesk, SaysThatTheUserHasCancelled) {
  toolkit_.onForm = [](Form& form, UserDriver& user) { user.Click(*form.FindControl("cmdCancel")); };
  Press("show");
  EXPECT_EQ(Words(), "Cancelled. Nothing was written.");
  EXPECT_FALSE(ShowsRecords());
}

TEST_F(PaymentDesk, TakesAnEarlierResultAwayWhileAScreenIsUp) {
  toolkit_.onForm = Accept;
  Press("show");
  toolkit_.onForm = [&](Form&, UserDriver& user) {
    EXPECT_EQ(Words(), "Screen 15 is open.");
    EXPECT_FALSE(ShowsRecords());
    user.CloseWindow(CloseReason::CloseBox);
  };
  Press("show");
}

// The window's close button leaves this screen's last answer as it was, so the host is told of an OK without records.
TEST_F(PaymentDesk, ShowsNoRecordsOfAnEarlierPayment) {
  toolkit_.onForm = Accept;
  Press("show");
  toolkit_.onForm = [](Form&, UserDriver& user) { user.CloseWindow(CloseReason::CloseBox); };
  Press("show");
  EXPECT_EQ(Words(), "Accepted, but no records were handed back.");
  EXPECT_FALSE(ShowsRecords());
}

TEST_F(PaymentDesk, ShowsAnErrorWithNumberSourceAndDescription) {
  Retype("enteredBy", QString(31, 'x'));
  toolkit_.onForm = Accept;
  Press("show");
  EXPECT_EQ(Words(),
            "Screen 15 ended with an error. Shown again, it goes on with what was typed.\n"
            "Number: 5\n"
            "Source: Fiscalon.ShowLevyraScreen\n"
            "Description: Invalid procedure call or argument\n"
            "Entered by has 31 characters, and a record has room for 30: shorten it.");
  EXPECT_FALSE(ShowsRecords());
}

TEST_F(PaymentDesk, OpensNoScreenForAnAmountThatIsNone) {
  toolkit_.onForm = [](Form&, UserDriver&) { FAIL() << "the screen was shown"; };
  Retype("cents", "1e400");
  Press("show");
  EXPECT_EQ(Words(),
            "Screen 15 was not opened.\n"
            "Amount in cents: \"1e400\" is no amount in cents: up to 15 digits and nothing else, such as 12345.");
  EXPECT_EQ(desk_->focusWidget()->objectName(), "cents");
  EXPECT_EQ(Find<QLineEdit>("cents").text(), "1e400");
}

TEST_F(PaymentDesk, OpensNoScreenForDollarsThatAreNone) {
  toolkit_.onForm = [](Form&, UserDriver&) { FAIL() << "the screen was shown"; };
  for (const char* typed : {"12.3456", "$5.00", "1 234.50", "abc"}) {
    Retype("dollars", typed);
    QTest::keyClick(&Find<QLineEdit>("dollars"), Qt::Key_Return);
    EXPECT_EQ(Words(),
              std::string("Screen 15 was not opened.\nIn dollars: \"") + typed +
                  "\" is no amount in dollars: digits, and at most two of them behind a point, such as 123.45.");
    EXPECT_EQ(desk_->focusWidget()->objectName(), "dollars");
    EXPECT_EQ(Find<QLineEdit>("dollars").text(), typed);
    EXPECT_NE(Find<QLineEdit>("cents").text(), "");
  }
}

TEST_F(PaymentDesk, SaysEverythingThatKeepsAScreenFromOpening) {
  Retype("cents", "abc");
  WriteToFile("");
  Press("show");
  EXPECT_EQ(Words().substr(Words().rfind('\n')), "\nRecord file: no file is named.");
  EXPECT_EQ(Words().find("Screen 15 was not opened.\nAmount in cents: "), 0U);
  EXPECT_EQ(desk_->focusWidget()->objectName(), "cents");
}

TEST_F(PaymentDesk, WritesRecordsToAFile) {
  const TemporaryFolder folder;
  folder.Write("payment.pc4", "\"PC40001T an earlier payment\"\r\n");
  WriteToFile(folder.Path("payment.pc4"));
  toolkit_.onMessage = [](const BoxRequest& box) {
    ADD_FAILURE() << "asked for no reason: " << box.text;
    return MessageAnswer::No;
  };
  toolkit_.onForm = Accept;
  Press("show");
  EXPECT_EQ(Words(), "Accepted. Records written to the file: 2.\n" + folder.Path("payment.pc4"));
  EXPECT_TRUE(ShowsRecords());
  EXPECT_EQ(Lines()[0].trimmed(), kRecord1);
  EXPECT_EQ(folder.Read("payment.pc4").size(), 2 * (160 + 4U));
}

TEST_F(PaymentDesk, AsksBeforeItReplacesAFileThatHoldsNoRecords) {
  const TemporaryFolder folder;
  folder.Write("letter.txt", "Dear Ms Roy,");
  WriteToFile(folder.Path("letter.txt"));
  BoxRequest asked;
  toolkit_.onMessage = [&](const BoxRequest& box) {
    asked = box;
    return MessageAnswer::No;
  };
  toolkit_.onForm = [](Form&, UserDriver&) { FAIL() << "the screen was shown"; };
  Press("show");
  EXPECT_EQ(asked.text, "\"" + folder.Path("letter.txt") +
                            "\" is no record file. It has 12 bytes, and begins with \"Dear Ms Roy,\".\n\n"
                            "Shall the records of this payment take its place?");
  EXPECT_EQ(asked.buttons, MessageButtons::YesNo);
  EXPECT_EQ(asked.defaultButton, DefaultButton::Second);
  EXPECT_EQ(asked.title, "Payment desk");
  EXPECT_EQ(Words(), "Screen 15 was not opened.\nThe file stays as it is: " + folder.Path("letter.txt"));
  EXPECT_EQ(desk_->focusWidget()->objectName(), "file");
  EXPECT_EQ(folder.Read("letter.txt"), "Dear Ms Roy,");

  toolkit_.onMessage = [](const BoxRequest&) { return MessageAnswer::Yes; };
  toolkit_.onForm = Accept;
  Press("show");
  EXPECT_EQ(Words(), "Accepted. Records written to the file: 2.\n" + folder.Path("letter.txt"));
}

TEST_F(PaymentDesk, LeavesAFileAloneWhereTheUserCancels) {
  const TemporaryFolder folder;
  folder.Write("payment.pc4", "PC40001T an earlier payment");
  WriteToFile(folder.Path("payment.pc4"));
  toolkit_.onForm = [](Form& form, UserDriver& user) { user.Click(*form.FindControl("cmdCancel")); };
  Press("show");
  EXPECT_EQ(Words(), "Cancelled. Nothing was written.");
  EXPECT_EQ(folder.Read("payment.pc4"), "PC40001T an earlier payment");
}

TEST_F(PaymentDesk, TakesNoEarlierFileForANewOne) {
  const TemporaryFolder folder;
  WriteToFile(folder.Path("payment.pc4"));
  toolkit_.onForm = Accept;
  Press("show");
  toolkit_.onForm = [](Form&, UserDriver& user) { user.CloseWindow(CloseReason::CloseBox); };
  Press("show");
  EXPECT_EQ(Words(), "Accepted, but no records were written: the file is from before.\n" + folder.Path("payment.pc4"));
  EXPECT_FALSE(ShowsRecords());
}

TEST_F(PaymentDesk, ShowsTheErrorOfAFileThatCantBeWritten) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path("sub"));
  WriteToFile(folder.Path("sub/payment.pc4"));
  toolkit_.onForm = [&](Form& form, UserDriver& user) {
    std::filesystem::remove(folder.Path("sub"));
    Accept(form, user);
  };
  Press("show");
  EXPECT_EQ(Words(),
            "Screen 15 ended with an error. Shown again, it goes on with what was typed.\n"
            "Number: 76\n"
            "Source: Fiscalon.ShowLevyraScreen\n"
            "Description: Path not found\n"
            "The record file is \"" +
                folder.Path("sub/payment.pc4") + "\", and there is no folder \"" + folder.Path("sub") +
                "\": make it, or name another file.");
}

TEST_F(PaymentDesk, TellsOfAPlaceThatNoFileCanHaveBeforeTheScreen) {
  toolkit_.onForm = [](Form&, UserDriver&) { FAIL() << "the screen was shown"; };
  const TemporaryFolder folder;
  WriteToFile(folder.Path());
  Press("show");
  EXPECT_EQ(Words(),
            "Screen 15 was not opened.\nRecord file: \"" + folder.Path() + "\" is a folder: name a file in it.");
  WriteToFile("/nowhere/payment.pc4");
  Press("show");
  EXPECT_EQ(Words(),
            "Screen 15 was not opened.\n"
            "Record file: there is no folder \"/nowhere\": make it, or name another file.");
  EXPECT_EQ(desk_->focusWidget()->objectName(), "file");
  EXPECT_EQ(Find<QLineEdit>("file").text(), "/nowhere/payment.pc4");
}

TEST_F(PaymentDesk, ShowsTheAmountBothWays) {
  Retype("cents", "98765");
  EXPECT_EQ(Find<QLineEdit>("dollars").text(), "987.65");
  Retype("dollars", "5.5");
  EXPECT_EQ(Find<QLineEdit>("cents").text(), "550");
  Find<QLineEdit>("dollars").selectAll();
  QTest::keyClick(&Find<QLineEdit>("dollars"), Qt::Key_Delete);
  EXPECT_EQ(Find<QLineEdit>("cents").text(), "");
  EXPECT_EQ(Find<QLineEdit>("cents").placeholderText(), "no amount");
}

TEST_F(PaymentDesk, KeepsAnAmountWhereTheOtherIsNone) {
  Retype("cents", "98765");
  Retype("dollars", "abc");
  EXPECT_EQ(Find<QLineEdit>("cents").text(), "98765");
  Retype("dollars", "5");
  EXPECT_EQ(Find<QLineEdit>("cents").text(), "500");
}

TEST_F(PaymentDesk, WritesToAFileAsSoonAsOneIsNamed) {
  EXPECT_TRUE(Find<QRadioButton>("toCollection").isChecked());
  Retype("file", "payment.pc4");
  EXPECT_TRUE(Find<QRadioButton>("toFile").isChecked());
  Press("toCollection");
  EXPECT_FALSE(Find<QRadioButton>("toFile").isChecked());
  EXPECT_EQ(Find<QLineEdit>("file").text(), "payment.pc4");
}

TEST_F(PaymentDesk, HasNoAccessKeyTwice) {
  std::map<QString, QStringList> captionsByKey;
  const auto add = [&](const QString& caption) {
    if (const QKeySequence key = QKeySequence::mnemonic(caption); !key.isEmpty())
      captionsByKey[key.toString()].append(caption);
  };
  for (const auto* label : desk_->findChildren<QLabel*>())
    if (label->buddy() != nullptr)
      add(label->text());
  for (const auto* button : desk_->findChildren<QAbstractButton*>()) add(button->text());
  for (const auto* group : desk_->findChildren<QGroupBox*>()) add(group->title());
  EXPECT_GE(captionsByKey.size(), 17U);
  for (const auto& [key, captions] : captionsByKey)
    EXPECT_EQ(captions.size(), 1) << key.toStdString() << ": " << captions.join(", ").toStdString();
}

TEST_F(PaymentDesk, ReachesListAndResultByAccessKey) {
  QTest::keyClick(desk_->focusWidget(), Qt::Key_L, Qt::AltModifier);
  EXPECT_EQ(desk_->focusWidget()->objectName(), "screens");
  QTest::keyClick(desk_->focusWidget(), Qt::Key_U, Qt::AltModifier);
  EXPECT_EQ(desk_->focusWidget()->objectName(), "words");
}

TEST_F(PaymentDesk, StepsThroughTheScreens) {
  auto& screens = Find<QTreeWidget>("screens");
  screens.setFocus();
  const auto chosenBy = [&](Qt::Key key) {
    QTest::keyClick(&screens, key);
    return screens.currentItem()->text(0).toStdString();
  };
  Qt::Key key = Qt::Key_Home;
  for (const LaunchRow& row : LaunchTable()) EXPECT_EQ(chosenBy(std::exchange(key, Qt::Key_Down)), row.code);
}

TEST_F(PaymentDesk, GivesEverythingThatTakesTheFocusAName) {
  for (QWidget* widget : desk_->findChildren<QWidget*>()) {
    if (widget->objectName().isEmpty() || (widget->focusPolicy() & Qt::TabFocus) == 0 ||
        widget->objectName().startsWith("qt_"))
      continue;
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
    ASSERT_NE(accessible, nullptr) << widget->objectName().toStdString();
    EXPECT_NE(accessible->text(QAccessible::Name), "") << widget->objectName().toStdString();
  }
}

// The date has three stops: year, month and day.
TEST_F(PaymentDesk, IsWalkedThroughByTab) {
  toolkit_.onForm = Accept;
  Press("show");
  Press("toFile");
  Find<QLineEdit>("customerNumber").setFocus();
  QStringList walk;
  do {
    walk.append(desk_->focusWidget()->objectName());
    QTest::keyClick(desk_->focusWidget(), Qt::Key_Tab);
  } while (desk_->focusWidget()->objectName() != "customerNumber" && walk.size() < 40);
  EXPECT_EQ(walk.join(' ').toStdString(),
            "customerNumber sequence billerName billerCode cents dollars date date date onHold enteredBy title "
            "businessName items "
            "toCollection toFile file chooseFile screens show words fields lines");
}

TEST_F(PaymentDesk, FitsASmallScreen) {
  EXPECT_LE(desk_->minimumSizeHint().width(), 1024);
  EXPECT_LE(desk_->minimumSizeHint().height(), 700);
}

// 1280 by 720 at scale 2.
TEST_F(PaymentDesk, FitsASmallScreenOfLargePixels) {
  toolkit_.onForm = Accept;
  Press("show");
  desk_->resize(640, 340);
  QCoreApplication::processEvents();
  EXPECT_EQ(desk_->size(), QSize(640, 340));
  auto& area = Find<QScrollArea>("desk");
  EXPECT_EQ(area.horizontalScrollBar()->maximum(), 0) << "the desk is wider than the screen";
  for (const char* name : {"customerNumber", "chooseFile", "show", "lines"}) {
    auto& widget = Find<QWidget>(name);
    area.ensureWidgetVisible(&widget);
    EXPECT_FALSE(widget.visibleRegion().isEmpty()) << name;
  }
}

TEST_F(PaymentDesk, NamesDoubtfulEntriesBeforeTheShow) {
  auto& doubts = Find<QLabel>("doubts");
  EXPECT_FALSE(doubts.isVisible());
  Retype("sequence", "12345");
  EXPECT_TRUE(doubts.isVisible());
  EXPECT_EQ(doubts.text(), "Sequence: 5 characters instead of four, which shifts the columns of all records.");
  Retype("enteredBy", QString(31, 'x'));
  EXPECT_EQ(doubts.text().count('\n'), 1);
  Retype("sequence", "1234");
  EXPECT_EQ(doubts.text(), "Entered by: 31 characters, and a record has room for 30: shorten it.");
  Retype("enteredBy", "A");
  EXPECT_FALSE(doubts.isVisible());
}

TEST_F(PaymentDesk, IsANotificationOfDoubtsWhenAnEntryIsLeft) {
  const QWidget* notice = Find<QLabel>("doubts").parentWidget();
  EXPECT_EQ(QAccessible::queryAccessibleInterface(Find<QLabel>("doubts").parentWidget())->role(),
            QAccessible::Notification);
  Retype("sequence", "12345");
  EXPECT_EQ(notice->accessibleName(), "");
  QTest::keyClick(&Find<QLineEdit>("sequence"), Qt::Key_Tab);
  EXPECT_EQ(notice->accessibleName(),
            "Sequence: 5 characters instead of four, which shifts the columns of all records.");
  Retype("sequence", "0001");
  QTest::keyClick(&Find<QLineEdit>("sequence"), Qt::Key_Tab);
  EXPECT_EQ(notice->accessibleName(), "");
}

TEST_F(PaymentDesk, ShowsDoubtsInFullHoweverTheyBreakIntoLines) {
  Retype("sequence", "12345");
  Retype("cents", "abc");
  Retype("dollars", "12.3456");
  Retype("enteredBy", QString(31, 'x'));
  const auto& doubts = Find<QLabel>("doubts");
  for (const QSize size : {desk_->size(), QSize(1500, 900), QSize(640, 340)}) {
    desk_->resize(size);
    QCoreApplication::processEvents();
    EXPECT_GE(doubts.height(), doubts.heightForWidth(doubts.width())) << size.width();
  }
}

TEST_F(PaymentDesk, HasAnEntryTellItsDoubtToWhoComesBackToIt) {
  Retype("sequence", "12345");
  QAccessibleInterface* entry = QAccessible::queryAccessibleInterface(&Find<QLineEdit>("sequence"));
  EXPECT_EQ(entry->text(QAccessible::Description).toStdString(),
            "5 characters instead of four, which shifts the columns of all records. Four characters that head each "
            "record");
  Retype("sequence", "0001");
  EXPECT_EQ(entry->text(QAccessible::Description), "Four characters that head each record");
}

TEST_F(PaymentDesk, OpensTheOperatorsPageByF1FromAnywhere) {
  pages_.Write("operators.md", "# Forms by keyboard\n\nTab goes *on*.\n");
  for (const char* name : {"show", "cents", "date", "screens"}) {
    auto& widget = Find<QWidget>(name);
    widget.setFocus();
    QTest::keyClick(&widget, Qt::Key_F1);
    QTextBrowser* page = OpenPage();
    ASSERT_NE(page, nullptr) << name;
    EXPECT_EQ(page->toPlainText(), "Forms by keyboard\nTab goes on.");
    QTest::keyClick(page, Qt::Key_Escape);
    EXPECT_EQ(OpenPage(), nullptr) << "Escape does not close the page";
  }
}

TEST_F(PaymentDesk, OpensThePageOnceAndClosesItWithTheDesk) {
  pages_.Write("operators.md", "# Forms by keyboard\n");
  QTest::keyClick(desk_->focusWidget(), Qt::Key_F1);
  QTextBrowser* page = OpenPage();
  QTest::keyClick(&Find<QWidget>("show"), Qt::Key_F1);
  EXPECT_EQ(OpenPage(), page);
  EXPECT_EQ(QApplication::topLevelWidgets().count(page), 1);
  desk_->close();
  EXPECT_EQ(OpenPage(), nullptr);
}

TEST_F(PaymentDesk, SaysWhereThePageBelongsThatIsNotThere) {
  QTest::keyClick(desk_->focusWidget(), Qt::Key_F1);
  EXPECT_EQ(OpenPage(), nullptr);
  EXPECT_EQ(Words(), "The page for operators can't be read. It belongs here:\n" + pages_.Path("operators.md"));
}

TEST_F(PaymentDesk, CopiesAWholeRow) {
  toolkit_.onForm = Accept;
  Press("show");
  auto& fields = Find<QTreeWidget>("fields");
  QTreeWidgetItem* row = fields.topLevelItem(1)->child(0);
  fields.setFocus();
  fields.setCurrentItem(row, 2);
  QTest::keyClick(&fields, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(),
            QStringList({row->text(0), row->text(1), row->text(2), row->text(3)}).join('\t'));
  EXPECT_NE(row->text(3), "");
}

}  // namespace
}  // namespace fiscalon

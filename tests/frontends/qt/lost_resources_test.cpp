#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QMimeData>
#include <QStandardPaths>
#include <QTest>
#include <filesystem>

#include "frontends/qt/qt_text.h"
#include "tests/frontends/qt/played_form.h"

// What the desktop takes away in the middle of an act: a font, and what is on the clipboard. Windows and allocations
// have tests of their own.

namespace fiscalon::qt {
namespace {

class LostResources : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;

  void ShowAtPeriod(const std::function<void(FormDialog& dialog, UserDriver& user)>& act) {
    form.when["Form_Activate"] = [this] {
      form.txtTotal.Text("");
      form.txtPeriod.Text("");
      form.txtPeriod.SetFocus();
    };
    Show(form, act);
  }
  void ExpectToTakeATextYet(FormDialog& dialog, UserDriver& user) {
    user.PressMouse(form.txtTotal);
    Type(user, "12.50");
    EXPECT_EQ(form.txtTotal.Text(), "12.50");
    EXPECT_EQ(In<QLineEdit>(dialog, form.txtTotal).text(), QStringLiteral("12.50"));
  }
};

/// What a program has put on the clipboard that is gone by the time that it is asked for more than so many times.
class LostMimeData final : public QMimeData {
 public:
  explicit LostMimeData(int answers) : answers_(answers) {}
  bool hasFormat(const QString& format) const override { return format == QStringLiteral("text/plain"); }
  QStringList formats() const override { return {QStringLiteral("text/plain")}; }

 protected:
  QVariant retrieveData(const QString& /*format*/, QMetaType /*type*/) const override {
    return answers_-- > 0 ? QVariant(QStringLiteral("202606")) : QVariant();
  }

 private:
  mutable int answers_;
};

TEST_F(LostResources, PasteNothingOfAClipboardWhoseOwnerIsGone) {
  for (int answers = 0; answers < 4; ++answers)
    ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
      Type(user, "2026");
      QGuiApplication::clipboard()->setMimeData(new LostMimeData(answers));
      QTest::keyClick(dialog.windowHandle(), Qt::Key_V, Qt::ControlModifier);
      const std::string text = form.txtPeriod.Text();
      EXPECT_TRUE(text == "2026" || text == "202620") << text;
      EXPECT_EQ(In<QLineEdit>(dialog, form.txtPeriod).text(), ToQt(text));
      ExpectToTakeATextYet(dialog, user);
    });
  QGuiApplication::clipboard()->clear();
}

TEST_F(LostResources, PasteNothingOfAClipboardThatAHandlerEmptiesInAPaste) {
  form.when["txtPeriod_Change"] = [] { QGuiApplication::clipboard()->clear(); };
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    Type(user, "2026");
    QTest::keyClick(dialog.windowHandle(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(dialog.windowHandle(), Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(dialog.windowHandle(), Qt::Key_End);
    QTest::keyClick(dialog.windowHandle(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.txtPeriod.Text(), "202620");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString());
    QTest::keyClick(dialog.windowHandle(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(dialog.windowHandle(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.txtPeriod.Text(), "202620");
    ExpectToTakeATextYet(dialog, user);
  });
}

/// A font file of the system's; empty for none.
QString AnyFontFile() {
  for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::FontsLocation)) {
    const std::filesystem::path path = folder.toStdString();
    if (!std::filesystem::is_directory(path))
      continue;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
      if (entry.path().extension() == ".ttf")
        return QString::fromStdString(entry.path().string());
  }
  return {};
}

TEST_F(LostResources, AreDoneWithoutWhereAFontIsTakenAwayInAnAct) {
  const QString file = AnyFontFile();
  if (file.isEmpty())
    GTEST_SKIP() << "the system has no font file";
  const QFont before = QApplication::font();
  const int font = QFontDatabase::addApplicationFont(file);
  ASSERT_GE(font, 0);
  QApplication::setFont(QFont(QFontDatabase::applicationFontFamilies(font).front(), 15));
  form.when["chkFinal_Click"] = [&] {
    EXPECT_TRUE(QFontDatabase::removeApplicationFont(font));
    form.lblPeriod.Caption("Since a day in the past:");
  };
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.chkFinal);
    EXPECT_TRUE(form.chkFinal.Value());
    EXPECT_EQ(user.Text(form.lblPeriod), "Since a day in the past:");
    dialog.grab();
    ExpectToTakeATextYet(dialog, user);
  });
  QApplication::setFont(before);
}

}  // namespace
}  // namespace fiscalon::qt

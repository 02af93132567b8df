// Windows of Qt through the C interface: the file that brings them is found, loaded, and of the library's version, and
// its forms do what the library's own do.

#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/bindings/c/host.h"

namespace fiscalon {
namespace {

class QtThroughC : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    unsetenv("FISCALON_FRONT_ENDS");
    ASSERT_EQ(fiscalon_payment_create(payment_.Place()), 0);
    ASSERT_EQ(fiscalon_payment_set_paid_amount(payment_, "12345"), 0);
  }

  HeldPayment payment_;
};

/// Does it as soon as a window of the kind is up, and the one before is not.
void WhenAWindowIsUp(const std::function<void(QWidget&)>& act) {
  QTimer::singleShot(0, qApp, [act] {
    if (QWidget* const window = QApplication::activeModalWidget())
      return act(*window);
    WhenAWindowIsUp(act);
  });
}

TEST_F(QtThroughC, AFormIsFilledInAndConfirmed) {
  ASSERT_EQ(fiscalon_use_front_end("qt"), 0) << LastError().description;
  // It is there already.
  ASSERT_EQ(fiscalon_use_front_end("qt"), 0) << LastError().description;
  WhenAWindowIsUp([](QWidget& form) {
    EXPECT_TRUE(form.isVisible());
    for (const char key : std::string("20261212345")) QTest::keyClick(form.focusWidget(), key);
    for (QPushButton* const button : form.findChildren<QPushButton*>())
      if (button->text().remove('&') == "OK")
        return QTest::mouseClick(button, Qt::LeftButton);
    ADD_FAILURE() << "there is no button OK";
    form.close();
  });
  int32_t chosen = 0;
  ASSERT_EQ(fiscalon_payment_show(payment_, "15", &chosen), 0) << LastError().description;
  EXPECT_EQ(chosen, 1);
  HeldRecords records;
  ASSERT_EQ(fiscalon_payment_get_pc4_records(payment_, records.Place()), 0);
  int32_t count = 0;
  EXPECT_EQ(fiscalon_records_count(records, &count), 0);
  EXPECT_EQ(count, 2);
}

TEST_F(QtThroughC, WhatIsMissingIsNamed) {
  ASSERT_EQ(fiscalon_use_front_end_folder("/no/such/folder"), 0);
  const char* reason = nullptr;
  // A file that is loaded stays so: this is of a process that has loaded none yet.
  ASSERT_EQ(fiscalon_front_end_hindrance("qt", &reason), 0);
  const std::string said = reason;
  EXPECT_NE(said.find("/no/such/folder/front-end-qt.so"), std::string::npos) << said;
  EXPECT_NE(said.find("libfiscalon-c-qt"), std::string::npos) << said;
  ExpectFailure(fiscalon_use_front_end("qt"), FISCALON_ERROR_FRONT_END, "install the package libfiscalon-c-qt");
  // The one before stays.
  ASSERT_EQ(fiscalon_use_front_end("scripted"), 0);
  ExpectFailure(fiscalon_use_front_end("qt"), FISCALON_ERROR_FRONT_END);
  int32_t chosen = 1;
  EXPECT_EQ(fiscalon_payment_show(payment_, "15", &chosen), 0) << LastError().description;
}

TEST_F(QtThroughC, AFileThatIsNoFrontEndIsRefused) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / ("c_qt_" + std::to_string(getpid()));
  std::filesystem::create_directory(folder);
  std::ofstream(folder / "front-end-qt.so") << "no library";
  setenv("FISCALON_FRONT_ENDS", folder.c_str(), 1);
  ExpectFailure(fiscalon_use_front_end("qt"), FISCALON_ERROR_FRONT_END, "can't be loaded");
  std::filesystem::remove_all(folder);
}

TEST_F(QtThroughC, AChildShowsNoFormOfItsParents) {
  ASSERT_EQ(fiscalon_use_front_end("qt"), 0) << LastError().description;
  const pid_t child = fork();
  if (child == 0) {
    int32_t chosen = 0;
    const bool refused =
        fiscalon_payment_show(payment_, "15", &chosen) == -1 && LastError().number == FISCALON_ERROR_FORKED;
    const bool goesOn = fiscalon_use_front_end("scripted") == 0 && fiscalon_payment_show(payment_, "15", &chosen) == 0;
    _exit(refused && goesOn ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace
}  // namespace fiscalon

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}

#pragma once

#include <QPushButton>
#include <QTreeWidget>
#include <QWidget>
#include <functional>
#include <string>

namespace fiscalon {

/// All screens with what each collects, and the button that shows the chosen one.
class ScreenList final : public QWidget {
 public:
  explicit ScreenList(QWidget* parent = nullptr);

  /// Called with the code of the screen to show.
  std::function<void(const std::string& code)> onShow = {};

  void Choose(const std::string& code);
  /// Shows the chosen screen, as the button does.
  void ShowChosen();

 private:
  void ListScreens();

  QTreeWidget* list_;
  QPushButton* show_;
};

}  // namespace fiscalon

#include "tools/desk/screen_list.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QVBoxLayout>

#include "core/launch.h"
#include "frontends/qt/qt_text.h"
#include "tools/reading/utf8_words.h"

namespace fiscalon {
namespace {

constexpr int kCode = 0;
constexpr int kCollects = 1;

}  // namespace

ScreenList::ScreenList(QWidget* parent)
    : QWidget(parent), list_(new QTreeWidget(this)), show_(new QPushButton(tr("Show the sc&reen"), this)) {
  list_->setObjectName(QStringLiteral("screens"));
  list_->setHeaderLabels({tr("Screen"), tr("Collects")});
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  constexpr int kLeastCharacters = 32;
  list_->setMinimumWidth(list_->fontMetrics().horizontalAdvance(u'0') * kLeastCharacters);
  list_->setAccessibleName(tr("Screens"));
  ListScreens();
  list_->header()->setSectionResizeMode(kCode, QHeaderView::ResizeToContents);
  list_->header()->setSectionResizeMode(kCollects, QHeaderView::Stretch);

  show_->setObjectName(QStringLiteral("show"));
  show_->setDefault(true);
  connect(show_, &QPushButton::clicked, this, [this] { ShowChosen(); });
  connect(list_, &QTreeWidget::itemActivated, this, [this] { ShowChosen(); });
  connect(list_, &QTreeWidget::itemSelectionChanged, this,
          [this] { show_->setEnabled(list_->currentItem() != nullptr); });
  // The button stands beneath the group, so that the group's access key leads to the list.
  auto* group = new QGroupBox(tr("What to col&lect"), this);
  (new QVBoxLayout(group))->addWidget(list_);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(group, 0, 0, 1, 2);
  grid->addWidget(show_, 1, 1, Qt::AlignRight);
}

void ScreenList::ListScreens() {
  for (const LaunchRow& row : LaunchTable()) {
    const QString collects = QString::fromStdString(Utf8Words(row.collects));
    auto* item = new QTreeWidgetItem(list_, {qt::ToQt(row.code), collects});
    item->setToolTip(kCollects, collects + u'\n' + qt::ToQt(row.form));
  }
}

void ScreenList::Choose(const std::string& code) {
  for (int i = 0; i < list_->topLevelItemCount(); ++i)
    if (list_->topLevelItem(i)->text(kCode) == qt::ToQt(code))
      list_->setCurrentItem(list_->topLevelItem(i));
  show_->setFocus();
}

void ScreenList::ShowChosen() {
  const QTreeWidgetItem* item = list_->currentItem();
  if (item != nullptr && onShow)
    onShow(qt::FromQt(item->text(kCode)));
}

}  // namespace fiscalon

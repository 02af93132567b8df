#include <gtest/gtest.h>

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <map>

#include "core/forms/form.h"
#include "core/host_setup.h"
#include "core/wording/catalogue.h"
#include "tests/tools/desk/shown_desk.h"
#include "tools/desk/catalogue_translator.h"

namespace fiscalon {
namespace {

/// A desk in French, in June 2026 in English Canada: words go by the language, amounts by the locale.
class FrenchDesk : public ShownDesk {
 protected:
  FrenchDesk() {
    UseLanguage("fr");
    QApplication::installTranslator(&translator_);
    Open(QStringLiteral("/nowhere/operators.md"));
  }
  ~FrenchDesk() override {
    desk_.reset();
    QApplication::removeTranslator(&translator_);
  }

  void Show() { QTest::mouseClick(&Find<QPushButton>("show"), Qt::LeftButton); }
  /// With an ordinary blank for each that ends no line.
  static std::string Plain(QString text) { return text.replace(QChar::Nbsp, u' ').toStdString(); }
  std::string Words() const { return Plain(Find<QPlainTextEdit>("words").toPlainText()); }

  /// All that stands on the desk to be read.
  QStringList Texts() const {
    QStringList texts = {desk_->windowTitle()};
    for (const auto* label : desk_->findChildren<QLabel*>()) texts += label->text();
    for (const auto* button : desk_->findChildren<QAbstractButton*>()) texts += button->text();
    for (const auto* group : desk_->findChildren<QGroupBox*>()) texts += group->title();
    for (const auto* line : desk_->findChildren<QLineEdit*>()) texts += line->placeholderText();
    for (const auto* tree : desk_->findChildren<QTreeWidget*>())
      for (int column = 0; column < tree->columnCount(); ++column) texts += tree->headerItem()->text(column);
    const auto& screens = Find<QTreeWidget>("screens");
    for (int row = 0; row < screens.topLevelItemCount(); ++row) texts += screens.topLevelItem(row)->text(1);
    for (const auto* widget : desk_->findChildren<QWidget*>())
      texts += {widget->toolTip(), widget->accessibleName(), widget->accessibleDescription()};
    texts.removeAll(QString());
    return texts;
  }

  CatalogueTranslator translator_;
};

TEST_F(FrenchDesk, HasFrenchWordsForAllThatStandsOnIt) {
  const QStringList texts = Texts();
  EXPECT_GE(texts.size(), 60);
  for (const CatalogueText& text : Catalogue()) {
    const auto english = QString::fromUtf8(text.english.data(), static_cast<qsizetype>(text.english.size()));
    EXPECT_TRUE(text.english == text.french || !texts.contains(english)) << text.english;
  }
}

TEST_F(FrenchDesk, SaysWhatAnOperatorReads) {
  EXPECT_EQ(desk_->windowTitle(), QStringLiteral("Guichet de paiement"));
  EXPECT_EQ(Find<QPushButton>("show").text(), QStringLiteral("Affic&her l'écran"));
  EXPECT_EQ(Find<QLineEdit>("sequence").toolTip(),
            QStringLiteral("Quatre caractères en tête de chaque enregistrement"));
  EXPECT_EQ(Plain(Find<QTreeWidget>("screens").topLevelItem(0)->text(1)),
            "Indemnisation des accidentés du travail : période, classifications et cotisations");
  EXPECT_EQ(
      Words(),
      "Rien n'a encore été affiché. Changez le paiement si vous le voulez, choisissez un écran, et affichez-le. F1 "
      "dit comment remplir les formulaires.");
}

TEST_F(FrenchDesk, HasNoAccessKeyTwice) {
  std::map<QString, QStringList> captionsByKey;
  for (const QString& caption : Texts())
    if (const QKeySequence key = QKeySequence::mnemonic(caption); !key.isEmpty())
      captionsByKey[key.toString()].append(caption);
  EXPECT_GE(captionsByKey.size(), 17U);
  for (const auto& [key, captions] : captionsByKey)
    EXPECT_EQ(captions.size(), 1) << key.toStdString() << ": " << captions.join(", ").toStdString();
}

TEST_F(FrenchDesk, FitsASmallScreen) {
  EXPECT_LE(desk_->minimumSizeHint().width(), 1024);
  EXPECT_LE(desk_->minimumSizeHint().height(), 700);
}

TEST_F(FrenchDesk, ShowsAFormInFrenchAndTellsWhatCameOfIt) {
  std::string caption;
  toolkit_.onForm = [&](Form& form, UserDriver& user) {
    caption = user.Shown(*form.FindControl("Label1")).text;
    user.Click(*form.FindControl("cmdCancel"));
  };
  Show();
  EXPECT_EQ(caption,
            "Fin de l'ann\xE9"
            "e d'imposition\xA0:");
  EXPECT_EQ(Words(), "Annulé. Rien n'a été écrit.");
}

TEST_F(FrenchDesk, TakesRecordsApartUnderFrenchHeadings) {
  toolkit_.onForm = [](Form& form, UserDriver& user) {
    for (const char character : std::string_view("20260512345")) user.Type(character);
    user.Click(*form.FindControl("cmdOK"));
  };
  Show();
  EXPECT_EQ(Words(), "Accepté. Enregistrements rendus : 2.");
  EXPECT_EQ(Plain(Find<QTreeWidget>("fields").topLevelItem(0)->text(0)),
            "Enregistrement 1 : format gouvernemental, séquence « 0001 »");
}

TEST_F(FrenchDesk, NamesDoubtfulEntries) {
  auto& sequence = Find<QLineEdit>("sequence");
  sequence.setText(QStringLiteral("12345"));
  EXPECT_EQ(Plain(Find<QLabel>("doubts").text()),
            "Séquence : longueur de 5 au lieu de quatre caractères, ce qui décale les colonnes de tous les "
            "enregistrements.");
}

TEST_F(FrenchDesk, SaysWhatKeepsAScreenFromOpening) {
  Find<QLineEdit>("cents").setText(QStringLiteral("12x"));
  Show();
  EXPECT_EQ(Words(),
            "L'écran 15 n'a pas été ouvert.\nMontant en cents : « 12x » n'est pas un montant en cents : au plus 15 "
            "chiffres et rien d'autre, par exemple 12345.");
}

TEST_F(FrenchDesk, SaysWhereTheOperatorsPageBelongs) {
  QTest::keyClick(desk_->focusWidget(), Qt::Key_F1);
  EXPECT_EQ(Words(), "La page des utilisateurs est illisible. Sa place est ici :\n/nowhere/operators.md");
}

}  // namespace
}  // namespace fiscalon

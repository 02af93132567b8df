#pragma once

#include <QTranslator>

namespace fiscalon {

/// Gives the words of the catalogue to `tr`, in the language of the forms. There a place is "{1}", here "%1".
class CatalogueTranslator final : public QTranslator {
 public:
  using QTranslator::QTranslator;

  QString translate(const char* context, const char* text, const char* disambiguation, int count) const override;
  bool isEmpty() const override { return false; }
};

}  // namespace fiscalon

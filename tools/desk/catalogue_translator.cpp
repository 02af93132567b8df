#include "tools/desk/catalogue_translator.h"

#include <QRegularExpression>

#include "core/platform/code_page.h"
#include "tools/reading/utf8_words.h"

namespace fiscalon {

QString CatalogueTranslator::translate(const char* /*context*/, const char* text, const char* /*disambiguation*/,
                                       int /*count*/) const {
  static const QRegularExpression ofQt(QStringLiteral("%(\\d)"));
  static const QRegularExpression ofCatalogue(QStringLiteral("\\{(\\d)\\}"));
  const std::string english = QString::fromUtf8(text).replace(ofQt, QStringLiteral("{\\1}")).toStdString();
  // Texts of the catalogue are plain ASCII in English; what is not is none of them.
  if (!IsAscii(english))
    return {};
  const std::string words = Utf8Words(english);
  // Nothing here means the next translator, and in the end the text as it stands.
  return words == english ? QString() : QString::fromStdString(words).replace(ofCatalogue, QStringLiteral("%\\1"));
}

}  // namespace fiscalon

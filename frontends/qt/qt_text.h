#pragma once

#include <QString>
#include <QTextDocument>
#include <string>
#include <string_view>

#include "core/platform/code_page.h"

/// The edge between the library's text in the code page and Qt's.
namespace fiscalon::qt {

inline QString ToQt(std::string_view text) {
  const std::string utf8 = ToUtf8(text);
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// A character without a place in the code page becomes "?".
inline std::string FromQt(const QString& text) {
  const QByteArray utf8 = text.toUtf8();
  return FromUtf8({utf8.constData(), static_cast<size_t>(utf8.size())});
}

/// With plain line ends, which is what editors and message boxes hold.
inline QString WithPlainLineEnds(QString text) {
  return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

/// As a window's title: there "[*]" is the place of a mark for changes, unless it stands twice.
inline QString AsTitle(QString text) {
  return text.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

/// What an editor of several lines holds. The plain text of a document would lose no-break spaces; its raw text has
/// marks of its own for line ends.
inline QString TextOfDocument(const QTextDocument& document) {
  return document.toRawText().replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

}  // namespace fiscalon::qt

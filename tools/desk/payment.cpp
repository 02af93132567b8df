#include "tools/desk/payment.h"

#include <QDate>
#include <QRegularExpression>

#include "core/boolean.h"
#include "frontends/qt/qt_text.h"

namespace fiscalon {

Payment ExamplePayment() {
  return {.customerNumber = QStringLiteral("1234567"),
          .billerCode = QStringLiteral("001052"),
          .billerName = QStringLiteral("Summit Levies"),
          .cents = QStringLiteral("12345"),
          .date = QDate::currentDate().addDays(1).toString(QStringLiteral("MMddyyyy")),
          .enteredBy = QString::fromUtf8("Hélène Côté"),
          .title = QStringLiteral("Clerk"),
          .sequence = QStringLiteral("0001"),
          .items = 3,
          .businessName = QStringLiteral("Summit Books")};
}

void Give(const Payment& payment, Levyra& session) {
  session.ZelmorNumber(qt::FromQt(payment.customerNumber));
  session.CompCode(qt::FromQt(payment.billerCode));
  session.CompName(qt::FromQt(payment.billerName));
  session.PaidAmount(qt::FromQt(payment.cents));
  session.PaidDate(qt::FromQt(payment.date));
  session.EnterName(qt::FromQt(payment.enteredBy));
  session.EnterTitle(qt::FromQt(payment.title));
  session.APHoldFlg(payment.onHold ? 1 : 0);
  session.SeqNumber(qt::FromQt(payment.sequence));
  session.NumberOfInfoCollect(std::to_string(payment.items));
  session.BusinessName(qt::FromQt(payment.businessName));
  session.GovFilename(qt::FromQt(payment.file));
  session.WriteFile(payment.destination == Payment::Destination::File ? kTrue : kFalse);
}

QString DollarsOf(const QString& cents) {
  static const QRegularExpression kCents(QStringLiteral("^(-?)(\\d{1,15})$"));
  const QRegularExpressionMatch match = kCents.match(cents.trimmed());
  if (!match.hasMatch())
    return {};
  const QString digits = match.captured(2).rightJustified(3, u'0');
  QString whole = digits.chopped(2);
  while (whole.size() > 1 && whole.startsWith(u'0')) whole.remove(0, 1);
  return match.captured(1) + whole + u'.' + digits.right(2);
}

QString CentsOf(const QString& dollars) {
  static const QRegularExpression kDollars(QStringLiteral("^(-?)(\\d{1,13})(?:[.,](\\d{0,2}))?$"));
  const QRegularExpressionMatch match = kDollars.match(dollars.trimmed());
  if (!match.hasMatch())
    return {};
  QString digits = match.captured(2) + match.captured(3).leftJustified(2, u'0');
  while (digits.size() > 1 && digits.startsWith(u'0')) digits.remove(0, 1);
  return match.captured(1) + digits;
}

}  // namespace fiscalon

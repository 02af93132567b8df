#include "tests/support/plain_validator.h"

#include "core/logging.h"
#include "core/quebec_source_deductions.h"
#include "core/records/record_reader.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/number_text.h"
#include "core/values/text.h"

namespace fiscalon {

namespace {

std::string Trimmed(const std::string& text) {
  return std::string(Trim(text));
}

double InDollars(const std::string& value) {
  return Money::FromDouble(LeadingNumber(value)).ToDouble() / 100;
}

/// What is wrong with a field that is an amount, up to its digits; empty where nothing is.
std::string AmountFault(const std::string& value) {
  if (Trimmed(value) == "")
    return " cannot be blank";
  if (Trimmed(value).length() < 18)
    return " is invalid";
  if (!IsNumeric(value))
    return " is invalid";
  if (InDollars(value) < 0)
    return " cannot be less than 0";
  return "";
}

std::string UnusedFault(const std::string& value) {
  if (Trimmed(value) == "")
    return "";
  if (IsNumeric(value) && ToMoney(value) == Money{})
    return "";
  return "is not required";
}

void Add(std::string& reason, const std::string& message) {
  if (!reason.empty())
    reason = reason + ", ";
  reason = reason + message;
}

std::string AgencyFault(const std::string& number, const std::string& value, double paid) {
  const std::string label = "Field " + number + " ";
  std::string fault;
  if (number == "01") {
    fault = AmountFault(value);
    if (fault.empty() && !IsAllDigits(value))
      fault = " is invalid";
    if (fault.empty() && paid != LeadingNumber(value) / 100)
      fault = " is not equal to amount to be paid";
    return fault.empty() ? fault : label + "Amount of Payment" + fault;
  }
  if (number == "02") {
    if (Trimmed(value) == "")
      fault = " cannot be blank";
    else if (!IsValidYYYYMMDD(Trimmed(value)))
      fault = " is invalid";
    return fault.empty() ? fault : label + "End of Remitting Period" + fault;
  }
  if (number == "03") {
    fault = AmountFault(value);
    if (fault.empty() && !IsWholeHundreds(value))
      fault = " cannot have decimal value or invalid";
    return fault.empty() ? fault : label + "Gross Payroll in Remitting Period" + fault;
  }
  if (number == "04") {
    if (Trimmed(value) == "")
      fault = " cannot be blank";
    else if (Trimmed(value).length() < 18 || !IsNumeric(value) || LeadingNumber(value) < 1 || !IsAllDigits(value))
      fault = " is invalid";
    return fault.empty() ? fault : label + "Number of Employees" + fault;
  }
  fault = UnusedFault(value);
  return fault.empty() ? fault : label + fault;
}

std::string AgencyReason(const clsPC4FreeFormats& fields, double paid) {
  if (fields.Count() == 0)
    return "Record for required fields is missing";
  std::string reason;
  for (const clsPC4FreeFormat& field : fields) {
    if (const std::string fault = AgencyFault(field.FieldNum(), field.FieldValue(), paid); !fault.empty())
      Add(reason, fault);
  }
  return reason;
}

/// The names of the fields that are amounts, by the last digit of their number.
std::string QuebecAmountName(const std::string& number) {
  if (number == "01")
    return "Income tax withheld and compensation tax";
  if (number == "02")
    return "QPP contributions";
  if (number == "03")
    return "Contribution to the health services fund";
  if (number == "04")
    return "QPIP premiums";
  if (number == "06")
    return "CSST payments";
  return "";
}

std::string QuebecFault(const std::string& number, const std::string& value, const std::string& biller) {
  const std::string label = "Field " + number + " ";
  std::string fault;
  if (const std::string name = QuebecAmountName(number); !name.empty()) {
    fault = AmountFault(value);
    if (fault.empty() && !IsAllDigits(value))
      fault = " is invalid";
    return fault.empty() ? fault : label + name + fault;
  }
  if (number == "05") {
    if (biller != "001052")
      return "";
    if (Trimmed(value) == "")
      fault = " cannot be blank";
    else if (Trimmed(value).length() < 18 || !IsNumeric(value) || LeadingNumber(value) < 1 ||
             LeadingNumber(value) > 6 || !IsAllDigits(value))
      fault = " is invalid";
    return fault.empty() ? fault : label + "Remittance Type" + fault;
  }
  fault = UnusedFault(value);
  return fault.empty() ? fault : label + fault;
}

std::string PeriodFault(const std::string& period) {
  try {
    if (!IsRemittancePeriodInRange(period, Today()))
      return "Remittance Period must be in the form YYYYMM and be within the last 4 months";
  } catch (const RuntimeError&) {
    // Reported and passed.
  }
  return "";
}

std::string QuebecReason(const clsPC4GovFormats& periods, const clsPC4FreeFormats& fields, const std::string& biller,
                         double paid) {
  std::string reason;
  if (periods.Count() == 0)
    Add(reason, "Record for Remittance Period is missing");
  for (const clsPC4GovFormat& period : periods) {
    if (const std::string fault = PeriodFault(Trimmed(period.PeriodDueDate())); !fault.empty())
      Add(reason, fault);
  }
  if (fields.Count() == 0) {
    Add(reason, "Records for other required fields are missing");
    return reason;
  }
  std::string amounts[7];
  for (const clsPC4FreeFormat& field : fields) {
    if (!QuebecAmountName(field.FieldNum()).empty())
      amounts[field.FieldNum()[1] - '0'] = NumberText(LeadingNumber(field.FieldValue()) / 100);
    if (const std::string fault = QuebecFault(field.FieldNum(), field.FieldValue(), biller); !fault.empty())
      Add(reason, fault);
  }
  std::string total;
  try {
    total = Format(Money::FromDouble(LeadingNumber(amounts[1]) + LeadingNumber(amounts[2]) + LeadingNumber(amounts[3]) +
                                     LeadingNumber(amounts[4]) + LeadingNumber(amounts[6])),
                   "0.00");
  } catch (const RuntimeError&) {
    // Reported; the total stays empty.
  }
  if (Money::FromDouble(paid) != Money::FromDouble(LeadingNumber(total)))
    Add(reason, "The Amount Payable must match the Amount to be paid");
  return reason;
}

}  // namespace

std::string ReasonInPlainWords(const BulkPayment& payment) {
  const auto records = payment.Collection();
  clsPC4GovFormats periods;
  clsPC4FreeFormats fields;
  CutRecords(*records, periods, fields);
  const double paid = LeadingNumber(DollarsFromCents(payment.amount));
  try {
    if (payment.screen == "03")
      return AgencyReason(fields, paid);
    if (payment.screen == "20")
      return QuebecReason(periods, fields, payment.biller, paid);
  } catch (const RuntimeError& error) {
    return ErrorReason(error);
  }
  return "Invalid or not supported Screen Type";
}

}  // namespace fiscalon

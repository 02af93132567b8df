#pragma once

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <string_view>

#include "validation/batch.h"

namespace fiscalon {

inline constexpr std::string_view kReportHeader = "seq,screen,valid,reason";
inline constexpr std::string_view kFaultsHeader = "seq,screen,line,field,name,value,code,message";

/// A field of a CSV row, in quotes where it must be.
std::string CsvField(std::string_view text);

/// Appends a verdict as a row of the report, in UTF-8: "0001,03,no,Field 02 End of Remitting Period is invalid".
void AppendReportRow(std::string& report, const PaymentVerdict& verdict);

/// Appends a row for each fault of a verdict: "0001,03,12,02,End of Remitting Period,2026053,not-a-date,Field 02 ...".
void AppendFaultRows(std::string& rows, const PaymentVerdict& verdict);

/// The same as JSON, an object a line, with the header's names as keys.
void AppendReportJson(std::string& report, const PaymentVerdict& verdict);
void AppendFaultJson(std::string& lines, const PaymentVerdict& verdict);

/// How often each reason was given.
class ReasonCounts {
 public:
  void Add(std::string_view reason);

  /// The most frequent reasons, the most frequent first, each with its count and its share of all; what is
  /// left over in one line. In UTF-8.
  void Print(std::ostream& out) const;

 private:
  /// Reasons quote what records hold, so there may be endless ones.
  static constexpr size_t kMostReasons = 10'000;
  static constexpr size_t kMostShown = 20;

  std::map<std::string, uint64_t, std::less<>> counts_;
  uint64_t other_ = 0;
};

}  // namespace fiscalon

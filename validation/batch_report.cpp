#include "validation/batch_report.h"

#include <algorithm>
#include <iomanip>
#include <utility>
#include <vector>

#include "core/platform/code_page.h"

namespace fiscalon {

namespace {

void AppendCsvField(std::string& row, std::string_view text) {
  if (text.find_first_of(",\"\r\n") == text.npos) {
    row += text;
    return;
  }
  row += '"';
  for (const char c : text) {
    if (c == '"')
      row += '"';
    row += c;
  }
  row += '"';
}

void AppendText(std::string& row, std::string_view text) {
  if (IsAscii(text))
    AppendCsvField(row, text);
  else
    AppendCsvField(row, ToUtf8(text));
}

/// A text as JSON has it, in quotes. Everything but quotes, backslashes and control characters stands as it is.
void AppendJsonText(std::string& line, std::string_view text) {
  constexpr std::string_view kHex = "0123456789abcdef";
  line += '"';
  for (const char c : IsAscii(text) ? std::string(text) : ToUtf8(text)) {
    if (c == '"' || c == '\\')
      line.append(1, '\\').append(1, c);
    else if (static_cast<unsigned char>(c) < 0x20)
      line.append("\\u00").append(1, kHex[static_cast<size_t>(c) / 16]).append(1, kHex[static_cast<size_t>(c) % 16]);
    else
      line += c;
  }
  line += '"';
}

/// One member of an object, with what separates it from those before it.
void AppendMember(std::string& line, std::string_view key, std::string_view text) {
  line.append(line.empty() || line.back() == '\n' ? "{\"" : ",\"").append(key).append("\":");
  AppendJsonText(line, text);
}

}  // namespace

std::string CsvField(std::string_view text) {
  std::string field;
  AppendCsvField(field, text);
  return field;
}

void AppendReportRow(std::string& report, const PaymentVerdict& verdict) {
  AppendText(report, verdict.seq);
  report += ',';
  AppendText(report, verdict.screen);
  report += verdict.IsValid() ? ",yes," : ",no,";
  AppendText(report, verdict.reason);
  report += '\n';
}

void AppendFaultRows(std::string& rows, const PaymentVerdict& verdict) {
  for (const Fault& fault : verdict.faults) {
    AppendText(rows, verdict.seq);
    rows += ',';
    AppendText(rows, verdict.screen);
    rows.append(",").append(std::to_string(fault.line));
    for (const std::string_view text : {std::string_view(fault.field), fault.name, std::string_view(fault.value),
                                        std::string_view(fault.code), std::string_view(fault.message)}) {
      rows += ',';
      AppendText(rows, text);
    }
    rows += '\n';
  }
}

void AppendReportJson(std::string& report, const PaymentVerdict& verdict) {
  AppendMember(report, "seq", verdict.seq);
  AppendMember(report, "screen", verdict.screen);
  report.append(",\"valid\":").append(verdict.IsValid() ? "true" : "false");
  AppendMember(report, "reason", verdict.reason);
  report += "}\n";
}

void AppendFaultJson(std::string& lines, const PaymentVerdict& verdict) {
  for (const Fault& fault : verdict.faults) {
    AppendMember(lines, "seq", verdict.seq);
    AppendMember(lines, "screen", verdict.screen);
    lines.append(",\"line\":").append(std::to_string(fault.line));
    AppendMember(lines, "field", fault.field);
    AppendMember(lines, "name", fault.name);
    AppendMember(lines, "value", fault.value);
    AppendMember(lines, "code", fault.code);
    AppendMember(lines, "message", fault.message);
    lines += "}\n";
  }
}

void ReasonCounts::Add(std::string_view reason) {
  if (const auto found = counts_.find(reason); found != counts_.end())
    ++found->second;
  else if (counts_.size() < kMostReasons)
    counts_.emplace(reason, 1);
  else
    ++other_;
}

void ReasonCounts::Print(std::ostream& out) const {
  std::vector<std::pair<uint64_t, std::string_view>> ranked;
  uint64_t total = other_;
  for (const auto& [reason, count] : counts_) {
    ranked.emplace_back(count, reason);
    total += count;
  }
  std::stable_sort(ranked.begin(), ranked.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
  const auto line = [&](uint64_t count, const std::string& reason) {
    out << std::setw(12) << count << std::setw(6) << (count * 1000 / total + 5) / 10 << " %  " << reason << '\n';
  };
  uint64_t rest = total;
  for (size_t i = 0; i < std::min(ranked.size(), kMostShown); ++i) {
    line(ranked[i].first, ToUtf8(ranked[i].second));
    rest -= ranked[i].first;
  }
  if (rest > 0)
    line(rest, "other reasons");
}

}  // namespace fiscalon

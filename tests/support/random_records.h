#pragma once

#include <algorithm>
#include <array>
#include <map>
#include <random>
#include <string>
#include <string_view>

#include "core/records/record_layout.h"

namespace fiscalon {

/// Records of all kinds as a batch has them, the same again for the same seed: most are like the last of their kind but
/// for a field or two, and now and then one has odd bytes, another length or an unknown kind.
class RandomRecords {
 public:
  explicit RandomRecords(unsigned seed) : random_(seed) {}

  std::string Next() {
    constexpr std::string_view kKinds = "TTFFFFGPRIX";
    const char kind = kKinds[Upto(kKinds.size())];
    std::string& record = last_[kind];
    if (record.empty() || Upto(8) == 0)
      record = std::string("PC40001") + kind + std::string(kRecordLength - kHeadLength, ' ');
    record[6] = static_cast<char>('0' + Upto(3));
    const auto rows = LayoutOf(static_cast<RecordKind>(kind));
    for (size_t changes = rows.empty() ? 0 : Upto(4); changes > 0; --changes) {
      const RecordField& row = rows[kRecordHead.size() + Upto(rows.size() - kRecordHead.size())];
      // What is always blank seldom is not, or nothing would ever be right.
      if (row.fill != Fill::Blank || Upto(30) == 0)
        record.replace(row.Offset(), row.Width(), Fitted(row.name == "FieldNum" ? Number() : Value(), row.Width()));
    }
    return Upto(12) == 0 ? Spoilt(record) : record;
  }

  size_t Upto(size_t end) { return std::uniform_int_distribution<size_t>(0, end - 1)(random_); }

 private:
  std::string Number() {
    constexpr std::array kNumbers = {"01", "02", "03", "04", "00", "  ", "1x"};
    return kNumbers[Upto(kNumbers.size())];
  }

  std::string Value() {
    constexpr std::array kValues = {"",
                                    "000000000000012345",
                                    "00000000000001234-",
                                    "-00000000000000500",
                                    "000000000000000012",
                                    "000000000000000000",
                                    "20260331",
                                    "20261301",
                                    "202603",
                                    "2026",
                                    " 000012345",
                                    "ANNE LEE",
                                    "say \"hi\" \\ {1}",
                                    "H\xE9l\xE8ne \x80",
                                    "tab\there",
                                    "  in front"};
    return kValues[Upto(kValues.size())];
  }

  static std::string Fitted(std::string text, size_t width) {
    text.resize(width, ' ');
    return text;
  }

  std::string Spoilt(std::string record) {
    switch (Upto(3)) {
      case 0:
        return record.substr(0, Upto(record.size()));
      case 1:
        return record.append(1 + Upto(40), 'x');
      default:
        record[Upto(record.size())] = static_cast<char>(Upto(256));
        return record;
    }
  }

  std::mt19937 random_;
  std::map<char, std::string> last_;
};

}  // namespace fiscalon

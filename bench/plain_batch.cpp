// The baseline of whole batches: reads both files line by line into strings and judges each payment by the
// plain validator. Prints how many payments there are and how many are not valid.

#include <fstream>
#include <iostream>

#include "core/host_setup.h"
#include "tests/support/plain_validator.h"

namespace fiscalon {
namespace {

std::string Unquoted(std::string line) {
  if (!line.empty() && line.back() == '\r')
    line.pop_back();
  if (line.size() >= 2 && line.front() == '"')
    line = line.substr(1, line.size() - 2);
  return line;
}

std::string TakeField(std::string& row) {
  const size_t comma = row.find(',');
  std::string field = row.substr(0, comma);
  row = comma == row.npos ? std::string() : row.substr(comma + 1);
  return field;
}

void Judge(const char* list, const char* lines) {
  std::ifstream payments(list);
  std::ifstream records(lines);
  std::string row;
  std::string line;
  std::getline(payments, row);
  std::getline(records, line);
  line = Unquoted(line);
  int64_t count = 0;
  int64_t invalid = 0;
  while (std::getline(payments, row)) {
    BulkPayment payment;
    const std::string seq = TakeField(row);
    payment.screen = TakeField(row);
    payment.biller = TakeField(row);
    payment.amount = TakeField(row);
    while (records && line.substr(3, 4) == seq) {
      payment.records.push_back(line);
      std::getline(records, line);
      line = Unquoted(line);
    }
    ++count;
    invalid += ReasonInPlainWords(payment).empty() ? 0 : 1;
  }
  std::cout << count << " payments, " << invalid << " invalid\n";
}

}  // namespace
}  // namespace fiscalon

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: plain_batch PAYMENTS RECORDS\n";
    return 2;
  }
  fiscalon::UseLocale(fiscalon::EnglishCanada());
  fiscalon::UseFixedClock({.date = {2026, 6, 15}});
  fiscalon::Judge(argv[1], argv[2]);
}

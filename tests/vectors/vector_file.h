#pragma once

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/code_page.h"

namespace fiscalon {

/// A row of a vector file: its cells in the code page, and where it stands.
struct VectorRow {
  std::vector<std::string> cells = {};
  std::string place = {};
};

inline std::string Unescaped(std::string_view cell) {
  std::string text;
  for (size_t i = 0; i < cell.size(); ++i) {
    if (cell[i] != '\\') {
      text += cell[i];
      continue;
    }
    const char letter = cell.at(++i);
    if (letter == 'x') {
      text += static_cast<char>(std::stoi(std::string(cell.substr(i + 1, 2)), nullptr, 16));
      i += 2;
    } else {
      text += letter == 't' ? '\t' : letter == 'n' ? '\n' : letter == 'r' ? '\r' : '\\';
    }
  }
  return text;
}

/// All rows of a file behind its header; throws where the file is missing or a row has not that many cells.
inline std::vector<VectorRow> ReadVectors(const std::string& name, size_t columns) {
  std::ifstream file(FISCALON_SOURCE_DIR "/tests/vectors/" + name);
  std::vector<VectorRow> rows;
  std::string line;
  std::getline(file, line);
  for (int number = 2; std::getline(file, line); ++number) {
    VectorRow row = {.place = name};
    row.place.append(":").append(std::to_string(number)).append(": ").append(line);
    for (size_t from = 0; from <= line.size();) {
      const size_t to = std::min(line.find('\t', from), line.size());
      row.cells.push_back(Unescaped(FromUtf8(std::string_view(line).substr(from, to - from))));
      from = to + 1;
    }
    if (row.cells.size() != columns)
      throw std::runtime_error("cells: " + row.place);
    rows.push_back(row);
  }
  if (rows.empty())
    throw std::runtime_error("no rows in " + name);
  return rows;
}

/// A float as the vectors write it: a number, or two with an operation between.
inline double FloatOf(const std::string& text) {
  char* end = nullptr;
  const double first = std::strtod(text.c_str(), &end);
  if (*end == '\0')
    return first;
  const double second = std::strtod(end + 1, nullptr);
  switch (*end) {
    case '+':
      return first + second;
    case '*':
      return first * second;
    case '/':
      return first / second;
    default:
      throw std::runtime_error("no float: " + text);
  }
}

/// Units of an amount written with exactly four decimals.
inline int64_t UnitsOf(const std::string& amount) {
  std::string digits = amount;
  const size_t point = digits.find('.');
  if (point == digits.npos || digits.size() - point != 5)
    throw std::runtime_error("no amount: " + amount);
  digits.erase(point, 1);
  return std::stoll(digits);
}

}  // namespace fiscalon

#pragma once

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tools/fiscalon/commands/collecting.h"

namespace fiscalon {

/// Why a request can't be carried out, and where that stands. Texts are UTF-8.
class RequestError : public std::runtime_error {
 public:
  RequestError(const std::string& description, std::string remedy, std::string key = {}, uint64_t line = 0)
      : std::runtime_error(description), remedy_(std::move(remedy)), key_(std::move(key)), line_(line) {}

  /// What to do about it.
  const std::string& Remedy() const { return remedy_; }
  /// The way to the member that it is about, such as "payment.PaidAmount"; empty for the request as a whole.
  const std::string& Key() const { return key_; }
  /// From 1; 0 where no line is to blame.
  uint64_t Line() const { return line_; }

 private:
  std::string remedy_;
  std::string key_;
  uint64_t line_;
};

/// A payment as another program asks for it, in JSON.
struct CollectRequest {
  PaymentToCollect payment = {};
  /// The lines that the members stand in, by the ways to them.
  std::map<std::string, uint64_t, std::less<>> lines = {};

  uint64_t LineOf(std::string_view key) const;
};

/// Reads one, of JSON in UTF-8. Throws `RequestError`. That the screen exists is not asked.
CollectRequest ReadCollectRequest(std::string_view json);

}  // namespace fiscalon

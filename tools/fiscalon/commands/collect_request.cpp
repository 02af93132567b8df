#include "tools/fiscalon/commands/collect_request.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>

#include "core/platform/code_page.h"
#include "frontends/played/host_properties.h"
#include "tools/fiscalon/nearest.h"
#include "tools/fiscalon/option_names.h"

namespace fiscalon {
namespace {

using Json = nlohmann::json;

constexpr std::string_view kScreen = "screen";
constexpr std::string_view kPayment = "payment";
constexpr std::string_view kWhole = R"(write an object such as {"screen": "15", "payment": {"PaidAmount": "12345"}})";

/// Goes over the characters of a text and counts its lines: the reader of JSON tells no places of what it reads.
class CountingIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  CountingIterator(const char* at, uint64_t& line) : at_(at), line_(&line) {}

  reference operator*() const { return *at_; }
  CountingIterator& operator++() {
    *line_ += *at_ == '\n' ? 1 : 0;
    ++at_;
    return *this;
  }
  CountingIterator operator++(int) {
    const CountingIterator before = *this;
    ++*this;
    return before;
  }
  bool operator==(const CountingIterator& other) const { return at_ == other.at_; }
  bool operator!=(const CountingIterator& other) const { return at_ != other.at_; }

 private:
  const char* at_;
  uint64_t* line_;
};

/// A value that is neither object nor list, as its kind and its text.
struct Given {
  enum class Kind { Text, Boolean, Whole, Number, Other };
  Kind kind = Kind::Other;
  std::string text = {};
};

bool Takes(HostPropertyType type, Given::Kind kind) {
  switch (type) {
    case HostPropertyType::Text:
      return kind == Given::Kind::Text;
    case HostPropertyType::Boolean:
      return kind == Given::Kind::Boolean || kind == Given::Kind::Whole;
    case HostPropertyType::Byte:
      return kind == Given::Kind::Whole;
    case HostPropertyType::Float:
      return kind == Given::Kind::Whole || kind == Given::Kind::Number;
  }
  return false;
}

/// What is missing where a property takes something else.
std::string Remedy(HostPropertyType type) {
  return type == HostPropertyType::Text ? "put the value in quotes, such as \"12345\""
                                        : "give such a value, without quotes, or leave the property out";
}

std::string_view Wanted(HostPropertyType type) {
  switch (type) {
    case HostPropertyType::Text:
      return "a text";
    case HostPropertyType::Boolean:
      return "true, false or a whole number from -32768 to 32767";
    case HostPropertyType::Byte:
      return "a whole number from 0 to 255";
    case HostPropertyType::Float:
      return "a number";
  }
  return {};
}

/// The first character that the code page has no place for; empty where it has one for each. A screen would show "?".
std::string ForeignCharacter(std::string_view utf8) {
  constexpr auto kContinues = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u; };
  for (size_t from = 0, to = 0; from < utf8.size(); from = to) {
    for (to = from + 1; to < utf8.size() && kContinues(utf8[to]);) ++to;
    const std::string_view character = utf8.substr(from, to - from);
    if (character != "?" && FromUtf8(character) == "?")
      return std::string(character);
  }
  return {};
}

/// Hears the pieces of a request in their order.
class RequestReader final : public nlohmann::json_sax<Json> {
 public:
  explicit RequestReader(const uint64_t& line) : line_(line) {}

  CollectRequest Request() {
    if (request_.lines.find(kScreen) == request_.lines.end())
      throw RequestError("no screen is named", R"(add "screen" with its code, such as "15")", std::string(kScreen));
    return std::move(request_);
  }

  bool key(string_t& name) override {
    const std::string way = depth_ == 1 ? name : std::string(kPayment) + "." + name;
    lineOfKey_ = line_;
    key_ = way;
    if (depth_ == 1 && name != kScreen && name != kPayment)
      Fail(
          "there is no \"" + name + "\" in a request" + DidYouMean(name, {std::string(kScreen), std::string(kPayment)}),
          "leave it out: there are screen and payment");
    if (depth_ == 2)
      FindProperty(name);
    if (const auto [before, isNew] = request_.lines.emplace(way, line_); !isNew)
      Fail("\"" + name + "\" stands twice, in line " + std::to_string(before->second) + " before", "leave one out");
    return true;
  }

  bool start_object(std::size_t) override {
    if (depth_ == 0 || (depth_ == 1 && key_ == kPayment))
      return ++depth_ != 0;
    Take({});
    return false;
  }
  bool end_object() override {
    --depth_;
    return true;
  }
  bool start_array(std::size_t) override {
    Take({});
    return false;
  }
  bool end_array() override { return true; }

  bool null() override { return Take({}); }
  bool boolean(bool value) override { return Take({.kind = Given::Kind::Boolean, .text = value ? "True" : "False"}); }
  bool number_integer(number_integer_t value) override {
    return Take({.kind = Given::Kind::Whole, .text = std::to_string(value)});
  }
  bool number_unsigned(number_unsigned_t value) override {
    return Take({.kind = Given::Kind::Whole, .text = std::to_string(value)});
  }
  /// Some languages write every number with a point.
  bool number_float(number_float_t value, const string_t& text) override {
    constexpr double kMost = 1e15;
    if (std::abs(value) < kMost && std::trunc(value) == value)
      return number_integer(static_cast<number_integer_t>(value));
    return Take({.kind = Given::Kind::Number, .text = text});
  }
  bool string(string_t& value) override { return Take({.kind = Given::Kind::Text, .text = std::move(value)}); }
  bool binary(binary_t&) override { return false; }

  bool parse_error(std::size_t, const std::string&, const Json::exception& error) override {
    // What stands before are the reader's own names for itself and for the place.
    std::string said = error.what();
    said.erase(0, said.find("] ") + 2);
    if (const size_t behind = said.find("syntax error"); behind != said.npos)
      said.erase(0, behind);
    throw RequestError("the JSON can't be read: " + said, "mend that line", {}, line_);
  }

 private:
  [[noreturn]] void Fail(const std::string& description, std::string remedy) const {
    throw RequestError(description, std::move(remedy), key_, lineOfKey_);
  }

  void FindProperty(const std::string& name) {
    const auto properties = HostProperties();
    const auto found =
        std::find_if(properties.begin(), properties.end(), [&](const auto& each) { return each.name == name; });
    if (found != properties.end()) {
      property_ = *found;
      return;
    }
    std::vector<std::string> names;
    names.reserve(properties.size());
    for (const auto& each : properties) names.emplace_back(each.name);
    Fail("\"" + name + "\" is no property that a host sets" + DidYouMean(name, names), "there are " + Listed(names));
  }

  bool Take(Given given) {
    if (depth_ == 0)
      throw RequestError("the request is no object", std::string(kWhole), {}, line_);
    if (given.text.find('\0') != given.text.npos)
      Fail("\"" + key_ + "\" holds the character U+0000", "take it out");
    if (const std::string foreign = ForeignCharacter(given.text); !foreign.empty())
      Fail("\"" + key_ + "\" holds \"" + foreign + "\", which is no character of Windows-1252", "write another one");
    if (depth_ == 2)
      SetProperty(std::move(given));
    else if (key_ == kScreen && given.kind == Given::Kind::Text)
      request_.payment.code = std::move(given.text);
    else if (key_ == kScreen)
      Fail("the screen's code is no text", R"(put it in quotes, such as "15")");
    else
      Fail("the payment is no object", R"(write its properties such as {"PaidAmount": "12345"})");
    return true;
  }

  void SetProperty(Given given) {
    const std::string name(property_.name);
    if (!Takes(property_.type, given.kind) || !ComplaintAboutHostProperty(name, given.text).empty())
      Fail(name + " takes " + std::string(Wanted(property_.type)), Remedy(property_.type));
    request_.payment.host.emplace_back(name, std::move(given.text));
  }

  const uint64_t& line_;
  CollectRequest request_;
  int depth_ = 0;
  std::string key_;
  uint64_t lineOfKey_ = 0;
  HostPropertyHelp property_;
};

}  // namespace

uint64_t CollectRequest::LineOf(std::string_view key) const {
  const auto found = lines.find(key);
  return found == lines.end() ? 0 : found->second;
}

CollectRequest ReadCollectRequest(std::string_view json) {
  if (json.find_first_not_of(" \t\r\n") == json.npos)
    throw RequestError("there is no request: nothing was given", std::string(kWhole));
  uint64_t line = 1;
  RequestReader reader(line);
  Json::sax_parse(CountingIterator(json.data(), line), CountingIterator(json.data() + json.size(), line), &reader);
  return reader.Request();
}

}  // namespace fiscalon

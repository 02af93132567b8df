#include "tools/fiscalon/generate_command.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>

#include "core/module_state.h"
#include "validation/generate_batch.h"

namespace fiscalon {
namespace {

constexpr const char* kExamples = R"(Examples:
  fiscalon generate --payments 1000 --screen 03
  fiscalon generate --payments 1000000 --screen 20 --bad 0.01 --seed 7 --out trial
  fiscalon validate --payments trial.csv --records trial.pc4

Makes NAME.csv (the payments list), NAME.pc4 (the records) and NAME.planted.csv (each bad payment: its row, its
sequence number, the defect, and the reason that "validate" gives). The payments are good as of --today.)";

/// A file to write, with room for large writes.
class OutputStream {
 public:
  explicit OutputStream(std::string path) : path_(std::move(path)), buffer_(kBuffer) {
    stream_.rdbuf()->pubsetbuf(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    stream_.open(path_, std::ios::binary);
    Check();
    // So that making the rest ends with the first write that fails.
    stream_.exceptions(std::ios::badbit | std::ios::failbit);
  }
  std::ostream& Stream() { return stream_; }
  void Close() {
    stream_.exceptions(std::ios::goodbit);
    stream_.close();
    Check();
  }

 private:
  static constexpr size_t kBuffer = size_t{1} << 20;

  void Check() const {
    if (!stream_)
      throw CommandError(path_ + " can't be written: " + std::strerror(errno));
  }

  std::string path_;
  std::vector<char> buffer_;
  std::ofstream stream_;
};

/// CLI11 by itself takes "-1" for the largest number there is, and "nan" for a number in any range.
template <typename Number>
std::optional<Number> NumberIn(const std::string& text) {
  Number number = {};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc{} && stop == end ? std::optional(number) : std::nullopt;
}

// What is wrong with the text of an option; empty where nothing is.

std::string WholeNumber(const std::string& text) {
  return NumberIn<uint64_t>(text) ? "" : "Value " + text + " is no whole number, or too large";
}

std::string Share(const std::string& text) {
  const double share = NumberIn<double>(text).value_or(-1);
  return share >= 0 && share <= 1 ? "" : "Value " + text + " not in range 0 to 1";
}

std::string FileName(const std::string& text) {
  return text.empty() ? "a name is needed" : "";
}

void Generate(const BatchPlan& plan, const std::string& name) {
  OutputStream payments(name + ".csv");
  OutputStream records(name + ".pc4");
  OutputStream planted(name + ".planted.csv");
  try {
    GenerateBatch(plan, payments.Stream(), records.Stream(), planted.Stream());
  } catch (const std::ios::failure&) {
    // Closing says of which file, and why.
  }
  payments.Close();
  records.Close();
  planted.Close();
  std::cout << name << ".csv, " << name << ".pc4, " << name << ".planted.csv: " << plan.payments << " payments\n";
}

}  // namespace

void AddGenerateCommand(CLI::App& app, Context& context) {
  CLI::App* command = app.add_subcommand("generate", "Make a batch for trials, with planted defects");
  command->footer(kExamples);
  const auto plan = std::make_shared<BatchPlan>();
  const auto name = std::make_shared<std::string>("batch");
  command->add_option("--payments", plan->payments, "How many payments")
      ->type_name("N")
      ->required()
      ->check(WholeNumber);
  command->add_option("--screen", plan->screen, "Their screen")
      ->type_name("CODE")
      ->required()
      ->check(CLI::IsMember({"03", "20"}));
  command->add_option("--bad", plan->badRate, "Which share of them is bad, from 0 to 1; without it none")
      ->type_name("RATE")
      ->check(Share);
  command->add_option("--seed", plan->seed, "Another seed makes another batch; without it 1")
      ->type_name("S")
      ->check(WholeNumber);
  command->add_option("--out", *name, "The files' name without its endings; without it \"batch\"")
      ->type_name("NAME")
      ->check(FileName);
  command->callback([plan, name, &context] {
    plan->today = context.today ? context.today->date : TheModule().clock->Today();
    Generate(*plan, *name);
  });
}

}  // namespace fiscalon

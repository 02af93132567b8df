#include "tools/fiscalon/commands/generate_command.h"

#include <charconv>
#include <iostream>
#include <memory>
#include <optional>
#include <streambuf>
#include <vector>

#include "core/module_state.h"
#include "tools/fiscalon/files/whole_file.h"
#include "tools/fiscalon/option_names.h"
#include "tools/fiscalon/screen_code.h"
#include "validation/generate_batch.h"

namespace fiscalon {
namespace {

constexpr const char* kExamples = R"(Examples:
  fiscalon generate --payments 1000 --screen 03
  fiscalon generate --payments 1000000 --screen 20 --bad 0.01 --seed 7 --out trial
  fiscalon validate --payments trial.csv --records trial.pc4

Makes NAME.csv (the payments list), NAME.pc4 (the records) and NAME.planted.csv (each bad payment: its row, its
sequence number, the defect, and the reason that "validate" gives): all of them, or after a failure none. Files of
these names are replaced with --force only. The payments are good as of --today.)";

/// Stands behind a stream into a file, with room for large writes.
class FileBuffer final : public std::streambuf {
 public:
  explicit FileBuffer(WholeFile& file) : file_(file), buffer_(kBuffer) {
    setp(buffer_.data(), buffer_.data() + buffer_.size());
  }

 private:
  static constexpr size_t kBuffer = size_t{1} << 20;

  int_type overflow(int_type character) override {
    sync();
    return traits_type::eq_int_type(character, traits_type::eof()) ? traits_type::not_eof(character)
                                                                   : sputc(traits_type::to_char_type(character));
  }
  int sync() override {
    file_.Write({pbase(), static_cast<size_t>(pptr() - pbase())});
    setp(buffer_.data(), buffer_.data() + buffer_.size());
    return 0;
  }

  WholeFile& file_;
  std::vector<char> buffer_;
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

/// A file and the stream into it. What the file throws comes out of the stream.
class StreamedFile {
 public:
  StreamedFile(const std::string& name, WholeFile::Older older) : file_(name, {}, older) {
    stream_.exceptions(std::ios::badbit);
  }
  std::ostream& Stream() { return stream_; }
  WholeFile* Whole() {
    stream_.flush();
    return &file_;
  }

 private:
  WholeFile file_;
  FileBuffer buffer_{file_};
  std::ostream stream_{&buffer_};
};

struct GenerateOptions {
  BatchPlan plan = {};
  std::string name = "batch";
  bool force = false;
};

void Generate(const GenerateOptions& options) {
  const std::string& name = options.name;
  const auto older = options.force ? WholeFile::Older::Replaced : WholeFile::Older::Refused;
  StreamedFile payments(name + ".csv", older);
  StreamedFile records(name + ".pc4", older);
  StreamedFile planted(name + ".planted.csv", older);
  GenerateBatch(options.plan, payments.Stream(), records.Stream(), planted.Stream());
  WholeFile::Commit({payments.Whole(), records.Whole(), planted.Whole()});
  std::cout << name << ".csv, " << name << ".pc4, " << name << ".planted.csv: " << options.plan.payments
            << " payments\n";
}

}  // namespace

void AddGenerateCommand(CLI::App& app, Context& context) {
  CLI::App* command = app.add_subcommand("generate", "Make a batch for trials, with planted defects");
  command->footer(kExamples);
  const auto options = std::make_shared<GenerateOptions>();
  BatchPlan* const plan = &options->plan;
  command->add_option("--payments", plan->payments, "How many payments")
      ->type_name("N")
      ->required()
      ->check(WholeNumber);
  command->add_option("--screen", plan->screen, "Their screen: " + JudgedScreensInWords())
      ->type_name("CODE")
      ->required()
      ->check(OneOf(JudgedScreens()));
  command->add_option("--bad", plan->badRate, "Which share of them is bad, from 0 to 1; without it none")
      ->type_name("RATE")
      ->check(Share);
  command->add_option("--seed", plan->seed, "Another seed makes another batch; without it 1")
      ->type_name("S")
      ->check(WholeNumber);
  command->add_option("--out", options->name, "The files' name without its endings; without it \"batch\"")
      ->type_name("NAME")
      ->check(NameStemGiven);
  command->add_flag("--force", options->force, "Replace files of these names");
  command->callback([options, &context] {
    options->plan.today = context.today ? context.today->date : TheModule().clock->Today();
    Generate(*options);
  });
}

}  // namespace fiscalon

#include "tools/fiscalon/commands/generate_command.h"

#include <algorithm>
#include <array>
#include <functional>
#include <iostream>
#include <memory>
#include <streambuf>
#include <string_view>
#include <utility>
#include <vector>

#include "core/module_state.h"
#include "tools/fiscalon/files/progress_line.h"
#include "tools/fiscalon/files/standard_output.h"
#include "tools/fiscalon/files/whole_file.h"
#include "tools/fiscalon/option_names.h"
#include "tools/fiscalon/screen_code.h"
#include "tools/reading/visible_text.h"
#include "validation/generate_batch.h"

namespace fiscalon {
namespace {

constexpr const char* kGenerateExamples = R"(Examples:
  fiscalon generate --payments 1000 --screen 03
  fiscalon generate --payments 1000000 --screen 20 --bad 0.01 --seed 7 --out trial
  fiscalon validate --payments trial.csv --records trial.pc4

Makes NAME.csv (the payments list), NAME.pc4 (the records) and NAME.planted.csv (each bad payment: its row, its
sequence number, the defect, and the reason that "validate" gives): all of them, or after a failure none. Files of
these names are replaced with --force only. The payments are good as of --today.)";

/// Writes of records are as large as the pages that a system may have: what is written in such pieces lies in memory in
/// such pieces, and is the quicker to read.
constexpr size_t kRecordRoom = size_t{2} << 20;
constexpr size_t kRoom = size_t{1} << 20;

/// Stands behind a stream into a file, with room for large writes.
class FileBuffer final : public std::streambuf {
 public:
  FileBuffer(WholeFile& file, size_t room, std::function<void(std::string_view bytes)> beforeWrite)
      : file_(file), beforeWrite_(std::move(beforeWrite)), buffer_(room) {
    setp(buffer_.data(), buffer_.data() + buffer_.size());
  }

 private:
  int_type overflow(int_type character) override {
    sync();
    return traits_type::eq_int_type(character, traits_type::eof()) ? traits_type::not_eof(character)
                                                                   : sputc(traits_type::to_char_type(character));
  }
  int sync() override {
    const std::string_view bytes(pbase(), static_cast<size_t>(pptr() - pbase()));
    beforeWrite_(bytes);
    file_.Write(bytes);
    setp(buffer_.data(), buffer_.data() + buffer_.size());
    return 0;
  }

  WholeFile& file_;
  std::function<void(std::string_view bytes)> beforeWrite_;
  std::vector<char> buffer_;
};

/// A file and the stream into it. What the file throws comes out of the stream.
class StreamedFile {
 public:
  StreamedFile(
      const std::string& name, WholeFile::Older older, size_t room,
      std::function<void(std::string_view bytes)> beforeWrite = [](std::string_view) {})
      : file_(name, {}, older), buffer_(file_, room, std::move(beforeWrite)) {
    stream_.exceptions(std::ios::badbit);
  }
  std::ostream& Stream() { return stream_; }
  WholeFile* Whole() {
    stream_.flush();
    return &file_;
  }

 private:
  WholeFile file_;
  FileBuffer buffer_;
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
  const std::array names = {name + ".csv", name + ".pc4", name + ".planted.csv"};
  for (size_t i = 1; i < names.size(); ++i)
    for (size_t j = 0; j < i; ++j)
      if (WholeFile::IsSamePlace(names[i], names[j]))
        throw CommandError(names[j] + " and " + names[i] + " are one file");
  ProgressLine progress;
  uint64_t lines = 0;
  StreamedFile payments(names[0], older, kRoom, [&](std::string_view rows) {
    lines += static_cast<uint64_t>(std::count(rows.begin(), rows.end(), '\n'));
    const uint64_t made = lines - 1;  // the first line names the columns
    progress.Show({made, "payments", made, options.plan.payments});
  });
  StreamedFile records(names[1], older, kRecordRoom);
  StreamedFile planted(names[2], older, kRoom);
  GenerateBatch(options.plan, payments.Stream(), records.Stream(), planted.Stream());
  WholeFile::Commit({payments.Whole(), records.Whole(), planted.Whole()});
  SayWhatStands([&] {
    std::cout << VisibleUtf8(names[0] + ", " + names[1] + ", " + names[2]) << ": "
              << Counted(options.plan.payments, "payment") << '\n';
  });
}

}  // namespace

void DefineGenerateCommand(CLI::App& command, Context& context) {
  command.footer(kGenerateExamples);
  const auto options = std::make_shared<GenerateOptions>();
  BatchPlan* const plan = &options->plan;
  command.add_option("--payments", plan->payments, "How many payments")
      ->type_name("N")
      ->required()
      ->check(NumberFrom<uint64_t>(1));
  command.add_option("--screen", plan->screen, "Their screen: " + JudgedScreensInWords())
      ->type_name("CODE")
      ->required()
      ->check(OneOf(JudgedScreens()));
  command.add_option("--bad", plan->badRate, "Which share of them is bad, from 0 to 1; without it none")
      ->type_name("RATE")
      ->check(NumberFrom(0.0, 1.0));
  command.add_option("--seed", plan->seed, "Another seed makes another batch; without it 1")
      ->type_name("S")
      ->check(NumberFrom<uint64_t>(0));
  command.add_option("--out", options->name, "The files' name without its endings; without it \"batch\"")
      ->type_name("NAME")
      ->check(NameStemGiven);
  command.add_flag("--force", options->force, "Replace files of these names");
  command.callback([options, &context] {
    options->plan.today = context.today ? context.today->date : TheModule().clock->Today();
    Generate(*options);
  });
}

}  // namespace fiscalon

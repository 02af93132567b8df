#include "core/found_records.h"

#include <fstream>
#include <iterator>

#include "core/boolean.h"
#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "core/records/record_line.h"

namespace fiscalon {
namespace {

std::string ContentOf(const std::string& name) {
  std::ifstream file(Utf8Path(ToUtf8(name)), std::ios::binary);
  // A folder opens like a file, but nothing can be read of it.
  if (file.peek() == std::ifstream::traits_type::eof())
    return {};
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

FoundRecords FindRecords(const Levyra& session) {
  FoundRecords found;
  if (session.WriteFile() != kTrue) {
    found.collection = session.PC4Records();
    if (found.collection != nullptr)
      for (const PC4& member : *found.collection) found.records.push_back(member.Description());
    return found;
  }
  const std::string content = ContentOf(session.GovFilename());
  for (const RecordLine& line : RecordLinesOf(content)) {
    found.records.emplace_back(line.record);
    if (!found.foreignLine && !line.IsAsWritten())
      found.foreignLine = line.bytes.substr(0, line.bytes.size() - (line.end == LineEnd::CrLf ? 2 : 0));
  }
  return found;
}

}  // namespace fiscalon

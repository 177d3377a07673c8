// Any bytes as a DDL script or a schema document: the reader and the schema layer may refuse them,
// never crash or hang. Two inputs are read from one, split at the first NUL: the first is read as a
// script (and as a schema document), written again and read back; the second is applied to it as a
// change script, and the two schemas are diffed.
#include <cstddef>
#include <cstdint>
#include <string>

#include <qarvelt/ddl/reader.h>
#include <qarvelt/model/error.h>
#include <qarvelt/model/schema.h>
#include <qarvelt/model/script.h>

using namespace qarvelt;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  const std::size_t split = input.find('\0');
  const std::string first = input.substr(0, split);
  const std::string second = split == std::string::npos ? std::string() : input.substr(split + 1);
  ddl::ReadOptions options;
  options.skip_unknown = !first.empty() && first[0] == '-';
  try {
    model::ReadSchema(first, "document");
  } catch (const model::Error&) {
  }
  model::Schema before;
  try {
    ddl::ReadReport report;
    before = ddl::ReadScript(first, "first.sql", options, report);
    model::CreateSchema(before);
    model::ReadSchema(model::WriteSchema(before), "written");
  } catch (const model::Error&) {
    return 0;
  }
  try {
    ddl::ReadReport report;
    model::Schema after = before;
    ddl::ApplyScript(after, second, "second.sql", options, report);
    model::DiffSchema(before, after);
  } catch (const model::Error&) {
  }
  return 0;
}

// Any bytes as a table document or a statement document: the tool may refuse them, never crash or
// hang. Two documents are read from one input, split at the first NUL, and diffed.
#include <cstddef>
#include <cstdint>
#include <string>

#include <qarvelt/model/document.h>
#include <qarvelt/model/script.h>
#include <qarvelt/model/statements.h>

using namespace qarvelt::model;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  const std::size_t split = input.find('\0');
  const std::string first = input.substr(0, split);
  const std::string second = split == std::string::npos ? first : input.substr(split + 1);
  Options options;
  try {
    Render(first, "fuzz");
  } catch (const Error&) {
  }
  try {
    const Table before = ReadTable(first, "old");
    Create(before, options);
    Diff(before, ReadTable(second, "new"), options);
  } catch (const Error&) {
  }
  return 0;
}

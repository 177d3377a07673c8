// Runs a fuzz target over saved inputs, without libFuzzer: each argument is a file or a folder of
// files. Builds with any compiler, so that the seed corpora and every input that once found a fault
// are replayed as ordinary tests.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int replay(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) {
    std::fprintf(stderr, "cannot read %s\n", file.string().c_str());
    return 1;
  }
  const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  int failures = 0;
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    const std::filesystem::path path(argv[i]);
    if (std::filesystem::is_directory(path)) {
      for (const auto& entry : std::filesystem::directory_iterator(path)) {
        if (!entry.is_regular_file()) continue;
        failures += replay(entry.path());
        ++count;
      }
    } else {
      failures += replay(path);
      ++count;
    }
  }
  std::printf("%d inputs replayed, %d unreadable\n", count, failures);
  return failures == 0 && count > 0 ? 0 : 1;
}

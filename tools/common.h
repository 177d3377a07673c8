// What every command of the qarvelt tool shares: the statements it produces, the warnings that go
// with them, and the errors that end a run with an exit code.
#ifndef QARVELT_TOOLS_COMMON_H
#define QARVELT_TOOLS_COMMON_H

#include <stdexcept>
#include <string>
#include <vector>

namespace qarvelt::tool {

// Exit codes.
constexpr int kExitOk = 0;
constexpr int kExitFailure = 1;        // an error while writing (a refused value, a data-loss refusal)
constexpr int kExitBadInput = 2;       // the input cannot be read: JSON, keys, types, paths, kinds
constexpr int kExitNeedsRecreate = 3;  // a difference that no ALTER statement can express

// An error that ends the run: the message goes to stderr, the code is the exit code.
class ToolError : public std::runtime_error {
 public:
  ToolError(int code, const std::string& message) : std::runtime_error(message), m_code(code) {}
  int code() const { return m_code; }

 private:
  int m_code;
};

// The statements of a run, in order, with the warnings about them (data loss, for one).
struct Script {
  std::vector<std::string> statements;
  std::vector<std::string> warnings;
};

// The closest candidates to `word` (edit distance), best first, at most `count`: for "did you mean".
std::vector<std::string> Nearest(const std::string& word,
                                 const std::vector<std::string>& candidates,
                                 int count = 3);
// "a, b or c".
std::string JoinAlternatives(const std::vector<std::string>& words);

}  // namespace qarvelt::tool

#endif  // QARVELT_TOOLS_COMMON_H

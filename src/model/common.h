// What the parts of the model layer share: the errors thrown with the kind of their failure, and the
// "did you mean" helpers.
#ifndef QARVELT_MODEL_COMMON_H
#define QARVELT_MODEL_COMMON_H

#include <qarvelt/model/error.h>
#include <qarvelt/model/script.h>
#include <string>
#include <vector>

namespace qarvelt::model {

// The exit codes of the tool, which are the values of ErrorKind; kExitOk ends a run that went well.
constexpr int kExitOk = 0;
constexpr int kExitFailure = static_cast<int>(ErrorKind::Refused);
constexpr int kExitBadInput = static_cast<int>(ErrorKind::BadInput);
constexpr int kExitNeedsRecreate = static_cast<int>(ErrorKind::NotExpressible);

// The errors of the layer, thrown with the exit code of their kind. With a place, what() is
// "where: message"; without one, the message alone.
class Failure : public Error {
 public:
  Failure(int code, const std::string& message) : Error(static_cast<ErrorKind>(code), "", message) {}
  Failure(int code, const std::string& where, const std::string& message)
      : Error(static_cast<ErrorKind>(code), where, message) {}
  int code() const { return exitCode(); }
};

// The table compressions of a document's "compress" key beyond true and false: the name in the
// document, the keywords Oracle writes, and the release code that brought them.
struct Compression {
  const char* name;
  const char* keyword;
  int since;
};
const std::vector<Compression>& Compressions();
// The release code that brought a table compression keyword (COMPRESS and NOCOMPRESS: 4), and the
// feature as messages name it.
int CompressionSince(const std::string& keyword);
std::string CompressionFeature(const std::string& keyword);

// The closest candidates to `word` (edit distance), best first, at most `count`: for "did you mean".
std::vector<std::string> Nearest(const std::string& word,
                                 const std::vector<std::string>& candidates,
                                 int count = 3);
// "a, b or c".
std::string JoinAlternatives(const std::vector<std::string>& words);

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_COMMON_H

// The one error type of the model layer. Nothing in the layer prints: every failure is thrown as an
// Error that says what kind of failure it is, where in the input it lies and what is wrong.
#ifndef QARVELT_MODEL_ERROR_H
#define QARVELT_MODEL_ERROR_H

#include <stdexcept>
#include <string>

namespace qarvelt::model {

// The kinds of failure; the values are the exit codes of the qarvelt tool.
enum class ErrorKind {
  Refused = 1,         // a value the trees refuse, a change that loses data when that is refused
  BadInput = 2,        // the input cannot be used: JSON syntax, unknown keys, wrong types, bad paths
  NotExpressible = 3,  // no ALTER statement makes the change, or the release does not have the syntax
};

class Error : public std::runtime_error {
 public:
  // what() is "where: message", or the message alone when `where` is empty.
  Error(ErrorKind kind, std::string where, std::string message);

  ErrorKind kind() const { return m_kind; }
  int exitCode() const { return static_cast<int>(m_kind); }
  // The place of the fault: "emp.json:3:5" (JSON syntax), "emp.json.columns[2]" (a key of the
  // document), "--release", or "" when the fault has no single place (a whole table, a script).
  const std::string& where() const { return m_where; }
  // The text without the place.
  const std::string& message() const { return m_message; }

 private:
  ErrorKind m_kind;
  std::string m_where;
  std::string m_message;
};

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_ERROR_H

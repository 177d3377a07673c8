// Strict reading of JSON documents: every key that the program asks for is known, every other key is
// an error naming the nearest known ones; types are checked; syntax errors give line and column.
#ifndef QARVELT_MODEL_JSON_READER_H
#define QARVELT_MODEL_JSON_READER_H

#include <functional>
#include <set>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace qarvelt::model {

using Json = nlohmann::json;

// Parses `text`; a syntax error becomes Failure (exit code 2) "source:line:column: ...".
Json ParseJson(const std::string& text, const std::string& source);

// One JSON object being read. Ask for each key with the accessor of its type, then call Done(),
// which refuses the keys nobody asked for.
class ObjectReader {
 public:
  ObjectReader(const Json& value, std::string where);

  // A string (numbers are taken as their text); "" when absent, an error when required and absent.
  std::string Text(const char* key, bool required = false);
  // true or false; `absent` when not given.
  int Flag(const char* key, int absent = -1);
  // true/false mapped to `yes`/`no` keywords ("" when absent).
  std::string Keyword(const char* key, const char* yes, const char* no);
  // A non-negative whole number; `absent` when not given.
  int Number(const char* key, int absent = 0);
  // An array of strings or numbers.
  std::vector<std::string> Texts(const char* key, bool required = false);
  // An array of objects, each read by `read`.
  void Each(const char* key, const std::function<void(ObjectReader&)>& read, bool required = false);
  // A nested object read by `read`; false when absent.
  bool Object(const char* key, const std::function<void(ObjectReader&)>& read);
  // The raw value, for keys that take several types; null when absent.
  const Json* Raw(const char* key);

  void Done();
  const std::string& Where() const { return m_where; }
  [[noreturn]] void Fail(const std::string& key, const std::string& message) const;

 private:
  const Json* find(const char* key);

  const Json& m_value;
  std::string m_where;
  std::vector<std::string> m_known;
};

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_JSON_READER_H

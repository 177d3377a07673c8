#include "json_reader.h"

#include <algorithm>

#include "common.h"

namespace qarvelt::model {

Json ParseJson(const std::string& text, const std::string& source) {
  try {
    return Json::parse(text);
  } catch (const Json::parse_error& error) {
    // The parser counts bytes; people count lines and columns.
    std::size_t line = 1, column = 1;
    const std::size_t end = std::min<std::size_t>(error.byte == 0 ? 0 : error.byte - 1, text.size());
    for (std::size_t i = 0; i < end; ++i) {
      if (text[i] == '\n') {
        ++line;
        column = 1;
      } else {
        ++column;
      }
    }
    std::string message = error.what();
    const auto colon = message.rfind(": ");
    if (colon != std::string::npos) message = message.substr(colon + 2);
    throw Failure(kExitBadInput,
                  source + ":" + std::to_string(line) + ":" + std::to_string(column),
                  "malformed JSON: " + message);
  } catch (const Json::exception& error) {
    // A number too large for any type, and the like.
    throw Failure(kExitBadInput, source, "unreadable JSON: " + std::string(error.what()));
  }
}

ObjectReader::ObjectReader(const Json& value, std::string where) : m_value(value), m_where(std::move(where)) {
  if (!m_value.is_object()) throw Failure(kExitBadInput, m_where, "expected an object");
}

void ObjectReader::Fail(const std::string& key, const std::string& message) const {
  throw Failure(kExitBadInput, m_where + (key.empty() ? "" : "." + key), message);
}

const Json* ObjectReader::find(const char* key) {
  m_known.emplace_back(key);
  const auto found = m_value.find(key);
  if (found == m_value.end() || found->is_null()) return nullptr;
  return &*found;
}

const Json* ObjectReader::Raw(const char* key) {
  return find(key);
}

std::string ObjectReader::Text(const char* key, bool required) {
  const Json* value = find(key);
  if (value == nullptr) {
    if (required) Fail(key, "missing (required)");
    return "";
  }
  if (value->is_string()) {
    const std::string text = value->get<std::string>();
    if (required && text.empty()) Fail(key, "must not be empty");
    return text;
  }
  if (value->is_number_integer()) return std::to_string(value->get<long long>());
  if (value->is_number()) return value->dump();
  Fail(key, std::string("expected a string, got ") + value->type_name());
}

int ObjectReader::Flag(const char* key, int absent) {
  const Json* value = find(key);
  if (value == nullptr) return absent;
  if (!value->is_boolean()) Fail(key, std::string("expected true or false, got ") + value->type_name());
  return value->get<bool>() ? 1 : 0;
}

std::string ObjectReader::Keyword(const char* key, const char* yes, const char* no) {
  const int flag = Flag(key);
  return flag < 0 ? "" : (flag == 1 ? yes : no);
}

int ObjectReader::Number(const char* key, int absent) {
  const Json* value = find(key);
  if (value == nullptr) return absent;
  if (!value->is_number_integer() || value->get<long long>() < 0 || value->get<long long>() > 1000000) {
    Fail(key, "expected a whole number from 0 to 1000000");
  }
  return static_cast<int>(value->get<long long>());
}

std::vector<std::string> ObjectReader::Texts(const char* key, bool required) {
  const Json* value = find(key);
  std::vector<std::string> texts;
  if (value == nullptr) {
    if (required) Fail(key, "missing (required)");
    return texts;
  }
  if (!value->is_array()) Fail(key, std::string("expected an array, got ") + value->type_name());
  for (std::size_t i = 0; i < value->size(); ++i) {
    const Json& item = (*value)[i];
    if (item.is_string()) {
      texts.push_back(item.get<std::string>());
    } else if (item.is_number_integer()) {
      texts.push_back(std::to_string(item.get<long long>()));
    } else if (item.is_number()) {
      texts.push_back(item.dump());
    } else {
      Fail(std::string(key) + "[" + std::to_string(i) + "]",
           std::string("expected a string, got ") + item.type_name());
    }
  }
  if (required && texts.empty()) Fail(key, "must not be empty");
  return texts;
}

void ObjectReader::Each(const char* key, const std::function<void(ObjectReader&)>& read, bool required) {
  const Json* value = find(key);
  if (value == nullptr) {
    if (required) Fail(key, "missing (required)");
    return;
  }
  if (!value->is_array()) Fail(key, std::string("expected an array, got ") + value->type_name());
  for (std::size_t i = 0; i < value->size(); ++i) {
    ObjectReader item((*value)[i], m_where + "." + key + "[" + std::to_string(i) + "]");
    read(item);
    item.Done();
  }
}

bool ObjectReader::Object(const char* key, const std::function<void(ObjectReader&)>& read) {
  const Json* value = find(key);
  if (value == nullptr) return false;
  ObjectReader nested(*value, m_where + "." + key);
  read(nested);
  nested.Done();
  return true;
}

void ObjectReader::Done() {
  for (auto it = m_value.begin(); it != m_value.end(); ++it) {
    if (std::find(m_known.begin(), m_known.end(), it.key()) != m_known.end()) continue;
    std::vector<std::string> known(m_known.begin(), m_known.end());
    std::sort(known.begin(), known.end());
    known.erase(std::unique(known.begin(), known.end()), known.end());
    Fail(
        "",
        "unknown key \"" + it.key() + "\"; did you mean " + JoinAlternatives(Nearest(it.key(), known)) + "?");
  }
}

}  // namespace qarvelt::model

#include "common.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace qarvelt::model {

Error::Error(ErrorKind kind, std::string where, std::string message)
    : std::runtime_error(where.empty() ? message : where + ": " + message),
      m_kind(kind),
      m_where(std::move(where)),
      m_message(std::move(message)) {}

namespace {

std::size_t distance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j)
    row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t above = row[j];
      const bool same = std::toupper(static_cast<unsigned char>(a[i - 1])) ==
                        std::toupper(static_cast<unsigned char>(b[j - 1]));
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (same ? 0 : 1)});
      diagonal = above;
    }
  }
  return row[b.size()];
}

}  // namespace

std::vector<std::string> Nearest(const std::string& word,
                                 const std::vector<std::string>& candidates,
                                 int count) {
  std::vector<std::pair<std::size_t, std::string>> scored;
  for (const std::string& candidate : candidates)
    scored.emplace_back(distance(word, candidate), candidate);
  std::stable_sort(
      scored.begin(), scored.end(), [](const auto& x, const auto& y) { return x.first < y.first; });
  std::vector<std::string> best;
  for (const auto& [score, candidate] : scored) {
    if (static_cast<int>(best.size()) >= count) break;
    best.push_back(candidate);
  }
  return best;
}

std::string JoinAlternatives(const std::vector<std::string>& words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) text += i + 1 == words.size() ? " or " : ", ";
    text += words[i];
  }
  return text;
}

const std::vector<Compression>& Compressions() {
  // Oracle 11g Release 2 named basic compression and brought OLTP compression; Oracle 12c renamed
  // them ROW STORE COMPRESS BASIC and ADVANCED and brought hybrid columnar compression.
  static const std::vector<Compression> all = {
      {"basic", "COMPRESS BASIC", 7},
      {"oltp", "COMPRESS FOR OLTP", 7},
      {"advanced", "ROW STORE COMPRESS ADVANCED", 8},
      {"query low", "COLUMN STORE COMPRESS FOR QUERY LOW", 8},
      {"query high", "COLUMN STORE COMPRESS FOR QUERY HIGH", 8},
      {"archive low", "COLUMN STORE COMPRESS FOR ARCHIVE LOW", 8},
      {"archive high", "COLUMN STORE COMPRESS FOR ARCHIVE HIGH", 8},
  };
  return all;
}

int CompressionSince(const std::string& keyword) {
  for (const Compression& c : Compressions()) {
    if (keyword == c.keyword) return c.since;
  }
  return 4;  // Oracle 9i Release 2: COMPRESS and NOCOMPRESS
}

std::string CompressionFeature(const std::string& keyword) {
  return CompressionSince(keyword) == 4 ? "table compression" : "table compression " + keyword;
}

}  // namespace qarvelt::model

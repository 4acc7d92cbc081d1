#include "NearestNames.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

std::string LettersAndDigits(const std::string& name) {
  std::string kept;
  for (const char c : name) {
    if (c >= 'A' && c <= 'Z') {
      kept += static_cast<char>(c - 'A' + 'a');
    } else if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
      kept += c;
    }
  }
  return kept;
}

std::size_t EditDistance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (const char c : a) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (c == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

}  // namespace

std::size_t NameDistance(const std::string& a, const std::string& b) {
  return EditDistance(LettersAndDigits(a), LettersAndDigits(b));
}

std::string NearestNames(const std::string& name, const std::vector<std::string>& names) {
  constexpr std::size_t kMost = 3;
  std::vector<std::pair<std::size_t, std::string>> ranked;
  for (const std::string& candidate : names) {
    ranked.emplace_back(NameDistance(name, candidate), candidate);
  }
  std::sort(ranked.begin(), ranked.end());
  ranked.resize(std::min(ranked.size(), kMost));
  std::string nearest;
  for (const auto& [distance, candidate] : ranked) {
    nearest.append(nearest.empty() ? "; nearest: " : ", ").append(candidate);
  }
  return nearest;
}

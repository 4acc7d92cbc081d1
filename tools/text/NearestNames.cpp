#include "text/NearestNames.h"

#include <algorithm>
#include <numeric>
#include <tuple>

#include "util/Text.h"

namespace {

// Files may hold very many and very long names: these bound the work for each pair of them.
constexpr std::size_t kLongest = 64;
constexpr std::size_t kMostEdits = 4;

char SmallLetterOrDigit(char c) {
  if (c >= 'A' && c <= 'Z') {
    return static_cast<char>(c - 'A' + 'a');
  }
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ? c : '\0';
}

// What is typed for a character of ISO 8859-1 beyond ASCII.
const char* Typed(char c, const char* degree) {
  switch (c) {
    case '\xB0':
    case '\xBA':  // a raised o, often taken for the degree sign
      return degree;
    case '\xB9':
      return "1";
    case '\xB2':
      return "2";
    case '\xB3':
      return "3";
    case '\xB5':
      return "u";
    default:
      return "";
  }
}

std::string LettersAndDigits(const std::string& name, const char* degree) {
  std::string kept;
  for (std::size_t i = 0; i < std::min(name.size(), kLongest); ++i) {
    if (const char c = SmallLetterOrDigit(name[i])) {
      kept += c;
    } else {
      kept += Typed(name[i], degree);
    }
  }
  return kept;
}

// Exact up to `most`; above it, some number above it.
std::size_t EditDistance(const std::string& a, const std::string& b, std::size_t most) {
  if (std::max(a.size(), b.size()) - std::min(a.size(), b.size()) > most) {
    return most + 1;
  }
  std::vector<std::size_t> before(b.size() + 1);
  std::vector<std::size_t> last(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    before.swap(last);
    last.swap(row);
    row.assign(row.size(), most + 1);
    row[0] = i;
    for (std::size_t j = i > most ? i - most : 1; j <= std::min(b.size(), i + most); ++j) {
      const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({replaced, row[j - 1] + 1, last[j] + 1});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        row[j] = std::min(row[j], before[j - 2] + 1);
      }
    }
  }
  return row.back();
}

bool Holds(const std::string& text, const std::string& part) {
  return part.size() > 1 && text.find(part) != std::string::npos;
}

constexpr std::size_t kUnlike = kMostEdits + 2;

// The less, the more alike.
std::size_t RankOf(const std::string& name, const std::string& candidate) {
  if (name.empty() || candidate.empty()) {
    return kUnlike;
  }
  if (name == candidate) {
    return 0;
  }
  if (Holds(candidate, name) || (Holds(name, candidate) && 2 * candidate.size() >= name.size())) {
    return 1;
  }
  const std::size_t most = std::min(name.size() / 3, kMostEdits);
  const std::size_t distance = EditDistance(name, candidate, most);
  return distance <= most ? 1 + distance : kUnlike;
}

// The degree sign may be typed as "deg" or left out.
std::size_t BestRankOf(const std::string& name, const std::string& candidate) {
  const auto rank = [&](const char* degree) {
    return RankOf(LettersAndDigits(name, degree), LettersAndDigits(candidate, degree));
  };
  return std::min(rank("deg"), rank(""));
}

}  // namespace

std::string MisspellingOf(const std::string& name, const std::vector<std::string>& names) {
  for (const std::string& candidate : names) {
    const std::size_t most = std::min<std::size_t>(2, (candidate.size() - 1) / 2);
    if (EditDistance(LettersAndDigits(name, ""), LettersAndDigits(candidate, ""), most) <= most) {
      return candidate;
    }
  }
  return "";
}

std::string NearestNames(const std::string& name, const std::vector<std::string>& names) {
  constexpr std::size_t kMost = 3;
  std::vector<std::tuple<std::size_t, std::size_t, std::string>> ranked;
  for (const std::string& candidate : names) {
    const std::size_t rank = BestRankOf(name, candidate);
    if (rank < kUnlike) {
      ranked.emplace_back(rank, candidate.size(), candidate);
    }
  }
  std::sort(ranked.begin(), ranked.end());
  ranked.resize(std::min(ranked.size(), kMost));
  std::vector<std::string> nearest;
  for (const auto& [rank, size, candidate] : ranked) {
    nearest.push_back(candidate);
  }
  return nearest.empty() ? "" : "; nearest: " + util::Join(nearest);
}

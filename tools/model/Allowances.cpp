#include "model/Allowances.h"

#include <algorithm>
#include <limits>
#include <tuple>

#include "text/WithoutBlanks.h"

namespace model {

namespace {

constexpr char kBlanks[] = " \t\r\n";

// Takes the word or sign `mark` and the blanks before it from the front of `text`.
bool Take(const std::string& mark, std::string& text) {
  const std::size_t start = text.find_first_not_of(kBlanks);
  if (start == std::string::npos || text.compare(start, mark.size(), mark) != 0) {
    return false;
  }
  text.erase(0, start + mark.size());
  return true;
}

std::vector<std::string> SplitAtCommas(const std::string& text) {
  std::vector<std::string> parts;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(',', start), text.size());
    parts.emplace_back(WithoutBlanks(std::string_view(text).substr(start, end - start)));
    start = end + 1;
  }
  return parts;
}

const TiXmlNode* NodeAfter(const TiXmlNode& node) {
  const TiXmlNode* from = &node;
  while (from != nullptr && from->NextSibling() == nullptr) {
    from = from->Parent();
  }
  return from == nullptr ? nullptr : from->NextSibling();
}

// Reads a comment if it is an allowance.
void Read(const File& file, const TiXmlComment& comment, std::vector<Allowance>& allowances) {
  std::string text = comment.ValueStr();
  if (!Take("check:", text) || !Take("allow", text)) {
    return;
  }
  const std::size_t colon = text.find(':');
  Allowance allowance;
  allowance.rules = SplitAtCommas(text.substr(0, colon));
  allowance.why =
      colon == std::string::npos ? "" : std::string(WithoutBlanks(text.substr(colon + 1)));
  allowance.place = allowance.begin = allowance.end = file.At(comment);
  const TiXmlElement* element = comment.NextSiblingElement();
  const bool whole = comment.Parent()->ToDocument() != nullptr;
  if (element != nullptr) {
    const TiXmlNode* next = whole ? nullptr : NodeAfter(*element);
    allowance.begin = whole ? Place{file.Path()} : file.At(*element);
    allowance.end =
        next != nullptr ? file.At(*next) : Place{file.Path(), std::numeric_limits<int>::max()};
  }
  allowances.push_back(allowance);
}

}  // namespace

bool Allowance::HoldsAt(const Place& where) const {
  const auto position = [](const Place& at) { return std::tie(at.line, at.column); };
  return where.file == begin.file && position(begin) <= position(where) &&
         position(where) < position(end);
}

std::vector<Allowance> ReadAllowances(const File& file) {
  std::vector<Allowance> allowances;
  const TiXmlNode* node = file.document.FirstChild();
  while (node != nullptr) {
    if (const TiXmlComment* comment = node->ToComment()) {
      Read(file, *comment, allowances);
    }
    const TiXmlNode* child = node->FirstChild();
    node = child != nullptr ? child : NodeAfter(*node);
  }
  return allowances;
}

}  // namespace model

#include "model/Conversions.h"

#include <utility>

namespace model {

namespace {

std::uint64_t KeyOf(int from, int to) {
  return static_cast<std::uint64_t>(from) << 32 | static_cast<std::uint32_t>(to);
}

}  // namespace

int Conversions::NumberOf(const std::string& unit) {
  const auto [entry, added] = numbers.emplace(unit, UnitCount());
  if (added) {
    names.push_back(&entry->first);
    targets.emplace_back();
    neighbours.emplace_back();
  }
  return entry->second;
}

std::optional<int> Conversions::Find(const std::string& unit) const {
  const auto found = numbers.find(unit);
  return found != numbers.end() ? std::optional(found->second) : std::nullopt;
}

void Conversions::Add(const Conversion& conversion) {
  positions.emplace(KeyOf(conversion.from, conversion.to), all.size());
  all.push_back(conversion);
  targets[static_cast<std::size_t>(conversion.from)].push_back(conversion.to);
  neighbours[static_cast<std::size_t>(conversion.from)].push_back(conversion.to);
  neighbours[static_cast<std::size_t>(conversion.to)].push_back(conversion.from);
}

Conversion* Conversions::Find(int from, int to) {
  return const_cast<Conversion*>(std::as_const(*this).Find(from, to));
}

const Conversion* Conversions::Find(int from, int to) const {
  const auto found = positions.find(KeyOf(from, to));
  return found != positions.end() ? &all[found->second] : nullptr;
}

const Conversion* Conversions::Find(const std::string& from, const std::string& to) const {
  const auto source = Find(from);
  const auto target = Find(to);
  return source && target ? Find(*source, *target) : nullptr;
}

}  // namespace model

#include "units/Conversion.h"

#include <algorithm>

#include "units/Arithmetic.h"
#include "units/ThreadParser.h"

namespace units {

namespace {

template <typename Value>
void ApplyToAll(const Value* from, Value* to, std::size_t count, Value scalar, Value offset) {
  // Else its pace depends on where the loop comes to lie in memory: up to twice as long.
#pragma GCC unroll 4
  for (std::size_t i = 0; i < count; ++i) {
    to[i] = ApplySlopeInt(scalar, offset, from[i]);
  }
}

}  // namespace

Conversion::Conversion() = default;

Conversion::Conversion(Kind kind) : kind(kind) {}

Conversion::Conversion(double scalar, double offset)
    : kind(Kind::kSlopeInt),
      singleScalar(static_cast<float>(scalar)),
      singleOffset(static_cast<float>(offset)),
      scalar(scalar),
      offset(offset) {}

Conversion::Conversion(const std::string& expression)
    : kind(Kind::kExpression), expression(std::make_shared<const std::string>(expression)) {}

Conversion::Conversion(const Conversion&) noexcept = default;

Conversion& Conversion::operator=(const Conversion&) noexcept = default;

Conversion::~Conversion() = default;

Conversion::operator bool() const { return kind != Kind::kNone; }

// Out of line, so that a slope-int conversion saves no registers for it.
template <typename Value>
[[gnu::noinline]] void Conversion::ConvertOther(Value& value) const {
  if (kind == Kind::kExpression) {
    Evaluate(ThreadParser(), *expression, value);
  }
}

void Conversion::Convert(double& value) const {
  if (kind == Kind::kSlopeInt) {
    value = ApplySlopeInt(scalar, offset, value);
  } else {
    ConvertOther(value);
  }
}

void Conversion::Convert(float& value) const {
  if (kind == Kind::kSlopeInt) {
    value = ApplySlopeInt(singleScalar, singleOffset, value);
  } else {
    ConvertOther(value);
  }
}

void Conversion::Convert(const double* from, double* to, std::size_t count) const {
  if (kind == Kind::kSlopeInt) {
    ApplyToAll(from, to, count, scalar, offset);
  } else {
    ConvertOthers(from, to, count);
  }
}

void Conversion::Convert(const float* from, float* to, std::size_t count) const {
  if (kind == Kind::kSlopeInt) {
    ApplyToAll(from, to, count, singleScalar, singleOffset);
  } else {
    ConvertOthers(from, to, count);
  }
}

template <typename Value>
void Conversion::ConvertOthers(const Value* from, Value* to, std::size_t count) const {
  if (from != to) {
    std::copy_n(from, count, to);
  }
  if (kind == Kind::kExpression) {
    Parser& parser = ThreadParser();
    std::for_each(to, to + count, [&](Value& value) { Evaluate(parser, *expression, value); });
  }
}

}  // namespace units

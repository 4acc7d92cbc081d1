#pragma once

#include <cfenv>

namespace util {

/// While it lives, the thread's floating-point environment is the default one: rounding to nearest,
/// no trap. Then it is what it was, flags included.
class PlainArithmetic {
 public:
  PlainArithmetic() {
    std::fegetenv(&before);
    std::fesetenv(FE_DFL_ENV);
  }
  PlainArithmetic(const PlainArithmetic&) = delete;
  PlainArithmetic& operator=(const PlainArithmetic&) = delete;
  ~PlainArithmetic() { std::fesetenv(&before); }

 private:
  std::fenv_t before{};
};

}  // namespace util

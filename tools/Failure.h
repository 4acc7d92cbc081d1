#pragma once

#include <stdexcept>

/// What keeps the program from doing what it was asked: one line for standard error, in ISO 8859-1,
/// and exit status 1.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

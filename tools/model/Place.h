#pragma once

#include <string>

#include "text/Message.h"

namespace model {

/// Where something stands; line and column count from 1.
struct Place {
  std::string file;  ///< its path
  int line = 1;
  int column = 1;
};

/// `FILE:LINE:COLUMN`.
Message ToMessage(const Place& place);

}  // namespace model

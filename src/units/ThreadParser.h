#pragma once

#include "host/Parser.h"

namespace units {

/// The evaluator of the calling thread, made at its first use and destroyed with the thread.
inline Parser& ThreadParser() {
  // The pointer spares the question, at each call, whether the evaluator is there.
  thread_local Parser* found = nullptr;
  if (found == nullptr) {
    thread_local Parser parser;
    found = &parser;
  }
  return *found;
}

}  // namespace units

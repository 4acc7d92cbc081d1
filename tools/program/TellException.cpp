#include "program/TellException.h"

#include <exception>
#include <iostream>

#include "text/Charset.h"
#include "text/Failure.h"

namespace {

Message TextOfException() {
  try {
    throw;
  } catch (const Failure& failure) {
    return failure.Told();
  } catch (const std::exception& error) {
    return Message::Verbatim(error.what());
  }
}

}  // namespace

void TellException(const Charset& terminal) {
  std::cerr << (Message("vehicle-units: ") + TextOfException()).For(terminal) << '\n';
}

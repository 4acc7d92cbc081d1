#pragma once

#include <stdexcept>

#include "text/Message.h"

/// What keeps the program from doing what it was asked: one line for standard error, and exit
/// status 1.
class Failure : public std::runtime_error {
 public:
  explicit Failure(Message message)
      : std::runtime_error(message.Bytes()), message(std::move(message)) {}

  const Message& Told() const { return message; }

 private:
  Message message;
};

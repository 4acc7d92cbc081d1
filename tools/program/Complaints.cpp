#include "program/Complaints.h"

#include <iostream>

#include "text/Charset.h"

void Complaints::Tell(const Message& message) {
  if (told.insert(message).second) {
    std::cerr << message.For(terminal) << '\n';
  }
}

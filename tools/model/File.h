#pragma once

#include <tinyxml.h>

#include <string>

#include "model/Place.h"
#include "xml/LoadDocument.h"

namespace model {

/// One file of the data, read and parsed once.
struct File {
  enum class State { kUnreadable, kRefused, kParsed };

  /// Reads the file at `path`, whose root is to be named `rootName`.
  File(const std::string& path, const std::string& rootName);
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  const std::string& Path() const { return document.ValueStr(); }
  Place At(const TiXmlBase& node) const { return {Path(), node.Row(), node.Column()}; }

  TiXmlDocument document;        ///< what the parser made of it
  State state;                   ///< unreadable: missing, empty or no file
  xml::Refusal refusal;          ///< why the library does not give it to the parser
  std::string bytes;             ///< all of them, where it was parsed
  std::string rootName;          ///< the name that its root is to have
  TiXmlElement* root = nullptr;  ///< the first element of that name, or null
};

}  // namespace model

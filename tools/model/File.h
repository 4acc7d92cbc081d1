#pragma once

#include <tinyxml.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

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
  Place At(std::size_t offset) const;  ///< of a byte

  /// The bytes up to the first NUL, which ends them for the parser.
  std::string_view Text() const { return bytes.c_str(); }

  /// The encoding that the document declares, empty where its declaration names none; nothing where
  /// it has no declaration.
  std::optional<std::string> DeclaredEncoding() const;

  /// Whether the parser takes the bytes for UTF-8.
  bool IsReadAsUtf8() const;

  /// Whether there may be more in the file than what was read: the library refuses it, the parser
  /// gave it up, or its root has another name.
  bool IsReadInPart() const;

  TiXmlDocument document;        ///< what the parser made of it
  State state;                   ///< unreadable: missing, empty or no file
  xml::Refusal refusal;          ///< why the library does not give it to the parser
  std::string bytes;             ///< all of them, where it was parsed
  std::string rootName;          ///< the name that its root is to have
  TiXmlElement* root = nullptr;  ///< the first element of that name, or null
};

}  // namespace model

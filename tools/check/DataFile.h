#pragma once

#include <tinyxml.h>

#include <string>

#include "check/Findings.h"

namespace check {

/// One file of the data, parsed, with the findings about the file as such. Columns count
/// characters: a tab is one.
class DataFile {
 public:
  enum class State { kUnreadable, kRefused, kLoaded };

  /// Reads the file at `path`, whose root is to be named `rootName`. A file that cannot be read or
  /// is empty leaves no finding, one that the library refuses the library's own messages.
  DataFile(const std::string& path, const std::string& rootName, Findings& findings);
  DataFile(const DataFile&) = delete;
  DataFile& operator=(const DataFile&) = delete;

  State GetState() const { return state; }

  /// The root; null for a file that has none or is not loaded.
  TiXmlElement* Root() const { return root; }

  const std::string& Path() const { return document.ValueStr(); }
  Place At(const TiXmlBase& node) const { return {Path(), node.Row(), node.Column()}; }

  /// Adds the lines that the library has written about this file, `PATH:ROW:COLUMN: text`, as
  /// findings of `rule`; lines about other files stay whole.
  void PassOn(const std::string& messages, Rule rule, Findings& findings) const;

 private:
  void CheckDocument(const std::string& text, const std::string& rootName, Findings& findings);

  TiXmlDocument document;
  State state = State::kUnreadable;
  TiXmlElement* root = nullptr;
};

}  // namespace check

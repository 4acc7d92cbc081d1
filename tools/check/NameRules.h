#pragma once

#include <tinyxml.h>

#include <string>
#include <vector>

#include "check/DataFile.h"
#include "check/Findings.h"

namespace check {

using Names = std::vector<std::string>;

/// The one of `names` that `name` is a misspelling of: it differs only by case, or by a letter or
/// two. Empty if there is none.
std::string MisspellingOf(const std::string& name, const Names& names);

/// Judges the names of the attributes and child elements of one element. `read` are those that the
/// library reads there, `known` those that an author may have meant.
class NameRules {
 public:
  NameRules(const DataFile& file, Findings& findings) : file(file), findings(findings) {}

  void CheckAttributes(const TiXmlElement& element, const Names& read, const Names& known) const;

  /// Checks one child of `element`; of those of one name only the first is read.
  void CheckChild(const TiXmlElement& element, const TiXmlElement& child, const Names& read,
                  const Names& known) const;

  /// Checks an element whose fields are attributes or child elements, with all that is below it.
  void CheckFields(const TiXmlElement& element, const Names& read, const Names& known) const;

  /// Checks that an element which is read for its text alone has nothing else.
  void CheckTextOnly(const TiXmlElement& element) const;

 private:
  void Report(const TiXmlBase& node, Rule unread, const std::string& name, const std::string& what,
              const std::string& parent, const Names& known) const;

  const DataFile& file;
  Findings& findings;
};

}  // namespace check

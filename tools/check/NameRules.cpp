#include "check/NameRules.h"

#include <algorithm>

#include "NearestNames.h"
#include "Quoted.h"

namespace check {

std::string MisspellingOf(const std::string& name, const Names& names) {
  for (const std::string& candidate : names) {
    const std::size_t most = std::min<std::size_t>(2, (candidate.size() - 1) / 2);
    if (NameDistance(name, candidate) <= most) {
      return candidate;
    }
  }
  return "";
}

void NameRules::CheckAttributes(const TiXmlElement& element, const Names& read,
                                const Names& known) const {
  for (const TiXmlAttribute* attribute = element.FirstAttribute(); attribute != nullptr;
       attribute = attribute->Next()) {
    const std::string& name = attribute->NameTStr();
    if (std::find(read.begin(), read.end(), name) == read.end()) {
      Report(*attribute, Rule::kUnreadAttribute, name, "the attribute " + Quoted(name),
             element.ValueStr(), known);
    }
  }
}

void NameRules::CheckChild(const TiXmlElement& element, const TiXmlElement& child,
                           const Names& read, const Names& known) const {
  const std::string& name = child.ValueStr();
  if (std::find(read.begin(), read.end(), name) == read.end()) {
    Report(child, Rule::kUnreadElement, name, "<" + name + ">", element.ValueStr(), known);
  } else if (element.FirstChildElement(name) != &child) {
    findings.Add(file.At(child), Rule::kUnreadElement,
                 "only the first <" + name + "> in <" + element.ValueStr() + "> is read");
  }
}

void NameRules::CheckFields(const TiXmlElement& element, const Names& read,
                            const Names& known) const {
  CheckAttributes(element, read, known);
  for (const TiXmlElement* child = element.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    CheckChild(element, *child, read, known);
    if (element.Attribute(child->ValueStr()) != nullptr) {
      findings.Add(file.At(*child), Rule::kFieldGivenTwice,
                   Quoted(child->ValueStr()) +
                       " is given as an attribute too, which counts: the element is not read");
    } else {
      CheckTextOnly(*child);
    }
  }
}

void NameRules::CheckTextOnly(const TiXmlElement& element) const {
  CheckAttributes(element, {}, {});
  for (const TiXmlElement* child = element.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    CheckChild(element, *child, {}, {});
  }
}

void NameRules::Report(const TiXmlBase& node, Rule unread, const std::string& name,
                       const std::string& what, const std::string& parent,
                       const Names& known) const {
  const std::string meant = MisspellingOf(name, known);
  if (meant.empty() || meant == name) {
    findings.Add(file.At(node), unread, what + " of <" + parent + "> is never read");
  } else {
    findings.Add(file.At(node), Rule::kMisspeltName,
                 what + " of <" + parent + "> is not read: is " + Quoted(meant) + " meant?");
  }
}

}  // namespace check

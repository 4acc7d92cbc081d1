#include "check/CheckNames.h"

#include <algorithm>
#include <string>
#include <vector>

#include "model/Elements.h"
#include "text/NearestNames.h"
#include "util/Text.h"
#include "vehicle/ConversionTypes.h"
#include "xml/ReadField.h"

namespace check {

namespace {

using Names = std::vector<std::string>;

const Names kNone;
const Names kId(1, "id");
const Names kConv(1, "conv");
const Names kFromUnit(1, "fromunit");
const Names kFromUnitChildren{"id", "tounit"};
const Names kExpressionFields(1, "to_float");
const Names kAssociationFields{"id", "fromunit", "tounit"};
const Names kAssociationChildren{"unitassoc", "include"};

Names MakeConstantFields() {
  Names fields(1, "type");
  for (const auto& [constant, name] : VehicleV2::conversionConstantNames()) {
    if (constant != VehicleV2::CONSTANT_INVALID) {
      fields.push_back(name);
    }
  }
  return fields;
}

const Names kConstantFields = MakeConstantFields();

Names MakeAllFields() {
  Names fields = kConstantFields;
  fields.insert(fields.end(), kExpressionFields.begin(), kExpressionFields.end());
  return fields;
}

const Names kAllFields = MakeAllFields();

bool Holds(const Names& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// Whether an attribute is XML's own, as those that name a schema: it may stand anywhere.
bool IsOfXml(const std::string& name) {
  return name == "xmlns" || name.rfind("xmlns:", 0) == 0 || name.rfind("xml:", 0) == 0 ||
         name.rfind("xsi:", 0) == 0;
}

// Judges the names of one file. Of the lists of names, `read` are those that the library reads in a
// place, `known` those that an author may have meant there.
class NamesOfFile {
 public:
  NamesOfFile(const model::File& file, Findings& findings) : file(file), findings(findings) {}

  void CheckConversions(const std::vector<model::Definition>& definitions) const {
    CheckRoot(kFromUnit);
    for (const model::Definition& definition : definitions) {
      CheckAttributes(*definition.element, kId, kId);
      CheckChildrenOfFromUnit(*definition.element);
      for (const model::ToUnit& toUnit : definition.toUnits) {
        CheckToUnit(toUnit);
      }
    }
  }

  void CheckAssociations() const {
    CheckRoot(kAssociationChildren);
    for (const TiXmlElement* element : model::ChildrenOf(*file.root, "unitassoc")) {
      CheckFields(*element, kAssociationFields, kAssociationFields);
    }
    for (const TiXmlElement* element : model::ChildrenOf(*file.root, "include")) {
      CheckTextOnly(*element);
    }
  }

 private:
  void CheckRoot(const Names& children) const {
    CheckAttributes(*file.root, kNone, kNone);
    for (const TiXmlElement* child : model::ChildrenOf(*file.root)) {
      if (!Holds(children, child->ValueStr())) {
        CheckChild(*file.root, *child, kNone, children);
      }
    }
  }

  void CheckChildrenOfFromUnit(const TiXmlElement& fromUnit) const {
    bool afterToUnit = false;
    for (const TiXmlElement* child : model::ChildrenOf(fromUnit)) {
      const std::string& name = child->ValueStr();
      if (name == "tounit") {
        afterToUnit = true;
      } else if (name == "id") {
        CheckFieldElement(fromUnit, *child);
      } else if (afterToUnit) {
        findings.Add(file.At(*child), kReadAsTounit,
                     "<" + name + "> after the first <tounit> is read as a <tounit>");
      } else {
        CheckChild(fromUnit, *child, kNone, kFromUnitChildren);
      }
    }
  }

  void CheckToUnit(const model::ToUnit& toUnit) const {
    const TiXmlElement& element = *toUnit.element;
    if (element.ValueStr() == "id") {
      return;
    }
    CheckAttributes(element, kId, kId);
    for (const TiXmlElement* child : model::ChildrenOf(element)) {
      if (child->ValueStr() != "conv") {
        CheckChild(element, *child, kNone, kConv);
      }
    }
    if (toUnit.record != nullptr) {
      const bool hasType = xml::ReadField(*toUnit.conv, "type") != nullptr;
      CheckFields(*toUnit.conv, hasType ? kConstantFields : kExpressionFields, kAllFields);
    }
  }

  void CheckAttributes(const TiXmlElement& element, const Names& read, const Names& known) const {
    for (const TiXmlAttribute* attribute : model::AttributesOf(element)) {
      const std::string& name = attribute->NameTStr();
      if (!Holds(read, name) && !IsOfXml(name)) {
        Report(*attribute, kUnreadAttribute, name, "the attribute " + util::Quoted(name),
               element.ValueStr(), known);
      }
    }
  }

  // Of the children of one name only the first is read.
  void CheckChild(const TiXmlElement& element, const TiXmlElement& child, const Names& read,
                  const Names& known) const {
    const std::string& name = child.ValueStr();
    if (!Holds(read, name)) {
      Report(child, kUnreadElement, name, "<" + name + ">", element.ValueStr(), known);
    } else if (element.FirstChildElement(name) != &child) {
      findings.Add(file.At(child), kUnreadElement,
                   "only the first <" + name + "> in <" + element.ValueStr() + "> is read");
    }
  }

  // An element whose fields are attributes or child elements.
  void CheckFields(const TiXmlElement& element, const Names& read, const Names& known) const {
    CheckAttributes(element, read, known);
    for (const TiXmlElement* child : model::ChildrenOf(element)) {
      CheckChild(element, *child, read, known);
      CheckFieldElement(element, *child);
    }
  }

  void CheckFieldElement(const TiXmlElement& element, const TiXmlElement& field) const {
    if (element.Attribute(field.ValueStr()) != nullptr) {
      findings.Add(file.At(field), kFieldGivenTwice,
                   util::Quoted(field.ValueStr()) +
                       " is given as an attribute too, which counts: the element is not read");
    } else {
      CheckTextOnly(field);
    }
  }

  void CheckTextOnly(const TiXmlElement& element) const {
    CheckAttributes(element, kNone, kNone);
    for (const TiXmlElement* child : model::ChildrenOf(element)) {
      CheckChild(element, *child, kNone, kNone);
    }
  }

  void Report(const TiXmlBase& node, const Rule& unread, const std::string& name,
              const std::string& what, const std::string& parent, const Names& known) const {
    const std::string meant = MisspellingOf(name, known);
    if (meant.empty() || meant == name) {
      findings.Add(file.At(node), unread, what + " of <" + parent + "> is never read");
    } else {
      findings.Add(
          file.At(node), kMisspeltName,
          what + " of <" + parent + "> is not read: is " + util::Quoted(meant) + " meant?");
    }
  }

  const model::File& file;
  Findings& findings;
};

}  // namespace

void CheckNames(const model::Model& model, Findings& findings) {
  if (model.conversionFile->root != nullptr) {
    NamesOfFile(*model.conversionFile, findings).CheckConversions(model.definitions.all);
  }
  for (const auto& [path, file] : model.associationFiles) {
    if (file->root != nullptr) {
      NamesOfFile(*file, findings).CheckAssociations();
    }
  }
}

}  // namespace check

#pragma once

#include <map>
#include <regex>
#include <string>
#include <vector>

#include "Program.h"

/// An example of a data folder in a document, such as those of docs/check-rules.md: its files, and
/// what is found in them.
class RuleExample {
 public:
  /// All examples of the document at `path`, by their headings.
  static std::map<std::string, RuleExample> AllOf(const std::string& path) {
    const std::string document = ReadFile(path) + "\n## ";
    std::map<std::string, RuleExample> examples;
    const std::string mark = "\n### ";
    for (std::size_t at = document.find(mark); at != std::string::npos;
         at = document.find(mark, at + 1)) {
      const std::size_t line = document.find('\n', at + 1);
      const std::string heading = document.substr(at + mark.size(), line - at - mark.size());
      examples[heading].Read(document.substr(line + 1, document.find("\n##", line) - line - 1));
    }
    return examples;
  }

  const std::string& Entry() const { return entry; }
  const std::string& Findings() const { return findings; }

  void Write(const TempFolder& folder) const {
    for (const auto& [name, text] : files) {
      folder.Write(name, text);
    }
  }

 private:
  void Read(const std::string& text) {
    entry = text;
    const std::regex block("```(xml|tsv|text) ?(\\S*)\n([^`]*)```");
    for (std::sregex_iterator i(entry.begin(), entry.end(), block), last; i != last; ++i) {
      Add((*i)[2], (*i)[3]);
    }
    AddWhatIsNotShown();
  }

  void Add(const std::string& name, const std::string& text) {
    const std::string root =
        name == "UNIT_CONVERSIONS.xml" ? "unit_conversions>" : "unit_associations>";
    if (name.empty()) {
      findings = text;
    } else if (name == "samples.tsv" || text.empty() ||
               text.find('<' + root) != std::string::npos || text.rfind("<conversions>", 0) == 0) {
      files[name] = InItsEncoding(text);
    } else {
      files[name] = InItsEncoding('<' + root + '\n' + text + "</" + root + '\n');
    }
  }

  // The document is in UTF-8, its examples are not, and the degree sign is all that is beyond
  // ASCII.
  static std::string InItsEncoding(const std::string& text) {
    const bool utf8 = text.find("encoding=\"UTF-8\"") != std::string::npos;
    return utf8 ? text : std::regex_replace(text, std::regex("\xC2\xB0"), "\xB0");
  }

  void AddWhatIsNotShown() {
    if (files.count("X_UNIT_ASSOCIATIONS_STD.xml") == 0) {
      return;
    }
    for (const char* system : {"STD_UK", "METRIC", "GREEK"}) {
      files.emplace(std::string("X_UNIT_ASSOCIATIONS_") + system + ".xml",
                    "<unit_associations><include>X_UNIT_ASSOCIATIONS_STD.xml</include>"
                    "</unit_associations>");
    }
    files.emplace("UNIT_CONVERSIONS.xml",
                  "<unit_conversions>"
                  "<fromunit id='KPA'><tounit id='psi'><conv to_float='val'/></tounit></fromunit>"
                  "<fromunit id='psi'><tounit id='KPA'><conv to_float='val'/></tounit></fromunit>"
                  "</unit_conversions>");
  }

  std::string entry;
  std::string findings;
  std::map<std::string, std::string> files;
};

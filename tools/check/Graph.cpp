#include "check/Graph.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "Charset.h"
#include "check/Formula.h"

namespace check {

namespace {

constexpr char kOneWay[] = "orange3";
constexpr char kFinding[] = "red";

class Graph {
 public:
  Graph(std::ostream& stream, const Checker& checker)
      : stream(stream), conversions(checker.GetConversions()), utf8("UTF-8") {
    for (const Finding& finding : checker.GetFindings()) {
      std::string& text = texts[{finding.subject.from, finding.subject.to}];
      if (!text.empty()) {
        text += '\n';
      }
      text += finding.text;
    }
  }

  void Write() {
    stream << "digraph conversions {\n"
              "  charset=\"UTF-8\" rankdir=LR ranksep=3 fontname=\"sans-serif\"\n"
              "  node [shape=box style=rounded fontname=\"sans-serif\" fontsize=11]\n"
              "  edge [fontname=\"sans-serif\" fontsize=8 color=gray40]\n";
    WriteClusters();
    for (const Conversion& conversion : conversions.All()) {
      WriteEdge(conversion);
    }
    stream << "}\n";
  }

 private:
  // The text in quotes, for Graphviz; a backslash would begin an escape.
  std::string Text(const std::string& latin1) const {
    std::string text = "\"";
    for (const char c : utf8.FromLatin1(latin1)) {
      if (c == '"' || c == '\\') {
        text += '\\';
      }
      if (c == '\n') {
        text += "\\n";
      } else {
        text += c;
      }
    }
    return text + '"';
  }

  void WriteClusters() {
    std::vector<bool> done(static_cast<std::size_t>(conversions.UnitCount()));
    for (int start = 0; start < conversions.UnitCount(); ++start) {
      if (done[static_cast<std::size_t>(start)]) {
        continue;
      }
      stream << "  subgraph cluster_" << start << " {\n    color=gray80\n";
      std::vector<int> group{start};
      done[static_cast<std::size_t>(start)] = true;
      for (std::size_t i = 0; i < group.size(); ++i) {
        WriteUnit(group[i]);
        for (const int next : conversions.NeighboursOf(group[i])) {
          if (!done[static_cast<std::size_t>(next)]) {
            done[static_cast<std::size_t>(next)] = true;
            group.push_back(next);
          }
        }
      }
      stream << "  }\n";
    }
  }

  void WriteUnit(int unit) {
    const std::string& name = conversions.NameOf(unit);
    stream << "    u" << unit << " [label=" << Text(name);
    const auto finding = texts.find({name, ""});
    if (finding != texts.end()) {
      stream << " color=" << kFinding << " tooltip=" << Text(finding->second);
    }
    stream << "]\n";
  }

  // Writes the edge of a pair of conversions once, for the one that comes first.
  void WriteEdge(const Conversion& conversion) {
    const Conversion* back = conversions.Find(conversion.to, conversion.from);
    if (back != nullptr && back < &conversion) {
      return;
    }
    std::string tooltip = TooltipOf(conversion);
    std::string found = FindingOf(conversion);
    if (back != nullptr) {
      tooltip += '\n' + TooltipOf(*back);
      found += FindingOf(*back);
    }
    if (!found.empty()) {
      tooltip += '\n' + found;
    }
    stream << "  u" << conversion.from << " -> u" << conversion.to
           << " [label=" << Text(ShortFormulaOf(*conversion.record))
           << " edgetooltip=" << Text(tooltip);
    if (back != nullptr) {
      stream << " dir=both";
    }
    if (!found.empty() || back == nullptr) {
      stream << " color=" << (found.empty() ? kOneWay : kFinding);
    }
    stream << "]\n";
  }

  std::string TooltipOf(const Conversion& conversion) const {
    return conversions.NameOf(conversion.to) + " = " + FormulaOf(*conversion.record) + " of " +
           conversions.NameOf(conversion.from);
  }

  std::string FindingOf(const Conversion& conversion) const {
    const auto found =
        texts.find({conversions.NameOf(conversion.from), conversions.NameOf(conversion.to)});
    return std::string(found != texts.end() ? found->second.c_str() : "");
  }

  std::ostream& stream;
  const Conversions& conversions;
  Charset utf8;
  std::map<std::pair<std::string, std::string>, std::string> texts;  // findings by their subject
};

}  // namespace

void WriteGraph(std::ostream& stream, const Checker& checker) { Graph(stream, checker).Write(); }

}  // namespace check

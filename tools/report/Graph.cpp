#include "report/Graph.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "check/Formula.h"
#include "text/Charset.h"

namespace report {

namespace {

constexpr char kOneWay[] = "orange3";
constexpr char kFinding[] = "red";

class Graph {
 public:
  Graph(std::ostream& stream, const model::Conversions& conversions,
        const std::vector<check::Finding>& findings)
      : stream(stream), conversions(conversions), utf8("UTF-8") {
    for (const check::Finding& finding : findings) {
      if (finding.accepted) {
        continue;
      }
      const auto& [from, to] = finding.subject;
      const bool isEdge =
          conversions.Find(from, to) != nullptr || conversions.Find(to, from) != nullptr;
      std::string& text = texts[{from, isEdge ? to : ""}];
      if (!text.empty()) {
        text += '\n';
      }
      text += Line(finding.text);
    }
  }

  void Write() {
    stream << "digraph conversions {\n"
              "  charset=\"UTF-8\" rankdir=LR ranksep=3 fontname=\"sans-serif\"\n"
              "  node [shape=box style=rounded fontname=\"sans-serif\" fontsize=11]\n"
              "  edge [fontname=\"sans-serif\" fontsize=8 color=gray40]\n";
    WriteClusters();
    for (const model::Conversion& conversion : conversions.All()) {
      WriteEdge(conversion);
    }
    stream << "}\n";
  }

 private:
  std::string Line(const Message& message) const { return message.For(utf8); }

  // The lines in quotes, for Graphviz; a backslash would begin an escape.
  static std::string Text(const std::string& lines) {
    std::string text = "\"";
    for (const char c : lines) {
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
    stream << "    u" << unit << " [label=" << Text(Line(name));
    const auto finding = texts.find({name, ""});
    if (finding != texts.end()) {
      stream << " color=" << kFinding << " tooltip=" << Text(finding->second);
    }
    stream << "]\n";
  }

  // Writes the edge of a pair of conversions once, for the one that comes first.
  void WriteEdge(const model::Conversion& conversion) {
    const model::Conversion* back = conversions.Find(conversion.to, conversion.from);
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
           << " [label=" << Text(Line(check::ShortFormulaOf(*conversion.record)))
           << " edgetooltip=" << Text(tooltip);
    if (back != nullptr) {
      stream << " dir=both";
    }
    if (!found.empty() || back == nullptr) {
      stream << " color=" << (found.empty() ? kOneWay : kFinding);
    }
    stream << "]\n";
  }

  std::string TooltipOf(const model::Conversion& conversion) const {
    return Line(conversions.NameOf(conversion.to) + " = " + check::FormulaOf(*conversion.record) +
                " of " + conversions.NameOf(conversion.from));
  }

  std::string FindingOf(const model::Conversion& conversion) const {
    const auto found =
        texts.find({conversions.NameOf(conversion.from), conversions.NameOf(conversion.to)});
    return std::string(found != texts.end() ? found->second.c_str() : "");
  }

  std::ostream& stream;
  const model::Conversions& conversions;
  Charset utf8;
  std::map<std::pair<std::string, std::string>, std::string> texts;  // findings by their subject
};

}  // namespace

void WriteGraph(std::ostream& stream, const model::Conversions& conversions,
                const std::vector<check::Finding>& findings) {
  Graph(stream, conversions, findings).Write();
}

}  // namespace report

#include "check/CheckMarkup.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "check/CheckReference.h"
#include "check/FindConflicts.h"
#include "model/Markup.h"
#include "model/PlaceCursor.h"
#include "util/Text.h"
#include "xml/ByteClasses.h"

namespace check {

namespace {

using model::Piece;

constexpr std::size_t kLongestShown = 30;

std::string Shortened(std::string_view text) {
  const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
  const std::string_view shown = line.substr(0, kLongestShown);
  return util::Quoted(std::string(shown) + (shown.size() < text.size() ? "..." : ""));
}

// Goes through the pieces of one file as far as the parser reads it.
class Walk {
 public:
  Walk(const model::File& file, bool conflict, Findings& findings)
      : file(file),
        text(file.Text()),
        conflict(conflict),
        utf8(file.IsReadAsUtf8()),
        places(file),
        findings(findings) {}

  void Run() {
    model::Markup markup(file);
    Piece piece;
    while (!ended && markup.Next(piece)) {
      Look(piece);
    }
  }

 private:
  void Look(const Piece& piece) {
    switch (piece.kind) {
      case Piece::Kind::kStartTag:
      case Piece::Kind::kEmptyTag:
        LookAtAttributes(piece);
        if (piece.kind == Piece::Kind::kStartTag) {
          open.push_back(piece.name);
        }
        break;
      case Piece::Kind::kEndTag:
        LookAtEndTag(piece);
        break;
      case Piece::Kind::kText:
      case Piece::Kind::kData:
        LookAtText(piece);
        break;
      case Piece::Kind::kComment:
      case Piece::Kind::kOther:
        break;
    }
  }

  void LookAtAttributes(const Piece& tag) {
    for (const model::WrittenAttribute& attribute : tag.attributes) {
      if (attribute.quote == '\0' && tag.flaw == model::Flaw::kNone) {
        const std::string name(attribute.name);
        findings.Add(places.At(attribute.at), kUnquotedAttribute,
                     "the value of " + util::Quoted(name) +
                         " has no quotes, so that other programs refuse the file: write " + name +
                         "=" + util::Quoted(std::string(attribute.value)));
      }
      LookAtReferences(attribute.value);
    }
  }

  void LookAtEndTag(const Piece& tag) {
    if (!open.empty() && open.back() == tag.name) {
      open.pop_back();
    } else {
      ended = !open.empty();
    }
  }

  void LookAtText(const Piece& piece) {
    const auto* const begin = text.begin() + static_cast<std::ptrdiff_t>(piece.begin);
    const auto* const end = text.begin() + static_cast<std::ptrdiff_t>(piece.end);
    const auto* const first = std::find_if(begin, end, [](char c) { return !xml::IsSpace(c); });
    if (first == end) {
      return;
    }
    const auto offset = static_cast<std::size_t>(first - text.begin());
    if (open.empty()) {
      ended = true;
    }
    if (HoldsText()) {
      if (piece.kind == Piece::Kind::kText) {
        LookAtReferences(text.substr(offset, piece.end - offset));
      }
    } else if (!conflict && (!open.empty() || file.root != nullptr)) {
      findings.Add(places.At(offset), kStrayText,
                   "the text " + Shortened(Trimmed(text.substr(offset, piece.end - offset))) +
                       (open.empty() ? " outside of <" + file.rootName + ">"
                                     : " in <" + std::string(open.back()) + ">") +
                       " is never read");
    }
  }

  static std::string_view Trimmed(std::string_view text) {
    while (xml::IsSpace(text.back())) {
      text.remove_suffix(1);
    }
    return text;
  }

  // Whether the innermost element is a field or an include, or one that is not read at all.
  bool HoldsText() const {
    if (open.size() <= 1) {
      return !open.empty() && open.front() != file.rootName;
    }
    if (open.front() != file.rootName) {
      return true;
    }
    const std::string_view& name = open.back();
    switch (open.size()) {
      case 2:
        return name != "fromunit" && name != "unitassoc";
      case 3:
        return open[1] != "fromunit" || name != "tounit";
      case 4:
        return open[2] != "tounit" || name != "conv";
      default:
        return true;
    }
  }

  void LookAtReferences(std::string_view value) {
    for (std::size_t i = value.find('&'); i != std::string_view::npos; i = value.find('&', i + 1)) {
      const std::string fault = FaultOfReference(value, i, utf8);
      if (!fault.empty()) {
        findings.Add(places.At(static_cast<std::size_t>(value.data() - text.data()) + i),
                     kBadReference, fault);
      }
    }
  }

  const model::File& file;
  const std::string_view text;
  const bool conflict;
  const bool utf8;
  model::PlaceCursor places;
  Findings& findings;
  std::vector<std::string_view> open;
  bool ended = false;
};

void CheckConflicts(const model::File& file, const std::vector<std::size_t>& conflicts,
                    Findings& findings) {
  for (const std::size_t conflict : conflicts) {
    const char mark = file.bytes[conflict];
    findings.Add(file.At(conflict), kMergeConflict,
                 mark == '<'
                     ? "a merge has left a conflict, and the element after this line is not read: "
                       "keep one version, and remove the lines <<<<<<<, ======= and >>>>>>>"
                     : "a merge has left the line " + std::string(7, mark) + ": remove it");
  }
}

}  // namespace

void CheckMarkup(const model::File& file, Findings& findings) {
  const std::vector<std::size_t> conflicts = FindConflicts(file.bytes);
  CheckConflicts(file, conflicts, findings);
  Walk(file, !conflicts.empty(), findings).Run();
}

}  // namespace check

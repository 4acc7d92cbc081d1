#include "check/FindFault.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string_view>
#include <vector>

#include "check/DescribeFlaw.h"
#include "model/Markup.h"
#include "text/NearestNames.h"
#include "xml/ByteClasses.h"

namespace check {

namespace {

using model::Flaw;
using model::Piece;

constexpr char kNothingAfter[] = ": nothing after it is read";

std::string Tag(std::string_view name) { return "<" + std::string(name) + ">"; }

std::string EndTag(std::string_view name) { return "</" + std::string(name) + ">"; }

constexpr std::string_view kElements[] = {"unit_conversions",  "fromunit",  "tounit", "conv",
                                          "unit_associations", "unitassoc", "include"};

bool IsElement(std::string_view name) {
  return std::find(std::begin(kElements), std::end(kElements), name) != std::end(kElements);
}

std::string_view NameIn(std::string_view text) {
  const auto* const end = std::find_if_not(text.begin(), text.end(), xml::IsInName);
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

// Whether `text` goes on as a tag does behind its name.
bool IsRestOfTag(std::string_view text) {
  if (text.empty() || !xml::IsSpace(text.front())) {
    return text.substr(0, 1) == ">" || text.substr(0, 2) == "/>";
  }
  const std::size_t attribute = text.find_first_not_of(" \t\r\n");
  if (attribute == std::string_view::npos || text.find('>') == std::string_view::npos) {
    return false;
  }
  const std::string_view name = NameIn(text.substr(attribute));
  return !name.empty() && text.substr(attribute + name.size(), 1) == "=";
}

bool IsTagWithoutBracket(std::string_view text) {
  const std::string_view tag = text.substr(text.front() == '/' ? 1 : 0);
  const std::string_view name = NameIn(tag);
  return IsElement(name) && IsRestOfTag(tag.substr(name.size()));
}

// Follows the tags of a file up to the first that does not fit.
class Search {
 public:
  explicit Search(const model::File& file) : file(file), text(file.Text()), markup(file) {}

  std::optional<Fault> Run() {
    Piece piece;
    while (!fault && !ended && markup.Next(piece)) {
      Look(piece);
    }
    if (!fault && !open.empty()) {
      LookAtEnd();
    }
    return fault;
  }

 private:
  struct Element {
    std::string_view name;
    std::size_t at;
    std::map<std::string_view, std::size_t> closed = {};  // its last children that are one tag each
  };

  void Look(const Piece& piece) {
    if (piece.flaw != Flaw::kNone) {
      TellFlaw(piece);
      TellZeroByte(piece.end);
    } else if (piece.kind == Piece::Kind::kStartTag || piece.kind == Piece::Kind::kEmptyTag) {
      LookAtStartTag(piece);
    } else if (piece.kind == Piece::Kind::kEndTag) {
      LookAtEndTag(piece);
    } else if (piece.kind == Piece::Kind::kComment) {
      LookAtComment(piece);
    } else if (piece.kind == Piece::Kind::kOther) {
      LookAtOther(piece);
    } else if (piece.kind == Piece::Kind::kText) {
      LookAtText(piece);
    }
  }

  void LookAtStartTag(const Piece& piece) {
    const bool empty = piece.kind == Piece::Kind::kEmptyTag;
    moreBehindRoot = moreBehindRoot || (open.empty() && rootEnd != 0);
    if (!open.empty() && empty && IsElement(piece.name)) {
      open.back().closed[piece.name] = piece.begin;
    } else if (!open.empty()) {
      open.back().closed.erase(piece.name);
    }
    if (!empty) {
      open.push_back({piece.name, piece.begin});
    }
  }

  void LookAtEndTag(const Piece& piece) {
    if (open.empty()) {
      LookBehindRoot(piece);
    } else if (open.back().name == piece.name) {
      rootEnd = open.size() == 1 && rootEnd == 0 ? piece.begin : rootEnd;
      open.pop_back();
    } else if (IsOpen(piece.name)) {
      const Element& left = open.back();
      const bool again = open.size() > 1 && open[open.size() - 2].name == left.name;
      TellAt(left.at, Tag(left.name) + " is not closed" +
                          (again ? " (is " + EndTag(left.name) + " meant?)" : "") + ": all up to " +
                          EndTag(piece.name) + OnLine(piece) +
                          " is taken for its content, and nothing after that is read");
    } else {
      TellStrayEndTag(piece);
    }
  }

  void TellStrayEndTag(const Piece& piece) {
    const Element& left = open.back();
    const std::string name(piece.name);
    const std::string awaited = Tag(left.name) + " of line " + LineOf(left.at);
    const auto slashed = left.closed.find(piece.name);
    const bool misspelt = !MisspellingOf(name, {std::string(left.name)}).empty();
    if (misspelt && IsElement(name) && !IsElement(left.name)) {
      TellAt(left.at, Tag(left.name) + " does not fit " + EndTag(name) + OnLine(piece) + ": is " +
                          Tag(name) + " meant? Nothing after that is read");
    } else if (misspelt) {
      TellAt(piece.begin, EndTag(name) + " does not close " + awaited + ": is " +
                              EndTag(left.name) + " meant? Nothing after it is read");
    } else if (slashed != left.closed.end()) {
      TellAt(slashed->second, "the slash at the end of " + Tag(name) + " closes it, but " +
                                  EndTag(name) + OnLine(piece) +
                                  " closes it again, and nothing after that is read");
    } else {
      TellAt(piece.begin,
             EndTag(name) + " closes nothing, as what is open here is " + awaited + kNothingAfter);
    }
  }

  // An end tag here does no harm, unless it is what the root was to end with.
  void LookBehindRoot(const Piece& piece) {
    if (moreBehindRoot && piece.name == file.rootName) {
      Tell({rootEnd, rootEnd,
            EndTag(piece.name) + " stands here and" + OnLine(piece) +
                ": nothing between them is read",
            true});
    }
  }

  void LookAtComment(const Piece& piece) {
    const std::string_view text = this->text.substr(0, piece.end);
    const std::size_t inner = text.find("<!--", piece.begin + 4);
    std::size_t tag = text.find('<', piece.begin + 4);
    while (tag < inner && !xml::IsNameStart(text[tag + 1]) && text[tag + 1] != '/') {
      tag = text.find('<', tag + 1);
    }
    if (inner != std::string_view::npos && tag < inner) {
      Tell({piece.begin, BeginOfParent(piece.begin),
            "the comment is not closed before the next one begins at line " + LineOf(inner) +
                ": nothing between them is read",
            true});
    }
  }

  // The parser skips all of these up to the first ">".
  void LookAtOther(const Piece& piece) {
    const std::string_view other = text.substr(piece.begin, piece.end - piece.begin);
    const bool cut =
        other.find('[') != std::string_view::npos && other.find(']') == std::string_view::npos;
    const bool known = other.rfind("<!DOCTYPE", 0) == 0 || other[1] == '?';
    if (known && other[1] == '!' && cut) {
      TellSilent(piece.begin,
                 "a DOCTYPE with declarations in it cannot be read, nor anything after it");
    } else if (!known) {
      TellSilent(piece.begin,
                 "\"<!\" begins nothing here, and only what follows it up to \">\" is skipped: is "
                 "\"<!--\" meant?");
    }
  }

  void LookAtText(const Piece& piece) {
    const std::string_view all = text.substr(piece.begin, piece.end - piece.begin);
    const auto* const begin =
        std::find_if_not(all.begin(), all.end(), [](char c) { return xml::IsSpace(c); });
    const std::string_view shown = all.substr(static_cast<std::size_t>(begin - all.begin()));
    const std::size_t at = piece.begin + static_cast<std::size_t>(begin - all.begin());
    if (shown.empty()) {
      return;
    }
    if (IsTagWithoutBracket(shown)) {
      TellSilent(at, "the tag " + Shown(shown) + " lacks its \"<\": it is not read");
    } else if (open.empty() && file.document.FirstChildElement() == nullptr) {
      TellSilent(at, "text stands before " + Tag(file.rootName) + ": nothing is read");
    }
    ended = open.empty();
  }

  static std::string Shown(std::string_view tag) {
    return std::string(tag.substr(0, tag.find('>') + 1));
  }

  void TellSilent(std::size_t at, const std::string& what) {
    Tell({at, BeginOfParent(at), what, true});
  }

  // What is open where the text ends may be closed behind a zero byte.
  void TellZeroByte(std::size_t end) {
    if (fault && end == text.size() && end < file.bytes.size()) {
      fault->at = end;
      fault->text = "here is a zero byte, which ends the file: nothing after it is read";
    }
  }

  void LookAtEnd() {
    const Element& left = open.back();
    TellAt(left.at, Tag(left.name) + " is not closed: the file ends at line " +
                        LineOf(text.size()) + " before " + EndTag(left.name));
    TellZeroByte(text.size());
  }

  void TellFlaw(const Piece& piece) {
    if (open.empty() && piece.kind == Piece::Kind::kEndTag) {
      return;
    }
    const bool silent = piece.flaw == Flaw::kCommentEnd || piece.flaw == Flaw::kDeclaration ||
                        piece.flaw == Flaw::kStrayBracket;
    Tell({piece.flawAt, BeginOfParent(piece.begin), DescribeFlaw(piece, text), silent});
  }

  bool IsOpen(std::string_view name) const {
    return std::any_of(open.begin(), open.end(),
                       [name](const Element& element) { return element.name == name; });
  }

  // Of the element that a fault in it spoils, which holds no others of its kind; else `at`.
  std::size_t BeginOfParent(std::size_t at) const {
    const auto spoilt = std::find_if(open.begin(), open.end(), [this](const Element& element) {
      return element.name != file.rootName && element.name != "fromunit";
    });
    return spoilt != open.end() ? spoilt->at : at;
  }

  std::string LineOf(std::size_t offset) const { return std::to_string(file.At(offset).line); }

  std::string OnLine(const Piece& piece) const { return " at line " + LineOf(piece.begin); }

  void Tell(const Fault& found) { fault = found; }

  void TellAt(std::size_t at, const std::string& text) { Tell({at, at, text}); }

  const model::File& file;
  const std::string_view text;
  model::Markup markup;
  std::vector<Element> open;
  std::size_t rootEnd = 0;
  bool moreBehindRoot = false;
  bool ended = false;
  std::optional<Fault> fault;
};

}  // namespace

std::optional<Fault> FindFault(const model::File& file) { return Search(file).Run(); }

}  // namespace check

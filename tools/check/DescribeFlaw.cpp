#include "check/DescribeFlaw.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "util/Text.h"
#include "xml/ByteClasses.h"

namespace check {

namespace {

using model::Flaw;
using model::Piece;

// What is told, around the attribute or tag that has the flaw.
struct Wording {
  Flaw flaw;
  bool ofTag;
  const char* before;
  const char* after;
};

constexpr Wording kWordings[] = {
    {Flaw::kTagEnd, true, "the tag ", " lacks its \">\": nothing after it is read"},
    {Flaw::kOpeningQuote, false, "the value of ",
     " lacks its opening quote: nothing after it is read"},
    {Flaw::kClosingQuote, false, "the value of ",
     " lacks its closing quote: nothing after it is read"},
    {Flaw::kQuotes, false, "the value of ", " lacks its quotes: nothing after it is read"},
    {Flaw::kValue, false, "the attribute ", " lacks \"=\" and its value: nothing after it is read"},
    {Flaw::kRepeatedAttribute, false, "the attribute ",
     " is given twice: nothing after it is read"},
    {Flaw::kStrayCharacter, false, "the character ",
     " belongs to no attribute: nothing after it is read"},
    {Flaw::kEndTagName, true, "the end tag ",
     " is no \"</\" with a name and \">\": nothing after it is read"},
    {Flaw::kReferenceEnd, false, "\"&#\" begins a number that \";\" has to end, as in \"&#176;\"",
     ": nothing after it is read"},
    {Flaw::kCommentEnd, false, "the comment is not closed", ": nothing after it is read"},
    {Flaw::kDataEnd, false, "the CDATA section is not closed", ": nothing after it is read"},
    {Flaw::kDeclaration, false, "the XML declaration lacks a quote or its \"?>\"",
     ": what follows is not read"},
    {Flaw::kStrayBracket, false,
     "\"<\" begins no tag here, and nothing up to the next \">\" is read", ": is \"&lt;\" meant?"},
};

std::string NameAt(std::string_view text, std::size_t offset) {
  std::size_t end = offset;
  while (end < text.size() && xml::IsInName(text[end])) {
    ++end;
  }
  return util::Quoted(std::string(text.substr(offset, end - offset)));
}

// What has the flaw, empty where there is nothing to name.
std::string Culprit(const Piece& piece, std::string_view text, bool ofTag) {
  const std::string name(piece.name);
  if (piece.flaw == Flaw::kStrayCharacter) {
    return std::string(text.substr(piece.flawAt, 1)) + " in the tag <" + name + ">";
  }
  if (ofTag) {
    return (piece.kind == Piece::Kind::kEndTag ? "</" : "<") + name;
  }
  const bool attribute = piece.flawAt != piece.begin && xml::IsNameStart(text[piece.flawAt]);
  return attribute ? NameAt(text, piece.flawAt) : "";
}

}  // namespace

std::string DescribeFlaw(const Piece& piece, std::string_view text) {
  if (piece.flaw == Flaw::kStrayBracket && text.substr(piece.flawAt, 2) == "<-") {
    return "a comment begins with \"<!--\", but here only what follows up to \">\" is skipped";
  }
  const auto* const wording =
      std::find_if(std::begin(kWordings), std::end(kWordings),
                   [&piece](const Wording& each) { return each.flaw == piece.flaw; });
  return wording->before + Culprit(piece, text, wording->ofTag) + wording->after;
}

}  // namespace check

#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "model/File.h"

namespace model {

/// An attribute as it was written, in a text that outlives it.
struct WrittenAttribute {
  std::string_view name;
  std::size_t at;          ///< where its name begins
  char quote;              ///< the one around its value; NUL: none
  std::string_view value;  ///< without the quotes, references as they are
};

/// What a piece of markup lacks, so that the parser can read no further.
enum class Flaw {
  kNone,
  kTagEnd,             ///< the tag has no ">"
  kOpeningQuote,       ///< a value has only its closing quote
  kClosingQuote,       ///< a value has only its opening quote
  kQuotes,             ///< a value of several words has none
  kValue,              ///< an attribute has no value
  kRepeatedAttribute,  ///< an attribute is given twice
  kStrayCharacter,     ///< a character belongs to no attribute
  kEndTagName,         ///< an end tag holds no name, or more than that
  kReferenceEnd,       ///< a reference by number is not closed, or holds no number
  kCommentEnd,
  kDataEnd,
  kDeclaration,
  kStrayBracket,  ///< "<" begins nothing: the parser skips what follows up to ">"
};

/// A tag, or what stands between two of them.
struct Piece {
  enum class Kind { kText, kStartTag, kEmptyTag, kEndTag, kComment, kData, kOther };

  Kind kind = Kind::kText;
  std::size_t begin = 0;
  std::size_t end = 0;
  std::string_view name;  ///< of a tag
  std::vector<WrittenAttribute> attributes;
  Flaw flaw = Flaw::kNone;
  std::size_t flawAt = 0;  ///< where the flaw shows, best where it was made
};

/// Takes the text of an XML document to pieces as TinyXML does, one after another. Whether the
/// pieces fit together it does not ask.
class Markup {
 public:
  /// `file` must outlive this.
  explicit Markup(const File& file);

  /// Reads the next piece; false at the end and behind a flaw.
  bool Next(Piece& piece);

 private:
  void ReadText(Piece& piece);
  void ReadStartTag(Piece& piece);
  void ReadAttribute(Piece& piece);
  void ReadQuoted(Piece& piece, WrittenAttribute& attribute);
  void ReadBare(Piece& piece, WrittenAttribute& attribute);
  void ReadEndTag(Piece& piece);
  void ReadOther(Piece& piece);
  void ReadDeclaration(Piece& piece);
  void ReadUpTo(Piece& piece, Piece::Kind kind, std::size_t from, std::string_view end, Flaw flaw);
  void Fail(Piece& piece, Flaw flaw, std::size_t where);
  void FailInTag(Piece& piece, Flaw flaw, std::size_t where);

  char Current() const { return at < text.size() ? text[at] : '\0'; }
  bool At(std::string_view token) const { return text.compare(at, token.size(), token) == 0; }
  void SkipSpace();
  std::string_view ReadName();
  bool SkipTo(char end, Piece& piece);

  const std::string_view text;
  const bool utf8;
  std::size_t at = 0;
};

/// The offset behind the reference by number that begins at `at` of `text`, such as "&#176;"; 0
/// where the parser takes it for none.
std::size_t EndOfNumber(std::string_view text, std::size_t at);

}  // namespace model

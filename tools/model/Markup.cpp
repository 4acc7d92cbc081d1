#include "model/Markup.h"

#include <strings.h>
#include <tinyxml.h>

#include <algorithm>
#include <cctype>
#include <cstring>

#include "xml/ByteClasses.h"
#include "xml/Utf8Length.h"

namespace model {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// A value that goes on to the quote that opens the next one ends with that one's name and sign.
bool RunsOver(const WrittenAttribute& attribute) {
  const std::size_t last = attribute.value.find_last_not_of(" \t\r\n");
  return attribute.quote != '\0' && last != std::string_view::npos && last > 0 &&
         attribute.value[last] == '=' && xml::IsInName(attribute.value[last - 1]);
}

bool IsDigit(char c, bool hexadecimal) {
  const auto byte = static_cast<unsigned char>(c);
  return hexadecimal ? std::isxdigit(byte) != 0 : c >= '0' && c <= '9';
}

}  // namespace

std::size_t EndOfNumber(std::string_view text, std::size_t at) {
  std::size_t end = at + 2;
  const bool hexadecimal = end < text.size() && text[end] == 'x';
  end += hexadecimal ? 1 : 0;
  while (end < text.size() && IsDigit(text[end], hexadecimal)) {
    ++end;
  }
  return end < text.size() && text[end] == ';' ? end + 1 : 0;
}

Markup::Markup(const File& file) : text(file.Text()), utf8(file.IsReadAsUtf8()) {
  at = At(kByteOrderMark) ? kByteOrderMark.size() : 0;
}

bool Markup::Next(Piece& piece) {
  if (at >= text.size()) {
    return false;
  }
  piece = {};
  piece.begin = at;
  const char next = at + 1 < text.size() ? text[at + 1] : '\0';
  if (Current() != '<') {
    ReadText(piece);
  } else if (xml::IsNameStart(next)) {
    ReadStartTag(piece);
  } else if (next == '/') {
    ReadEndTag(piece);
  } else {
    ReadOther(piece);
  }
  piece.end = std::min(at, text.size());
  if (piece.flaw != Flaw::kNone) {
    at = text.size();
  }
  return true;
}

void Markup::ReadText(Piece& piece) { SkipTo('<', piece); }

void Markup::ReadStartTag(Piece& piece) {
  ++at;
  piece.kind = Piece::Kind::kStartTag;
  piece.name = ReadName();
  SkipSpace();
  while (piece.flaw == Flaw::kNone && xml::IsNameStart(Current())) {
    ReadAttribute(piece);
    SkipSpace();
  }
  if (piece.flaw != Flaw::kNone) {
    return;
  }
  const bool empty = Current() == '/';
  const std::size_t end = at;
  at += empty ? 1 : 0;
  piece.kind = empty ? Piece::Kind::kEmptyTag : piece.kind;
  if (Current() == '>') {
    ++at;
  } else if (SkipSpace(); at >= text.size() || Current() == '<') {
    FailInTag(piece, Flaw::kTagEnd, piece.begin);
  } else {
    FailInTag(piece, Flaw::kStrayCharacter, end);
  }
}

void Markup::ReadAttribute(Piece& piece) {
  WrittenAttribute attribute{{}, at, '\0', {}};
  attribute.name = ReadName();
  SkipSpace();
  if (Current() != '=') {
    FailInTag(piece, Flaw::kValue, attribute.at);
    return;
  }
  ++at;
  SkipSpace();
  if (xml::IsQuote(Current())) {
    ReadQuoted(piece, attribute);
  } else {
    ReadBare(piece, attribute);
  }
  const auto& before = piece.attributes;
  if (piece.flaw == Flaw::kNone &&
      std::any_of(before.begin(), before.end(), [&attribute](const WrittenAttribute& other) {
        return other.name == attribute.name;
      })) {
    Fail(piece, Flaw::kRepeatedAttribute, attribute.at);
  }
  piece.attributes.push_back(attribute);
}

void Markup::ReadQuoted(Piece& piece, WrittenAttribute& attribute) {
  attribute.quote = text[at++];
  const std::size_t begin = at;
  const bool closed = SkipTo(attribute.quote, piece);
  attribute.value = text.substr(begin, std::min(at, text.size()) - begin);
  if (closed) {
    ++at;
  } else if (piece.flaw == Flaw::kNone) {
    FailInTag(piece, Flaw::kClosingQuote, attribute.at);
  }
}

void Markup::ReadBare(Piece& piece, WrittenAttribute& attribute) {
  const std::size_t begin = at;
  while (at < text.size() && !xml::IsSpace(text[at]) && text[at] != '/' && text[at] != '>') {
    if (xml::IsQuote(text[at])) {
      FailInTag(piece, Flaw::kOpeningQuote, attribute.at);
      return;
    }
    ++at;
  }
  attribute.value = text.substr(begin, at - begin);
}

void Markup::ReadEndTag(Piece& piece) {
  at += 2;
  piece.kind = Piece::Kind::kEndTag;
  piece.name = ReadName();
  SkipSpace();
  if (Current() == '>') {
    ++at;
    if (piece.name.empty()) {
      Fail(piece, Flaw::kEndTagName, piece.begin);
    }
  } else {
    const bool open = at >= text.size() || Current() == '<';
    Fail(piece, open ? Flaw::kTagEnd : Flaw::kEndTagName, piece.begin);
  }
}

void Markup::ReadOther(Piece& piece) {
  piece.kind = Piece::Kind::kOther;
  if (strncasecmp(text.data() + at, "<?xml", 5) == 0) {
    ReadDeclaration(piece);
  } else if (At("<!--")) {
    ReadUpTo(piece, Piece::Kind::kComment, at + 4, "-->", Flaw::kCommentEnd);
  } else if (At("<![CDATA[")) {
    ReadUpTo(piece, Piece::Kind::kData, at + 9, "]]>", Flaw::kDataEnd);
  } else if (At("<!") || At("<?")) {
    ReadUpTo(piece, Piece::Kind::kOther, at, ">", Flaw::kTagEnd);
  } else {
    Fail(piece, Flaw::kStrayBracket, at);
  }
}

void Markup::ReadDeclaration(Piece& piece) {
  TiXmlDeclaration declaration;
  const TiXmlEncoding encoding = utf8 ? TIXML_ENCODING_UTF8 : TIXML_ENCODING_LEGACY;
  const char* const begin = text.data() + at;
  const char* const end = declaration.Parse(begin, nullptr, encoding);
  if (end == nullptr || std::find(begin + 1, end, '<') != end) {
    Fail(piece, Flaw::kDeclaration, at);
  } else {
    at = static_cast<std::size_t>(end - text.data());
  }
}

void Markup::ReadUpTo(Piece& piece, Piece::Kind kind, std::size_t from, std::string_view end,
                      Flaw flaw) {
  piece.kind = kind;
  const std::size_t found = text.find(end, from);
  if (found == std::string_view::npos) {
    Fail(piece, flaw, piece.begin);
    at = text.size();
  } else {
    at = found + end.size();
  }
}

void Markup::Fail(Piece& piece, Flaw flaw, std::size_t where) {
  piece.flaw = flaw;
  piece.flawAt = where;
}

// Where a quote is missing, the fault shows later in the tag.
void Markup::FailInTag(Piece& piece, Flaw flaw, std::size_t where) {
  const auto& attributes = piece.attributes;
  const auto open = std::find_if(attributes.begin(), attributes.end(), RunsOver);
  if (open != attributes.end()) {
    Fail(piece, Flaw::kClosingQuote, open->at);
  } else if (flaw != Flaw::kTagEnd && !attributes.empty() && attributes.back().quote == '\0') {
    Fail(piece, Flaw::kQuotes, attributes.back().at);
  } else {
    Fail(piece, flaw, where);
  }
}

void Markup::SkipSpace() {
  while (at < text.size() && xml::IsSpace(text[at])) {
    ++at;
  }
}

std::string_view Markup::ReadName() {
  const std::size_t begin = at;
  if (xml::IsNameStart(Current())) {
    while (at < text.size() && xml::IsInName(text[at])) {
      ++at;
    }
  }
  return text.substr(begin, at - begin);
}

// To `end`, over characters and references. False where there is none.
bool Markup::SkipTo(char end, Piece& piece) {
  while (at < text.size() && text[at] != end) {
    if (text[at] == '&' && at + 2 < text.size() && text[at + 1] == '#') {
      const std::size_t behind = EndOfNumber(text, at);
      if (behind == 0) {
        Fail(piece, Flaw::kReferenceEnd, at);
        return false;
      }
      at = behind;
    } else {
      at += utf8 ? xml::Utf8Length(text[at]) : 1;
    }
  }
  at = std::min(at, text.size());
  return at < text.size();
}

}  // namespace model

#pragma once

#include <string>

#include "xml/PlaceAt.h"

class TiXmlDocument;

namespace xml {

/// Reads the whole file that `document` is named after and parses it. Returns false, with the
/// document empty, when the file
/// - is no regular file, cannot be opened or read or has no bytes: `error` is left alone;
/// - is larger than 64 MiB, holds an element that stands below 64 others, or one with more than 64
///   attributes: a line `FILE:LINE:COLUMN: …` is appended to `error`. The parser never sees it.
///
/// A file that is not well-formed is no failure: the document holds what the parser made of it. The
/// text ends at its first NUL.
bool LoadDocument(TiXmlDocument& document, std::string& error);

/// Why a file is not given to the parser, and where.
struct Refusal {
  Place place;
  std::string what;
};

/// The same, with the parts of the line in `refusal`, which is left alone where there would be
/// none, and all bytes of a file that was parsed in `bytes`.
bool LoadDocument(TiXmlDocument& document, std::string& bytes, Refusal& refusal);

}  // namespace xml

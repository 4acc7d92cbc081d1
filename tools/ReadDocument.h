#pragma once

#include <string>

class TiXmlDocument;

/// Reads the whole file that `document` is named after into `text` and parses it. Only for a file
/// that the library has loaded: it refuses what would bring the parser down. Returns false if the
/// file cannot be read or has no bytes.
bool ReadDocument(TiXmlDocument& document, std::string& text);

#pragma once

class TiXmlDocument;

namespace vehicle {

/// Reads the whole file that `document` is named after and parses it. Returns false, with the
/// document empty, when the file cannot be opened or read or has no bytes. A file that is not
/// well-formed is no failure: the document holds what the parser made of it.
bool LoadDocument(TiXmlDocument& document);

}  // namespace vehicle

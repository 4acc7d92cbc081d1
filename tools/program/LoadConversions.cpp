#include "program/LoadConversions.h"

#include "program/TellLines.h"
#include "text/Failure.h"

void LoadConversions(units::UnitConverter& converter, const std::string& folder,
                     const Charset& terminal) {
  const std::string path = folder + units::UnitConverter::CONVERSION_FILENAME;
  std::string messages;
  const bool loaded = converter.LoadFromXML(path, messages);
  TellLines(messages, terminal);
  if (!loaded) {
    throw Failure((messages.empty() ? "cannot read " : "cannot load ") + Message::Verbatim(path));
  }
  if (converter.GetSourceUnits().empty()) {
    throw Failure(Message::Verbatim(path) + " holds no conversions");
  }
}

// The input is a conversion file. It is loaded twice, as a host may do.
#include <cstddef>
#include <cstdint>
#include <string>

#include "Compare.h"
#include "PlainUnits.h"
#include "Require.h"
#include "ScratchFolder.h"
#include "units/UnitConverter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ScratchFolder folder;
  const std::string& name = units::UnitConverter::CONVERSION_FILENAME;
  folder.Write(name, std::string(reinterpret_cast<const char*>(data), size));
  units::UnitConverter converter;
  converter.SetXMLFilePathAndLoad(folder.Path());
  PlainUnits plain;
  plain.ReadConversions(folder.Path() + name);
  std::string error;
  if (converter.LoadFromXML(name, error)) {
    plain.ReadConversions(folder.Path() + name);
    CompareConversions(plain, converter);
  } else {
    Require(error.empty() ? size == 0 : error.back() == '\n', "a refusal is one line");
  }
  return 0;
}

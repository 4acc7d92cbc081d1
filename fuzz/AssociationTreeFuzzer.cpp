// The input is a folder of files, separated by '|': the files of the four unit systems, in the
// order in which they are loaded, then those named "a", "b" and so on, for them to include.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Compare.h"
#include "PlainUnits.h"
#include "Require.h"
#include "ScratchFolder.h"
#include "units/DataUnitToDisplayUnitConverter.h"

namespace {

using units::DataUnitToDisplayUnitConverter;

struct System {
  std::string file;
  units::unitTypes_e type;
};

const std::array<System, 4>& Systems() {
  using Units = DataUnitToDisplayUnitConverter;
  const std::string base = "V" + Units::ASSOCIATION_FILENAME;
  static const std::array<System, 4> systems{
      {{base + Units::STD_SUFFIX, units::UNIT_TYPE_STD},
       {base + Units::STD_UK_SUFFIX, units::UNIT_TYPE_STD_UK},
       {base + Units::METRIC_SUFFIX, units::UNIT_TYPE_METRIC},
       {base + Units::GREEK_SUFFIX, units::UNIT_TYPE_GREEK}}};
  return systems;
}

void WriteFiles(const ScratchFolder& folder, const std::string& input) {
  constexpr std::size_t kFiles = 10;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < kFiles; ++i) {
    const std::size_t end = std::min(input.find('|', begin), input.size());
    folder.Write(i < Systems().size() ? Systems()[i].file : std::string(1, "abcdefghij"[i - 4]),
                 input.substr(begin, end - begin));
    begin = std::min(end + 1, input.size());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ScratchFolder folder;
  WriteFiles(folder, std::string(reinterpret_cast<const char*>(data), size));
  DataUnitToDisplayUnitConverter display;
  display.SetXMLFilePath(folder.Path());
  std::string error;
  const bool loaded = display.ReadAndParseXMLAssociations("V", error);
  Require(error.empty() || error.back() == '\n', "messages are lines");
  bool expected = true;
  for (const System& system : Systems()) {
    PlainUnits plain;
    expected = expected && plain.ReadAssociations(folder.Path() + system.file, folder.Path());
    display.SetUnitType(system.type);
    CompareAssociations(plain, display);
  }
  Require(loaded == expected, "the load succeeds by the same rules");
  return 0;
}

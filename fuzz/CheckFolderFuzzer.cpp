// The input is a data folder of files, separated by '|': the conversion file, the files of the four
// unit systems in the order in which they are loaded, then those named "a", "b" and "c", for them
// to include, then one of known values, which may be left out. Whatever it holds, the checker comes
// to an end; and where it finds no error, the library loads all of it without a word and shows
// every data unit in its display unit.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string>

#include "Require.h"
#include "ScratchFolder.h"
#include "check/Check.h"
#include "model/Model.h"
#include "report/Graph.h"
#include "report/Reports.h"
#include "units/DataUnitToDisplayUnitConverter.h"

namespace {

using Units = units::DataUnitToDisplayUnitConverter;

constexpr units::unitTypes_e kSystems[] = {units::UNIT_TYPE_STD, units::UNIT_TYPE_STD_UK,
                                           units::UNIT_TYPE_METRIC, units::UNIT_TYPE_GREEK};

void WriteFiles(const ScratchFolder& folder, const std::string& input) {
  const std::string base = "V" + Units::ASSOCIATION_FILENAME;
  const std::string names[] = {units::UnitConverter::CONVERSION_FILENAME,
                               base + Units::STD_SUFFIX,
                               base + Units::STD_UK_SUFFIX,
                               base + Units::METRIC_SUFFIX,
                               base + Units::GREEK_SUFFIX,
                               "a",
                               "b",
                               "c",
                               "samples"};
  std::size_t begin = 0;
  for (const std::string& name : names) {
    const std::size_t end = std::min(input.find('|', begin), input.size());
    folder.Write(name, input.substr(begin, end - begin));
    begin = std::min(end + 1, input.size());
  }
}

std::optional<std::string> SamplesIn(const ScratchFolder& folder, const std::string& input) {
  const bool given = std::count(input.begin(), input.end(), '|') >= 8;
  return given ? std::optional(folder.Path() + "samples") : std::nullopt;
}

void RequireThatAllIsShown(const ScratchFolder& folder) {
  Units display;
  display.SetXMLFilePath(folder.Path());
  std::string error;
  Require(display.ReadAndParseXMLAssociations("V", error), "what has no error is loaded");
  Require(error.empty(), "of what has no error the library reports nothing");
  for (const units::unitTypes_e system : kSystems) {
    display.SetUnitType(system);
    for (const std::string& unit : display.GetDataUnits()) {
      const Units::Display shown = display.FindDisplay(unit);
      Require(shown.toDisplay && shown.toData, "what has no error converts, there and back");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ScratchFolder folder;
  const std::string input(reinterpret_cast<const char*>(data), size);
  WriteFiles(folder, input);
  const model::Model model =
      model::ReadModel(folder.Path(), std::nullopt, SamplesIn(folder, input));
  check::Progress progress;
  const report::Result result{check::Check(model, {}, progress), check::CountFiles(model), true};
  std::ostringstream told;
  report::WriteText(told, result, folder.Path(), Charset("UTF-8"));
  report::WriteJson(told, result, "rules");
  report::WriteGraph(told, model.definitions.conversions, result.findings);
  const bool sound = std::none_of(result.findings.begin(), result.findings.end(),
                                  [](const check::Finding& finding) {
                                    return finding.rule->severity == check::Severity::kError;
                                  });
  const bool accepted = std::any_of(result.findings.begin(), result.findings.end(),
                                    [](const check::Finding& each) { return bool(each.accepted); });
  Require(sound || accepted || check::Count(result.findings, check::Severity::kError) > 0,
          "an error never only follows from warnings");
  if (sound) {
    RequireThatAllIsShown(folder);
  }
  return 0;
}

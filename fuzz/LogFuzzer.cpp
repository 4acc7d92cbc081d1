// The first byte of the input chooses how the log, which is the rest, is read. Whatever it holds,
// it is converted or refused; a log without converted columns comes out as it is; and where its
// blocks end, and by how many threads they are converted, makes no difference.
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>

#include "Require.h"
#include "ScratchFolder.h"
#include "log/ConvertLog.h"
#include "log/Rows.h"
#include "text/Failure.h"

namespace {

constexpr char kConversions[] =
    "<unit_conversions>"
    "<fromunit id='T'><tounit id='\xB0"
    "F'><conv scalar='1.8' offset='32'/></tounit></fromunit>"
    "<fromunit id='F'><tounit id='mpg (US)'><conv to_float='235 / val'/></tounit></fromunit>"
    "<fromunit id='psi'><tounit id='P'><conv scalar='7' offset='0'/></tounit></fromunit>"
    "<fromunit id='P'><tounit id='kPa'><conv scalar='1' offset='0'/></tounit></fromunit>"
    "</unit_conversions>";
constexpr char kAssociations[] =
    "<unit_associations><unitassoc id='T' tounit='\xB0"
    "F'/><unitassoc id='F' tounit='mpg (US)'/>"
    "<unitassoc id='P' tounit='kPa'/></unit_associations>";

class Converter {
 public:
  explicit Converter(const std::string& folder) : display(Load(folder)), units(*display) {}

  logs::Opening Open(logs::Input& input, const logs::LogOptions& options) const {
    std::set<std::string> matched;
    logs::MapEntry entry;
    entry.name = "m";
    entry.unit = "T";
    return ReadOpening(input, options, {units, {entry}, {}}, matched);
  }

 private:
  using Display = units::DataUnitToDisplayUnitConverter;

  static std::unique_ptr<Display> Load(const std::string& folder) {
    auto display = std::make_unique<Display>();
    std::string error;
    display->SetXMLFilePath(folder);
    Require(display->LoadSTDUnits(folder + "V" + Display::ASSOCIATION_FILENAME, error),
            "the data are loaded");
    return display;
  }

  const std::unique_ptr<Display> display;
  const logs::Units units;
};

const std::string& Folder() {
  static const ScratchFolder folder;
  static const std::string path = [] {
    folder.Write(units::UnitConverter::CONVERSION_FILENAME, kConversions);
    folder.Write("V_UNIT_ASSOCIATIONS_STD.xml", kAssociations);
    return folder.Path();
  }();
  return path;
}

void WriteLog(const std::string& log) { std::ofstream(Folder() + "log", std::ios::binary) << log; }

logs::LogOptions OptionsFrom(std::uint8_t choice) {
  logs::LogOptions options;
  options.unitsRow = (choice & 1) != 0;
  options.onError = (choice & 2) != 0 ? logs::OnError::kBlank : logs::OnError::kKeep;
  if ((choice & 4) != 0) {
    options.dialect.decimal = ',';
  }
  if ((choice & 8) != 0) {
    options.dialect.preamble = choice >> 4;
  }
  return options;
}

bool IsConverted(const logs::Plan& plan) {
  for (const logs::Column& column : plan.columns) {
    if (!column.way.steps.empty() || column.becomes != column.heading) {
      return true;
    }
  }
  return false;
}

std::string Convert(const Converter& converter, logs::LogOptions options, std::size_t jobs) {
  options.jobs = jobs;
  std::atomic<std::uint64_t> bytesRead{0};
  logs::Input input(Folder() + "log", bytesRead);
  const logs::Opening opening = converter.Open(input, options);
  logs::OutputFile output(Folder() + "converted");
  ConvertRows(input, opening, options, output);
  output.Finish();
  std::ostringstream converted;
  converted << std::ifstream(Folder() + "converted", std::ios::binary).rdbuf();
  return converted.str();
}

std::string ConvertInTwo(const logs::Opening& opening, const logs::LogOptions& options,
                         const std::string& rows, std::size_t cut) {
  logs::BlockConverter block(opening.dialect, opening.plan, options.onError);
  const std::string_view all = rows;
  const std::size_t whole = logs::WholeRows(all.substr(0, cut), opening.dialect);
  block.Convert(all.substr(0, whole));
  std::string converted = opening.preamble + opening.plan.heading;
  converted += block.Converted();
  block.Convert(all.substr(whole));
  return converted.append(block.Converted());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) {
    return 0;
  }
  static const Converter converter(Folder());
  const logs::LogOptions options = OptionsFrom(data[0]);
  const std::string log(reinterpret_cast<const char*>(data + 1), size - 1);
  WriteLog(log);
  try {
    const std::string converted = Convert(converter, options, 1);
    Require(Convert(converter, options, 2) == converted, "two threads convert the same");
    std::atomic<std::uint64_t> bytesRead{0};
    logs::Input input(Folder() + "log", bytesRead);
    const logs::Opening opening = converter.Open(input, options);
    Require(IsConverted(opening.plan) || options.unitsRow || converted == log,
            "a log without units stays");
    std::string rows;
    for (std::string block; input.NextRows(opening.dialect, block);) {
      rows += block;
    }
    Require(ConvertInTwo(opening, options, rows, rows.size() / 2) == converted,
            "blocks convert the same");
  } catch (const Failure&) {
  }
  return 0;
}

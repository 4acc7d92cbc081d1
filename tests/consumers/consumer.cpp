// What a host may do with the installed package: it includes every header, links, converts, catches
// the store's errors and derives from a definition class.
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "host/LineItem.h"
#include "host/Parser.h"
#include "units/ConvMonitor.h"
#include "units/DataUnitToDisplayUnitConverter.h"
#include "units/MeasurementConversions.h"
#include "units/UnitConverter.h"
#include "units/parse_monitors.h"
#include "util/DataHash.h"
#include "util/FileHandler.h"
#include "util/enum_map.h"
#include "vehicle/BaseVehicleDefObj.h"
#include "vehicle/ConversionTypes.h"
#include "vehicle/DataType.h"
#include "vehicle/ReadHashData.h"

namespace {

using Definition = units::UnitConverter::UnitsToFunctionsDefObj;
using Store = util::DataHash<std::string, std::shared_ptr<Definition>>;

class OwnDefinition : public Definition {
 public:
  int Validate() override { return 7; }
};

bool TellsAMissingKey(const Store& store) {
  try {
    store.findData("missing");
  } catch (const key_notfound_error&) {
    return true;
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    return 2;
  }
  units::DataUnitToDisplayUnitConverter display;
  display.SetXMLFilePath(argv[1]);
  std::string error;
  if (!display.ReadAndParseXMLAssociations("VEHICLE", error)) {
    return 1;
  }
  double value = 100;
  display.ConvertUnit("TEMP_CEL", value);

  Store store;
  store.addData("own", std::make_shared<OwnDefinition>());
  const bool works = store.findData("own")->Validate() == 7 && TellsAMissingKey(store) &&
                     Parser().Evaluate("6 * 7") == 42 && !util::FileHandler();
  std::vector<LineItem> lines{{1, {"Boost", "kPa", "30", "-15", "1"}}};
  std::vector<std::shared_ptr<units::ConvMonitor>> monitors;
  units::parse_monitors(&lines, monitors);
  std::printf("%g %g %g %s\n", value, monitors.at(0)->GetMin(),
              units::MeasurementConversions::InchesToMillimeters(1), works ? "works" : "fails");
}

// A panel of a hundred gauges, drawn sixty times a second. It asks for each gauge's conversion and
// label when the driver changes the unit system, and converts without asking again.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "units/DataUnitToDisplayUnitConverter.h"

namespace {

struct Gauge {
  std::string dataUnit;
  units::DataUnitToDisplayUnitConverter::Display display;
  double reading = 0;  // in the data unit
  double shown = 0;    // in the display unit
};

std::vector<Gauge> MakeGauges() {
  std::vector<Gauge> gauges(100);
  const char* const dataUnits[] = {"PRESSURE_KPA", "TEMP_CEL", "EFFICIENCY_MPG", "OIL_LEVEL"};
  for (std::size_t i = 0; i < gauges.size(); ++i) {
    gauges[i].dataUnit = dataUnits[i < 99 ? i % 3 : 3];
  }
  return gauges;
}

// Once after each change of the unit system.
void Resolve(const units::DataUnitToDisplayUnitConverter& units, std::vector<Gauge>& gauges) {
  for (Gauge& gauge : gauges) {
    gauge.display = units.FindDisplay(gauge.dataUnit);
  }
}

// A gauge without conversion shows what was measured: under another unit's label that would be a
// wrong number.
void TellWhatIsMissing(const units::DataUnitToDisplayUnitConverter& units,
                       const std::vector<Gauge>& gauges) {
  for (const Gauge& gauge : gauges) {
    if (!gauge.display.toDisplay) {
      std::string why;
      units.GetConverter().FindConversion(gauge.dataUnit, gauge.display.label, why);
      std::printf("%s has no conversion: %s\n", gauge.dataUnit.c_str(),
                  why.empty() ? "it has no display unit" : why.c_str());
    }
  }
}

// Once a frame.
void Update(std::vector<Gauge>& gauges) {
  for (Gauge& gauge : gauges) {
    gauge.shown = gauge.reading;
    gauge.display.toDisplay.Convert(gauge.shown);
  }
}

// A curve of many samples is converted in one call.
std::vector<double> MakePlot(const Gauge& gauge, const std::vector<double>& samples) {
  std::vector<double> points(samples.size());
  gauge.display.toDisplay.Convert(samples.data(), points.data(), samples.size());
  return points;
}

void Measure(std::vector<Gauge>& gauges, int frame) {
  double reading = 20 + frame;
  for (Gauge& gauge : gauges) {
    gauge.reading = reading;
    reading += 0.5;
  }
}

void Run(units::DataUnitToDisplayUnitConverter& units, units::unitTypes_e system, int frames) {
  std::vector<Gauge> gauges = MakeGauges();
  units.SetUnitType(system);
  Resolve(units, gauges);
  TellWhatIsMissing(units, gauges);
  auto next = std::chrono::steady_clock::now();
  for (int frame = 0; frame < frames; ++frame) {
    Measure(gauges, frame);
    Update(gauges);
    next += std::chrono::microseconds(1000000 / 60);
    std::this_thread::sleep_until(next);
  }
  for (std::size_t i = 0; i < 3; ++i) {
    std::printf("  %-15s %8.2f shown as %8.2f\n", gauges[i].dataUnit.c_str(), gauges[i].reading,
                gauges[i].shown);
  }
  const std::vector<double> points = MakePlot(gauges[0], std::vector<double>(10000, 100.0));
  std::printf("  %zu points of a plot, the last at %.2f\n", points.size(), points.back());
}

}  // namespace

int main(int argc, char** argv) try {
  units::DataUnitToDisplayUnitConverter units;
  units.SetXMLFilePath(argc > 1 ? argv[1] : "/usr/share/vehicle-units/");
  std::string error;
  if (!units.ReadAndParseXMLAssociations("VEHICLE", error)) {
    throw std::runtime_error("cannot load the units: " + error);
  }
  const int frames = argc > 2 ? std::atoi(argv[2]) : 60;
  std::puts("standard");
  Run(units, units::UNIT_TYPE_STD, frames);
  std::puts("metric");
  Run(units, units::UNIT_TYPE_METRIC, frames);
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}

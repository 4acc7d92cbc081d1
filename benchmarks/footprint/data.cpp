// data FOLDER: loads the data of the folder, which ends in a slash, and prints the bytes of heap
// that it takes, at its peak and for good.
#include <cstdio>
#include <string>

#include "CountedHeap.h"
#include "units/DataUnitToDisplayUnitConverter.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    return 2;
  }
  const std::size_t before = held;
  peak = held;
  units::DataUnitToDisplayUnitConverter display;
  display.SetXMLFilePath(argv[1]);
  std::string error;
  if (!display.ReadAndParseXMLAssociations("VEHICLE", error)) {
    std::fprintf(stderr, "cannot load %s: %s\n", argv[1], error.c_str());
    return 1;
  }
  std::printf("%zu %zu\n", peak - before, held - before);
}

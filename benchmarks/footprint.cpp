// Loads a conversion file of generated units as the first thing that the process does and prints,
// for each definition, the bytes of heap that are then held, the bytes by which the process's peak
// of memory rose, and the nanoseconds of processor time:
//
//     footprint library|bare|TinyXML COUNT

#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <tinyxml.h>
#include <unistd.h>

#include <cstdio>
#include <ctime>
#include <stdexcept>
#include <string>

#include "BareConverter.h"
#include "DataSet.h"
#include "RunProgram.h"
#include "units/UnitConverter.h"

namespace {

std::size_t HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

void Load(const std::string& who, const std::string& path) {
  if (who == "bare") {
    static bare::Converter converter;
    bare::LoadConversions(converter, path);
    return;
  }
  if (who == "TinyXML") {
    TiXmlDocument document(path);
    if (!document.LoadFile()) {
      throw std::runtime_error("not parsed: " + path);
    }
    return;
  }
  static units::UnitConverter converter;
  std::string error;
  if (!converter.LoadFromXML(path, error) || !error.empty()) {
    throw std::runtime_error("not loaded: " + path);
  }
}

long PeakOfMemory() {
  struct rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss * 1024;
}

// Writes the file in a process of its own, so that this one's memory is that of the load.
std::string WriteFile(const std::string& count) {
  const pid_t child = fork();
  if (child == 0) {
    bench::WriteConversionFile(count);
    _exit(0);
  }
  int status = -1;
  if (child < 0 || waitpid(child, &status, 0) != child || status != 0) {
    throw std::runtime_error("cannot write the file");
  }
  return bench::ConversionFilePath(count);
}

int Run(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: footprint library|bare|TinyXML COUNT\n", stderr);
    return 2;
  }
  const std::string path = WriteFile(argv[2]);
  const double count = std::stod(argv[2]);
  const long peak = PeakOfMemory();
  const std::size_t heap = HeapInUse();
  const std::clock_t start = std::clock();
  Load(argv[1], path);
  const double nanoseconds = 1e9 / CLOCKS_PER_SEC * static_cast<double>(std::clock() - start);
  std::printf("%.0f %.0f %.0f\n", static_cast<double>(HeapInUse() - heap) / count,
              static_cast<double>(PeakOfMemory() - peak) / count, nanoseconds / count);
  return 0;
}

}  // namespace

int main(int argc, char** argv) { return bench::RunProgram("footprint", Run, argc, argv); }

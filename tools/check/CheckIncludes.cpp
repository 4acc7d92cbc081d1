#include "check/CheckIncludes.h"

#include <set>
#include <string>

#include "check/CheckDocuments.h"
#include "units/MostFiles.h"

namespace check {

namespace {

using model::Obstacle;

Message Describe(const std::vector<std::string>& circle) {
  Message text = "include cycle: ";
  for (const std::string& path : circle) {
    text += Message::Verbatim(path) + " -> ";
  }
  return text + Message::Verbatim(circle.front());
}

void ReportTooManyFiles(const Place& place, const std::string& path, Findings& findings) {
  const std::string text = "more than " + std::to_string(units::kMostFiles) + " files in one load";
  if (place.file == path) {
    findings.Add(place, kNotLoaded, text);
  } else {
    findings.Add({path}, kNotLoaded, ToMessage(place) + ": " + text);
  }
}

void Report(const Obstacle& obstacle, const model::UnitSystem& system, Findings& findings) {
  switch (obstacle.kind) {
    case Obstacle::Kind::kUnreadable:
      if (obstacle.included) {
        findings.Add(obstacle.place, kMissingInclude, MissingIncludeOf(obstacle.files.front()));
      } else {
        findings.Add(obstacle.place, kMissingFile,
                     "the file of the unit system " + system.name + " is missing or empty");
      }
      break;
    case Obstacle::Kind::kRefused:  // told of the file itself
      break;
    case Obstacle::Kind::kUnnamed:
      findings.Add(obstacle.place, kEmptyInclude, "<include> names no file");
      break;
    case Obstacle::Kind::kCircle:
      findings.Add(obstacle.place, kIncludeCycle, Describe(obstacle.files));
      break;
    case Obstacle::Kind::kTooManyFiles:
      ReportTooManyFiles(obstacle.place, system.path, findings);
      break;
  }
}

}  // namespace

Message MissingIncludeOf(const std::string& path) {
  return "the included file " + Message::Verbatim(path) + " is missing or empty";
}

void CheckIncludes(const model::Model& model, Findings& findings) {
  if (model.conversionFile->state == model::File::State::kUnreadable) {
    findings.Add({model.conversionFile->Path()}, kMissingFile,
                 "the conversion file is missing or empty");
  }
  std::set<std::set<std::string>> circles;
  for (const model::UnitSystem& system : model.systems) {
    for (const Obstacle& obstacle : system.obstacles) {
      const bool toldBefore = obstacle.kind == Obstacle::Kind::kCircle &&
                              !circles.emplace(obstacle.files.begin(), obstacle.files.end()).second;
      if (!toldBefore) {
        Report(obstacle, system, findings);
      }
    }
  }
  for (const std::string& stray : model.strays) {
    findings.Add({stray}, kUnreadFile, "no unit system reads this file");
  }
}

}  // namespace check

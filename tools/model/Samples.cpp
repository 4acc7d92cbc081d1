#include "model/Samples.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "text/Charset.h"
#include "text/Failure.h"
#include "util/FileHandler.h"
#include "xml/PlaceAt.h"

namespace model {

namespace {

constexpr std::size_t kLargestFile = 1 << 20;
constexpr char kUtf8[] = "UTF-8";
constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

std::string ReadBytes(const std::string& path) {
  // Asked before it is opened: to open a pipe would wait for its other end.
  std::error_code unknown;
  const bool regular = std::filesystem::is_regular_file(path, unknown);
  util::FileHandler file;
  if (!regular || file.open(path.c_str(), "rb") == nullptr) {
    throw Failure("cannot read " + Message::Verbatim(path));
  }
  const std::size_t size = file.fileSize();
  if (size > kLargestFile) {
    throw Failure(Message::Verbatim(path) + " is larger than 1 MiB");
  }
  std::string bytes;
  if (file.read(bytes) == 0 && size > 0) {
    throw Failure("cannot read " + Message::Verbatim(path));
  }
  return bytes;
}

std::string ToLatin1(std::string bytes) {
  if (FirstInvalid(bytes, kUtf8)) {
    return bytes;
  }
  if (bytes.rfind(kByteOrderMark, 0) == 0) {
    bytes.erase(0, sizeof(kByteOrderMark) - 1);
  }
  return Charset(kUtf8).ToLatin1(bytes);
}

// Cuts a line into its fields.
class Line {
 public:
  Line(const std::string& path, int number, const std::string& text)
      : path(path), number(number), text(text) {}

  Sample::Field Next() {
    const std::size_t end = std::min(text.find('\t', begin), text.size());
    Sample::Field field{At(begin), text.substr(begin, end - begin)};
    begin = std::min(end + 1, text.size());
    return field;
  }

  Sample::Field Rest() const { return {At(begin), text.substr(begin)}; }

 private:
  Place At(std::size_t offset) const {
    return {path, number, xml::PlaceAt(text, offset, false).column};
  }

  const std::string& path;
  const int number;
  const std::string& text;
  std::size_t begin = 0;
};

Sample ReadSample(Line line) {
  Sample sample;
  for (Sample::Field Sample::*field : {&Sample::from, &Sample::value, &Sample::to,
                                       &Sample::expected, &Sample::tolerance, &Sample::source}) {
    sample.*field = line.Next();
  }
  sample.rest = line.Rest();
  return sample;
}

}  // namespace

Samples ReadSamples(const std::string& path) {
  Samples samples{path, {}};
  std::istringstream lines(ToLatin1(ReadBytes(path)));
  int number = 0;
  for (std::string text; std::getline(lines, text);) {
    ++number;
    if (!text.empty() && text.back() == '\r') {
      text.pop_back();
    }
    if (text.find_first_not_of(" \t") != text.npos && text.front() != '#') {
      samples.all.push_back(ReadSample(Line(path, number, text)));
    }
  }
  return samples;
}

}  // namespace model

#include "check/Encoding.h"

#include <iconv.h>
#include <strings.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

namespace check {

namespace {

constexpr char kUtf8[] = "UTF-8";

bool IsBeyondAscii(char c) { return static_cast<unsigned char>(c) >= 0x80; }

bool IsC1Control(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 && byte < 0xA0;
}

bool IsLatin1(const std::string& encoding) {
  return strcasecmp(encoding.c_str(), "ISO-8859-1") == 0 ||
         strcasecmp(encoding.c_str(), "latin1") == 0;
}

Place PlaceOf(const std::string& path, const std::string& bytes, std::size_t offset) {
  const std::string_view before(bytes.data(), offset);
  const auto lines = std::count(before.begin(), before.end(), '\n');
  const std::size_t start = before.rfind('\n') + 1;  // npos + 1 == 0: the first line
  return {path, static_cast<int>(lines) + 1, static_cast<int>(offset - start) + 1};
}

// The offset of the first byte that is wrong in `encoding`, nothing where all are right; 0 for an
// encoding that is not known.
std::optional<std::size_t> FirstInvalid(const std::string& bytes, const std::string& encoding) {
  const iconv_t conversion = iconv_open("UTF-8", encoding.c_str());
  if (reinterpret_cast<std::intptr_t>(conversion) == -1) {
    return 0;
  }
  char* input = const_cast<char*>(bytes.data());
  std::size_t left = bytes.size();
  bool valid = true;
  while (valid && left > 0) {
    char chunk[4096];
    char* output = chunk;
    std::size_t room = sizeof(chunk);
    valid = iconv(conversion, &input, &left, &output, &room) != std::size_t(-1) || output != chunk;
  }
  iconv_close(conversion);
  return left > 0 ? std::optional(bytes.size() - left) : std::nullopt;
}

std::optional<std::size_t> FirstBeyondAsciiOutsideComments(const std::string& bytes) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes.compare(i, 4, "<!--") == 0) {
      i = std::min(bytes.find("-->", i), bytes.size());
    } else if (IsBeyondAscii(bytes[i])) {
      return i;
    }
  }
  return std::nullopt;
}

void CheckLatin1(const std::string& path, const std::string& bytes, std::size_t first,
                 Findings& findings) {
  const auto control = std::find_if(bytes.begin(), bytes.end(), IsC1Control);
  if (!FirstInvalid(bytes, kUtf8)) {
    findings.Add(PlaceOf(path, bytes, first), Rule::kBadEncoding,
                 "the bytes are UTF-8, but the declared encoding is ISO-8859-1");
  } else if (control != bytes.end()) {
    findings.Add(PlaceOf(path, bytes, static_cast<std::size_t>(control - bytes.begin())),
                 Rule::kBadEncoding, "the byte is a control character in ISO-8859-1");
  }
}

void CheckOther(const std::string& path, const std::string& bytes, const std::string& declared,
                Findings& findings) {
  const std::string encoding(declared.empty() ? kUtf8 : declared.c_str());
  if (const auto invalid = FirstInvalid(bytes, encoding)) {
    findings.Add(PlaceOf(path, bytes, *invalid), Rule::kBadEncoding,
                 "the byte is no character of the encoding " + encoding);
  } else if (const auto foreign = FirstBeyondAsciiOutsideComments(bytes)) {
    findings.Add(
        PlaceOf(path, bytes, *foreign), Rule::kForeignEncoding,
        "the library takes the bytes of this character as ISO 8859-1, but they are " + encoding);
  }
}

}  // namespace

void CheckEncoding(const std::string& path, const std::string& bytes, const std::string& declared,
                   Findings& findings) {
  const auto first = std::find_if(bytes.begin(), bytes.end(), IsBeyondAscii);
  if (first == bytes.end()) {
    return;
  }
  if (IsLatin1(declared)) {
    CheckLatin1(path, bytes, static_cast<std::size_t>(first - bytes.begin()), findings);
  } else {
    CheckOther(path, bytes, declared, findings);
  }
}

}  // namespace check

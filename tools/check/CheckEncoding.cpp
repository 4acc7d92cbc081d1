#include "check/CheckEncoding.h"

#include <iconv.h>
#include <strings.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/PlaceCursor.h"
#include "util/Text.h"
#include "xml/Utf8Length.h"

namespace check {

namespace {

constexpr char kUtf8[] = "UTF-8";
constexpr char kLatin1[] = "ISO-8859-1";

constexpr std::array<const char*, 9> kNamesOfLatin1{kLatin1,      "ISO_8859-1", "ISO_8859-1:1987",
                                                    "iso-ir-100", "latin1",     "l1",
                                                    "IBM819",     "CP819",      "csISOLatin1"};

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsBeyondAscii(char c) { return static_cast<unsigned char>(c) >= 0x80; }

bool IsC1Control(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 && byte < 0xA0;
}

bool IsLatin1(const std::string& encoding) {
  return std::any_of(kNamesOfLatin1.begin(), kNamesOfLatin1.end(), [&encoding](const char* name) {
    return strcasecmp(name, encoding.c_str()) == 0;
  });
}

// What iconv makes of text in one encoding.
class Decoder {
 public:
  // Behind these signs iconv looks for options, which no name of an encoding has.
  Decoder(const std::string& from, const std::string& to)
      : conversion(iconv_open(
            to.c_str(), from.find_first_of("/,") == std::string::npos ? from.c_str() : "none")) {}
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;
  ~Decoder() {
    if (IsKnown()) {
      iconv_close(conversion);
    }
  }

  bool IsKnown() const { return reinterpret_cast<std::intptr_t>(conversion) != -1; }

  // Whether the bytes stand for the same characters in both encodings.
  bool LeavesAsTheyAre(std::string_view bytes) const {
    std::string decoded(bytes.size() + 16, '\0');
    char* input = const_cast<char*>(bytes.data());
    std::size_t left = bytes.size();
    char* output = decoded.data();
    std::size_t room = decoded.size();
    iconv(conversion, nullptr, nullptr, nullptr, nullptr);
    const bool valid = iconv(conversion, &input, &left, &output, &room) != std::size_t(-1);
    return valid && std::string_view(decoded.data(), decoded.size() - room) == bytes;
  }

  // The offset of the first byte that is no character, nothing where all are.
  std::optional<std::size_t> FirstInvalid(std::string_view bytes) const {
    char* input = const_cast<char*>(bytes.data());
    std::size_t left = bytes.size();
    bool valid = true;
    while (valid && left > 0) {
      std::array<char, 4096> chunk{};
      char* output = chunk.data();
      std::size_t room = chunk.size();
      valid = iconv(conversion, &input, &left, &output, &room) != std::size_t(-1) ||
              output != chunk.data();
    }
    return left > 0 ? std::optional(bytes.size() - left) : std::nullopt;
  }

 private:
  const iconv_t conversion;
};

bool IsUtf8(std::string_view bytes) { return !Decoder(kUtf8, "UCS-4LE").FirstInvalid(bytes); }

// The next run of bytes beyond ASCII that stands in no comment, from `at` on.
std::string_view NextRun(std::string_view bytes, std::size_t at) {
  for (; at < bytes.size(); ++at) {
    if (bytes.compare(at, 4, "<!--") == 0) {
      at = std::min(bytes.find("-->", at + 4), bytes.size());
    } else if (IsBeyondAscii(bytes[at])) {
      const auto* const end = std::find_if_not(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                                               bytes.end(), IsBeyondAscii);
      return bytes.substr(at, static_cast<std::size_t>(end - bytes.begin()) - at);
    }
  }
  return {};
}

// The first character of several bytes in UTF-8 among `run`.
std::string_view Utf8CharacterIn(std::string_view run) {
  for (std::size_t i = 0; i < run.size(); ++i) {
    const std::size_t size = xml::Utf8Length(run[i]);
    const std::string_view character = run.substr(i, size);
    if (size > 1 && character.size() == size && IsUtf8(character)) {
      return character;
    }
  }
  return {};
}

class Judge {
 public:
  Judge(const model::File& file, Findings& findings)
      : file(file), bytes(file.bytes), findings(findings) {
    if (bytes.compare(0, kByteOrderMark.size(), kByteOrderMark) == 0) {
      begin = kByteOrderMark.size();
    }
  }

  void Run() {
    const std::string name = file.DeclaredEncoding().value_or("");
    const bool named = !name.empty() && name.find('<') == std::string::npos;
    const std::string encoding = named ? name : kUtf8;
    const bool latin1 = IsLatin1(encoding);
    const Decoder decoder(encoding, kLatin1);
    if (!latin1 && !(decoder.IsKnown() && decoder.LeavesAsTheyAre("<"))) {
      TellUnknown(encoding, decoder.IsKnown());
    }
    const auto first = std::find_if(bytes.begin() + static_cast<std::ptrdiff_t>(begin), bytes.end(),
                                    IsBeyondAscii);
    if (first == bytes.end()) {
      return;
    }
    if (latin1 || told) {
      CheckLatin1(static_cast<std::size_t>(first - bytes.begin()), encoding);
    } else {
      CheckOther(encoding, decoder);
    }
  }

 private:
  void TellUnknown(const std::string& encoding, bool known) {
    told = true;
    findings.Add(
        {file.Path()}, kUnknownEncoding,
        known ? "the file is not in the encoding " + util::Quoted(encoding) +
                    " that it declares: declare ISO-8859-1"
              : "the encoding " + util::Quoted(encoding) + " is unknown: declare ISO-8859-1");
  }

  void CheckLatin1(std::size_t first, const std::string& encoding) {
    const auto control = std::find_if(bytes.begin(), bytes.end(), IsC1Control);
    if (IsUtf8(bytes)) {
      findings.Add(file.At(first), kBadEncoding,
                   "the bytes are UTF-8, but the declared encoding is " + encoding);
    } else if (!TellMixed() && control != bytes.end()) {
      findings.Add(file.At(static_cast<std::size_t>(control - bytes.begin())), kBadEncoding,
                   "the byte is a control character in " + encoding);
    }
  }

  // The first on each line.
  bool TellMixed() {
    model::PlaceCursor places(file);
    int line = 0;
    for (std::string_view run = NextRun(bytes, begin); !run.empty();
         run = NextRun(bytes, OffsetOf(run) + run.size())) {
      const std::string_view character = Utf8CharacterIn(run);
      if (character.empty()) {
        continue;
      }
      const Place place = places.At(OffsetOf(character));
      if (place.line != line) {
        findings.Add(
            place, kBadEncoding,
            "this character is in UTF-8, while others of the file are in ISO-8859-1: it is "
            "shown as " +
                util::Quoted(std::string(character)));
      }
      line = place.line;
    }
    return line > 0;
  }

  void CheckOther(const std::string& encoding, const Decoder& decoder) {
    if (const auto invalid = Decoder(encoding, kUtf8).FirstInvalid(bytes)) {
      findings.Add(file.At(*invalid), kBadEncoding,
                   "the byte is no character of the encoding " + encoding);
      return;
    }
    for (std::string_view run = NextRun(bytes, begin); !run.empty();
         run = NextRun(bytes, OffsetOf(run) + run.size())) {
      if (!decoder.LeavesAsTheyAre(run)) {
        findings.Add(file.At(OffsetOf(run)), kForeignEncoding,
                     "the library takes the bytes of this character as ISO 8859-1, but they are " +
                         encoding);
        return;
      }
    }
  }

  std::size_t OffsetOf(std::string_view part) const {
    return static_cast<std::size_t>(part.data() - bytes.data());
  }

  const model::File& file;
  const std::string& bytes;
  Findings& findings;
  std::size_t begin = 0;  // behind the byte order mark
  bool told = false;      // that the encoding is none that the file can have
};

}  // namespace

bool CheckWidth(const model::File& file, Findings& findings) {
  const std::string_view start = std::string_view(file.bytes).substr(0, 4);
  const bool marked = start.substr(0, 2) == "\xFF\xFE" || start.substr(0, 2) == "\xFE\xFF";
  const bool wide = marked || start.find('\0') != std::string_view::npos;
  if (wide) {
    findings.Add(
        {file.Path()}, kBadEncoding,
        "the file is in UTF-16 or UTF-32, of which nothing is read: save it in ISO-8859-1");
  }
  return wide;
}

void CheckEncoding(const model::File& file, Findings& findings) { Judge(file, findings).Run(); }

}  // namespace check

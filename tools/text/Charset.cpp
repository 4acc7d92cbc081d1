#include "text/Charset.h"

#include <iconv.h>
#include <langinfo.h>

#include <cerrno>
#include <clocale>
#include <cstdint>
#include <memory>

#include "text/Failure.h"

namespace {

constexpr char kLatin1[] = "ISO-8859-1";

struct CloseConversion {
  void operator()(iconv_t conversion) const { iconv_close(conversion); }
};
using Conversion = std::unique_ptr<void, CloseConversion>;

Conversion OpenConversion(const std::string& from, const std::string& to) {
  const auto conversion = iconv_open((to + "//TRANSLIT").c_str(), from.c_str());
  if (reinterpret_cast<std::intptr_t>(conversion) == -1) {
    throw Failure("cannot convert text from " + from + " to " + to);
  }
  return Conversion(conversion);
}

std::string Convert(const std::string& from, const std::string& to, std::string text) {
  const Conversion conversion = OpenConversion(from, to);
  std::string result;
  char* input = text.data();
  std::size_t left = text.size();
  while (left > 0) {
    char chunk[256];
    char* output = chunk;
    std::size_t room = sizeof(chunk);
    const bool stopped = iconv(conversion.get(), &input, &left, &output, &room) == std::size_t(-1);
    result.append(chunk, output);
    if (stopped && errno != E2BIG) {
      result += '?';
      ++input;
      --left;
    }
  }
  return result;
}

}  // namespace

Charset::Charset(const std::string& name) : name(name) { OpenConversion(kLatin1, name); }

Charset Charset::OfTerminal() {
  std::setlocale(LC_CTYPE, "");
  std::string codeset = nl_langinfo(CODESET);
  if (codeset == "ANSI_X3.4-1968") {
    codeset = "UTF-8";
  }
  return Charset(codeset);
}

std::string Charset::FromLatin1(const std::string& text) const {
  return Convert(kLatin1, name, text);
}

std::string Charset::ToLatin1(const std::string& text) const {
  return Convert(name, kLatin1, text);
}

std::optional<std::size_t> FirstInvalid(const std::string& text, const std::string& charset) {
  const iconv_t conversion = iconv_open("UTF-8", charset.c_str());
  if (reinterpret_cast<std::intptr_t>(conversion) == -1) {
    return 0;
  }
  const Conversion owner(conversion);
  char* input = const_cast<char*>(text.data());
  std::size_t left = text.size();
  bool valid = true;
  while (valid && left > 0) {
    char chunk[4096];
    char* output = chunk;
    std::size_t room = sizeof(chunk);
    valid = iconv(conversion, &input, &left, &output, &room) != std::size_t(-1) || output != chunk;
  }
  return left > 0 ? std::optional(text.size() - left) : std::nullopt;
}

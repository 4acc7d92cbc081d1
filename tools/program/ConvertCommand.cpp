#include "program/ConvertCommand.h"

#include <iostream>
#include <string>

#include "program/FindConversion.h"
#include "program/InputLines.h"
#include "program/LoadConversions.h"
#include "text/Charset.h"
#include "text/Failure.h"
#include "text/Numbers.h"
#include "util/Text.h"

namespace {

template <typename Value>
std::string Convert(const units::Conversion& conversion, Value value) {
  conversion.Convert(value);
  return FormatNumber(value);
}

class Converter {
 public:
  Converter(const ConvertOptions& options, const Charset& terminal)
      : to(terminal.ToLatin1(options.to)), single(options.single), terminal(terminal) {
    units::UnitConverter converter;
    LoadConversions(converter, options.data.Path(), terminal);
    conversion = FindConversion(converter, terminal.ToLatin1(options.from), to);
  }

  void Print(const std::string& text) const {
    const auto value = ParseNumber(text);
    if (!value) {
      throw Failure("not a number: " + util::Quoted(terminal.ToLatin1(text)));
    }
    const std::string result =
        single ? Convert(conversion, static_cast<float>(*value)) : Convert(conversion, *value);
    std::cout << Message(result + ' ' + to).For(terminal) << '\n';
  }

 private:
  units::Conversion conversion;
  std::string to;
  bool single;
  const Charset& terminal;
};

}  // namespace

int RunConvert(const ConvertOptions& options, const Charset& terminal) {
  const Converter converter(options, terminal);
  for (const std::string& value : options.values) {
    converter.Print(value);
  }
  if (options.values.empty()) {
    ForEachInputLine([&](const std::string& line) { converter.Print(line); });
  }
  return 0;
}

#include "program/ConvertCommand.h"

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "program/FindConversion.h"
#include "program/InputLines.h"
#include "program/LoadConversions.h"
#include "text/Charset.h"
#include "text/Failure.h"
#include "text/Numbers.h"
#include "util/Text.h"

namespace {

// Collects values, and converts and writes them together.
template <typename Value>
class Converter {
 public:
  Converter(const ConvertOptions& options, const Charset& terminal)
      : options(options), terminal(terminal) {
    units::UnitConverter converter;
    LoadConversions(converter, options.data.Path(), terminal);
    const std::string to = terminal.ToLatin1(options.to);
    conversion = FindConversion(converter, terminal.ToLatin1(options.from), to);
    ending = (options.bare ? "" : Message(' ' + to).For(terminal)) + '\n';
  }

  // Throws `Failure` where `text` is no number.
  void Add(std::string_view text) {
    if (!AddNumber(text)) {
      throw Failure("not a number: " + util::Quoted(terminal.ToLatin1(std::string(text))));
    }
  }

  // The same, but a line without a value passes as it is.
  void AddLine(std::string_view line) {
    if (AddNumber(line)) {
      return;
    }
    if (IsNoValue(line)) {
      Pass(line);
    } else {
      Add(line);
    }
  }

  // Writes what was added before `failure`, and tells it. Throws it where the run ends here.
  void Tell(const Failure& failure) {
    Write();
    if (!options.keepGoing) {
      throw failure;
    }
    std::cerr << ("vehicle-units: " + failure.Told()).For(terminal) << '\n';
    status = 1;
  }

  void Write() {
    Print();
    std::cout.write(output.data(), static_cast<std::streamsize>(output.size()));
    output.clear();
    if (!std::cout.flush()) {
      throw Failure("cannot write to standard output");
    }
  }

  int Status() const { return status; }

 private:
  bool AddNumber(std::string_view text) {
    const auto value = ParseNumber(text);
    if (value) {
      values.push_back(static_cast<Value>(*value));
    }
    return value.has_value();
  }

  void Pass(std::string_view line) {
    Print();
    const bool hasReturn = !line.empty() && line.back() == '\r';
    output.append(line.substr(0, line.size() - (hasReturn ? 1 : 0))) += '\n';
  }

  void Print() {
    conversion.Convert(values.data(), values.data(), values.size());
    for (const Value value : values) {
      AppendNumber(value, options.precision, output);
      output += ending;
    }
    values.clear();
  }

  const ConvertOptions& options;
  const Charset& terminal;
  units::Conversion conversion;
  std::string ending;
  std::vector<Value> values;
  std::string output;
  int status = 0;
};

template <typename Value>
void ConvertArguments(const std::vector<std::string>& texts, Converter<Value>& converter) {
  for (const std::string& text : texts) {
    try {
      converter.Add(text);
    } catch (const Failure& failure) {
      converter.Tell(failure);
    }
  }
  converter.Write();
}

template <typename Value>
void ConvertInput(Converter<Value>& converter) {
  InputLines input;
  for (std::string_view line; input.Next(line);) {
    try {
      converter.AddLine(line);
    } catch (const Failure& failure) {
      converter.Tell(input.Here(failure));
    }
    if (!input.HasNext()) {
      converter.Write();
    }
  }
}

template <typename Value>
int Run(const ConvertOptions& options, const Charset& terminal) {
  Converter<Value> converter(options, terminal);
  if (options.values.empty()) {
    ConvertInput(converter);
  } else {
    ConvertArguments(options.values, converter);
  }
  return converter.Status();
}

}  // namespace

int RunConvert(const ConvertOptions& options, const Charset& terminal) {
  return options.single ? Run<float>(options, terminal) : Run<double>(options, terminal);
}

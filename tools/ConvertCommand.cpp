#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "Commands.h"
#include "ConversionCatalog.h"
#include "DataFolder.h"
#include "Failure.h"
#include "Numbers.h"
#include "Quoted.h"

namespace {

struct Options {
  DataFolder data;
  std::string from;
  std::string to;
  std::vector<std::string> values;
  bool single = false;
};

class Conversion {
 public:
  Conversion(const Options& options, const Charset& terminal)
      : catalog(options.data.Path()),
        from(terminal.ToLatin1(options.from)),
        to(terminal.ToLatin1(options.to)),
        single(options.single),
        terminal(terminal) {
    catalog.Convert(from, to, 1.0);  // units that do not fit are told before any value is read
  }

  void Print(const std::string& text) const {
    const auto value = ParseNumber(text);
    if (!value) {
      throw Failure("not a number: " + Quoted(terminal.ToLatin1(text)));
    }
    const std::string result =
        single ? FormatNumber(catalog.Convert(from, to, static_cast<float>(*value)))
               : FormatNumber(catalog.Convert(from, to, *value));
    std::cout << terminal.FromLatin1(result + ' ' + to) << '\n';
  }

 private:
  ConversionCatalog catalog;
  std::string from;
  std::string to;
  bool single;
  const Charset& terminal;
};

void Run(const Options& options, const Charset& terminal) {
  const Conversion conversion(options, terminal);
  for (const std::string& value : options.values) {
    conversion.Print(value);
  }
  if (options.values.empty()) {
    for (std::string line; std::getline(std::cin, line);) {
      conversion.Print(line);
    }
  }
}

}  // namespace

void AddConvertCommand(CLI::App& app, const Charset& terminal) {
  auto options = std::make_shared<Options>();
  CLI::App& command = *app.add_subcommand("convert", "Convert values from one unit into another");
  options->data.AddOption(command);
  command.add_flag("--float", options->single, "Convert in single precision");
  command.add_option("FROM", options->from, "Unit of the values")->required();
  command.add_option("TO", options->to, "Unit to convert them into")->required();
  command.add_option("VALUE", options->values, "Values; from standard input if none are given");
  command.callback([options, &terminal] { Run(*options, terminal); });
}

#include "program/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <set>
#include <string>
#include <vector>

#include "program/CheckCommand.h"
#include "program/ConvertCommand.h"
#include "program/GraphCommand.h"
#include "program/LogCommand.h"
#include "program/MonitorsCommand.h"
#include "program/ShowCommand.h"
#include "program/UnitsCommand.h"
#include "text/Charset.h"
#include "text/Message.h"
#include "text/NearestNames.h"
#include "text/Printable.h"
#include "util/Text.h"

namespace {

constexpr int kBadUsage = 2;

std::string DescribeUnknownCommand(const CLI::App& app, const std::string& word) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands(nullptr)) {
    names.push_back(command->get_name());
  }
  return "unknown command " + util::Quoted(word) + NearestNames(word, names);
}

std::string DescribeUnknownOption(const CLI::App& command, const std::string& word) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& name : option->get_lnames()) {
      names.push_back("--" + name);
    }
  }
  return "unknown option " + util::Quoted(word) + NearestNames(word, names);
}

std::string DescribeUnknown(const CLI::App& app, const CLI::App& command, const std::string& word) {
  if (word.rfind('-', 0) == 0) {
    return DescribeUnknownOption(command, word);
  }
  return &command == &app ? DescribeUnknownCommand(app, word)
                          : "unexpected argument " + util::Quoted(word);
}

const CLI::App& CommandOf(const CLI::App& app) {
  const std::vector<CLI::App*> parsed = app.get_subcommands();
  return parsed.empty() ? app : *parsed.front();
}

std::string Describe(const CLI::App& app, const CLI::ParseError& error) {
  const CLI::App& command = CommandOf(app);
  if (const std::vector<std::string> words = app.remaining(); !words.empty()) {
    return DescribeUnknown(app, app, words.front());
  }
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
    return DescribeUnknown(app, command, command.remaining().front());
  }
  if (&command == &app) {
    return "a command is missing; see vehicle-units --help";
  }
  return error.what();
}

bool IsOption(const std::string& word) {
  if (word.rfind('-', 0) != 0 || word.rfind("-.", 0) == 0) {
    return false;
  }
  char* end = nullptr;
  std::strtod(word.c_str(), &end);
  return end == word.c_str() || *end != '\0';
}

// The values among the words that the parser has left over. It takes -.5 and -inf for options.
std::vector<std::string> ValuesAmong(const std::vector<std::string>& words,
                                     const CLI::App& command) {
  const auto mark = std::find(words.begin(), words.end(), "--");
  const auto option = std::find_if(words.begin(), mark, IsOption);
  if (option != mark) {
    throw CLI::ParseError(DescribeUnknownOption(command, *option), CLI::ExitCodes::ExtrasError);
  }
  std::vector<std::string> values(words.begin(), mark);
  values.insert(values.end(), mark == words.end() ? mark : mark + 1, words.end());
  return values;
}

// Keeps a value for ValuesAmong, which then finds all of them in their order.
std::string LeaveOver(const std::string& /*value*/) { return "left over"; }

CLI::Option* AddData(CLI::App& command, DataFolder& data) {
  command.footer([] {
    return "Without DIR the data in this folder are read:\n  " +
           PrintableBytes(DataFolder::RealDefault());
  });
  return command.add_option("--data", data.named, "Folder of the data files")->type_name("DIR");
}

CLI::Option* AddUnitSystems(CLI::App& command, UnitSystemOptions& options,
                            const std::set<std::string>& systems = UnitSystems::Names()) {
  AddData(command, options.data);
  command.add_option("--name", options.name, "Base name of the association files")
      ->type_name("VEHICLE");
  return command.add_option("--system", options.system, "Unit system to show")
      ->check(CLI::IsMember(systems));
}

// The parser with all commands: parsing chooses what to run.
class CommandLine {
 public:
  explicit CommandLine(const Charset& terminal) : terminal(terminal) {
    app.set_version_flag("--version", "vehicle-units " VEHICLE_UNITS_VERSION);
    app.require_subcommand(1);
    AddConvert();
    AddLog();
    AddMonitors();
    AddShow();
    AddUnits();
    AddCheck();
    AddGraph();
    AddHelp();
  }

  int Run(int argc, char** argv) {
    try {
      app.parse(argc, argv);
    } catch (const CLI::Success& help) {
      return app.exit(help);
    } catch (const CLI::ParseError& error) {
      std::cerr << Message::Verbatim("vehicle-units: " + Describe(app, error)).For(terminal)
                << '\n';
      return kBadUsage;
    }
    return chosen();
  }

 private:
  CLI::App& Add(const char* name, const char* description, const std::function<int()>& run) {
    CLI::App& command = *app.add_subcommand(name, description);
    command.callback([this, run] { chosen = run; });
    return command;
  }

  void AddConvert() {
    CLI::App& command = *app.add_subcommand("convert", "Convert values from one unit into another");
    AddData(command, convert.data);
    command.add_flag("--float", convert.single, "Convert in single precision");
    command.add_flag("--bare", convert.bare, "Print the numbers without their unit");
    command
        .add_option("--precision", convert.precision, "Decimals, 0 to 17; as needed if not given")
        ->type_name("N")
        ->check(CLI::Range(0, 17).description(""));
    command.add_flag("--keep-going", convert.keepGoing, "Go on where a value is no number");
    command.add_option("FROM", convert.from, "Unit of the values")->required();
    command.add_option("TO", convert.to, "Unit to convert them into")->required();
    command.add_option("VALUE", convert.values, "Values; from standard input if none are given")
        ->check(LeaveOver);
    command.validate_positionals();
    command.allow_extras();
    command.callback([this, &command] {
      convert.values = ValuesAmong(command.remaining(), command);
      chosen = [this] { return RunConvert(convert, terminal); };
    });
  }

  void AddLog() {
    CLI::App& command =
        Add("log", "Convert recorded logs (CSV)", [this] { return RunLog(log, terminal); });
    log.systems.system = "std";
    std::set<std::string> systems = UnitSystems::Names();
    systems.erase("all");
    AddUnitSystems(command, log.systems, systems)->capture_default_str();
    command.add_option("FILE", log.files, "Logs; standard input if none are given");
    CLI::Option* output = command.add_option("-o,--output", log.output, "File to write")
                              ->type_name("OUT")
                              ->excludes(AddOutDir(command));
    command.add_flag("--list", log.list, "List what would become of the columns, convert nothing")
        ->excludes(output);
    AddMap(command);
    AddDialect(command);
    command.add_option("--precision", log.precision, "Decimals of converted values")
        ->type_name("N")
        ->check(CLI::Range(0, 99));
    command.add_option("--on-error", log.onError, "What to do with a cell that is no number")
        ->check(CLI::IsMember({"keep", "blank", "fail"}))
        ->capture_default_str();
    command.add_option("--jobs", log.jobs, "Threads that convert")
        ->type_name("N")
        ->check(CLI::Range(1, 256))
        ->capture_default_str();
  }

  CLI::Option* AddOutDir(CLI::App& command) {
    return command
        .add_option("--out-dir", log.outDir, "Folder to write each log to, under its own name")
        ->type_name("DIR");
  }

  void AddMap(CLI::App& command) {
    command
        .add_option("--map", log.map,
                    "NAME=UNIT[:TARGET][:DECIMALS]: the unit of a column, and the one to convert "
                    "it into")
        ->type_name("ENTRY")
        ->allow_extra_args(false);
    command.add_option("--map-file", log.mapFiles, "File of such entries, one a line")
        ->type_name("FILE")
        ->allow_extra_args(false);
  }

  void AddDialect(CLI::App& command) {
    command.add_option("--delimiter", log.delimiter, "Character between cells, or tab")
        ->type_name("CHAR");
    CLI::Option* comma = command.add_flag("--decimal-comma", log.decimalComma,
                                          "The decimal sign of the log is the comma");
    command.add_flag("--decimal-point", log.decimalPoint, "It is the point")->excludes(comma);
    command.add_flag("--units-row", log.unitsRow, "The line behind the heading holds the units");
    command.add_option("--preamble", log.preamble, "Lines before the heading")
        ->type_name("N")
        ->check(CLI::Range(0, 100'000));
    command.add_option("--encoding", log.encoding, "Character set of the log")
        ->check(CLI::IsMember({"utf-8", "iso-8859-1"}));
  }

  void AddMonitors() {
    CLI::App& command = Add("monitors", "Show the monitors of a text file",
                            [this] { return RunMonitors(monitors, terminal); });
    AddUnitSystems(command, monitors.systems);
    command
        .add_option(
            "FILE", monitors.file,
            "Lines of tab-separated title, units, lower limit, upper limit, precision, value")
        ->required();
  }

  void AddShow() {
    CLI::App& command = Add("show", "Show readings as a driver would see them",
                            [this] { return RunShow(show, terminal); });
    AddUnitSystems(command, show.systems);
    command.add_option("DATAUNIT=VALUE", show.readings,
                       "Readings; from standard input, one a line, if none are given");
  }

  void AddUnits() {
    AddData(Add("units", "List the source units and what each converts into",
                [this] { return RunUnits(units, terminal); }),
            units.data);
  }

  void AddCheck() {
    CLI::App& command =
        Add("check", "Find the mistakes in the data", [this] { return RunCheck(check, terminal); });
    CLI::Option* data = AddData(command, check.data);
    command.add_option("DIR", check.data.named, "The same as --data DIR")
        ->type_name("")
        ->excludes(data);
    command.add_option("--name", check.base, "Base name of the association files; all if none")
        ->type_name("BASE");
    command.add_option("--samples", check.samples, "Known values; samples.tsv of the data if none")
        ->type_name("FILE");
    command.add_option("--format", check.format, "How to tell what was found")
        ->check(CLI::IsMember({"text", "json", "sarif"}))
        ->capture_default_str();
    command.add_flag("--strict", check.strict, "Count warnings as errors");
    command.add_flag("--all", check.all, "Tell what only follows and what is accepted, too");
    command
        .add_option("--allow", check.allowed, "Accept what the rule finds, or finds of the unit")
        ->type_name("RULE[:UNIT]")
        ->allow_extra_args(false);
    command.add_option("--explain", check.explain, "Explain a rule instead")->type_name("RULE");
  }

  void AddGraph() {
    AddData(Add("graph", "Print the conversions as a Graphviz document",
                [this] { return RunGraph(graph); }),
            graph.data);
  }

  void AddHelp() {
    CLI::App& command = *app.add_subcommand("help", "Print help, for a command if one is named");
    command.add_option("COMMAND", explained, "The command to explain");
    command.callback([this] {
      const CLI::App& named = explained.empty() ? app : Named(explained);
      chosen = [this, &named] { return PrintHelp(named); };
    });
  }

  const CLI::App& Named(const std::string& name) const {
    for (const CLI::App* command : app.get_subcommands(nullptr)) {
      if (command->get_name() == name) {
        return *command;
      }
    }
    throw CLI::ParseError(DescribeUnknownCommand(app, name), CLI::ExitCodes::ExtrasError);
  }

  int PrintHelp(const CLI::App& command) const {
    const std::string title = app.get_name() + (explained.empty() ? "" : ' ' + explained);
    std::cout << app.get_formatter()->make_help(&command, title, CLI::AppFormatMode::Normal);
    return 0;
  }

  const Charset& terminal;
  CLI::App app{"Converts vehicle and engine values between units"};
  std::function<int()> chosen;
  ConvertOptions convert;
  LogCommandOptions log;
  MonitorsOptions monitors;
  ShowOptions show;
  UnitsOptions units;
  CheckOptions check;
  GraphOptions graph;
  std::string explained;
};

}  // namespace

int RunCommandLine(int argc, char** argv, const Charset& terminal) {
  return CommandLine(terminal).Run(argc, argv);
}

// Makes one call of the library, or of the bare containers, many times over:
//
//     hot-calls NAME COUNT
//     hot-calls            lists the names
//
// The difference between two counts, less that of "nothing", is what the calls cost.

#include <cstdio>
#include <functional>
#include <map>
#include <string>

#include "DataSet.h"
#include "RunProgram.h"

namespace {

const std::string kKpa = "PRESSURE_KPA";
const std::string kPsi = "psi";
const std::string kMpg = "EFFICIENCY_MPG";
const std::string kConsumption = "L/100km";
const std::string kUnknown = "PRESSURE_UNKNOWN";

using Call = std::function<void(bench::DataSet&)>;

template <typename Value>
Call Engine(const std::string& from, const std::string& to) {
  return [&from, &to](bench::DataSet& set) {
    Value value = 12.5;
    set.engine.ConvertUnit(from, to, value);
  };
}

template <typename Value>
Call Display(const std::string& unit) {
  return [&unit](bench::DataSet& set) {
    Value value = 12.5;
    set.display.ConvertUnit(unit, value);
  };
}

template <typename Value>
Call Bare(const std::string& from, const std::string& to) {
  return [&from, &to](bench::DataSet& set) {
    Value value = 12.5;
    bare::ConvertUnit(set.bare, from, to, value);
  };
}

const std::map<std::string, Call> kCallsByName{
    {"nothing", [](bench::DataSet&) {}},
    {"slope-int", Engine<double>(kKpa, kPsi)},
    {"slope-int-bare", Bare<double>(kKpa, kPsi)},
    {"slope-int-float", Engine<float>(kKpa, kPsi)},
    {"slope-int-float-bare", Bare<float>(kKpa, kPsi)},
    {"expression", Engine<double>(kMpg, kConsumption)},
    {"expression-bare", Bare<double>(kMpg, kConsumption)},
    {"expression-float", Engine<float>(kMpg, kConsumption)},
    {"expression-float-bare", Bare<float>(kMpg, kConsumption)},
    {"miss-source", Engine<double>(kUnknown, kPsi)},
    {"miss-source-bare", Bare<double>(kUnknown, kPsi)},
    {"miss-target", Engine<double>(kKpa, kUnknown)},
    {"miss-target-bare", Bare<double>(kKpa, kUnknown)},
    {"display", Display<double>(kKpa)},
    {"display-bare",
     [](bench::DataSet& set) {
       double value = 12.5;
       bare::DisplayUnit(set.bare, kKpa, value);
     }},
    {"display-float", Display<float>(kKpa)},
    {"display-back",
     [](bench::DataSet& set) {
       double value = 12.5;
       set.display.UnConvertUnit(kKpa, value);
     }},
    {"display-back-bare",
     [](bench::DataSet& set) {
       double value = 12.5;
       bare::UndisplayUnit(set.bare, kKpa, value);
     }},
    {"display-miss", Display<double>(kUnknown)},
    {"label", [](bench::DataSet& set) { set.display.GetActiveLabelForUnit(kKpa); }},
    {"label-bare", [](bench::DataSet& set) { bare::Label(set.bare, kKpa); }},
};

// Of calls that take so few instructions, those that set up a value would be a third: it stands
// where a host's does.
template <typename Value>
Call Kept(const bench::DataSet& set, const std::string& from, const std::string& to) {
  return [conversion = bench::Keep(set, {from, to}), value = Value(12.5)](bench::DataSet&) mutable {
    conversion.Convert(value);
  };
}

// What a gauge shows: the value and the label beside it.
Call KeptDisplay(const bench::DataSet& set) {
  return [display = set.display.FindDisplay(kKpa), value = 12.5](bench::DataSet&) mutable {
    display.toDisplay.Convert(value);
    [[maybe_unused]] const char* volatile shown = display.label.c_str();
  };
}

// An expression that was compiled before, with nothing but its evaluation.
Call KeptExpressionBare(const bench::DataSet& set) {
  const auto& record = set.bare.conversions.find(kMpg)->second->at(kConsumption);
  return [expression = record->expression](bench::DataSet&) {
    expression->val = 12.5;
    expression->parser.Eval();
  };
}

std::map<std::string, Call> MakeCalls(const bench::DataSet& set) {
  std::map<std::string, Call> calls{
      {"kept-slope-int", Kept<double>(set, kKpa, kPsi)},
      {"kept-slope-int-float", Kept<float>(set, kKpa, kPsi)},
      {"kept-expression", Kept<double>(set, kMpg, kConsumption)},
      {"kept-expression-bare", KeptExpressionBare(set)},
      {"kept-display", KeptDisplay(set)},
  };
  calls.insert(kCallsByName.begin(), kCallsByName.end());
  return calls;
}

int Run(int argc, char** argv) {
  bench::DataSet& set = bench::GetDataSet("shipped");
  const std::map<std::string, Call> calls = MakeCalls(set);
  if (argc == 1) {
    for (const auto& [name, call] : calls) {
      std::puts(name.c_str());
    }
    return 0;
  }
  if (argc != 3) {
    std::fputs("usage: hot-calls [NAME COUNT]\n", stderr);
    return 2;
  }
  const Call& call = calls.at(argv[1]);
  for (int i = std::stoi(argv[2]); i > 0; --i) {
    call(set);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) { return bench::RunProgram("hot-calls", Run, argc, argv); }

#include "check/CheckSamples.h"

#include <cmath>
#include <cstdlib>
#include <exception>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "check/Formula.h"
#include "check/MissingConversions.h"
#include "text/Numbers.h"
#include "text/WithoutBlanks.h"
#include "util/Text.h"

namespace check {

namespace {

using model::Sample;

constexpr std::pair<Sample::Field Sample::*, const char*> kFields[] = {
    {&Sample::from, "unit to convert from"}, {&Sample::value, "value"},
    {&Sample::to, "unit to convert into"},   {&Sample::expected, "known value"},
    {&Sample::tolerance, "tolerance"},       {&Sample::source, "source"},
};

struct Numbers {
  double value;
  double expected;
  double tolerance;
};

bool IsBlank(const std::string& text) { return text.find_first_not_of(" \t") == text.npos; }

std::string Bare(const std::string& text) { return std::string(WithoutBlanks(text, " ")); }

bool HasAllFields(const Sample& sample, Findings& findings) {
  for (const auto& [field, name] : kFields) {
    if (IsBlank((sample.*field).text)) {
      findings.Add((sample.*field).place, kBadSample, std::string("there is no ") + name);
      return false;
    }
  }
  if (!IsBlank(sample.rest.text)) {
    findings.Add(sample.rest.place, kBadSample,
                 "there is more behind the source: " + util::Quoted(sample.rest.text));
    return false;
  }
  return true;
}

std::optional<double> ReadNumber(const Sample::Field& field, const std::string& name,
                                 Findings& findings) {
  const auto number = ParseNumber(field.text);
  if (!number) {
    findings.Add(field.place, kBadSample,
                 "the " + name + " is not a number: " + util::Quoted(field.text));
  }
  return number;
}

std::optional<Numbers> ReadNumbers(const Sample& sample, Findings& findings) {
  const auto value = ReadNumber(sample.value, "value", findings);
  const auto expected = ReadNumber(sample.expected, "known value", findings);
  const auto tolerance = ReadNumber(sample.tolerance, "tolerance", findings);
  if (!value || !expected || !tolerance) {
    return std::nullopt;
  }
  if (*tolerance < 0) {
    findings.Add(sample.tolerance.place, kBadSample,
                 "the tolerance is below 0: " + util::Quoted(sample.tolerance.text));
    return std::nullopt;
  }
  return Numbers{*value, *expected, *tolerance};
}

bool Fits(double result, const Numbers& numbers) {
  return std::abs(result - numbers.expected) <= numbers.tolerance;
}

// In as few digits as show that it does not fit.
std::string FormatResult(double result, const Numbers& numbers) {
  for (int digits = 6; digits < 17; ++digits) {
    std::string text = FormatNumber(result, digits);
    if (!Fits(std::strtod(text.c_str(), nullptr), numbers)) {
      return text;
    }
  }
  return FormatNumber(result);
}

// By how much the result is wrong, where a share of the known value tells more than both numbers.
std::string DescribeError(double result, const Numbers& numbers) {
  const double scale = std::abs(numbers.expected);
  if (!(std::abs(result - numbers.expected) < 10 * scale)) {
    return "";
  }
  const double error = (result - numbers.expected) / scale;
  const double percent = 100 * std::abs(error);
  return " (" + (percent < 100 ? FormatNumber(percent, 2) : std::to_string(std::lround(percent))) +
         " % too " + (error > 0 ? "great)" : "small)");
}

class Judge {
 public:
  Judge(const model::Model& model, Findings& findings)
      : file(*model.conversionFile),
        conversions(model.definitions.conversions),
        findings(findings),
        missing(conversions) {}

  void Check(const Sample& sample) {
    if (!HasAllFields(sample, findings)) {
      return;
    }
    const auto numbers = ReadNumbers(sample, findings);
    if (!numbers || file.root == nullptr) {
      return;
    }
    if (const auto* conversion = conversions.Find(sample.from.text, sample.to.text)) {
      Compare(sample, *numbers, *conversion);
    } else {
      ReportMissing(sample);
    }
  }

 private:
  void Compare(const Sample& sample, const Numbers& numbers, const model::Conversion& conversion) {
    double result = 0;
    try {
      result = evaluator.Apply(*conversion.record, numbers.value);
    } catch (const std::exception&) {
      return;
    }
    if (Fits(result, numbers)) {
      return;
    }
    const std::string& from = sample.from.text;
    const std::string& to = sample.to.text;
    const std::string shown = std::isnan(result) ? "no number in" : FormatResult(result, numbers);
    findings.Add(file.At(*conversion.element), kKnownValueDiffers,
                 Bare(sample.value.text) + ' ' + from + " gives " + shown + ' ' + to + ", not " +
                     Bare(sample.expected.text) + DescribeError(result, numbers) +
                     "; the known value stands at " + ToMessage(sample.from.place) +
                     ", source: " + Bare(sample.source.text),
                 {from, to});
  }

  void ReportMissing(const Sample& sample) {
    const std::string& from = sample.from.text;
    const std::string& to = sample.to.text;
    findings.Add((missing.Converts(from) ? sample.to : sample.from).place, kNoSuchConversion,
                 missing.Describe(from, to), {from, to});
  }

  const model::File& file;
  const model::Conversions& conversions;
  Findings& findings;
  Evaluator evaluator;
  MissingConversions missing;
};

}  // namespace

void CheckSamples(const model::Model& model, Findings& findings) {
  if (!model.samples) {
    return;
  }
  if (model.samples->all.empty()) {
    findings.Add({model.samples->path}, kBadSample, "there is no known value in the file");
  }
  Judge judge(model, findings);
  for (const Sample& sample : model.samples->all) {
    judge.Check(sample);
  }
}

}  // namespace check

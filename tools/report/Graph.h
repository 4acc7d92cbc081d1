#pragma once

#include <ostream>
#include <vector>

#include "check/Findings.h"
#include "model/Conversions.h"

namespace report {

/// Writes the conversions as a Graphviz document in UTF-8: one cluster for each connected group of
/// units, one edge for a conversion or for the two of a pair, labelled with its formula. One-way
/// conversions are orange, what a finding is about is red and tells it in its tooltip.
void WriteGraph(std::ostream& stream, const model::Conversions& conversions,
                const std::vector<check::Finding>& findings);

}  // namespace report

#pragma once

#include <memory>
#include <vector>

#include "../units/ConvMonitor.h"
#include "../util/Export.h"
#include "host/LineItem.h"

namespace units {

/// Replaces `monitors` by one new monitor for each usable line of `lines`, in their order.
///
/// The fields of a line are title, units, lower limit, upper limit and precision; further ones are
/// ignored. A field is blank when it is exactly one space. A line is skipped, without a word, when
/// one of the first four fields is missing or one of title and limits is blank; blank units are
/// empty units, a blank or missing precision is 0. The index of a monitor is the position of its
/// line in `lines`, counted from 0 over all lines.
///
/// Limits are read by `strtof` and the precision by `strtol` to the base 10: leading white space is
/// skipped, the longest valid beginning counts, and a text without one is 0. A precision beyond the
/// range of `int` is taken at the end of that range. The decimal sign of `strtof` is that of the C
/// locale that the host has set: "0,5" is 0 or 0.5 by the host's choice.
///
///     std::vector<LineItem> lines{{1, {"Boost", "PRESSURE_KPA", "-15", "30", "1"}},
///                                 {2, {"Boost", "PRESSURE_KPA", " ", "30"}}};   // skipped
///     std::vector<std::shared_ptr<units::ConvMonitor>> monitors;
///     units::parse_monitors(&lines, monitors);   // one monitor
///
/// With `lines` null or empty, `monitors` stays as it was. Throws only `std::bad_alloc`; `monitors`
/// is then empty or holds one entry for each line, those not filled yet null. Takes no lock: nobody
/// else may use either list meanwhile.
VEHICLE_UNITS_EXPORT void parse_monitors(std::vector<LineItem>* lines,
                                         std::vector<std::shared_ptr<ConvMonitor>>& monitors);

}  // namespace units

"""Prints the table of ratios of a run of the benchmarks: times.py JSON..."""
import json
import statistics
import sys
from collections import defaultdict

GOALS = {"slope-int": 1.05, "display": 1.10, "expression": 1.25}
KEPT_GOALS = {
    "kept slope-int/UDUNITS-2": 1.0,
    "kept slope-int float/UDUNITS-2": 0.8,
    "kept array/UDUNITS-2/1,000": 0.45,
    "kept array/UDUNITS-2/100,000": 0.55,
    "kept array/UDUNITS-2/10,000,000": 1.1,
    "kept array/memcpy/100,000": 1.2,
    "kept array/memcpy/10,000,000": 1.0,
    "kept display/by name": 0.07,
    "kept expression/by name": 0.6,
}
THREADS_GOAL = 1.9


def read(paths):
    """The nanoseconds of each benchmark's repetitions, per item where one call takes many."""
    runs = []
    for path in paths:
        with open(path) as file:
            runs += sorted(json.load(file)["benchmarks"], key=lambda run: run["family_index"])
    times = defaultdict(list)
    for run in runs:
        if run["run_type"] == "iteration":
            name = run["name"].split("/repeats")[0]
            scale = {"ns": 1, "us": 1e3, "ms": 1e6}[run["time_unit"]]
            time = run["real_time" if "real_time" in name else "cpu_time"]
            times[name].append(time * scale / run.get("items", 1))
    return times


def ratio_row(label, times, bare, library, goal=None):
    low, high = min(times[bare]), min(times[library])
    medians = statistics.median(times[library]) / statistics.median(times[bare])
    verdict = "" if goal is None else f"  goal {goal:.2f}: {'met' if high <= goal * low else 'missed'}"
    print(f"{label:40}{low:11.2f}{high:11.2f}{high / low:9.3f}{medians:9.3f}{verdict}")


def header(title, bare, library):
    print(f"\n{title:40}{bare:>11}{library:>11}{'min/min':>9}{'medians':>9}")


def print_calls(times):
    header("ns for a call, the least", "bare", "library")
    for name in times:
        what, who, *where = name.split("/")
        if who == "bare" and where and what != "start":
            goal = GOALS.get(what) if where == ["shipped", "hot"] else None
            ratio_row(" ".join([what, *where]), times, name, name.replace("/bare/", "/library/"),
                      goal)


def print_kept(times):
    header("ns for a value by a kept conversion", "other", "kept")
    for name, goal in KEPT_GOALS.items():
        what, other, *count = name.split("/")
        ratio_row(" ".join([what[5:], *count]) + ", beside " + other, times, name,
                  "/".join([what, "library", *count]), goal)


def print_peers(times):
    header("ns for a conversion by a peer", "library", "peer")
    for which in ("hot", "mix"):
        ratio_row(f"UDUNITS-2 by name, beside display, {which}", times,
                  f"display/library/shipped/{which}", f"peer/UDUNITS-2 by name/own/{which}")


def print_threads(times):
    print(f"\n{'ns of wall clock for a conversion':40}{'1 thread':>11}{'2':>11}{'4':>9}{'1 / 2':>9}")
    for name in times:
        if name.startswith("threads") and name.endswith("threads:1"):
            what, _, _, units, *_ = name.split("/")
            one, two, four = (min(times[name[:-1] + count]) for count in "124")
            verdict = (f"  goal {THREADS_GOAL:.2f}: {'met' if one >= THREADS_GOAL * two else 'missed'}"
                       if units == "one kept" else "")
            print(f"{what[8:] + ', ' + units:40}{one:11.2f}{two:11.2f}{four:9.2f}{one / two:9.2f}"
                  + verdict)


def print_loads(times):
    header("ns to load a definition, the least", "TinyXML", "library")
    for name in times:
        if name.startswith("load/TinyXML"):
            ratio_row(name.split("/")[2] + " units", times, name,
                      name.replace("/TinyXML/", "/library/"), 1.3)
    small, large = (min(times[f"load/library/{size}"]) for size in ("100", "100,000"))
    print(f"a definition of 100,000 takes {large / small:.2f} times that of 100 (goal 1.70)")


def print_rest(times):
    numbered, realistic = (min(times[f"names/library/100,000{kind}/mix"])
                           for kind in (" numbered", ""))
    print(f"\n100,000 numbered names: {numbered:.0f} ns a conversion; realistic: {realistic:.0f} ns")
    for lines in ("100", "10,000"):
        print(f"parse_monitors of {lines} lines: "
              f"{min(times[f'parse_monitors/library/{lines}']):.0f} ns a line")
    bare, library = (min(t) for name, t in times.items() if name.startswith("start/"))
    print(f"start of a process: {bare / 1e3:.0f} us with TinyXML and muParser, "
          f"{library / 1e3:.0f} us with the library too")


def main(*paths):
    times = read(paths)
    for part in (print_calls, print_kept, print_peers, print_threads, print_loads, print_rest):
        part(times)


main(*sys.argv[1:])

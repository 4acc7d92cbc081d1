"""Prints the table of ratios of a run of the benchmarks: times.py JSON..."""
import json
import statistics
import sys
from collections import defaultdict

GOALS = {"slope-int": 1.05, "display": 1.10, "expression": 1.15}


def read(paths):
    """The nanoseconds of each benchmark's repetitions, per definition where it has many."""
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
            times[name].append(time * scale / run.get("definitions", 1))
    return times


def ratio_row(label, times, bare, library, goal=None):
    low, high = min(times[bare]), min(times[library])
    medians = statistics.median(times[library]) / statistics.median(times[bare])
    verdict = "" if goal is None else f"  goal {goal:.2f}: {'met' if high <= goal * low else 'missed'}"
    print(f"{label:40}{low:11.1f}{high:11.1f}{high / low:9.3f}{medians:9.3f}{verdict}")


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


def print_peers(times):
    header("ns for a conversion by a peer", "library", "peer")
    for which in ("hot", "mix"):
        for peer in ("UDUNITS-2 by name", "UDUNITS-2 kept"):
            ratio_row(f"{peer}, beside display, {which}", times, f"display/library/shipped/{which}",
                      f"peer/{peer}/own/{which}")


def print_threads(times):
    print(f"\n{'ns of wall clock for a conversion':40}{'1 thread':>11}{'2':>11}{'4':>9}")
    for name in times:
        if name.startswith("threads") and name.endswith("threads:1"):
            what, _, _, units, *_ = name.split("/")
            least = [min(times[name[:-1] + count]) for count in "124"]
            print(f"{what[8:] + ', ' + units:40}{least[0]:11.1f}{least[1]:11.1f}{least[2]:9.1f}")


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
    for part in (print_calls, print_peers, print_threads, print_loads, print_rest):
        part(times)


main(*sys.argv[1:])

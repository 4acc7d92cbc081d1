"""Prints what the first load in a process takes for each definition of four targets.

    memory.py JSON FOOTPRINT...
"""
import json
import subprocess
import sys

RUNS = 3


def measure(program, who, count):
    runs = []
    for _ in range(RUNS):
        run = subprocess.run([*program, who, str(count)], stdout=subprocess.PIPE, text=True,
                             check=True)
        runs.append([int(figure) for figure in run.stdout.split()])
    heap, peak, time = map(min, zip(*runs))
    return {"who": who, "definitions": count, "heap": heap, "peak": peak, "ns": time}


def main(output, *program):
    rows = [measure(program, who, count)
            for count in (10000, 100000) for who in ("TinyXML", "bare", "library")]
    with open(output, "w") as file:
        json.dump(rows, file, indent=2)
    print(f"{'first load, per definition':28}{'heap held':>11}{'peak':>9}{'ns':>9}")
    for row in rows:
        print(f"{row['definitions']:>9,} units, {row['who']:11}"
              f"{row['heap']:>11}{row['peak']:>9}{row['ns']:>9}")


main(*sys.argv[1:])

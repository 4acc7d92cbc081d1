"""Measures the program beside others and prints the table of ratios.

    program.py PROGRAM NUMBERS-ONLY FOLDER

What it needs and what comes out stands in FOLDER."""
import csv
import math
import os
import random
import shutil
import subprocess
import sys
import time
from contextlib import ExitStack
from itertools import islice

HERE = os.path.dirname(os.path.abspath(__file__))
DATA = os.path.join(HERE, "..", "data")
ROWS = 1_000_000
UDUNITS_ROWS = 100_000  # it is slow
REPETITIONS = 10
PANDAS_REPETITIONS = 3

LOG = {  # the columns of the log, with the values that they may have
    "Time": None,
    "Coolant [TEMP_CEL]": (70, 105, 1),
    "Intake air [TEMP_CEL]": (-20, 60, 1),
    "Oil [TEMP_CEL]": (60, 130, 1),
    "Boost [PRESSURE_KPA]": (20, 260, 2),
    "Oil pressure [PRESSURE_KPA]": (90, 600, 1),
    "Fuel rail [PRESSURE_BAR]": (200, 1800, 1),
    "Speed [SPEED_KPH]": (0, 180, 2),
    "Torque [TORQUE_NM]": (0, 480, 1),
    "Fuel use [EFFICIENCY_L_PER_100KM]": (3, 30, 2),
    "Mean fuel use [EFFICIENCY_KML]": (5, 20, 2),
    "Gear": (1, 6, 0),
}


def make_lines(path, rows, ending):
    rng = random.Random(1)
    with open(path, "w") as file:
        file.writelines(f"{rng.uniform(-40, 140):.2f}{ending}\n" for _ in range(rows))


def make_log(path):
    rng = random.Random(2)
    with open(path, "w") as file:
        print(*LOG, sep=",", file=file)
        for number in range(ROWS):
            values = (f"{rng.uniform(low, high):.{decimals}f}"
                      for low, high, decimals in filter(None, LOG.values()))
            print(f"{number / 100:.2f}", *values, sep=",", file=file)


def make_large_log(path, log, size):
    """A log of at least `size` bytes, which repeats the rows of another."""
    with open(path, "wb") as file, open(log, "rb") as rows:
        file.write(rows.readline())
        start = rows.tell()
        while file.tell() < size:
            rows.seek(start)
            shutil.copyfileobj(rows, file)


def measure(command, source=os.devnull, target=os.devnull):
    """Seconds of wall clock, seconds of processor time and the most memory in MB, of one run."""
    with ExitStack() as stack:
        stdin = stack.enter_context(open(source))
        stdout = stack.enter_context(open(target, "w"))
        start = time.perf_counter()
        process = subprocess.Popen(command, stdin=stdin, stdout=stdout)
        _, status, usage = os.wait4(process.pid, 0)
        wall = time.perf_counter() - start
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"{' '.join(command)}: status {process.returncode}")
    return wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def least(runs):
    return [min(figures) for figures in zip(*runs)]


def verdict(ratio, goal, at_most=False):
    return f"  goal {goal:g}: {'met' if (ratio <= goal if at_most else ratio >= goal) else 'missed'}"


def header(title, *columns):
    print(f"\n{title:44}" + "".join(f"{column:>12}" for column in columns))


def row(label, *figures, judged=""):
    print(f"{label:44}" + "".join(f"{figure:>12}" for figure in figures) + judged)


def compare_convert(program, folder):
    ours, theirs = (os.path.join(folder, name) for name in ("lines.txt", "udunits.txt"))
    make_lines(ours, ROWS, "")
    make_lines(theirs, UDUNITS_ROWS, " degC")
    runs = [(measure([program, "convert", "--data", DATA, "TEMP_CEL", "°F"], ours),
             measure(["udunits2", "-W", "degF"], theirs)) for _ in range(REPETITIONS)]
    (_, own, _), (_, other, _) = map(least, zip(*runs))
    rate, other_rate = ROWS / own / 1e6, UDUNITS_ROWS / other / 1e6
    header("convert, million lines a second and core", "udunits2", "program", "ratio")
    row("°C into °F", f"{other_rate:.3f}", f"{rate:.2f}", f"{rate / other_rate:.1f}",
        judged=verdict(rate / other_rate, 10))
    row("the same, alone", "", f"{rate:.2f}", "", judged=verdict(rate, 4))


def check_same(path, other):
    """Exits where the first rows of two logs do not hold the same headings and numbers."""
    with open(path) as file, open(other) as other_file:
        for number, rows in enumerate(islice(zip(csv.reader(file), csv.reader(other_file)), 1000)):
            same = rows[0] == rows[1] if number == 0 else all(
                math.isclose(float(a), float(b), rel_tol=1e-12) for a, b in zip(*rows))
            if not same:
                sys.exit(f"{path} and {other} differ in line {number + 1}")


def compare_log(program, numbers_only, folder):
    log, own, other = (os.path.join(folder, name) for name in ("log.csv", "own.csv", "other.csv"))
    make_log(log)
    convert = [program, "log", log, "-o", own, "--data", DATA, "--system", "std", "--jobs"]
    pandas = least(measure(["/usr/bin/python3", os.path.join(HERE, "pandas_log.py"), log, other])
                   for _ in range(PANDAS_REPETITIONS))
    runs = [(measure([*convert, "1"]), measure([*convert, "2"]),
             measure([numbers_only], log, os.path.join(folder, "floor.csv")))
            for _ in range(REPETITIONS)]
    check_same(own, other)
    one, two, floor = map(least, zip(*runs))
    megabytes = os.path.getsize(log) / 1e6

    header(f"log, 1,000,000 rows, {megabytes:.0f} MB, seconds", "other", "program", "ratio")
    row("processor time, beside pandas", f"{pandas[1]:.2f}", f"{one[1]:.2f}",
        f"{pandas[1] / one[1]:.1f}", judged=verdict(pandas[1] / one[1], 5))
    row("processor time, beside the numbers alone", f"{floor[1]:.2f}", f"{one[1]:.2f}",
        f"{one[1] / floor[1]:.2f}", judged=verdict(one[1] / floor[1], 2.5, at_most=True))
    row("wall clock, two jobs beside one", f"{one[0]:.2f}", f"{two[0]:.2f}",
        f"{one[0] / two[0]:.2f}", judged=verdict(one[0] / two[0], 1.7))


def measure_memory(program, folder):
    log, large = (os.path.join(folder, name) for name in ("log.csv", "large.csv"))
    make_large_log(large, log, 1e9)
    convert = [program, "log", large, "--data", DATA, "--system", "std", "--jobs"]
    header("the most memory, MB", "program")
    for jobs in ("1", "2"):  # a process starts with what this one has taken
        memory = measure([*convert, jobs])[2]
        row(f"log of 1 GB, --jobs {jobs}", f"{memory:.1f}", judged=verdict(memory, 64, at_most=True))
    os.remove(large)


def main(program, numbers_only, folder):
    os.makedirs(folder, exist_ok=True)
    compare_convert(program, folder)
    compare_log(program, numbers_only, folder)
    measure_memory(program, folder)
    print(f"\nthe machine's load at the end: {os.getloadavg()[0]:.1f} of {os.cpu_count()} processors")


main(*sys.argv[1:])

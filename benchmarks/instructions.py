"""Counts the instructions of each call that hot-calls knows.

    instructions.py [--record | --armhf] PROGRAM

The cost of one call is the difference between two runs, less that of no call at all. Prints each
call beside the bare look-ups; without an option also beside the recorded count, and fails when a
count is more than 5 %, and more than two instructions, above it: how a call of ten is laid out
moves it by one or two. --record writes the counts down. --armhf counts in the emulator.
"""
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

RECORDED = Path(__file__).with_name("instructions.txt")
TOLERANCE = 1.05
LEAST_RISE = 3
CALLS = 5000

CALLGRIND = ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null"]
QEMU = ["qemu-arm", "-L", "build/armhf/sysroot"]


def total(command, name, count):
    run = subprocess.run([*command, name, str(count)], stderr=subprocess.PIPE, text=True, check=True)
    return int(re.search(r"(?:Collected|instructions) ?: (\d+)", run.stderr)[1])


def count_all(program, armhf):
    plain = QEMU if armhf else []
    listing = subprocess.run([*plain, program], stdout=subprocess.PIPE, text=True, check=True)
    names = listing.stdout.split()
    count = [*QEMU, "-plugin", "build/armhf-bench/qemu_count.so"] if armhf else CALLGRIND
    command = [*count, program]

    def one(name):
        return (total(command, name, 2 * CALLS) - total(command, name, CALLS)) / CALLS

    with ThreadPoolExecutor(os.cpu_count()) as pool:
        counts = dict(zip(names, pool.map(one, names)))
    nothing = counts.pop("nothing")
    return {name: round(each - nothing) for name, each in counts.items()}


def read_recorded():
    lines = RECORDED.read_text().splitlines()
    return {name: int(number) for name, number in map(str.split, lines)}


def print_table(counts, recorded):
    print(f"{'instructions of one call':26}{'library':>9}{'bare':>9}{'ratio':>8}"
          + (f"{'recorded':>10}" if recorded else ""))
    for name, number in counts.items():
        if name.endswith("-bare"):
            continue
        bare = counts.get(name + "-bare")
        beside = f"{bare:9}{number / bare:8.2f}" if bare else " " * 17
        print(f"{name:26}{number:9}{beside}" + (f"{recorded[name]:10}" if recorded else ""))


def main(arguments):
    option = arguments[0] if len(arguments) == 2 else ""
    if len(arguments) not in (1, 2) or option not in ("", "--record", "--armhf"):
        sys.exit(__doc__)
    counts = count_all(arguments[-1], option == "--armhf")
    library = {name: number for name, number in counts.items() if not name.endswith("-bare")}
    if option == "--record":
        RECORDED.write_text("".join(f"{name} {number}\n" for name, number in library.items()))
    recorded = {} if option == "--armhf" else read_recorded()
    if recorded and recorded.keys() != library.keys():
        sys.exit(f"{RECORDED}: not the calls that are counted; record them anew")
    print_table(counts, recorded)
    risen = [name for name, before in recorded.items()
             if library[name] > TOLERANCE * before and library[name] >= before + LEAST_RISE]
    if risen:
        sys.exit("more than 5 % above the recorded count: " + ", ".join(risen))


main(sys.argv[1:])

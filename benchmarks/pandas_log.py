"""Converts the log of benchmarks/program.py by pandas: pandas_log.py IN OUT"""
import sys

import pandas

COLUMNS = {
    "TEMP_CEL": ("°F", lambda x: 1.8 * x + 32),
    "PRESSURE_KPA": ("psi", lambda x: 0.14503773773020922 * x),
    "PRESSURE_BAR": ("psi", lambda x: 14.503773773020922 * x),
    "SPEED_KPH": ("mph", lambda x: 0.62137119223733397 * x),
    "TORQUE_NM": ("ft-lb", lambda x: 0.73756214927726536 * x),
    "EFFICIENCY_L_PER_100KM": ("mpg (US)", lambda x: 235.21458333333333 / x),
    "EFFICIENCY_KML": ("mpg (US)", lambda x: 2.3521458333333333 * x),
}


def main(source, target):
    log = pandas.read_csv(source)
    headings = {}
    for heading in log.columns:
        unit = heading.partition("[")[2].rstrip("]")
        if unit in COLUMNS:
            label, convert = COLUMNS[unit]
            log[heading] = convert(log[heading])
            headings[heading] = heading.replace(unit, label)
    log.rename(columns=headings).to_csv(target, index=False)


main(*sys.argv[1:])

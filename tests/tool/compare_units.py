#!/usr/bin/env python3
"""Compares the names and factors of "kyr units KIND" with what GNU units makes of these names.

argument: the program kyr
"""
import os
import re
import shutil
import subprocess
import sys

KYR = sys.argv[1]
# The internal unit of each kind; temperatures are functions there, compared at one reading.
INTERNAL = {
    "LENGTH": "mm", "TEMPERATURE": "tempC", "ANGLE": "radian", "TIME": "s", "STRAIN": "percent",
    "PRESSURE": "MPa", "SHUTTER": "s", "VELOCITY": "mm/s", "ACCELERATION": "mm/s^2",
    "STRAIN_VELOCITY": "percent/s", "STRAIN_ACCELERATION": "percent/s^2", "AREA": "mm^2",
    "VOLUME": "mm^3", "FRACTION": "1", "CURVATURE": "1/mm", "ANGLE_VELOCITY": "degree/s",
    "ANGLE_ACCELERATION": "degree/s^2", "TEMPERATURE_DIFFERENCE": "degC"}
FAHRENHEIT, CELSIUS, KELVIN, REAUMUR = "tempF", "tempC", "tempK", "tempreaumur"
# Names that GNU units has not, or for something else, as F for farads.
TRANSLATED = {
    "TEMPERATURE": {
        "°F": FAHRENHEIT, "F": FAHRENHEIT, "fahrenheit": FAHRENHEIT, "degfahrenheit": FAHRENHEIT,
        "gradfahrenheit": FAHRENHEIT, "°C": CELSIUS, "C": CELSIUS, "celsius": CELSIUS,
        "degcelsius": CELSIUS, "gradcelsius": CELSIUS, "K": KELVIN, "kelvin": KELVIN,
        "°R": REAUMUR, "degRe": REAUMUR, "reaumur": REAUMUR},
    "TEMPERATURE_DIFFERENCE": {
        "°C": "degC", "C": "degC", "celsius": "degC", "°F": "degF", "F": "degF",
        "fahrenheit": "degF", "°R": "degreaumur"},
    "LENGTH": {"'": "foot", '"': "inch", "''": "inch"},
    "ANGLE": {"grad": "gon", "gradian": "gon", "gradians": "gon"},
    "": {"rad": "radian", "mrad": "milliradian", "urad": "microradian", "zoll": "inch",
         "zentimeter": "cm", "dezimeter": "dm", "ccm": "cm^3", "h": "hour",
         "permille": "1|1000", "‰": "1|1000", "%": "percent", "microstrain": "ppm",
         "ustrain": "ppm", "sqin": "in^2", "sqft": "ft^2"}}
# The catalogue's own factors, which files rely on.
GIVEN = {"mile/h": 447.04166666666669, "mph": 447.04166666666669, "mi/h": 447.04166666666669,
         "g": 9810.0}


def rows(kind):
    """Name, factor and offset of each."""
    text = subprocess.run([KYR, "units", kind], check=True, capture_output=True, text=True).stdout
    for line in text.splitlines():
        columns = re.match(r"(\S.*?)\s{2,}\S.*?\s{2,}(\S+)\s{2,}(\S+)", line)
        if columns and columns[2][0].isdigit():
            yield columns[1], float(columns[2]), float(columns[3])


def expression(kind, name):
    for table in (TRANSLATED.get(kind, {}), TRANSLATED[""]):
        if name in table:
            return table[name]
    parts = [TRANSLATED[""].get(part, part) for part in re.split(r"(?<=\w)/|(?<=[%‰])/", name)]
    powers = [re.sub(r"(?<=[a-z])(-?\d)$", r"^\1", part) for part in parts]
    return "/".join(powers).replace("²", "^2").replace("³", "^3")


def foreign(kind, name):
    """One of the unit in the internal unit; None for what is no unit of this kind there."""
    unit, internal = expression(kind, name), INTERNAL[kind]
    unit = f"{unit}(1)" if kind == "TEMPERATURE" else f"1 {unit}"
    ended = subprocess.run(["units", "--terse", "--strict", "-o", "%.15g", "--", unit, internal],
                           capture_output=True, text=True)
    try:
        return float(ended.stdout)
    except ValueError:
        return None


def main():
    if not shutil.which("units"):
        print("skipped: there is no GNU units")
        return 77
    os.environ["LC_ALL"] = "C.UTF-8"
    compared, wrong = 0, []
    for kind in INTERNAL:
        for name, factor, offset in rows(kind):
            expected = GIVEN.get(name) or foreign(kind, name)
            value = (1 - offset) * factor
            compared += 1
            if expected is None or abs(value - expected) > 1e-9 * abs(expected):
                wrong.append(f"{kind}: 1 {name} is {value:.12g}, elsewhere {expected}")
    print("\n".join(wrong))
    print(f"{compared} names compared")
    return 1 if wrong or compared < 200 else 0


sys.exit(main())

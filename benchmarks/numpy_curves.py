#!/usr/bin/python3
"""Corrects strings to standard test conditions with numpy, and prints the seconds that it takes.

    numpy_curves.py blaesser|iec60891|anderson FILE

FILE has the points of one string in each line, as curve files hold them. They are decoded beforehand; the
time is that of one walk over all strings, the median of several walks.
"""

import statistics
import sys
import time

import numpy

READINGS = {"irradiance": "896.5", "cell": "43.2", "ambient": "19.8", "isc": "7.71", "voc": "602.5"}
SETTINGS = {"alpha": "0.004", "beta": "-0.15", "delta": "0.085", "a": "0.06", "b": "-0.004",
            "K": "0.00125", "Rs": "0.35"}
WALKS = 15


def numbers():
    """The texts of a string, parsed as each string needs them anew."""
    return ({name: float(text) for name, text in READINGS.items()},
            {name: float(text) for name, text in SETTINGS.items()})


def blaesser(V, I, g):
    readings, s = numbers()
    dT = 25 - readings["ambient"]
    G = readings["irradiance"]
    cI = (dT * s["alpha"] / readings["isc"] + 1) * 1000 / G
    cV = numpy.log(1000 / G) * s["a"] + s["b"] * dT
    I2 = cI * I
    return (I - I2) * s["Rs"] + cV * readings["voc"] + V, I2


def iec60891(V, I, g):
    readings, s = numbers()
    dT = 25 - readings["cell"]
    I2 = I + s["alpha"] * dT + g / g[0] * I[0] * (1000 / g - 1)
    return V + s["beta"] * dT - s["Rs"] * (I2 - I) - s["K"] * I2 * dT, I2


def anderson(V, I, g):
    readings, s = numbers()
    dT = readings["cell"] - 25
    f = (dT * s["alpha"] / (1000 / g * I[0]) + 1) * g / 1000
    h = (s["delta"] * numpy.log(g / 1000) + 1) * (dT * s["beta"] / V.max() + 1)
    return V / h, I / f


def read(path):
    strings = []
    with open(path, encoding="ascii") as lines:
        for line in lines:
            points = numpy.array([[float(value) for value in point.split(":")[:3]]
                                  for point in line.strip().split("#")])
            strings.append(tuple(numpy.ascontiguousarray(column) for column in points.T))
    return strings


def main(method, path):
    correct = {"blaesser": blaesser, "iec60891": iec60891, "anderson": anderson}[method]
    strings = read(path)
    times = []
    for _ in range(WALKS):
        begin = time.perf_counter()
        corrected = [correct(*string) for string in strings]
        times.append(time.perf_counter() - begin)
    assert all(len(V) == len(I) > 0 for V, I in corrected)
    print(statistics.median(times))


if __name__ == "__main__":
    main(*sys.argv[1:])

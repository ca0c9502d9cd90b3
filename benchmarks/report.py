#!/usr/bin/env python3
"""Prints the ratios that matter from the JSON that catalog-benchmarks wrote: python3 report.py FILE..."""
import json
import sys

MEDIANS = {}
for name in sys.argv[1:]:
    for run in json.load(open(name, encoding="utf-8"))["benchmarks"]:
        if run.get("aggregate_name") == "median":
            scale = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3}[run["time_unit"]]
            key = "real_time" if "real_time" in run["run_name"] else "cpu_time"
            MEDIANS[run["run_name"]] = run[key] * scale

TEN = "10000000"
RATIOS = [
    ("whole load / bare pass", f"loadCatalog/{TEN}", f"barePass/{TEN}", 1),
    ("reading / bare pass", f"readFile/{TEN}", f"barePass/{TEN}", 1),
    ("pugixml and tree / whole load", f"pugixmlCatalog/{TEN}", f"loadCatalog/{TEN}", 1),
    ("libxml2 SAX and tree / whole load", f"libxml2SaxCatalog/{TEN}", f"loadCatalog/{TEN}", 1),
    ("load with log / whole load", f"loadCatalogWithLog/{TEN}", f"loadCatalog/{TEN}", 1),
    ("document tree / whole load", f"domCatalog/{TEN}", f"loadCatalog/{TEN}", 1),
    ("first fields / whole load", f"firstFields/{TEN}", f"loadCatalog/{TEN}", 1),
    ("end of a catalog / whole load", f"endOfCatalog/{TEN}", f"loadCatalog/{TEN}", 1),
    ("check / whole load", f"checkCatalog/{TEN}", f"loadCatalog/{TEN}", 1),
    ("check / bare pass", f"checkCatalog/{TEN}", f"barePass/{TEN}", 1),
    ("100 MB check / ten 10 MB checks", "checkCatalog/100000000", f"checkCatalog/{TEN}", 10),
    ("pugixml parse / bare pass", f"pugixmlParse/{TEN}", f"barePass/{TEN}", 1),
    ("expat pass / bare pass", f"expatPass/{TEN}", f"barePass/{TEN}", 1),
    ("libxml2 pass / bare pass", f"libxml2ReaderPass/{TEN}", f"barePass/{TEN}", 1),
    ("100 MB load / ten 10 MB loads", "loadCatalog/100000000", f"loadCatalog/{TEN}", 10),
    ("10 MB load / ten 1 MB loads", f"loadCatalog/{TEN}", "loadCatalog/1000000", 10),
]
print("\nRatios of medians:")
for title, above, below, divisor in RATIOS:
    if above in MEDIANS and below in MEDIANS:
        print(f"  {title:<34} {MEDIANS[above] / MEDIANS[below] / divisor:6.2f}")

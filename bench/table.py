#!/usr/bin/env python3
"""Prints what the benchmarks measured as a table: medians, ratios to what they are compared with, growth.

    table.py RESULT.json...

Growth is the exponent g of time ~ panels^g, by least squares over the sizes.
"""
import json
import math
import sys

# question, what it is compared with, and what is to be reached: the highest ratio, the highest growth above that of
# the comparison (or, with nothing to compare with, the highest growth at all).
ROWS = [
    ("frame to panel, warm", "floor: two searches", 4, 0.15),
    ("frame to panel, cold", "floor: two searches", 8, 0.15),
    ("frame to panel, warm", "MLT: frame to clip", None, None),
    ("panel by id", "floor: hash", 4, None),
    ("next panel", "floor: counted copy", 20, 0.15),
    ("previous panel", "floor: counted copy", 20, 0.15),
    ("full walk", None, None, 1.15),
    ("full walk", "MLT: full walk", None, None),
    ("shot by name", None, None, None),
    ("panels of a shot, transitions", "panels of a shot", 2, 0.15),
    ("counterpart in a shot, transitions", "counterpart in a shot", 2, 0.15),
    ("roll and query", None, None, 0.15),
    ("roll and query", "MLT: roll and query", None, None),
    ("roll and query after a walk", None, None, None),
    ("count after an edit", None, None, None),
    ("open", "floor: XML pass", 4, None),
    ("save", "open", 1, None),
    ("open, records filled", "floor: XML pass, records filled", 6, None),
    ("save, records filled", "floor: XML writing, records filled", 4, None),
    ("insert captions", None, None, None),
    ("reserve captions", None, None, 1.25),
]
MEMORY = [("memory", 4096), ("memory, records filled", 6144)]


def read(paths):
    """Medians by name and size; the counter bytes_per_panel likewise."""
    times, memory = {}, {}
    for path in paths:
        with open(path, encoding="utf-8") as file:
            for run in json.load(file)["benchmarks"]:
                if run.get("aggregate_name") != "median":
                    continue
                name, size = run["run_name"].split("/")[:2]
                times.setdefault(name, {})[int(size)] = run["cpu_time"] * SCALE[run["time_unit"]]
                if "bytes_per_panel" in run:
                    memory.setdefault(name, {})[int(size)] = run["bytes_per_panel"]
    return times, memory


SCALE = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def time_text(nanoseconds):
    for unit, scale in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= scale:
            return f"{nanoseconds / scale:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def growth(by_size):
    points = [(math.log(size), math.log(value)) for size, value in by_size.items() if value > 0]
    if len(points) < 2:
        return None
    middle = sum(x for x, _ in points) / len(points)
    spread = sum((x - middle) ** 2 for x, _ in points)
    return sum((x - middle) * y for x, y in points) / spread


def verdict(ok):
    return "" if ok is None else ("yes" if ok else "NO")


def row(question, other, most, most_growth, times, sizes):
    mine, theirs = times.get(question), times.get(other)
    if not mine or (other and not theirs):
        return None
    ratios = {size: mine[size] / theirs[size] for size in mine if theirs and size in theirs}
    grows, floor_grows = growth(mine), growth(theirs) if theirs else 0.0
    ok = None
    if most is not None:
        ok = all(ratio <= most for ratio in ratios.values())
    if most_growth is not None and grows is not None:
        ok = ok is not False and grows - floor_grows <= most_growth
    goal = "" if most is None else f"<= {most}x"
    if most_growth is not None:
        goal += f"{', ' if goal else ''}growth <= {'floor + ' if other else ''}{most_growth}"
    return ([question] + [time_text(mine[size]) if size in mine else "" for size in sizes] + ["" if grows is None else f"{grows:.2f}"]
            + [other or ""] + ["/".join(f"{ratios[size]:.3g}" for size in sorted(ratios))]
            + ["" if not theirs or floor_grows is None else f"{floor_grows:.2f}", goal, verdict(ok)])


def main(paths):
    times, memory = read(paths)
    sizes = sorted({size for by_size in times.values() for size in by_size})
    rows = [["question"] + [f"{size:,}" for size in sizes]
            + ["growth", "compared with", "ratios", "its growth", "to reach", "reached"]]
    rows += filter(None, (row(*wanted, times, sizes) for wanted in ROWS))
    for name, most in MEMORY:
        used = memory.get(name, {})
        if used:
            rows.append([name] + [f"{used[size]:.0f} B" if size in used else "" for size in sizes]
                        + ["", "", "", "", f"<= {most} B a panel", verdict(all(v <= most for v in used.values()))])
    widths = [max(len(line[column]) for line in rows) for column in range(len(rows[0]))]
    for line in rows:
        print("  ".join(text.ljust(width) for text, width in zip(line, widths)).rstrip())
    if not any(name.startswith("MLT:") for name in times):
        print("MLT (libmlt-dev) was not there to compare with: its rows are missing.")


main(sys.argv[1:])

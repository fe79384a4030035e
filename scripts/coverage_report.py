#!/usr/bin/env python3
"""Holds a measured coverage to the bar, and to the list of branches that are known not to run.

    scripts/coverage_report.py COVERAGE.json KNOWN.md

The list is a table with a row for each line: file, the line as it stands, why no test gets there.
A line of code is named by its text, because line numbers move with every change.
"""

import collections
import json
import pathlib
import sys

LINES, BRANCHES = 99.0, 95.0
ROOT = pathlib.Path(__file__).resolve().parent.parent


def known(path):
    rows = set()
    if not path.exists():
        return rows
    for line in path.read_text().splitlines():
        cells = [cell.strip() for cell in line.replace("\\|", "\0").strip("|").split("|")]
        if line.startswith("| `src/") and len(cells) >= 3:
            rows.add((cells[0].strip("`"), cells[1].strip("`").replace("\0", "|")))
    return rows


def measure(report):
    totals, missing = collections.Counter(), []
    for file in report["files"]:
        source = (ROOT / file["file"]).read_text().splitlines()
        for line in file["lines"]:
            if line.get("gcovr/noncode"):
                continue
            branches = [b["count"] for b in line.get("branches", [])]
            totals["lines"] += 1
            totals["lines run"] += line["count"] > 0
            totals["branches"] += len(branches)
            totals["branches run"] += sum(count > 0 for count in branches)
            if line["count"] == 0 or 0 in branches:
                number = line["line_number"]
                missing.append((file["file"], number, source[number - 1].strip()))
    return totals, missing


def main():
    report = json.loads(pathlib.Path(sys.argv[1]).read_text())
    listed = known(pathlib.Path(sys.argv[2]))
    totals, missing = measure(report)
    lines = 100 * totals["lines run"] / max(1, totals["lines"])
    branches = 100 * totals["branches run"] / max(1, totals["branches"])
    print(f"lines {totals['lines run']} of {totals['lines']}: {lines:.2f} % (at least {LINES:.0f} %)")
    print(f"branches {totals['branches run']} of {totals['branches']}: {branches:.2f} % "
          f"(at least {BRANCHES:.0f} %)")

    seen = {(file, text) for file, _, text in missing}
    new = sorted({row for row in missing if (row[0], row[2]) not in listed})
    for file, number, text in new:
        print(f"no test gets everywhere in {file}:{number}: {text}")
    for file, text in sorted(listed - seen):
        print(f"{sys.argv[2]} lists what the tests do reach: {file}: {text}")
    return int(lines < LINES or branches < BRANCHES or bool(new) or bool(listed - seen))


if __name__ == "__main__":
    sys.exit(main())

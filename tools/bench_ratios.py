#!/usr/bin/env python3
"""Prints the ratio table of a benchmark run: peer time / our time.

Reads Google Benchmark JSON (file argument or stdin). Benchmark names are
`<row>/<impl>/<WxH>`; impl `tav` is ours, anything else a peer. A ratio above
1.0 means we are faster.
"""
import json
import sys
from collections import defaultdict


def main():
    data = json.load(open(sys.argv[1]) if len(sys.argv) > 1 else sys.stdin)
    times = defaultdict(dict)  # (row, size) -> impl -> real time
    for b in data["benchmarks"]:
        if b.get("run_type") == "aggregate" and b.get("aggregate_name") != "median":
            continue
        parts = b["run_name"].split("/") if "run_name" in b else b["name"].split("/")
        if parts and parts[-1] in ("real_time", "process_time"):
            parts = parts[:-1]  # UseRealTime() appends this to the name
        if len(parts) < 3:
            continue
        row, impl, size = "/".join(parts[:-2]), parts[-2], parts[-1].split("/")[0]
        times[(row, size)][impl] = b["real_time"]
    rows = []
    for (row, size), t in sorted(times.items()):
        ours = t.get("tav")
        for impl, peer in sorted(t.items()):
            if impl == "tav":
                continue
            rows.append((row, size, impl, f"{peer / ours:.2f}" if ours else "-"))
        if len(t) == 1 and ours:
            rows.append((row, size, "(no peer)", "-"))
    w = [max(len(r[i]) for r in rows + [("row", "size", "peer", "ratio")]) for i in range(4)]
    print(f"{'row':<{w[0]}}  {'size':<{w[1]}}  {'peer':<{w[2]}}  ratio (peer time / our time)")
    for r in rows:
        print(f"{r[0]:<{w[0]}}  {r[1]:<{w[1]}}  {r[2]:<{w[2]}}  {r[3]}")


if __name__ == "__main__":
    main()

#!/usr/bin/env bash
# Builds the benchmarks with the peers installed and prints the ratio table.
# Usage: tools/bench.sh [benchmark filter regex]
set -euo pipefail
cd "$(dirname "$0")/.."
if ! dpkg -s libopencv-dev >/dev/null 2>&1; then
  echo "installing the peer library (libopencv-dev)..."
  (apt-get install -y libopencv-dev || { apt-get update && apt-get install -y libopencv-dev; }) >/dev/null
fi
cmake --preset release >/dev/null
cmake --build --preset release --target tav_bench
out=build/release/bench/results.json
./build/release/bench/tav_bench --benchmark_filter="${1:-.}" --benchmark_repetitions=3 \
  --benchmark_min_time=0.1 --benchmark_format=json --benchmark_out="$out" --benchmark_out_format=json >/dev/null
python3 tools/bench_ratios.py "$out"

#!/usr/bin/env bash
# smoke.sh PROGRAM: runs each benchmark once, at its first size, and where one has a gap below 0 at the first such too.
set -euo pipefail
first=$("$1" --benchmark_list_tests=true | awk -F/ '!seen[$1, $3 < 0]++' | paste -sd '|')
"$1" --benchmark_min_time=0 --benchmark_filter="^($first)\$"

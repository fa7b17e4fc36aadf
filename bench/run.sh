#!/bin/sh
# Builds all benchmarks, runs each five times in turns, and prints the table of bars.txt: medians of
# CPU time, each with its floor from the same run. Fails when a bar does not hold or was not
# measured. On a machine that does nothing else it takes about ten minutes.
#
#   bench/run.sh [RUNS]
set -eu
cd "$(dirname "$0")/.."
runs=${1:-5}
packaging/install-packages.sh >&2
cmake --preset release >&2
cmake --build --preset release >&2

export QT_QPA_PLATFORM=offscreen
folder=$PWD/build/release/bench
export XDG_DATA_HOME="$folder/home" XDG_CONFIG_HOME="$folder/home" XDG_CACHE_HOME="$folder/home"
mkdir -p "$XDG_DATA_HOME"
figures=$folder/figures.csv
: > "$figures"

# Programs with a loop of their own print "... N % of one core".
shares="bench_mfascreens bench_screens"
for program in "$folder"/*/bench_*; do
    [ -f "$program" ] && [ -x "$program" ] || continue
    name=$(basename "$program")
    echo "running $name" >&2
    case " $shares " in
        *" $name "*)
            for run in $(seq "$runs"); do "$program" 10; done |
                sed -n 's/.*[:] \([0-9.]*\) % of one core.*/\1/p' | sort -n |
                awk -v name="$name" '{ all[NR] = $1 } END { print name "," all[int((NR + 1) / 2)] }' \
                    >> "$figures"
            ;;
        *)
            "$program" --benchmark_repetitions="$runs" --benchmark_report_aggregates_only=true \
                --benchmark_enable_random_interleaving=true --benchmark_format=csv 2>> "$folder/errors.log" |
                sed -n 's/^"\(.*\)_median",[^,]*,[^,]*,\([^,]*\),\([a-z]*\).*/\1,\2,\3/p' >> "$figures"
            ;;
    esac
done

awk -f bench/table.awk "$figures" bench/bars.txt

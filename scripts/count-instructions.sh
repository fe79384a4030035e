#!/usr/bin/env bash
# Counts instructions per operation at two sizes and checks how they grow; called by bench.sh.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

compare=$1
small=${2:-10000}
large=${3:-100000}
results=$root/build/bench/instructions
command -v valgrind >/dev/null || die "valgrind is needed to count instructions"

count_at()
{
    rm -rf "${results:?}/$1"
    mkdir -p "$results/$1"
    (cd "$results/$1" && valgrind --tool=callgrind --instr-atstart=no "$compare" --instructions \
        --count "$1" >valgrind.log 2>&1) || die "callgrind failed: see $results/$1/valgrind.log"
}

# One line for each dump: name, tab, instructions per unit.
read_counts()
{
    awk '
        FNR == 1 { name = "" }
        /^desc: Trigger: Client Request: / { sub(/^desc: Trigger: Client Request: /, ""); name = $0 }
        /^totals: / && name != "" {
            split(name, part, "/")
            printf "%s\t%.0f\n", part[1], $2 / part[2]
            name = ""
        }' "$results/$1"/callgrind.out.*
}

# How each operation may grow: cost ~ n^exponent.
report()
{
    awk -F '\t' -v small="$small" -v large="$large" '
        BEGIN {
            allowed["recolor one"] = allowed["recolor two far apart"] = 0.10
            allowed["drag a hub"] = allowed["topmost at a point"] = 0.10
            allowed["figures in 200 x 200"] = 0.10
            allowed["move 1000"] = 0.15
            allowed["remove one with its lines"] = 0.30
            allowed["build"] = allowed["scroll by 16"] = 0.05
            printf "%-28s %14s %14s %9s %8s\n", "instructions", small, large, "exponent", "at most"
        }
        NR == FNR { before[$1] = $2; next }
        {
            exponent = log($2 / before[$1]) / log(large / small)
            limit = ($1 in allowed) ? allowed[$1] : ""
            bad = limit != "" && exponent > limit
            failed += bad
            printf "%-28s %14d %14d %9.3f %8s%s\n", $1, before[$1], $2, exponent, limit,
                   bad ? "  TOO MUCH" : ""
        }
        END { exit failed > 0 }
    ' <(read_counts "$small") <(read_counts "$large")
}

count_at "$small"
count_at "$large"
report

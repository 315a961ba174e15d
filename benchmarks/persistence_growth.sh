#!/bin/sh
# How instruction counts of writing and reading grow with the number of elements, counted by callgrind.
#
# persistence_growth.sh PATH-TO-persistence_growth
set -eu
program=$1

# Instructions of one act alone: those of the run less those of preparing it.
count() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$program" "$1" "$2" "$3" 2>&1 |
        sed -n 's/.*Collected : //p'
}

# grow SHAPE SMALL LARGE
grow() {
    base="$(count "$1" "$2" nothing) $(count "$1" "$3" nothing)"
    for act in write read; do
        echo "$1 $act $2 $3 $base $(count "$1" "$2" "$act") $(count "$1" "$3" "$act")" | awk '{
            small = $7 - $5; large = $8 - $6
            printf "%-9s %-6s %9d %9d %13d %13d %9.3f\n", $1, $2, $3, $4, small, large,
                   log(large / small) / log($4 / $3)
        }'
    done
}

printf '%-9s %-6s %9s %9s %13s %13s %9s\n' shape act small large 'of small' 'of large' exponent
for shape in usual axis; do
    grow $shape 100 1000
    grow $shape 1000 20000
done
# A segment orders its set with every formula that it takes.
grow segments 100 1000
grow segments 1000 4000

#!/bin/sh
# How instruction counts grow with the number of values, counted by callgrind: the exponent from 100 to 10 000.
#
# order_growth.sh PATH-TO-order_growth
set -eu
program=$1

# Instructions of one act alone: those of the run less those of building the set.
count() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$program" "$1" "$2" "$3" 2>&1 |
        sed -n 's/.*Collected : //p'
}

printf '%-10s %-8s %14s %14s %14s %9s\n' shape act 100 1000 10000 exponent
for shape in wide chain random links followers pieces; do
    base=''
    for values in 100 1000 10000; do base="$base $(count "$shape" "$values" nothing)"; done
    for act in order store ask under destroy; do
        counts=''
        for values in 100 1000 10000; do counts="$counts $(count "$shape" "$values" "$act")"; done
        echo "$shape $act $base $counts" | awk '{
            small = $6 - $3; middle = $7 - $4; large = $8 - $5
            printf "%-10s %-8s %14d %14d %14d %9.3f\n", $1, $2, small, middle, large,
                   log(large / small) / log(100)
        }'
    done
done

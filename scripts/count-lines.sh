#!/bin/bash
# Counts lines of code, neither blank nor comment, and what share of all of them is tests.
set -euo pipefail

cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

# code_lines PATH...: in the *.cpp and *.h there.
code_lines() {
    git ls-files -z --cached --others --exclude-standard -- "$@" |
        grep -z -E '\.(cpp|h)$' |
        xargs -0 awk '
            FNR == 1 { inside = 0 }
            {
                line = $0
                if (inside) {
                    if (line !~ /\*\//) next
                    sub(/^.*\*\//, "", line)
                    inside = 0
                }
                gsub(/\/\*[^*]*\*\//, "", line)
                if (line ~ /^[ \t]*\/\*/) { inside = 1; next }
                if (line ~ /^[ \t]*(\/\/|$)/) next
                ++count
            }
            END { print count + 0 }'
}

product=$(code_lines app serial history recording views tracking importexport)
tests=$(code_lines tests fuzz)
everything=$(code_lines .)
for folder in app serial history recording views tracking importexport simulator tests fuzz benchmarks docs resources; do
    printf '    %-14s %6d\n' "$folder" "$(code_lines "$folder")"
done
printf 'product         %8d\n' "$product"
printf 'tests and fuzz  %8d  %d.%d %% of everything\n' "$tests" $((tests * 1000 / everything / 10)) \
    $((tests * 1000 / everything % 10))
printf 'everything      %8d\n' "$everything"

#!/bin/bash
# Checks the sources, with the time of each stage: format, one build with asserts and sanitizers,
# clang-tidy on what changed, and all tests, among them the layers and the fuzzers' corpus. With
# --all it also builds every target with g++, runs clang-tidy on everything, the fuzzers for a while
# and the benchmarks' short form. Ends with the summary and the exit status of ctest.
set -euo pipefail

all=
for option in "$@"; do
    case "$option" in
    --all) all=yes ;;
    *)
        echo "Usage: test.sh [--all]" >&2
        exit 2
        ;;
    esac
done

cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")"
source scripts/packages.sh

fuzz_seconds=60 # each target
source_folders=(app benchmarks docs fuzz history importexport recording resources serial simulator tests
    tracking views)

# stage NAME COMMAND...: runs it and prints the time it took.
stage() {
    local name=$1 begin=$SECONDS
    shift
    echo "== $name"
    "$@"
    echo "== $name: $((SECONDS - begin)) s"
}

# sources PATTERN...: the files of that kind that people write, the build trees' generated ones
# stay out.
sources() {
    find "${source_folders[@]}" \( -name "$1" -o -name "${2:-$1}" \) -print
}
check_format() { sources '*.cpp' '*.h' | xargs clang-format --dry-run -Werror; }

# changed_sources: the sources that differ from where this branch left main or, on main itself, from
# the last commit but one; uncommitted and new ones included. A header stands for one source that
# includes it. Without a history it is all of them.
changed_sources() {
    local base
    base=$(git merge-base HEAD main 2>/dev/null || true)
    if [ -z "$base" ] || [ "$base" = "$(git rev-parse HEAD)" ]; then
        base=HEAD~1
    fi
    if ! git rev-parse --quiet --verify "$base^{commit}" >/dev/null; then
        sources '*.cpp'
        return
    fi
    local file
    { git diff --name-only --diff-filter=d "$base" && git ls-files --others --exclude-standard; } |
        while read -r file; do
            case "$file" in
            *.cpp) echo "$file" ;;
            *.h)
                if [ -e "${file%.h}.cpp" ]; then
                    echo "${file%.h}.cpp"
                else
                    { git grep -l -E "#include \"(.*/)?${file##*/}\"" -- '*.cpp' || true; } |
                        sed -n 1p
                fi
                ;;
            esac
        done | sort -u
}

build() {
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1" "${@:2}"
}
# What clang-tidy reads includes headers that only a build makes.
build_checked() {
    if [ -n "$all" ] || grep -q -E '^(benchmarks|docs)/' <<<"$analysed"; then
        build check --target all
    else
        build check
    fi
}
# Analyses the sources with the warnings of clang-tidy, all of them errors.
analyse() {
    if [ -z "$analysed" ]; then
        echo "No source has changed."
        return
    fi
    xargs -n 1 -P "$(nproc)" clang-tidy --quiet -p build/check <<<"$analysed" 2>&1 |
        sed '/ warnings\? generated\.$/d'
}

# A ccache that is there saves most of the time; the checks do without it.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
    export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS-pch_defines,time_macros}
fi

begin=$SECONDS
stage "packages" install_missing_packages "${build_packages[@]}" "${check_packages[@]}"
if [ -n "$all" ]; then
    stage "packages of all checks" install_missing_packages "${all_check_packages[@]}"
fi
stage "format" check_format
if [ -n "$all" ]; then
    analysed=$(sources '*.cpp')
else
    analysed=$(changed_sources)
fi
stage "build with sanitizers" build_checked
stage "static analysis" analyse
if [ -n "$all" ]; then
    stage "release build of everything" build release
    stage "fuzzing" fuzz/run.sh "$fuzz_seconds"
    stage "benchmarks, short" benchmarks/short.sh
fi
echo "== all stages before the tests: $((SECONDS - begin)) s"
echo "== tests"
if [ -n "$all" ]; then
    export SNIFFER_ALL_TRIALS=yes
    export QTEST_FUNCTION_TIMEOUT=3600000 # ms; they take longer than the usual five minutes
fi
ctest --preset check --parallel "$(nproc)"

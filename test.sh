#!/bin/bash
# Builds everything and runs all checks and tests, with the time of each stage. Ends with the summary
# and the exit status of ctest. With --quick it leaves out the static analysis, the sanitizers and
# the fuzz targets: for everyday use.
set -euo pipefail

quick=
for option in "$@"; do
    case "$option" in
    --quick) quick=yes ;;
    *)
        echo "Usage: test.sh [--quick]" >&2
        exit 2
        ;;
    esac
done

cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")"
source scripts/packages.sh

fuzz_seconds=30 # each target
# The link's shortest answer window is 120 ms of real time. A shared machine that stalls for longer
# may fail a test of the link once; a fault fails it twice.
run_tests=(ctest --repeat until-pass:2 --preset)

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
    find app benchmarks docs fuzz importexport resources serial simulator tests tracking views \
        \( -name "$1" -o -name "${2:-$1}" \) -print0
}
check_format() { sources '*.cpp' '*.h' | xargs -0 clang-format --dry-run -Werror; }
build() {
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1"
}
# The catalogues hold every text of the sources, and a translation of each.
check_translations() { ctest --preset dev --tests-regex '^tst_translations$'; }
# Analyses the program's and the tests' sources with the warnings of clang-tidy, all of them errors.
analyse() {
    sources '*.cpp' |
        xargs -0 -n 1 -P "$(nproc)" clang-tidy --quiet -p build/dev 2>&1 |
        sed '/ warnings\? generated\.$/d'
}

# A ccache that is there saves most of the time; the checks do without it.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
    export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS-pch_defines,time_macros}
fi

begin=$SECONDS
stage "packages" install_missing_packages "${build_packages[@]}" "${check_packages[@]}"
stage "format" check_format
stage "build" build dev
stage "translations" check_translations
if [ -z "$quick" ]; then
    stage "static analysis" analyse
    stage "sanitizer build" build asan
    stage "sanitizer tests" "${run_tests[@]}" asan
    stage "fuzz build" build fuzz
    stage "fuzz smoke" fuzz/run.sh "$fuzz_seconds"
fi
echo "== all stages before the tests: $((SECONDS - begin)) s"
echo "== tests"
"${run_tests[@]}" dev

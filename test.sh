#!/bin/bash
# Builds everything and runs the checks and the tests. Ends with the summary and the exit status of
# ctest. With --tidy it also runs the static analysis, with --asan the tests under the sanitizers.
set -euo pipefail

run_tidy=
run_asan=
for option in "$@"; do
    case "$option" in
    --tidy) run_tidy=yes ;;
    --asan) run_asan=yes ;;
    *)
        echo "Usage: test.sh [--tidy] [--asan]" >&2
        exit 2
        ;;
    esac
done

cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")"
source scripts/packages.sh

# stage NAME COMMAND...: runs it and prints the time it took.
stage() {
    local name=$1 begin=$SECONDS
    shift
    echo "== $name"
    "$@"
    echo "== $name: $((SECONDS - begin)) s"
}

sources() {
    find app benchmarks docs importexport resources serial simulator tests tracking views \
        \( -name '*.cpp' -o -name '*.h' \) -print0
}
check_format() { sources | xargs -0 clang-format --dry-run -Werror; }
build() {
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1"
}

stage "packages" install_missing_packages "${build_packages[@]}" "${check_packages[@]}"
stage "format" check_format
if [ -n "$run_tidy" ]; then
    stage "static analysis" build tidy
fi
if [ -n "$run_asan" ]; then
    stage "sanitizer build" build asan
    stage "sanitizer tests" ctest --preset asan
fi
stage "build" build dev
echo "== tests"
ctest --preset dev

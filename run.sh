#!/bin/bash
# Builds the program and runs it on a simulated installation or, with --port, on a real port.
# It runs with settings of its own in a temporary folder; the user's stay as they are.
set -euo pipefail

usage() {
    echo "Usage: run.sh [--port NAME] [--scenario FILE.json]"
    echo "  --port NAME           use this serial port, not a simulated installation"
    echo "  --scenario FILE.json  simulate the installation in this file"
}

port=
simulator_options=()
while [ $# -gt 0 ]; do
    case "$1" in
    --port | --scenario)
        if [ $# -lt 2 ]; then
            usage >&2
            exit 2
        fi
        if [ "$1" = --port ]; then
            port=$2
        else
            simulator_options+=(--scenario "$(realpath "$2")")
        fi
        shift 2
        ;;
    -h | --help)
        usage
        exit
        ;;
    *)
        usage >&2
        exit 2
        ;;
    esac
done

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    echo "run.sh: there is no display to open the window on (DISPLAY and WAYLAND_DISPLAY are not" \
        "set). Run it from a desktop." >&2
    exit 1
fi

# The tuning file is looked for in the working directory.
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")"
source scripts/packages.sh
install_missing_packages "${build_packages[@]}"

echo "Building..."
cmake --preset release >/dev/null
cmake --build --preset release --target TavroCordexSniffer ldb-simulator translations

run_folder=$(mktemp -d)
simulator_pid=
end_run() {
    if [ -n "$simulator_pid" ]; then
        kill "$simulator_pid" 2>/dev/null || true
        wait "$simulator_pid" 2>/dev/null || true
    fi
    rm -rf "$run_folder"
}
trap end_run EXIT
trap 'exit 130' INT TERM HUP

if [ -z "$port" ]; then
    port=$run_folder/bus
    # What is typed here goes to the simulated installation.
    build/release/simulator/ldb-simulator --link "$port" ${simulator_options[@]+"${simulator_options[@]}"} <&0 &
    simulator_pid=$!
    for _ in $(seq 100); do
        if [ -e "$port" ]; then
            break
        fi
        if ! kill -0 "$simulator_pid" 2>/dev/null; then
            echo "run.sh: the simulated installation did not start" >&2
            exit 1
        fi
        sleep 0.1
    done
    echo "The simulated installation runs. Type help for the faults it can show."
fi

# The name is written as a quoted string of the settings file.
escaped_port=${port//\\/\\\\}
escaped_port=${escaped_port//\"/\\\"}
mkdir -p "$run_folder/config/Velmark"
printf '[serial]\ncomPort="%s"\n' "$escaped_port" \
    >"$run_folder/config/Velmark/Tavro Cordex Sniffer.conf"

XDG_CONFIG_HOME=$run_folder/config build/release/app/TavroCordexSniffer </dev/null

#!/bin/bash
# Builds the program and packs it: a .deb and a .tar.gz in build/release/packages.
set -euo pipefail

if [ $# -gt 0 ]; then
    echo "Usage: package.sh" >&2
    exit 2
fi

cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")"
source scripts/packages.sh
install_missing_packages "${build_packages[@]}" "${package_packages[@]}"

cmake --preset release >/dev/null
cmake --build --preset release --target packages
ls build/release/packages/*.deb build/release/packages/*.tar.gz

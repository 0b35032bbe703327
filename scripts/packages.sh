# Shared by the scripts at the root: the Debian packages that they need.

# What it takes to build and run the program.
build_packages=(
    cmake g++ ninja-build
    qtbase5-dev qttools5-dev qttools5-dev-tools qttranslations5-l10n
    libqt5serialport5-dev
    qtmultimedia5-dev libqt5multimedia5-plugins
    libqt5sql5-sqlite
    libqwt-qt5-dev
)

# What the checks of the sources take beyond that.
check_packages=(clang clang-format clang-tidy desktop-file-utils libclang-rt-dev
                poppler-utils)

# What the checks of everything take beyond those.
all_check_packages=(tshark)

# What it takes to pack the program: dpkg-shlibdeps and its helper.
package_packages=(dpkg-dev file)

# Installs those of the packages named that are missing. Says which, and asks for nothing when all
# are there.
install_missing_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "This is no Debian system; these packages are taken as installed: $*"
        return
    fi
    local package missing=()
    for package in "$@"; do
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            missing+=("$package")
        fi
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return
    fi

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Missing packages, and neither root nor sudo to install them. As root, run:" >&2
            echo "    apt-get install ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing the missing packages: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

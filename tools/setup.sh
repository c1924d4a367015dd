# Sourced by ./run, ./test and other scripts: installs missing packages on Debian 12 and 13 and Ubuntu 24.04. On other
# systems it lists what to install.

# need_packages PACKAGE...
need_packages() {
  missing=""
  for package in "$@"; do
    status=$(dpkg-query -W -f '${Status}' "$package" 2>/dev/null || true)
    [ "$status" = "install ok installed" ] || missing="$missing $package"
  done
  [ -n "$missing" ] || return 0
  if ! command -v apt-get >/dev/null 2>&1; then
    echo "This needs a Debian 12, Debian 13 or Ubuntu 24.04 system. On another one, install what these of" >&2
    echo "their packages hold and build with CMake:$missing" >&2
    exit 1
  fi
  as_root=""
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null 2>&1; then
      echo "These packages are missing; ask an administrator to install them:$missing" >&2
      exit 1
    fi
    as_root=sudo
  fi
  echo "Installing:$missing"
  log=$(mktemp)
  # shellcheck disable=SC2086 # a list of words
  if ! { $as_root apt-get update &&
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing; } >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    echo "The packages could not be installed." >&2
    exit 1
  fi
  rm -f "$log"
}

# The toolbar's pictures are drawn by a plugin, which newer systems have in a separate package.
svg_package=libqt6svg6
# shellcheck source=/dev/null
[ ! -r /etc/os-release ] || case "$(. /etc/os-release && echo "${ID:-}:${VERSION_ID:-}")" in
  debian:1[3-9]*) svg_package=qt6-svg-plugins ;;
esac

# The help is built by qhelpgenerator and shown by Qt Assistant. Both need the sqlite plugin.
help_packages="qt6-documentation-tools assistant-qt6 libqt6sql6-sqlite"

# The fonts of the printed reports.
font_packages="fonts-liberation fonts-droid-fallback"

build_packages="cmake ninja-build g++ qt6-base-dev qt6-serialport-dev $svg_package $help_packages $font_packages
  libcli11-dev nlohmann-json3-dev"
test_packages="$build_packages libgtest-dev poppler-utils postgresql libqt6sql6-psql"
package_packages="$build_packages librsvg2-bin dpkg-dev file gzip"
package_check_packages="lintian desktop-file-utils appstream"

# build PRESET [TARGET...]: configures once and builds, quietly unless it fails.
build() {
  preset=$1
  shift
  [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >/dev/null
  if [ $# -gt 0 ]; then
    cmake --build --preset "$preset" --target "$@"
  else
    cmake --build --preset "$preset"
  fi
}

# Shared by scripts/run and scripts/test: installs what is missing, then builds.
set -euo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD="$ROOT/build"
# The build with AddressSanitizer, UBSan and the readers' fuzz targets, by clang.
SANITIZE_BUILD="$ROOT/build-asan"

# Everything the project needs on a fresh Debian 12: the toolchain, Qt 6, GoogleTest, the
# fonts our pages use, the independent readers our tests check exports with (chromium,
# driven by a Python script, for the web pages), the word lists each grid language's
# default list is read from, and clang with its sanitizer and libFuzzer runtimes for the
# checking build.
PACKAGES=(
  cmake g++ ninja-build pkg-config
  qt6-base-dev qt6-svg-dev qt6-multimedia-dev qt6-qpa-plugins libqt6svg6
  qt6-tools-dev qt6-documentation-tools libxcb1-dev
  libgtest-dev libgmock-dev zlib1g-dev
  fonts-liberation2
  ghostscript libwmf-bin poppler-utils
  xvfb x11-apps imagemagick
  chromium python3
  # the word lists the word finder and autofill read
  scowl wfrench wspanish witalian wngerman wswedish wnorwegian wdanish
  # the checkers of the installed tree and of the Debian package
  file dpkg-dev lintian desktop-file-utils appstream man-db shared-mime-info
  # clang with the sanitizer and libFuzzer runtimes, for the checking build
  clang libclang-rt-14-dev
)
# Node runs the npm packages some tests read our files with; a machine may have its own.
command -v npm >/dev/null 2>&1 || PACKAGES+=(nodejs npm)

install_missing() {
  install_missing_packages
  install_npm_packages "$ROOT/tests/interchange"
}

install_missing_packages() {
  local missing=()
  for p in "${PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  local sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# A test folder's npm packages, exactly as its package-lock.json pins them; again only when
# the lock file changed since the last install.
install_npm_packages() {
  local dir="$1"
  if [ -f "$dir/node_modules/.package-lock.json" ] && [ ! "$dir/package-lock.json" -nt "$dir/node_modules/.package-lock.json" ]; then
    return 0
  fi
  echo "Installing npm packages in ${dir#"$ROOT"/}"
  (cd "$dir" && npm ci --no-audit --no-fund --loglevel=error)
}

build() {
  cmake -S "$ROOT" -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
  cmake --build "$BUILD" -j "$(nproc)"
}

# The checking build (Debug, so Q_ASSERT's range checks are on too); the targets given, or all.
build_sanitized() {
  CC=clang CXX=clang++ cmake -S "$ROOT" -B "$SANITIZE_BUILD" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
    -DQUILLMARK_SANITIZE=ON -DQUILLMARK_FUZZ=ON >/dev/null
  local targets=()
  for t in "$@"; do targets+=(--target "$t"); done
  cmake --build "$SANITIZE_BUILD" -j "$(nproc)" "${targets[@]}"
}

# Every sanitizer report ends the program with a failing exit code, and says where.
sanitizer_options() {
  export ASAN_OPTIONS="halt_on_error=1:detect_leaks=1"
  export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1"
  export LSAN_OPTIONS="suppressions=$ROOT/scripts/lsan.supp:print_suppressions=0"
}

# Sourced by run and test: installs those of the given Debian packages that are missing.
need_packages() {
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "installing: ${missing[*]}"
  local root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo > /dev/null; then
      echo "no sudo here; as root: apt-get install ${missing[*]}" >&2
      return 1
    fi
    root=(sudo)
  fi
  "${root[@]}" apt-get update -qq
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" > /dev/null
}

BUILD_PACKAGES=(g++ cmake ninja-build ccache qt6-base-dev qt6-svg-dev qt6-translations-l10n libxcb1-dev
                fonts-dejavu-core binutils-mingw-w64-x86-64)
# A screen without a display, and hands and eyes for it.
SCREEN_PACKAGES=(xvfb openbox xdotool x11-utils x11-xkb-utils xclip maim dbus-daemon at-spi2-core
                 python3-gi gir1.2-atspi-2.0 trayer)
TEST_PACKAGES=(libgtest-dev libgmock-dev clang-19 clang-tidy-19 clang-format-19 libclang-rt-19-dev
               iproute2 procps git tinyproxy-bin binutils-mingw-w64-i686)
# What builds the Debian packages and looks them over.
PACKAGE_PACKAGES=(dpkg-dev file gzip lintian desktop-file-utils appstream man-db)

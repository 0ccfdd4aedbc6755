#!/usr/bin/env bash
# Installs what Tavlero needs to build, run and test, from Debian's packages only.
# Idempotent: asks dpkg what is missing and installs only that.
set -euo pipefail

packages=(
  g++ cmake make pkg-config clang-format
  qt6-base-dev qt6-svg-dev libgl-dev
  fonts-liberation fontconfig
  xvfb xauth x11-utils xdotool time
  libgtest-dev libgmock-dev libbenchmark-dev
  libxml2-utils poppler-utils
  libgumbo-dev qt6-translations-l10n
)
if [[ "${1:-}" == "--fuzz" ]]; then
  packages+=(clang libclang-rt-14-dev)
fi

# The package, its desktop integration and a real print queue, for scripts/ci-package.sh,
# scripts/ci-print.sh and scripts/screenshot.sh.
if [[ " $* " == *" --package "* ]]; then
  packages+=(dpkg-dev file man-db desktop-file-utils xdg-utils shared-mime-info libfile-mimeinfo-perl
    libglib2.0-bin cups printer-driver-cups-pdf imagemagick)
fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
((${#missing[@]} == 0)) && exit 0

sudo=""
[[ $(id -u) -ne 0 ]] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"

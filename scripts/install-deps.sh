#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and `make run` need.
# Quiet and quick when everything is already there.
set -euo pipefail

PACKAGES=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-svg-dev qt6-webengine-dev qt6-webengine-dev-tools
  libqt6svg6 libqt6webenginecore6-bin qt6-qpa-plugins libgl-dev
  xvfb xauth fonts-dejavu-core
  poppler-utils
)

missing=()
for p in "${PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"

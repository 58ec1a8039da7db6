#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the program need.
# Does nothing when everything is already there.
set -euo pipefail
pkgs=(
  cmake ninja-build g++ make
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite qt6-qpa-plugins libgl-dev
  libbenchmark-dev libsqlite3-dev pkg-config
  fonts-wqy-microhei xvfb xauth
  # stock sheets read: .xls, .xlsx; tests make .xls sheets with python3-xlwt
  libfreexl-dev libzip-dev python3-xlwt
  # reports: .xlsx workbooks, a Song (Ming) typeface found through fontconfig
  libxlsxwriter-dev libfontconfig-dev fonts-arphic-uming
  # tests only: PDF files and workbooks read back
  poppler-utils unzip
)
missing=()
for p in "${pkgs[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
echo "Installing: ${missing[*]}"
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"

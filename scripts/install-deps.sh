#!/usr/bin/env bash
# Installs the Debian packages the build needs, only when something is missing.
# Usage: scripts/install-deps.sh [--bench] [--fuzz] [--gui] [--mpi]
#   --bench: also Google Benchmark and liblz4 (the codec benchmark's baseline), for bench/
#   --fuzz:  also clang and its runtime libraries (libFuzzer, sanitizers), for scripts/fuzz.sh
#   --gui:   also Qt 6 Widgets for longmate-gui, and Xvfb for its tests and screenshots
#   --mpi:   also Open MPI, for solve --mpi (cmake -DLONGMATE_MPI=ON)
set -euo pipefail
# gaviotatb, libgaviotatb-dev and zlib1g-dev: the oracle of the endgame-table tests only.
# librsvg2-dev and the DejaVu fonts: diagrams drawn as PNG.
packages=(cmake g++ ninja-build libgtest-dev libgmock-dev libcli11-dev libcurl4-openssl-dev
  gaviotatb libgaviotatb-dev zlib1g-dev librsvg2-dev pkg-config fonts-dejavu-core)
for option in "$@"; do
  case "$option" in
    --bench) packages+=(libbenchmark-dev liblz4-dev pkg-config) ;;
    --fuzz) packages+=(clang libclang-rt-dev) ;;
    --gui) packages+=(qt6-base-dev qt6-svg-dev qt6-l10n-tools qt6-tools-dev qt6-translations-l10n xvfb xauth
      fonts-dejavu-core) ;;
    --mpi) packages+=(libopenmpi-dev openmpi-bin) ;;
    *) echo "Unknown option: $option" >&2; exit 2 ;;
  esac
done
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
if [ "$(id -u)" -ne 0 ]; then
  echo "Missing packages: ${missing[*]} (run as root, or install them with apt-get)" >&2
  exit 1
fi
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
apt-get install -y -qq --no-install-recommends "${missing[@]}"

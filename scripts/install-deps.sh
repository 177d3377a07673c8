#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, when some are missing.
# Usage: scripts/install-deps.sh [extra packages...]   (apt-get needs root; otherwise it says what to install)
set -euo pipefail

packages=(cmake make g++ pkg-config libgtest-dev libgmock-dev libbenchmark-dev nlohmann-json3-dev libcli11-dev pybind11-dev python3-dev python3-pytest "$@")
missing=()
for pkg in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed" || missing+=("$pkg")
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -ne 0 ]; then
  echo "missing packages: ${missing[*]}; install them with: sudo apt-get install ${missing[*]}" >&2
  exit 1
fi
echo "installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
apt-get install -y -qq --no-install-recommends "${missing[@]}"

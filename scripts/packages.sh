# Sourced by run.sh, test.sh and .ci/run: what the project takes from Debian 12, by purpose.
# shellcheck shell=bash disable=SC2034  # read by name, through "${!list}"

packages_build="g++ cmake ninja-build ccache qt6-base-dev qt6-base-dev-tools libgl1-mesa-dev libsqlite3-dev
  qt6-l10n-tools qt6-translations-l10n qt6-serialport-dev qt6-multimedia-dev
  pkg-config libsamplerate0-dev libkissfft-dev libsndfile1-dev"
packages_run="libqt6widgets6 libqt6network6 libqt6serialport6 libqt6multimedia6 libhamlib-utils libsamplerate0 libkissfft-float131 qt6-qpa-plugins libsqlite3-0 fonts-dejavu-core"
packages_test="libgtest-dev libgmock-dev libbenchmark-dev minimodem"
packages_tour="xvfb xdotool openbox imagemagick python3"
packages_check="clang libclang-rt-14-dev clang-format clang-tidy shellcheck"

# need_packages PURPOSE...: installs those of the lists that are not there yet.
need_packages() {
  command -v dpkg-query >/dev/null || return 0
  local purpose list missing=()
  for purpose in "$@"; do
    list=packages_$purpose
    for package in ${!list}; do
      dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
    done
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "installing: ${missing[*]}"
  local sudo=""
  [ "$(id -u)" -eq 0 ] || sudo=sudo
  export DEBIAN_FRONTEND=noninteractive
  $sudo apt-get update -qq
  $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Sourced by ./run and ./test: installs what is missing, configures and builds the release preset.
# Packages come from the distribution; as root, or through sudo.

norvale_packages=(
  build-essential cmake ninja-build
  libgtest-dev libgmock-dev libbenchmark-dev
  nlohmann-json3-dev libcli11-dev libsqlite3-dev
  qt6-base-dev qt6-svg-dev fonts-dejavu-core
)

norvale_setup() {
  local missing=()
  local package
  for package in "${norvale_packages[@]}" "$@"; do
    dpkg-query -W -f='${Status}\n' "$package" 2>/dev/null | grep -q '^install ok installed$' || missing+=("$package")
  done
  if [ ${#missing[@]} -gt 0 ]; then
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
      command -v sudo >/dev/null || { echo "These packages are missing, and neither root nor sudo is at hand: ${missing[*]}" >&2; return 1; }
      as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
  fi
}

norvale_build() {
  cmake --preset release >build/configure.log 2>&1 || { cat build/configure.log; return 1; }
  cmake --build --preset release "$@" >build/build.log 2>&1 || { tail -n 60 build/build.log; return 1; }
}

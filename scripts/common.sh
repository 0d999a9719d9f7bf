# Shared by the scripts: quiet steps with a log behind each, and Debian packages installed when missing.
# Sourced, not run.

cd "$(dirname "${BASH_SOURCE[0]}")/.."
logs=build/logs
mkdir -p "$logs"

# The tests' libraries are among them: configuring asks for them, whatever is built.
packages_build="g++ cmake ninja-build pkg-config libplist-dev libglib2.0-dev libsdl2-dev libcli11-dev zlib1g-dev libpng-dev libjpeg-dev scdoc libgtest-dev nlohmann-json3-dev"
packages_data="dict-freedict-eng-jpn edict enamdict wordnet-base dict-wn kanjidic unifont"
packages_test="file dbus"
packages_bench="libsqlite3-dev sdcv"
packages_fuzz="clang libclang-rt-14-dev libgtest-dev"

# step WHAT COMMAND...: says what it does; the command's output goes to a log that is shown on failure.
step() {
  local what=$1 start=$SECONDS log
  shift
  log="$logs/$(tr -c 'a-zA-Z0-9\n' '-' <<<"$what").log"
  printf '%s ...' "$what"
  if "$@" >"$log" 2>&1 </dev/null; then
    printf ' done (%d s)\n' $((SECONDS - start))
  else
    local status=$?
    printf ' FAILED\n\n'
    tail -n 60 "$log"
    printf '\nThe whole log: %s\n' "$log"
    exit $status
  fi
}

# need PACKAGE...: installs the Debian packages that are missing.
need() {
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local sudo=
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
      echo "These packages are missing: ${missing[*]}"
      echo "Install them as root: apt-get install ${missing[*]}"
      exit 3
    }
    sudo=sudo
  fi
  step "Updating the package lists" $sudo apt-get update
  step "Installing ${#missing[@]} packages" \
    $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures once and builds.
build() {
  local preset=$1 target targets=()
  shift
  for target in "$@"; do targets+=(--target "$target"); done
  [ -f "build/$preset/build.ninja" ] || step "Configuring build/$preset" cmake --preset "$preset"
  step "Building build/$preset" cmake --build --preset "$preset" "${targets[@]}"
}

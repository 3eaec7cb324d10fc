# Sourced by ./run and ./test: packages, build lock, build. Needs $radice (the project's folder).

# installa GRUPPO: installs the packages of packages.txt that are missing; GRUPPO "tutti" includes
# those for tests.
installa() {
  local elenco mancanti=() pacchetto
  if [ "$1" = tutti ]; then
    elenco=$(grep -v '^#' "$radice/packages.txt")
  else
    elenco=$(sed '/^# test/,$d' "$radice/packages.txt" | grep -v '^#')
  fi
  command -v dpkg-query >/dev/null || { echo "Serve una Debian 12 (manca dpkg)." >&2; return 1; }
  for pacchetto in $elenco; do
    dpkg-query -W -f '${Status}' "$pacchetto" 2>/dev/null | grep -q 'ok installed' ||
      mancanti+=("$pacchetto")
  done
  [ ${#mancanti[@]} -eq 0 ] && return 0
  echo "Installo: ${mancanti[*]}"
  local root=()
  [ "$(id -u)" -eq 0 ] || root=(sudo)
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq &&
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
      "${mancanti[@]}" >/dev/null
}

# costruisci PRESET [TARGET ...]: configures and builds under a lock, so that two calls at once
# don't disturb each other.
costruisci() {
  local preset=$1 uscita
  shift
  local bersagli=()
  [ $# -gt 0 ] && bersagli=(--target "$@")
  mkdir -p "$radice/build"
  export CCACHE_BASEDIR=$radice CCACHE_NOHASHDIR=1
  export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
  (
    flock 9
    cd "$radice" || exit 1
    uscita=build/$preset.log
    if ! { cmake --preset "$preset" && cmake --build --preset "$preset" "${bersagli[@]}"; } \
        >"$uscita" 2>&1; then
      tail -n 60 "$uscita" >&2
      echo "La costruzione non è riuscita: $uscita" >&2
      exit 1
    fi
  ) 9>"$radice/build/.blocco-$preset"
}

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

# avanza: passes nothing on of what the build prints, but shows how far it is: one line that moves on
# a terminal, a line every tenth elsewhere.
avanza() {
  local riga fatti tutti parte prossima=0 mobile=
  [ -t 1 ] && mobile=1
  while IFS= read -r riga; do
    [[ $riga =~ ^\[([0-9]+)/([0-9]+)\] ]] || continue
    fatti=${BASH_REMATCH[1]} tutti=${BASH_REMATCH[2]}
    parte=$((100 * fatti / tutti))
    if [ -n "$mobile" ]; then
      printf '\r  costruisco: %3d%% (%d di %d)   ' "$parte" "$fatti" "$tutti"
    elif [ "$parte" -ge "$prossima" ]; then
      printf '  costruisco: %3d%% (%d di %d), %d s\n' "$parte" "$fatti" "$tutti" "$((SECONDS - inizio))"
      prossima=$((parte - parte % 10 + 10))
    fi
  done
  if [ -n "$mobile" ]; then printf '\r%50s\r' ''; fi
}

# costruisci PRESET [TARGET ...]: configures and builds under a lock, so that two calls at once
# don't disturb each other. What is printed goes to build/PRESET.log.
costruisci() {
  local preset=$1 uscita inizio=$SECONDS
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
    set -o pipefail
    if ! { cmake --preset "$preset" && cmake --build --preset "$preset" "${bersagli[@]}"; } 2>&1 |
        tee "$uscita" | avanza; then
      tail -n 60 "$uscita" >&2
      echo "La costruzione non è riuscita: $uscita" >&2
      exit 1
    fi
  ) 9>"$radice/build/.blocco-$preset"
}

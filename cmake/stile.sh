#!/usr/bin/env bash
# Formatter, linter and the style rules that matter. Files that passed the linter as they stand are
# not linted again: their digest is kept in the build folder.
set -u
radice=$1
cd "$radice" || exit 1
esito=0
mapfile -t file < <(find src tests bench -name '*.cpp' -o -name '*.h' | sort)

if ! clang-format-19 --dry-run -Werror "${file[@]}" 2>build/stile.log; then
  grep -E 'error:' build/stile.log | head -n 20
  echo "stile: clang-format-19 -i sui file qui sopra" >&2
  esito=1
fi

# The logic knows no window, and nobody prints or reads the clock but through the ports.
if grep -nE '#include <Q|#include "screens/|#include "print/' -r src/core src/ledger src/vat src/duedates \
  src/documents src/warehouse src/demo; then
  echo "stile: core e stanze non includono Qt né le finestre" >&2
  esito=1
fi
# One folder knows the engine: another one fills the same seam.
if grep -rniE 'sqlite3|sqlite_|\browid\b|"PRAGMA |COLLATE FENALTO' src --include='*.cpp' --include='*.h' \
  --exclude-dir=sqlite; then
  echo "stile: il motore si nomina solo in src/core/store/engine/sqlite" >&2
  esito=1
fi
if grep -rnE 'SQLite::SQLite3' src --include=CMakeLists.txt --exclude-dir=sqlite; then
  echo "stile: solo fenalto_sqlite si lega al motore" >&2
  esito=1
fi
if grep -rnE '\b(TODO|FIXME)\b' src tests bench; then
  echo "stile: lavoro lasciato a metà" >&2
  esito=1
fi
for f in "${file[@]}"; do
  righe=$(wc -l <"$f")
  if [ "$righe" -gt 600 ]; then
    echo "stile: $f ha $righe righe (600 al massimo): cercare la giuntura" >&2
    esito=1
  fi
done

# A unit is linted again when it, one of the project's headers that it includes, or the rules
# changed. What it includes is known from the build.
mkdir -p build/tidy
regole=$(sha256sum .clang-tidy | cut -c1-16)
declare -A somma impronta
while read -r cifre nome; do somma[$nome]=$cifre; done < <(find src -name '*.cpp' -o -name '*.h' | sort | xargs sha256sum)
while read -r unita dipendenza; do
  [ -n "${somma[$unita]:-}" ] && impronta[$unita]+=${somma[$dipendenza]:-}
done < <(ninja -C build/debug -t deps | awk '
  / #deps / { unita = "" }
  /^    / { sub(/^ *(\.\.\/)*/, ""); if (unita == "") unita = $0; print unita, $0 }' |
  grep -E '^src/.*\.cpp src/')
da_vedere=()
for unita in $(find src -name '*.cpp' | sort); do
  segno=build/tidy/$(printf '%s' "$unita ${somma[$unita]} ${impronta[$unita]:-} $regole" | sha256sum | cut -c1-40)
  [ -e "$segno" ] || da_vedere+=("$unita" "$segno")
done
if [ ${#da_vedere[@]} -gt 0 ]; then
  echo "stile: clang-tidy su $((${#da_vedere[@]} / 2)) file"
  if ! printf '%s\0' "${da_vedere[@]}" | xargs -0 -P2 -n2 bash -c '
      if clang-tidy-19 -quiet --extra-arg=-Wno-unknown-warning-option --extra-arg=-Wno-ignored-gch -p build/debug "$0" \
          >"$1.esito" 2>/dev/null; then
        touch "$1"
        rm -f "$1.esito"
      else
        grep -E "error:|warning:" "$1.esito" | head -n 12
        rm -f "$1.esito"
        exit 1
      fi'; then
    echo "stile: clang-tidy ha trovato qualcosa" >&2
    esito=1
  fi
fi
exit $esito

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
if grep -nE '#include <Q|#include "screens/|#include "print/' -r src/core src/ledger; then
  echo "stile: core e stanze non includono Qt né le finestre" >&2
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

mkdir -p build/tidy
regole=$(sha256sum .clang-tidy | cut -c1-16)
# A unit is linted again when it, a header of the project or the rules changed.
testate=$(find src tests bench -name '*.h' -print0 | sort -z | xargs -0 sha256sum | sha256sum | cut -c1-16)
da_vedere=()
while read -r unita; do
  impronta=build/tidy/$(sha256sum "$unita" | cut -c1-32)-$testate-$regole
  [ -e "$impronta" ] || da_vedere+=("$unita")
done < <(find src -name '*.cpp' | sort)
if [ ${#da_vedere[@]} -gt 0 ]; then
  echo "stile: clang-tidy su ${#da_vedere[@]} file"
  export testate regole
  if ! printf '%s\0' "${da_vedere[@]}" | xargs -0 -P2 -n1 bash -c '
      if clang-tidy-19 -quiet --extra-arg=-Wno-unknown-warning-option -p build/debug "$0" >"build/tidy/esito.$$" 2>/dev/null; then
        touch "build/tidy/$(sha256sum "$0" | cut -c1-32)-$testate-$regole"
        rm -f "build/tidy/esito.$$"
      else
        grep -E "error:|warning:" "build/tidy/esito.$$" | head -n 12
        rm -f "build/tidy/esito.$$"
        exit 1
      fi'; then
    echo "stile: clang-tidy ha trovato qualcosa" >&2
    esito=1
  fi
fi
exit $esito

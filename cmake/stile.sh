#!/usr/bin/env bash
# Formatter, the style rules that matter, and the linter: stile.sh FOLDER [--lint]. The linter looks
# at what changed, for five minutes at most (FENALTO_LINT_SECONDI); with --lint at everything, however
# long it takes.
set -u
cd "$1" || exit 1
lint=(--secondi "${FENALTO_LINT_SECONDI:-300}")
[ "${2:-}" = --lint ] && lint=(--tutto)
esito=0
mkdir -p build
mapfile -t file < <(find src tests bench -name '*.cpp' -o -name '*.h' | sort)

if ! clang-format-19 --dry-run -Werror "${file[@]}" 2>build/stile.log; then
  grep -E 'error:' build/stile.log | head -n 20
  echo "stile: clang-format-19 -i sui file qui sopra" >&2
  esito=1
fi

# The logic knows no window, and nobody prints or reads the clock but through the ports: of the
# folders of src, these alone speak to the toolkit.
mapfile -t logica < <(find src -mindepth 1 -maxdepth 1 -type d | grep -vE '^src/(app|print|screens)$')
if grep -rnE '#include <Q|#include "(screens|print)/' "${logica[@]}"; then
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
if ! python3 cmake/nomi.py src tests; then
  echo "stile: funzioni troppo lunghe o nomi doppi, qui sopra" >&2
  esito=1
fi

# The linter reads each file by itself, so it has a configuration of its own; nothing is built there.
if ! cmake --preset debug -B build/lint -DFENALTO_UNITY=OFF >build/lint.log 2>&1; then
  tail -n 20 build/lint.log >&2
  esito=1
elif ! python3 cmake/lint.py build/lint "${lint[@]}"; then
  echo "stile: clang-tidy ha trovato qualcosa" >&2
  esito=1
fi
exit $esito

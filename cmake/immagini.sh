#!/usr/bin/env bash
# Every window at every size, scale and tone, and pictures of windows and prints.
#   immagini.sh RADICE CARTELLA
# Faults are told as they are found; the last line says where the pictures are.
set -u
radice=$1
cartella=$2
prova=$radice/build/debug/tests/layout/fenalto_layout_test
export QT_QPA_PLATFORM=offscreen FENALTO_ASPETTO=tutto
mkdir -p "$cartella"
cartella=$(cd "$cartella" && pwd)
esito=0

# giro NOME VARIABILE=VALORE ...: one process, whose pictures go to a folder of that name.
giro() {
  local nome=$1
  shift
  echo "== $nome"
  env "$@" FENALTO_FOTO="$cartella/$nome" "$prova" --gtest_brief=1 || esito=1
}

for scala in 1 1.25 1.5 2; do
  giro "scala-$scala" QT_SCALE_FACTOR="$scala"
done
giro carattere-1.5 FENALTO_CARATTERE=1.5

for pdf in "$cartella/scala-1/stampe"/*.pdf; do
  [ -e "$pdf" ] && pdftoppm -r 60 -png -l 3 "$pdf" "${pdf%.pdf}"
done
echo "Immagini: $cartella"
exit $esito

#!/bin/sh
# esegui.sh FUZZER CORPUS: a short run from the corpus kept with the sources. What it finds stays
# beside the fuzzer: new units in FUZZER.corpus, an input that breaks it in FUZZER.crash-*.
set -eu
fuzzer=$1
corpus=$2
mkdir -p "$fuzzer.corpus"
exec "$fuzzer" -max_total_time="${FENALTO_FUZZ_SECONDS:-3}" -seed=1 -print_final_stats=0 \
  -verbosity=0 -artifact_prefix="$fuzzer." "$fuzzer.corpus" "$corpus"

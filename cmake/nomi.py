#!/usr/bin/env python3
"""Rules that need to know names: nomi.py FOLDER...

- A function has at most 70 lines; a test may have more when it's a table of cases.
- A name is defined once: two rooms that each define `fenalto::Riga` differently give a program that
  compiles, links, and destroys one room's objects by the other's layout.
- What the files of a folder keep to themselves bears different names, since the files of a folder
  are compiled together (FENALTO_UNITY). Functions that differ by their parameters are overloads.

Reads the sources by universal-ctags; prints a line for each fault and ends with 1 when there is one.
"""

import collections
import json
import os
import subprocess
import sys

MASSIMO = 70
COMANDO = [
    "ctags", "-R", "--languages=C++", "--langmap=C++:+.h", "--kinds-C++=cdefgmnstuvA",
    "--fields=+neKSstE", "--extras=+{anonymous}", "--output-format=json", "-f", "-",
]
TEST = {"TEST", "TEST_F", "TEST_P"}
# A function that each program has.
PER_PROGRAMMA = {"main", "LLVMFuzzerTestOneInput"}
TIPI = {"class", "struct", "union", "enum", "typedef"}
DI_FILE = {"class", "struct", "union", "enum", "function", "variable"}
# Folders whose files are programs of their own.
A_SE = {"tests/fuzz"}


def etichette(cartelle):
    """The tags of the folders, one dictionary each."""
    uscita = subprocess.run(COMANDO + cartelle, check=True, capture_output=True, text=True).stdout
    return [json.loads(riga) for riga in uscita.splitlines()]


def posto(e):
    """Where a tag stands, as compilers say it."""
    return f"{e['path']}:{e['line']}"


def completo(e):
    """The qualified name."""
    return (e["scope"] + "::" if e.get("scope") else "") + e["name"]


def funzioni_lunghe(tutte):
    """Functions past the limit."""
    for e in tutte:
        righe = e.get("end", 0) - e["line"] + 1
        if e["kind"] == "function" and righe > MASSIMO and e["name"] not in TEST:
            yield f"{posto(e)}: {completo(e)} ha {righe} righe ({MASSIMO} al massimo)"


def definizioni_doppie(tutte):
    """Names that the whole program shares and that are defined more than once."""
    viste = collections.defaultdict(dict)
    for e in tutte:
        chiave = completo(e)
        if "__anon" in chiave or e.get("scopeKind") == "function":
            continue
        if e["kind"] == "function":
            if e["name"] in TEST | PER_PROGRAMMA:
                continue
            chiave += e.get("signature", "")
        elif e["kind"] not in TIPI:
            continue
        # An alias may be written twice, if it stands for the same.
        dove = e.get("typeref", "") if e["kind"] == "typedef" else e["path"]
        viste[chiave].setdefault(dove, e)
    yield from doppi(viste, "è definito più volte")


def nomi_di_cartella(tutte):
    """Names of anonymous namespaces that two files of a folder share."""
    visti = collections.defaultdict(dict)
    for e in tutte:
        if not e["path"].endswith(".cpp") or os.path.dirname(e["path"]) in A_SE:
            continue
        if "__anon" not in e.get("scope", "").split("::")[-1] or e["kind"] not in DI_FILE:
            continue
        # What stands indented is local to a macro's body, whatever it looks like.
        if e["name"] in TEST or e["pattern"].startswith("/^ ") and e["kind"] == "variable":
            continue
        chiave = e["name"] + (e.get("signature", "") if e["kind"] == "function" else "")
        visti[os.path.dirname(e["path"]) + "/" + chiave].setdefault(e["path"], e)
    yield from doppi(visti, "in più file della cartella")


def doppi(viste, guasto):
    """What stands in more than one place."""
    for chiave, dove in viste.items():
        if len(dove) > 1:
            yield f"{' e '.join(posto(e) for e in dove.values())}: {chiave} {guasto}"


def main(cartelle):
    """All checks; the number of faults decides the exit code."""
    tutte = etichette(cartelle)
    guasti = [g for regola in (funzioni_lunghe, definizioni_doppie, nomi_di_cartella)
              for g in regola(tutte)]
    for guasto in sorted(guasti):
        print(guasto)
    return 1 if guasti else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

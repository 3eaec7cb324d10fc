#!/usr/bin/env python3
"""The linter, on what changed: lint.py BUILD [--tutto] [--secondi N].

A unit costs the linter five to fifteen seconds, and all of them half an hour: so it looks at those
whose text, or the text of a header they include, isn't as it was when they passed (their digest is
kept in build/tidy), and of these, in a clone that has no digests yet, only at what the last commits
changed, newest first, while the time given lasts. A header is seen with the unit of its name, or
with one that includes it. What was left out is said; --tutto leaves nothing out.

BUILD has a compile_commands.json with one entry a file. Ends with 1 when the linter found something.
"""

import argparse
import concurrent.futures
import hashlib
import os
import pathlib
import re
import subprocess
import sys
import time

COMMIT = 20
RIGHE = 12
INCLUDE = re.compile(r'^#include "([^"]+)"', re.M)
TIMBRI = pathlib.Path("build/tidy")


class Sorgenti:
    """The files below src/, what they include of each other, and their digests."""

    def __init__(self):
        testi = {str(f): f.read_text() for f in sorted(pathlib.Path("src").rglob("*.*"))
                 if f.suffix in (".cpp", ".h")}
        self.somma = {f: hashlib.sha256(t.encode()).hexdigest() for f, t in testi.items()}
        self.inclusi = {f: [i for i in ("src/" + n for n in INCLUDE.findall(t)) if i in testi]
                        for f, t in testi.items()}
        self.unita = [f for f in testi if f.endswith(".cpp")]
        self.regole = hashlib.sha256(pathlib.Path(".clang-tidy").read_bytes()).hexdigest()

    def tutti_gli_inclusi(self, unita):
        """Headers that a unit includes, by whatever way."""
        visti, da_vedere = set(), [unita]
        while da_vedere:
            for incluso in self.inclusi[da_vedere.pop()]:
                if incluso not in visti:
                    visti.add(incluso)
                    da_vedere.append(incluso)
        return visti

    def timbro(self, unita):
        """The file that says that the unit, as it stands, passed."""
        pezzi = [unita, self.somma[unita], self.regole]
        pezzi += sorted(self.somma[i] for i in self.tutti_gli_inclusi(unita))
        return TIMBRI / hashlib.sha256(" ".join(pezzi).encode()).hexdigest()[:40]

    def unita_di(self, file):
        """The unit with which a file is looked at."""
        if file in self.unita:
            return file
        propria = file.removesuffix(".h") + ".cpp"
        if propria in self.unita:
            return propria
        return next((u for u in self.unita if file in self.inclusi[u]), None)


def git(*argomenti):
    """Lines of a git command; none when there is no repository."""
    esito = subprocess.run(("git",) + argomenti, capture_output=True, text=True, check=False)
    return esito.stdout.splitlines() if esito.returncode == 0 else []


def cambiati():
    """Files that the work under way and the last commits changed, newest first, each once."""
    file = git("diff", "--name-only", "HEAD") + git("ls-files", "--others", "--exclude-standard")
    file += git("log", f"-{COMMIT}", "--name-only", "--format=", "--no-renames")
    return list(dict.fromkeys(file))


def guarda(build, unita):
    """What the linter says of a unit; nothing when it's content."""
    esito = subprocess.run(
        ["clang-tidy-19", "-quiet", "--extra-arg=-Wno-unknown-warning-option",
         "--extra-arg=-Wno-ignored-gch", "--extra-arg=-Wno-ignored-optimization-argument",
         "-p", build, unita],
        capture_output=True, text=True, check=False)
    if esito.returncode == 0:
        return []
    righe = [r for r in esito.stdout.splitlines() if " error: " in r or " warning: " in r]
    return (righe or esito.stderr.splitlines())[:RIGHE]


def main():
    """Chooses the units, looks at them on all cores and tells."""
    opzioni = argparse.ArgumentParser()
    opzioni.add_argument("build")
    opzioni.add_argument("--tutto", action="store_true")
    opzioni.add_argument("--secondi", type=float, default=float("inf"))
    o = opzioni.parse_args()

    TIMBRI.mkdir(parents=True, exist_ok=True)
    sorgenti = Sorgenti()
    da_vedere = [u for u in sorgenti.unita if not sorgenti.timbro(u).exists()]
    scelte = da_vedere
    if not o.tutto:
        recenti = dict.fromkeys(sorgenti.unita_di(f) for f in cambiati() if f in sorgenti.somma)
        scelte = [u for u in recenti if u in set(da_vedere)]
    if scelte:
        print(f"stile: clang-tidy su {len(scelte)} file", flush=True)
    fine, viste, trovato = time.monotonic() + o.secondi, 0, False
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as operai:
        lavori = {u: operai.submit(lambda u=u: guarda(o.build, u)
                                   if time.monotonic() < fine else None) for u in scelte}
        for unita, lavoro in lavori.items():
            righe = lavoro.result()
            if righe is None:
                continue
            viste += 1
            if righe:
                trovato = True
                print("\n".join(righe), flush=True)
            else:
                sorgenti.timbro(unita).touch()
    if viste < len(da_vedere):
        print(f"stile: clang-tidy non ha visto {len(da_vedere) - viste} file, non cambiati di"
              " recente o fuori dal tempo: ./test --lint li vede tutti")
    return 1 if trovato else 0


if __name__ == "__main__":
    sys.exit(main())

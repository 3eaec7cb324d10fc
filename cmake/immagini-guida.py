#!/usr/bin/env python3
"""Takes the guide's pictures anew from the guided tour (needs python3-pil).

    ./run                    plays the tour without a display, into demo-out/
    cmake/immagini-guida.py  [demo-out]  writes docs/immagini/ from it

Pictures of windows are written with a palette of 256 colours: a third of the size, to the eye the same.
"""
import pathlib
import subprocess
import sys

from PIL import Image

RADICE = pathlib.Path(__file__).resolve().parent.parent
# What the guide calls a picture, where the tour calls it otherwise.
NOMI = {"archivio": "codici-iva", "piano": "albero", "situazione-scadenze": "situazione"}
# The part of a page that the guide shows.
RITAGLIO = ["-r", "60", "-gray", "-png", "-x", "0", "-y", "0", "-W", "496", "-H", "435"]


def main():
    giro = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else RADICE / "demo-out"
    for file in sorted((RADICE / "docs" / "immagini").glob("*.png")):
        if file.stem == "bilancio":
            nome = str(file.with_suffix(""))
            subprocess.run(["pdftoppm", *RITAGLIO, "-singlefile", str(giro / "bilancio.pdf"), nome], check=True)
            continue
        fonte = giro / (NOMI.get(file.stem, file.stem) + ".png")
        if not fonte.exists():
            print(f"{fonte}: manca, {file.name} resta com'è", file=sys.stderr)
            continue
        Image.open(fonte).convert("RGB").quantize(256).save(file, optimize=True)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Takes the guide's pictures anew from the guided tour.

    ./run              plays the tour without a display, into demo-out/
    cmake/immagini.py  [demo-out]  writes docs/immagini/ from it

Pictures of windows are written with a palette of 256 colours: a third of the size, to the eye the same.
"""
import collections
import pathlib
import struct
import subprocess
import sys
import zlib

RADICE = pathlib.Path(__file__).resolve().parent.parent
# What the guide calls a picture, where the tour calls it otherwise.
NOMI = {"archivio": "codici-iva", "piano": "albero", "situazione-scadenze": "situazione"}
# The part of a page that the guide shows.
RITAGLIO = ["-r", "60", "-gray", "-png", "-x", "0", "-y", "0", "-W", "496", "-H", "435"]


def pezzo(nome, dati):
    return struct.pack(">I", len(dati)) + nome + dati + struct.pack(">I", zlib.crc32(nome + dati))


def leggi(file):
    """Width and rows of (r, g, b) of an 8-bit colour picture."""
    dati, da, compressi = file.read_bytes(), 8, b""
    while da < len(dati):
        lungo, nome = struct.unpack(">I4s", dati[da : da + 8])
        corpo = dati[da + 8 : da + 8 + lungo]
        if nome == b"IHDR":
            largo, alto, bit, tipo = struct.unpack(">IIBB", corpo[:10])
            if bit != 8 or tipo not in (2, 6):
                raise SystemExit(f"{file}: va un'immagine a colori di 8 bit")
        elif nome == b"IDAT":
            compressi += corpo
        da += 12 + lungo
    passo = 3 if tipo == 2 else 4
    grezzi, righe, sopra = zlib.decompress(compressi), [], bytes(largo * passo)
    for y in range(alto):
        inizio = y * (largo * passo + 1)
        filtro, riga = grezzi[inizio], bytearray(grezzi[inizio + 1 : inizio + 1 + largo * passo])
        for i in range(len(riga)):
            a = riga[i - passo] if i >= passo else 0
            b, c = sopra[i], sopra[i - passo] if i >= passo else 0
            if filtro == 1:
                riga[i] = (riga[i] + a) & 255
            elif filtro == 2:
                riga[i] = (riga[i] + b) & 255
            elif filtro == 3:
                riga[i] = (riga[i] + (a + b) // 2) & 255
            elif filtro == 4:
                p = a + b - c
                vicino = min((abs(p - a), 0, a), (abs(p - b), 1, b), (abs(p - c), 2, c))[2]
                riga[i] = (riga[i] + vicino) & 255
        sopra = bytes(riga)
        righe.append([tuple(riga[x : x + 3]) for x in range(0, len(riga), passo)])
    return largo, righe


def scrivi(file, largo, righe):
    conti = collections.Counter(colore for riga in righe for colore in riga)
    tavolozza = [colore for colore, _ in conti.most_common(256)]
    posti = {colore: i for i, colore in enumerate(tavolozza)}
    for colore in conti:
        if colore not in posti:
            posti[colore] = min(
                range(len(tavolozza)),
                key=lambda i: sum((x - y) ** 2 for x, y in zip(colore, tavolozza[i])),
            )
    grezzi = b"".join(b"\0" + bytes(posti[colore] for colore in riga) for riga in righe)
    testa = struct.pack(">IIBBBBB", largo, len(righe), 8, 3, 0, 0, 0)
    file.write_bytes(
        b"\x89PNG\r\n\x1a\n"
        + pezzo(b"IHDR", testa)
        + pezzo(b"PLTE", bytes(x for colore in tavolozza for x in colore))
        + pezzo(b"IDAT", zlib.compress(grezzi, 9))
        + pezzo(b"IEND", b"")
    )


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
        scrivi(file, *leggi(fonte))


if __name__ == "__main__":
    main()

# Seguito della distinta Ri.Ba., per chi la presenta: segnalazioni e tracciato del file.
[pagina]
formato A4 orizzontale
margine 8
carattere "Arial Narrow" punti 8.5
linea x1 10 y1 28.5 x2 287 y2 28.5 spessore 0.4
linea x1 10 y1 197 x2 287 y2 197 spessore 0.1

[testata]
campo DITTA x 10 y 9 larghezza 160 punti 12 grassetto
campo Indirizzo_localita x 10 y 14.6 larghezza 160 punti 8
campo TITOLO x 10 y 21 larghezza 190 punti 11 grassetto
testo "non per la banca" x 227 y 21.6 larghezza 60 destra punti 9

[corpo]
inizio 31
fine 196
riga 4.4
campo R_TITOLO x 10 y 0.6 larghezza 277 punti 9.5 grassetto
campo R_SCRITTA x 10 y 0.6 larghezza 277
campo R_DESCRIZIONE x 10 y 0.6 larghezza 277
campo R_TRACCIATO x 10 y 0.6 larghezza 277 carattere "Courier New" punti 9

[piede]
carattere "Arial Narrow" punti 8
testo "stampato il" x 10 y 198.4
campo DATASTAMPA x 24 y 198.4 larghezza 40
testo "pagina" x 255 y 198.4 larghezza 12 destra
campo Pag x 267.5 y 198.4 larghezza 5.5 destra
testo "di" x 274.5 y 198.4
campo PagTot x 278 y 198.4 larghezza 9

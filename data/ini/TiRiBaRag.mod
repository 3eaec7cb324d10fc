# Raggruppamento delle Ri.Ba., foglio A4 orizzontale.
[pagina]
formato A4 orizzontale
margine 8
carattere "Arial Narrow" punti 8.5
linea x1 10 y1 33.5 x2 287 y2 33.5 spessore 0.4
riquadro x 10 y 35 larghezza 277 altezza 6 grigio 235
linea x1 10 y1 197 x2 287 y2 197 spessore 0.1

[testata]
campo DITTA x 10 y 9 larghezza 200 punti 12 grassetto
campo Indirizzo_localita x 10 y 14.6 larghezza 200 punti 8
campo PIVA x 227 y 9.8 larghezza 60 destra punti 8
campo CODFISC x 227 y 14.6 larghezza 60 destra punti 8
campo TITOLO x 10 y 21 larghezza 277 punti 13 grassetto
campo TITOLO2 x 10 y 27.8 larghezza 277 corsivo punti 9
testo "cliente" x 11 y 36.2 grassetto
testo "fattura" x 118 y 36.2 larghezza 22 destra grassetto
testo "del" x 142 y 36.2 grassetto
testo "scadenza" x 160 y 36.2 grassetto
testo "importo" x 178 y 36.2 larghezza 26 destra grassetto
testo "riferimenti" x 207 y 36.2 grassetto

[corpo]
inizio 43
fine 196
riga 4.2
campo R_CLIENTE x 11 y 0.6 larghezza 106 acapo
campo R_NFAT x 118 y 0.6 larghezza 22 destra acapo
campo R_DTFAT x 142 y 0.6 larghezza 17
campo R_DTSCAD x 160 y 0.6 larghezza 17
campo R_IMPORTO x 178 y 0.6 larghezza 26 destra formato "####.###.###,##"
campo R_NOTE x 207 y 0.6 larghezza 79 acapo
carattere "Arial Narrow" punti 8.5 grassetto
campo R_SCRITTATOT x 11 y 0.6 larghezza 140
campo R_TOTDTSCAD x 160 y 0.6 larghezza 17
campo R_TOTIMPORTO x 178 y 0.6 larghezza 26 destra formato "####.###.###,##"
campo R_TOTNOTE x 207 y 0.6 larghezza 79 acapo

[piede]
carattere "Arial Narrow" punti 8
testo "stampato il" x 10 y 198.2
campo DATASTAMPA x 24 y 198.2 larghezza 40
testo "pagina" x 255 y 198.2 larghezza 12 destra
campo Pag x 267.5 y 198.2 larghezza 5.5 destra
testo "di" x 274.5 y 198.2
campo PagTot x 278 y 198.2 larghezza 9

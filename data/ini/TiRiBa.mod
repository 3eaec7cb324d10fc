# Distinta Ri.Ba. per la banca, foglio A4 orizzontale.
[pagina]
formato A4 orizzontale
margine 8
carattere "Arial Narrow" punti 8.5
linea x1 10 y1 43 x2 287 y2 43 spessore 0.4
riquadro x 10 y 45 larghezza 277 altezza 6 grigio 235
linea x1 10 y1 197 x2 287 y2 197 spessore 0.1

[testata]
campo DITTA x 10 y 9 larghezza 160 punti 12 grassetto
campo Indirizzo_localita x 10 y 14.6 larghezza 160 punti 8
campo PIVA x 187 y 9.8 larghezza 100 destra punti 8
campo CODFISC x 187 y 14.6 larghezza 100 destra punti 8
campo TITOLO x 10 y 21.5 larghezza 277 punti 13 grassetto
campo BANCA x 10 y 29.5 larghezza 180 punti 10 grassetto
campo CONTO x 10 y 35.5 larghezza 130 punti 9
campo IBAN x 141 y 35.5 larghezza 66 punti 9
testo "ricevute n." x 208 y 29.8 larghezza 30 destra punti 9
campo NRICEVUTE x 239 y 29.5 larghezza 20 punti 10 grassetto
testo "totale euro" x 208 y 35.8 larghezza 30 destra punti 9
campo TOTALE x 239 y 35.5 larghezza 48 punti 10 grassetto formato "#####.###.###,##"
testo "n." x 10 y 46.2 larghezza 8 destra grassetto
testo "debitore" x 19.5 y 46.2 grassetto
testo "località" x 88 y 46.2 grassetto
testo "partita IVA" x 121 y 46.2 grassetto
testo "riferimento" x 147.5 y 46.2 grassetto
testo "banca d'appoggio (ABI CAB)" x 184 y 46.2 grassetto
testo "scadenza" x 242.5 y 46.2 grassetto
testo "importo" x 260 y 46.2 larghezza 26.5 destra grassetto

[corpo]
inizio 53
fine 196
riga 4.6
campo R_NUMERO x 10 y 0.6 larghezza 8 destra
campo R_CONTO x 19.5 y 0.6 larghezza 12
campo R_DEBITORE x 32 y 0.6 larghezza 55 acapo
campo R_LOCALITA x 88 y 0.6 larghezza 32 acapo
campo R_PIVA x 121 y 0.6 larghezza 25.5
campo R_DESCRIZIONE x 147.5 y 0.6 larghezza 35.5 acapo
campo R_BANCA x 184 y 0.6 larghezza 57.5 acapo
campo R_DTSCAD x 242.5 y 0.6 larghezza 16
campo R_IMPORTO x 260 y 0.6 larghezza 26.5 destra formato "####.###.###,##"
campo R_SCRITTATOT x 147.5 y 0.6 larghezza 80 grassetto
campo R_TOTALE x 247.5 y 0.6 larghezza 39 destra grassetto formato "####.###.###,##"
campo R_FIRMA x 184 y 3 larghezza 83

[piede]
carattere "Arial Narrow" punti 8
testo "stampato il" x 10 y 198.4
campo DATASTAMPA x 24 y 198.4 larghezza 40
testo "pagina" x 255 y 198.4 larghezza 12 destra
campo Pag x 267.5 y 198.4 larghezza 5.5 destra
testo "di" x 274.5 y 198.4
campo PagTot x 278 y 198.4 larghezza 9

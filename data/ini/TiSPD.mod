# Scadenze per data, foglio A4 orizzontale.
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
campo TITOLO2 x 10 y 27.8 larghezza 277 punti 9
testo "scadenza" x 11 y 36.2 grassetto
testo "codice" x 28 y 36.2 grassetto
testo "cliente / fornitore" x 43 y 36.2 grassetto
testo "fattura" x 111 y 36.2 larghezza 13 destra grassetto
testo "del" x 126 y 36.2 grassetto
testo "descrizione" x 143 y 36.2 grassetto
testo "tipo" x 203 y 36.2 grassetto
testo "stato" x 210 y 36.2 grassetto
testo "importo" x 225 y 36.2 larghezza 20 destra grassetto
testo "pagato" x 245.5 y 36.2 larghezza 20 destra grassetto
testo "residuo" x 266 y 36.2 larghezza 20 destra grassetto

[corpo]
inizio 43
fine 196
riga 4.2
campo R_DTSCAD x 11 y 0.6 larghezza 17
campo R_CONTO x 28 y 0.6 larghezza 14.5
campo R_RAGSOC x 43 y 0.6 larghezza 67 acapo
campo R_NFAT x 111 y 0.6 larghezza 13 destra
campo R_DTFAT x 126 y 0.6 larghezza 17
campo R_DESCRIZIONE x 143 y 0.6 larghezza 59 acapo
campo R_TIPO x 203 y 0.6 larghezza 6
campo R_STATO x 210 y 0.6 larghezza 15
campo R_IMPORTO x 225 y 0.6 larghezza 20 destra formato "####.###.###,##"
campo R_PAGATO x 245.5 y 0.6 larghezza 20 destra formato "####.###.###,##"
campo R_RESIDUO x 266 y 0.6 larghezza 20 destra formato "####.###.###,##"
carattere "Arial Narrow" punti 8.5 grassetto
campo R_PARTE x 11 y 0.6 larghezza 214 punti 9.5 acapo
campo R_SCRITTATOT x 43 y 0.6 larghezza 180 acapo
campo R_TOTIMPORTO x 225 y 0.6 larghezza 20 destra formato "####.###.###,##"
campo R_TOTPAGATO x 245.5 y 0.6 larghezza 20 destra formato "####.###.###,##"
campo R_TOTRESIDUO x 266 y 0.6 larghezza 20 destra formato "####.###.###,##"

[piede]
carattere "Arial Narrow" punti 8
testo "stampato il" x 10 y 198.2
campo DATASTAMPA x 24 y 198.2 larghezza 40
testo "pagina" x 255 y 198.2 larghezza 12 destra
campo Pag x 267.5 y 198.2 larghezza 5.5 destra
testo "di" x 274.5 y 198.2
campo PagTot x 278 y 198.2 larghezza 9

# Scadenze per cliente/fornitore, foglio A4.
[pagina]
formato A4 verticale
margine 8
carattere "Arial Narrow" punti 8.5
linea x1 10 y1 33.5 x2 200 y2 33.5 spessore 0.4
riquadro x 10 y 35 larghezza 190 altezza 6 grigio 235
linea x1 10 y1 284 x2 200 y2 284 spessore 0.1

[testata]
campo DITTA x 10 y 9 larghezza 130 punti 12 grassetto
campo Indirizzo_localita x 10 y 14.6 larghezza 130 punti 8
campo PIVA x 140 y 9.8 larghezza 60 destra punti 8
campo CODFISC x 140 y 14.6 larghezza 60 destra punti 8
campo TITOLO x 10 y 21 larghezza 190 punti 13 grassetto
campo TITOLO2 x 10 y 27.8 larghezza 190 punti 9
testo "scadenza" x 11 y 36.2 grassetto
testo "fattura" x 28 y 36.2 larghezza 13 destra grassetto
testo "del" x 43 y 36.2 grassetto
testo "descrizione" x 60 y 36.2 grassetto
testo "tipo" x 117.5 y 36.2 grassetto
testo "stato" x 124 y 36.2 grassetto
testo "importo" x 138 y 36.2 larghezza 20.2 destra grassetto
testo "pagato" x 158.6 y 36.2 larghezza 20.2 destra grassetto
testo "residuo" x 179.2 y 36.2 larghezza 20.2 destra grassetto

[corpo]
inizio 43
fine 283
riga 4.2
campo R_DTSCAD x 11 y 0.6 larghezza 17
campo R_NFAT x 28 y 0.6 larghezza 13 destra
campo R_DTFAT x 43 y 0.6 larghezza 17
campo R_DESCRIZIONE x 60 y 0.6 larghezza 56.5 acapo
campo R_TIPO x 117.5 y 0.6 larghezza 6
campo R_STATO x 124 y 0.6 larghezza 14
campo R_IMPORTO x 138 y 0.6 larghezza 20.2 destra formato "####.###.###,##"
campo R_PAGATO x 158.6 y 0.6 larghezza 20.2 destra formato "####.###.###,##"
campo R_RESIDUO x 179.2 y 0.6 larghezza 20.2 destra formato "####.###.###,##"
carattere "Arial Narrow" punti 8.5 grassetto
campo R_PARTE x 11 y 0.6 larghezza 188 punti 9.5 acapo
campo R_SCRITTATOT x 28 y 0.6 larghezza 110 acapo
campo R_TOTIMPORTO x 138 y 0.6 larghezza 20.2 destra formato "####.###.###,##"
campo R_TOTPAGATO x 158.6 y 0.6 larghezza 20.2 destra formato "####.###.###,##"
campo R_TOTRESIDUO x 179.2 y 0.6 larghezza 20.2 destra formato "####.###.###,##"

[piede]
carattere "Arial Narrow" punti 8
testo "stampato il" x 10 y 285.2
campo DATASTAMPA x 24 y 285.2 larghezza 40
testo "pagina" x 168 y 285.2 larghezza 12 destra
campo Pag x 180.5 y 285.2 larghezza 5.5 destra
testo "di" x 187.5 y 285.2
campo PagTot x 191 y 285.2 larghezza 9

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
testo "tipo" x 119 y 36.2 grassetto
testo "stato" x 126 y 36.2 grassetto
testo "importo" x 140 y 36.2 larghezza 20 destra grassetto
testo "pagato" x 160 y 36.2 larghezza 19 destra grassetto
testo "residuo" x 179 y 36.2 larghezza 20 destra grassetto

[corpo]
inizio 43
fine 283
riga 4.2
campo R_DTSCAD x 11 y 0.6 larghezza 17
campo R_NFAT x 28 y 0.6 larghezza 13 destra
campo R_DTFAT x 43 y 0.6 larghezza 17
campo R_DESCRIZIONE x 60 y 0.6 larghezza 58
campo R_TIPO x 119 y 0.6 larghezza 6
campo R_STATO x 126 y 0.6 larghezza 15
campo R_IMPORTO x 140 y 0.6 larghezza 20 destra formato "####.###.###,##"
campo R_PAGATO x 160 y 0.6 larghezza 19 destra formato "####.###.###,##"
campo R_RESIDUO x 179 y 0.6 larghezza 20 destra formato "####.###.###,##"
carattere "Arial Narrow" punti 8.5 grassetto
campo R_PARTE x 11 y 0.6 larghezza 188 punti 9.5
campo R_SCRITTATOT x 28 y 0.6 larghezza 112
campo R_TOTIMPORTO x 140 y 0.6 larghezza 20 destra formato "####.###.###,##"
campo R_TOTPAGATO x 160 y 0.6 larghezza 19 destra formato "####.###.###,##"
campo R_TOTRESIDUO x 179 y 0.6 larghezza 20 destra formato "####.###.###,##"

[piede]
carattere "Arial Narrow" punti 8
testo "stampato il" x 10 y 285.2
campo DATASTAMPA x 24 y 285.2 larghezza 40
testo "pagina" x 165 y 285.2 larghezza 12 destra
campo Pag x 178 y 285.2 larghezza 8 destra
testo "di" x 187.5 y 285.2
campo PagTot x 191 y 285.2 larghezza 9

# Elenco sintetico dei clienti o dei fornitori, foglio A4.
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
testo "codice" x 11 y 36.2 grassetto
testo "ragione sociale" x 29 y 36.2 grassetto
testo "località" x 103 y 36.2 grassetto
testo "prov." x 142 y 36.2 grassetto
testo "telefono" x 151 y 36.2 grassetto
testo "partita IVA" x 177 y 36.2 grassetto

[corpo]
inizio 43
fine 283
riga 4.2
campo R_COD x 11 y 0.6 larghezza 17
campo R_RAGSOC x 29 y 0.6 larghezza 73 acapo
campo R_LOCALITA x 103 y 0.6 larghezza 38 acapo
campo R_PROV x 142 y 0.6 larghezza 8
campo R_TELEFONO x 151 y 0.6 larghezza 25
campo R_PIVA x 177 y 0.6 larghezza 22
campo R_SCRITTATOT x 29 y 0.6 larghezza 112 grassetto
campo R_DESCRIZIONE x 29 y 0.6 larghezza 112 corsivo

[piede]
carattere "Arial Narrow" punti 8
testo "stampato il" x 10 y 285.2
campo DATASTAMPA x 24 y 285.2 larghezza 40
testo "pagina" x 168 y 285.2 larghezza 12 destra
campo Pag x 180.5 y 285.2 larghezza 5.5 destra
testo "di" x 187.5 y 285.2
campo PagTot x 191 y 285.2 larghezza 9

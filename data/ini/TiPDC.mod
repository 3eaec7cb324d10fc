# Piano dei conti, foglio A4.
[pagina]
formato A4 verticale
margine 8
carattere "Arial Narrow" punti 9
linea x1 10 y1 33.5 x2 200 y2 33.5 spessore 0.4
riquadro x 10 y 35 larghezza 190 altezza 6 grigio 235
linea x1 10 y1 282 x2 200 y2 282 spessore 0.1

[testata]
campo DITTA x 10 y 9 larghezza 130 punti 12 grassetto
campo Indirizzo_localita x 10 y 14.6 larghezza 130 punti 8
campo PIVA x 140 y 9.8 larghezza 60 destra punti 8
campo CODFISC x 140 y 14.6 larghezza 60 destra punti 8
campo TITOLO x 10 y 21 larghezza 190 punti 13 grassetto
campo TITOLO2 x 10 y 27.8 larghezza 190 punti 9
testo "codice" x 11 y 36 grassetto
testo "descrizione mastro / sottoconto" x 34 y 36 grassetto
testo "tipo" x 141 y 36 larghezza 12 centro grassetto
testo "note" x 156 y 36 grassetto

[corpo]
inizio 43
fine 281
riga 4.4
campo R_conto x 11 y 0.6 larghezza 22
campo R_descrizione x 34 y 0.6 larghezza 105 acapo
campo R_TIPO x 141 y 0.6 larghezza 12 centro
campo R_NOTE x 156 y 0.6 larghezza 43
carattere "Arial Narrow" punti 9 grassetto
campo R_mastro x 11 y 0.6 larghezza 22
campo R_descrmastro x 34 y 0.6 larghezza 105 acapo
campo R_TIPOMASTRO x 141 y 0.6 larghezza 12 centro

[piede]
carattere "Arial Narrow" punti 8
testo "stampato il" x 10 y 283.2
campo DATASTAMPA x 24 y 283.2 larghezza 40
testo "pagina" x 168 y 283.2 larghezza 12 destra
campo Pag x 180.5 y 283.2 larghezza 5.5 destra
testo "di" x 187.5 y 283.2
campo PagTot x 191 y 283.2 larghezza 9

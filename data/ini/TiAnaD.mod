# Elenco dettagliato dei clienti o dei fornitori, con il saldo di ciascuno, foglio A4.
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
campo T_INIZIALE x 113 y 36.2 larghezza 22 destra grassetto
campo T_DARE x 135 y 36.2 larghezza 21 destra grassetto
campo T_AVERE x 156 y 36.2 larghezza 21 destra grassetto
campo T_SALDO x 177 y 36.2 larghezza 22 destra grassetto

[corpo]
inizio 43
fine 283
riga 4
campo R_DIDASCALIA1 x 13 y 0.5 larghezza 18 corsivo punti 7.5
campo R_VALORE1 x 31 y 0.5 larghezza 76
campo R_DIDASCALIA2 x 108 y 0.5 larghezza 18 corsivo punti 7.5
campo R_VALORE2 x 126 y 0.5 larghezza 73
campo R_DESCRIZIONE x 29 y 0.5 larghezza 112 corsivo
carattere "Arial Narrow" punti 8.5 grassetto
campo R_PARTE x 11 y 0.4 larghezza 17 punti 9
campo R_NOME x 29 y 0.4 larghezza 84 punti 9
campo R_SALDOINIZIALE x 113 y 0.4 larghezza 22 destra formato "####.###.###,##"
campo R_DARE x 135 y 0.4 larghezza 21 destra formato "####.###.###,##"
campo R_AVERE x 156 y 0.4 larghezza 21 destra formato "####.###.###,##"
campo R_SALDO x 177 y 0.4 larghezza 22 destra formato "####.###.###,##"

[piede]
carattere "Arial Narrow" punti 8
testo "stampato il" x 10 y 285.2
campo DATASTAMPA x 24 y 285.2 larghezza 40
testo "pagina" x 168 y 285.2 larghezza 12 destra
campo Pag x 180.5 y 285.2 larghezza 5.5 destra
testo "di" x 187.5 y 285.2
campo PagTot x 191 y 285.2 larghezza 9

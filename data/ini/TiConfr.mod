# Confronto dei costi e ricavi di due periodi, foglio A4 orizzontale.
[pagina]
formato A4 orizzontale
margine 8
carattere "Arial Narrow" punti 8.5
linea x1 10 y1 33.5 x2 287 y2 33.5 spessore 0.4
riquadro x 10 y 35 larghezza 277 altezza 6 grigio 235
linea x1 10 y1 196 x2 287 y2 196 spessore 0.1

[testata]
campo DITTA x 10 y 9 larghezza 190 punti 12 grassetto
campo Indirizzo_localita x 10 y 14.6 larghezza 190 punti 8
campo PIVA x 227 y 9.8 larghezza 60 destra punti 8
campo CODFISC x 227 y 14.6 larghezza 60 destra punti 8
campo TITOLO x 10 y 21 larghezza 110 punti 13 grassetto
campo INTESTAZ x 120 y 22.2 larghezza 60 punti 9.5
campo titolo1 x 187 y 22.2 larghezza 100 destra punti 9
campo SCELTE x 10 y 27.8 larghezza 170 punti 9
campo titolo2 x 187 y 27.8 larghezza 100 destra punti 9
testo "codice" x 11 y 36 grassetto
testo "descrizione mastro / sottoconto" x 32 y 36 grassetto
testo "costi A" x 112 y 36 larghezza 30 destra grassetto
testo "ricavi A" x 142 y 36 larghezza 30 destra grassetto
testo "costi B" x 172 y 36 larghezza 30 destra grassetto
testo "ricavi B" x 202 y 36 larghezza 30 destra grassetto
testo "differenza" x 232 y 36 larghezza 34 destra grassetto
testo "%" x 266 y 36 larghezza 20 destra grassetto

[corpo]
inizio 43
fine 195
riga 4.2
campo R_conto x 11 y 0.6 larghezza 21
campo R_descrizione x 32 y 0.6 larghezza 80 acapo
campo R_COSTIA x 112 y 0.6 larghezza 30 destra formato "#####.###.###,##"
campo R_RICAVIA x 142 y 0.6 larghezza 30 destra formato "#####.###.###,##"
campo R_COSTIB x 172 y 0.6 larghezza 30 destra formato "#####.###.###,##"
campo R_RICAVIB x 202 y 0.6 larghezza 30 destra formato "#####.###.###,##"
campo R_DIFF x 232 y 0.6 larghezza 34 destra formato "#####.###.###,##"
campo R_PERC x 266 y 0.6 larghezza 20 destra formato "#########,#"
carattere "Arial Narrow" punti 8.5 grassetto
campo R_mastro x 11 y 0.6 larghezza 21
campo R_descrmastro x 32 y 0.6 larghezza 80 acapo
campo R_TOTCOSTIA x 112 y 0.6 larghezza 30 destra formato "#####.###.###,##"
campo R_TOTRICAVIA x 142 y 0.6 larghezza 30 destra formato "#####.###.###,##"
campo R_TOTCOSTIB x 172 y 0.6 larghezza 30 destra formato "#####.###.###,##"
campo R_TOTRICAVIB x 202 y 0.6 larghezza 30 destra formato "#####.###.###,##"
campo R_TOTDIFF x 232 y 0.6 larghezza 34 destra formato "#####.###.###,##"
campo R_TOTPERC x 266 y 0.6 larghezza 20 destra formato "#########,#"

[piede]
carattere "Arial Narrow" punti 8
testo "stampato il" x 10 y 197.2
campo DATASTAMPA x 24 y 197.2 larghezza 40
testo "pagina" x 255 y 197.2 larghezza 12 destra
campo Pag x 267.5 y 197.2 larghezza 5.5 destra
testo "di" x 274.5 y 197.2
campo PagTot x 278 y 197.2 larghezza 9

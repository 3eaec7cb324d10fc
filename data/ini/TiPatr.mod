# Situazione patrimoniale, costi e ricavi, foglio A4. I totali stanno in fondo all'ultimo foglio di
# ognuna delle due situazioni.
[pagina]
formato A4 verticale
margine 8
carattere "Arial Narrow" punti 9
linea x1 10 y1 33.5 x2 200 y2 33.5 spessore 0.4
riquadro x 10 y 35 larghezza 190 altezza 6 grigio 235
linea x1 10 y1 267 x2 200 y2 267 spessore 0.4
linea x1 10 y1 282 x2 200 y2 282 spessore 0.1

[testata]
campo DITTA x 10 y 9 larghezza 130 punti 12 grassetto
campo Indirizzo_localita x 10 y 14.6 larghezza 130 punti 8
campo PIVA x 140 y 9.8 larghezza 60 destra punti 8
campo CODFISC x 140 y 14.6 larghezza 60 destra punti 8
campo INTESTAZIONE x 10 y 21 larghezza 100 punti 13 grassetto
campo INTESTAZ x 110 y 22.2 larghezza 90 destra punti 9.5
campo TITOLO2 x 10 y 27.8 larghezza 190 punti 9
testo "codice" x 11 y 36 grassetto
testo "descrizione mastro / sottoconto" x 34 y 36 grassetto
campo TITOLODARE x 133 y 36 larghezza 32 destra grassetto
campo TITOLOAVERE x 167 y 36 larghezza 32 destra grassetto

[corpo]
inizio 43
fine 266
riga 4.5
campo R_conto x 11 y 0.6 larghezza 22
campo R_descrizione x 34 y 0.6 larghezza 98 acapo
campo R_DARE x 133 y 0.6 larghezza 32 destra formato "#####.###.###,##"
campo R_AVERE x 167 y 0.6 larghezza 32 destra formato "#####.###.###,##"
carattere "Arial Narrow" punti 9 grassetto
campo R_mastro x 11 y 0.6 larghezza 22
campo R_descrmastro x 34 y 0.6 larghezza 98 acapo
campo R_TOTDARE x 133 y 0.6 larghezza 32 destra formato "#####.###.###,##"
campo R_TOTAVERE x 167 y 0.6 larghezza 32 destra formato "#####.###.###,##"

[piede]
campo NOTE2 x 10 y 276 larghezza 60 punti 8 corsivo
campo SCRITTATOTALI x 70 y 268.6 larghezza 62 destra grassetto
campo TDAL x 133 y 268.6 larghezza 32 destra grassetto formato "#####.###.###,##"
campo TAAL x 167 y 268.6 larghezza 32 destra grassetto formato "#####.###.###,##"
campo SCRITTAFINALE x 70 y 274.6 larghezza 95 destra grassetto punti 10.5
campo SALDO x 167 y 274.6 larghezza 32 destra grassetto punti 10.5 formato "#####.###.###,##"
carattere "Arial Narrow" punti 8
testo "stampato il" x 10 y 283.2
campo DATASTAMPA x 24 y 283.2 larghezza 40
testo "pagina" x 168 y 283.2 larghezza 12 destra
campo Pag x 180.5 y 283.2 larghezza 5.5 destra
testo "di" x 187.5 y 283.2
campo PagTot x 191 y 283.2 larghezza 9

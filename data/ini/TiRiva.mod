# Registro IVA unico, foglio A4.
[pagina]
formato A4 verticale
margine 8
carattere "Arial Narrow" punti 8
linea x1 10 y1 33.5 x2 200 y2 33.5 spessore 0.4
riquadro x 10 y 35 larghezza 190 altezza 6 grigio 235
linea x1 10 y1 284 x2 200 y2 284 spessore 0.1

[testata]
campo DITTA x 10 y 9 larghezza 130 punti 12 grassetto
campo Indirizzo_localita x 10 y 14.6 larghezza 130 punti 8
campo PIVA x 140 y 9.8 larghezza 60 destra punti 8
campo CODFISC x 140 y 14.6 larghezza 60 destra punti 8
campo TITOLO x 10 y 21 larghezza 80 punti 13 grassetto
campo PERIODO x 90 y 22 larghezza 60 punti 10 grassetto
campo AnnoPag x 150 y 22 larghezza 50 destra punti 10 grassetto
campo DescrPagina x 10 y 27.8 larghezza 140 punti 10
campo PROVA x 150 y 27.8 larghezza 50 destra corsivo punti 9
testo "data reg." x 11 y 36.4 grassetto
testo "prot." x 22.7 y 36.4 larghezza 10 destra grassetto
testo "cliente / fornitore" x 34.2 y 36.4 grassetto
testo "documento" x 78.2 y 36.4 grassetto
testo "del" x 94.2 y 36.4 grassetto
testo "codice IVA" x 107.2 y 36.4 grassetto
testo "imponibile" x 131.8 y 36.4 larghezza 17 destra grassetto
testo "IVA" x 149.3 y 36.4 larghezza 17 destra grassetto
testo "IVA indetr." x 166.8 y 36.4 larghezza 15.2 destra grassetto
testo "totale" x 182.5 y 36.4 larghezza 17 destra grassetto

[corpo]
inizio 43
fine 283
riga 4
campo R_dt x 11 y 0.6 larghezza 12.5
campo R_Nprot x 23.7 y 0.6 larghezza 9 destra
campo R_DESCRIZIONE x 34.2 y 0.6 larghezza 43.5
campo R_NFAT x 78.2 y 0.6 larghezza 15.5
campo R_DTFAT x 94.2 y 0.6 larghezza 12.5
campo R_DESCRIVA x 107.2 y 0.6 larghezza 24.1
campo R_IMPONIBILE x 131.8 y 0.6 larghezza 17 destra formato "#####.###.###,##"
campo R_IVA x 149.3 y 0.6 larghezza 17 destra formato "#####.###.###,##"
campo R_IVAIND x 166.8 y 0.6 larghezza 15.2 destra formato "#####.###.###,##"
campo R_TOT x 182.5 y 0.6 larghezza 17 destra formato "#####.###.###,##"
campo R_SEGUITO x 34.2 y 0.6 larghezza 165 punti 7.5 corsivo
carattere "Arial Narrow" punti 8 grassetto
campo R_TITOLO x 11 y 0.4 larghezza 188 punti 9
campo R_SCRITTATOT x 76.3 y 0.6 larghezza 55 destra
campo R_TOTIMPONIBILE x 131.8 y 0.6 larghezza 17 destra formato "#####.###.###,##"
campo R_TOTIVA x 149.3 y 0.6 larghezza 17 destra formato "#####.###.###,##"
campo R_TOTIVAIND x 166.8 y 0.6 larghezza 15.2 destra formato "#####.###.###,##"
campo R_TOTTOT x 182.5 y 0.6 larghezza 17 destra formato "#####.###.###,##"
carattere "Courier New" punti 9
campo R_SCRITTA x 11 y 0.4 larghezza 188

[piede]
carattere "Arial Narrow" punti 7.5
testo "stampato il" x 10 y 285.2
campo DATASTAMPA x 23 y 285.2 larghezza 40

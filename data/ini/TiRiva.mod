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
testo "data reg." x 10.5 y 36.4 grassetto
testo "prot." x 21.5 y 36.4 larghezza 9.5 destra grassetto
testo "cliente / fornitore" x 32.5 y 36.4 grassetto
testo "documento" x 71.5 y 36.4 grassetto
testo "del" x 87.3 y 36.4 grassetto
testo "codice IVA" x 100 y 36.4 grassetto
testo "imponibile" x 124.3 y 36.4 larghezza 18.6 destra grassetto
testo "IVA" x 143.2 y 36.4 larghezza 18.6 destra grassetto
testo "IVA indetr." x 162.1 y 36.4 larghezza 18.6 destra grassetto
testo "totale" x 181 y 36.4 larghezza 18.6 destra grassetto

[corpo]
inizio 43
fine 283
riga 4
campo R_dt x 10.5 y 0.6 larghezza 12
campo R_Nprot x 22.5 y 0.6 larghezza 8.5 destra
campo R_DESCRIZIONE x 32.5 y 0.6 larghezza 38
campo R_NFAT x 71.5 y 0.6 larghezza 15.2
campo R_DTFAT x 87.3 y 0.6 larghezza 12.2
campo R_DESCRIVA x 100 y 0.6 larghezza 24
campo R_IMPONIBILE x 124.3 y 0.6 larghezza 18.6 destra formato "#####.###.###,##"
campo R_IVA x 143.2 y 0.6 larghezza 18.6 destra formato "#####.###.###,##"
campo R_IVAIND x 162.1 y 0.6 larghezza 18.6 destra formato "#####.###.###,##"
campo R_TOT x 181 y 0.6 larghezza 18.6 destra formato "#####.###.###,##"
campo R_SEGUITO x 32.5 y 0.6 larghezza 167 punti 7.5 corsivo
carattere "Arial Narrow" punti 8 grassetto
campo R_TITOLO x 11 y 0.4 larghezza 188 punti 9
campo R_SCRITTATOT x 69 y 0.6 larghezza 55 destra
campo R_TOTIMPONIBILE x 124.3 y 0.6 larghezza 18.6 destra formato "#####.###.###,##"
campo R_TOTIVA x 143.2 y 0.6 larghezza 18.6 destra formato "#####.###.###,##"
campo R_TOTIVAIND x 162.1 y 0.6 larghezza 18.6 destra formato "#####.###.###,##"
campo R_TOTTOT x 181 y 0.6 larghezza 18.6 destra formato "#####.###.###,##"
carattere "Courier New" punti 9
campo R_SCRITTA x 11 y 0.4 larghezza 188

[piede]
carattere "Arial Narrow" punti 7.5
testo "stampato il" x 10 y 285.2
campo DATASTAMPA x 23 y 285.2 larghezza 40

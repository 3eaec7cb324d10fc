# Libro giornale, foglio A4.
[pagina]
formato A4 verticale
margine 8
carattere "Arial Narrow" punti 8
linea x1 10 y1 33.5 x2 200 y2 33.5 spessore 0.4
riquadro x 10 y 35 larghezza 190 altezza 6 grigio 235
linea x1 10 y1 284 x2 200 y2 284 spessore 0.1

[testata]
campo RagSoc1_2 x 10 y 9 larghezza 130 punti 12 grassetto
campo Indirizzo_localita x 10 y 14.6 larghezza 130 punti 8
campo PIVA x 140 y 9.8 larghezza 60 destra punti 8
campo CODFISC x 140 y 14.6 larghezza 60 destra punti 8
testo "LIBRO GIORNALE" x 10 y 21 punti 13 grassetto
campo TITOLO2 x 10 y 27.8 larghezza 100 punti 9
campo ScrittaAnnoPag x 130 y 27.6 larghezza 40 destra punti 9
campo AnnoPag x 171 y 27.6 larghezza 29 destra punti 9 grassetto
testo "data" x 11 y 36 grassetto
testo "articolo" x 27 y 36 grassetto
testo "conto" x 50 y 36 grassetto
testo "causale e descrizione" x 101 y 36 grassetto
testo "dare" x 158 y 36 larghezza 20 destra grassetto
testo "avere" x 179 y 36 larghezza 20 destra grassetto

[corpo]
inizio 43
fine 283
riga 4
campo R_Dt x 11 y 0.6 larghezza 15 grassetto
campo R_nart x 27 y 0.6 larghezza 22
campo R_conto x 50 y 0.6 larghezza 12
campo R_DESCRCONTO x 62 y 0.6 larghezza 38
campo R_DESCRIZIONE x 101 y 0.6 larghezza 56
campo R_DARE x 157 y 0.6 larghezza 21 destra formato "#####.###.###,##"
campo R_AVERE x 178 y 0.6 larghezza 21 destra formato "#####.###.###,##"
carattere "Arial Narrow" punti 8 grassetto
campo R_SCRITTATOT x 27 y 0.6 larghezza 69
campo R_TOTDARE x 157 y 0.6 larghezza 21 destra formato "#####.###.###,##"
campo R_TOTAVERE x 178 y 0.6 larghezza 21 destra formato "#####.###.###,##"

[piede]
carattere "Arial Narrow" punti 7.5
testo "stampato il" x 10 y 285.2
campo DATASTAMPA x 23 y 285.2 larghezza 40

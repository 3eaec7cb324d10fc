# Pagine numerate in bianco per i registri, foglio A4.
[pagina]
formato A4 verticale
margine 8
carattere "Arial Narrow" punti 8
linea x1 10 y1 26 x2 200 y2 26 spessore 0.4

[testata]
campo TITOLO x 10 y 9 larghezza 130 punti 12 grassetto
testo "Anno/pag." x 140 y 9.8 larghezza 30 destra punti 9
campo AnnoPag x 171 y 9.8 larghezza 29 destra punti 9 grassetto
campo RagSoc1_2 x 10 y 15.4 larghezza 130 punti 9
campo Indirizzo_localita x 10 y 20 larghezza 130
campo PIVA x 140 y 15.4 larghezza 60 destra
campo CODFISC x 140 y 20 larghezza 60 destra

[corpo]
inizio 30
fine 286
riga 4
campo R_DESCRIZIONE x 10 y 0.6 larghezza 190

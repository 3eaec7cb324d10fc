# Liquidazione IVA di un periodo, foglio A4: l'ultima pagina del registro IVA unico. Ditta, anno e
# pagina sono quelli del registro; gli importi dei registri hanno il segno con cui entrano nel saldo.
[pagina]
formato A4 verticale
margine 8
carattere "Arial Narrow" punti 10
linea x1 10 y1 31 x2 200 y2 31 spessore 0.4
riquadro x 10 y 35 larghezza 190 altezza 9 grigio 235
linea x1 10 y1 275 x2 200 y2 275 spessore 0.1

[testata]
campo DITTA x 10 y 9 larghezza 130 punti 12 grassetto
campo Indirizzo_localita x 10 y 14.6 larghezza 130 punti 8
campo PIVA x 140 y 9.8 larghezza 60 destra punti 8
campo CODFISC x 140 y 14.6 larghezza 60 destra punti 8
campo TITOLO x 10 y 21 larghezza 95 punti 11 grassetto
campo PERIODO x 105 y 21.4 larghezza 60 punti 10
campo AnnoPag x 165 y 21.4 larghezza 35 destra punti 10 grassetto
campo PROVA x 150 y 26.4 larghezza 50 destra corsivo punti 9
campo TITOLOCHIUSURA x 12 y 36.6 larghezza 186 centro punti 13 grassetto

[corpo]
inizio 50
fine 274
riga 5.2
campo R_DESCRIZIONE x 14 y 0.6 larghezza 136
campo R_SEGNO x 151 y 0.6 larghezza 5 centro
campo R_IMPO x 157 y 0.6 larghezza 40 destra formato "##.###.###.###,##"
campo R_DESCRTOT x 14 y 0.6 larghezza 136 grassetto punti 11
campo R_TOT x 157 y 0.6 larghezza 40 destra grassetto punti 11 formato "##.###.###.###,##"
campo R_NOTA x 14 y 0.6 larghezza 183 corsivo punti 9

[piede]
testo "Gli importi dei registri portano il segno con cui entrano nel saldo del periodo." x 10 y 276.4 punti 8 corsivo

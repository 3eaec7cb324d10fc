# Movimenti di magazzino di un prodotto, foglio A4 orizzontale.
[pagina]
formato A4 orizzontale
margine 8
carattere "Arial Narrow" punti 8.5
linea x1 10 y1 39.5 x2 287 y2 39.5 spessore 0.4
riquadro x 10 y 41 larghezza 277 altezza 6 grigio 235
linea x1 10 y1 197 x2 287 y2 197 spessore 0.1

[testata]
campo DITTA x 10 y 9 larghezza 200 punti 12 grassetto
campo Indirizzo_localita x 10 y 14.6 larghezza 200 punti 8
campo PIVA x 227 y 9.8 larghezza 60 destra punti 8
campo CODFISC x 227 y 14.6 larghezza 60 destra punti 8
campo TITOLO x 10 y 21 larghezza 120 punti 13 grassetto
testo "anno" x 132 y 22.6 punti 9
campo ANNO x 141 y 22.6 larghezza 14 punti 9 grassetto
testo "dal" x 160 y 22.6 punti 9
campo DADT x 166 y 22.6 larghezza 20 punti 9
testo "al" x 188 y 22.6 punti 9
campo AADT x 193 y 22.6 larghezza 20 punti 9
campo VARIE1 x 217 y 22.6 larghezza 70 destra punti 9
campo CODICERIGA x 10 y 29 larghezza 40 punti 10.5 grassetto
campo DESCRIZIONEPRODOTTO x 52 y 29 larghezza 140 punti 10.5 grassetto
testo "U.M." x 194 y 29.6 punti 9
campo UM x 202 y 29.6 larghezza 13 punti 9
campo VARIE2 x 217 y 29.6 larghezza 70 destra punti 9
testo "movimento" x 11 y 42.2 grassetto
testo "mag." x 132 y 42.2 grassetto
testo "data" x 143 y 42.2 grassetto
testo "tipo" x 161 y 42.2 grassetto
testo "n.doc." x 172 y 42.2 larghezza 15 destra grassetto
testo "carichi" x 189 y 42.2 larghezza 24 destra grassetto
testo "scarichi" x 214 y 42.2 larghezza 24 destra grassetto
campo SCRITTAESISTENZA x 239 y 42.2 larghezza 24 destra grassetto
campo PREZZOCOSTO x 264 y 42.2 larghezza 22 destra grassetto

[corpo]
inizio 49
fine 196
riga 4.2
campo R_descrizione x 11 y 0.6 larghezza 120 acapo
campo R_mag x 132 y 0.6 larghezza 10
campo R_DT x 143 y 0.6 larghezza 17
campo R_TIPO x 161 y 0.6 larghezza 10
campo R_NUMDOC x 172 y 0.6 larghezza 15 destra formato "######,"
campo R_CARICHI x 189 y 0.6 larghezza 24 destra formato "###.###.###,##"
campo R_SCARICHI x 214 y 0.6 larghezza 24 destra formato "###.###.###,##"
campo R_esistenza x 239 y 0.6 larghezza 24 destra formato "###.###.###,##"
campo R_PREZZO x 264 y 0.6 larghezza 22 destra formato "##.###.###,##"

[piede]
carattere "Arial Narrow" punti 8
testo "stampato il" x 10 y 198.2
campo DATASTAMPA x 24 y 198.2 larghezza 40
testo "pagina" x 255 y 198.2 larghezza 12 destra
campo Pag x 267.5 y 198.2 larghezza 5.5 destra
testo "di" x 274.5 y 198.2
campo PagTot x 278 y 198.2 larghezza 9

# Estratto conto, una lettera per cliente o fornitore, foglio A4. L'indirizzo sta dove le buste con la
# finestra a destra lo mostrano. Pag è la pagina della lettera, non del documento.
[pagina]
formato A4 verticale
margine 8
carattere "Arial Narrow" punti 9
linea x1 15 y1 26 x2 195 y2 26 spessore 0.4
riquadro x 15 y 96 larghezza 180 altezza 6 grigio 235

[testata]
campo DITTA x 15 y 10 larghezza 180 punti 14 grassetto
campo Indirizzo_localita x 15 y 16.6 larghezza 120 punti 9
campo PIVA x 135 y 16.6 larghezza 60 destra punti 8.5
campo CODFISC x 135 y 20.8 larghezza 60 destra punti 8.5
campo SPETTLE x 110 y 42 larghezza 85 punti 10
campo NOME x 110 y 47 larghezza 85 punti 10.5 grassetto
campo INDIRIZZO1 x 110 y 52.2 larghezza 85 punti 10
campo INDIRIZZO2 x 110 y 57.2 larghezza 85 punti 10
campo INDIRIZZO3 x 110 y 62.2 larghezza 85 punti 10
campo INDIRIZZO4 x 110 y 67.2 larghezza 85 punti 10
campo INDIRIZZO5 x 110 y 72.2 larghezza 85 punti 10
campo DATASTAMPA x 15 y 42 larghezza 60 punti 10
campo CODICE x 15 y 47 larghezza 60 punti 9
campo TITOLO x 15 y 80 larghezza 120 punti 13 grassetto
campo PREMESSA x 15 y 88 larghezza 180 punti 10
testo "scadenza" x 16 y 97.1 grassetto
testo "fattura" x 34 y 97.1 larghezza 14 destra grassetto
testo "del" x 50 y 97.1 grassetto
testo "descrizione" x 68 y 97.1 grassetto
testo "gg. ritardo" x 115.5 y 97.1 larghezza 15 destra grassetto
testo "importo" x 131.5 y 97.1 larghezza 20.6 destra grassetto
testo "pagato" x 152.4 y 97.1 larghezza 20.6 destra grassetto
testo "residuo" x 173.4 y 97.1 larghezza 20.6 destra grassetto

[corpo]
inizio 104
fine 283
riga 4.6
campo R_DTSCAD x 16 y 0.6 larghezza 18
campo R_NFAT x 34 y 0.6 larghezza 14 destra
campo R_DTFAT x 50 y 0.6 larghezza 18
campo R_DESCRIZIONE x 68 y 0.6 larghezza 50 acapo
campo R_GIORNI x 118.5 y 0.6 larghezza 12 destra
campo R_IMPORTO x 131.5 y 0.6 larghezza 20.6 destra formato "####.###.###,##"
campo R_PAGATO x 152.4 y 0.6 larghezza 20.6 destra formato "####.###.###,##"
campo R_RESIDUO x 173.4 y 0.6 larghezza 20.6 destra formato "####.###.###,##"
campo R_SCRITTA x 15 y 0.4 larghezza 180 punti 10
carattere "Arial Narrow" punti 9.5 grassetto
campo R_TITOLO x 16 y 0.5 larghezza 178
campo R_SCRITTATOT x 68 y 0.5 larghezza 100
campo R_TOTRESIDUO x 168 y 0.5 larghezza 26 destra formato "####.###.###,##"
campo R_FIRMA x 75 y 0.5 larghezza 120 destra punti 10 acapo

[piede]
carattere "Arial Narrow" punti 8
testo "pagina" x 175 y 285.2 larghezza 12 destra
campo Pag x 188 y 285.2 larghezza 7 destra

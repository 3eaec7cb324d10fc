-- Products in the order in which they are shown.
SELECT Cod, Descrizione, um, Barcode, Prezzo, CategoriaMag AS cat, CategoriaMag2 AS cat2,
  GruppoMag AS gr, GruppoMag2 AS gr2, Conto, CodIva, PosMag, FuoriUso
FROM CodiciRiga
ORDER BY Cod

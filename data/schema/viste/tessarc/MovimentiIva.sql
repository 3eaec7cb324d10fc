-- Taxable rows of VAT registrations with register and protocol of their head.
SELECT Movimenti.Anno, Movimenti.NumDoc, Articoli.Riva, Articoli.NProt, Articoli.Dt, Articoli.Ep,
  Movimenti.CodIva, Movimenti.Imponibile, Movimenti.Iva, Movimenti.IvaInd
FROM Movimenti
  INNER JOIN Articoli ON (Movimenti.Anno = Articoli.Anno) AND (Movimenti.NumDoc = Articoli.NumDoc)
WHERE Movimenti.TIPORIGA=3 AND Articoli.Riva<>''

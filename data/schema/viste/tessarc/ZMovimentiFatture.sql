-- Taxable rows of a VAT registration, with the text of their account.
SELECT Movimenti.*, ContiClientiFornitori.Descrizione AS DescrConto
FROM Movimenti
  LEFT JOIN ContiClientiFornitori
    ON (Movimenti.Conto = ContiClientiFornitori.Cod) AND (Movimenti.CFP = ContiClientiFornitori.CFP)
WHERE Movimenti.TIPORIGA=3
ORDER BY Movimenti.Posi

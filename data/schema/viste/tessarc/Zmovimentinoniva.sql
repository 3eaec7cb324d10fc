-- Rows of a registration, with the texts of their causal and account.
SELECT Movimenti.*, Causali.Descrizione AS DescrCausale,
  ContiClientiFornitori.Descrizione AS DescrConto
FROM (Movimenti
  LEFT JOIN Causali ON Movimenti.Causale = Causali.Cod)
  LEFT JOIN ContiClientiFornitori
    ON (Movimenti.Conto = ContiClientiFornitori.Cod) AND (Movimenti.CFP = ContiClientiFornitori.CFP)
ORDER BY Movimenti.Posi

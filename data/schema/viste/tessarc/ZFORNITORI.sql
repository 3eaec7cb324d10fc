-- Suppliers as party fields search them.
SELECT Cod, ragsoc1, ragsoc2, Pseudonimo, indirizzo, cap, localita, Prov, piva, CodFisc, Conto,
  Categoria
FROM Fornitori

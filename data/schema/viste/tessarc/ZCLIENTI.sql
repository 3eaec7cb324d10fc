-- Customers as party fields search them.
SELECT Cod, ragsoc1, ragsoc2, Pseudonimo, indirizzo, cap, localita, Prov, piva, CodFisc, Conto,
  Agente, Categoria
FROM Clienti

-- Material that jobs are foreseen to use, with whose job it is.
SELECT Commesse_r.NumDoc, Commesse_r.Posi, Commesse_r.Dt, Commesse_r.Cliente AS Parte,
  Clienti.RagSoc1, Commesse.RifInt, Commesse_r.CodiceRiga, Commesse_r.Descrizione, Commesse_r.um,
  Commesse_r.Quantita, Commesse_r.Prezzo, Commesse_r.Ut
FROM (Commesse_r LEFT JOIN Clienti ON Commesse_r.Cliente = Clienti.Cod)
  LEFT JOIN Commesse ON Commesse_r.NumDoc = Commesse.NumDoc

-- Rows of jobs that aren't wholly used, with what of each is still to be unloaded.
SELECT Commesse_r.CodiceRiga, Commesse_r.NumDoc, Commesse_r.Posi,
  Commesse_r.Quantita-Nz((SELECT Sum(ZRigheCommessa.Quantita) FROM ZRigheCommessa
    WHERE ZRigheCommessa.Commessa=Commesse_r.NumDoc AND ZRigheCommessa.PosiCommessa=Commesse_r.Posi
    AND ZRigheCommessa.CS='S'),0) AS Resta
FROM Commesse_r WHERE Commesse_r.Ut=False

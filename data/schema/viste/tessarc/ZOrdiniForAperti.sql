-- Rows of orders to suppliers that aren't settled, with what of each is still to be received.
SELECT OrdiniFor_r.CodiceRiga, OrdiniFor_r.NumDoc, OrdiniFor_r.Posi,
  OrdiniFor_r.Quantita-Nz((SELECT Sum(ZRigheOrdine.Quantita) FROM ZRigheOrdine
    WHERE ZRigheOrdine.Ordine=OrdiniFor_r.NumDoc AND ZRigheOrdine.PosiOrdine=OrdiniFor_r.Posi
    AND ZRigheOrdine.CFP='F'),0) AS Resta
FROM OrdiniFor_r WHERE OrdiniFor_r.OrdineSaldato=False AND OrdiniFor_r.TipoDoc='O'

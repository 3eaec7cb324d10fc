-- Rows of customers' orders that aren't settled, with what of each is still to be delivered.
SELECT OrdiniCli_r.CodiceRiga, OrdiniCli_r.NumDoc, OrdiniCli_r.Posi,
  OrdiniCli_r.Quantita-Nz((SELECT Sum(ZRigheOrdine.Quantita) FROM ZRigheOrdine
    WHERE ZRigheOrdine.Ordine=OrdiniCli_r.NumDoc AND ZRigheOrdine.PosiOrdine=OrdiniCli_r.Posi
    AND ZRigheOrdine.CFP='C'),0) AS Resta
FROM OrdiniCli_r WHERE OrdiniCli_r.OrdineSaldato=False AND OrdiniCli_r.TipoDoc='O'

-- Rows of delivery notes that are still to be invoiced, with the name of their customer.
SELECT FattureCli_r.TipoDoc, FattureCli_r.Anno, FattureCli_r.NumDoc, FattureCli_r.Posi,
  FattureCli_r.Dt, FattureCli_r.CodiceRiga, FattureCli_r.Descrizione, FattureCli_r.Quantita,
  FattureCli_r.Prezzo, FattureCli_r.Sc1, FattureCli_r.Sc2, FattureCli_r.Sc3, FattureCli_r.CliFor,
  Clienti.RagSoc1
FROM (FattureCli_r INNER JOIN FattureCli
    ON (FattureCli_r.TipoDoc = FattureCli.TipoDoc) AND (FattureCli_r.Anno = FattureCli.Anno)
    AND (FattureCli_r.NumDoc = FattureCli.NumDoc))
  LEFT JOIN Clienti ON FattureCli_r.CliFor = Clienti.Cod
WHERE FattureCli.CFP='C' AND FattureCli.Riva='' AND FattureCli.Fatturo=True AND FattureCli.Fattura=0

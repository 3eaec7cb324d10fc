-- Rows of documents with the name of their party.
SELECT FattureCli_r.TipoDoc, FattureCli_r.Anno, FattureCli_r.NumDoc, FattureCli_r.Posi,
  FattureCli_r.Dt, FattureCli_r.CodiceRiga, FattureCli_r.Descrizione, FattureCli_r.Quantita,
  FattureCli_r.Prezzo, FattureCli_r.Sc1, FattureCli_r.Sc2, FattureCli_r.Sc3, FattureCli_r.CS,
  FattureCli_r.CliFor, ContiClientiFornitori.Descrizione AS RagSoc1
FROM FattureCli_r LEFT JOIN ContiClientiFornitori
  ON (FattureCli_r.CliFor = ContiClientiFornitori.Cod)
  AND (FattureCli_r.CFP = ContiClientiFornitori.CFP)

-- What the rows of each document come to, by VAT code; a row with neither amount nor code is text.
SELECT FattureCli_r.TipoDoc, FattureCli_r.Anno, FattureCli_r.NumDoc, FattureCli_r.CodIva,
  CodiciIva.Descrizione AS DescrIva, CodiciIva.Perc AS Perc, Sum(FattureCli_r.Importo) AS Importo
FROM FattureCli_r LEFT JOIN CodiciIva ON FattureCli_r.CodIva = CodiciIva.Cod
WHERE FattureCli_r.CodIva<>'' OR FattureCli_r.Importo<>0
GROUP BY FattureCli_r.TipoDoc, FattureCli_r.Anno, FattureCli_r.NumDoc, FattureCli_r.CodIva,
  CodiciIva.Descrizione, CodiciIva.Perc

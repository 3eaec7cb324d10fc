-- Delivery notes, by their type.
SELECT FattureCli.*, TipiFattureCli.Descrizione AS DescrTipo
FROM FattureCli INNER JOIN TipiFattureCli ON FattureCli.TipoDoc = TipiFattureCli.Cod
WHERE TipiFattureCli.TipoStampa='BOLLA'

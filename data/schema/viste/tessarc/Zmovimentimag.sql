-- Movements of stock that are no paper for a customer, by their type.
SELECT FattureCli.*, TipiFattureCli.Descrizione AS DescrTipo
FROM FattureCli INNER JOIN TipiFattureCli ON FattureCli.TipoDoc = TipiFattureCli.Cod
WHERE TipiFattureCli.TipoStampa='MOVIMENTO'

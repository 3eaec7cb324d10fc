-- Invoices and till receipts, by their type.
SELECT FattureCli.*, TipiFattureCli.Descrizione AS DescrTipo
FROM FattureCli INNER JOIN TipiFattureCli ON FattureCli.TipoDoc = TipiFattureCli.Cod
WHERE TipiFattureCli.TipoStampa='FATTURA' OR TipiFattureCli.TipoStampa='FATTACC' OR TipiFattureCli.TipoStampa='SCONTRINOSCARICO'

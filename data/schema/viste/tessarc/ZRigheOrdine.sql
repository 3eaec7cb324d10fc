-- Rows that fulfil a row of an order.
SELECT FattureCli_r.* FROM FattureCli_r WHERE FattureCli_r.Ordine<>0

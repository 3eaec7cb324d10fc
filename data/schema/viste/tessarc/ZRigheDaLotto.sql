-- Rows that take from a lot.
SELECT FattureCli_r.* FROM FattureCli_r WHERE FattureCli_r.NL2<>0

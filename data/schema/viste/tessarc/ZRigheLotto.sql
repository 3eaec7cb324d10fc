-- Loads that opened a lot.
SELECT FattureCli_r.* FROM FattureCli_r WHERE FattureCli_r.NL1<>0

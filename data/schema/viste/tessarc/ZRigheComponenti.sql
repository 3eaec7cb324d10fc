-- Components that went into the product of a lot.
SELECT FattureCli_r.* FROM FattureCli_r WHERE FattureCli_r.NL3<>0

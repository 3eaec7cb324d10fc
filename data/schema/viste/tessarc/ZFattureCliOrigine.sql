-- Documents made together with another one.
SELECT FattureCli.* FROM FattureCli WHERE FattureCli.NumDocOrigine<>0

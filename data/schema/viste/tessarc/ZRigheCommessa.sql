-- Rows that serve a row of a job.
SELECT FattureCli_r.* FROM FattureCli_r WHERE FattureCli_r.Commessa<>0

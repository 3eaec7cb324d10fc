-- Rows of documents, with the text of their account; whoever reads says which document and order.
SELECT FattureCli_r.*, Conti.Descrizione AS DescrConto
FROM FattureCli_r LEFT JOIN Conti ON FattureCli_r.Conto = Conti.Cod

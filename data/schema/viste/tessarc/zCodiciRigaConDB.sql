-- Products that have a bill of materials.
SELECT Cod, Descrizione, um, Barcode, FuoriUso
FROM CodiciRiga
WHERE Cod IN (SELECT Db_r.Cod FROM Db_r)
ORDER BY Cod

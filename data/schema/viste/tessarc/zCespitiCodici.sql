-- Assets as a code field searches them: by their number.
SELECT NCesp & '' AS Cod, Descrizione, NCesp FROM Cespiti

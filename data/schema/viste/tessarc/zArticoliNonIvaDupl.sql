-- Registrations offered as models for new ones.
SELECT NumDoc AS Articolo, Anno, Dt, DescrArtDupl, Conto, ContoA
FROM Articoli
WHERE Duplicabile=True AND Riva=''
ORDER BY Anno, NumDoc

-- Registrations tied to the document that they were written with.
SELECT * FROM Articoli WHERE NumDocOrigine <> 0

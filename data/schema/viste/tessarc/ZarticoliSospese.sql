-- Registrations whose VAT is deferred.
SELECT * FROM Articoli WHERE Ep<>False

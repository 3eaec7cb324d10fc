-- Registrations on a VAT register.
SELECT * FROM Articoli WHERE Riva<>''

-- Registrations that aren't on a VAT register.
SELECT * FROM Articoli WHERE Riva=''

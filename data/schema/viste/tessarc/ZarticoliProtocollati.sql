-- Registrations that have a protocol number on a VAT register.
SELECT * FROM Articoli WHERE Riva<>'' AND NProt<>0

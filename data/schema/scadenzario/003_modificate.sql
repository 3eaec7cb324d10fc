-- A person wrote the due date, or changed what the program had written (its amount, a deposit taken
-- off it): confirming the invoice again must not put a new one in its place.
ALTER TABLE Scadenze ADD COLUMN Modificata SINO NOT NULL DEFAULT 0;

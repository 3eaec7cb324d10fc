-- The chart as account fields search it.
SELECT Cod, Descrizione, CFP, PatrEcon, Cespite FROM Conti

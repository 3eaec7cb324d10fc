-- Only the open due dates are looked for by their state. Beside all those that were ever paid they
-- are few: an index of them alone is small, and a payment takes its due dates out of it instead of
-- moving each to another end. The engine uses it for statements that hold Stato<'30'.
DROP INDEX _Scadenze_stato;
CREATE INDEX _Scadenze_aperte ON Scadenze (CFP, Stato, Conto, Dt) WHERE Stato < '30';

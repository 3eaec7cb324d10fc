-- The number of an invoice is kept whole, as it stands on the paper ("2024/123", "S/88"); empty
-- without. Mostly it is a number, and statements treat it as one: TEXT CIFRE is a text that is
-- compared with numbers by its digits, in which 0 stands for empty, and that sorts as numbers do.
-- A column can't change its type where it stands, so the table is made anew; every row keeps its
-- identity. What was written before goes on holding the leading digits that were kept of it.
ALTER TABLE Scadenze RENAME TO _Scadenze_prima;
CREATE TABLE Scadenze (
  Numero INTEGER NOT NULL DEFAULT 0 UNIQUE,
  CFP TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Conto TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Dt DATA NOT NULL DEFAULT 0,
  Tipo TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Stato TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Anno INTEGER NOT NULL DEFAULT 0,
  Articolo INTEGER NOT NULL DEFAULT 0,
  Riva TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  NProt INTEGER NOT NULL DEFAULT 0,
  NFat TEXT CIFRE NOT NULL DEFAULT '' COLLATE FENALTO,
  DtFat DATA NOT NULL DEFAULT 0,
  Programma TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Importo IMPORTO NOT NULL DEFAULT 0,
  ImportoPagato IMPORTO NOT NULL DEFAULT 0,
  ImportoE IMPORTO NOT NULL DEFAULT 0,
  ImportoPagatoE IMPORTO NOT NULL DEFAULT 0,
  Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  PrimaScad SINO NOT NULL DEFAULT 0,
  Ultimascad SINO NOT NULL DEFAULT 0,
  Pagamento TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  BancaPresentaz TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Ndistinta INTEGER NOT NULL DEFAULT 0,
  DtPres DATA NOT NULL DEFAULT 0,
  TipoDoc TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  anticipo SINO NOT NULL DEFAULT 0,
  DtPag DATA NOT NULL DEFAULT 0,
  Modificata SINO NOT NULL DEFAULT 0
);


INSERT INTO Scadenze (
  rowid, Numero, CFP, Conto, Dt, Tipo, Stato, Anno, Articolo, Riva, NProt, NFat, DtFat,
  Programma, Importo, ImportoPagato, ImportoE, ImportoPagatoE, Descrizione, PrimaScad,
  Ultimascad, Pagamento, BancaPresentaz, Ndistinta, DtPres, TipoDoc, anticipo, DtPag, Modificata
) SELECT
  rowid, Numero, CFP, Conto, Dt, Tipo, Stato, Anno, Articolo, Riva, NProt,
  CASE NFat WHEN 0 THEN '' ELSE CAST(NFat AS TEXT) END, DtFat, Programma, Importo, ImportoPagato,
  ImportoE, ImportoPagatoE, Descrizione, PrimaScad, Ultimascad, Pagamento, BancaPresentaz,
  Ndistinta, DtPres, TipoDoc, anticipo, DtPag, Modificata
FROM _Scadenze_prima;

DROP TABLE _Scadenze_prima;

CREATE INDEX _Scadenze_conto ON Scadenze (CFP, Conto, Dt);
CREATE INDEX _Scadenze_articolo ON Scadenze (Anno, Articolo);
CREATE INDEX _Scadenze_aperte ON Scadenze (CFP, Stato, Conto, Dt) WHERE Stato < '30';

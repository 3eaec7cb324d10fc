-- Payments, bank receipts and bank statements.

-- Open due dates of a class, few among all those that were ever paid; receipts of one kind among
-- them.
CREATE INDEX _Scadenze_stato ON Scadenze (CFP, Stato, Conto, Dt);

-- Layout of the rows that a payment works on in a scratch copy; no row is ever kept here. Importo is
-- what is left to settle of the due date NumeroScadenza.
CREATE TABLE Pagamenti_R (
  NUM INTEGER PRIMARY KEY AUTOINCREMENT,
  POSI INTEGER NOT NULL DEFAULT 0,
  NumeroScadenza INTEGER NOT NULL DEFAULT 0,
  Importo IMPORTO NOT NULL DEFAULT 0,
  ImportoPagato IMPORTO NOT NULL DEFAULT 0,
  Arrotondamento IMPORTO NOT NULL DEFAULT 0,
  Saldata SINO NOT NULL DEFAULT 0
);

-- A row is a line of a bank statement that was settled, so that reading the statement again doesn't
-- propose it again. Chiave tells it from the others: day, amount, description and which of several
-- alike.
CREATE TABLE MovimentiBanca (
  Chiave TEXT NOT NULL DEFAULT '' COLLATE FENALTO PRIMARY KEY,
  Dt DATA NOT NULL DEFAULT 0,
  Importo IMPORTO NOT NULL DEFAULT 0,
  Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Anno INTEGER NOT NULL DEFAULT 0,
  Articolo INTEGER NOT NULL DEFAULT 0
);

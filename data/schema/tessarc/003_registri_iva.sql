-- What the VAT registers and settlements have printed in definitive, and their totals.

-- A row is a period of a register printed in definitive: its first and last protocol.
CREATE TABLE UltProtStRegIva (
  Anno INTEGER NOT NULL DEFAULT 0,
  Riva TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  MeseTrimestre TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  DaNProt INTEGER NOT NULL DEFAULT 0,
  UltProtSt INTEGER NOT NULL DEFAULT 0,
  PRIMARY KEY (Anno, Riva, MeseTrimestre)
);

-- A row is a period settled in definitive: no registration may be dated in it any more. Importo is
-- what was owed; UltPag is the last page printed, from which the next period's pages go on.
CREATE TABLE ChiusureIva (
  Anno INTEGER NOT NULL DEFAULT 0,
  MESETRIMESTRE TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CreditoPrec IMPORTO NOT NULL DEFAULT 0,
  Importo1 IMPORTO NOT NULL DEFAULT 0,
  ImportoInteressi IMPORTO NOT NULL DEFAULT 0,
  Importo IMPORTO NOT NULL DEFAULT 0,
  UltPag INTEGER NOT NULL DEFAULT 0,
  PRIMARY KEY (Anno, MESETRIMESTRE)
);

-- The list of a register, and the protocols of a year and register in order.
CREATE INDEX _Articoli_registro ON Articoli (Anno, Riva, NumDoc) WHERE Riva <> '';
CREATE INDEX _Articoli_parte ON Articoli (Anno, Riva, CFP, Conto, NumDoc) WHERE Riva <> '';

-- A row is a VAT code on a register in a period; with an empty CodIva it is the register's own line.
CREATE TABLE TotaliIva (
  Anno INTEGER NOT NULL DEFAULT 0,
  Riva TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CodIva TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  PERIODO TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  DaNProt INTEGER NOT NULL DEFAULT 0,
  AaNprot INTEGER NOT NULL DEFAULT 0,
  Tipo TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Imponibile IMPORTO NOT NULL DEFAULT 0,
  Iva IMPORTO NOT NULL DEFAULT 0,
  IvaInd IMPORTO NOT NULL DEFAULT 0,
  TOTALEIVA IMPORTO NOT NULL DEFAULT 0,
  DEFINITIVO SINO NOT NULL DEFAULT 0,
  PRIMARY KEY (Anno, PERIODO, Riva, CodIva)
);

-- The same of the deferred invoices among them.
CREATE TABLE TotaliIvaEP (
  Anno INTEGER NOT NULL DEFAULT 0,
  Riva TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CodIva TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  PERIODO TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  DaNProt INTEGER NOT NULL DEFAULT 0,
  AaNprot INTEGER NOT NULL DEFAULT 0,
  Tipo TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Imponibile IMPORTO NOT NULL DEFAULT 0,
  Iva IMPORTO NOT NULL DEFAULT 0,
  IvaInd IMPORTO NOT NULL DEFAULT 0,
  PRIMARY KEY (Anno, PERIODO, Riva, CodIva)
);

-- A row is a line of a settlement as printed, N its place.
CREATE TABLE ChiusIva (
  Anno INTEGER NOT NULL DEFAULT 0,
  MeseTrimestre TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  N INTEGER NOT NULL DEFAULT 0,
  ScrittaPeriodo TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  R_Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  R_Impo IMPORTO NOT NULL DEFAULT 0,
  PRIMARY KEY (Anno, MeseTrimestre, N)
);

-- The credit carried to the next period, row "01".
CREATE TABLE CreditoIva (
  Cod TEXT NOT NULL DEFAULT '' COLLATE FENALTO PRIMARY KEY,
  CreditoIva IMPORTO NOT NULL DEFAULT 0
);

-- The last date of a register.
CREATE INDEX _Articoli_registro_data ON Articoli (Anno, Riva, Dt) WHERE Riva <> '';

-- Deferred invoices by the day they are collected.
CREATE INDEX _Articoli_incasso ON Articoli (Riva, DtIncasso) WHERE Ep <> 0;

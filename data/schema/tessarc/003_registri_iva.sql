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

-- A row is a period settled in definitive: no registration may be dated in it any more.
CREATE TABLE ChiusureIva (
  Anno INTEGER NOT NULL DEFAULT 0,
  MESETRIMESTRE TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CreditoPrec IMPORTO NOT NULL DEFAULT 0,
  Importo1 IMPORTO NOT NULL DEFAULT 0,
  ImportoInteressi IMPORTO NOT NULL DEFAULT 0,
  Importo IMPORTO NOT NULL DEFAULT 0,
  PRIMARY KEY (Anno, MESETRIMESTRE)
);

-- The list of a register, and the protocols of a year and register in order.
CREATE INDEX _Articoli_registro ON Articoli (Anno, Riva, NumDoc) WHERE Riva <> '';
CREATE INDEX _Articoli_parte ON Articoli (Anno, Riva, CFP, Conto, NumDoc) WHERE Riva <> '';

-- Where a customer's goods go.

-- A row is one of a customer's destinations; Posi is what a document keeps of it.
CREATE TABLE Destinazioni_R (
  COD TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  POSI INTEGER NOT NULL DEFAULT 0,
  RagSoc1Dest_R TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  ragsoc2Dest_R TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  indirizzodest_R TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  capdest_r TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  localitadest_r TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  provdest_r TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CODDEST TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  PRIMARY KEY (COD, POSI)
);

-- The check that no other party has a tax number.
CREATE INDEX _Clienti_piva ON Clienti (piva);
CREATE INDEX _Fornitori_piva ON Fornitori (piva);

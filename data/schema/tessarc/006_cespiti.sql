-- Fixed assets and their depreciation.

-- A row is a category of assets: its yearly rate and that of the first year, in percent. ContoAmm
-- (the cost) and ContoFondo (the fund) are the accounts of the registration of a year's quotas.
CREATE TABLE CategorieCespiti (
  Cod TEXT NOT NULL DEFAULT '' COLLATE FENALTO PRIMARY KEY,
  DescrCat TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Perc IMPORTO NOT NULL DEFAULT 0,
  Perc1 IMPORTO NOT NULL DEFAULT 0,
  ContoAmm TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  ContoFondo TEXT NOT NULL DEFAULT '' COLLATE FENALTO
);

-- A row is the card of an asset. AmmCompl and Dismesso follow from its rows. CespCorr is the main
-- asset that it is tied to, 0 for none.
CREATE TABLE Cespiti (
  NCesp INTEGER NOT NULL DEFAULT 0 UNIQUE,
  Codice TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Cat TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  sn TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Ubicaz TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Usato SINO NOT NULL DEFAULT 0,
  Dal DATA NOT NULL DEFAULT 0,
  Note TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CespCorr INTEGER NOT NULL DEFAULT 0,
  AmmCompl SINO NOT NULL DEFAULT 0,
  Dismesso SINO NOT NULL DEFAULT 0
);

-- A row is an event of an asset in a year: cost, quota, disposal, as its causal says. Cat and
-- CespCorr repeat what the card has.
CREATE TABLE MovCesp_r (
  NCesp INTEGER NOT NULL DEFAULT 0,
  Posi INTEGER NOT NULL DEFAULT 0,
  Anno INTEGER NOT NULL DEFAULT 0,
  Cau TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Estremi TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Note TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  P IMPORTO NOT NULL DEFAULT 0,
  Importo IMPORTO NOT NULL DEFAULT 0,
  StornoFondoDismParz IMPORTO NOT NULL DEFAULT 0,
  Cat TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CespCorr INTEGER NOT NULL DEFAULT 0,
  PRIMARY KEY (NCesp, Posi)
);

-- The causals of those rows, which the program counts on.
CREATE TABLE CausaliCespiti (
  cod TEXT NOT NULL DEFAULT '' COLLATE FENALTO PRIMARY KEY,
  Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO
);
INSERT INTO CausaliCespiti (cod, Descrizione) VALUES
  ('100', 'Costo originario'),
  ('200', 'Rivalut./svalut.'),
  ('300', 'Dismiss.parziale'),
  ('390', 'Quote anni prec.'),
  ('400', 'Quota ammortam.'),
  ('500', 'Dismiss./vendita');

-- Assets of a category, by number; those that name another one.
CREATE INDEX _Cespiti_categoria ON Cespiti (Cat, NCesp);
CREATE INDEX _Cespiti_riferimento ON Cespiti (CespCorr);

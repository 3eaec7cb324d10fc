-- Products, price lists, orders, bills of materials, jobs; documents get an identity.

-- A row is a product or service: whatever may stand on a row of a document. ID is what its
-- attachments are filed under. Prov is the agent's percent; ConversioneA turns uma (purchase) into um.
-- FuoriUso: not proposed any more.
CREATE TABLE CodiciRiga (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Cod TEXT NOT NULL DEFAULT '' COLLATE FENALTO UNIQUE,
  Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Descrizione1 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Descrizione2 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  um TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  uma TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  ConversioneA IMPORTO NOT NULL DEFAULT 0,
  Barcode TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Prezzo IMPORTO NOT NULL DEFAULT 0,
  Sc IMPORTO NOT NULL DEFAULT 0,
  Prezzo2 IMPORTO NOT NULL DEFAULT 0,
  Sc2 IMPORTO NOT NULL DEFAULT 0,
  Prezzo3 IMPORTO NOT NULL DEFAULT 0,
  Sc3 IMPORTO NOT NULL DEFAULT 0,
  PrezzoIva IMPORTO NOT NULL DEFAULT 0,
  Ricarico IMPORTO NOT NULL DEFAULT 0,
  PrezzoCampagna IMPORTO NOT NULL DEFAULT 0,
  ScCampagna IMPORTO NOT NULL DEFAULT 0,
  ValidDal DATA NOT NULL DEFAULT 0,
  ValidAl DATA NOT NULL DEFAULT 0,
  DtAggPrezzi DATA NOT NULL DEFAULT 0,
  CostoDigitato IMPORTO NOT NULL DEFAULT 0,
  CodIva TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Conto TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Prov IMPORTO NOT NULL DEFAULT 0,
  CategoriaMag TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CategoriaMag2 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  GruppoMag TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  GruppoMag2 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  QMinRiordino IMPORTO NOT NULL DEFAULT 0,
  Scorta IMPORTO NOT NULL DEFAULT 0,
  PosMag TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  ggScad INTEGER NOT NULL DEFAULT 0,
  FileDescrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  FileImmagine TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  FuoriUso SINO NOT NULL DEFAULT 0
);

CREATE INDEX _CodiciRiga_barcode ON CodiciRiga (Barcode);
-- The search while typing goes through this, and never through the rows.
CREATE INDEX _CodiciRiga_ricerca ON CodiciRiga (Cod, FuoriUso, Barcode, Descrizione);

-- A row is a supplier of a product, with its code and cost there.
CREATE TABLE prodottiFor_r (
  Cod TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Posi INTEGER NOT NULL DEFAULT 0,
  Fornitore TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  codprfor TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Prezzo IMPORTO NOT NULL DEFAULT 0,
  Sc1 IMPORTO NOT NULL DEFAULT 0,
  Sc2 IMPORTO NOT NULL DEFAULT 0,
  Sc3 IMPORTO NOT NULL DEFAULT 0,
  PRIMARY KEY (Cod, Posi)
);

CREATE INDEX _prodottiFor_r_fornitore ON prodottiFor_r (Fornitore, Cod);
CREATE INDEX _prodottiFor_r_ricerca ON prodottiFor_r (codprfor, Cod);

-- A row is a price list of customers.
CREATE TABLE Listini (
  Cod TEXT NOT NULL DEFAULT '' COLLATE FENALTO PRIMARY KEY,
  Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO
);

-- A row is a product's price on a list; Dt is the day of its last change.
CREATE TABLE Listini_r (
  Cod TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Posi INTEGER NOT NULL DEFAULT 0,
  CodiceRiga TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CodPrCli TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Prezzo IMPORTO NOT NULL DEFAULT 0,
  Sc1 IMPORTO NOT NULL DEFAULT 0,
  Sc2 IMPORTO NOT NULL DEFAULT 0,
  Sc3 IMPORTO NOT NULL DEFAULT 0,
  Prov IMPORTO NOT NULL DEFAULT 0,
  Dt DATA NOT NULL DEFAULT 0,
  PRIMARY KEY (Cod, Posi)
);

CREATE INDEX _Listini_r_prodotto ON Listini_r (CodiceRiga, Cod);

-- A row is a customer's order (TipoDoc "O") or an offer to one ("F"). The numbers of each kind run on
-- across the years.
CREATE TABLE OrdiniCli (
  TipoDoc TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  NumDoc INTEGER NOT NULL DEFAULT 0,
  Dt DATA NOT NULL DEFAULT 0,
  Cliente TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Pagamento TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Agente TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Riferim TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Attenz TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Consegna TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  NoteIntestazione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  NoteFinali TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Chiave TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  PRIMARY KEY (TipoDoc, NumDoc)
);

CREATE INDEX _OrdiniCli_cliente ON OrdiniCli (Cliente, TipoDoc, Dt);

-- A row is a line of an order or offer; DtCons is the day of delivery, of an offer the last of its
-- validity. OrdineSaldato: nothing more of it will be delivered.
CREATE TABLE OrdiniCli_r (
  TipoDoc TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  NumDoc INTEGER NOT NULL DEFAULT 0,
  Posi INTEGER NOT NULL DEFAULT 0,
  CodiceRiga TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CodPrCli TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  um TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Quantita IMPORTO NOT NULL DEFAULT 0,
  Prezzo IMPORTO NOT NULL DEFAULT 0,
  Sc1 IMPORTO NOT NULL DEFAULT 0,
  Sc2 IMPORTO NOT NULL DEFAULT 0,
  Sc3 IMPORTO NOT NULL DEFAULT 0,
  Importo IMPORTO NOT NULL DEFAULT 0,
  CodIva TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Conto TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Prov IMPORTO NOT NULL DEFAULT 0,
  DtCons DATA NOT NULL DEFAULT 0,
  OrdineSaldato SINO NOT NULL DEFAULT 0,
  Dt DATA NOT NULL DEFAULT 0,
  CLIENTE TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CFP TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  PRIMARY KEY (TipoDoc, NumDoc, Posi)
);

CREATE INDEX _OrdiniCli_r_prodotto ON OrdiniCli_r (CodiceRiga, OrdineSaldato, TipoDoc);
CREATE INDEX _OrdiniCli_r_cliente ON OrdiniCli_r (CLIENTE, CodiceRiga, TipoDoc, Dt);

-- A row is an order to a supplier (TipoDoc "O") or a request for an offer ("F"); OrdineCli is the
-- customer's order that it was made for.
CREATE TABLE OrdiniFor (
  TipoDoc TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  NumDoc INTEGER NOT NULL DEFAULT 0,
  Dt DATA NOT NULL DEFAULT 0,
  Fornitore TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Pagamento TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Riferim TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Attenz TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Consegna TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  NoteIntestazione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  NoteFinali TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Chiave TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  OrdineCli INTEGER NOT NULL DEFAULT 0,
  PRIMARY KEY (TipoDoc, NumDoc)
);

CREATE INDEX _OrdiniFor_fornitore ON OrdiniFor (Fornitore, TipoDoc, Dt);

-- A row is a line of it; uma, QuantitaA and PrezzoA are unit, quantity and price of purchase.
CREATE TABLE OrdiniFor_r (
  TipoDoc TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  NumDoc INTEGER NOT NULL DEFAULT 0,
  Posi INTEGER NOT NULL DEFAULT 0,
  CodiceRiga TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  um TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  uma TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  ConversioneA IMPORTO NOT NULL DEFAULT 0,
  Quantita IMPORTO NOT NULL DEFAULT 0,
  QuantitaA IMPORTO NOT NULL DEFAULT 0,
  Prezzo IMPORTO NOT NULL DEFAULT 0,
  PrezzoA IMPORTO NOT NULL DEFAULT 0,
  Sc1 IMPORTO NOT NULL DEFAULT 0,
  Sc2 IMPORTO NOT NULL DEFAULT 0,
  Sc3 IMPORTO NOT NULL DEFAULT 0,
  Importo IMPORTO NOT NULL DEFAULT 0,
  Commessa INTEGER NOT NULL DEFAULT 0,
  PosiCommessa INTEGER NOT NULL DEFAULT 0,
  DtCons DATA NOT NULL DEFAULT 0,
  OrdineSaldato SINO NOT NULL DEFAULT 0,
  Dt DATA NOT NULL DEFAULT 0,
  FORNITORE TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CFP TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  PRIMARY KEY (TipoDoc, NumDoc, Posi)
);

CREATE INDEX _OrdiniFor_r_prodotto ON OrdiniFor_r (CodiceRiga, OrdineSaldato, TipoDoc);

-- A row is a component of the bill of materials of product Cod: how much of it one unit takes.
CREATE TABLE Db_r (
  Cod TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Posi INTEGER NOT NULL DEFAULT 0,
  CodiceRiga TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Quantita IMPORTO NOT NULL DEFAULT 0,
  Note TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  PRIMARY KEY (Cod, Posi)
);

CREATE INDEX _Db_r_componente ON Db_r (CodiceRiga);

-- A row is a job for a customer; Stato "90" is closed.
CREATE TABLE Commesse (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  NumDoc INTEGER NOT NULL DEFAULT 0,
  Dt DATA NOT NULL DEFAULT 0,
  DtCons DATA NOT NULL DEFAULT 0,
  Cliente TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Riferim TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Chiave TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  RifInt TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  DescrInt TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  DescrFatt TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  SNmod TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Q IMPORTO NOT NULL DEFAULT 0,
  Prezzo IMPORTO NOT NULL DEFAULT 0,
  Note TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Stato TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  UNIQUE (NumDoc)
);

-- A row is a cost that a job is foreseen to have. Ut: wholly used, it commits no stock any more.
CREATE TABLE Commesse_r (
  NumDoc INTEGER NOT NULL DEFAULT 0,
  Posi INTEGER NOT NULL DEFAULT 0,
  CodiceRiga TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Descrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  um TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Quantita IMPORTO NOT NULL DEFAULT 0,
  Prezzo IMPORTO NOT NULL DEFAULT 0,
  Ut SINO NOT NULL DEFAULT 0,
  Dt DATA NOT NULL DEFAULT 0,
  Cliente TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CFP TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  PRIMARY KEY (NumDoc, Posi)
);

CREATE INDEX _Commesse_r_prodotto ON Commesse_r (CodiceRiga, Ut);

-- A row is a series that goes on when what bore its last number is gone: "NL1", numbers of lots.
CREATE TABLE Contatori (
  Cod TEXT NOT NULL DEFAULT '' COLLATE FENALTO PRIMARY KEY,
  Ultimo INTEGER NOT NULL DEFAULT 0
);

-- The type of load that an unload of this type writes in another warehouse; empty for none.
ALTER TABLE TipiFattureCli ADD COLUMN TipoDocTrasferimento TEXT NOT NULL DEFAULT '' COLLATE FENALTO;

-- Documents get an identity, which attachments are filed under and which outlives a number, and know
-- what they were made with: CREATOINAUTOMATICO is 0 typed by hand, 1 unload of components, 2 other
-- side of a transfer, 3 opening stock carried over; the document of origin is named by type, year and
-- number, 0 for none. A table can't gain a key where it stands, so it is made anew.
ALTER TABLE FattureCli RENAME TO _FattureCli_prima;
CREATE TABLE FattureCli (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  TipoDoc TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Anno INTEGER NOT NULL DEFAULT 0,
  NumDoc INTEGER NOT NULL DEFAULT 0,
  Dt DATA NOT NULL DEFAULT 0,
  CFP TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CliFor TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Riva TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CausaleMag TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CS TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Mag TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Destinazione INTEGER NOT NULL DEFAULT 0,
  RagSoc1Dest TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  ragsoc2Dest TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  indirizzodest TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  capdest TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  localitadest TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  provdest TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Pagamento TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  ScadPag TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Agente TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  ScontoCassa IMPORTO NOT NULL DEFAULT 0,
  Varie1 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Varie2 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Varie3 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Varie4 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Chiave TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Fatturo SINO NOT NULL DEFAULT 0,
  EscludoFatAuto SINO NOT NULL DEFAULT 0,
  Fattura INTEGER NOT NULL DEFAULT 0,
  CodiceCausaleTrasporto TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CausaleTrasporto TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Trasporto TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CodiceVettore TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Vettore1 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Vettore2 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Vettore3 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Vettore4 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Porto TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  CodAspetto TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Aspetto TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Colli INTEGER NOT NULL DEFAULT 0,
  Peso IMPORTO NOT NULL DEFAULT 0,
  DataOra TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  RaCod TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  RaDescrizione TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  RaImporto IMPORTO NOT NULL DEFAULT 0,
  RaCod2 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  RaDescrizione2 TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  RaImporto2 IMPORTO NOT NULL DEFAULT 0,
  Ep SINO NOT NULL DEFAULT 0,
  DtIncasso DATA NOT NULL DEFAULT 0,
  NVarAnPrec SINO NOT NULL DEFAULT 0,
  NumDocCarico TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  DtDocCarico DATA NOT NULL DEFAULT 0,
  CREATOINAUTOMATICO INTEGER NOT NULL DEFAULT 0,
  TipoDocOrigine TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  AnnoOrigine INTEGER NOT NULL DEFAULT 0,
  NumDocOrigine INTEGER NOT NULL DEFAULT 0,
  UNIQUE (TipoDoc, Anno, NumDoc)
);

INSERT INTO FattureCli (
  TipoDoc, Anno, NumDoc, Dt, CFP, CliFor, Riva, CausaleMag, CS, Mag, Destinazione, RagSoc1Dest,
  ragsoc2Dest, indirizzodest, capdest, localitadest, provdest, Pagamento, ScadPag, Agente,
  ScontoCassa, Varie1, Varie2, Varie3, Varie4, Chiave, Fatturo, EscludoFatAuto, Fattura,
  CodiceCausaleTrasporto, CausaleTrasporto, Trasporto, CodiceVettore, Vettore1, Vettore2,
  Vettore3, Vettore4, Porto, CodAspetto, Aspetto, Colli, Peso, DataOra, RaCod, RaDescrizione,
  RaImporto, RaCod2, RaDescrizione2, RaImporto2, Ep, DtIncasso, NVarAnPrec, NumDocCarico,
  DtDocCarico
) SELECT
  TipoDoc, Anno, NumDoc, Dt, CFP, CliFor, Riva, CausaleMag, CS, Mag, Destinazione, RagSoc1Dest,
  ragsoc2Dest, indirizzodest, capdest, localitadest, provdest, Pagamento, ScadPag, Agente,
  ScontoCassa, Varie1, Varie2, Varie3, Varie4, Chiave, Fatturo, EscludoFatAuto, Fattura,
  CodiceCausaleTrasporto, CausaleTrasporto, Trasporto, CodiceVettore, Vettore1, Vettore2,
  Vettore3, Vettore4, Porto, CodAspetto, Aspetto, Colli, Peso, DataOra, RaCod, RaDescrizione,
  RaImporto, RaCod2, RaDescrizione2, RaImporto2, Ep, DtIncasso, NVarAnPrec, NumDocCarico,
  DtDocCarico
FROM _FattureCli_prima;

DROP TABLE _FattureCli_prima;

-- Documents of a party; CliFor with CFP names it.
CREATE INDEX _FattureCli_clifor ON FattureCli (CFP, CliFor, Dt);
CREATE INDEX _FattureCli_data ON FattureCli (Anno, Dt, TipoDoc, NumDoc);
-- What was made with a document. Partial: the statements that use it hold its condition
-- (ZFattureCliOrigine), as those of rows do (ZRigheOrdine, ZRigheCommessa, ZRigheLotto, ...).
CREATE INDEX _FattureCli_origine ON FattureCli (TipoDocOrigine, AnnoOrigine, NumDocOrigine)
  WHERE NumDocOrigine <> 0;

-- Rows that fulfil an order's or a job's row; lots loaded, unloaded, gone into a product.
CREATE INDEX _FattureCli_r_ordine ON FattureCli_r (Ordine, PosiOrdine, CFP, Quantita)
  WHERE Ordine <> 0;
CREATE INDEX _FattureCli_r_commessa ON FattureCli_r (Commessa, PosiCommessa, CS, Quantita)
  WHERE Commessa <> 0;
CREATE UNIQUE INDEX _FattureCli_r_lotto ON FattureCli_r (NL1) WHERE NL1 <> 0;
CREATE INDEX _FattureCli_r_scarichi ON FattureCli_r (NL2) WHERE NL2 <> 0;
CREATE INDEX _FattureCli_r_componenti ON FattureCli_r (NL3) WHERE NL3 <> 0;

-- Stock and costs of all products of a year in order of product, and of one, without a look at the
-- rows themselves: those of a year lie by document, all over the table.
CREATE INDEX _FattureCli_r_magazzinoAnno ON FattureCli_r (
  Anno, CodiceRiga, Dt, NumDoc, TipoDoc, Posi, CS, Mag, Quantita, Prezzo, Sc1, Sc2, Sc3, CausaleMag
);

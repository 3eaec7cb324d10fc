-- What was done to close a year and to open the next.

-- A row is a run of the year end. Operazione is the CREATOINAUTOMATICO of what it wrote (91 to 94),
-- 90 for a new year. Anno is the year that it closes, AnnoScritto the one whose registrations it
-- wrote: DaId to AId are their identities in Articoli, DaNumDoc to ANumDoc their numbers. Totale is
-- their debit side, as it was written. Sostituite counts the provisional openings that gave way.
-- Prima keeps what a new year has reset, to put it back.
CREATE TABLE OperazioniAnno (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Anno INTEGER NOT NULL DEFAULT 0,
  Operazione INTEGER NOT NULL DEFAULT 0,
  AnnoScritto INTEGER NOT NULL DEFAULT 0,
  Definitivo SINO NOT NULL DEFAULT 0,
  Dt DATA NOT NULL DEFAULT 0,
  DaNumDoc INTEGER NOT NULL DEFAULT 0,
  ANumDoc INTEGER NOT NULL DEFAULT 0,
  DaId INTEGER NOT NULL DEFAULT 0,
  AId INTEGER NOT NULL DEFAULT 0,
  Quante INTEGER NOT NULL DEFAULT 0,
  Totale IMPORTO NOT NULL DEFAULT 0,
  Sostituite INTEGER NOT NULL DEFAULT 0,
  Giorno DATA NOT NULL DEFAULT 0,
  Ora TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Utente TEXT NOT NULL DEFAULT '' COLLATE FENALTO,
  Prima TEXT NOT NULL DEFAULT '' COLLATE FENALTO
);

CREATE INDEX _OperazioniAnno_anno ON OperazioniAnno (Anno, ID);

-- Which document a registration was written with.

-- Year and number of the document; 0 for none, and for what was written before there was a place
-- to keep them.
ALTER TABLE Articoli ADD COLUMN AnnoOrigine INTEGER NOT NULL DEFAULT 0;
ALTER TABLE Articoli ADD COLUMN NumDocOrigine INTEGER NOT NULL DEFAULT 0;

CREATE INDEX _Articoli_origine ON Articoli (AnnoOrigine, NumDocOrigine) WHERE NumDocOrigine <> 0;

-- They follow their document to another number, whoever gives it, and are nobody's without it.
CREATE TRIGGER _Articoli_origine_spostata AFTER UPDATE OF Anno, NumDoc ON Articoli
WHEN NEW.Anno <> OLD.Anno OR NEW.NumDoc <> OLD.NumDoc
BEGIN
  UPDATE Articoli SET AnnoOrigine = NEW.Anno, NumDocOrigine = NEW.NumDoc
    WHERE AnnoOrigine = OLD.Anno AND NumDocOrigine = OLD.NumDoc AND NumDocOrigine <> 0;
END;

CREATE TRIGGER _Articoli_origine_eliminata AFTER DELETE ON Articoli
BEGIN
  UPDATE Articoli SET AnnoOrigine = 0, NumDocOrigine = 0
    WHERE AnnoOrigine = OLD.Anno AND NumDocOrigine = OLD.NumDoc AND NumDocOrigine <> 0;
END;

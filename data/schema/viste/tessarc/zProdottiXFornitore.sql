-- Products with their suppliers, by supplier.
SELECT prodottiFor_r.Fornitore, Fornitori.ragsoc1, prodottiFor_r.Cod, CodiciRiga.Descrizione,
  prodottiFor_r.codprfor, CodiciRiga.um, prodottiFor_r.Prezzo, prodottiFor_r.Sc1,
  prodottiFor_r.Sc2, prodottiFor_r.Sc3, CodiciRiga.Barcode, CodiciRiga.FuoriUso
FROM (prodottiFor_r INNER JOIN CodiciRiga ON prodottiFor_r.Cod = CodiciRiga.Cod)
  LEFT JOIN Fornitori ON prodottiFor_r.Fornitore = Fornitori.Cod
ORDER BY prodottiFor_r.Fornitore, prodottiFor_r.Cod

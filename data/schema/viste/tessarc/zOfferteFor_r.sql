-- Rows of suppliers' offers.
SELECT OrdiniFor_r.TipoDoc, OrdiniFor_r.NumDoc, OrdiniFor_r.Posi, OrdiniFor_r.Dt,
  OrdiniFor_r.FORNITORE AS Parte, Fornitori.RagSoc1, OrdiniFor.Riferim, OrdiniFor_r.CodiceRiga,
  OrdiniFor_r.Descrizione, OrdiniFor_r.um, OrdiniFor_r.Quantita, OrdiniFor_r.Prezzo,
  OrdiniFor_r.Sc1, OrdiniFor_r.Sc2, OrdiniFor_r.Sc3, OrdiniFor_r.DtCons,
  OrdiniFor_r.OrdineSaldato AS SALDO
FROM (OrdiniFor_r LEFT JOIN Fornitori ON OrdiniFor_r.FORNITORE = Fornitori.Cod)
  LEFT JOIN OrdiniFor
    ON (OrdiniFor_r.TipoDoc = OrdiniFor.TipoDoc) AND (OrdiniFor_r.NumDoc = OrdiniFor.NumDoc)
WHERE OrdiniFor_r.TipoDoc='F'

-- Rows of customers' orders and offers, with who ordered.
SELECT OrdiniCli_r.TipoDoc, OrdiniCli_r.NumDoc, OrdiniCli_r.Posi, OrdiniCli_r.Dt,
  OrdiniCli_r.CLIENTE AS Parte, Clienti.RagSoc1, OrdiniCli.Riferim, OrdiniCli_r.CodiceRiga,
  OrdiniCli_r.CodPrCli, OrdiniCli_r.Descrizione, OrdiniCli_r.um, OrdiniCli_r.Quantita,
  OrdiniCli_r.Prezzo, OrdiniCli_r.Sc1, OrdiniCli_r.Sc2, OrdiniCli_r.Sc3, OrdiniCli_r.DtCons,
  OrdiniCli_r.OrdineSaldato AS SALDO
FROM (OrdiniCli_r LEFT JOIN Clienti ON OrdiniCli_r.CLIENTE = Clienti.Cod)
  LEFT JOIN OrdiniCli
    ON (OrdiniCli_r.TipoDoc = OrdiniCli.TipoDoc) AND (OrdiniCli_r.NumDoc = OrdiniCli.NumDoc)

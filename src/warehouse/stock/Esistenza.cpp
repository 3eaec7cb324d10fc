#include "warehouse/stock/Esistenza.h"

#include "core/sql/Criterio.h"

namespace fenalto::warehouse {
namespace {

/// What sums are taken of: source, its columns after the product, condition.
struct Somme {
  std::string da;
  std::string colonne;
  std::string dove;
};

/// Loads and unloads of the year.
Somme Movimenti(int anno, const FiltroEsistenza& filtro) {
  Somme somme{"FattureCli_r",
              "Sum(IIf(CS='C',Quantita,0)) AS Carichi, Sum(IIf(CS='S',Quantita,0)) AS Scarichi",
              sql::Criterio("Anno", "=", anno)};
  if (!filtro.mag.empty()) somme.dove += " AND " + sql::Criterio("Mag", "=", filtro.mag);
  if (!filtro.finoAl.Nulla()) somme.dove += " AND " + sql::Criterio("Dt", "<=", filtro.finoAl);
  return somme;
}

/// What rows ask for less what documents have served of each: beyond its quantity a row counts
/// below zero. `serviti` is the stored query that a partial index answers.
Somme Aperte(const std::string& tabella, const std::string& serviti, const std::string& chiave,
             const std::string& posizione, const std::string& condizioneServiti,
             const std::string& condizione) {
  const std::string servita = "(SELECT Sum(" + serviti + ".Quantita) FROM " + serviti + " WHERE " +
                              serviti + "." + chiave + "=" + tabella + ".NumDoc AND " + serviti +
                              "." + posizione + "=" + tabella + ".Posi AND " + serviti + "." +
                              condizioneServiti + ")";
  return {tabella, "Sum(" + tabella + ".Quantita-Nz(" + servita + ",0)) AS Resta", condizione};
}

Somme OrdiniCli() {
  return Aperte("OrdiniCli_r", "ZRigheOrdine", "Ordine", "PosiOrdine", "CFP='C'",
                "OrdineSaldato=False AND TipoDoc='O'");
}
Somme Commesse() {
  return Aperte("Commesse_r", "ZRigheCommessa", "Commessa", "PosiCommessa", "CS='S'", "Ut=False");
}
Somme OrdiniFor() {
  return Aperte("OrdiniFor_r", "ZRigheOrdine", "Ordine", "PosiOrdine", "CFP='F'",
                "OrdineSaldato=False AND TipoDoc='O'");
}

Rs DiUno(Archivio& tessarc, const Somme& somme, const std::string& prodotto) {
  return tessarc.Recordset("SELECT " + somme.colonne + " FROM " + somme.da + " WHERE " +
                           sql::Criterio("CodiceRiga", "=", prodotto) + " AND " + somme.dove);
}

/// Of all products, by code and what `poi` adds to it.
SerieCodici DiTutti(Ambiente& ambiente, const Somme& somme, const std::string& poi = "") {
  return SerieCodici(ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT CodiceRiga, " + somme.colonne + poi + " FROM " + somme.da + " WHERE " + somme.dove +
      " GROUP BY CodiceRiga" + poi + " ORDER BY CodiceRiga" + poi));
}

/// The figures that follow from the sums.
void Deriva(Esistenza& figure) {
  figure.esistenza = figure.carichi - figure.scarichi;
  figure.disponibile = figure.esistenza + figure.ordinato - figure.impegnato;
  figure.disponibileReale = figure.esistenza - figure.impegnato;
}

}  // namespace

Esistenza CalcoloEsistenza(Ambiente& ambiente, const std::string& prodotto,
                           const FiltroEsistenza& filtro) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  Esistenza figure;
  // Sums over nothing are Null, which reads as zero.
  const Rs movimenti = DiUno(tessarc, Movimenti(ambiente.Anno(), filtro), prodotto);
  figure.carichi = movimenti.Fields(0).Importo();
  figure.scarichi = movimenti.Fields(1).Importo();
  figure.impegnato = DiUno(tessarc, OrdiniCli(), prodotto).Fields(0).Importo() +
                     DiUno(tessarc, Commesse(), prodotto).Fields(0).Importo();
  figure.ordinato = DiUno(tessarc, OrdiniFor(), prodotto).Fields(0).Importo();
  Deriva(figure);
  return figure;
}

EsistenzeInSerie::EsistenzeInSerie(Ambiente& ambiente, const FiltroEsistenza& filtro)
    : movimenti_(DiTutti(ambiente, Movimenti(ambiente.Anno(), filtro))),
      ordiniCli_(DiTutti(ambiente, OrdiniCli())),
      commesse_(DiTutti(ambiente, Commesse())),
      ordiniFor_(DiTutti(ambiente, OrdiniFor())) {}

Esistenza EsistenzeInSerie::Di(const std::string& prodotto) {
  const auto resta = [&](SerieCodici& serie) {
    return serie.Al(prodotto) ? serie.Riga().Fields(1).Importo() : Importo();
  };
  Esistenza figure;
  if (movimenti_.Al(prodotto)) {
    figure.carichi = movimenti_.Riga().Fields(1).Importo();
    figure.scarichi = movimenti_.Riga().Fields(2).Importo();
  }
  figure.impegnato = resta(ordiniCli_) + resta(commesse_);
  figure.ordinato = resta(ordiniFor_);
  Deriva(figure);
  return figure;
}

EsistenzePerMagazzino::EsistenzePerMagazzino(Ambiente& ambiente)
    : movimenti_(DiTutti(ambiente, Movimenti(ambiente.Anno(), {}), ", Mag")) {}

std::vector<EsistenzaInMagazzino> EsistenzePerMagazzino::Di(const std::string& prodotto) {
  std::vector<EsistenzaInMagazzino> esistenze;
  for (; movimenti_.Al(prodotto); movimenti_.Avanti()) {
    const Rs& riga = movimenti_.Riga();
    esistenze.push_back(
        {riga.Fields(3).Testo(), riga.Fields(1).Importo() - riga.Fields(2).Importo()});
  }
  return esistenze;
}

}  // namespace fenalto::warehouse

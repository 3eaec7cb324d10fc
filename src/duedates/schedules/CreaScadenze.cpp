#include "duedates/schedules/CreaScadenze.h"

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "duedates/codes/Rate.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::duedates {

namespace {

constexpr std::size_t kCaratteriDescrizione = 64;
constexpr const char* kNonCreate =
    "Scadenze: NON create (se si utilizza lo scadenzario verificare la corretta impostazione dei "
    "codici pagamento)";

std::string PrimaRiga(const std::string& testo) {
  return Mid(testo.substr(0, testo.find_first_of("\r\n")), 1, kCaratteriDescrizione);
}

class Scadenziere {
 public:
  Scadenziere(Ambiente& ambiente, const RichiestaScadenze& richiesta,
              std::vector<std::string>& avvisi)
      : ambiente_(ambiente), richiesta_(richiesta), avvisi_(avvisi) {}

  /// Rates of the VAT on its own code first, then those of the rest.
  void Calcola() {
    const auto codice = LeggiCodicePagamento(ambiente_, richiesta_.codPag);
    if (!codice) return;
    Importo resto = richiesta_.importo;
    if (!richiesta_.iva.Zero() && !codice->codPagIva.empty()) {
      const auto codiceIva = LeggiCodicePagamento(ambiente_, codice->codPagIva);
      const std::size_t prima = rate_.size();
      if (codiceIva) Aggiungi(*codiceIva, richiesta_.iva);
      if (rate_.size() == prima)
        avvisi_.push_back("il codice pagamento " + codice->codPagIva + ", indicato per l'iva sul " +
                          "codice " + codice->cod + ", non crea scadenze: l'iva di " +
                          ScriviImporto(richiesta_.iva, 2) + " resta fuori dallo scadenzario");
      resto -= richiesta_.iva;
    }
    Aggiungi(*codice, resto);
  }

  [[nodiscard]] const std::vector<RataDocumento>& Rate() const { return rate_; }

  void Scrivi() {
    Archivio& scadenzario = ambiente_.ArchivioDi("scadenzario");
    std::int64_t numero = ambiente_.Max("Numero", "Scadenze", {}, scadenzario).Intero();
    const bool euro = ambiente_.Euro();
    if (!euro) avvisi_.emplace_back("lo scadenzario non funziona in lire");
    for (std::size_t i = 0; i < rate_.size(); ++i) {
      std::vector<Coppia> campi = Campi(rate_[i]);
      campi.emplace_back("Numero", ++numero);
      campi.emplace_back("PrimaScad", i == 0);
      campi.emplace_back("Ultimascad", i + 1 == rate_.size());
      if (euro) {
        campi.emplace_back("Importo", EuroInLire(rate_[i].importo, true));
        campi.emplace_back("ImportoE", rate_[i].importo);
      }
      scadenzario.Inserisci("Scadenze", campi);
    }
  }

 private:
  void Aggiungi(const CodicePagamento& codice, Importo importo) {
    RateCalcolate calcolate =
        CalcolaRate(codice, richiesta_.data, importo, ambiente_.Euro(), ambiente_.Ora().Oggi());
    for (std::string& avviso : calcolate.avvisi) avvisi_.push_back(std::move(avviso));
    if (calcolate.forma.empty()) return;
    for (std::size_t i = 0; i < kRateMassime; ++i) {
      if (calcolate.importi[i].Zero()) continue;
      rate_.push_back({calcolate.date[i], calcolate.importi[i], std::move(calcolate.tipi[i])});
    }
  }

  [[nodiscard]] std::vector<Coppia> Campi(const RataDocumento& rata) const {
    return {{"CFP", richiesta_.cfp},
            {"Conto", richiesta_.conto},
            {"Dt", rata.data},
            {"Tipo", rata.tipo},
            {"Stato", "00"},
            {"Anno", richiesta_.anno},
            {"Articolo", richiesta_.articolo},
            {"Riva", richiesta_.riva},
            {"NProt", richiesta_.numProt},
            {"NFat", std::string(Rifila(richiesta_.numFat))},
            {"DtFat", richiesta_.dataFat},
            {"Programma", richiesta_.programma},
            {"Descrizione", PrimaRiga(richiesta_.descrizione)},
            {"Pagamento", richiesta_.codPag},
            {"TipoDoc", richiesta_.tipoDoc}};
  }

  Ambiente& ambiente_;
  const RichiestaScadenze& richiesta_;
  std::vector<std::string>& avvisi_;
  std::vector<RataDocumento> rate_;
};

std::string DellaRegistrazione(int anno, std::int64_t articolo, const ParteScadenze& parte) {
  std::string quali = " FROM Scadenze WHERE Anno=" + std::to_string(anno) +
                      " AND Articolo=" + std::to_string(articolo);
  if (UgualeTesto(parte.cfp, "C") || UgualeTesto(parte.cfp, "F")) {
    // One that a person gave to another party is still this registration's.
    quali += " AND (Modificata=True OR (" + sql::Criterio("CFP", "=", parte.cfp) + " AND " +
             sql::Criterio("Conto", "=", parte.conto) + "))";
  }
  return quali;
}

/// Empty for one that is open and untouched.
std::string Mossa(const Scadenza& s) {
  if (ConfrontaTesto(s.stato, kStatoParziale) < 0) {
    return s.importoPagatoE.Zero() ? "" : "pagata in parte";
  }
  if (ConfrontaTesto(s.stato, kStatoPresentabile) < 0) return "pagata in parte";
  if (s.Aperta()) return "presentata";
  return s.tipo == kTipoRiba ? "presentata o pagata" : "pagata";
}

void AggiungiAlLog(std::string& log, const std::string& testo) {
  if (!log.empty() && log.back() != '\n') log += '\n';
  log += testo;
}

}  // namespace

std::vector<RataDocumento> RateDocumento(Ambiente& ambiente, const RichiestaScadenze& richiesta,
                                         std::vector<std::string>& avvisi) {
  Scadenziere scadenziere(ambiente, richiesta, avvisi);
  scadenziere.Calcola();
  return scadenziere.Rate();
}

bool CreaScadenze(Ambiente& ambiente, const RichiestaScadenze& richiesta, std::string& log,
                  std::vector<std::string>& avvisi) {
  Scadenziere scadenziere(ambiente, richiesta, avvisi);
  scadenziere.Calcola();
  if (scadenziere.Rate().empty()) {
    AggiungiAlLog(log, kNonCreate);
    return false;
  }
  scadenziere.Scrivi();
  std::string testo = "Create Scadenze: \n";
  for (const RataDocumento& rata : scadenziere.Rate()) testo += rata.data.Testo() + " ";
  AggiungiAlLog(log, testo);
  return true;
}

std::vector<std::string> ScadenzeMosse(Ambiente& ambiente, int anno, std::int64_t articolo,
                                       const ParteScadenze& parte) {
  std::vector<std::string> mosse;
  for (Rs rs = ambiente.ArchivioDi("scadenzario")
                   .Recordset("SELECT *" + DellaRegistrazione(anno, articolo, parte) +
                              " ORDER BY Numero");
       !rs.Eof(); rs.MoveNext()) {
    const Scadenza scadenza = ScadenzaDi(rs);
    const std::string come = Mossa(scadenza);
    if (come.empty()) continue;
    std::string testo = NomeScadenza(ambiente, scadenza);
    testo += ": " + come;
    testo += " (stato " + scadenza.stato + ")";
    mosse.push_back(std::move(testo));
  }
  return mosse;
}

bool EliminaScadenzeFattura(Ambiente& ambiente, int anno, std::int64_t articolo, std::string& log,
                            const ParteScadenze& parte) {
  Archivio& scadenzario = ambiente.ArchivioDi("scadenzario");
  const std::string quali = DellaRegistrazione(anno, articolo, parte);
  std::string testo = "elim. scadenze ";
  int quante = 0;
  Rs scadenze =
      scadenzario.Recordset("SELECT Dt, Stato, Modificata" + quali + " ORDER BY Dt, Numero");
  for (; !scadenze.Eof(); scadenze.MoveNext(), ++quante) {
    if (ConfrontaTesto(scadenze.Fields("Stato").Testo(), "00") > 0 ||
        scadenze.Fields("Modificata").Booleano()) {
      AggiungiAlLog(log,
                    "impossibile eliminare/rettificare scadenze! (se si utilizza lo scadenzario: "
                    "scadenze già pagate, modificate manualmente, cambiato pagamento sulla fattura "
                    "...) ");
      return false;
    }
    testo += scadenze.Fields("Dt").Data().Testo() + " ";
  }
  scadenze.mClose();
  if (quante == 0) return true;
  scadenzario.Esegui("DELETE" + quali);
  AggiungiAlLog(log, testo);
  return true;
}

}  // namespace fenalto::duedates

#include "ledger/closing/EliminazioneSelettiva.h"

#include <array>

#include "core/records/Conferma.h"
#include "core/session/CopieDitta.h"
#include "core/sql/Criterio.h"
#include "ledger/closing/RegistrazioniEliminate.h"

namespace fenalto::ledger {

namespace {

constexpr std::array kScelte{"ElimPrimanota", "ElimRegIva",    "ElimDocumenti",
                             "ElimScadenze",  "ElimOrdiniCli", "ElimOrdiniFor"};

/// A table without a year, and the choice that erases it.
struct SenzaAnno {
  const char* scelta;
  const char* chiave;
  const char* tabella;
};
constexpr std::array kSenzaAnno{
    SenzaAnno{"ElimScadenze", "scadenzario", "Scadenze"},
    SenzaAnno{"ElimOrdiniCli", "tessarc", "OrdiniCli"},
    SenzaAnno{"ElimOrdiniCli", "tessarc", "OrdiniCli_r"},
    SenzaAnno{"ElimOrdiniFor", "tessarc", "OrdiniFor"},
    SenzaAnno{"ElimOrdiniFor", "tessarc", "OrdiniFor_r"},
};

/// Documents of the chosen days: what their rows are told by.
std::string RigheDocumenti(int anno, const std::string& periodo) {
  return sql::Criterio("Anno", "=", anno) +
         " and exists (select 1 from FattureCli where FattureCli.TipoDoc=FattureCli_r.TipoDoc and "
         "FattureCli.Anno=FattureCli_r.Anno and FattureCli.NumDoc=FattureCli_r.NumDoc and " +
         periodo + ")";
}

}  // namespace

EliminazioneSelettiva::EliminazioneSelettiva(Ambiente& ambiente) : ambiente_(ambiente) {
  dati_.Aggiungi("ElimDaDt", Tipo::Data);
  dati_.Aggiungi("ElimAaDt", Tipo::Data);
  for (const char* scelta : kScelte) dati_.Aggiungi(scelta, Tipo::Booleano);
  dati_.Scrivi("ElimDaDt", Data::DaGma(1, 1, ambiente.Anno()).value());
  dati_.Scrivi("ElimAaDt", Data::DaGma(31, 12, ambiente.Anno()).value());
}

bool EliminazioneSelettiva::Disponibile(const std::string& campo) const {
  for (const SenzaAnno& riga : kSenzaAnno) {
    if (campo == riga.scelta) {
      return ambiente_.ArchivioDi(riga.chiave).Catalogo().Tabella(riga.tabella) != nullptr;
    }
  }
  return true;
}

bool EliminazioneSelettiva::Rifiuta(const std::string& testo, const std::string& campo) {
  campoRifiutato_ = campo;
  ambiente_.Dialogo().Messaggio(testo, Icona::Avviso);
  return false;
}

std::string EliminazioneSelettiva::Periodo() const {
  return sql::Criterio("Dt", ">=", dati_.Leggi("ElimDaDt")) + " and " +
         sql::Criterio("Dt", "<=", dati_.Leggi("ElimAaDt"));
}

std::string EliminazioneSelettiva::CriterioArticoli() const {
  const bool primanota = Scelto("ElimPrimanota");
  const bool iva = Scelto("ElimRegIva");
  if (!primanota && !iva) return "";
  if (primanota && iva) return Periodo();
  return Periodo() + (primanota ? " and Riva=''" : " and Riva<>''");
}

bool EliminazioneSelettiva::Elimina(const std::string& motivo, std::int64_t quanti,
                                    const std::function<void()>& scrivi) {
  std::filesystem::path copia;
  const bool fatto = records::Esegui(
      ambiente_,
      {.nonRiuscita = "eliminazione non riuscita: ",
       .numerazioni = {"FATTURECLI", "ARTICOLI"},
       .prima =
           [&] {
             ambiente_.Dialogo().Messaggio(
                 "verranno eliminate tutte le operazioni selezionate  senza effettuare alcun "
                 "controllo sui dati che hanno relazioni di vario tipo !",
                 Icona::Avviso);
             if (!ambiente_.Dialogo().Conferma("Conferma eliminazione registrazioni\n(" +
                                               std::to_string(quanti) +
                                               " tra registrazioni e "
                                               "documenti)")) {
               return false;
             }
             auto fatta = CopiaPrimaDi(ambiente_, motivo);
             if (!fatta) return Rifiuta(fatta.Errore().messaggio, "");
             copia = std::move(fatta).Valore();
             return true;
           },
       .scrivi =
           [&] {
             scrivi();
             return std::string();
           }});
  if (fatto) ambiente_.Dialogo().Messaggio("ELIMINAZIONE EFFETTUATA" + NominaCopia(copia));
  return fatto;
}

bool EliminazioneSelettiva::EliminaArticoli() {
  campoRifiutato_.clear();
  const Data da = dati_.Leggi("ElimDaDt").Data();
  const Data a = dati_.Leggi("ElimAaDt").Data();
  if (da.Nulla() || a.Nulla())
    return Rifiuta("manca la data", da.Nulla() ? "ElimDaDt" : "ElimAaDt");
  if (a < da) return Rifiuta("la data finale viene prima di quella iniziale", "ElimAaDt");
  const std::string articoli = CriterioArticoli();
  const bool documenti = Scelto("ElimDocumenti");
  if (articoli.empty() && !documenti) return Rifiuta("scegliere che cosa eliminare", kScelte[0]);
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  const int anno = ambiente_.Anno();
  const std::string dellAnno = sql::Criterio("Anno", "=", anno);
  const auto conta = [&](const char* tabella, const std::string& criterio) {
    return tessarc
        .Singolo(std::string("select count(*) from ") + tabella + " where " + dellAnno + " and " +
                 criterio)
        .Intero();
  };
  const std::int64_t quanti = (articoli.empty() ? 0 : conta("Articoli", articoli)) +
                              (documenti ? conta("FattureCli", Periodo()) : 0);
  if (quanti == 0) return Rifiuta("nel periodo scelto non c'è nulla da eliminare", "ElimDaDt");
  RegistrazioniEliminate eliminate(ambiente_, tessarc);
  const bool fatto = Elimina("eliminazione registrazioni", quanti, [&] {
    if (!articoli.empty()) eliminate.Elimina(anno, articoli);
    if (documenti) {
      tessarc.Esegui("delete * from FattureCli_r where " + RigheDocumenti(anno, Periodo()));
      tessarc.Esegui("delete * from FattureCli where " + dellAnno + " and " + Periodo());
    }
  });
  if (fatto) eliminate.EliminaFile();
  return fatto;
}

bool EliminazioneSelettiva::EliminaScadenze() {
  campoRifiutato_.clear();
  std::int64_t quanti = 0;
  bool scelto = false;
  std::vector<const SenzaAnno*> scelte;
  for (const SenzaAnno& riga : kSenzaAnno) {
    if (!Scelto(riga.scelta) || !Disponibile(riga.scelta)) continue;
    scelto = true;
    scelte.push_back(&riga);
    quanti += ambiente_.ArchivioDi(riga.chiave)
                  .Singolo(std::string("select count(*) from ") + riga.tabella)
                  .Intero();
  }
  if (!scelto) return Rifiuta("scegliere che cosa eliminare", "ElimScadenze");
  return Elimina("eliminazione scadenze e ordini", quanti, [&] {
    for (const SenzaAnno* riga : scelte) {
      ambiente_.ArchivioDi(riga->chiave).Esegui(std::string("delete * from ") + riga->tabella);
    }
    // What an order has delivered stays tied to it while it stands.
    if (Disponibile("ElimOrdiniCli") && !Scelto("ElimOrdiniCli")) return;
    ambiente_.ArchivioDi("tessarc").Esegui(
        "update FATTURECLI_R set Ordine = 0, PosiOrdine = 0, ordinesaldato = false");
  });
}

}  // namespace fenalto::ledger

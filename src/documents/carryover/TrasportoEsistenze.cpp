#include "documents/carryover/TrasportoEsistenze.h"

#include <algorithm>
#include <map>

#include "core/records/Conferma.h"
#include "core/session/CopieDitta.h"
#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/Testo.h"
#include "documents/entry/ScriviDocumento.h"

namespace fenalto::documents {
namespace {

std::string Nomina(std::int64_t numDoc, const std::string& mag) {
  return "n. " + std::to_string(numDoc) +
         (mag.empty() ? " (senza magazzino)" : " (magazzino " + mag + ")");
}

std::string Elenco(const std::vector<std::string>& parti) {
  std::string testo;
  for (const std::string& parte : parti) testo += (testo.empty() ? "" : ", ") + parte;
  return testo;
}

/// The currency and the rounding of the year that receives the rows.
class Destinazione {
 public:
  Destinazione(Ambiente& ambiente, int anno)
      : euro_(ambiente.Cerca("tessarc", "Anni", {{"Anno", anno}}, "Euro").Booleano()),
        daLire_(!ambiente.Euro() && euro_),
        arrotonda_(ImpostazioneAttiva(ambiente, "ArrotImporto")) {}

  [[nodiscard]] RigaDocumento Riga(const VoceTrasporto& voce) const {
    constexpr int kDecimali = 4;
    RigaDocumento riga;
    riga.codiceRiga = voce.prodotto;
    riga.descrizione = voce.descrizione;
    riga.um = voce.um;
    riga.quantita = voce.quantita;
    riga.prezzo = daLire_ ? LireInEuro(voce.prezzo, kDecimali) : voce.prezzo;
    riga.conto = voce.conto;
    riga.codIva = voce.codIva;
    riga.importo = ImportoRiga(riga.prezzo, {}, {}, {}, riga.quantita, euro_, arrotonda_);
    return riga;
  }

 private:
  bool euro_;
  bool daLire_;
  bool arrotonda_;
};

}  // namespace

SceltaTrasporto TrasportoEsistenze::Proposta() const {
  return {ValoreTrasporto::CostoUltimo, Data::DaGma(1, 1, NuovoAnno()).value()};
}

std::optional<Rifiuto> TrasportoEsistenze::Difetto(const SceltaTrasporto& scelta) const {
  const std::string nuovo = std::to_string(NuovoAnno());
  // Another station may have opened or erased it.
  if (ambiente_.Cerca("tessarc", "Anni", {{"Anno", NuovoAnno()}}, "Anno").Nullo()) {
    return Rifiuto{
        "l'anno " + nuovo + " non esiste: aprirlo prima con la funzione 'Apertura nuovo Anno'", ""};
  }
  if (!LeggiTipo(ambiente_, kEsistenzaIniziale)) {
    return Rifiuto{"manca il tipo documento EI (esistenza iniziale di magazzino)", ""};
  }
  if (scelta.dtDoc.Nulla() || scelta.dtDoc.Anno() != NuovoAnno()) {
    return Rifiuto{"la data dei documenti deve essere dell'anno " + nuovo, "DtDoc"};
  }
  return std::nullopt;
}

void TrasportoEsistenze::Dimentica() {
  piano_.clear();
  impronta_.clear();
}

bool TrasportoEsistenze::Leggi(const SceltaTrasporto& scelta) {
  Dimentica();
  if (Rifiuta(ambiente_, Difetto(scelta))) return false;
  std::string impronta = ImprontaEsistenze(ambiente_);
  auto letto = PianoTrasporto(ambiente_, scelta.valore);
  if (!letto) return false;
  if (letto->empty()) {
    ambiente_.Dialogo().Messaggio(
        "nell'anno " + std::to_string(ambiente_.Anno()) + " non ci sono esistenze da riportare",
        Icona::Avviso);
    return false;
  }
  piano_ = std::move(*letto);
  impronta_ = std::move(impronta);
  valoreLetto_ = scelta.valore;
  return true;
}

std::vector<TrasportoEsistenze::Precedente> TrasportoEsistenze::Precedenti() const {
  std::vector<Precedente> precedenti;
  Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
      "SELECT NumDoc, Mag FROM FattureCli WHERE TipoDoc='EI' AND " +
      sql::Criterio("Anno", "=", NuovoAnno()) + " AND " +
      sql::Criterio("CREATOINAUTOMATICO", "=",
                    static_cast<int>(OrigineDocumento::TrasportoEsistenze)) +
      " ORDER BY NumDoc");
  for (; !rs.Eof(); rs.MoveNext()) {
    precedenti.push_back({rs.Fields(0).Intero(), rs.Fields(1).Testo()});
  }
  return precedenti;
}

bool TrasportoEsistenze::ChiediNegative() {
  negative_ = Negative::Riporta;
  const auto quante = std::ranges::count_if(
      piano_, [](const VoceTrasporto& voce) { return voce.quantita.Negativo(); });
  if (quante == 0) return true;
  const Risposta risposta = ambiente_.Dialogo().Domanda(
      (quante == 1 ? "1 esistenza è negativa"
                   : std::to_string(quante) + " esistenze sono negative") +
          std::string("\nSì: si riporta com'è\nNo: il nuovo anno parte da zero"),
      Bottoni::SiNoAnnulla, Risposta::Annulla, "Trasporto esistenze");
  if (risposta == Risposta::No) negative_ = Negative::Ignora;
  return risposta == Risposta::Si || risposta == Risposta::No;
}

bool TrasportoEsistenze::ChiediConferma() {
  const std::string nuovo = std::to_string(NuovoAnno());
  const std::int64_t aMano =
      ambiente_.ArchivioDi("tessarc")
          .Singolo("SELECT Count(*) FROM FattureCli WHERE TipoDoc='EI' AND " +
                   sql::Criterio("Anno", "=", NuovoAnno()) + " AND " +
                   sql::Criterio("CREATOINAUTOMATICO", "<>",
                                 static_cast<int>(OrigineDocumento::TrasportoEsistenze)))
          .Intero();
  if (aMano > 0 && !ambiente_.Dialogo().Conferma(
                       "nel " + nuovo + " ci sono " + std::to_string(aMano) +
                       " documenti EI che non vengono da questa funzione: le esistenze si "
                       "sommeranno\nProseguo ugualmente ?")) {
    return false;
  }
  std::string testo = "Conferma trasporto di " + std::to_string(piano_.size()) +
                      " esistenze dall'anno " + std::to_string(ambiente_.Anno()) + " al " + nuovo +
                      " ?";
  const auto senza =
      std::ranges::count_if(piano_, [](const VoceTrasporto& voce) { return voce.SenzaValore(); });
  if (senza > 0) {
    testo += "\n" + std::to_string(senza) +
             (senza == 1 ? " non ha il costo scelto: si riporta a valore zero"
                         : " non hanno il costo scelto: si riportano a valore zero");
  }
  return ambiente_.Dialogo().Conferma(testo);
}

bool TrasportoEsistenze::ChiediPrecedenti() {
  precedenti_ = Precedenti();
  if (precedenti_.empty()) return true;
  std::vector<std::string> nomi;
  for (const Precedente& uno : precedenti_) nomi.push_back(Nomina(uno.numDoc, uno.mag));
  return ambiente_.Dialogo().Conferma(
      "le esistenze sono già state riportate al " + std::to_string(NuovoAnno()) +
      " con i documenti EI " + Elenco(nomi) +
      "\nSi sostituiscono, e quel che vi fu corretto a mano va perso. Proseguo ?");
}

bool TrasportoEsistenze::FaiCopia() {
  copia_.clear();
  if (precedenti_.empty()) return true;
  const auto fatta = CopiaPrimaDi(ambiente_, "trasporto esistenze " + std::to_string(NuovoAnno()));
  if (!fatta) {
    ambiente_.Dialogo().Messaggio(fatta.Errore().messaggio, Icona::Errore);
    return false;
  }
  copia_ = NominaCopia(fatta.Valore());
  return true;
}

std::vector<VoceTrasporto> TrasportoEsistenze::DaScrivere() const {
  std::vector<VoceTrasporto> voci = piano_;
  if (negative_ == Negative::Ignora) {
    std::erase_if(voci, [](const VoceTrasporto& voce) {
      return voce.quantita.Negativo() && voce.prezzo.Zero();
    });
    // The last cost stays known even so.
    for (VoceTrasporto& voce : voci) voce.quantita = std::max(voce.quantita, Importo());
  }
  return voci;
}

std::string TrasportoEsistenze::Scrivi(const SceltaTrasporto& scelta) {
  std::string cambiato =
      "le esistenze sono state cambiate da un'altra stazione mentre si guardavano: leggerle di "
      "nuovo";
  if (ImprontaEsistenze(ambiente_) != impronta_) return cambiato;
  const std::vector<Precedente> ora = Precedenti();
  if (!std::ranges::equal(ora, precedenti_, {}, &Precedente::numDoc, &Precedente::numDoc)) {
    return cambiato;
  }
  std::map<std::string, std::int64_t> numeri;  // what replaces a document bears its number
  for (const Precedente& uno : precedenti_) {
    CancellaDocumento(ambiente_, kEsistenzaIniziale, NuovoAnno(), uno.numDoc);
    numeri.try_emplace(SenzaMaiuscole(uno.mag), uno.numDoc);
  }
  const Destinazione destinazione(ambiente_, NuovoAnno());
  std::map<std::string, DocumentoDaScrivere> documenti;
  for (const VoceTrasporto& voce : DaScrivere()) {
    DocumentoDaScrivere& documento = documenti[SenzaMaiuscole(voce.mag)];
    documento.mag = voce.mag;
    documento.righe.push_back(destinazione.Riga(voce));
  }
  const TipoDocumento tipo = LeggiTipo(ambiente_, kEsistenzaIniziale).value();
  const auto avanzamento =
      ambiente_.Dialogo().Avvia("Trasporto esistenze", static_cast<std::int64_t>(documenti.size()));
  std::int64_t fatti = 0;
  scritti_.clear();
  // Those with a number first: the next free one comes after them.
  for (const bool numerati : {true, false}) {
    for (auto& [chiave, documento] : documenti) {
      const auto suo = numeri.find(chiave);
      if ((suo != numeri.end()) != numerati) continue;
      if (!avanzamento->Avanza(fatti++)) return "interrotto";
      documento.tipo = tipo;
      documento.anno = NuovoAnno();
      documento.dt = scelta.dtDoc;
      documento.origine = OrigineDocumento::TrasportoEsistenze;
      if (numerati) documento.numDoc = suo->second;
      const std::string mag = documento.mag;
      scritti_.push_back(Nomina(ScriviDocumento(ambiente_, std::move(documento)), mag));
    }
  }
  return "";
}

bool TrasportoEsistenze::Conferma(const SceltaTrasporto& scelta) {
  if (Rifiuta(ambiente_, Difetto(scelta))) return false;
  if (!Letto() || valoreLetto_ != scelta.valore) {
    ambiente_.Dialogo().Messaggio("leggere prima le esistenze da riportare", Icona::Avviso);
    return false;
  }
  const bool scritto = records::Esegui(
      ambiente_,
      {.nonRiuscita = "trasporto esistenze non riuscito: ",
       .numerazioni = {"FATTURECLI"},
       .ambito = Transazione::Ambito::Tessarc,
       .prima =
           [&] { return ChiediNegative() && ChiediConferma() && ChiediPrecedenti() && FaiCopia(); },
       .scrivi = [&] { return Scrivi(scelta); }});
  if (!scritto) return false;
  Annuncia();
  Dimentica();
  return true;
}

void TrasportoEsistenze::Annuncia() const {
  ambiente_.Dialogo().Messaggio("Trasporto esistenze effettuato\nanno " +
                                std::to_string(NuovoAnno()) + ", documenti EI " + Elenco(scritti_) +
                                copia_);
}

}  // namespace fenalto::documents

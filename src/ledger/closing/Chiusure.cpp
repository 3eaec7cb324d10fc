#include "ledger/closing/Chiusure.h"

#include <array>

#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::ledger {

namespace {

constexpr std::array kChiaviGiri{"C_ProfittiPerdite", "Cau_ProfittiPerdite", "C_UtilePerdita",
                                 "Cau_UtilePerdita",  "C_Chiusura",          "Cau_Chiusura"};
/// Registrations between two signs of life.
constexpr std::int64_t kOgniRegistrazioni = 50;

}  // namespace

bool ContoPatrimoniale(Archivio& tessarc, const std::string& conto) {
  return UgualeTesto(NzStr(tessarc.Singolo("select PatrEcon from Conti where " +
                                           sql::Criterio("Cod", "=", conto))),
                     kPatrimoniale);
}

std::string CodiciDiChiusura(Ambiente& ambiente, const std::string& conto,
                             const std::string& causale) {
  const Valore classe = ambiente.Cerca("tessarc", "Conti", {{"Cod", conto}}, "CFP");
  if (classe.Nullo()) return "il conto " + conto + " non esiste nel piano dei conti";
  if (!classe.Testo().empty() && !UgualeTesto(classe.Testo(), "P")) {
    return "il conto " + conto + " è riepilogativo di clienti o fornitori: serve un altro conto";
  }
  if (causale.empty() || ambiente.Esiste("tessarc", "Causali", {{"Cod", causale}})) return "";
  return "la causale " + causale + " non esiste";
}

bool DentroGiornaleStampato(Ambiente& ambiente, int anno, Data dt) {
  const Data stampata =
      ambiente.Max("dt", "UltimaDataLibro", {{"Anno", anno}}, ambiente.ArchivioDi("tessarc"))
          .Data();
  // The next definitive print begins on the day after: what bears the last day is never printed.
  if (dt > stampata) return true;
  return ambiente.Dialogo().Conferma(
      "data registrazione contabile antecedente all'ultima data già stampata su libro giornale\n"
      "(stampato fino al " +
      stampata.Testo() + ")\nProseguo ugualmente");
}

Chiusure::Chiusure(Ambiente& ambiente) : ambiente_(ambiente) {
  const Data fine = Data::DaGma(31, 12, ambiente.Anno()).value();
  for (const char* campo : {"DtGiroEcon", "DtGiroPatr"}) {
    dati_.Aggiungi(campo, Tipo::Data);
    dati_.Scrivi(campo, fine);
  }
  for (const char* chiave : kChiaviGiri) {
    dati_.Aggiungi(chiave, Tipo::Testo);
    dati_.Scrivi(chiave, ambiente.Config(chiave));
  }
}

void Chiusure::CampoLasciato(const std::string& campo) {
  for (const char* chiave : kChiaviGiri) {
    if (campo == chiave) ambiente_.ScriviImpostazione({}, "config", chiave, dati_.Testo(chiave));
  }
}

bool Chiusure::Rifiuta(const std::string& testo, const std::string& campo) {
  campoRifiutato_ = campo;
  ambiente_.Dialogo().Messaggio(testo, Icona::Avviso);
  return false;
}

bool Chiusure::Mancano(const Campi& campi) {
  campoRifiutato_.clear();
  const char* manca = Testo(campi.conto).empty()               ? campi.conto
                      : Testo(campi.causale).empty()           ? campi.causale
                      : dati_.Leggi(campi.data).Data().Nulla() ? campi.data
                                                               : nullptr;
  return manca != nullptr && !Rifiuta("manca contropartita o causale o data", manca);
}

bool Chiusure::ControllaCampi(const Campi& campi) {
  const std::string ignoto = CodiciDiChiusura(ambiente_, Testo(campi.conto), Testo(campi.causale));
  if (!ignoto.empty()) {
    const bool causale = ignoto.starts_with("la causale");
    return Rifiuta(ignoto, causale ? campi.causale : campi.conto);
  }
  const Data dt = dati_.Leggi(campi.data).Data();
  if (dt.Anno() == ambiente_.Anno()) return true;
  return Rifiuta("la data " + dt.Testo() + " non è dell'anno " + std::to_string(ambiente_.Anno()) +
                     ", che è quello da chiudere",
                 campi.data);
}

Chiusure::Corsa Chiusure::Prepara(Origine origine, const Campi& campi) const {
  Corsa corsa;
  corsa.scritta.origine = origine;
  corsa.scritta.annoChiuso = ambiente_.Anno();
  corsa.scritta.annoScritto = ambiente_.Anno();
  corsa.scritta.dt = dati_.Leggi(campi.data).Data();
  corsa.scritta.causale = Testo(campi.causale);
  corsa.scritta.contropartita = Testo(campi.conto);
  return corsa;
}

bool Chiusure::EsegueCorsa(Corsa corsa) {
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  std::optional<OperazioneAnno> fatta;
  const bool riuscita = records::Esegui(
      ambiente_,
      {.nonRiuscita = corsa.nonRiuscita,
       .numerazioni = {"ARTICOLI"},
       .ambito = Transazione::Ambito::Tessarc,
       .prima =
           [&] {
             return ambiente_.Dialogo().Conferma(corsa.domanda) &&
                    DentroGiornaleStampato(ambiente_, corsa.scritta.annoScritto, corsa.scritta.dt);
           },
       .scrivi =
           [&] {
             std::string rifiuto;
             const std::vector<VoceSaldo> voci = corsa.voci(rifiuto);
             if (!rifiuto.empty()) return rifiuto;
             const auto avanzamento = ambiente_.Dialogo().Avvia(
                 corsa.avanzamento, static_cast<std::int64_t>(voci.size()));
             fatta = ScriviCorsa(ambiente_, tessarc, corsa.scritta, voci, [&](std::int64_t n) {
               return n % kOgniRegistrazioni != 0 || avanzamento->Avanza(n);
             });
             return std::string(fatta ? "" : "operazione interrotta.");
           }});
  if (!riuscita) return false;
  std::string testo = corsa.messaggio;
  if (fatta->quante == 0) {
    testo = corsa.nulla;
  } else if (corsa.unaSola) {
    testo += std::to_string(fatta->daNumDoc);
  } else {
    testo +=
        "da n.articolo " + std::to_string(fatta->daNumDoc) + " a " + std::to_string(fatta->aNumDoc);
  }
  ambiente_.Dialogo().Messaggio(testo);
  return true;
}

}  // namespace fenalto::ledger

// The moves on receipts: presented, grouped, come back unpaid.
#include <algorithm>

#include "core/sql/Criterio.h"
#include "duedates/payments/InsolutoRiba.h"
#include "duedates/random/DittaCasuale.h"
#include "duedates/riba/RaggruppamentoRiba.h"
#include "duedates/riba/VerificaFileRiba.h"

namespace fenalto::prova {

void DittaCasuale::Presenta(const Mossa& mossa) {
  duedates::Riba riba(ambiente);
  riba.Imposta({.directory = cartella.Percorso().string(),
                .causale = "002",
                .contropartita = "100.010",
                .registrazione = !Bit(mossa, 0) || !Bit(mossa, 1)});
  RC_ASSERT(riba.ImpostaBanca(kBanca));
  for (const int scelta : mossa.scelte) {
    if (riba.Righe().empty()) return;
    const auto quale = static_cast<std::size_t>(scelta) % riba.Righe().size();
    const std::int64_t numero = riba.Righe()[quale].numero;
    if (!riba.Scelta(numero)) RC_ASSERT(riba.Cambia(numero));
  }
  std::vector<duedates::Scadenza> presentate;
  for (const duedates::RigaRiba& riga : riba.Righe()) {
    if (riba.Scelta(riga.numero))
      presentate.push_back(*duedates::LeggiScadenza(ambiente, riga.numero));
  }
  if (presentate.empty()) return;
  const std::string file = riba.NomeFile();
  dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Testo, {}});
  dialoghi.Rispondera("DISTINTA DEFINITIVA ?", Risposta::Si);
  RC_ASSERT(riba.Conferma(uscite_));
  Nota("distinta " + file + (riba.Impostazioni().registrazione ? "" : " senza registrazione"));
  for (const duedates::Scadenza& s : presentate) {
    Nota("  scad. " + std::to_string(s.numero) + " " + s.conto + " " + s.importoE.Testo());
    const Parte parte{s.cfp, s.conto};
    if (!riba.Impostazioni().registrazione) {
      Scosta(parte, s.Residuo());
    } else if (!s.importoPagatoE.Zero()) {
      // The bank is asked for the whole of it, whatever was paid before.
      Scosta(parte, -s.importoPagatoE, "già pagati");
    }
  }
  Rileggi(file, presentate);
}

void DittaCasuale::Rileggi(const std::string& file,
                           const std::vector<duedates::Scadenza>& presentate) {
  const auto letta = duedates::VerificaFileRiba(file, duedates::RibaSegno::DellImporto);
  RC_ASSERT(letta.Riuscito());
  RC_ASSERT(letta.Valore().Buona());
  RC_ASSERT(letta.Valore().ricevute.size() == presentate.size());
  for (std::size_t i = 0; i < presentate.size(); ++i) {
    const duedates::RicevutaLetta& ricevuta = letta.Valore().ricevute[i];
    RC_ASSERT(ricevuta.scadenza == presentate[i].dt);
    const Importo resto = ricevuta.importo - presentate[i].importoE;
    RC_ASSERT(resto.Assoluto() <= Importo::DaDecimillesimi(50));
  }
}

void DittaCasuale::Raggruppa(const Mossa&) {
  duedates::RaggruppamentoRiba raggruppamento(ambiente, uscite_);
  const auto gruppi = raggruppamento.Elenco({}).value();
  if (std::ranges::none_of(gruppi, &duedates::GruppoRiba::DaRaggruppare)) return;
  dialoghi.Rispondera("E' stata impostata la stampa definitiva", Risposta::Si);
  dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Testo, {}});
  RC_ASSERT(raggruppamento.Definitivo({G(1, 1, 2024), G(31, 12, 2025), ""}, gruppi));
  Nota("ricevute raggruppate");
}

void DittaCasuale::NuovoInsoluto(const Mossa& mossa) {
  const Parte parte = ParteDi(mossa);
  const bool registra = !Bit(mossa, 0) || !Bit(mossa, 1);
  duedates::InsolutoRiba insoluto(ambiente);
  insoluto.ScegliParte(parte.first, parte.second);
  RC_ASSERT(insoluto.Nuovo());
  insoluto.Impostazioni().Scrivi("RegistrazioneContabilePagScad4", registra);
  const auto presentate = insoluto.Presentate(100'000);
  insoluto.Dati().Scrivi("ImportoE", ImportoDi(mossa));
  if (!presentate.empty()) {
    const auto quale = static_cast<std::size_t>(mossa.importo) % presentate.size();
    if (presentate[quale].importoE.Zero()) return;
    insoluto.Riprendi(presentate[quale].numero);
    if (presentate[quale].insoluto != 0) {
      dialoghi.Rispondera("è già stata registrata insoluta", Risposta::Si);
    }
  }
  if (Bit(mossa, 2)) insoluto.Dati().Scrivi("Tipo", duedates::kTipoRiba);
  const Importo importo = insoluto.Dati().Leggi("ImportoE").Importo();
  RC_ASSERT(insoluto.Conferma());
  Nota("scad. " + std::to_string(insoluto.NumeroScritto()) + " insoluto " + parte.first +
       parte.second + " " + importo.Testo() + (registra ? "" : " senza registrazione"));
  if (!registra) Scosta(parte, -importo);
}

void DittaCasuale::CambiaInsoluto(const Mossa& mossa) {
  const auto scelto =
      UnaDelle(sql::Criterio("Programma", "=", duedates::kProgrammaInsoluto), mossa);
  if (!scelto) return;
  duedates::Scadenza s = *scelto;
  duedates::InsolutoRiba insoluto(ambiente);
  RC_ASSERT(insoluto.Apri(s.numero));
  const bool registrato = insoluto.RegContEffettuata();
  const bool registra = !registrato && !Bit(mossa, 0);
  insoluto.Impostazioni().Scrivi("RegistrazioneContabilePagScad4", registra || Bit(mossa, 1));
  const bool scrive = !registrato && (registra || Bit(mossa, 1));
  insoluto.Dati().Scrivi("ImportoE", ImportoDi(mossa));
  RC_ASSERT(insoluto.Conferma());
  Nota("scad. " + std::to_string(s.numero) + " insoluto diventa " + ImportoDi(mossa).Testo() +
       (scrive ? " con registrazione" : ""));
  const Importo prima = Aperto(s);
  s.importoE = ImportoDi(mossa);
  Scosta({s.cfp, s.conto}, (scrive ? s.importoE : Importo()) - (Aperto(s) - prima),
         registrato ? "resta com'era" : "");
}

}  // namespace fenalto::prova

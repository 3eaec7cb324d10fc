#include "core/store/BasiDati.h"

#include <stdexcept>

#include "core/store/Apertura.h"
#include "core/store/ArchivioInterno.h"
#include "core/store/NucleoBasi.h"
#include "core/values/Testo.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;
using Causa = ErroreArchivio::Causa;

/// Runs `azione`; what it throws becomes an error that a user can read.
template <typename T, typename Azione>
Esito<T> ComeEsito(const Azione& azione) {
  try {
    return azione();
  } catch (const ErroreArchivio& errore) {
    return Errore{errore.what()};
  } catch (const std::bad_alloc&) {
    return Errore{"memoria insufficiente: chiudere altri programmi e riprovare"};
  } catch (const std::exception& errore) {
    return Errore{std::string("errore imprevisto sugli archivi: ") + errore.what()};
  }
}

std::shared_ptr<DatiArchivio> Dati(const std::shared_ptr<NucleoBasi>& nucleo,
                                   const fs::path& percorso, const std::string& base,
                                   std::shared_ptr<const VisteArchivio> viste) {
  auto dati = std::make_shared<DatiArchivio>(std::move(viste));
  dati->nucleo = nucleo;
  dati->percorso = percorso;
  dati->nomeFile = percorso.string();
  dati->base = base;
  dati->catalogo.Leggi(nucleo->Connessione(), base);
  nucleo->Aggiungi(dati.get());
  return dati;
}

}  // namespace

struct BasiDati::Interno {
  std::shared_ptr<NucleoBasi> nucleo;
  std::shared_ptr<const VisteArchivio> viste;
  std::unique_ptr<Archivio> tessarc;
  std::unique_ptr<Archivio> scadenzario;
};

BasiDati::BasiDati(std::unique_ptr<Interno> interno) : interno_(std::move(interno)) {}

BasiDati::~BasiDati() {
  interno_->tessarc.reset();
  interno_->scadenzario.reset();
  interno_->nucleo->Chiudi();
}

Esito<bool> BasiDati::Crea(const PercorsiArchivi& percorsi, const OpzioniApertura& opzioni) {
  const engine::Motore& motore = MotoreDi(percorsi);
  const auto passi = LeggiPassiCompleti(motore, opzioni.cartellaSchema);
  if (!passi) return passi.Errore();
  const std::vector<engine::Base> basi = BasiDi(percorsi);
  for (const engine::Base& base : basi) {
    if (motore.Esiste(base)) {
      return Errore{"«" + base.luogo.string() +
                    "» esiste già: scegliere un altro nome o un'altra cartella"};
    }
  }
  auto esito = ComeEsito<bool>([&]() -> Esito<bool> {
    const engine::Opzioni comune{opzioni.attesa, opzioni.vfs};
    CreaArchivio(motore, basi[0], passi.Valore().tessarc, comune);
    CreaArchivio(motore, basi[1], passi.Valore().scadenzario, comune);
    return true;
  });
  if (!esito) {
    for (const engine::Base& base : basi) motore.Rimuovi(base);
  }
  return esito;
}

Esito<std::unique_ptr<BasiDati>> BasiDati::Apri(const PercorsiArchivi& percorsi,
                                                const OpzioniApertura& opzioni) {
  using Aperte = std::unique_ptr<BasiDati>;
  const engine::Motore& motore = MotoreDi(percorsi);
  const auto passi = LeggiPassiCompleti(motore, opzioni.cartellaSchema);
  if (!passi) return passi.Errore();
  const auto finito = ComeEsito<bool>([&]() -> Esito<bool> {
    motore.FinisciCambio(BasiDi(percorsi));
    return true;
  });
  if (!finito) return finito.Errore();
  if (const auto verifica = motore.Verifica(BasiDi(percorsi)); !verifica) return verifica.Errore();
  return ComeEsito<Aperte>([&]() -> Esito<Aperte> {
    auto nucleo = std::make_shared<NucleoBasi>(motore, percorsi, opzioni);
    nucleo->Apri();
    if (DaAggiornare(*nucleo, passi.Valore())) {
      nucleo->Chiudi();
      AggiornaSchema(motore, percorsi, passi.Valore(), opzioni);
      nucleo->Apri();
    }
    nucleo->Connessione().TogliResti();
    // Made now, so that a folder that refuses the lock file is told at opening.
    static_cast<void>(nucleo->Blocchi());
    const fs::path cartellaViste = opzioni.cartellaSchema / "viste";
    auto interno = std::make_unique<Interno>();
    interno->nucleo = nucleo;
    interno->viste = std::make_shared<const VisteArchivio>(LeggiViste(cartellaViste / "tessarc"));
    const auto apri = [&](const fs::path& file, const char* base,
                          std::shared_ptr<const VisteArchivio> viste) {
      auto dati = std::make_unique<Archivio::Interno>();
      dati->dati = Dati(nucleo, file, base, std::move(viste));
      return std::unique_ptr<Archivio>(new Archivio(std::move(dati)));
    };
    interno->tessarc = apri(percorsi.tessarc, kTessarc, interno->viste);
    interno->scadenzario =
        apri(percorsi.scadenzario, kScadenzario,
             std::make_shared<const VisteArchivio>(LeggiViste(cartellaViste / "scadenzario")));
    return Aperte(new BasiDati(std::move(interno)));
  });
}

Archivio& BasiDati::Tessarc() {
  return *interno_->tessarc;
}

Archivio& BasiDati::Scadenzario() {
  return *interno_->scadenzario;
}

Archivio& BasiDati::PerChiave(std::string_view chiave) {
  if (UgualeTesto(chiave, "tessarc")) return Tessarc();
  if (UgualeTesto(chiave, "scadenzario")) return Scadenzario();
  throw ErroreArchivio(Causa::Mancante, "non c'è nessun archivio «" + std::string(chiave) + "»");
}

fenalto::Blocchi& BasiDati::Blocchi() {
  return interno_->nucleo->Blocchi();
}

const PercorsiArchivi& BasiDati::Percorsi() const {
  return interno_->nucleo->Percorsi();
}

bool BasiDati::InTransazione() const {
  return interno_->nucleo->InTransazione();
}

void BasiDati::RilasciaLetture(std::chrono::milliseconds ferme) {
  interno_->nucleo->RilasciaLetture(ferme);
}

void BasiDati::ImpostaGuasto(int n, Guasto guasto) {
  interno_->nucleo->ImpostaGuasto(n, guasto);
}

int BasiDati::IstruzioniEseguite() const {
  return interno_->nucleo->IstruzioniEseguite();
}

// --- Transaction ------------------------------------------------------------------------------

Transazione::Transazione(BasiDati& basi, Ambito ambito) : basi_(basi) {
  basi_.interno_->nucleo->Inizia(ambito);
}

Transazione::~Transazione() {
  if (aperta_) basi_.interno_->nucleo->Annulla();
}

void Transazione::Conferma() {
  if (!aperta_) throw std::logic_error("Transazione già conclusa");
  aperta_ = false;
  try {
    basi_.interno_->nucleo->Conferma();
  } catch (...) {
    basi_.interno_->nucleo->Annulla();
    throw;
  }
}

}  // namespace fenalto

#include "core/store/NucleoBasi.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "core/values/Testo.h"

namespace fenalto {

using Causa = ErroreArchivio::Causa;
namespace fs = std::filesystem;

std::vector<engine::Base> BasiDi(const PercorsiArchivi& percorsi) {
  return {{kTessarc, percorsi.tessarc}, {kScadenzario, percorsi.scadenzario}};
}

// --- Opening ------------------------------------------------------------------------------------

NucleoBasi::NucleoBasi(const engine::Motore& motore, PercorsiArchivi percorsi,
                       OpzioniApertura opzioni)
    : motore_(motore), percorsi_(std::move(percorsi)), opzioni_(std::move(opzioni)) {}

NucleoBasi::~NucleoBasi() {
  Chiudi();
}

void NucleoBasi::Apri() {
  connessione_ = motore_.Apri(BasiDi(percorsi_), {opzioni_.attesa, opzioni_.vfs}, false);
}

void NucleoBasi::Chiudi() noexcept {
  if (connessione_ == nullptr) return;
  if (inTransazione_) Annulla();
  while (!cursori_.empty()) {
    CursoreAperto* cursore = cursori_.back();
    cursori_.pop_back();
    cursore->Interrompi();
  }
  for (DatiArchivio* archivio : archivi_) {
    archivio->chiuso = true;
    archivio->cache.Svuota();
  }
  archivi_.clear();
  connessione_.reset();
  blocchi_.reset();
}

fenalto::Blocchi& NucleoBasi::Blocchi() {
  if (!blocchi_) {
    blocchi_ =
        motore_.ApriBlocchi({kTessarc, percorsi_.tessarc}, opzioni_.stazione, opzioni_.utente);
  }
  return *blocchi_;
}

// --- Running ------------------------------------------------------------------------------------

void NucleoBasi::RilasciaLetture(std::chrono::milliseconds ferme) {
  const auto limite = std::chrono::steady_clock::now() - ferme;
  const std::vector<CursoreAperto*> tutti = cursori_;
  for (CursoreAperto* cursore : tutti) {
    if (cursore->UltimaLettura() <= limite) cursore->Completa();
  }
}

void NucleoBasi::PrimaDiEseguire() {
  if (!cursori_.empty()) RilasciaLetture(std::chrono::seconds(1));
  ++eseguite_;
  if (mancanoAlGuasto_ > 0 && --mancanoAlGuasto_ == 0) {
    if (guasto_ == Guasto::Memoria) {
      throw ErroreArchivio(Causa::Memoria, "memoria insufficiente (guasto di prova)");
    }
    if (guasto_ == Guasto::Errore) {
      throw ErroreArchivio(Causa::Altro, "istruzione non eseguita (guasto di prova)");
    }
  }
  // After a full disk or an input/output error the engine has undone the whole transaction; what
  // follows would stand alone.
  if (inTransazione_ && !connessione_->InTransazione()) {
    throw ErroreArchivio(Causa::Altro,
                         "la registrazione è stata annullata da un errore precedente su «" +
                             percorsi_.tessarc.string() + "»: ripetere l'operazione");
  }
}

template <typename Lavoro>
auto NucleoBasi::DopoICursori(const Lavoro& lavoro) {
  try {
    return lavoro();
  } catch (const ErroreArchivio& errore) {
    // While a cursor of ours reads, the engine doesn't wait for a writer that waits for us.
    if (errore.PerQuale() != Causa::Occupato || cursori_.empty()) throw;
  }
  CompletaTutti();
  return lavoro();
}

bool NucleoBasi::PrimoPasso(const Preparata& preparata) {
  return DopoICursori([&] { return preparata.Motore().Avanza(); });
}

std::int64_t NucleoBasi::EseguiAzione(const Preparata& preparata, const DatiArchivio& archivio,
                                      const std::string& tabella) {
  PrimaDiEseguire();
  if (!cursori_.empty()) CompletaCursori(archivio, tabella);
  PrimoPasso(preparata);
  return preparata.Motore().Cambiate();
}

void NucleoBasi::CompletaCursori(const DatiArchivio& archivio, const std::string& tabella) {
  const TabellaArchivio* completa = archivio.catalogo.Completa(tabella);
  std::vector<CursoreAperto*> toccati;
  for (CursoreAperto* cursore : cursori_) {
    bool tocca = completa == nullptr || cursore->Legge(completa->vista.nomeMotore);
    if (!tocca) {
      // Triggers write the mirrors of the changed table.
      for (const DatiArchivio* altro : archivi_) {
        if (altro->base != completa->base) continue;
        tocca = tocca || altro->catalogo.OgniSpecchioDi(tabella, [&](const std::string& nome) {
          return cursore->Legge(nome);
        });
      }
    }
    if (tocca) toccati.push_back(cursore);
  }
  for (CursoreAperto* cursore : toccati) cursore->Completa();
}

void NucleoBasi::CompletaTutti() {
  const std::vector<CursoreAperto*> tutti = cursori_;
  for (CursoreAperto* cursore : tutti) cursore->Completa();
}

void NucleoBasi::Dimentica(CursoreAperto* cursore) noexcept {
  std::erase(cursori_, cursore);
}

// --- Transaction --------------------------------------------------------------------------------

void NucleoBasi::Inizia(Transazione::Ambito ambito) {
  if (inTransazione_) throw std::logic_error("Transazione annidata");
  PrimaDiEseguire();
  DopoICursori([&] { connessione_->Inizia(ambito == Transazione::Ambito::Tutto); });
  inTransazione_ = true;
  if (ambito != Transazione::Ambito::Tessarc) return;
  try {
    PrimaDiEseguire();
    DopoICursori([&] { connessione_->Riserva(kTessarc); });
  } catch (...) {
    Annulla();
    throw;
  }
}

void NucleoBasi::Conferma() {
  PrimaDiEseguire();
  DopoICursori([&] { connessione_->Conferma(); });
  inTransazione_ = false;
}

void NucleoBasi::Annulla() noexcept {
  connessione_->Annulla();
  inTransazione_ = false;
}

// --- Registry -----------------------------------------------------------------------------------

void NucleoBasi::Togli(const DatiArchivio* archivio) noexcept {
  std::erase(archivi_, archivio);
}

DatiArchivio* NucleoBasi::PerPercorso(const fs::path& percorso) const {
  const fs::path voluto = fs::absolute(percorso).lexically_normal();
  for (DatiArchivio* archivio : archivi_) {
    if (fs::absolute(archivio->percorso).lexically_normal() == voluto) return archivio;
  }
  return nullptr;
}

DatiArchivio& NucleoBasi::Trova(const fs::path& percorso) const {
  if (DatiArchivio* archivio = PerPercorso(percorso)) return *archivio;
  for (DatiArchivio* archivio : archivi_) {
    if (UgualeTesto(percorso.string(), archivio->base)) return *archivio;
  }
  throw ErroreArchivio(Causa::Mancante, "l'archivio «" + percorso.string() + "» non è aperto");
}

void NucleoBasi::ImpostaGuasto(int n, Guasto guasto) {
  mancanoAlGuasto_ = n;
  guasto_ = guasto;
  eseguite_ = 0;
}

}  // namespace fenalto

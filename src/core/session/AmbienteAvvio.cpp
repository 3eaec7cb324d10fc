// From nothing to a usable session: program folder, company, year, databases, user.

#include <algorithm>
#include <chrono>
#include <system_error>

#include "core/session/AmbienteInterno.h"
#include "core/session/CambioDitta.h"
#include "core/session/Cestino.h"
#include "core/session/CreaDitta.h"
#include "core/session/Utenti.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

/// Tries that cost nothing but their own time.
constexpr int kTentativiLiberi = 5;
constexpr std::chrono::seconds kPrimaAttesa{2};
constexpr std::chrono::seconds kMassimaAttesa{30};

std::chrono::milliseconds AttesaDopo(int errati) {
  std::chrono::seconds attesa = kPrimaAttesa;
  for (int n = kTentativiLiberi; n < errati && attesa < kMassimaAttesa; ++n) attesa *= 2;
  return std::min(attesa, kMassimaAttesa);
}

/// The last of the name's years, when it isn't said which.
Esito<int> AnnoScelto(const std::string& ditta, const std::vector<int>& anni, int anno) {
  if (anni.empty()) {
    return Errore{"la ditta «" + ditta +
                  "» non ha nessun anno contabile: ripristinare una copia degli archivi"};
  }
  if (anno == 0) return anni.back();
  if (std::binary_search(anni.begin(), anni.end(), anno)) return anno;
  return Errore{"la ditta «" + ditta + "» non ha l'anno " + std::to_string(anno) +
                ": scegliere un anno dell'elenco"};
}

/// Runs what reads the databases; a failure of theirs is told, not thrown.
template <typename T, typename Azione>
Esito<T> LetturaProtetta(const Azione& azione) {
  try {
    return azione();
  } catch (const ErroreArchivio& errore) {
    return Errore{errore.what()};
  }
}

/// Locks and presence name the user from now on.
void NominaUtente(Sessione& sessione) {
  sessione.basi->Blocchi().Utente(sessione.utente.cod);
  if (sessione.presenza) sessione.presenza->Utente(sessione.utente.cod);
}

}  // namespace

std::vector<int> Ambiente::Interno::LeggiAnni(BasiDati& basi) {
  std::vector<int> anni;
  Rs rs = basi.Tessarc().Recordset("select Anno from Anni order by Anno");
  for (; !rs.Eof(); rs.MoveNext()) {
    anni.push_back(static_cast<int>(rs.Fields(std::size_t{0}).Intero()));
  }
  return anni;
}

Esito<bool> Ambiente::Interno::ScegliAnno(Sessione& sessione, int anno) {
  auto scelto = AnnoScelto(sessione.ditta, LeggiAnni(*sessione.basi), anno);
  if (!scelto) return scelto.Errore();
  sessione.anni = LeggiAnni(*sessione.basi);
  sessione.anno = scelto.Valore();
  sessione.euro = Nz(sessione.basi->Tessarc().Singolo("select Euro from Anni where " +
                                                      sql::Criterio("Anno", "=", sessione.anno)))
                      .Booleano();
  return true;
}

OpzioniApertura Ambiente::Interno::Apertura() const {
  OpzioniApertura apertura;
  apertura.cartellaSchema = opzioni.cartellaDati / "schema";
  apertura.stazione = opzioni.stazione;
  apertura.vfs = opzioni.vfs;
  return apertura;
}

Esito<std::unique_ptr<Sessione>> Ambiente::Interno::Prepara(const std::string& ditta,
                                                            int anno) const {
  using Pronta = std::unique_ptr<Sessione>;
  const auto percorsi = ditte.Percorsi(ditta);
  if (!percorsi) return percorsi.Errore();
  std::string senzaPosto;
  std::shared_ptr<Presenza> presenza;
  try {
    // Before the databases: whoever has the company alone may be about to put others in their
    // place.
    auto presa = Presenza::Prendi(percorsi.Valore(), ditte.FileImpostazioni(ditta).stem().string(),
                                  opzioni.stazione);
    if (!presa) return presa.Errore();
    presenza = std::move(presa).Valore();
  } catch (const ErroreArchivio& errore) {
    senzaPosto = errore.what();  // opening tells it better
  }
  auto basi = BasiDati::Apri(percorsi.Valore(), Apertura());
  if (!basi) return basi.Errore();
  if (!senzaPosto.empty()) return Errore{senzaPosto};
  return LetturaProtetta<Pronta>([&]() -> Esito<Pronta> {
    auto nuova = std::make_unique<Sessione>();
    nuova->fileImpostazioni = ditte.FileImpostazioni(ditta);
    // As the file spells it, whatever the case it was asked in.
    nuova->ditta = nuova->fileImpostazioni.stem().string();
    nuova->presenza = presenza;
    nuova->basi = std::move(basi).Valore();
    nuova->recenti = std::make_unique<RecordRecenti>(
        nuova->basi->Percorsi().tessarc.parent_path() / "Recenti", opzioni.stazione);
    if (auto scelto = ScegliAnno(*nuova, anno); !scelto) return scelto.Errore();
    const Valore utenti = nuova->basi->Tessarc().Singolo("select count(*) from Ut");
    nuova->serveAccesso = Nz(utenti).Intero() > 0;
    // Until the log-in, a company with users lets nobody do anything.
    nuova->utente = {"", "", nuova->serveAccesso ? 0 : 99};
    return Pronta(std::move(nuova));
  });
}

void Ambiente::Interno::Installa(std::unique_ptr<Sessione> nuova) {
  AttendiCopia();
  sessione = std::move(nuova);
  letti.clear();
}

Esito<bool> Ambiente::Interno::Accedi(Sessione& s, const std::string& cod,
                                      const std::string& password) {
  if (!s.serveAccesso) return true;
  if (tentativiErrati >= kTentativiLiberi) opzioni.attendi(AttesaDopo(tentativiErrati));
  return LetturaProtetta<bool>([&]() -> Esito<bool> {
    Rs rs = s.basi->Tessarc().Recordset("select * from Ut where " + sql::Criterio("Cod", "=", cod));
    const bool esiste = !rs.Eof();
    // An unknown user takes as long as a known one, so that the time doesn't tell them apart.
    const std::string hash = esiste ? rs.Fields("Password").Testo() : Utenti::HashDiNessuno();
    if (!Utenti::Verifica(hash, password) || !esiste) {
      ++tentativiErrati;
      return Errore{"utente o password non validi"};
    }
    tentativiErrati = 0;
    s.utente = {rs.Fields("Cod").Testo(), rs.Fields("Descrizione").Testo(),
                static_cast<int>(rs.Fields("Livello").Intero())};
    NominaUtente(s);
    return true;
  });
}

bool Ambiente::Interno::ChiediAccesso(Sessione& s) {
  std::string avviso;
  TieniUtente(s);
  while (s.serveAccesso && s.utente.cod.empty()) {
    const auto credenziali = dialoghi.ChiediAccesso(avviso);
    if (!credenziali) return false;
    const auto accesso = Accedi(s, credenziali->utente, credenziali->password);
    if (!accesso) avviso = accesso.Errore().messaggio;
  }
  return true;
}

void Ambiente::Interno::ConsigliaServer() {
  const fs::path cartella = Aperta().basi->Percorsi().tessarc.parent_path();
  if (!CartellaDiRete(cartella) || !consigliate.insert(cartella).second) return;
  dialoghi.Messaggio("La cartella «" + cartella.string() +
                         "» è in rete. I blocchi fra le stazioni funzionano e si può lavorare, ma "
                         "con più stazioni sarà più veloce e più sicuro un server di archivi, "
                         "appena disponibile.",
                     Icona::Avviso);
}

bool Ambiente::Interno::Scegli(const Ambiente& ambiente) {
  const auto anniDi = [&ambiente](const std::string& ditta, std::string& errore) {
    auto anni = ambiente.AnniDi(ditta);
    if (anni) return std::move(anni).Valore();
    errore = anni.Errore().messaggio;
    return std::vector<int>();
  };
  for (;;) {
    const auto trovate = ditte.Trovate();
    if (trovate.empty()) {
      dialoghi.Messaggio("nessuna ditta trovata nella cartella «" +
                             opzioni.cartellaProgramma.string() +
                             "»: controllare la cartella o creare una ditta",
                         Icona::Errore);
      return false;
    }
    auto scelta = dialoghi.ScegliDitta(trovate, anniDi);
    if (!scelta) return false;
    if (scelta->nuova) {
      // From the model company: there may be nothing yet that it could be a copy of.
      const AnnoDitta anno{scelta->anno, scelta->anno >= kPrimoInEuro, scelta->ivaTrimestrale};
      if (auto creata =
              CreaDittaDaModello(opzioni, scelta->ditta, {anno}, true, Partenza::DelModello);
          !creata) {
        dialoghi.Messaggio(creata.Errore().messaggio, Icona::Errore);
        continue;
      }
    }
    auto nuova = Prepara(scelta->ditta, scelta->anno);
    if (!nuova) {
      dialoghi.Messaggio(nuova.Errore().messaggio, Icona::Errore);
      continue;
    }
    if (!ChiediAccesso(*nuova.Valore())) return false;
    Installa(std::move(nuova).Valore());
    ConsigliaServer();
    return true;
  }
}

void Ambiente::Interno::TieniUtente(Sessione& nuova) const {
  const bool stessa = sessione && sessione->fileImpostazioni == nuova.fileImpostazioni;
  if (!stessa || !nuova.serveAccesso || sessione->utente.cod.empty()) return;
  nuova.utente = sessione->utente;
  NominaUtente(nuova);
}

bool Ambiente::Avvia(const std::string& ditta) {
  std::error_code errore;
  fs::create_directories(CartellaProgramma(), errore);
  if (errore) {
    interno_->dialoghi.Messaggio("impossibile creare la cartella «" + CartellaProgramma().string() +
                                     "»: " + errore.message() +
                                     ". Controllare i permessi o indicare un'altra cartella.",
                                 Icona::Errore);
    return false;
  }
  RiprendiLavori();
  if (ditta.empty()) return interno_->Scegli(*this);
  auto nuova = interno_->Prepara(ditta, 0);
  if (!nuova) {
    interno_->dialoghi.Messaggio(nuova.Errore().messaggio, Icona::Errore);
    return false;
  }
  if (!interno_->ChiediAccesso(*nuova.Valore())) return false;
  interno_->Installa(std::move(nuova).Valore());
  interno_->ConsigliaServer();
  return true;
}

void Ambiente::RiprendiLavori() {
  for (const std::string& detto : RiprendiLavoriDitte(interno_->ditte)) {
    interno_->dialoghi.Messaggio(detto, Icona::Avviso);
  }
  SvuotaCestino(interno_->ditte, interno_->orologio.Oggi(), kGiorniCestino);
}

bool Ambiente::SelezioneArchivi() {
  return interno_->Scegli(*this);
}

std::vector<DittaTrovata> Ambiente::DitteTrovate() const {
  return interno_->ditte.Trovate();
}

std::string Ambiente::DittaPredefinita() const {
  return interno_->ditte.Predefinita();
}

Esito<std::vector<int>> Ambiente::AnniDi(const std::string& ditta) const {
  using Lista = std::vector<int>;
  if (DittaAperta() && UgualeTesto(ditta, Ditta())) {
    return LetturaProtetta<Lista>(
        [&]() -> Esito<Lista> { return Interno::LeggiAnni(*interno_->sessione->basi); });
  }
  auto sessione = interno_->Prepara(ditta, 0);
  if (!sessione) return sessione.Errore();
  return sessione.Valore()->anni;
}

Esito<bool> Ambiente::ApriDitta(const std::string& ditta, int anno) {
  auto nuova = interno_->Prepara(ditta, anno);
  if (!nuova) return nuova.Errore();
  interno_->Installa(std::move(nuova).Valore());
  return true;
}

Esito<bool> Ambiente::RiapriDitta(const std::string& ditta, int anno, const Utente& utente) {
  auto nuova = interno_->Prepara(ditta, anno);
  if (!nuova) return nuova.Errore();
  Sessione& sessione = *nuova.Valore();
  if (sessione.serveAccesso && !utente.cod.empty()) {
    sessione.utente = utente;
    NominaUtente(sessione);
  }
  interno_->Installa(std::move(nuova).Valore());
  return true;
}

std::shared_ptr<Presenza> Ambiente::PresenzaQui() const {
  return interno_->Aperta().presenza;
}

void Ambiente::ChiudiDitta() {
  interno_->Installa(nullptr);
}

Esito<bool> Ambiente::Accedi(const std::string& cod, const std::string& password) {
  return interno_->Accedi(interno_->Aperta(), cod, password);
}

Esito<bool> Ambiente::RileggiAnni() {
  Sessione& sessione = interno_->Aperta();
  return LetturaProtetta<bool>([&]() -> Esito<bool> {
    const std::vector<int> anni = Interno::LeggiAnni(*sessione.basi);
    const bool resta = std::binary_search(anni.begin(), anni.end(), sessione.anno);
    return Interno::ScegliAnno(sessione, resta ? sessione.anno : 0);
  });
}

Esito<std::unique_ptr<BasiDati>> Ambiente::ApriAltre(const PercorsiArchivi& percorsi) const {
  return BasiDati::Apri(percorsi, interno_->Apertura());
}

}  // namespace fenalto

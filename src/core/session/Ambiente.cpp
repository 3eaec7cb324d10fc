#include "core/session/Ambiente.h"

#include <stdexcept>
#include <thread>

#include "core/session/AmbienteInterno.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

OpzioniAmbiente Complete(OpzioniAmbiente opzioni) {
  // Absolute: a change of the current folder must not change the company.
  opzioni.cartellaProgramma = fs::absolute(opzioni.cartellaProgramma).lexically_normal();
  if (!opzioni.attendi) {
    opzioni.attendi = [](std::chrono::milliseconds attesa) { std::this_thread::sleep_for(attesa); };
  }
  return opzioni;
}

}  // namespace

Ambiente::Interno::Interno(OpzioniAmbiente o, Dialoghi& d, Orologio& ora, Caso& c)
    : opzioni(Complete(std::move(o))),
      ditte(opzioni.cartellaProgramma),
      dialoghi(d),
      orologio(ora),
      caso(c) {}

Ambiente::Interno::~Interno() {
  AttendiCopia();
  sessione.reset();
}

Sessione& Ambiente::Interno::Aperta() const {
  if (!sessione) throw std::logic_error("nessuna ditta aperta");
  return *sessione;
}

Ambiente::Ambiente(OpzioniAmbiente opzioni, Dialoghi& dialoghi, Orologio& orologio, Caso& caso)
    : interno_(std::make_unique<Interno>(std::move(opzioni), dialoghi, orologio, caso)) {}

Ambiente::~Ambiente() = default;

bool Ambiente::DittaAperta() const {
  return interno_->sessione != nullptr;
}

const std::string& Ambiente::Ditta() const {
  static const std::string nessuna;
  return interno_->sessione ? interno_->sessione->ditta : nessuna;
}

int Ambiente::Anno() const {
  return interno_->sessione ? interno_->sessione->anno : 0;
}

bool Ambiente::Euro() const {
  return !interno_->sessione || interno_->sessione->euro;
}

const std::vector<int>& Ambiente::Anni() const {
  static const std::vector<int> nessuno;
  return interno_->sessione ? interno_->sessione->anni : nessuno;
}

Esito<bool> Ambiente::ScegliAnno(int anno) {
  return Interno::ScegliAnno(interno_->Aperta(), anno);
}

const Utente& Ambiente::UtenteCorrente() const {
  static const Utente nessuno{"", "", 0};
  return interno_->sessione ? interno_->sessione->utente : nessuno;
}

bool Ambiente::ServeAccesso() const {
  return interno_->sessione && interno_->sessione->serveAccesso;
}

bool Ambiente::HaDiritto(int livello) const {
  return livello <= 0 || UtenteCorrente().livello >= livello;
}

const fs::path& Ambiente::CartellaProgramma() const {
  return interno_->opzioni.cartellaProgramma;
}

const fs::path& Ambiente::CartellaDati() const {
  return interno_->opzioni.cartellaDati;
}

const OpzioniAmbiente& Ambiente::Opzioni() const {
  return interno_->opzioni;
}

fs::path Ambiente::CartellaDitta() const {
  return interno_->Aperta().basi->Percorsi().tessarc.parent_path();
}

fs::path Ambiente::CartellaDitta(const std::string& ditta) const {
  const auto percorsi = interno_->ditte.Percorsi(ditta);
  return percorsi ? percorsi.Valore().tessarc.parent_path()
                  : interno_->ditte.CartellaPerRegola(ditta);
}

fs::path Ambiente::PercorsoDb(std::string_view chiave) const {
  return interno_->Aperta().basi->PerChiave(chiave).Percorso();
}

fs::path Ambiente::FileImpostazioni() const {
  return interno_->Aperta().fileImpostazioni;
}

BasiDati& Ambiente::Basi() {
  return *interno_->Aperta().basi;
}

Archivio& Ambiente::ArchivioDi(std::string_view chiave) {
  return interno_->Aperta().basi->PerChiave(chiave);
}

Data Ambiente::DataMinima() {
  constexpr int kPrimoAnno = 1990;
  return *Data::DaGma(1, 1, kPrimoAnno);
}

void Ambiente::Ricorda(const Rinvio& record) {
  interno_->Aperta().recenti->Aggiungi(UtenteCorrente().cod, record);
}

std::vector<Rinvio> Ambiente::Recenti() const {
  return interno_->Aperta().recenti->Di(UtenteCorrente().cod);
}

Dialoghi& Ambiente::Dialogo() {
  return interno_->dialoghi;
}

Orologio& Ambiente::Ora() {
  return interno_->orologio;
}

Caso& Ambiente::Sorte() {
  return interno_->caso;
}

void Ambiente::AvvisoNumero(std::string_view oggetto, std::int64_t numero,
                            std::string_view invito) {
  std::string testo(oggetto);
  testo.append(" n. ").append(std::to_string(numero)).append("\n").append(invito);
  interno_->dialoghi.Annuncia(testo);
}

}  // namespace fenalto

#include "core/records/Bozza.h"

#include <cctype>
#include <charconv>
#include <filesystem>

#include "core/values/Testo.h"

namespace fenalto::records {
namespace {

constexpr const char* kCartella = "Bozze";
constexpr std::string_view kVersione = "1";
constexpr std::string_view kGenerale = "H";
constexpr std::string_view kInConferma = "C";
constexpr std::string_view kCampoTesta = "T:";
constexpr std::string_view kNota = "N:";
constexpr std::uint64_t kImprontaIniziale = 14'695'981'039'346'656'037U;

/// What the general entry holds, in its order.
enum Generale { Versione, Anno, Record, Quando, ImprontaLetta, Funzione, Stazione, Utente, Quante };

/// Function, station and user as a file may be called.
std::string NomeFile(std::string_view funzione, const std::string& stazione,
                     const std::string& utente) {
  std::string nome(funzione);
  for (const std::string& parte : {stazione, utente}) nome += "-" + Minuscolo(parte);
  for (char& lettera : nome) {
    const auto byte = static_cast<unsigned char>(lettera);
    if (std::isalnum(byte) == 0 && lettera != '-' && lettera != '_') lettera = '_';
  }
  return nome;
}

std::int64_t Numero(std::string_view testo) {
  std::int64_t numero = 0;
  std::from_chars(testo.data(), testo.data() + testo.size(), numero);
  return numero;
}

/// Names and values by turns, from the first on.
CampiBozza Coppie(const VoceBozza& voce, std::size_t prima) {
  CampiBozza campi;
  for (std::size_t i = prima; i + 1 < voce.size(); i += 2) campi[voce[i]] = voce[i + 1];
  return campi;
}

void PrendiVoce(BozzaLasciata& lasciata, const std::string& nome, const VoceBozza& voce) {
  const std::string_view vista = nome;
  if (vista.starts_with(kCampoTesta)) {
    lasciata.testa[nome.substr(kCampoTesta.size())] = voce.empty() ? std::string() : voce.front();
  } else if (vista.starts_with(kNota)) {
    lasciata.note[nome.substr(kNota.size())] = voce.empty() ? std::string() : voce.front();
  } else if (vista == kApertaBozza) {
    if (voce.empty()) return;
    lasciata.aperta = Coppie(voce, 1);
    if (const std::int64_t quale = Numero(voce.front()); quale != 0) lasciata.qualeAperta = quale;
  } else if (vista.starts_with(kRigaBozza)) {
    auto& riga = lasciata.righe[Numero(vista.substr(1))];
    if (voce.size() != 1 || voce.front() != kTolta) riga = Coppie(voce, 0);
  }
}

BozzaLasciata DaVoci(const VociBozza& voci, const VoceBozza& generale) {
  BozzaLasciata lasciata;
  lasciata.anno = static_cast<int>(Numero(generale[Anno]));
  lasciata.record = generale[Record];
  lasciata.quando = generale[Quando];
  lasciata.impronta = generale[ImprontaLetta];
  for (const auto& [nome, voce] : voci) PrendiVoce(lasciata, nome, voce);
  return lasciata;
}

void Elimina(const FileBozza::Lasciato& lasciato) noexcept {
  std::error_code errore;
  std::filesystem::remove(lasciato.file, errore);
}

}  // namespace

std::string BozzaLasciata::Nota(std::string_view nome) const {
  const auto trovata = note.find(nome);
  return trovata == note.end() ? std::string() : trovata->second;
}

BozzaDiTesta::BozzaDiTesta(Ambiente& ambiente, std::string_view funzione,
                           std::vector<std::string> esclusi)
    : file_(ambiente.CartellaDitta() / kCartella,
            NomeFile(funzione, ambiente.Opzioni().stazione, ambiente.UtenteCorrente().cod)),
      ambiente_(ambiente),
      funzione_(funzione),
      esclusi_(std::move(esclusi)) {}

bool BozzaDiTesta::Escluso(std::string_view campo) const {
  return std::ranges::any_of(esclusi_,
                             [&](const std::string& uno) { return UgualeTesto(uno, campo); });
}

// --- While one types -----------------------------------------------------------------------------

void BozzaDiTesta::Impronta(std::string_view testo) {
  constexpr std::uint64_t kPrimo = 1'099'511'628'211U;
  for (const char byte : testo) {
    impronta_ = (impronta_ ^ static_cast<unsigned char>(byte)) * kPrimo;
  }
  impronta_ *= kPrimo;
}

void BozzaDiTesta::IniziaTesta(int anno, std::string record, const Scheda& testa) {
  file_.Butta();
  attiva_ = true;
  anno_ = anno;
  record_ = std::move(record);
  quando_ = ambiente_.Ora().Oggi().Testo() + " " + ambiente_.Ora().Ora();
  impronta_ = kImprontaIniziale;
  base_.clear();
  for (const std::string& nome : testa.Nomi()) {
    if (Escluso(nome)) continue;
    const std::string testo = testa.Leggi(nome).Neutro();
    Impronta(testo);
    base_[nome] = testo;
  }
}

void BozzaDiTesta::Nota(std::string_view nome, const Valore& valore) {
  note_[std::string(nome)] = valore.Neutro();
}

bool BozzaDiTesta::TestaDiversa(const Scheda& testa) const {
  return std::ranges::any_of(
      base_, [&](const auto& campo) { return testa.Leggi(campo.first).Neutro() != campo.second; });
}

void BozzaDiTesta::MettiTesta(const Scheda& testa) {
  file_.Metti(
      std::string(kGenerale),
      {std::string(kVersione), std::to_string(anno_), record_, quando_, std::to_string(impronta_),
       funzione_, ambiente_.Opzioni().stazione, ambiente_.UtenteCorrente().cod});
  for (const auto& [nome, prima] : base_) {
    const std::string chiave = std::string(kCampoTesta) + nome;
    std::string testo = testa.Leggi(nome).Neutro();
    if (!Nuova() && testo == prima && !file_.Ha(chiave)) continue;
    file_.Metti(chiave, {std::move(testo)});
  }
  for (const auto& [nome, testo] : note_) file_.Metti(std::string(kNota) + nome, {testo});
}

void BozzaDiTesta::InConferma(bool inCorso) noexcept {
  if (!file_.Scritto()) return;
  try {
    file_.Metti(std::string(kInConferma), {inCorso ? "1" : "0"});
    file_.Scarica();
  } catch (const std::exception&) {
    return;
  }
}

void BozzaDiTesta::Annulla() noexcept {
  file_.Butta();
}

void BozzaDiTesta::Fine() noexcept {
  attiva_ = false;
  note_.clear();
  file_.Butta();
}

// --- When the function is opened next
// -------------------------------------------------------------

std::string BozzaDiTesta::Domanda(const BozzaLasciata& lasciata, bool inConferma,
                                  const ParoleBozza& parole) const {
  std::string testo = "C'è " + parole.cosa + " del " + lasciata.quando;
  if (!lasciata.record.empty()) testo += " (correzione di quanto già registrato)";
  testo += " : " + parole.pronome + " riprendo?";
  if (inConferma) {
    testo += "\nErano in corso la conferma e la scrittura: controllare che non sia già registrato";
  }
  return testo;
}

std::optional<BozzaLasciata> BozzaDiTesta::Offri(const ParoleBozza& parole) {
  ripresa_.reset();
  for (FileBozza::Lasciato& lasciato : file_.Lasciati()) {
    const auto generale = lasciato.voci.find(kGenerale);
    if (generale == lasciato.voci.end()) {
      Elimina(lasciato);  // not even what it was about
      continue;
    }
    if (generale->second.size() != Quante || generale->second[Versione] != kVersione ||
        !UgualeTesto(generale->second[Funzione], funzione_) ||
        !UgualeTesto(generale->second[Stazione], ambiente_.Opzioni().stazione) ||
        !UgualeTesto(generale->second[Utente], ambiente_.UtenteCorrente().cod)) {
      continue;
    }
    BozzaLasciata lasciata = DaVoci(lasciato.voci, generale->second);
    const auto& anni = ambiente_.Anni();
    if (std::ranges::find(anni, lasciata.anno) == anni.end()) {
      Elimina(lasciato);  // it went with its year
      continue;
    }
    if (lasciata.anno != ambiente_.Anno()) {
      ambiente_.Dialogo().Annuncia("C'è " + parole.cosa + " del " + lasciata.quando +
                                   " nell'anno " + std::to_string(lasciata.anno) + ": " +
                                   parole.pronome + " si riprende scegliendo quell'anno");
      continue;
    }
    const auto conferma = lasciato.voci.find(kInConferma);
    const bool inConferma = conferma != lasciato.voci.end() && conferma->second == VoceBozza{"1"};
    const Risposta risposta =
        ambiente_.Dialogo().Domanda(Domanda(lasciata, inConferma, parole), Bottoni::SiNo,
                                    inConferma ? Risposta::No : Risposta::Si);
    if (risposta == Risposta::Si) {
      ripresa_.emplace(std::move(lasciato));
      return lasciata;
    }
    Elimina(lasciato);
  }
  return std::nullopt;
}

bool BozzaDiTesta::Concorda(const BozzaLasciata& lasciata) const {
  return lasciata.record.empty() || lasciata.impronta == std::to_string(impronta_);
}

void BozzaDiTesta::RiempiTesta(const BozzaLasciata& lasciata, Scheda& testa) {
  note_ = lasciata.note;
  for (const auto& voce : base_) {
    const std::string& nome = voce.first;
    if (!lasciata.record.empty() && !lasciata.testa.contains(nome)) continue;
    DaTesto(lasciata.testa, nome, testa.TipoDi(nome),
            [&](const Valore& valore) { testa.Scrivi(nome, valore); });
  }
}

bool BozzaDiTesta::NonRipresa(const std::string& perche, bool resta) {
  if (!perche.empty()) ambiente_.Dialogo().Messaggio(perche, Icona::Avviso);
  if (!resta) ButtaRipresa();
  ripresa_.reset();
  return false;
}

void BozzaDiTesta::ButtaRipresa() noexcept {
  if (ripresa_) Elimina(*ripresa_);
  ripresa_.reset();
}

}  // namespace fenalto::records

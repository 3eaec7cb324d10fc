#include "core/reports/Rapporto.h"

#include <algorithm>
#include <utility>

#include "core/reports/DecimaliStampe.h"
#include "core/reports/PezzoSagoma.h"
#include "core/reports/Seguito.h"
#include "core/reports/TestoStampato.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::reports {

namespace {

/// Pitch of every report's text, in characters an inch.
constexpr int kPasso = 17;
/// Left edge of the graphic form, in millimetres.
constexpr double kX = 10;

/// A number that is a name; in a line it stands to the right of its place.
std::string Codice(const Valore& valore, const Colonna& colonna, bool grafico) {
  std::string testo = TestoStampato(valore);
  const PezzoSagoma pezzo(colonna.sagoma);
  if (grafico || !pezzo.Testo()) return testo;
  const std::size_t largo = LunghezzaTesto(pezzo.segnaposto);
  const std::size_t lungo = LunghezzaTesto(testo);
  return std::string(largo - std::min(largo, lungo), ' ') + testo;
}

}  // namespace

Rapporto::Rapporto(Ambiente& ambiente, FabbricaUscite& uscite)
    : ambiente_(ambiente), stampa_(ambiente, uscite), ditta_(LeggiDatiDitta(ambiente)) {}

Rapporto::~Rapporto() = default;

void Rapporto::Tavola(Colonne colonne, const std::string& campoScritta,
                      const std::string& sottoFoglio) {
  riga_ = Prepara(colonne.Riga());
  totale_ = Prepara(colonne.Totale(campoScritta));
  titoli_ = colonne.Titoli();
  campoScritta_ = campoScritta;
  sottoFoglio_ = sottoFoglio;
  larghezza_ = colonne.Larghezza();
  colonne_ = std::move(colonne);
}

bool Rapporto::Apri(const Cornice& cornice, std::function<void()> testata) {
  return stampa_.Inizio(cornice.rapporto) && Appronta(cornice, std::move(testata));
}

bool Rapporto::Apri(std::unique_ptr<Uscita> uscita, const Cornice& cornice,
                    std::function<void()> testata) {
  stampa_.Inizio(std::move(uscita));
  return Appronta(cornice, std::move(testata));
}

bool Rapporto::PrendiModello(const Cornice& cornice) {
  if (!cornice.modello.empty()) {
    return stampa_.Modello(PercorsoModello(ambiente_, cornice.modello));
  }
  stampa_.Modello(
      ModelloStampa::DaTesto(colonne_->Modello(campoScritta_), cornice.rapporto).Valore());
  return true;
}

bool Rapporto::Appronta(const Cornice& cornice, std::function<void()> testata) {
  grafico_ = cornice.grafico && !stampa_.SoloTesto();
  if (cornice.prepara && !cornice.prepara()) return false;
  if (grafico_ && !PrendiModello(cornice)) return false;
  stampa_.ModoTesto(!grafico_);
  if (grafico_) {
    stampa_.Dimensioni(kX + cornice.xTar);
  } else {
    stampa_.CarattereTesto(kPasso);
  }
  Larghezza(cornice.larghezza == 0 ? larghezza_ : cornice.larghezza);
  stampa_.Titolo(cornice.titolo);
  lireIntere_ = cornice.lireIntere && !ambiente_.Euro();
  stampa_.Intestazione([this, testata = std::move(testata)] {
    testata();
    if (riporto_ && !NienteDaRiportare()) RigaRiporto("riporto", nullptr);
  });
  return true;
}

void Rapporto::Larghezza(std::size_t caratteri) {
  larghezza_ = caratteri;
  intera_ = Ripeti("$", caratteri);
  if (!Grafico()) stampa_.Larghezza(caratteri);
}

void Rapporto::ApriFoglio(Foglio& foglio, const std::vector<std::vector<Valore>>& premessa) {
  foglio_ = &foglio;
  foglio.premessa = {{"ditta ", ditta_.ragSoc1_2}, {"data stampa ", ambiente_.Ora().Oggi()}};
  foglio.premessa.insert(foglio.premessa.end(), premessa.begin(), premessa.end());
  foglio.colonne = colonne_->DelFoglio();
  foglio.decimali = DecimaliStampe(ambiente_);
}

bool Rapporto::Fine() {
  return SuFoglio() || stampa_.Fine();
}

// --- Heading -------------------------------------------------------------------------------------

void Rapporto::TestataDitta(int pagina) {
  if (pagina == 0) pagina = stampa_.NumeroPagina();
  if (!grafico_) {
    constexpr std::size_t kDestra = 24;
    const std::string nome = Ripeti("$", larghezza_ - kDestra);
    Riga({nome + "             pag. #####,", {}, true}, {ditta_.ragSoc1_2, pagina});
    Riga({nome + " data stampa  $$$$$$$$$$"}, {ditta_.indirizzoLocalita, ambiente_.Ora().Oggi()});
    return;
  }
  Titolo("DITTA", ditta_.ragSoc1_2);
  Titolo("RagSoc1_2", ditta_.ragSoc1_2);
  Titolo("Indirizzo_localita", ditta_.indirizzoLocalita);
  if (!ditta_.piva.empty()) Titolo("PIVA", "Partita IVA " + ditta_.piva);
  if (!ditta_.codFisc.empty()) Titolo("CODFISC", "Codice fiscale " + ditta_.codFisc);
  Piede("ANNO", ambiente_.Anno());
  Piede("DATASTAMPA", ambiente_.Ora().Oggi());
  Piede("Pag", pagina);
}

void Rapporto::Titolo(std::string_view campo, const std::string& testo, bool grassetto) {
  if (Grafico()) {
    // What keeps a line of text off the edge has a place of its own in a model.
    if (!campo.empty()) stampa_.CampoModello(campo, std::string(Rifila(testo)));
  } else if (!testo.empty()) {
    RigaTesto(testo, grassetto);
  }
}

void Rapporto::RigaTesto(std::string_view testo, bool grassetto) {
  if (Grafico() || SuFoglio()) return;
  stampa_.Campo(1, testo);
  stampa_.Riga(intera_, {}, grassetto);
}

void Rapporto::Titoli(std::string_view sopra) {
  if (!sopra.empty()) Rigo(sopra);
  for (const std::string& riga : titoli_) {
    if (!Grafico()) stampa_.Riga(Mid(riga, 1, larghezza_));
  }
  Rigo("-");
}

// --- Lines ---------------------------------------------------------------------------------------

Fascia Rapporto::Prepara(Fascia fascia) const {
  fascia.sagoma = PictureImporto(fascia.sagoma, ambiente_.Euro());
  return fascia;
}

Valore Rapporto::PerModello(const Valore& valore) const {
  if (!lireIntere_ || valore.Tipo() != Tipo::Importo) return valore;
  return ScriviImportoFisso(valore.Importo(), 0);
}

void Rapporto::RigaModello(const Fascia& fascia, const std::vector<Valore>& valori,
                           const Rinvio& rinvio, double y) {
  const std::size_t quanti = std::min(valori.size(), fascia.campi.size());
  for (std::size_t i = 0; i < quanti; ++i) {
    if (!fascia.campi[i].empty()) {
      stampa_.CampoModello(fascia.campi[i], valori[i], y, rinvio);
    }
  }
}

void Rapporto::StendiModello(const Fascia& fascia, const std::vector<Valore>& valori,
                             const Rinvio& rinvio) {
  std::vector<std::vector<Valore>> righe{valori};
  const std::size_t quanti = std::min(valori.size(), fascia.campi.size());
  for (std::size_t i = 0; i < quanti && stampa_.VaACapo(); ++i) {
    const std::string& campo = fascia.campi[i];
    if (valori[i].Tipo() != Tipo::Testo || campo.empty() || !stampa_.VaACapo(campo)) continue;
    const std::vector<std::string> pezzi = stampa_.InCampo(campo, valori[i].Testo());
    if (pezzi.size() == 1) continue;
    righe.resize(std::max(righe.size(), pezzi.size()), std::vector<Valore>(valori.size()));
    for (std::size_t k = 0; k < pezzi.size(); ++k) righe[k][i] = pezzi[k];
  }
  // The lines of one row stay together.
  if (righe.size() > 1) {
    const int insieme = static_cast<int>(righe.size());
    riporto_ ? Spazio(insieme) : stampa_.Riserva(insieme);
  }
  for (const std::vector<Valore>& riga : righe) {
    RigaModello(fascia, riga, rinvio, stampa_.YCorrente());
    stampa_.AvanzaRiga();
  }
}

void Rapporto::Stendi(const Fascia& fascia, std::vector<Valore> valori, const Rinvio& rinvio) {
  if (SuFoglio()) return;
  if (Grafico()) {
    if (!fascia.campi.empty()) StendiModello(fascia, valori, rinvio);
    return;
  }
  stampa_.Campi(std::move(valori));
  stampa_.Riga(fascia.sagoma, rinvio, fascia.grassetto);
}

void Rapporto::Riga(const Fascia& fascia, std::vector<Valore> valori, const Rinvio& rinvio) {
  if (Grafico()) {
    for (Valore& valore : valori) valore = PerModello(valore);
  }
  Stendi(fascia, std::move(valori), rinvio);
}

std::vector<Valore> Rapporto::Celle(const std::vector<Valore>& celle) const {
  std::vector<Valore> valori;
  for (std::size_t i = 0; i < celle.size(); ++i) {
    const Colonna& colonna = colonne_->Tutte()[i];
    if (!colonna.mostrata) continue;
    valori.push_back(celle[i]);
    if (celle[i].Nullo()) continue;
    if (colonna.codice) valori.back() = Codice(celle[i], colonna, Grafico());
    if (!Grafico()) continue;
    if (colonna.sagoma.find("ç") != std::string::npos) valori.back() = PerModello(celle[i]);
  }
  return valori;
}

void Rapporto::RigaTavola(const std::vector<Valore>& celle, const Rinvio& rinvio, bool grassetto) {
  if (SuFoglio()) {
    foglio_->righe.push_back(colonne_->SulFoglio(celle));
    return;
  }
  riga_.grassetto = grassetto;
  Stendi(riga_, Celle(celle), rinvio);
}

void Rapporto::Totale(const std::string& scritta, const Somme& somme, bool grassetto) {
  if (SuFoglio()) {
    foglio_->totali.push_back(foglio_->righe.size());
    foglio_->righe.push_back(colonne_->TotaleFoglio(scritta, sottoFoglio_, somme));
    return;
  }
  totale_.grassetto = grassetto;
  Riga(totale_, colonne_->Totale(scritta, somme));
}

void Rapporto::RigaTotale(const std::vector<Valore>& celle) {
  if (SuFoglio()) {
    foglio_->totali.push_back(foglio_->righe.size());
    return RigaTavola(celle);
  }
  Fascia fascia = riga_;
  fascia.grassetto = true;
  fascia.campi = colonne_->CampiTotale();
  Stendi(fascia, Celle(celle), {});
}

void Rapporto::Piede(std::string_view campo, const Valore& valore) {
  if (Grafico()) stampa_.CampoModello(campo, PerModello(valore));
}

void Rapporto::Scritta(std::string_view campo, const std::string& testo, bool grassetto,
                       const Rinvio& rinvio) {
  Riga({intera_, {std::string(campo)}, grassetto}, {testo}, rinvio);
}

void Rapporto::Rigo(std::string_view carattere) {
  if (!SuFoglio() && !Grafico()) stampa_.Riga(Ripeti(carattere, larghezza_));
}

void Rapporto::Filo(std::string_view carattere) {
  if (SuFoglio()) return;
  Grafico() ? stampa_.Filetto() : Rigo(carattere);
}

void Rapporto::Vuota() {
  if (SuFoglio()) return;
  Grafico() ? stampa_.AvanzaRiga() : stampa_.Riga("");
}

void Rapporto::Stacco(std::string_view carattere) {
  if (SuFoglio() || stampa_.RigheLibere() <= 0) return;
  carattere.empty() ? Vuota() : Grafico() ? stampa_.AvanzaRiga() : Rigo(carattere);
}

std::vector<std::string> Rapporto::InCampo(std::string_view campo, const std::string& testo,
                                           std::size_t caratteri) const {
  return Grafico() ? stampa_.InCampo(campo, testo) : InRighe(testo, caratteri);
}

void Rapporto::Riserva(int righe) {
  if (SuFoglio()) return;
  // What is to follow a row still does when the row takes two lines.
  const bool inPiu = righe > 1 && Grafico() && stampa_.VaACapo();
  stampa_.Riserva(inPiu ? righe + 1 : righe);
}

// --- Amounts carried forward ---------------------------------------------------------------------

bool Rapporto::NienteDaRiportare() const {
  return std::ranges::all_of(riporto_->somme(), [](const Valore& somma) {
    return somma.Nullo() || somma.Importo().Zero();
  });
}

void Rapporto::RigaRiporto(const char* testo, const double* y) {
  std::vector<Valore> valori = riporto_->somme();
  valori.insert(valori.begin(), testo);
  if (y != nullptr) {
    for (Valore& valore : valori) valore = PerModello(valore);
    return RigaModello(riporto_->fascia, valori, {}, *y);
  }
  Riga(riporto_->fascia, valori);
}

void Rapporto::Spazio(int righe, bool ultime) {
  if (SuFoglio()) return;
  const int riporto = riporto_ && !Grafico() && !ultime ? 1 : 0;
  if (stampa_.RigheLibere() >= righe + riporto) return;
  const bool riporta = riporto_ && (riporto_->ancheZero || !NienteDaRiportare());
  if (Grafico()) {
    // The last line of the body is kept for the mark.
    const double y = stampa_.AltezzaPagina() - stampa_.MargineBasso();
    stampa_.CampoModello("R_DESCRIZIONE", kSeguePagina, y);
    if (riporta) RigaRiporto("a riportare", &y);
  } else if (riporta) {
    RigaRiporto("a riportare", nullptr);
  }
  stampa_.NuovaPagina();
}

// --- Progress ------------------------------------------------------------------------------------

void Rapporto::Avvia(const std::string& testo, std::int64_t totale, std::int64_t ogni) {
  avanzamento_ = ambiente_.Dialogo().Avvia(testo, totale);
  passi_ = 0;
  ogni_ = ogni;
}

bool Rapporto::Passo() {
  if (Interrotta()) return false;
  return ++passi_ % ogni_ != 0 || avanzamento_->Avanza(passi_);
}

std::int64_t Trovati(Ambiente& ambiente, const std::function<std::int64_t()>& conta,
                     const std::function<std::string()>& nessuno) {
  const std::int64_t quanti = conta();
  if (quanti == 0) ambiente.Dialogo().Annuncia(nessuno());
  return quanti;
}

}  // namespace fenalto::reports

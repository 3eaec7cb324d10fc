#include "core/reports/Stampa.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <stdexcept>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/reports/DecimaliStampe.h"
#include "core/reports/MisuraTesto.h"
#include "core/reports/PaginaTesto.h"
#include "core/reports/Seguito.h"
#include "core/reports/TestoStampato.h"
#include "core/values/Testo.h"

namespace fenalto::reports {

namespace {

constexpr double kCentesimiMillimetro = 100;
constexpr double kPosizioneUsuale = 10;
/// Templates kept: more than any report has, fewer than one that builds them from data would make.
constexpr std::size_t kMassimoSagome = 512;

int InCentesimi(double millimetri) {
  return static_cast<int>(std::lround(millimetri * kCentesimiMillimetro));
}

struct HashVista : std::hash<std::string_view> {
  using is_transparent = void;
};

void Sposta(Elemento& elemento, int dx) {
  std::visit(
      [dx](auto& e) {
        if constexpr (requires { e.x; }) {
          e.x += dx;
        } else {
          e.x1 += dx;
          e.x2 += dx;
        }
      },
      elemento);
}

/// Heads and feet have no room below: what is too wide is set in smaller type, as far as it can be
/// read.
void Rimpicciolisci(Scritta& scritta) {
  constexpr int kMinimoCento = 70;  // of a hundred
  constexpr int kMinimoPunti = 650;
  const int largo = LarghezzaTesto(scritta.testo, scritta.carattere);
  if (largo <= scritta.larghezza) return;
  const int corpo = scritta.carattere.corpo;
  const int minimo = std::min(corpo, std::max(corpo * kMinimoCento / 100, kMinimoPunti));
  const int piccolo = std::max(corpo * (scritta.larghezza - 20) / largo, minimo);
  // On the line on which the larger type would stand: its ascent, in hundredths of a millimetre.
  constexpr int kAscesa = 32;
  scritta.y += (corpo - piccolo) * kAscesa / 100;
  scritta.carattere.corpo = piccolo;
}

bool DiCorpo(std::string_view nome) {
  constexpr std::string_view kPrefisso = "R_";
  return UgualeTesto(nome.substr(0, kPrefisso.size()), kPrefisso);
}

}  // namespace

struct Stampa::Interno {
  Interno(Ambiente& a, FabbricaUscite& f) : ambiente(a), fabbrica(f) {}

  Ambiente& ambiente;
  FabbricaUscite& fabbrica;
  std::unique_ptr<Uscita> uscita;
  bool interrotta = true;
  bool testo = true;

  // The page in making, and where the next line goes.
  std::optional<Pagina> pagina;
  int numero = 0;
  int riga = 0;     ///< text mode: lines printed on the page
  int testata = 0;  ///< of which by the heading
  int y = 0;        ///< graphic mode, hundredths of a millimetre
  bool inTestata = false;
  std::function<void()> intestazione;

  std::vector<Valore> campi;
  std::unordered_map<std::string, Sagoma, HashVista, std::equal_to<>> sagome;
  DisposizioneTesto disposizione;
  int passoChiesto = kPassoUsuale;
  std::size_t larghezza = 0;
  std::optional<ModelloStampa> modello;
  bool vaACapo = false;  ///< the model has fields that go on below
  DecimaliStampe decimali;
  int spostamento = 0;

  void Azzera(std::unique_ptr<Uscita> nuova) {
    pagina.reset();
    uscita = std::move(nuova);
    interrotta = !uscita;
    testo = true;
    numero = riga = testata = y = spostamento = 0;
    intestazione = nullptr;
    campi.clear();
    modello.reset();
    larghezza = 0;
    passoChiesto = kPassoUsuale;
    disposizione = {};
    decimali = DecimaliStampe(ambiente);
  }

  const Sagoma& SagomaDi(std::string_view modelloRiga) {
    if (const auto nota = sagome.find(modelloRiga); nota != sagome.end()) return nota->second;
    if (sagome.size() >= kMassimoSagome) sagome.clear();
    return sagome.emplace(std::string(modelloRiga), Sagoma(modelloRiga)).first->second;
  }

  std::string Componi(std::string_view modelloRiga) {
    std::string riempita = SagomaDi(modelloRiga).Riempi(campi);
    campi.clear();
    return riempita;
  }

  [[nodiscard]] int Righe() const { return RighePagina(disposizione.formato, disposizione.passo); }

  /// Where the last body line of the page begins: it is kept for the mark of continuation.
  [[nodiscard]] int UltimaRiga() const {
    const int altezza = modello->AltezzaRiga();
    const int quante = (modello->FineCorpo() - modello->InizioCorpo()) / altezza;
    return modello->InizioCorpo() + std::max(quante - 1, 1) * altezza;
  }

  void ApriPagina() {
    if (pagina || interrotta) return;
    pagina.emplace();
    pagina->numero = ++numero;
    riga = 0;
    if (testo) {
      disposizione = DisponiTesto(larghezza, passoChiesto);
      pagina->formato = disposizione.formato;
    } else {
      pagina->formato = modello->Formato();
      y = modello->InizioCorpo();
      for (const Elemento& fisso : modello->Fissi()) Metti(fisso);
      MettiCampo("PagTot", Valore(kSegnoPagineTotali), 0, {});
    }
    if (!intestazione) return;
    // The heading fills fields of its own; those that the report has set are for its next line.
    std::vector<Valore> delRapporto = std::exchange(campi, {});
    inTestata = true;
    intestazione();
    inTestata = false;
    campi = std::move(delRapporto);
    testata = riga;
    if (testo && riga >= Righe())
      throw std::logic_error("l'intestazione del rapporto riempie la pagina");
  }

  void ChiudiPagina() {
    if (!pagina) return;
    Pagina finita = std::move(*pagina);
    pagina.reset();
    testata = riga = 0;
    if (!uscita->Aggiungi(std::move(finita))) interrotta = true;
  }

  void Metti(Elemento elemento) {
    if (spostamento != 0) Sposta(elemento, spostamento);
    pagina->elementi.push_back(std::move(elemento));
  }

  void MettiCampo(std::string_view nome, const Valore& valore, int yRiga, const Rinvio& rinvio) {
    const reports::CampoModello* campo = modello->Campo(nome);
    if (campo == nullptr || valore.Nullo()) return;
    Scritta scritta;
    scritta.x = campo->x;
    scritta.y = campo->y + yRiga;
    scritta.larghezza = campo->larghezza;
    scritta.allineamento = campo->allineamento;
    scritta.carattere = campo->carattere;
    scritta.rinvio = rinvio;
    scritta.numero = Numerico(valore);
    if (campo->formato.empty()) {
      AccodaPulito(scritta.testo, TestoStampato(valore));
    } else {
      scritta.testo =
          Rifila(SagomaDi(decimali.DelModello(campo->formato, valore)).Riempi({&valore, 1}));
    }
    if (!DiCorpo(nome) && !scritta.numero) Rimpicciolisci(scritta);
    if (!scritta.testo.empty()) Metti(std::move(scritta));
  }

  /// Goes on to a new page when the body line is past the last: the mark, the page's end, the
  /// heading of the next.
  void ApriRiga() {
    ApriPagina();
    if (interrotta || inTestata || y < UltimaRiga()) return;
    MettiCampo("R_DESCRIZIONE", Valore(kSeguePagina), y, {});
    ChiudiPagina();
    ApriPagina();
  }

  /// Puts the lines already on the page where the new format has them.
  void Ridisponi() {
    pagina->formato = disposizione.formato;
    int quale = 0;
    for (Elemento& elemento : pagina->elementi) {
      auto& fissa = std::get<RigaFissa>(elemento);
      fissa.passo = disposizione.passo;
      fissa.y = AltezzaRigaTesto(disposizione.formato, disposizione.passo, quale++);
    }
  }

  /// Makes the page wide enough; ends it when it holds more lines than it would then.
  void Allarga(std::size_t caratteri) {
    if (caratteri <= larghezza) return;
    larghezza = caratteri;
    const DisposizioneTesto nuova = DisponiTesto(larghezza, passoChiesto);
    if (!pagina) {
      disposizione = nuova;
      return;
    }
    const bool cambia = nuova.passo != disposizione.passo ||
                        nuova.formato.larghezza != disposizione.formato.larghezza;
    if (!cambia) return;
    disposizione = nuova;
    if (riga < Righe() || inTestata) {
      Ridisponi();
    } else {
      ChiudiPagina();
    }
  }
};

Stampa::Stampa(Ambiente& ambiente, FabbricaUscite& uscite)
    : interno_(std::make_unique<Interno>(ambiente, uscite)) {}

Stampa::~Stampa() {
  if (interno_->uscita) interno_->uscita->Annulla();
}

bool Stampa::Inizio(const std::string& rapporto) {
  interno_->Azzera(nullptr);
  Dialoghi& dialogo = interno_->ambiente.Dialogo();
  const auto scelta = dialogo.ScegliUscita(rapporto, false);
  if (!scelta) return false;
  interno_->Azzera(interno_->fabbrica.Crea(*scelta, rapporto));
  if (interno_->interrotta)
    dialogo.Messaggio("L'uscita scelta non è disponibile: sceglierne un'altra.", Icona::Avviso);
  return !interno_->interrotta;
}

void Stampa::Inizio(std::unique_ptr<Uscita> uscita) {
  interno_->Azzera(std::move(uscita));
}

bool Stampa::SoloTesto() const {
  return !interno_->uscita || interno_->uscita->SoloTesto();
}

bool Stampa::Modello(const std::filesystem::path& percorso) {
  auto letto = ModelloStampa::Leggi(percorso);
  if (!letto) {
    interno_->ambiente.Dialogo().Messaggio(letto.Errore().messaggio, Icona::Errore);
    return false;
  }
  Modello(std::move(letto).Valore());
  return true;
}

void Stampa::Modello(ModelloStampa modello) {
  interno_->vaACapo = modello.VaACapo();
  interno_->modello = std::move(modello);
}

void Stampa::ModoTesto(bool attivo) {
  if (!attivo && !SoloTesto() && !interno_->modello)
    throw std::logic_error("modo grafico senza un modello");
  interno_->testo = attivo || SoloTesto();
}

bool Stampa::Grafico() const {
  return !interno_->testo;
}

void Stampa::CarattereTesto(int passo) {
  interno_->passoChiesto = passo;
  if (!interno_->pagina) interno_->disposizione = DisponiTesto(interno_->larghezza, passo);
}

void Stampa::Dimensioni(double x) {
  interno_->spostamento = InCentesimi(x - kPosizioneUsuale);
}

void Stampa::Titolo(const std::string& titolo) {
  if (interno_->uscita) interno_->uscita->Titolo(titolo);
}

void Stampa::Intestazione(std::function<void()> intestazione) {
  interno_->intestazione = std::move(intestazione);
}

void Stampa::Larghezza(std::size_t caratteri) {
  interno_->Allarga(caratteri);
}

void Stampa::Campo(std::size_t n, const Valore& valore) {
  if (n == 0) throw std::logic_error("i campi di una riga si contano da 1");
  if (interno_->campi.size() < n) interno_->campi.resize(n);
  interno_->campi[n - 1] = valore;
}

void Stampa::Campi(std::vector<Valore> valori) {
  interno_->campi = std::move(valori);
}

void Stampa::Riga(std::string_view sagoma, const Rinvio& rinvio, bool grassetto) {
  Interno& s = *interno_;
  if (s.interrotta) return s.campi.clear();
  if (!s.testo) throw std::logic_error("una riga di testo in modo grafico");
  s.Allarga(s.SagomaDi(sagoma).Larghezza());
  // Filled before the page turns: the heading sets fields too.
  std::string riempita = s.Componi(sagoma);
  if (!s.inTestata && s.pagina && s.riga >= s.Righe()) s.ChiudiPagina();
  s.ApriPagina();
  if (s.interrotta) return;
  RigaFissa riga;
  riga.x = s.disposizione.formato.margine;
  riga.y = AltezzaRigaTesto(s.disposizione.formato, s.disposizione.passo, s.riga++);
  riga.passo = s.disposizione.passo;
  riga.grassetto = grassetto;
  riga.testo = std::move(riempita);
  riga.rinvio = rinvio;
  s.pagina->elementi.emplace_back(std::move(riga));
}

std::string Stampa::Formato(std::string_view sagoma) {
  return interno_->Componi(sagoma);
}

int Stampa::RigheLibere() const {
  Interno& s = *interno_;
  s.ApriPagina();
  if (s.interrotta) return 0;
  if (s.testo) return std::max(s.Righe() - s.riga, 0);
  return std::max((s.UltimaRiga() - s.y) / s.modello->AltezzaRiga(), 0);
}

void Stampa::Riserva(int righe) {
  Interno& s = *interno_;
  if (RigheLibere() >= righe || s.interrotta || s.inTestata) return;
  const bool intatta = s.testo ? s.riga == s.testata : s.y == s.modello->InizioCorpo();
  if (intatta) return;
  // In graphic mode the reader is told that the list goes on, as on a full page.
  if (!s.testo) s.MettiCampo("R_DESCRIZIONE", Valore(kSeguePagina), s.y, {});
  s.ChiudiPagina();
}

void Stampa::CampoModello(std::string_view nome, const Valore& valore, double y,
                          const Rinvio& rinvio) {
  Interno& s = *interno_;
  if (s.interrotta) return;
  if (s.testo) throw std::logic_error("un campo del modello in modo testo");
  s.ApriPagina();
  if (!s.interrotta) s.MettiCampo(nome, valore, DiCorpo(nome) ? InCentesimi(y) : 0, rinvio);
}

std::vector<std::string> Stampa::InCampo(std::string_view nome, std::string_view testo) const {
  const auto& modello = interno_->modello;
  const reports::CampoModello* campo = modello ? modello->Campo(nome) : nullptr;
  if (campo == nullptr) return {std::string(testo)};
  std::string pulito;
  AccodaPulito(pulito, testo);
  return InLarghezza(pulito, campo->larghezza, campo->carattere);
}

bool Stampa::VaACapo(std::string_view nome) const {
  const auto& modello = interno_->modello;
  if (!modello) return false;
  if (nome.empty()) return interno_->vaACapo;
  const reports::CampoModello* campo = modello->Campo(nome);
  return campo != nullptr && campo->aCapo;
}

double Stampa::YCorrente() const {
  Interno& s = *interno_;
  if (s.testo || s.interrotta) return 0;
  s.ApriRiga();
  return s.y / kCentesimiMillimetro;
}

double Stampa::AltezzaPagina() const {
  const Interno& s = *interno_;
  return (s.testo ? s.disposizione.formato.altezza : s.modello->Formato().altezza) /
         kCentesimiMillimetro;
}

double Stampa::MargineBasso() const {
  const Interno& s = *interno_;
  if (s.testo) return s.disposizione.formato.margine / kCentesimiMillimetro;
  return (s.modello->Formato().altezza - s.UltimaRiga()) / kCentesimiMillimetro;
}

void Stampa::AvanzaRiga() {
  Interno& s = *interno_;
  if (s.testo || s.interrotta) return;
  // On a full page the new page's first line is the next line.
  const int prima = s.numero;
  s.ApriRiga();
  const bool girata = prima > 0 && s.numero != prima;
  if (!s.interrotta && !girata) s.y += s.modello->AltezzaRiga();
}

void Stampa::Filetto() {
  Interno& s = *interno_;
  if (s.testo || s.interrotta) return;
  s.ApriRiga();
  if (s.interrotta) return;
  const auto [da, a] = s.modello->LarghezzaCorpo();
  s.Metti(Tratto{da, s.y, a, s.y});
}

void Stampa::NuovaPagina() {
  if (!interno_->interrotta && !interno_->inTestata) interno_->ChiudiPagina();
}

int Stampa::NumeroPagina() const {
  return interno_->numero;
}

bool Stampa::Interrotta() const {
  return interno_->interrotta;
}

bool Stampa::Fine() {
  Interno& s = *interno_;
  if (!s.uscita) return false;
  if (s.numero == 0) s.ApriPagina();
  if (!s.interrotta) s.ChiudiPagina();
  const std::unique_ptr<Uscita> uscita = std::move(s.uscita);
  const auto esito = uscita->Fine();
  const bool riuscito = esito && esito.Valore() && !s.interrotta;
  if (!esito) s.ambiente.Dialogo().Messaggio(esito.Errore().messaggio, Icona::Errore);
  if (!riuscito) uscita->Annulla();
  s.interrotta = true;
  return riuscito;
}

}  // namespace fenalto::reports

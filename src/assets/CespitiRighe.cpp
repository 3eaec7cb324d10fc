// The rows of an asset's card: the row frame, its checks in order, the quota worked out.
#include <algorithm>
#include <utility>

#include "assets/CespitiInterno.h"
#include "assets/QuotaAutomatica.h"
#include "core/archives/CodiciNoti.h"
#include "core/values/Testo.h"
#include "ledger/registrations/RegistrazioneAutomatica.h"

namespace fenalto::assets {

namespace {

const Importo kCento = Importo::DaUnita(100);

struct AiutoDiCausale {
  std::string_view cau;
  const char* testo;
};
constexpr AiutoDiCausale kAiuti[] = {
    {kCosto,
     "causale 100: Inserire l'importo ammortizzabile, se non ammortizzabile al 100% mettere in "
     "'note' il costo totale. Nella casella Estremi inserire i riferimenti alla fattura.  Se ci "
     "sono più fatture che compongono il cespite si possono inserire più righe."},
    {kDismissioneParziale,
     "causale 300 dismissione parziale: inserire l'importo della cessione, l'importo da stornare "
     "dal fondo e gli estremi della fattura di cessione."},
    {kRivalutazione,
     "causale 200 rivalutazione/svalutazione: inserire l'importo della rivalutazione e "
     "l'eventuale importo per variare il fondo. (se svalutazione inserire il segno meno)"},
    {kQuoteIniziali,
     "causale 390: serve nella fase iniziale di caricamento dei dati per inserire la somma delle "
     "quote ammortamento degli anni precedenti."},
    {kQuota,
     "causale 400: in base alla categoria viene calcolata la quota; l'importo e la % si possono "
     "forzare. Nelle note si può scrivere ordinario,anticipato,...Si può suddividere la quota "
     "totale in più righe."},
    {kDismissione,
     "causale 500: dismisione (vendita) del bene: inserire l'importo e gli estremi della fattura. "
     "Il porogamma calcolerà la munusvalenza o plusavalenza."}};

bool Contiene(const std::vector<MovimentoCespite>& righe, std::string_view cau, int anno = 0) {
  return std::ranges::any_of(righe, [&](const MovimentoCespite& riga) {
    return riga.cau == cau && (anno == 0 || riga.anno == anno);
  });
}

}  // namespace

// --- The row frame -------------------------------------------------------------------------------

bool Cespiti::PNuovaRiga(std::string* campo) {
  Interno& io = *interno_;
  if (StatoCorrente() != Stato::Aperta || io.documento.RifiutaSolaLettura()) return false;
  std::optional<Rifiuto> rifiuto;
  if (io.testa.Leggi("Dal").Data().Nulla()) {
    rifiuto = Rifiuto{"Inserire data entrata in funzione", "Dal"};
  } else if (io.testa.Testo("Cat").empty()) {
    rifiuto = Rifiuto{"Inserire categoria", "Cat"};
  }
  if (io.documento.Rifiuta(rifiuto, campo)) return false;
  MovimentoCespite nuova;
  for (const MovimentoCespite& riga : Righe()) nuova.posi = std::max(nuova.posi, riga.posi);
  ++nuova.posi;
  io.righe.Nuova(nuova);
  io.pVista = Importo();
  io.chiesta = false;
  return true;
}

bool Cespiti::ApriRiga(std::int64_t posi) {
  Interno& io = *interno_;
  if (StatoCorrente() != Stato::Aperta || !io.righe.Apri(&MovimentoCespite::posi, posi)) {
    return false;
  }
  io.pVista = io.righe.Aperta()->p;
  io.chiesta = true;  // it was answered when the row was typed
  return true;
}

bool Cespiti::RigaNuova() const {
  return interno_->righe.RigaNuova();
}

Scheda& Cespiti::Riga() {
  return interno_->righe.Riga();
}

void Cespiti::AnnullaRiga() {
  interno_->righe.Annulla();
}

std::string Cespiti::AiutoCausale() const {
  const std::string cau = interno_->righe.Riga().Testo("Cau");
  for (const AiutoDiCausale& aiuto : kAiuti) {
    if (aiuto.cau == cau) return aiuto.testo;
  }
  return {};
}

std::string Cespiti::DidascaliaStorno() const {
  const std::string cau = interno_->righe.Riga().Testo("Cau");
  if (cau == kDismissioneParziale) return "importo da stornare dal fondo";
  return cau == kRivalutazione ? "importo variazione fondo" : "";
}

// --- What follows a field ------------------------------------------------------------------------

void Cespiti::RigaLasciata(std::string_view campo) {
  Interno& io = *interno_;
  if (!io.righe.InRiga() || io.documento.SolaLettura()) return;
  Scheda& riga = io.righe.Riga();
  if (UgualeTesto(campo, "Anno") && riga.Leggi("Anno").Intero() == 0) {
    const int anno = riga.Testo("Cau") == kCosto ? io.AnnoDal() : io.ambiente.Anno();
    riga.Scrivi("Anno", anno);
  }
  if (UgualeTesto(campo, "P") && riga.Testo("Cau") == kQuota) io.RateLasciata();
}

void Cespiti::Interno::RateLasciata() {
  const MovimentoCespite digitata = righe.Digitata();
  // Just passing by doesn't undo an amount that was forced.
  if (!digitata.p.Zero() && digitata.p == pVista) return;
  ProponiQuota(digitata);
  pVista = righe.Riga().Leggi("P").Importo();
}

void Cespiti::Interno::ProponiQuota(const MovimentoCespite& digitata) {
  Scheda& riga = righe.Riga();
  const SchedaCespite scheda = AggiornaStato();
  const bool primo = digitata.anno == AnnoDal();
  Importo p = digitata.p;
  std::string note = digitata.note;
  bool intera = false;
  if (primo && scheda.Costo() <= kCostoMinimo && p != kCento && !std::exchange(chiesta, true)) {
    intera = ambiente.Dialogo().Conferma(
        "Il bene è di importo fino ad euro 516.46, applico la percentuale 100%");
  }
  if (intera) {
    p = kCento;
    note = " bene < €516.46";
  } else if (p.Zero()) {
    p = ambiente
            .Cerca("tessarc", "CategorieCespiti", {{"Cod", testa.Testo("Cat")}},
                   primo ? "Perc1" : "Perc")
            .Importo();
    note = primo ? " primo anno" : " ordinario";
  }
  riga.Scrivi("P", p);
  riga.Scrivi("Note", note);
  riga.Scrivi("Estremi", TestoPercento(p) + "%");
  riga.Scrivi("Importo", QuotaDi(scheda.Costo(), p));
}

// --- Checks of a row, in their order -------------------------------------------------------------

int Cespiti::Interno::UltimoAnnoAmmesso() const {
  const int chiuso = static_cast<int>(
      ambiente
          .Max("Anno", "Articoli",
               {{"CREATOINAUTOMATICO", static_cast<int>(ledger::Origine::Chiusura)}}, Tessarc())
          .Intero());
  return std::max(ambiente.Anno(), chiuso + 1);
}

std::optional<Rifiuto> Cespiti::Interno::RifiutoMancante(const MovimentoCespite& riga) const {
  if (riga.cau.empty()) return Rifiuto{"Inserire causale", "Cau"};
  if (riga.anno == 0) return Rifiuto{"Inserire anno", "Anno"};
  if (riga.importo.Zero()) return Rifiuto{"Inserire importo", "Importo"};
  if (riga.cau == kCosto && riga.anno != AnnoDal()) {
    return Rifiuto{
        "Il costo originario deve avere l'anno impostato nella 'data entrata in funzione'", "Anno"};
  }
  if (riga.cau == kDismissioneParziale && riga.storno.Zero()) {
    return Rifiuto{"Inserire l'importo da stornare da fondo'", "StornoFondoDismParz"};
  }
  return std::nullopt;
}

std::optional<Rifiuto> Cespiti::Interno::RifiutoStato(const MovimentoCespite& riga,
                                                      const SchedaCespite& altre) const {
  constexpr const char* kFinito =
      "Impossibile inserire perchè il cespite è già ammortizzato o è dismesso";
  const bool vendita = riga.cau == kDismissione;
  if ((vendita || riga.cau == kRivalutazione) && (altre.Dismesso() || altre.Completato())) {
    // What is depreciated as a whole is sold too.
    const bool domanda = vendita && !altre.Dismesso();
    if (!domanda) return Rifiuto{kFinito, "Cau"};
    if (!ambiente.Dialogo().Conferma(std::string(kFinito) + "\nproseguo ugualmente ?")) {
      return Rifiuto{"", "Cau"};
    }
  }
  if (riga.DiQuota() && altre.Dismesso()) {
    return Rifiuto{"non si può inserire una quota ammortamento perchè il cespite è già dismesso",
                   "Cau"};
  }
  const auto quoteDopo = [&](const MovimentoCespite& altra) {
    return altra.DiQuota() && altra.anno > riga.anno;
  };
  if (vendita && std::ranges::any_of(Altre(), quoteDopo)) {
    return Rifiuto{
        "non si può inserire la dismissione perchè ci sono quote ammortamento di anni successivi "
        "al " +
            std::to_string(riga.anno),
        "Anno"};
  }
  return std::nullopt;
}

std::optional<Rifiuto> Cespiti::Interno::RifiutoAnno(const MovimentoCespite& riga) const {
  const std::vector<MovimentoCespite> altre = Altre();
  const std::string anno = std::to_string(riga.anno);
  if (riga.anno < AnnoDal()) return Rifiuto{"Anno minore di 'data entrata in funzione'", "Anno"};
  if (riga.cau != kCosto && !Contiene(altre, kCosto)) {
    return Rifiuto{"bisogna prima registrare il costo originale (causale 100)", "Cau"};
  }
  if (riga.cau == kDismissione || riga.cau == kDismissioneParziale) {
    if (Contiene(altre, kDismissioneParziale, riga.anno)) {
      return Rifiuto{"c'è già una dismissione parziale sull'anno " + anno, "Anno"};
    }
    if (Contiene(altre, kDismissione, riga.anno)) {
      return Rifiuto{"c'è già la dismissione totale sull'anno " + anno, "Anno"};
    }
  }
  if (riga.anno > UltimoAnnoAmmesso()) {
    return Rifiuto{"Anno superiore all'anno successivo a quello già chiuso", "Anno"};
  }
  return std::nullopt;
}

std::optional<Rifiuto> Cespiti::Interno::RifiutoRiga(const MovimentoCespite& riga) {
  if (auto rifiuto = RifiutoMancante(riga)) return rifiuto;
  if (auto rifiuto = RifiutoStato(riga, CalcolaScheda(Altre()))) return rifiuto;
  if (auto rifiuto = RifiutoAnno(riga)) return rifiuto;
  return archives::CodiceIgnoto(ambiente, {"Cau", "Causale", "causaliCespiti"}, riga.cau);
}

bool Cespiti::ConfermaRiga(std::string* campo) {
  Interno& io = *interno_;
  if (!io.righe.InRiga() || io.documento.RifiutaSolaLettura()) return false;
  MovimentoCespite riga = io.righe.Digitata();
  if (io.documento.Rifiuta(io.RifiutoRiga(riga), campo)) return false;
  // What a causal doesn't have isn't kept from another that was chosen before.
  if (riga.cau != kDismissioneParziale && riga.cau != kRivalutazione) riga.storno = Importo();
  if (riga.cau != kQuota) riga.p = Importo();
  try {
    auto nuove = io.righe.Con(std::move(riga));
    static_cast<void>(CalcolaScheda(nuove));
    io.righe.Sostituisci(std::move(nuove));
    io.dalConCosto = io.testa.Leggi("Dal").Data();
  } catch (const FuoriCampo& e) {
    return !io.documento.Rifiuta(
        Rifiuto{std::string("totali del cespite: ") + e.what() + ". Correggere l'importo",
                "Importo"},
        campo);
  }
  io.AggiornaStato();
  return true;
}

bool Cespiti::EliminaRiga() {
  Interno& io = *interno_;
  if (!io.righe.InRiga() || io.documento.RifiutaSolaLettura()) return false;
  if (io.righe.RigaNuova()) {
    AnnullaRiga();
    return true;
  }
  const bool altre = std::ranges::any_of(
      io.Altre(), [](const MovimentoCespite& riga) { return riga.cau != kCosto; });
  if (io.righe.Aperta()->cau == kCosto && altre) {
    io.Avviso(
        "non si puo eliminare il costo originario quando già ci sono altre righe con quote o "
        "dismissioni");
    return false;
  }
  Dialoghi& dialogo = io.ambiente.Dialogo();
  if (io.testa.Leggi("AmmCompl").Booleano() &&
      !dialogo.Conferma("Si sta eliminando una riga di un cespite con ammortamento già completato\n"
                        "Proseguo ugualmente ?")) {
    return false;
  }
  if (!dialogo.Conferma("Conferma eliminazione RIGA ?")) return false;
  io.righe.Sostituisci(io.righe.Senza());
  io.AggiornaStato();
  return true;
}

}  // namespace fenalto::assets

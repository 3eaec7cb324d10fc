#include "duedates/payments/ScadenzaDigitata.h"

#include "core/archives/CodiciNoti.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {
namespace {

constexpr const char* kDescrizione = "Descrizione";
constexpr const char* kContabile = "DescrizioneContabile";
/// Width of the column on lists, documents and in the bank's file.
constexpr std::size_t kCaratteriDescrizione = 64;

}  // namespace

ScadenzaDigitata::ScadenzaDigitata(Ambiente& ambiente, FinestraPagamento finestra)
    : ambiente_(ambiente),
      dati_(*ambiente.ArchivioDi("scadenzario").Catalogo().Tabella("Scadenze")),
      impostazioni_(finestra) {
  dati_.Aggiungi("DtReg", Tipo::Data);
  dati_.Aggiungi(kContabile, Tipo::Testo);
  impostazioni_.Leggi(ambiente, cfp_);
}

void ScadenzaDigitata::ScegliParte(const std::string& cfp, const std::string& conto) {
  const bool altraClasse = cfp != cfp_;
  cfp_ = cfp;
  conto_ = conto;
  if (altraClasse) impostazioni_.Leggi(ambiente_, cfp_);
}

void ScadenzaDigitata::DatoLasciato(const std::string& campo) {
  if (!UgualeTesto(campo, kDescrizione)) return;
  if (dati_.Testo(kContabile) == seguita_) dati_.Scrivi(kContabile, dati_.Testo(kDescrizione));
  seguita_ = dati_.Testo(kDescrizione);
}

void ScadenzaDigitata::Abbandona() {
  vista_.reset();
  dati_.Svuota();
  seguita_.clear();
  dati_.Scrivi("DtReg", DataRegistrazioneProposta(ambiente_));
  Proponi();
  DatoLasciato(kDescrizione);
  dati_.Consolida();
}

bool ScadenzaDigitata::Nuovo() {
  if (NomeParte(ambiente_, cfp_, conto_).empty()) {
    return Avviso({"impostare un codice cliente o fornitore", "CliFor"}, nullptr);
  }
  Abbandona();
  return true;
}

bool ScadenzaDigitata::Avviso(const Intoppo& intoppo, std::string* campo) const {
  if (!intoppo.testo.empty()) ambiente_.Dialogo().Messaggio(intoppo.testo, Icona::Avviso);
  if (campo != nullptr) *campo = intoppo.campo;
  return false;
}

ScadenzaConRegistrazione ScadenzaDigitata::Prepara() const {
  const ImpostazioniPagamento impostazioni = impostazioni_.Valori();
  ScadenzaConRegistrazione cosa;
  cosa.vista = vista_;
  cosa.cfp = cfp_;
  cosa.conto = conto_;
  cosa.conRegistrazione = impostazioni.conRegistrazione;
  cosa.dt = dati_.Leggi("DtReg").Data();
  cosa.causale = impostazioni.causale;
  cosa.descrizione = std::string(Rifila(dati_.Testo(kContabile)));
  cosa.contropartita = impostazioni.contropartita;
  cosa.importo = ImportoE().Assoluto();
  cosa.campi = CampiImporto(ImportoE());
  for (const char* campo : {"Dt", "Tipo", "Stato", "NFat", "DtFat"}) {
    cosa.campi.emplace_back(campo, dati_.Leggi(campo));
  }
  cosa.campi.emplace_back(kDescrizione, Mid(dati_.Testo(kDescrizione), 1, kCaratteriDescrizione));
  Completa(cosa);
  return cosa;
}

std::optional<ScadenzaDigitata::Intoppo> ScadenzaDigitata::Rifiuto(
    const ScadenzaConRegistrazione& cosa) const {
  if (NomeParte(ambiente_, cfp_, conto_).empty()) {
    return Intoppo{"impostare un codice cliente o fornitore", "CliFor"};
  }
  for (const char* campo : {"ImportoE", "Tipo", "Stato"}) {
    const Valore& valore = dati_.Leggi(campo);
    if (valore.Tipo() == Tipo::Testo ? Rifila(valore.Testo()).empty() : valore.Importo().Zero()) {
      return Intoppo{"manca importo, tipo, stato", campo};
    }
  }
  if (auto rifiuto = RifiutoImporto()) return rifiuto;
  if (std::string rifiuto = RifiutoContabile(ambiente_, cosa); !rifiuto.empty()) {
    return Intoppo{rifiuto, cosa.descrizione.empty() ? kContabile : ""};
  }
  if (!ambiente_.Euro()) {
    return Intoppo{"lo scadenzario non funziona in lire: selezionare un anno in euro", ""};
  }
  if (dati_.Leggi("Dt").Data().Nulla()) return Intoppo{"manca la data della scadenza", "Dt"};
  const std::string tipo = dati_.Testo("Tipo");
  if (!ambiente_.Esiste("tessarc", "tipipagamento", {{"Cod", tipo}})) {
    return Intoppo{"il tipo " + tipo + " non è fra i tipi di pagamento", "Tipo"};
  }
  if (!StatoValido(dati_.Testo("Stato"))) return Intoppo{kStatoDiDueCifre, "Stato"};
  if (cosa.conRegistrazione && cosa.causale.empty()) return Intoppo{"Manca causale o conti", ""};
  if (cosa.conRegistrazione && cosa.dt.Nulla()) {
    return Intoppo{"manca la data di registrazione", "DtReg"};
  }
  if (std::string rifiuto = RifiutoDecimali(ambiente_, ImportoE()); !rifiuto.empty()) {
    return Intoppo{std::move(rifiuto), "ImportoE"};
  }
  const std::string causale = cosa.conRegistrazione ? cosa.causale : std::string();
  if (auto no = archives::CodiceIgnoto(ambiente_, {"", "Causale", "causali"}, causale)) {
    return Intoppo{no->messaggio, ""};
  }
  const std::string banca = dati_.Testo("BancaPresentaz");
  if (!dati_.Modificata("BancaPresentaz") || banca == bancaRipresa_) return std::nullopt;
  if (auto no = archives::CodiceIgnoto(ambiente_, {"BancaPresentaz", "Banca", "banche"}, banca)) {
    return Intoppo{no->messaggio, no->campo};
  }
  return std::nullopt;
}

bool ScadenzaDigitata::Conferma(std::string* campo) {
  const ScadenzaConRegistrazione cosa = Prepara();
  if (const auto rifiuto = Rifiuto(cosa)) return Avviso(*rifiuto, campo);
  if (RinunciaPerData(ambiente_, cosa)) return Avviso({"", "DtReg"}, campo);
  if (Rinuncia()) return Avviso({"", "ImportoE"}, campo);
  const ScadenzaRegistrata scritta = ScriviScadenzaConRegistrazione(ambiente_, cosa, Nome());
  if (!scritta.scritta) return false;
  numeroScritto_ = scritta.numero;
  ambiente_.Dialogo().Annuncia(ConArticolo(Riuscita(), scritta));
  Abbandona();
  return true;
}

}  // namespace fenalto::duedates

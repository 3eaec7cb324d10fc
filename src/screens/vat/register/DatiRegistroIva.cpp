#include "screens/vat/register/DatiRegistroIva.h"

#include <algorithm>
#include <array>

#include "core/session/ImpostazioneAttiva.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "screens/common/fields/CampoGiorno.h"
#include "screens/common/fields/Disposizione.h"

namespace fenalto::screens {
namespace {

constexpr const char* kImpMeno[] = {"ImpMeno0", "ImpMeno1", "ImpMeno2"};
constexpr const char* kImpPiu[] = {"ImpPiu0", "ImpPiu1"};
constexpr const char* kDescr = "Descr";

/// Settings of the company, under the name of their field.
constexpr const char* kImpostazioni[] = {"StIndirizzo",
                                         "RivaVentil",
                                         "RivaVentil1",
                                         "ProRata",
                                         "CausaleErario",
                                         "ContoIvaErario",
                                         "ContoInteressiErario",
                                         "RegistrazioneContabileErario",
                                         "RegistrazioneContabileGiro",
                                         "ChiusIva"};

/// What the file holds for a field's value.
std::string TestoChiave(const Valore& valore) {
  switch (valore.Tipo()) {
    case Tipo::Booleano:
      return valore.Booleano() ? "1" : "0";
    case Tipo::Importo:
      return ScriviImporto(valore.Importo(), 0);
    default:
      return valore.Testo();
  }
}

class PeriodiInMemoria : public archives::FonteCodici {
 public:
  explicit PeriodiInMemoria(std::vector<vat::PeriodoIva> periodi) : periodi_(std::move(periodi)) {}

  std::optional<std::string> Descrizione(const std::string& codice) override {
    const auto trovato = Trova(codice);
    if (trovato == periodi_.end()) return std::nullopt;
    return trovato->testo;
  }

  std::vector<archives::VoceCodice> Cerca(const std::string& testo, int massimo) override {
    const std::string cercato = PerRicerca(testo);
    std::vector<archives::VoceCodice> voci;
    for (const bool inizio : {true, false}) {
      for (const auto& periodo : periodi_) {
        const bool inizia = PerRicerca(periodo.cod).starts_with(cercato);
        const bool contiene = PerRicerca(periodo.testo).find(cercato) != std::string::npos;
        if (inizio ? !inizia : inizia || !contiene) continue;
        if (static_cast<int>(voci.size()) < massimo) voci.push_back({periodo.cod, periodo.testo});
      }
    }
    return voci;
  }

  std::string Canonico(const std::string& codice) override {
    const auto trovato = Trova(codice);
    return trovato == periodi_.end() ? codice : trovato->cod;
  }

 private:
  std::vector<vat::PeriodoIva>::const_iterator Trova(const std::string& codice) const {
    return std::find_if(
        periodi_.begin(), periodi_.end(),
        [&codice](const vat::PeriodoIva& periodo) { return UgualeTesto(periodo.cod, codice); });
  }
  std::vector<vat::PeriodoIva> periodi_;
};

}  // namespace

std::shared_ptr<archives::FonteCodici> FontePeriodi(std::vector<vat::PeriodoIva> periodi) {
  return std::make_shared<PeriodiInMemoria>(std::move(periodi));
}

DatiRegistroIva::DatiRegistroIva(Finestre& finestreUsate, QObject* genitore)
    : QObject(genitore),
      finestre(finestreUsate),
      registro(finestreUsate.Sessione()),
      legatura([this]() -> Scheda& { return scheda; }, finestreUsate.Sessione().Dialogo(), this) {
  AggiungiCampi();
  LeggiImpostazioni();
  PrendiOpzioni();
  connect(&legatura, &Legatura::Lasciato, this, &DatiRegistroIva::Lasciato);
}

void DatiRegistroIva::AggiungiCampi() {
  for (const char* nome :
       {"StIndirizzo", "SaltoCartaTotaliIva", "SoloTotali", "SoloChiusura",
        "RegistrazioneContabileErario", "RegistrazioneContabileGiro", "ChiusIva"}) {
    scheda.Aggiungi(nome, Tipo::Booleano);
  }
  for (const char* nome : {"RivaVentil", "RivaVentil1", "CausaleErario", "ContoIvaErario",
                           "ContoInteressiErario", "MeseTrimestre"}) {
    scheda.Aggiungi(nome, Tipo::Testo);
  }
  for (const char* nome : {"VentilAaNprot", "VentilAaNprot1"}) scheda.Aggiungi(nome, Tipo::Intero);
  for (const char* nome : {"ProRata", "Interessi", "CreditoPrec"}) {
    scheda.Aggiungi(nome, Tipo::Importo);
  }
  const auto voce = [this](const std::string& nome) {
    scheda.Aggiungi(nome, Tipo::Importo);
    scheda.Aggiungi(nome + kDescr, Tipo::Testo);
  };
  for (const char* nome : kImpMeno) voce(nome);
  for (const char* nome : kImpPiu) voce(nome);
  scheda.Aggiungi("DtReg", Tipo::Data);
}

void DatiRegistroIva::LeggiImpostazioni() {
  for (const char* nome : kImpostazioni) {
    switch (scheda.TipoDi(nome)) {
      case Tipo::Booleano:
        // Lines of a settlement are kept unless someone has said no.
        scheda.Scrivi(nome, ImpostazioneAttiva(Sessione(), nome, UgualeTesto(nome, "ChiusIva")));
        break;
      case Tipo::Importo:
        if (const auto letto = LeggiImporto(Sessione().Config(nome))) {
          scheda.Scrivi(nome, letto.Valore());
        }
        break;
      default:
        scheda.Scrivi(nome, Valore(Sessione().Config(nome)));
    }
  }
}

QCheckBox* DatiRegistroIva::Casella(const char* nome, const QString& testo) {
  auto* casella = new QCheckBox(testo);
  casella->setObjectName(QString::fromLatin1(nome));
  legatura.Lega(casella);
  return casella;
}

CampoNumero* DatiRegistroIva::Numero(const char* nome) {
  constexpr int kCifre = 8;
  auto* campo = new CampoNumero(QString::fromLatin1(nome));
  LargoCaratteri(campo, kCifre);
  legatura.Lega(campo);
  return campo;
}

CampoImporto* DatiRegistroIva::ImportoDi(const char* nome, int decimali) {
  constexpr int kCifre = 13;
  auto* campo = new CampoImporto(QString::fromLatin1(nome), nullptr, decimali);
  LargoCaratteri(campo, kCifre);
  legatura.Lega(campo);
  return campo;
}

CampoTesto* DatiRegistroIva::Testo(const char* nome, int lunghezza) {
  auto* campo = new CampoTesto(QString::fromLatin1(nome), nullptr, lunghezza);
  legatura.Lega(campo);
  return campo;
}

CampoData* DatiRegistroIva::DataDi(const char* nome) {
  auto* campo = CampoGiorno(nome, Sessione());
  legatura.Lega(campo);
  return campo;
}

CampoCodice* DatiRegistroIva::Codice(const char* nome,
                                     std::shared_ptr<archives::FonteCodici> fonte) {
  auto* campo = new CampoCodice(QString::fromLatin1(nome), std::move(fonte));
  legatura.Lega(campo);
  return campo;
}

void DatiRegistroIva::MostraOpzioni() {
  const auto& opzioni = registro.Opzioni();
  scheda.Scrivi("StIndirizzo", opzioni.stIndirizzo);
  scheda.Scrivi("SaltoCartaTotaliIva", opzioni.saltoCartaTotaliIva);
  scheda.Scrivi("SoloTotali", opzioni.soloTotali);
  scheda.Scrivi("SoloChiusura", opzioni.soloChiusura);
  scheda.Scrivi("DtReg", opzioni.dtReg);
  const auto& ventilazione = opzioni.ventilazione;
  scheda.Scrivi("RivaVentil", Valore(ventilazione.riva));
  scheda.Scrivi("VentilAaNprot", ventilazione.aaNProt);
  scheda.Scrivi("RivaVentil1", Valore(ventilazione.riva1));
  scheda.Scrivi("VentilAaNprot1", ventilazione.aaNProt1);
  const auto& dati = opzioni.liquidazione;
  scheda.Scrivi("ProRata", dati.proRata);
  scheda.Scrivi("Interessi", dati.interessi);
  scheda.Scrivi("CreditoPrec", dati.creditoPrec);
  const auto voci = [this](const auto& nomi, const auto& valori) {
    for (std::size_t i = 0; i < valori.size(); ++i) {
      scheda.Scrivi(nomi[i], valori[i].importo);
      scheda.Scrivi(std::string(nomi[i]) + kDescr, Valore(valori[i].descrizione));
    }
  };
  voci(kImpMeno, dati.meno);
  voci(kImpPiu, dati.piu);
  legatura.Mostra();
}

void DatiRegistroIva::PrendiOpzioni() {
  auto& opzioni = registro.Opzioni();
  opzioni.stIndirizzo = scheda.Leggi("StIndirizzo").Booleano();
  opzioni.saltoCartaTotaliIva = scheda.Leggi("SaltoCartaTotaliIva").Booleano();
  opzioni.soloTotali = scheda.Leggi("SoloTotali").Booleano();
  opzioni.soloChiusura = scheda.Leggi("SoloChiusura").Booleano();
  opzioni.dtReg = scheda.Leggi("DtReg").Data();
  auto& ventilazione = opzioni.ventilazione;
  ventilazione.riva = scheda.Testo("RivaVentil");
  ventilazione.aaNProt = scheda.Leggi("VentilAaNprot").Intero();
  ventilazione.riva1 = scheda.Testo("RivaVentil1");
  ventilazione.aaNProt1 = scheda.Leggi("VentilAaNprot1").Intero();
  auto& dati = opzioni.liquidazione;
  dati.proRata = scheda.Leggi("ProRata").Importo();
  dati.interessi = scheda.Leggi("Interessi").Importo();
  dati.creditoPrec = scheda.Leggi("CreditoPrec").Importo();
  const auto voci = [this](const auto& nomi, auto& valori) {
    for (std::size_t i = 0; i < valori.size(); ++i) {
      valori[i].importo = scheda.Leggi(nomi[i]).Importo();
      valori[i].descrizione = scheda.Testo(std::string(nomi[i]) + kDescr);
    }
  };
  voci(kImpMeno, dati.meno);
  voci(kImpPiu, dati.piu);
}

void DatiRegistroIva::Lasciato(const QString& campo, bool cambiato) {
  if (!cambiato) return;
  const std::string nome = campo.toStdString();
  const bool impostazione = std::any_of(std::begin(kImpostazioni), std::end(kImpostazioni),
                                        [&nome](const char* chiave) { return nome == chiave; });
  if (impostazione) {
    Sessione().ScriviImpostazione({}, "config", nome, TestoChiave(scheda.Leggi(nome)));
  }
  PrendiOpzioni();
  emit Cambiato(campo);
}

}  // namespace fenalto::screens

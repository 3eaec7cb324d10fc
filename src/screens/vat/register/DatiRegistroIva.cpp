#include "screens/vat/register/DatiRegistroIva.h"

#include <algorithm>

#include "core/archives/FonteCodici.h"
#include "core/records/CampoRiga.h"
#include "core/session/ImpostazioneAttiva.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "screens/common/fields/Disposizione.h"

namespace fenalto::screens {
namespace {

using records::Campo;
using vat::DatiLiquidazione;
using vat::OpzioniRegistroIva;
using vat::Ventilazione;

template <auto kVoci, std::size_t kQuale>
constexpr records::CampoRiga<DatiLiquidazione> ImportoVoce(const char* nome) {
  return {nome, Tipo::Importo,
          [](const DatiLiquidazione& dati) { return Valore((dati.*kVoci)[kQuale].importo); },
          [](DatiLiquidazione& dati, const Valore& valore) {
            (dati.*kVoci)[kQuale].importo = valore.Importo();
          }};
}

template <auto kVoci, std::size_t kQuale>
constexpr records::CampoRiga<DatiLiquidazione> DescrizioneVoce(const char* nome) {
  return {nome, Tipo::Testo,
          [](const DatiLiquidazione& dati) { return Valore((dati.*kVoci)[kQuale].descrizione); },
          [](DatiLiquidazione& dati, const Valore& valore) {
            (dati.*kVoci)[kQuale].descrizione = valore.Testo();
          }};
}

constexpr records::CampoRiga<OpzioniRegistroIva> kCampiOpzioni[] = {
    Campo<&OpzioniRegistroIva::stIndirizzo>("StIndirizzo"),
    Campo<&OpzioniRegistroIva::saltoCartaTotaliIva>("SaltoCartaTotaliIva"),
    Campo<&OpzioniRegistroIva::soloTotali>("SoloTotali"),
    Campo<&OpzioniRegistroIva::soloChiusura>("SoloChiusura"),
    Campo<&OpzioniRegistroIva::dtReg>("DtReg")};

constexpr records::CampoRiga<Ventilazione> kCampiVentilazione[] = {
    Campo<&Ventilazione::riva>("RivaVentil"), Campo<&Ventilazione::aaNProt>("VentilAaNprot"),
    Campo<&Ventilazione::riva1>("RivaVentil1"), Campo<&Ventilazione::aaNProt1>("VentilAaNprot1")};

constexpr records::CampoRiga<DatiLiquidazione> kCampiLiquidazione[] = {
    Campo<&DatiLiquidazione::proRata>("ProRata"),
    Campo<&DatiLiquidazione::interessi>("Interessi"),
    Campo<&DatiLiquidazione::creditoPrec>("CreditoPrec"),
    ImportoVoce<&DatiLiquidazione::meno, 0>("ImpMeno0"),
    DescrizioneVoce<&DatiLiquidazione::meno, 0>("ImpMeno0Descr"),
    ImportoVoce<&DatiLiquidazione::meno, 1>("ImpMeno1"),
    DescrizioneVoce<&DatiLiquidazione::meno, 1>("ImpMeno1Descr"),
    ImportoVoce<&DatiLiquidazione::meno, 2>("ImpMeno2"),
    DescrizioneVoce<&DatiLiquidazione::meno, 2>("ImpMeno2Descr"),
    ImportoVoce<&DatiLiquidazione::piu, 0>("ImpPiu0"),
    DescrizioneVoce<&DatiLiquidazione::piu, 0>("ImpPiu0Descr"),
    ImportoVoce<&DatiLiquidazione::piu, 1>("ImpPiu1"),
    DescrizioneVoce<&DatiLiquidazione::piu, 1>("ImpPiu1Descr")};

/// Settings of the company, under the name of their field.
constexpr const char* kImpostazioni[] = {"StIndirizzo",
                                         "RivaVentil",
                                         "RivaVentil1",
                                         "ProRata",
                                         "CausaleErario",
                                         "ContoIvaErario",
                                         "ContoInteressiErario",
                                         "ContoProRata",
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

}  // namespace

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
  records::AggiungiCampi<OpzioniRegistroIva>(scheda, kCampiOpzioni);
  records::AggiungiCampi<Ventilazione>(scheda, kCampiVentilazione);
  records::AggiungiCampi<DatiLiquidazione>(scheda, kCampiLiquidazione);
  for (const char* nome :
       {"RegistrazioneContabileErario", "RegistrazioneContabileGiro", "ChiusIva"}) {
    scheda.Aggiungi(nome, Tipo::Booleano);
  }
  for (const char* nome : {"CausaleErario", "ContoIvaErario", "ContoInteressiErario",
                           "ContoProRata", "MeseTrimestre"}) {
    scheda.Aggiungi(nome, Tipo::Testo);
  }
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

CampoCodice& DatiRegistroIva::DaiPeriodi(const CampiForma& forma) {
  std::vector<archives::VoceCodice> voci;
  for (const auto& periodo : registro.Periodi()) voci.push_back({periodo.cod, periodo.testo});
  auto& campo = forma.Codice("MeseTrimestre");
  campo.Fonte(archives::FonteInMemoria(std::move(voci)));
  campo.Etichetta()->setObjectName(QStringLiteral("ScrittaPeriodo"));
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

void DatiRegistroIva::MostraOpzioni() {
  const auto& opzioni = registro.Opzioni();
  records::MostraCampi<OpzioniRegistroIva>(scheda, kCampiOpzioni, opzioni);
  records::MostraCampi<Ventilazione>(scheda, kCampiVentilazione, opzioni.ventilazione);
  records::MostraCampi<DatiLiquidazione>(scheda, kCampiLiquidazione, opzioni.liquidazione);
  legatura.Mostra();
}

void DatiRegistroIva::PrendiOpzioni() {
  auto& opzioni = registro.Opzioni();
  opzioni = records::LeggiCampi<OpzioniRegistroIva>(scheda, kCampiOpzioni, opzioni);
  opzioni.ventilazione = records::LeggiCampi<Ventilazione>(scheda, kCampiVentilazione);
  opzioni.liquidazione = records::LeggiCampi<DatiLiquidazione>(scheda, kCampiLiquidazione);
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

#include "screens/common/fields/ControlloForma.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/CampoGiorno.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/GruppoScelta.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

using records::GenereCampo;

constexpr int kCaratteriTesto = 40;
constexpr int kCaratteriMostrati = 56;  // greatest width of a field
constexpr int kLunghezzaTesto = 255;
constexpr int kCaratteriData = 11;
constexpr int kCaratteriNumero = 8;
constexpr int kCaratteriImporto = 15;
constexpr int kCaratteriCodice = 12;

QLabel* CreaEtichetta(GenereCampo genere) {
  auto* etichetta = new EtichettaElisa;
  if (genere == GenereCampo::Titolo) {
    InGrassetto(*etichetta);
  }
  if (genere == GenereCampo::Sommessa) {
    etichetta->setForegroundRole(QPalette::PlaceholderText);
  }
  return etichetta;
}

QComboBox* CreaElenco(const records::CampoForma& campo) {
  auto* elenco = new QComboBox;
  for (const auto& scelta : campo.scelte) elenco->addItem(Qs(scelta.valore));
  if (campo.genere == GenereCampo::Elenco) return elenco;
  elenco->setEditable(true);
  elenco->setInsertPolicy(QComboBox::NoInsert);
  elenco->setCompleter(nullptr);
  elenco->lineEdit()->setMaxLength(1);
  constexpr int kLarghezza = 5;
  LargoCaratteri(elenco, kLarghezza);
  QObject::connect(elenco->lineEdit(), &QLineEdit::textEdited, elenco,
                   [elenco](const QString& testo) {
                     elenco->lineEdit()->setText(testo.toUpper());
                     elenco->lineEdit()->setModified(true);
                   });
  return elenco;
}

QWidget* CreaNote(const records::CampoForma& campo) {
  auto* note = new CampoNote(Qs(campo.nome), nullptr, campo.caratteri);
  note->setMinimumWidth(note->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kCaratteriTesto);
  return note;
}

QWidget* CreaOpzioni(const records::CampoForma& campo) {
  std::vector<GruppoScelta::Scelta> scelte;
  for (const auto& scelta : campo.scelte) {
    scelte.push_back({Qs(scelta.valore), Qs(scelta.testo), Qs(scelta.nome)});
  }
  return new GruppoScelta(Qs(campo.nome), std::move(scelte));
}

QWidget* CreaCodice(Ambiente& ambiente, const records::CampoForma& campo) {
  auto* codice =
      new CampoCodice(Qs(campo.nome), campo.fonte.empty() ? archives::FonteInMemoria({})
                                                          : archives::Fonte(ambiente, campo.fonte));
  LargoCaratteri(codice, std::min(campo.caratteri > 0 ? campo.caratteri + 1 : kCaratteriCodice,
                                  kCaratteriMostrati));
  return codice;
}

QWidget* CreaTipizzato(Ambiente& ambiente, const records::CampoForma& campo, Tipo tipo) {
  const QString nome = Qs(campo.nome);
  const auto largo = [&](QWidget* controllo, int predefiniti) {
    const int descritti = campo.mostrati > 0 ? campo.mostrati : campo.caratteri;
    const int caratteri = descritti > 0 ? descritti : predefiniti;
    LargoCaratteri(controllo, std::min(caratteri + 1, kCaratteriMostrati));
    return controllo;
  };
  switch (tipo) {
    case Tipo::Booleano:
      return new QCheckBox(Qs(campo.didascalia));
    case Tipo::Intero:
      return largo(new CampoNumero(nome), kCaratteriNumero);
    case Tipo::Importo:
    case Tipo::Reale: {
      const int diMoneta = ambiente.Euro() ? 2 : 0;
      return largo(
          new CampoImporto(nome, nullptr,
                           campo.decimali == records::kDecimaliMoneta ? diMoneta : campo.decimali),
          kCaratteriImporto);
    }
    case Tipo::Data:
      return largo(CampoGiorno(campo.nome.c_str(), ambiente), kCaratteriData);
    default: {
      const int lunghezza = campo.caratteri > 0 ? campo.caratteri : kLunghezzaTesto;
      auto* testo = new CampoTesto(nome, nullptr, std::max(campo.digitabili, lunghezza));
      testo->Maiuscole(campo.maiuscole);
      return campo.peso > 0 ? testo : largo(testo, kCaratteriTesto);
    }
  }
}

QWidget* Crea(Ambiente& ambiente, const records::CampoForma& campo, Tipo tipo) {
  switch (campo.genere) {
    case GenereCampo::Codice:
      return CreaCodice(ambiente, campo);
    case GenereCampo::Note:
      return CreaNote(campo);
    case GenereCampo::Opzioni:
      return CreaOpzioni(campo);
    case GenereCampo::Elenco:
    case GenereCampo::Combinata:
      return CreaElenco(campo);
    case GenereCampo::Etichetta:
    case GenereCampo::Titolo:
    case GenereCampo::Sommessa:
      return CreaEtichetta(campo.genere);
    case GenereCampo::Pulsante:
      return Pulsante(Qs(campo.nome), Qs(campo.didascalia));
    case GenereCampo::Auto:
      break;
  }
  return CreaTipizzato(ambiente, campo, tipo);
}

}  // namespace

QWidget* CreaControllo(Ambiente& ambiente, const records::CampoForma& campo, Tipo tipo) {
  auto* controllo = Crea(ambiente, campo, tipo);
  controllo->setObjectName(Qs(campo.nome));
  if (auto* riga = qobject_cast<QLineEdit*>(controllo); riga != nullptr) {
    riga->setReadOnly(campo.fermo);
    riga->setPlaceholderText(Qs(campo.segnaposto));
  }
  if (!campo.suggerimento.empty()) controllo->setToolTip(Qs(campo.suggerimento));
  return controllo;
}

}  // namespace fenalto::screens

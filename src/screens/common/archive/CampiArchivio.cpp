#include "screens/common/archive/CampiArchivio.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <map>
#include <stdexcept>

#include "core/values/Testo.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/GruppoScelta.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/Qs.h"

namespace fenalto::screens {
namespace {

constexpr int kCaratteriTesto = 40;
constexpr int kCaratteriDescrizione = 50;
constexpr int kCaratteriMostrati = 56;  // greatest width of a field
constexpr int kLunghezzaTesto = 255;
constexpr int kCaratteriData = 11;
constexpr int kCaratteriNumero = 8;
constexpr int kCaratteriImporto = 15;
constexpr int kCaratteriCodice = 12;
constexpr int kSpazio = 8;
constexpr int kSottoBordo = 4;  // from a field's edge to its text

const sql::TabellaCatalogo& TabellaDi(Ambiente& ambiente,
                                      const archives::DescrizioneArchivio& descrizione) {
  const auto* tabella =
      ambiente.ArchivioDi(descrizione.chiave).Catalogo().Tabella(descrizione.tabella);
  if (tabella == nullptr) {
    throw std::runtime_error("l'archivio " + descrizione.finestra + " non ha la sua tabella " +
                             descrizione.tabella);
  }
  return *tabella;
}

/// "C = carico   S = scarico" beside a field, one below the other when they are many or long.
QString Legenda(const std::vector<archives::VoceScelta>& scelte) {
  constexpr qsizetype kInRiga = 48;
  QStringList voci;
  qsizetype caratteri = 0;
  for (const auto& scelta : scelte) {
    voci << (scelta.valore.empty() ? QStringLiteral("vuoto") : Qs(scelta.valore)) +
                QStringLiteral(" = ") + Qs(scelta.testo);
    caratteri += voci.back().size();
  }
  return voci.join(caratteri > kInRiga ? QStringLiteral("\n") : QStringLiteral("    "));
}

/// A text beside a field that explains it.
QLabel* Tenue(const QString& testo) {
  auto* etichetta = new QLabel(testo);
  etichetta->setTextFormat(Qt::PlainText);
  QPalette tavolozza;
  QColor colore = tavolozza.color(QPalette::WindowText);
  constexpr int kTenue = 190;
  colore.setAlpha(kTenue);
  for (auto gruppo : {QPalette::Active, QPalette::Inactive}) {
    tavolozza.setColor(gruppo, QPalette::WindowText, colore);
  }
  etichetta->setPalette(tavolozza);
  return etichetta;
}

}  // namespace

CampiArchivio::CampiArchivio(Ambiente& ambiente, const archives::DescrizioneArchivio& descrizione,
                             Legatura& legatura, const Pagine& pagine)
    : ambiente_(ambiente),
      descrizione_(descrizione),
      legatura_(legatura),
      tabella_(TabellaDi(ambiente, descrizione)) {
  for (const auto& campo : Campi()) Aggiungi(campo);
  DisponiRiquadri(pagine);
}

std::vector<archives::CampoArchivio> CampiArchivio::Campi() const {
  const auto descritto = [&](const std::string& nome) {
    return std::any_of(descrizione_.campi.begin(), descrizione_.campi.end(),
                       [&](const auto& campo) { return UgualeTesto(campo.nome, nome); });
  };
  std::vector<archives::CampoArchivio> campi;
  // Code and description come first, whether the archive tells something of them or not.
  if (!descrizione_.codiceComposto && !descritto("Cod")) {
    campi.push_back(
        {.nome = "Cod", .didascalia = "Codice", .caratteri = descrizione_.caratteriCodice});
  }
  for (const auto& campo : descrizione_.campi) {
    if (UgualeTesto(campo.nome, "Cod")) campi.push_back(campo);
  }
  if (!descrizione_.campoDescrizione.empty() && !descritto(descrizione_.campoDescrizione)) {
    campi.push_back({.nome = descrizione_.campoDescrizione,
                     .didascalia = "Descrizione",
                     .caratteri = kCaratteriDescrizione});
  }
  for (const auto& campo : descrizione_.campi) {
    if (!UgualeTesto(campo.nome, "Cod")) campi.push_back(campo);
  }
  return campi;
}

Tipo CampiArchivio::TipoDi(const std::string& campo) const {
  if (const auto* colonna = tabella_.Colonna(campo)) return colonna->tipo;
  for (const auto& [nome, tipo] : descrizione_.campiExtra) {
    if (UgualeTesto(nome, campo)) return tipo;
  }
  throw std::runtime_error("l'archivio " + descrizione_.finestra + " non ha il campo " + campo);
}

CampiArchivio::Griglia& CampiArchivio::GrigliaDi(const std::string& riquadro) {
  for (auto& griglia : griglie_) {
    if (UgualeTesto(griglia->nome, riquadro)) return *griglia;
  }
  auto nuova = std::make_unique<Griglia>();
  nuova->nome = riquadro;
  nuova->disposizione = new QGridLayout;
  nuova->disposizione->setHorizontalSpacing(kSpazio);
  nuova->disposizione->setColumnStretch(1, 1);
  if (!riquadro.empty()) {
    QString titolo;
    for (const auto& descritto : descrizione_.riquadri) {
      if (UgualeTesto(descritto.nome, riquadro)) titolo = Qs(descritto.titolo);
    }
    nuova->riquadro = new QGroupBox(titolo);
    nuova->riquadro->setObjectName(Qs(riquadro));
    nuova->riquadro->setLayout(nuova->disposizione);
  }
  return *griglie_.emplace_back(std::move(nuova));
}

QWidget* CampiArchivio::Crea(const archives::CampoArchivio& campo, Tipo tipo) {
  const QString nome = Qs(campo.nome);
  switch (campo.genere) {
    case archives::GenereCampo::Codice:
      return CreaCodice(campo);
    case archives::GenereCampo::Note: {
      auto* note = new CampoNote(nome, nullptr, campo.caratteri);
      note->setMinimumWidth(note->fontMetrics().horizontalAdvance(QLatin1Char('0')) *
                            kCaratteriTesto);
      return note;
    }
    case archives::GenereCampo::Opzioni: {
      std::vector<GruppoScelta::Scelta> scelte;
      for (const auto& scelta : campo.scelte) {
        scelte.push_back({Qs(scelta.valore), Qs(scelta.testo), Qs(scelta.nome)});
      }
      return new GruppoScelta(nome, std::move(scelte));
    }
    case archives::GenereCampo::Etichetta: {
      auto* etichetta = new QLabel;
      etichetta->setObjectName(nome);
      etichetta->setTextFormat(Qt::PlainText);
      return etichetta;
    }
    case archives::GenereCampo::Auto:
      break;
  }
  return CreaTipizzato(campo, tipo);
}

QWidget* CampiArchivio::CreaTipizzato(const archives::CampoArchivio& campo, Tipo tipo) {
  const QString nome = Qs(campo.nome);
  const auto largo = [&](QWidget* controllo, int predefiniti) {
    const int descritti = campo.mostrati > 0 ? campo.mostrati : campo.caratteri;
    const int caratteri = descritti > 0 ? descritti : predefiniti;
    LargoCaratteri(controllo, std::min(caratteri + 1, kCaratteriMostrati));
    return controllo;
  };
  switch (tipo) {
    case Tipo::Booleano: {
      auto* casella = new QCheckBox(Qs(campo.didascalia));
      casella->setObjectName(nome);
      return casella;
    }
    case Tipo::Intero:
      return largo(new CampoNumero(nome), kCaratteriNumero);
    case Tipo::Importo:
    case Tipo::Reale:
      return largo(new CampoImporto(nome, nullptr, campo.decimali), kCaratteriImporto);
    case Tipo::Data:
      return largo(
          new CampoData(nome,
                        [this] { return std::pair{ambiente_.Anno(), ambiente_.Ora().Oggi()}; }),
          kCaratteriData);
    default: {
      auto* testo =
          new CampoTesto(nome, nullptr, campo.caratteri > 0 ? campo.caratteri : kLunghezzaTesto);
      testo->Maiuscole(campo.maiuscole);
      return largo(testo, kCaratteriTesto);
    }
  }
}

QWidget* CampiArchivio::CreaCodice(const archives::CampoArchivio& campo) {
  auto* codice = new CampoCodice(Qs(campo.nome), archives::Fonte(ambiente_, campo.fonte));
  LargoCaratteri(codice, std::min(campo.caratteri > 0 ? campo.caratteri + 1 : kCaratteriCodice,
                                  kCaratteriMostrati));
  codici_.push_back(codice);
  return codice;
}

void CampiArchivio::Aggiungi(const archives::CampoArchivio& campo) {
  const Tipo tipo = TipoDi(campo.nome);
  auto& griglia = GrigliaDi(campo.riquadro);
  Voce voce{campo.nome, Crea(campo, tipo), {}};
  Disponi(campo, griglia, voce);
  legatura_.Lega(voce.controllo);
  voci_.push_back(std::move(voce));
}

void CampiArchivio::Disponi(const archives::CampoArchivio& campo, Griglia& griglia, Voce& voce) {
  const bool casella = qobject_cast<QCheckBox*>(voce.controllo) != nullptr;
  const bool note = qobject_cast<CampoNote*>(voce.controllo) != nullptr;
  const QString legenda =
      campo.genere != archives::GenereCampo::Opzioni ? Legenda(campo.scelte) : QString();
  // Beside something tall, caption and field stand on its first line.
  const auto righe =
      std::max(legenda.count(QLatin1Char('\n')), Qs(campo.nota).count(QLatin1Char('\n')));
  const auto lato = note || righe > 1 ? Qt::AlignTop : Qt::Alignment();
  const bool accanto = campo.accanto && griglia.linea != nullptr;
  auto* linea = accanto ? griglia.linea : new QHBoxLayout;
  if (accanto) {
    // The stretch that ends the line stays last.
    if (auto* fine = linea->takeAt(linea->count() - 1)) delete fine;
  } else {
    linea->setSpacing(kSpazio);
    griglia.disposizione->addLayout(linea, griglia.righe++, 1);
  }
  if (!casella && !campo.didascalia.empty()) {
    auto* didascalia = Didascalia(Qs(campo.didascalia), voce.controllo);
    if (lato) didascalia->setContentsMargins(0, kSottoBordo, 0, 0);
    if (accanto) {
      linea->addWidget(didascalia);
    } else {
      griglia.disposizione->addWidget(didascalia, griglia.righe - 1, 0, lato);
    }
    voce.contorno.push_back(didascalia);
  }
  linea->addWidget(voce.controllo, note ? 1 : 0, note ? Qt::Alignment() : lato);
  if (auto* codice = qobject_cast<CampoCodice*>(voce.controllo)) {
    linea->addWidget(codice->Etichetta());
    voce.contorno.push_back(codice->Etichetta());
  }
  for (const auto& testo : {legenda, Qs(campo.nota)}) {
    if (testo.isEmpty()) continue;
    linea->addWidget(Tenue(testo));
    voce.contorno.push_back(linea->itemAt(linea->count() - 1)->widget());
  }
  if (!note) linea->addStretch(1);
  griglia.linea = note ? nullptr : linea;
}

void CampiArchivio::DisponiRiquadri(const Pagine& pagine) {
  constexpr int kLarghezza = 700;  // of a row of frames, as the page is at first
  const auto descritto = [this](const std::string& nome) {
    for (const auto& riquadro : descrizione_.riquadri) {
      if (UgualeTesto(riquadro.nome, nome)) return riquadro;
    }
    return archives::RiquadroArchivio{};
  };
  struct Fila {
    QHBoxLayout* disposizione = nullptr;
    int larga = 0;
  };
  std::map<std::string, Fila> file;  // the last row of frames of each page
  for (auto& griglia : griglie_) {
    if (griglia->riquadro == nullptr) {
      pagine("").insertLayout(0, griglia->disposizione);
      continue;
    }
    const auto riquadro = descritto(griglia->nome);
    auto& fila = file[riquadro.pagina];
    const int sua = griglia->riquadro->sizeHint().width();
    if (fila.disposizione == nullptr || riquadro.largo || fila.larga + sua > kLarghezza) {
      fila.disposizione = new QHBoxLayout;
      pagine(riquadro.pagina).addLayout(fila.disposizione);
      fila.larga = 0;
    }
    fila.disposizione->addWidget(griglia->riquadro);
    fila.larga += riquadro.largo ? kLarghezza : sua + kSpazio;
  }
}

void CampiArchivio::Applica(const std::function<archives::StatoCampo(const std::string&)>& stato,
                            bool solaLettura) {
  for (const auto& voce : voci_) {
    const auto suo = stato(voce.nome);
    voce.controllo->setVisible(suo.visibile);
    voce.controllo->setEnabled(suo.attivo && !solaLettura);
    for (auto* intorno : voce.contorno) {
      intorno->setVisible(suo.visibile);
      intorno->setEnabled(suo.attivo);
    }
  }
  for (const auto& griglia : griglie_) {
    if (griglia->riquadro == nullptr) continue;
    const auto suo = stato(griglia->nome);
    griglia->riquadro->setVisible(suo.visibile);
    griglia->riquadro->setEnabled(suo.attivo);
  }
}

void CampiArchivio::Rileggi() {
  for (auto* codice : codici_) {
    if (!codice->isModified()) codice->Mostra(Valore(codice->text().toStdString()));
  }
}

bool CampiArchivio::DaiFoco(const QString& nome) {
  const Voce* primo = nullptr;
  for (const auto& voce : voci_) {
    if (!voce.controllo->isVisibleTo(voce.controllo->window()) || !voce.controllo->isEnabled() ||
        qobject_cast<QLabel*>(voce.controllo) != nullptr) {
      continue;
    }
    if (primo == nullptr) primo = &voce;
    if (Qs(voce.nome).compare(nome, Qt::CaseInsensitive) == 0) {
      voce.controllo->setFocus(Qt::OtherFocusReason);
      return true;
    }
  }
  if (primo == nullptr) return false;
  primo->controllo->setFocus(Qt::OtherFocusReason);
  return true;
}

void CampiArchivio::OrdinaFoco() {
  // Frames may stand before fields that come before them in the description.
  std::vector<QWidget*> inOrdine;
  for (const auto& griglia : griglie_) {
    for (const auto& voce : voci_) {
      if (griglia->disposizione->parentWidget() == nullptr) continue;
      auto* sopra = voce.controllo->parentWidget();
      if (sopra != griglia->disposizione->parentWidget()) continue;
      const auto pulsanti = voce.controllo->findChildren<QAbstractButton*>();
      if (pulsanti.isEmpty()) inOrdine.push_back(voce.controllo);
      for (auto* pulsante : pulsanti) inOrdine.push_back(pulsante);
    }
  }
  for (std::size_t i = 1; i < inOrdine.size(); ++i) {
    QWidget::setTabOrder(inOrdine[i - 1], inOrdine[i]);
  }
}

}  // namespace fenalto::screens

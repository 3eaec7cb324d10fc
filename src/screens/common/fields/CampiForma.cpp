#include "screens/common/fields/CampiForma.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <map>
#include <stdexcept>
#include <utility>

#include "core/values/Testo.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/ControlloForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"
#include "screens/common/look/ParteRara.h"

namespace fenalto::screens {
namespace {

/// "C = carico   S = scarico" beside a field, one below the other when they are many or long.
QString Legenda(const std::vector<records::VoceScelta>& scelte) {
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
  etichetta->setForegroundRole(QPalette::PlaceholderText);
  return etichetta;
}

}  // namespace

CampiForma::CampiForma(Ambiente& ambiente, records::DescrizioneForma forma,
                       QList<Legatura*> legature, const Pagine& pagine)
    : ambiente_(ambiente), forma_(std::move(forma)), legature_(std::move(legature)) {
  // A form that can't be built is refused before any control is made, which nobody would own.
  for (const auto& campo : forma_.campi) static_cast<void>(LegaturaDi(campo));
  for (const auto& campo : forma_.campi) Aggiungi(campo);
  for (auto& griglia : griglie_) TerminaGriglia(*griglia);
  DisponiRiquadri(pagine);
}

CampiForma::CampiForma(Ambiente& ambiente, records::DescrizioneForma forma,
                       QList<Legatura*> legature, QVBoxLayout& pagina)
    : CampiForma(ambiente, std::move(forma), std::move(legature),
                 [&pagina](const std::string&) -> QVBoxLayout& { return pagina; }) {}

// --- Fields -------------------------------------------------------------------------------------

Legatura* CampiForma::LegaturaDi(const records::CampoForma& campo) const {
  for (auto* legatura : legature_) {
    if (legatura->Record().Ha(campo.nome)) return legatura;
  }
  switch (campo.genere) {
    case records::GenereCampo::Etichetta:
    case records::GenereCampo::Titolo:
    case records::GenereCampo::Sommessa:
    case records::GenereCampo::Pulsante:
      return nullptr;
    default:
      throw std::runtime_error("la scheda non ha il campo " + campo.nome);
  }
}

void CampiForma::Aggiungi(const records::CampoForma& campo) {
  auto* legatura = LegaturaDi(campo);
  const Tipo tipo = legatura != nullptr ? legatura->Record().TipoDi(campo.nome) : Tipo::Testo;
  Voce voce{.campo = campo,
            .controllo = CreaControllo(ambiente_, campo, tipo),
            .griglia = &GrigliaDi(campo.riquadro)};
  Disponi(voce);
  if (legatura != nullptr) legatura->Lega(voce.controllo);
  voci_.push_back(std::move(voce));
}

QHBoxLayout& CampiForma::LineaPer(const Voce& voce, Qt::Alignment lato) {
  auto& griglia = *voce.griglia;
  const auto& campo = voce.campo;
  if (campo.accanto && griglia.linea != nullptr) {
    // The stretch that ends the line stays last.
    if (!griglia.tesa) delete griglia.linea->takeAt(griglia.linea->count() - 1);
    if (voce.didascalia != nullptr) {
      griglia.linea->addSpacing(Misura(Passo::Filo));
      griglia.linea->addWidget(voce.didascalia);
    }
    return *griglia.linea;
  }
  if (griglia.righe == 0 || campo.colonna <= griglia.ultima) ++griglia.righe;
  griglia.ultima = campo.colonna + campo.colonne - 1;
  griglia.colonna = 2 * griglia.ultima + 1;
  griglia.tesa = false;
  griglia.linea = new QHBoxLayout;
  griglia.linea->setSpacing(Misura(Passo::Vicino));
  const int riga = griglia.righe - 1;
  const int prima = 2 * campo.colonna + (campo.alMargine ? 0 : 1);
  if (voce.didascalia != nullptr) {
    griglia.disposizione->addWidget(voce.didascalia, riga, 2 * campo.colonna, lato);
  }
  griglia.disposizione->addLayout(griglia.linea, riga, prima, 1, griglia.colonna - prima + 1);
  return *griglia.linea;
}

void CampiForma::Contorna(Voce& voce, const QString& testo) {
  if (testo.isEmpty()) return;
  auto* etichetta = Tenue(testo);
  voce.linea->addWidget(etichetta);
  voce.contorno.push_back(etichetta);
}

bool CampiForma::DisponiInterruttore(Voce& voce) {
  auto& griglia = *voce.griglia;
  auto* interruttore = qobject_cast<QAbstractButton*>(voce.controllo);
  if (griglia.rara == nullptr || interruttore == nullptr ||
      !UgualeTesto(griglia.descritta.interruttore, voce.campo.nome)) {
    return false;
  }
  griglia.sopra->insertWidget(0, interruttore);
  connect(interruttore, &QAbstractButton::toggled, griglia.rara, &ParteRara::Apri);
  return true;
}

void CampiForma::Disponi(Voce& voce) {
  if (DisponiInterruttore(voce)) return;
  const auto& campo = voce.campo;
  auto& griglia = *voce.griglia;
  const bool pulsante = qobject_cast<QAbstractButton*>(voce.controllo) != nullptr;
  const bool note = qobject_cast<CampoNote*>(voce.controllo) != nullptr;
  const bool diScelte = campo.genere == records::GenereCampo::Auto;
  const QString legenda = diScelte ? Legenda(campo.scelte) : QString();
  // Beside something tall, caption and field stand on its first line.
  const auto righe =
      std::max(legenda.count(QLatin1Char('\n')), Qs(campo.nota).count(QLatin1Char('\n')));
  const auto lato = note || righe > 1 ? Qt::AlignTop : Qt::Alignment();
  const auto& testo = pulsante ? campo.capoLinea : campo.didascalia;
  if (!testo.empty()) {
    voce.didascalia = pulsante ? new QLabel(Qs(testo)) : Didascalia(Qs(testo), voce.controllo);
    voce.didascalia->setObjectName(Qs(campo.nomeDidascalia));
    if (lato) voce.didascalia->setContentsMargins(0, Misura(Passo::Filo), 0, 0);
    voce.contorno.push_back(voce.didascalia);
  }
  voce.linea = &LineaPer(voce, lato);
  auto* codice = qobject_cast<CampoCodice*>(voce.controllo);
  const int peso = note ? 1 : campo.peso;
  voce.linea->addWidget(voce.controllo, codice != nullptr ? 0 : peso,
                        note ? Qt::Alignment() : lato);
  if (codice != nullptr) {
    auto* descrizione = codice->Etichetta();
    if (peso > 0) descrizione->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    voce.linea->addWidget(descrizione, peso);
    voce.contorno.push_back(descrizione);
  }
  if (peso > 0 && qobject_cast<QLabel*>(voce.controllo) != nullptr) {
    voce.controllo->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  }
  Contorna(voce, legenda);
  Contorna(voce, Qs(campo.nota));
  griglia.tesa = griglia.tesa || peso > 0;
  if (!griglia.tesa) voce.linea->addStretch(1);
  if (campo.peso > 0) {
    const auto colonna = static_cast<std::size_t>(griglia.colonna);
    if (griglia.pesi.size() <= colonna) griglia.pesi.resize(colonna + 1);
    auto& diColonna = griglia.pesi[colonna];
    diColonna = std::max(diColonna, campo.peso);
  }
  if (note) griglia.linea = nullptr;
}

// --- Frames -------------------------------------------------------------------------------------

CampiForma::Griglia& CampiForma::GrigliaDi(const std::string& riquadro) {
  for (auto& griglia : griglie_) {
    if (UgualeTesto(griglia->descritta.nome, riquadro)) return *griglia;
  }
  auto nuova = std::make_unique<Griglia>();
  nuova->descritta.nome = riquadro;
  nuova->disposizione = new QGridLayout;
  nuova->disposizione->setHorizontalSpacing(Misura(Passo::Vicino));
  if (forma_.stretta) nuova->disposizione->setVerticalSpacing(Misura(Passo::Filo));
  if (riquadro.empty()) return *griglie_.emplace_back(std::move(nuova));
  for (const auto& descritto : forma_.riquadri) {
    if (UgualeTesto(descritto.nome, riquadro)) nuova->descritta = descritto;
  }
  const auto& sua = nuova->descritta;
  nuova->riquadro = new QGroupBox(Qs(sua.titolo));
  nuova->riquadro->setObjectName(Qs(riquadro));
  if (sua.interruttore.empty()) {
    nuova->riquadro->setLayout(nuova->disposizione);
  } else {
    nuova->rara = new ParteRara;
    nuova->rara->setLayout(nuova->disposizione);
    nuova->disposizione->setContentsMargins(0, 0, 0, 0);
    nuova->sopra = new QVBoxLayout(nuova->riquadro);
    nuova->sopra->addWidget(nuova->rara);
  }
  if (sua.righe > 0) {
    auto& fuori = GrigliaDi({});
    fuori.disposizione->addWidget(nuova->riquadro, fuori.righe++, 2 * sua.colonna, sua.righe,
                                  2 * sua.colonne);
    fuori.ultima = sua.colonna + sua.colonne - 1;
    fuori.linea = nullptr;
  }
  return *griglie_.emplace_back(std::move(nuova));
}

void CampiForma::TerminaGriglia(Griglia& griglia) {
  bool pesata = false;
  for (std::size_t colonna = 0; colonna < griglia.pesi.size(); ++colonna) {
    pesata = pesata || griglia.pesi[colonna] > 0;
    griglia.disposizione->setColumnStretch(static_cast<int>(colonna), griglia.pesi[colonna]);
  }
  if (!pesata) griglia.disposizione->setColumnStretch(griglia.disposizione->columnCount() - 1, 1);
}

void CampiForma::DisponiRiquadri(const Pagine& pagine) {
  const int larghezza = Cresciuta(700);  // of a row of frames, as the page is at first
  struct Fila {
    QHBoxLayout* disposizione = nullptr;
    int larga = 0;
  };
  std::map<std::string, Fila> file;  // the last row of frames of each page
  for (auto& griglia : griglie_) {
    const auto& riquadro = griglia->descritta;
    if (griglia->riquadro == nullptr) {
      pagine("").insertLayout(0, griglia->disposizione);
      continue;
    }
    if (riquadro.righe > 0) continue;
    auto& fila = file[riquadro.pagina];
    const int sua = griglia->riquadro->sizeHint().width();
    const bool stretta = riquadro.largo || fila.larga + sua > larghezza;
    if (fila.disposizione == nullptr || (stretta && !riquadro.accanto)) {
      fila.disposizione = new QHBoxLayout;
      pagine(riquadro.pagina).addLayout(fila.disposizione);
      fila.larga = 0;
    }
    fila.disposizione->addWidget(griglia->riquadro);
    fila.larga += riquadro.largo ? larghezza : sua + Misura(Passo::Vicino);
  }
}

// --- What is shown ------------------------------------------------------------------------------

void CampiForma::Applica(Voce& voce, const records::StatoCampo& stato, bool solaLettura) {
  voce.controllo->setVisible(stato.visibile);
  voce.controllo->setEnabled(stato.attivo && !solaLettura);
  for (auto* intorno : voce.contorno) {
    intorno->setVisible(stato.visibile);
    intorno->setEnabled(stato.attivo);
  }
  if (stato.didascalia && voce.didascalia != nullptr) {
    voce.didascalia->setText(Qs(*stato.didascalia));
    voce.controllo->setAccessibleName(Qs(*stato.didascalia));
  }
  auto* etichetta = qobject_cast<QLabel*>(voce.controllo);
  if (stato.testo && etichetta != nullptr) etichetta->setText(Qs(*stato.testo));
  if (stato.suggerimento) voce.controllo->setToolTip(Qs(*stato.suggerimento));
  if (stato.fonte && *stato.fonte != voce.campo.fonte) {
    auto* codice = qobject_cast<CampoCodice*>(voce.controllo);
    voce.campo.fonte = *stato.fonte;
    codice->Fonte(archives::Fonte(ambiente_, *stato.fonte));
    codice->Risolvi();
  }
}

void CampiForma::Applica(const Stato& stato, bool solaLettura) {
  for (auto& voce : voci_) Applica(voce, stato(voce.campo.nome), solaLettura);
  for (const auto& griglia : griglie_) {
    if (griglia->riquadro == nullptr) continue;
    const auto suo = stato(griglia->descritta.nome);
    griglia->riquadro->setVisible(suo.visibile);
    griglia->riquadro->setEnabled(suo.attivo);
    if (suo.suggerimento) griglia->riquadro->setToolTip(Qs(*suo.suggerimento));
  }
}

bool CampiForma::ConRiquadri() const {
  return std::any_of(griglie_.begin(), griglie_.end(), [](const auto& griglia) {
    return griglia->riquadro != nullptr && !griglia->riquadro->isHidden();
  });
}

void CampiForma::Rileggi() {
  for (const auto& voce : voci_) {
    auto* codice = qobject_cast<CampoCodice*>(voce.controllo);
    if (codice == nullptr || codice->isModified()) continue;
    codice->Mostra(Valore(codice->text().toStdString()));
  }
}

bool CampiForma::DaiFoco(const QString& nome) {
  QWidget* primo = nullptr;
  for (const auto& voce : voci_) {
    auto* controllo = voce.controllo;
    if (!controllo->isVisibleTo(controllo->window()) || !controllo->isEnabled() ||
        qobject_cast<QLabel*>(controllo) != nullptr) {
      continue;
    }
    if (primo == nullptr) primo = controllo;
    if (Qs(voce.campo.nome).compare(nome, Qt::CaseInsensitive) != 0) continue;
    primo = controllo;
    break;
  }
  if (primo == nullptr) return false;
  primo->setFocus(Qt::OtherFocusReason);
  return true;
}

QList<QWidget*> CampiForma::Ordine(int turno) const {
  // Frames may stand before fields that come before them in the description.
  QList<QWidget*> inOrdine;
  for (const auto& griglia : griglie_) {
    const bool senzaRiquadro = griglia->riquadro == nullptr;
    for (const auto& voce : voci_) {
      const bool dentro = senzaRiquadro && voce.griglia->descritta.righe > 0;
      const bool sua = voce.griglia == griglia.get() && griglia->descritta.righe == 0;
      if (!(sua || dentro) || voce.campo.turno != turno ||
          qobject_cast<QLabel*>(voce.controllo) != nullptr) {
        continue;
      }
      const auto pulsanti = voce.controllo->findChildren<QAbstractButton*>();
      if (pulsanti.isEmpty()) inOrdine << voce.controllo;
      for (auto* pulsante : pulsanti) inOrdine << pulsante;
    }
  }
  return inOrdine;
}

void CampiForma::OrdinaFoco() {
  constexpr int kTurni = 3;
  QList<QWidget*> inOrdine;
  for (int turno = 0; turno < kTurni; ++turno) inOrdine += Ordine(turno);
  OrdinaFuochi(inOrdine);
}

// --- What a window asks -------------------------------------------------------------------------

const CampiForma::Voce& CampiForma::Trova(const std::string& nome) const {
  for (const auto& voce : voci_) {
    if (UgualeTesto(voce.campo.nome, nome)) return voce;
  }
  throw std::out_of_range("la forma non ha il campo " + nome);
}

QWidget& CampiForma::Controllo(const std::string& nome) const {
  return *Trova(nome).controllo;
}

CampoCodice& CampiForma::Codice(const std::string& nome) const {
  return dynamic_cast<CampoCodice&>(Controllo(nome));
}

QAbstractButton& CampiForma::Pulsante(const std::string& nome) const {
  return dynamic_cast<QAbstractButton&>(Controllo(nome));
}

QHBoxLayout& CampiForma::Linea(const std::string& nome) const {
  return *Trova(nome).linea;
}

bool CampiForma::Conta(const QString& campo, bool cambiato) const {
  return cambiato || Trova(campo.toStdString()).campo.anchePassando;
}

}  // namespace fenalto::screens

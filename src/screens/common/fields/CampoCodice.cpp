#include "screens/common/fields/CampoCodice.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <algorithm>

#include "core/values/Testo.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/look/EtichettaElisa.h"

namespace fenalto::screens {
namespace {

constexpr int kVoci = 60;  // entries listed at most
constexpr int kVociInVista = 10;
constexpr int kRuoloClasse = Qt::UserRole + 1;

QString DiClasse(const std::string& classe) {
  if (classe.empty()) return {};
  return classe == "C"   ? QObject::tr("   (cliente)")
         : classe == "F" ? QObject::tr("   (fornitore)")
                         : QObject::tr("   (conto)");
}

}  // namespace

CampoCodice::CampoCodice(const QString& nome, std::shared_ptr<archives::FonteCodici> fonte,
                         bool conArchivio)
    : fonte_(std::move(fonte)),
      archivio_(conArchivio ? fonte_->Archivio() : std::string()),
      etichetta_(new EtichettaElisa) {
  setObjectName(nome);
  setMaxLength(60);
  etichetta_->setObjectName(nome + QStringLiteral("Descrizione"));
  etichetta_->setTextFormat(Qt::PlainText);
  QString aiuto = tr("F2 elenco");
  if (!fonte_->Ricerca().empty()) aiuto += tr(", Ctrl+F2 ricerca");
  if (!archivio_.empty()) aiuto += tr(", F3 archivio");
  setToolTip(aiuto);
  connect(this, &QLineEdit::textEdited, this, [this](const QString& testo) {
    esiste_ = false;
    etichetta_->clear();
    Elenca(testo, false);
  });
}

CampoCodice::~CampoCodice() {
  delete elenco_;
}

void CampoCodice::Fonte(std::shared_ptr<archives::FonteCodici> fonte) {
  fonte_ = std::move(fonte);
  archivio_ = fonte_->Archivio();
}

void CampoCodice::Mostra(const Valore& valore) {
  testo_.originale = valore.Testo();
  setText(QString::fromStdString(Visibile(testo_.originale)));
  testo_.mostrato = text();
  mostrando_ = true;
  Risolvi();
  mostrando_ = false;
}

Esito<Valore> CampoCodice::Letto() const {
  const bool conSegni = Visibile(testo_.originale) != testo_.originale;
  if (conSegni && text() == testo_.mostrato) return Valore(testo_.originale);
  return testo_.Letto(text().trimmed());
}

std::string CampoCodice::Codice() const {
  const auto letto = Letto();
  return letto ? letto.Valore().Testo() : std::string();
}

void CampoCodice::Risolvi() {
  const auto letto = Letto();
  const std::string codice =
      letto ? std::string(Rifila(letto.Valore().Testo())) : text().trimmed().toStdString();
  const auto descrizione = codice.empty() ? std::nullopt : fonte_->Descrizione(codice);
  esiste_ = descrizione.has_value();
  if (!esiste_) {
    const bool vari = !codice.empty() && !mostrando_ && fonte_->Cerca(codice, 2).size() > 1;
    etichetta_->setText(codice.empty() ? QString()
                        : vari         ? tr("più codici: F2 per scegliere")
                                       : tr("codice non trovato"));
    return;
  }
  etichetta_->setText(QString::fromStdString(Visibile(*descrizione)));
  if (mostrando_) return;
  const QString canonico = QString::fromStdString(fonte_->Canonico(codice));
  if (canonico != text()) setText(canonico);
  emit Trovato(canonico);
}

void CampoCodice::Prendi(const QString& codice) {
  if (codice.isEmpty() || isReadOnly()) return;
  if (codice.compare(text().trimmed(), Qt::CaseInsensitive) == 0) {
    Mostra(Valore(codice.toStdString()));
  } else {
    setText(codice);
    Risolvi();
    emit Scelto(codice);
  }
  selectAll();
}

void CampoCodice::Elenca(const QString& testo, bool tutto) {
  const QString cercato = testo.trimmed();
  if (cercato.isEmpty() && !tutto) {
    ChiudiElenco();
    return;
  }
  const auto voci = fonte_->Cerca(cercato.toStdString(), kVoci);
  if (voci.empty()) {
    ChiudiElenco();
    return;
  }
  if (elenco_ == nullptr) {
    elenco_ = new QListWidget;
    elenco_->setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    elenco_->setAttribute(Qt::WA_ShowWithoutActivating);
    elenco_->setFocusPolicy(Qt::NoFocus);
    elenco_->setUniformItemSizes(true);
    connect(elenco_, &QListWidget::itemClicked, this, [this] { PrendiScelta(); });
  }
  elenco_->clear();
  for (const auto& voce : voci) {
    auto* riga = new QListWidgetItem(
        QString::fromStdString(voce.codice + "   " + voce.descrizione) + DiClasse(voce.classe));
    riga->setData(Qt::UserRole, QString::fromStdString(voce.codice));
    riga->setData(kRuoloClasse, QString::fromStdString(voce.classe));
    elenco_->addItem(riga);
  }
  const int righe = std::min(static_cast<int>(voci.size()), kVociInVista);
  const int altezza = elenco_->sizeHintForRow(0) * righe + 2 * elenco_->frameWidth();
  elenco_->setGeometry(
      QRect(mapToGlobal(QPoint(0, height())), QSize(std::max(width(), 380), altezza)));
  elenco_->show();
}

void CampoCodice::PrendiScelta() {
  if (elenco_ == nullptr || elenco_->currentItem() == nullptr) return;
  const QString codice = elenco_->currentItem()->data(Qt::UserRole).toString();
  const QString classe = elenco_->currentItem()->data(kRuoloClasse).toString();
  ChiudiElenco();
  if (!classe.isEmpty()) emit AltraClasse(classe);
  setText(codice);
  Risolvi();
  emit Scelto(codice);
}

bool CampoCodice::SceltaInElenco() const {
  return elenco_ != nullptr && elenco_->isVisible() && elenco_->currentItem() != nullptr;
}

void CampoCodice::Interpreta() {
  const std::string testo = text().trimmed().toStdString();
  if (const std::string codice = fonte_->DaSegno(testo); !codice.empty()) {
    setText(QString::fromStdString(codice));
    setModified(true);
    return;
  }
  // Words of a description that fit one entry only stand for its code.
  auto voci = fonte_->Cerca(testo, 2);
  const bool propria = !voci.empty() && voci.front().classe.empty();
  if (!propria) voci = fonte_->Altrove(testo);
  if (voci.size() > 1 && !propria && preferita_) {
    const std::string classe = preferita_();
    std::erase_if(voci, [&](const archives::VoceCodice& voce) { return voce.classe != classe; });
  }
  const bool unica = voci.size() == 1 || (propria && voci.size() == 2 && !voci[1].classe.empty());
  if (!unica) return;
  const auto codice = QString::fromStdString(voci.front().codice);
  const auto classe = QString::fromStdString(voci.front().classe);
  if (!classe.isEmpty()) emit AltraClasse(classe);
  setText(codice);
  setModified(true);
}

void CampoCodice::ChiudiElenco() {
  if (elenco_ != nullptr) elenco_->hide();
}

void CampoCodice::focusInEvent(QFocusEvent* evento) {
  QLineEdit::focusInEvent(evento);
  if (evento->reason() != Qt::MouseFocusReason) selectAll();
}

void CampoCodice::focusOutEvent(QFocusEvent* evento) {
  if (SceltaInElenco()) {
    PrendiScelta();
  } else if (isModified() && !text().trimmed().isEmpty() &&
             !fonte_->Descrizione(text().trimmed().toStdString())) {
    Interpreta();
  }
  ChiudiElenco();
  if (!isReadOnly()) {
    mostrando_ = !isModified();
    Risolvi();
    mostrando_ = false;
  }
  QLineEdit::focusOutEvent(evento);
}

bool CampoCodice::event(QEvent* evento) {
  // Esc closes the list before it means anything to the window.
  if (evento->type() == QEvent::ShortcutOverride && elenco_ != nullptr && elenco_->isVisible()) {
    if (static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Escape) {
      evento->accept();
      return true;
    }
  }
  return QLineEdit::event(evento);
}

void CampoCodice::keyPressEvent(QKeyEvent* evento) {
  const bool aperto = elenco_ != nullptr && elenco_->isVisible();
  switch (evento->key()) {
    case Qt::Key_F2:
      // What the list has no room for is searched in a window.
      if ((aperto || evento->modifiers() & Qt::ControlModifier) && !fonte_->Ricerca().empty()) {
        ChiudiElenco();
        Chiedi({.funzione = fonte_->Ricerca(), .codice = text().trimmed().toStdString()});
        return;
      }
      Elenca(QString(), true);
      if (elenco_ != nullptr && elenco_->isVisible()) elenco_->setCurrentRow(0);
      return;
    case Qt::Key_F3:
      ApriArchivio();
      return;
    case Qt::Key_Down:
    case Qt::Key_Up:
      if (!aperto) {
        Elenca(text(), true);
        return;
      }
      elenco_->setCurrentRow(
          std::clamp(elenco_->currentRow() + (evento->key() == Qt::Key_Down ? 1 : -1), 0,
                     elenco_->count() - 1));
      return;
    case Qt::Key_Escape:
      if (aperto) {
        ChiudiElenco();
        return;
      }
      break;
    default:
      break;
  }
  QLineEdit::keyPressEvent(evento);
}

void CampoCodice::mouseDoubleClickEvent(QMouseEvent* evento) {
  QLineEdit::mouseDoubleClickEvent(evento);
  if (!text().trimmed().isEmpty()) ApriArchivio();
}

void CampoCodice::ApriArchivio() {
  if (!archivio_.empty()) Chiedi(AllArchivio(archivio_, text().trimmed().toStdString()));
}

void CampoCodice::Chiedi(const Rinvio& rinvio) {
  for (auto* sopra = parentWidget(); sopra != nullptr; sopra = sopra->parentWidget()) {
    if (auto* seguace = dynamic_cast<SeguaceRinvii*>(sopra)) {
      // The window may be closed by it, and this field with it.
      seguace->SeguiPer(rinvio, *this);
      return;
    }
  }
}

void CampoCodice::hideEvent(QHideEvent* evento) {
  ChiudiElenco();
  QLineEdit::hideEvent(evento);
}

QWidget* ConDescrizione(CampoCodice* campo, int caratteri) {
  auto* insieme = new QWidget;
  auto* riga = new QHBoxLayout(insieme);
  riga->setContentsMargins(0, 0, 0, 0);
  LargoCaratteri(campo, caratteri);
  riga->addWidget(campo);
  auto* etichetta = campo->Etichetta();
  etichetta->setMinimumWidth(0);
  etichetta->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  riga->addWidget(etichetta, 1);
  return insieme;
}

}  // namespace fenalto::screens

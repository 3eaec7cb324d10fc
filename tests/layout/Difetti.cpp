#include "layout/Difetti.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QTableView>
#include <QToolButton>
#include <QTreeView>
#include <algorithm>

#include "screens/common/lists/DelegatoGriglia.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Tavolozza.h"

namespace fenalto::prova {
namespace {

template <class Controllo>
bool E(const QWidget* controllo) {
  return qobject_cast<const Controllo*>(controllo) != nullptr;
}

QString SenzaLettera(QString testo) {
  return testo.replace(QLatin1String("&&"), QLatin1String("\x01"))
      .remove(QLatin1Char('&'))
      .replace(QLatin1String("\x01"), QLatin1String("&"));
}

/// A control by its name, or by what it says.
QString NomeDi(const QWidget& controllo) {
  QString detto;
  if (const auto* etichetta = qobject_cast<const QLabel*>(&controllo)) detto = etichetta->text();
  if (const auto* pulsante = qobject_cast<const QAbstractButton*>(&controllo)) {
    detto = SenzaLettera(pulsante->text());
  }
  if (const auto* gruppo = qobject_cast<const QGroupBox*>(&controllo)) detto = gruppo->title();
  return QStringLiteral("%1 %2 «%3»")
      .arg(QString::fromLatin1(controllo.metaObject()->className()), controllo.objectName(),
           detto.left(40));
}

/// A control that is one thing to the user: what it is made of isn't looked at.
bool Intero(const QWidget* controllo) {
  return E<QLabel>(controllo) || E<QAbstractButton>(controllo) || E<QLineEdit>(controllo) ||
         E<QComboBox>(controllo) || E<QAbstractItemView>(controllo) ||
         E<QAbstractSpinBox>(controllo) || E<QPlainTextEdit>(controllo) || E<QTabBar>(controllo) ||
         E<QProgressBar>(controllo) || E<QScrollBar>(controllo);
}

bool Vuoto(const QWidget* controllo) {
  const auto* etichetta = qobject_cast<const QLabel*>(controllo);
  return etichetta != nullptr && etichetta->text().isEmpty() && etichetta->pixmap().isNull();
}

bool AreaCheScorre(const QWidget* vista) {
  return vista->parentWidget() != nullptr && E<QScrollArea>(vista->parentWidget()) &&
         qobject_cast<const QScrollArea*>(vista->parentWidget())->viewport() == vista;
}

class Esame {
 public:
  explicit Esame(QWidget& finestra) : finestra_(finestra) { Raccogli(finestra); }

  QStringList Fai() {
    for (const auto* controllo : interi_) {
      DentroLaFinestra(*controllo);
      TestoIntero(*controllo);
      Leggibile(*controllo);
    }
    for (const auto* gruppo : gruppi_) TitoloDiGruppo(*gruppo);
    for (std::size_t i = 0; i < interi_.size(); ++i) {
      for (std::size_t j = i + 1; j < interi_.size(); ++j) Separati(*interi_[i], *interi_[j]);
    }
    return difetti_;
  }

 private:
  /// A part that is narrower than what stands in it squeezes it.
  void Schiacciato(const QWidget& parte) {
    if (parte.layout() == nullptr || E<QAbstractScrollArea>(&parte)) return;
    const QSize minima = parte.minimumSizeHint().boundedTo(parte.maximumSize());
    if (parte.width() >= minima.width() && parte.height() >= minima.height()) return;
    Difetto(parte, QStringLiteral("è di %1x%2, ne chiede %3x%4")
                       .arg(parte.width())
                       .arg(parte.height())
                       .arg(minima.width())
                       .arg(minima.height()));
  }

  void Raccogli(QWidget& sopra) {
    for (auto* oggetto : sopra.children()) {
      auto* figlio = qobject_cast<QWidget*>(oggetto);
      if (figlio == nullptr || !figlio->isVisible() || figlio->isWindow() || Vuoto(figlio))
        continue;
      if (auto* gruppo = qobject_cast<QGroupBox*>(figlio)) gruppi_.push_back(gruppo);
      if (Intero(figlio)) {
        interi_.push_back(figlio);
      } else {
        Schiacciato(*figlio);
        Raccogli(*figlio);
      }
    }
  }

  void Difetto(const QWidget& controllo, const QString& cosa) {
    difetti_ << NomeDi(controllo) + QStringLiteral(": ") + cosa;
  }

  /// What is seen of a control, in the window.
  [[nodiscard]] QRect Visto(const QWidget& controllo) const {
    QRect visto(controllo.mapTo(&finestra_, QPoint()), controllo.size());
    for (const auto* sopra = controllo.parentWidget(); sopra != nullptr && sopra != &finestra_;
         sopra = sopra->parentWidget()) {
      visto &= QRect(sopra->mapTo(&finestra_, QPoint()), sopra->size());
    }
    return visto;
  }

  void Separati(const QWidget& uno, const QWidget& altro) {
    const QRect comune = Visto(uno) & Visto(altro);
    if (comune.width() <= 1 || comune.height() <= 1) return;
    Difetto(uno, QStringLiteral("sta sopra %1 per %2x%3")
                     .arg(NomeDi(altro))
                     .arg(comune.width())
                     .arg(comune.height()));
  }

  void DentroLaFinestra(const QWidget& controllo) {
    for (const auto* sopra = controllo.parentWidget(); sopra != nullptr;
         sopra = sopra->parentWidget()) {
      // Filters and totals go with their columns.
      if (AreaCheScorre(sopra) || sopra->inherits("fenalto::screens::RigaFiltri") ||
          sopra->inherits("fenalto::screens::PiedeGriglia")) {
        break;
      }
      const QRect suo(controllo.mapTo(sopra, QPoint()), controllo.size());
      if (!sopra->rect().adjusted(-1, -1, 1, 1).contains(suo)) {
        Difetto(controllo, QStringLiteral("esce da %1").arg(NomeDi(*sopra)));
        return;
      }
      if (sopra == &finestra_) break;
    }
    const QSize minima = controllo.minimumSizeHint().boundedTo(controllo.maximumSize());
    if (controllo.height() < minima.height()) {
      Difetto(
          controllo,
          QStringLiteral("è alto %1, ne chiede %2").arg(controllo.height()).arg(minima.height()));
    }
  }

  void TestoIntero(const QWidget& controllo) {
    if (const auto* etichetta = qobject_cast<const QLabel*>(&controllo)) return Testo(*etichetta);
    if (const auto* linguette = qobject_cast<const QTabBar*>(&controllo)) return Testo(*linguette);
    if (const auto* pulsante = qobject_cast<const QAbstractButton*>(&controllo)) {
      return Testo(*pulsante);
    }
    if (const auto* elenco = qobject_cast<const QComboBox*>(&controllo)) return Testo(*elenco);
    if (const auto* campo = qobject_cast<const QLineEdit*>(&controllo)) return Testo(*campo);
    if (const auto* vista = qobject_cast<const QAbstractItemView*>(&controllo)) Testo(*vista);
  }

  void Testo(const QLabel& etichetta) {
    if (E<screens::EtichettaElisa>(&etichetta) || etichetta.text().isEmpty()) return;
    if (etichetta.wordWrap()) {
      if (etichetta.heightForWidth(etichetta.width()) > etichetta.height() + 1) {
        Difetto(etichetta, QStringLiteral("il testo su più righe è tagliato in basso"));
      }
      return;
    }
    if (etichetta.textFormat() == Qt::RichText || Qt::mightBeRichText(etichetta.text())) return;
    const QString testo =
        etichetta.buddy() != nullptr ? SenzaLettera(etichetta.text()) : etichetta.text();
    const QSize chiesta = etichetta.fontMetrics().size(0, testo);
    const QSize data = etichetta.contentsRect().size();
    if (chiesta.width() > data.width() + 1 || chiesta.height() > data.height() + 1) {
      Difetto(etichetta, QStringLiteral("il testo è tagliato: %1x%2 in %3x%4")
                             .arg(chiesta.width())
                             .arg(chiesta.height())
                             .arg(data.width())
                             .arg(data.height()));
    }
  }

  void Testo(const QAbstractButton& pulsante) {
    if (pulsante.text().isEmpty() || pulsante.inherits("fenalto::screens::Via")) return;
    const int chiesta = pulsante.sizeHint().width();
    if (chiesta > pulsante.width() + 1) {
      Difetto(pulsante, QStringLiteral("il testo è tagliato: largo %1, ne chiede %2")
                            .arg(pulsante.width())
                            .arg(chiesta));
    }
  }

  void Testo(const QTabBar& linguette) {
    for (int i = 0; i < linguette.count(); ++i) {
      if (!linguette.isTabVisible(i)) continue;
      const int largo =
          linguette.fontMetrics().horizontalAdvance(SenzaLettera(linguette.tabText(i))) +
          linguette.style()->pixelMetric(QStyle::PM_TabBarTabHSpace) / 2;
      if (largo <= linguette.tabRect(i).width()) continue;
      if (linguette.elideMode() == Qt::ElideNone || linguette.tabToolTip(i).isEmpty()) {
        Difetto(
            linguette,
            QStringLiteral("la linguetta «%1» è tagliata senza dirlo").arg(linguette.tabText(i)));
      }
    }
  }

  void Testo(const QComboBox& elenco) {
    QStyleOptionComboBox stile;
    stile.initFrom(&elenco);
    stile.editable = elenco.isEditable();
    const int dato =
        elenco.style()
            ->subControlRect(QStyle::CC_ComboBox, &stile, QStyle::SC_ComboBoxEditField, &elenco)
            .width();
    const int chiesto = elenco.fontMetrics().horizontalAdvance(elenco.currentText());
    if (chiesto > dato && elenco.toolTip().isEmpty()) {
      Difetto(elenco, QStringLiteral("«%1» è tagliato: largo %2, ne chiede %3")
                          .arg(elenco.currentText())
                          .arg(dato)
                          .arg(chiesto));
    }
  }

  /// What is aligned to the right is a number, and half a number is a wrong one.
  void Testo(const QLineEdit& campo) {
    if (!(campo.alignment() & Qt::AlignRight)) return;
    QStyleOptionFrame stile;
    stile.initFrom(&campo);
    stile.lineWidth = campo.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &stile, &campo);
    const int dato =
        campo.style()->subElementRect(QStyle::SE_LineEditContents, &stile, &campo).width() - 4;
    const int chiesto = campo.fontMetrics().horizontalAdvance(campo.text());
    if (chiesto > dato) {
      Difetto(campo, QStringLiteral("il numero «%1» è tagliato: largo %2, ne chiede %3")
                         .arg(campo.text())
                         .arg(dato)
                         .arg(chiesto));
    }
  }

  void Testo(const QAbstractItemView& vista) {
    const QHeaderView* testata = nullptr;
    if (const auto* tabella = qobject_cast<const QTableView*>(&vista)) {
      testata = tabella->horizontalHeader();
    } else if (const auto* albero = qobject_cast<const QTreeView*>(&vista)) {
      testata = albero->header();
    }
    if (testata == nullptr || testata->isHidden() || vista.model() == nullptr) return;
    for (int colonna = 0; colonna < testata->count(); ++colonna) {
      if (!testata->isSectionHidden(colonna)) Colonna(vista, *testata, colonna);
    }
  }

  void Colonna(const QAbstractItemView& vista, const QHeaderView& testata, int colonna) {
    const int margini = 2 * screens::MargineCella();
    const auto* modello = vista.model();
    const QString titolo = modello->headerData(colonna, Qt::Horizontal).toString();
    const int largo = testata.sectionSize(colonna);
    const int chiesto = testata.fontMetrics().horizontalAdvance(titolo) + margini;
    const bool detto = testata.textElideMode() != Qt::ElideNone &&
                       !modello->headerData(colonna, Qt::Horizontal, Qt::ToolTipRole).isNull();
    if (chiesto > largo && !detto) {
      Difetto(vista, QStringLiteral("il titolo «%1» è tagliato senza dirlo: largo %2, ne chiede %3")
                         .arg(titolo)
                         .arg(largo)
                         .arg(chiesto));
    }
    constexpr int kRighe = 60;
    for (int riga = 0; riga < std::min(kRighe, modello->rowCount()); ++riga) {
      const QModelIndex cella = modello->index(riga, colonna);
      const auto lato = Qt::Alignment(cella.data(Qt::TextAlignmentRole).toInt());
      if (!(lato & Qt::AlignRight)) continue;
      const int suo = vista.fontMetrics().horizontalAdvance(cella.data().toString()) + margini;
      if (suo <= largo) continue;
      Difetto(vista, QStringLiteral("il numero «%1» della colonna «%2» è tagliato: largo %3, ne "
                                    "chiede %4")
                         .arg(cella.data().toString(), titolo)
                         .arg(largo)
                         .arg(suo));
      return;
    }
  }

  void TitoloDiGruppo(const QGroupBox& gruppo) {
    if (gruppo.title().isEmpty()) return;
    QStyleOptionGroupBox stile;
    stile.initFrom(&gruppo);
    stile.text = gruppo.title();
    stile.subControls = QStyle::SC_GroupBoxLabel | QStyle::SC_GroupBoxFrame;
    stile.lineWidth = 1;
    const int chiesto = gruppo.fontMetrics().horizontalAdvance(SenzaLettera(gruppo.title()));
    if (chiesto > gruppo.width() - 8) {
      Difetto(gruppo, QStringLiteral("il titolo è tagliato: largo %1, ne chiede %2")
                          .arg(gruppo.width())
                          .arg(chiesto));
    }
    Contrasta(gruppo, QPalette::WindowText, QPalette::Window);
  }

  void Leggibile(const QWidget& controllo) {
    // The head of a calendar stands on the colour of what is chosen.
    const bool diCalendario = controllo.objectName().startsWith(QLatin1String("qt_calendar"));
    if (E<QScrollBar>(&controllo) || (diCalendario && E<QToolButton>(&controllo))) return;
    if (const auto* campo = qobject_cast<const QLineEdit*>(&controllo)) {
      const bool suggerisce = campo->text().isEmpty() && !campo->placeholderText().isEmpty();
      Contrasta(controllo, suggerisce ? QPalette::PlaceholderText : QPalette::Text, QPalette::Base);
    } else if (const auto* vista = qobject_cast<const QAbstractItemView*>(&controllo)) {
      Celle(*vista);
    } else if (E<QPlainTextEdit>(&controllo) || E<QAbstractSpinBox>(&controllo)) {
      Contrasta(controllo, QPalette::Text, QPalette::Base);
    } else if (E<QComboBox>(&controllo) || E<QPushButton>(&controllo)) {
      Contrasta(controllo, QPalette::ButtonText, QPalette::Button);
    } else {
      Contrasta(controllo, controllo.foregroundRole(), QPalette::Window);
    }
  }

  void Celle(const QAbstractItemView& vista) {
    Contrasta(vista, QPalette::Text, QPalette::Base);
    Contrasta(vista, QPalette::HighlightedText, QPalette::Highlight);
    const auto* modello = vista.model();
    if (modello == nullptr) return;
    constexpr int kRighe = 60;
    for (int riga = 0; riga < std::min(kRighe, modello->rowCount()); ++riga) {
      for (int colonna = 0; colonna < modello->columnCount(); ++colonna) {
        const QModelIndex cella = modello->index(riga, colonna);
        const auto testo = cella.data(Qt::ForegroundRole);
        const auto fondo = cella.data(Qt::BackgroundRole);
        if (testo.isNull() && fondo.isNull()) continue;
        const auto colore = [&](const QVariant& dato, QPalette::ColorRole altrimenti) {
          if (dato.isNull()) return vista.palette().color(altrimenti);
          return dato.canConvert<QBrush>() ? dato.value<QBrush>().color() : dato.value<QColor>();
        };
        if (!Contrasta(vista, colore(testo, QPalette::Text), colore(fondo, QPalette::Base))) return;
      }
    }
  }

  void Contrasta(const QWidget& controllo, QPalette::ColorRole sopra, QPalette::ColorRole sotto) {
    const auto gruppo = controllo.isEnabled() ? QPalette::Active : QPalette::Disabled;
    Contrasta(controllo, controllo.palette().color(gruppo, sopra),
              controllo.palette().color(gruppo, sotto));
  }

  bool Contrasta(const QWidget& controllo, const QColor& testo, const QColor& fondo) {
    constexpr double kAttivo = 4.5;
    constexpr double kSpento = 3;
    const double contrasto = screens::Contrasto(testo, fondo);
    if (contrasto >= (controllo.isEnabled() ? kAttivo : kSpento)) return true;
    Difetto(controllo, QStringLiteral("si legge male: contrasto %1 fra %2 e %3")
                           .arg(contrasto, 0, 'f', 2)
                           .arg(testo.name(QColor::HexArgb), fondo.name()));
    return false;
  }

  QWidget& finestra_;
  std::vector<QWidget*> interi_;
  std::vector<QGroupBox*> gruppi_;
  QStringList difetti_;
};

}  // namespace

QStringList Difetti(QWidget& finestra) {
  return Esame(finestra).Fai();
}

}  // namespace fenalto::prova

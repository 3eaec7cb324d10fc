#include "screens/common/look/Stile.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTabBar>
#include <algorithm>

#include "screens/common/look/Icone.h"
#include "screens/common/look/Misure.h"
#include "screens/common/look/StileForme.h"
#include "screens/common/look/Tavolozza.h"

namespace fenalto::screens {
namespace {

/// The button that writes: one a page, in the accent.
bool DiConferma(const QWidget* controllo) {
  return controllo != nullptr &&
         (controllo->objectName() == QLatin1String("Conferma") ||
          controllo->objectName() == QLatin1String("Command1VariazioneDitta"));
}

bool Fermo(const QWidget* controllo) {
  const auto* campo = qobject_cast<const QLineEdit*>(controllo);
  return campo != nullptr && campo->isReadOnly();
}

}  // namespace

Stile::Stile() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

int Stile::pixelMetric(PixelMetric misura, const QStyleOption* opzione,
                       const QWidget* controllo) const {
  switch (misura) {
    case PM_LayoutLeftMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutBottomMargin:
    case PM_LayoutHorizontalSpacing:
      return Misura(Passo::Vicino);
    case PM_LayoutVerticalSpacing:
      return Misura(Passo::Vicino) * 3 / 4;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
    case PM_TabCloseIndicatorWidth:
    case PM_TabCloseIndicatorHeight:
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
    case PM_TabBarIconSize:
    case PM_ToolBarIconSize:
      return LatoIcona();
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
      return Misura(Passo::Filo) * 3 / 2;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_TabBarTabShiftVertical:
    case PM_TabBarTabOverlap:
      return 0;
    // A caption stands over its cells (DelegatoGriglia).
    case PM_HeaderMargin:
      return Misura(Passo::Filo) * 3 / 2;
    case PM_TabBarTabHSpace:
      return 2 * Misura(Passo::Gruppo);
    case PM_TabBarTabVSpace:
      return 2 * Misura(Passo::Vicino);
    default:
      return QProxyStyle::pixelMetric(misura, opzione, controllo);
  }
}

int Stile::styleHint(StyleHint quale, const QStyleOption* opzione, const QWidget* controllo,
                     QStyleHintReturn* dati) const {
  switch (quale) {
    // The wheel scrolls the window, it doesn't change what was chosen in passing.
    case SH_ComboBox_AllowWheelScrolling:
      return 0;
    case SH_UnderlineShortcut:
      return 1;
    case SH_Header_ArrowAlignment:
      return Qt::AlignRight | Qt::AlignVCenter;
    default:
      return QProxyStyle::styleHint(quale, opzione, controllo, dati);
  }
}

void Stile::drawPrimitive(PrimitiveElement elemento, const QStyleOption* opzione, QPainter* pittore,
                          const QWidget* controllo) const {
  switch (elemento) {
    case PE_FrameFocusRect:
      // Fields and buttons have it in their frame.
      if (qobject_cast<const QAbstractButton*>(controllo) == nullptr ||
          controllo->inherits("QCheckBox") || controllo->inherits("QRadioButton")) {
        DisegnaFoco(*pittore, *opzione);
      }
      return;
    case PE_PanelLineEdit:
      if (const auto* riquadro = qstyleoption_cast<const QStyleOptionFrame*>(opzione);
          riquadro != nullptr && riquadro->lineWidth > 0) {
        return DisegnaCampo(*pittore, *opzione, Fermo(controllo));
      }
      break;
    case PE_FrameLineEdit:
      return DisegnaCampo(*pittore, *opzione, Fermo(controllo));
    case PE_PanelButtonCommand:
      if (const auto* pulsante = qstyleoption_cast<const QStyleOptionButton*>(opzione);
          pulsante != nullptr && pulsante->features & QStyleOptionButton::Flat &&
          !(opzione->state & (State_MouseOver | State_Sunken | State_HasFocus))) {
        return;
      }
      return DisegnaPulsante(*pittore, *opzione, DiConferma(controllo));
    case PE_IndicatorCheckBox:
      return DisegnaCasella(*pittore, *opzione, false);
    case PE_IndicatorRadioButton:
      return DisegnaCasella(*pittore, *opzione, true);
    case PE_Frame:
      if (const auto* cornice = qobject_cast<const QFrame*>(controllo);
          cornice == nullptr || cornice->frameShape() != QFrame::StyledPanel) {
        break;
      }
      return DisegnaCornice(*pittore, *opzione);
    case PE_FrameGroupBox:
      return DisegnaGruppo(*pittore, *opzione);
    case PE_IndicatorTabClose: {
      const bool sopra = opzione->state & State_MouseOver;
      DipingiIcona(*pittore, opzione->rect, QStringLiteral("chiudi"),
                   Colore(sopra ? Segno::Scaduto : Segno::Sommesso, opzione->palette));
      return;
    }
    default:
      break;
  }
  QProxyStyle::drawPrimitive(elemento, opzione, pittore, controllo);
}

void Stile::drawControl(ControlElement elemento, const QStyleOption* opzione, QPainter* pittore,
                        const QWidget* controllo) const {
  if (elemento == CE_TabBarTabShape) {
    if (const auto* linguetta = qstyleoption_cast<const QStyleOptionTab*>(opzione)) {
      return DisegnaLinguetta(*pittore, *linguetta);
    }
  }
  if (elemento == CE_HeaderSection) return DisegnaTestata(*pittore, *opzione);
  if (elemento == CE_HeaderLabel) {
    if (const auto* testata = qstyleoption_cast<const QStyleOptionHeader*>(opzione)) {
      return DisegnaTitolo(*pittore, *testata);
    }
  }
  QProxyStyle::drawControl(elemento, opzione, pittore, controllo);
}

void Stile::drawComplexControl(ComplexControl elemento, const QStyleOptionComplex* opzione,
                               QPainter* pittore, const QWidget* controllo) const {
  if (elemento == CC_ComboBox) {
    return DisegnaElenco(*pittore, *opzione,
                         subControlRect(CC_ComboBox, opzione, SC_ComboBoxArrow, controllo));
  }
  QProxyStyle::drawComplexControl(elemento, opzione, pittore, controllo);
}

QSize Stile::sizeFromContents(ContentsType tipo, const QStyleOption* opzione,
                              const QSize& contenuto, const QWidget* controllo) const {
  const QSize misura = QProxyStyle::sizeFromContents(tipo, opzione, contenuto, controllo);
  // Fields, buttons and lists on one line are as high as each other.
  const int alta = QFontMetrics(QApplication::font()).height() + 2 * Misura(Passo::Vicino) * 3 / 4;
  switch (tipo) {
    case CT_PushButton: {
      constexpr int kMinima = 16;
      const int larga = contenuto.width() + 2 * Misura(Passo::Vicino);
      return {std::max(larga, kMinima * Misura(Passo::Filo)), std::max(misura.height(), alta)};
    }
    case CT_LineEdit:
    case CT_ComboBox:
      return {misura.width(), std::max(misura.height(), alta)};
    case CT_ItemViewItem:
      return {misura.width(), std::max(misura.height(), alta - Misura(Passo::Filo))};
    default:
      return misura;
  }
}

void Stile::polish(QWidget* controllo) {
  QProxyStyle::polish(controllo);
  if (qobject_cast<QAbstractButton*>(controllo) != nullptr ||
      qobject_cast<QTabBar*>(controllo) != nullptr) {
    controllo->setAttribute(Qt::WA_Hover);
  }
}

void VestiProgramma() {
  const QString voluto = qEnvironmentVariable("FENALTO_TONO");
  const Tono tono = voluto == QLatin1String("scuro")    ? Tono::Scuro
                    : voluto == QLatin1String("chiaro") ? Tono::Chiaro
                                                        : TonoDi(QApplication::palette());
  QApplication::setStyle(new Stile);
  QApplication::setPalette(Tavolozza(tono));
}

}  // namespace fenalto::screens
